// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Tabella.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

/// Reads the lines of a dictionary file: UTF-16 little-endian, a line ended by a zero unit or by an LF after a CR,
/// the CR kept, byte-order marks skipped, CR and LF told by their low byte alone. The end of the file is noticed only
/// by a read that meets it, so a file that ends in CR LF yields one more, empty line.
struct LettoreDizionario {
    explicit LettoreDizionario(QIODevice &dispositivo);

    QIODevice &dispositivo;
    QByteArray blocco;
    qsizetype posto = 0;
    bool fine = false;
};

/// The next line into `linea` (its storage is reused); false at the end. ErroreRuntime 57 when reading fails.
bool LeggiLinea(LettoreDizionario &lettore, QString &linea);

/// Stops the reading of a file that is no dictionary: one of zeros is an empty line every two bytes, and no memory
/// holds them.
class ContaVuote
{
public:
    explicit ContaVuote(qint32 molte = 100000) : m_molte(molte) {}

    /// ErroreRuntime 57 when more than `molte` lines, and most of all, are empty; `righe` is how many came before.
    void Conta(const QString &linea, qint32 righe);

private:
    qint32 m_molte;
    qint32 m_vuote = 0;
};

/// Empties the table and fills it from the file, doubling it when full. Returns the last-row index: rows read - 1, or
/// 0 when there were none. ErroreRuntime 57 when reading fails; the table is then empty.
qint32 CaricaDizionario(QIODevice &dispositivo, Tabella &tabella);

/// As above, opening the file. ErroreRuntime 53, 70 or 75 when it cannot be opened; the table is then untouched.
qint32 CaricaDizionario(const QString &percorso, Tabella &tabella);

/// A stored line that the file gives back as it is: all its units are read again, and none ends it early.
bool LineaTenuta(QStringView linea);

/// How many of rows 0 to `ultima` the file would not give back as they are.
qint32 ContaSpezzate(const Tabella &tabella, qint32 ultima);

/// Writes one stored line and its CR LF for each row 0 to `ultima` that is no hole.
void ScriviDizionario(QIODevice &dispositivo, const Tabella &tabella, qint32 ultima);

/// Deletes the file and writes it anew; without `conCopia`, when what it holds is nowhere else on the disk, the new one
/// takes its place in one step. ErroreRuntime as `ScriviInPosto`.
void SalvaDizionario(const QString &percorso, const Tabella &tabella, qint32 ultima, bool conCopia = true);
