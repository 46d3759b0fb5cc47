// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/// Prints the open dictionary's file after asking about the number of sheets.
void StampaDizionarioAperto(QWidget *genitore);
