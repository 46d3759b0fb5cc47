// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// The number that a text is, with "." or "," before its decimals and blanks around it; nothing when it is none.
std::optional<double> LeggiNumero(const QString &testo);

/// The same as an integer, halves to even. ErroreRuntime 13 when the text is no number, 6 when it is outside the
/// limits.
qint32 LeggiIntero(const QString &testo, qint32 minimo, qint32 massimo);

/// A number as the program shows it, with a decimal comma and at most `cifre` digits.
QString TestoNumero(double numero, int cifre = 15);
