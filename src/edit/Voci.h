// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Tabella.h"

/// The viewer's delete: the last row over row k, the last row emptied, the last-row index one less, the table sorted.
/// Closes no gap. ErroreRuntime 9, which ends the program, when k is no row.
void EliminaVoce(qint32 k);

/// Closes the holes among the rows 0 to the last-row index, which keeps its value. Returns the last row to list, -1
/// when none is.
qint32 RaccogliVoci();

/// Adds an entry in the row after the last one and moves the last-row index on by two: the row between is left as it
/// is. Makes room first.
void AggiungiVoce(const RigaTabella &voce);

/// Writes over row `indice` if it still holds the stored line `letta`, else over the row that does; adds the entry when
/// none does.
void ModificaVoce(qint32 indice, const QString &letta, const RigaTabella &voce);

/// Appends a row as the tools do: at the last-row index, which then moves on, and makes room. The `prima` row of a
/// command steps over an entry that stands there.
void AccodaRiga(const RigaTabella &riga, bool prima);
