// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The program's one 8-bit code page, Windows-1252: hotkey codes, character map, printing, settings files. A byte
/// without a character (81, 8D, 8F, 90, 9D) stands for the control of that number.
namespace Testo8Bit
{
/// The character of a byte.
char16_t Carattere(quint8 byte);

/// The byte of a character, -1 when the code page has none.
int Codice(char16_t carattere);

/// A whole text read: UTF-8 when the bytes are valid UTF-8 (a leading mark dropped), else the code page.
QString Leggi(const QByteArray &byte);

/// The bytes that read back as `testo`: the code page when every character fits, else UTF-8 (which keeps no lone
/// surrogate and no mark at the start).
QByteArray Scrivi(const QString &testo);

/// The lines of a text: CR LF, LF and CR end a line; the last line needs no end.
QStringList Linee(const QString &testo);

/// A text file as it is copied line by line: the bytes of the lines are kept, each is ended by CR LF.
QByteArray ConLineeCrLf(QByteArray byte);

/// A text of lines each ended by CR LF.
QString Unisci(const QStringList &linee);
} // namespace Testo8Bit
