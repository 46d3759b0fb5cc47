// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QStringList>

class QPrinter;
class QWidget;

/// Asks for a printer, a cancelled dialog standing for the default one, and prints a list.
void StampaElenco(QWidget *genitore, const QStringList &righe);

/// Prints each item as one line, on as many sheets as it takes, in a document of its own. False when the printer cannot
/// be begun or ended.
bool StampaElenco(QPrinter &stampante, const QFont &font, const QStringList &righe);

/// The printer leads somewhere: one that exists, or a file that is named.
bool StampanteValida(const QPrinter &stampante);
