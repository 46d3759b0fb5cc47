// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

/// One entry: a word in each language and a comment for each side.
struct riga {
    QString lingua1;
    QString lingua2;
    QString commento1;
    QString commento2;
};

/// The fields of a stored line `commento1@lingua1@lingua2@commento2` as views into it. A field whose closing "@" is
/// missing is null; an empty field is not.
struct CampiRiga {
    QStringView commento1;
    QStringView lingua1;
    QStringView lingua2;
    QStringView commento2;
};

CampiRiga CampiDellaRiga(QStringView linea);

/// Splits a stored line; an output whose field is missing is left as it was given.
void ScomponiRiga(QStringView linea, QString &lingua1, QString &lingua2, QString &commento1, QString &commento2);

/// Without the blanks (U+0020 alone) at both ends.
QStringView SenzaSpazi(QStringView testo);

/// The stored line of an entry.
QString ComponiRiga(const riga &voce);
