// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Tastiera.h"

/// The back end of the Plasma desktop on Wayland, for the layouts that the user has configured there; nullptr where
/// the session bus has no such service.
std::unique_ptr<MezzoTastiera> CreaTastieraKde();
