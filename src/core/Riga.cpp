// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Riga.h"

CampiRiga CampiDellaRiga(QStringView linea)
{
    CampiRiga campi;
    const qsizetype primo = linea.indexOf(u'@');
    if (primo < 0)
        return campi;
    campi.commento1 = linea.first(primo);
    const qsizetype secondo = linea.indexOf(u'@', primo + 1);
    if (secondo < 0)
        return campi;
    campi.lingua1 = linea.sliced(primo + 1, secondo - primo - 1);
    const qsizetype terzo = linea.indexOf(u'@', secondo + 1);
    if (terzo < 0)
        return campi;
    campi.lingua2 = linea.sliced(secondo + 1, terzo - secondo - 1);
    campi.commento2 = linea.sliced(terzo + 1);
    return campi;
}

void ScomponiRiga(QStringView linea, QString &lingua1, QString &lingua2, QString &commento1, QString &commento2)
{
    const CampiRiga campi = CampiDellaRiga(linea);
    const auto assegna = [](QString &uscita, QStringView campo) {
        if (!campo.isNull())
            uscita = campo.toString();
    };
    assegna(commento1, campi.commento1);
    assegna(lingua1, campi.lingua1);
    assegna(lingua2, campi.lingua2);
    assegna(commento2, campi.commento2);
}

QStringView SenzaSpazi(QStringView testo)
{
    while (testo.startsWith(u' '))
        testo = testo.sliced(1);
    while (testo.endsWith(u' '))
        testo.chop(1);
    return testo;
}

QString ComponiRiga(const riga &voce)
{
    return voce.commento1 + u'@' + voce.lingua1 + u'@' + voce.lingua2 + u'@' + voce.commento2;
}
