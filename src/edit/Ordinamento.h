// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Tabella.h"

/// Sorts rows 0 to n - 1 by column 0, n being the last index: the row at n keeps its place. Stable; keys are compared
/// by code unit after each unit's own lower-casing, whatever the locale. ErroreRuntime 9 beyond the table.
void OrdinaStringhe(Tabella &tabella, qint32 n);

/// The same by column `chiave`, 0 or 1.
void OrdinaLista(Tabella &tabella, qint32 n, qint32 chiave);

/// Sorts the tools' second table, its count as n.
void ordinadizionario2(qint32 chiave);
