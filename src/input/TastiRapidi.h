// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Modifier mask of a key event.
constexpr quint8 MascheraShift = 1;
constexpr quint8 MascheraCtrl = 2;
constexpr quint8 MascheraAlt = 4;

namespace TastiRapidi
{
/// Applies the dictionary's hotkeys at a key's release: every row of the table up to and including the one past the
/// last in use that matches puts its character in at `punto` (UTF-16 units before the caret), with Shift alone in the
/// place of the character before it; `punto` then moves on by one. `ctrlNotato` becomes 1 for a mask with Ctrl alone or
/// with Shift, else 0. True when a row matched.
bool Inserisci(QString &testo, qsizetype &punto, qint16 codice, quint8 maschera, bool &ctrlNotato);

/// A row that takes part in matching, the one past the last in use among them, is for this key with these flags.
bool Presente(qint16 codice, bool shift, bool ctrl);

/// The dictionary has a hotkey on this key with these flags.
bool Definito(qint16 codice, bool shift, bool ctrl);
} // namespace TastiRapidi
