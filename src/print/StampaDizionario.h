// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Avanzamento.h"
#include "core/FileIni.h"
#include "print/Spool.h"

#include <QByteArray>

#include <optional>

/// Composes a dictionary's file as four columns under a header on each sheet. The bytes CR, LF and CR LF end a row and
/// "@" divides it, whatever the width of the file's characters; what is printed of a field are the UTF-16 units that
/// lie whole in it, or, in a file without a NUL byte, the characters of its bytes. Returns the number of sheets, none
/// when `avanti` stopped it.
std::optional<qint32> StampaDizionario(Spool &spool, const QByteArray &byte, const ImpostazioniDizionario &impostazioni,
                                       const Avanzamento &avanti);
