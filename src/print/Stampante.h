// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "print/SpoolStampante.h"

#include <functional>

class QPrinter;
class QWidget;

/// Asks for a printer, a cancelled dialog standing for the default one, and gives its spool to `stampa`. Whatever goes
/// wrong there, or that there is neither a printer nor a file, ends in one message.
void ConStampante(QWidget *genitore, const QString &titolo, const std::function<void(SpoolStampante &)> &stampa);

/// The printer leads somewhere: one that exists, or a file that is named.
bool StampanteValida(const QPrinter &stampante);
