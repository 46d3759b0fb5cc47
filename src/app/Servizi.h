// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/DlgFile.h"
#include "core/Module1.h"

#include <array>

class QAction;
class QPushButton;
class QWidget;

/// What the main window lends to the windows below it, for as long as it lives.
struct Servizi {
    DlgFile dlgFile;
    QAction *mnuFileSalva = nullptr;
    QAction *mnuFinestre = nullptr;
    std::array<QAction *, Module1::MassimoFinestre> mnuFinestra{};
};

Servizi &servizi();

/// Sets the modified flag and enables the save command.
void SegnaModificato();

/// Gives a form, and what it holds, the application's font size.
void ImpostaFontSize(QWidget *form);

/// Enter in a form clicks the button that has the focus, else the default one.
void InvioPreme(QWidget *form, QPushButton *predefinito);

/// A text as a menu or label caption that shows every "&" of it.
QString Didascalia(const QString &testo);
