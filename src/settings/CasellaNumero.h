// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

class QLineEdit;
class QPushButton;
class QWidget;

/// A text box for a number, with a button for one more, at most `massimo`, and one for one less, at least `minimo`.
/// What is typed knows no limits.
void PreparaNumero(QWidget *form, QLineEdit *casella, const QPushButton *su, const QPushButton *giu, int minimo,
                   int massimo);

/// The number in a box that has changed; a text that is none is emptied.
std::optional<double> NumeroOVuota(QLineEdit *casella);
