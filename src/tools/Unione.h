// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Avanzamento.h"

#include <QString>

/// Appends every line of a dictionary file to the main table as an entry, one row a line, also the empty line at the
/// end of a file that ends in CR LF. Returns how many. ErroreRuntime 53, 57, 70 or 75 when the file cannot be read; the
/// table is then as it was.
qint32 UnisciDizionario(const QString &percorso, const Avanzamento &avanti);
