// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ErroreRuntime.h"
#include "core/Recupero.h"

#include <QString>

#include <functional>

/// The one open dictionary and its files: what opening, saving and closing do without a window.
namespace Documento
{
/// Keeps a recovery copy for the dictionary at the state's path from now on, and notes how its files look.
void Occupa();

/// Makes an empty file of the dictionary's when there is none, as a save cut short leaves it. ErroreRuntime 75.
void CreaMancante();

/// The dictionary's file, else the companion file that a save would write, when another program has written it since
/// it was read or saved here; empty when none. A file that has gone is not one.
QString CambiatoDaAltri();

/// Reads the dictionary's file into the main table, sorted. ErroreRuntime 53, 57, 70 or 75, unless a copy brings the
/// entries.
void Carica();

/// Takes the settings of a copy into the state, when they can be read.
void PrendiImpostazioni(const CopiaRecupero &copia);

/// Takes the entries and settings of a copy into the state; the dictionary then counts as modified.
void Prendi(const CopiaRecupero &copia);

/// Brings the recovery copy up to date. ErroreRuntime 57, 61 or 75 with the reason.
void AggiornaCopia();

/// Saves the dictionary, then its companion file, under the state's path, which may be new. The recovery copy is up to
/// date before anything is deleted and goes at the end, unless the file will not give back every entry as it is: how
/// many is returned. ErroreRuntime as `ScriviInPosto`, its text naming the file; the table, the modified flag and the
/// copy are then as they were.
qint32 Salva();

/// The user gives the changes up: the copy goes, unless the file holds less than what was there, or would not give it
/// all back.
void Rinuncia();

/// The copy also of a dictionary without changes, where an end would lose what only the memory holds. As
/// `AggiornaCopia`.
void AggiornaCopiaAllaFine();

/// Closes: the recent list, varbel.ini in `fileVarbel` rewritten with it, the state emptied. `avvisa` is told why the
/// rewriting failed, which stops nothing.
void Chiudi(const QString &fileVarbel, const QString &cartella,
            const std::function<void(const ErroreRuntime &)> &avvisa);
} // namespace Documento
