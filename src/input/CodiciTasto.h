// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// Virtual-key codes of the keys, the same on every platform.
namespace CodiciTasto
{
constexpr qint16 Sconosciuto = 255;

/// The code of a key event: `tasto` a Qt::Key, `scansione` the native scan code (evdev + 8, as X11 and Wayland give
/// it; 0 when there is none), `delTastierino` for the keypad. Named keys go by the Qt::Key, Latin letters too, the
/// rest by the place of the key on a US keyboard; 255 when it is none of these, never 0.
qint16 Codice(int tasto, quint32 scansione, bool delTastierino);
} // namespace CodiciTasto
