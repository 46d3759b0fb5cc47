// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QWidget;
class Spool;

/// Asks for a printer and prints a list on it.
void StampaElenco(QWidget *genitore, const QStringList &righe);

/// Prints each item as one line, on as many sheets as it takes, and sends the document. ErroreRuntime as `Spool::Fine`.
void StampaElenco(Spool &spool, const QStringList &righe);
