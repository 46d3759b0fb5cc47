// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ErroreRuntime.h"

#include <QMessageBox>
#include <QObject>

#include <new>
#include <type_traits>
#include <utility>

/// A modal message box with plain text; returns the button pressed.
QMessageBox::StandardButton Messaggio(QWidget *genitore, QMessageBox::Icon icona, const QString &titolo,
                                      const QString &testo, QMessageBox::StandardButtons pulsanti = QMessageBox::Ok);

/// The same as a question of Yes and No that can be put off: the escape key, or closing the box, gives Cancel.
QMessageBox::StandardButton DomandaRinviabile(QWidget *genitore, const QString &titolo, const QString &testo);

/// Shows a run-time error. One that ends the program is also written on the standard error, and the event loop then
/// ends with exit code 1; what was unsaved is in the recovery copy.
void SegnalaErrore(QWidget *genitore, const ErroreRuntime &errore);

/// What is said when the memory does not suffice.
inline QString TestoMemoria()
{
    return QStringLiteral("Memoria esaurita");
}

/// True once an error has ended the program, also before the event loop runs.
bool &ProgrammaTerminato();

/// Runs one event or action: no exception may travel through the toolkit.
template <typename Funzione>
void Protetto(QWidget *genitore, Funzione &&funzione)
{
    try {
        std::forward<Funzione>(funzione)();
    } catch (const ErroreRuntime &errore) {
        SegnalaErrore(genitore, errore);
    } catch (const std::bad_alloc &) {
        SegnalaErrore(genitore, ErroreRuntime(7, TestoMemoria()));
    }
}

/// Connects a signal to a protected function of `finestra`.
template <typename Mittente, typename Segnale, typename Funzione>
void Collega(const Mittente *mittente, Segnale segnale, QWidget *finestra, Funzione funzione)
{
    QObject::connect(mittente, segnale, finestra,
                     [finestra, funzione]<typename... Argomenti>(Argomenti &&...argomenti) {
                         if constexpr (std::is_invocable_v<const Funzione &, Argomenti...>)
                             Protetto(finestra, [&] { funzione(std::forward<Argomenti>(argomenti)...); });
                         else
                             Protetto(finestra, funzione);
                     });
}
