// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A stored line with its languages exchanged: `commento2@lingua2@lingua1@commento1`. Of a line with fewer than three
/// "@" the text after the last one is the field that comes next.
QString LineaInvertita(const QString &linea);

/// Exchanges the two languages of every entry of the main table.
void InvertiInPosto();

/// Where the companion file of an inverted dictionary goes: the path less its last four characters, and ".ini"; empty
/// for a file name of under four.
QString PercorsoIniInvertito(const QString &dizionario);

/// Writes the main table inverted to a new file, "@@@" for a hole, after a copy of the open dictionary's companion
/// file (an empty one when that is missing, none when it would be written over itself). ErroreRuntime 57, 61, 70 or 75
/// when one cannot be read or written, its text naming it; what stood at its place is then as it was.
/// Returns how many entries the file will not give back as they are.
qint32 ScriviInvertito(const QString &dizionario);
