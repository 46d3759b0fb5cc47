// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// An absolute, clean path; empty stays empty.
QString PercorsoAssoluto(const QString &percorso);

/// The companion settings file that a save writes: the path up to its first ".", a folder's included, and "ini".
QString PercorsoIniScritto(const QString &dizionario);

/// The companion settings file beside the dictionary: the path up to its last "." and "ini".
QString PercorsoIniAccanto(const QString &dizionario);

/// The companion settings file to read: the written one, or the one beside the dictionary where that does not exist.
QString PercorsoIniLetto(const QString &dizionario);

/// The program's own folder: the executable's, unless the program was installed (its shipped files stand in
/// `../share/varbel` and no varbel.ini beside the executable). Then it is `cartellaDati`, filled with those of the
/// shipped files that it lacks. Throws nothing: a file that could not be copied is missing afterwards.
QString CartellaProgramma(const QString &cartellaEseguibile, const QString &cartellaDati);
