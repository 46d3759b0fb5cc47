// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QString>

class QWidget;

/// The record of the common dialogs, shared by every command that shows one. A cancelled dialog leaves it as it was.
struct DlgFile {
    QString titolo;
    /// "description|pattern".
    QString filtro = QStringLiteral("*.dic (dizionari)|*.dic");
    /// Starting folder; the user's documents when there is no such folder.
    QString cartella;
    QString estensione = QStringLiteral(".dic");
    /// Full path of the file chosen.
    QString nomeFile;
    QFont font;
};

enum class Scelta {
    Apri,           ///< an existing file
    ApriAncheNuovo, ///< an open dialog that also takes a name that does not exist
    Salva,          ///< a file to write, asking before one that exists
    SalvaEsistente, ///< a file to write, one that exists without a question
};

/// Shows the platform's dialog; true when a file was chosen, its absolute path then in `nomeFile`.
bool MostraDlgFile(QWidget *genitore, DlgFile &dlg, Scelta scelta);

/// Shows the platform's font dialog; true when a font was chosen, then in `font`.
bool MostraDlgFont(QWidget *genitore, DlgFile &dlg);
