// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <array>

/// Hotkeys that a dictionary can define.
constexpr qint16 MassimoTastiRapidi = 20;

/// One hotkey: character code in the 8-bit code page, virtual-key code, Shift flag, Ctrl flag.
using TastoRapido = std::array<qint16, 4>;

/// The settings of one dictionary, kept in the companion settings file beside it.
struct ImpostazioniDizionario {
    QString lingua1;
    QString lingua2;
    QString FontLingua1 = QStringLiteral("Arial");
    QString FontLingua2 = QStringLiteral("Arial");
    QString FontCommento1 = QStringLiteral("Arial");
    QString FontCommento2 = QStringLiteral("Arial");
    /// Rows 0 to NumTastiRapidi - 1 are in use; the one past them takes part in matching, row 20 is always zero.
    std::array<TastoRapido, MassimoTastiRapidi + 1> TastiRapidi{};
    qint16 NumTastiRapidi = 0;
    /// The share of exercise questions drawn from the error list, 0 to 1.
    float PercentualeErrori = 0.3F;
    /// Non-zero: errors are signalled by a beep.
    qint32 Beep = 1;
    /// Four hexadecimal digits of the second language's keyboard layout, or empty.
    QString Tastiera;
};

/// Parses a companion settings file. Missing sections keep their defaults, a missing layout is "0410". ErroreRuntime
/// 13 for a hotkey row that is not four 16-bit integers, 9 for a 21st row.
ImpostazioniDizionario LeggiIni(const QByteArray &byte);

/// As above, from the file. ErroreRuntime 53, 70 or 75 when it cannot be read.
ImpostazioniDizionario LeggiFileIni(const QString &percorso);

/// The whole file: 8-bit text, lines ended by CR LF, the percentage as a whole number rounded half-even.
QByteArray ScriviIni(const ImpostazioniDizionario &impostazioni);
