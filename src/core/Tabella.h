// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>
#include <vector>

/// One row of a table: column 0 the language-1 word, 1 the language-2 word, 2 the stored line. A row whose stored
/// line is empty is a hole, which every reader skips.
using RigaTabella = std::array<QString, 3>;

/// A table of rows 0 to its capacity.
struct Tabella {
    std::vector<RigaTabella> righe = std::vector<RigaTabella>(1);
};

/// The upper row bound of a table.
inline qint32 Capacita(const Tabella &tabella)
{
    return static_cast<qint32>(tabella.righe.size()) - 1;
}

/// Re-dimensions to rows 0 to `capacita`, keeping the rows. ErroreRuntime 6 below 0.
void Ridimensiona(Tabella &tabella, qint32 capacita);

/// Row r; ErroreRuntime 9 outside the table.
RigaTabella &RigaDi(Tabella &tabella, qint32 r);
const RigaTabella &RigaDi(const Tabella &tabella, qint32 r);

/// A row filled from its stored line: columns 0 and 1 are its words.
RigaTabella RigaDaLinea(const QString &linea);

/// One and a half times `capacita`, halves to even; ErroreRuntime 6 beyond 32 bits.
qint32 CapacitaCresciuta(qint32 capacita);

/// Grows the table by one and a half.
void Allarga(Tabella &tabella);

/// Closes the hole at row r of a table of rows 0 to n: the rows below it, row n + 1 included, move up by one, row
/// n + 1 is emptied and n decremented. ErroreRuntime 9 when the table has no row n + 1.
void RiempiBuco(Tabella &tabella, qint32 r, qint32 &n);

/// Closes every hole among rows 0 to n as one `RiempiBuco` a hole would, n shrinking with each, in one pass. Makes
/// room first when n is the capacity. Returns the last row left, -1 when none is.
qint32 ChiudiBuchi(Tabella &tabella, qint32 n);

/// How many of rows 0 to n are no holes.
qint32 ContaVoci(const Tabella &tabella, qint32 n);

/// Empties rows 0 to n.
void Svuota(Tabella &tabella, qint32 n);
