// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

/// Told how much of how much of a long command is done; false stops it after the current line.
using Avanzamento = std::function<bool(qint64 fatto, qint64 totale)>;

/// Appends every line of a dictionary file to the main table as an entry, one row a line, also the empty line at the
/// end of a file that ends in CR LF. Returns how many. ErroreRuntime 53, 57, 70 or 75 when the file cannot be read; the
/// table is then as it was.
qint32 UnisciDizionario(const QString &percorso, const Avanzamento &avanti);
