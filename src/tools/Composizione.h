// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Tabella.h"

#include <QString>

#include <vector>

/// Composing: entries copied between the main table and a second dictionary file, which is held in Dizionario2.
namespace Composizione
{
/// The items of a list over a table: item i shows row righe[i], in ascending order of rows.
using Voci = std::vector<qint32>;

/// What an item shows of a row: the language-1 word without the blanks around it. A row where that is empty has no
/// item.
QString TestoVoce(const RigaTabella &riga);

/// The items of rows `prima` to `ultima`.
Voci VociDi(const Tabella &tabella, qint32 prima, qint32 ultima);

/// All items of the main table and of Dizionario2.
Voci VociDizionario1();
Voci VociDizionario2();

/// The same items once the holes among the rows of the main table have been closed.
Voci DopoChiusuraBuchi(const Voci &voci);

/// The full path of the second dictionary, empty when none is held.
const QString &componiFile();

/// Reads a second dictionary into Dizionario2 and sorts it by language-1 words, the last row left alone. Of the empty
/// lines only one at the end takes a row. ErroreRuntime 53, 57, 70 or 75 when it cannot be read, also while a recovery
/// copy of it waits for an answer; none is held then.
void Leggi(const QString &percorso);

/// Lets the second dictionary go, and its recovery copy, unless it holds more than a write has left in the file.
void Libera();

/// Another living program has the second dictionary open, or this one has.
bool ApertoAltrove();

/// Brings the second dictionary's recovery copy up to date. ErroreRuntime 57, 61 or 75 with the reason.
void AggiornaCopia();

/// The file is no longer the one that was read or written last: a write would replace what somebody else wrote.
bool Cambiato();

/// Writes Dizionario2 over its file. Returns how many entries the file will not give back as they are; the recovery
/// copy then stays. ErroreRuntime as `ScriviInPosto`; the entries stay in memory.
qint32 Scrivi();

/// Copies a row of the main table to the end of Dizionario2; returns the new items.
Voci Copia1in2(qint32 riga);

/// The same with all rows of the main table, its holes and blank words too.
Voci CopiaTutto1in2();

/// Copies rows of Dizionario2 to the end of the main table; returns the new items.
Voci Copia2in1(const Voci &righe);

/// Deletes item i and its row of Dizionario2. ErroreRuntime 9 when there is none.
void Elimina2(Voci &voci, qint32 i);
} // namespace Composizione
