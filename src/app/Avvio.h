// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class MDIForm1;

/// Names the program to the desktop and sets the language of the toolkit's own texts. Needs a QApplication.
void PreparaProgramma();

/// The raw command line, the text after the program's own path. Where the shell has taken the quotes off, each
/// argument is given them back; one that holds a quote is passed as it is.
QString RigaDiComando(const QStringList &argomenti);

/// The path between the first two double quotes of a raw command line, none when the line is empty. ErroreRuntime 9,
/// which ends the program, when it holds no quote.
std::optional<QString> DizionarioNominato(const QString &rigaDiComando);

/// Starts the program: the state's starting values, the main window, the dictionary named on the command line. The
/// window is shown unless an error ended the program. ErroreRuntime as MDIForm1 and DizionarioNominato.
std::unique_ptr<MDIForm1> Main(const QString &rigaDiComando, const QString &cartellaProgramma);
