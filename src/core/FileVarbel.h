// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

/// The recent list: full paths, the most recent first, empty where not in use.
using Recenti = std::array<QString, 4>;

/// What the program reads from varbel.ini.
struct ImpostazioniVarbel {
    Recenti recenti;
    QString cartella;
    std::optional<qint32> dimensioneFont;
};

/// Reads the lines of varbel.ini. A recent section of fewer than four lines takes the next ones too, headers
/// included. ErroreRuntime 13 when the font size is no number, 6 when it is too large.
ImpostazioniVarbel LeggiVarbel(const QStringList &linee);

/// The language names that the lines offer: those after "[Lingue]", up to "[Font]" or the end.
QStringList LeggiLingue(const QStringList &linee);

/// Puts `percorso` at the head: a path in the list moves there, else the last one falls off. An empty path does
/// nothing.
void AggiornaRecenti(Recenti &recenti, const QString &percorso);

/// The lines of varbel.ini rewritten with the recent paths (the empty ones skipped), the folder and the font size;
/// every line after "[Font]" becomes the font size.
QStringList RiscriviVarbel(const QStringList &linee, const Recenti &recenti, const QString &cartella,
                           qint32 dimensioneFont);

/// The lines of a settings file. ErroreRuntime 53 when it is missing, 70 or 75 when it cannot be read.
QStringList LineeDelFile(const QString &percorso);

/// Rewrites the file through `temporaneo`: written, flushed and checked before it takes the place of the old one.
/// ErroreRuntime 75 with the reason when a step fails; the file is then as it was.
void RiscriviFileVarbel(const QString &percorso, const QString &temporaneo, const Recenti &recenti,
                        const QString &cartella, qint32 dimensioneFont);
