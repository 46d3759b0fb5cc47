// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>

class MDIForm1;

/// Names the program to the desktop and sets the language of the toolkit's own texts. Needs a QApplication.
void PreparaProgramma();

/// Starts the program: the state's starting values, the main window, the dictionary named on the command line. The
/// window is shown unless an error ended the program; its place and size are those that `fileGeometria` kept, where one
/// is named, and are kept there when the program ends (what cannot be read or written is no error). ErroreRuntime as
/// MDIForm1 and DizionarioNominato.
std::unique_ptr<MDIForm1> Main(const QString &rigaDiComando, const QString &cartellaProgramma,
                               const QString &fileGeometria = {});
