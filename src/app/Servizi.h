// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/DlgFile.h"
#include "core/Module1.h"

#include <QList>
#include <QPointer>
#include <QWidget>

#include <array>
#include <functional>

class QAction;
class QFocusEvent;
class QPushButton;

/// What the main window lends to the windows below it, for as long as it lives.
struct Servizi {
    DlgFile dlgFile;
    QAction *mnuFileSalva = nullptr;
    QAction *mnuFinestre = nullptr;
    std::array<QAction *, Module1::MassimoFinestre> mnuFinestra{};
    /// The commands of the menus that the lists of entries offer too.
    QList<QAction *> vociDelleListe;
    /// The control of the main window that last had the focus, also while a dialog has it.
    QPointer<QWidget> ultimoFuoco;
    /// The recovery copy could not be written, and the user has been told.
    bool copiaFallita = false;
};

Servizi &servizi();

/// Sets the modified flag, enables the save command and brings the recovery copy up to date.
void SegnaModificato();

/// Runs what brings a recovery copy up to date; a failure is told once for as long as it lasts.
void TentaCopia(const std::function<void()> &aggiorna);

/// Tells that a file just written will not give back that many entries as they are, and whether a copy has them.
void AvvisaSpezzate(QWidget *finestra, const QString &file, qint32 voci, bool conCopia = true);

/// A length in twips as device-independent pixels, halves to even.
int Pixel(int twip);

/// Gives a form, and what it holds, the application's font size.
void ImpostaFontSize(QWidget *form);

/// Gives a control a font family in the application's font size, `inPiu` points larger.
void ImpostaFont(QWidget *controllo, const QString &famiglia, int inPiu = 0);

/// A control gets the focus from another one, not back from a dialog, a menu or another program.
bool PrendeIlFuoco(const QWidget *controllo, const QFocusEvent &evento);

/// Enter in a form clicks the button that has the focus, else the default one.
void InvioPreme(QWidget *form, QPushButton *predefinito);

/// A text as a menu or label caption that shows every "&" of it.
QString Didascalia(const QString &testo);
