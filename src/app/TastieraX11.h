// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Tastiera.h"

/// The back end of an X server, Xwayland too: one layout at a time loaded by `setxkbmap`.
std::unique_ptr<MezzoTastiera> CreaTastieraX11();
