// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The raw command line, the text after the program's own path. Where the shell has taken the quotes off, each
/// argument is given them back; one that holds a quote is passed as it is.
QString RigaDiComando(const QStringList &argomenti);

/// The path between the first two double quotes of a raw command line, none when the line is empty. ErroreRuntime 9,
/// which ends the program, when it holds no quote.
std::optional<QString> DizionarioNominato(const QString &rigaDiComando);
