// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Loads and activates the layout of an eight-hexadecimal-digit name, keeping the user's at the first change; false
/// when the system has none.
bool CaricaTastieraWindows(const char *nome);

/// Activates the user's layout again.
void RestituisciTastieraWindows();
