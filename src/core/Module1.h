// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileInPosto.h"
#include "core/FileIni.h"
#include "core/FileVarbel.h"
#include "core/Tabella.h"

#include <QString>

#include <array>
#include <memory>
#include <vector>

class QObject;
class Recupero;

/// The program's global state, with the operations on its two tables. Windows read and change it directly.
namespace Module1
{
/// Upper row bound of the main dictionary at start.
constexpr qint32 CapacitaIniziale = 1000;
/// Upper index of the exercise's error list at start.
constexpr qint32 DimensioneErrori = 100;
/// Slots of the window registry.
constexpr qint32 MassimoFinestre = 10;

struct Stato {
    Stato();

    /// The main dictionary. Rows 0 to LenDizionario1 are what a save visits; -1 means empty to an append.
    Tabella Dizionario1;
    qint32 LenDizionario1 = 0;

    /// The tools' second table; LenDizionario2 is its count of rows, so the next row to fill.
    Tabella Dizionario2;
    qint32 LenDizionario2 = 0;

    /// The row that the entry window or the viewer is working on.
    qint32 VoceCorrente = 0;
    /// The open dictionary has unsaved changes.
    bool Modificato = false;
    /// The dictionary file was just made by New and never saved.
    bool NuovoDizionario = false;
    /// A dictionary is open.
    bool DizionarioAperto = false;
    /// Full paths of the open dictionary and its companion; empty when none is open.
    QString PercorsoDizionario;
    QString PercorsoIni;
    /// How the dictionary's file, and the companion file that a save writes, looked when last read or saved here.
    Impronta FileDizionario;
    Impronta FileIni;
    /// The dictionary's file holds less than the recovery copy of what was saved last: a save failed, or broke entries.
    bool FileRotto = false;
    /// The entries come from a recovery copy: the file need not be readable.
    bool DaCopia = false;
    /// Keeps the open dictionary's recovery copy.
    std::shared_ptr<Recupero> recupero;
    ImpostazioniDizionario impostazioni;

    /// Exercise: stored lines answered wrongly, how often each, and how many are in use.
    std::vector<QString> VociSbagliate;
    std::vector<qint32> ConteggiSbagliate;
    qint32 LenSbagliate = 0;

    /// The program's own folder, its recent list and its font size in points.
    QString CartellaProgramma;
    Recenti recenti;
    qint32 DimensioneFont = 10;

    /// Registered child windows, slots 0 to NumFinestre - 1.
    std::array<QObject *, MassimoFinestre> Finestre{};
    qint32 NumFinestre = 0;
};

/// The one state.
Stato &stato();

/// varbel.ini in the program's own folder.
QString PercorsoVarbelIni();

/// Gives the state its starting values.
void Azzera();

/// The reset that ends a close: names, fonts, rows 0 to the last-row index, hotkeys, path, error list.
void AzzeraDizionario();

/// Appends row r of Dizionario2 to the main dictionary at its last-row index, then moves the index on; r = -1 does
/// nothing. ErroreRuntime 9 for any other row outside the table.
void AggiungiADizionario1(qint32 r);

/// Appends row r of the main dictionary to Dizionario2. ErroreRuntime 9 for a row outside the table.
void AggiungiADizionario2(qint32 r);

/// Grows Dizionario2 by one and a half.
void AllargaDizionario2();

/// Empties row r of Dizionario2 and closes the gap. ErroreRuntime 9 when its count is its capacity.
void CancellaDizionario2(qint32 r);

/// The text of Dizionario2 at column c, row r. ErroreRuntime 9 outside the table.
QString LemmaDizionario(qint32 c, qint32 r);
} // namespace Module1
