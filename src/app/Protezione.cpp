// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Protezione.h"

#include "core/Documento.h"

#include <QCoreApplication>
#include <QPushButton>

#include <cstdio>

using namespace Qt::StringLiterals;

QMessageBox::StandardButton Messaggio(QWidget *genitore, QMessageBox::Icon icona, const QString &titolo,
                                      const QString &testo, QMessageBox::StandardButtons pulsanti)
{
    QMessageBox casella(icona, titolo, QString(), pulsanti, genitore ? genitore->window() : nullptr);
    // Paths and words of the user's are shown as they are, never as markup.
    casella.setTextFormat(Qt::PlainText);
    casella.setText(testo);
    return static_cast<QMessageBox::StandardButton>(casella.exec());
}

QMessageBox::StandardButton DomandaRinviabile(QWidget *genitore, const QString &titolo, const QString &testo)
{
    QMessageBox casella(QMessageBox::Question, titolo, QString(), QMessageBox::Yes | QMessageBox::No,
                        genitore ? genitore->window() : nullptr);
    casella.setTextFormat(Qt::PlainText);
    casella.setText(testo);
    // The toolkit takes No for the escape button otherwise.
    QPushButton *rinvio = casella.addButton(QMessageBox::Cancel);
    casella.setEscapeButton(rinvio);
    rinvio->hide();
    return static_cast<QMessageBox::StandardButton>(casella.exec());
}

bool &ProgrammaTerminato()
{
    static bool terminato = false;
    return terminato;
}

void SegnalaErrore(QWidget *genitore, const ErroreRuntime &errore)
{
    if (!errore.termina) {
        Messaggio(genitore, QMessageBox::Critical, u"Errore!"_s, errore.testo);
        return;
    }
    QString testo = u"Errore di run-time '%1': "_s.arg(errore.numero) + errore.testo;
    try {
        Documento::AggiornaCopiaAllaFine();
    } catch (const std::exception &eccezione) {
        const auto *copia = dynamic_cast<const ErroreRuntime *>(&eccezione);
        testo += u"\nImpossibile scrivere la copia di recupero.\n"_s + (copia ? copia->testo : TestoMemoria());
    }
    static_cast<void>(std::fputs((testo + u'\n').toLocal8Bit().constData(), stderr));
    ProgrammaTerminato() = true;
    Messaggio(genitore, QMessageBox::Critical, u"Varbel"_s, testo);
    QCoreApplication::exit(1);
}
