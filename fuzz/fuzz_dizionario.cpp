// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Sonda.h"
#include "core/FileDizionario.h"
#include "core/Riga.h"

#include <QBuffer>
#include <QStringList>
#include <QtEndian>

#include <algorithm>

using namespace Sonda;

namespace
{
// What is read at a time, moved when a last byte is completed; a row of a table, which is copied when it grows.
constexpr qint64 Fissa = 0xD0000;
constexpr qint64 CostoRiga = 3 * static_cast<qint64>(sizeof(RigaTabella)) + 32;

qint32 Carica(QByteArray byte, Tabella &tabella)
{
    QBuffer file(&byte);
    file.open(QIODevice::ReadOnly);
    return CaricaDizionario(file, tabella);
}

QByteArray Scritto(const Tabella &tabella, qint32 ultima)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    ScriviDizionario(file, tabella, ultima);
    return file.data();
}

// Written and read again, the rows are the same: the holes gone, each line with the CR of its end, an empty row last.
void EsigiRilette(const Tabella &tabella, qint32 ultima)
{
    Tabella rilette;
    const qint32 fine = Carica(Scritto(tabella, ultima), rilette);
    qint32 quante = 0;
    for (qint32 i = 0; i <= ultima; ++i) {
        const RigaTabella &scritta = RigaDi(tabella, i);
        if (scritta[2].isEmpty())
            continue;
        const RigaTabella &riletta = RigaDi(rilette, quante++);
        Esigi(riletta[0] == scritta[0] && riletta[1] == scritta[1], "the words come back");
        Esigi(riletta[2] == scritta[2] + u'\r', "the line comes back");
    }
    Esigi(fine == quante && RigaDi(rilette, fine)[2].isEmpty(), "as many rows come back");
}

// The bytes as what a user types: entries of four boxes, a tab between two boxes.
void EsigiDigitate(const QByteArray &byte)
{
    QString testo(byte.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(byte.constData(), testo.size(), testo.data());
    Tabella tabella;
    qint32 quante = 0;
    const QStringList caselle = testo.split(u'\t');
    for (qsizetype i = 0; i + 4 <= caselle.size(); i += 4) {
        const riga voce{caselle[i], caselle[i + 1], caselle[i + 2], caselle[i + 3]};
        const QString linea = ComponiRiga(voce);
        if ((voce.lingua1 + voce.lingua2 + voce.commento1).contains(u'@') || !LineaTenuta(linea))
            continue;
        riga divisa;
        ScomponiRiga(linea, divisa.lingua1, divisa.lingua2, divisa.commento1, divisa.commento2);
        Esigi(divisa.lingua1 == voce.lingua1 && divisa.lingua2 == voce.lingua2 && divisa.commento1 == voce.commento1 &&
                  divisa.commento2 == voce.commento2,
              "a line splits into what it was made of");
        if (quante > Capacita(tabella))
            Allarga(tabella);
        RigaDi(tabella, quante++) = RigaDaLinea(linea);
    }
    EsigiRilette(tabella, quante - 1);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *dati, std::size_t quanti)
{
    const QByteArray byte(dati, static_cast<qsizetype>(quanti));
    const Memoria memoria;
    Tabella tabella;
    const qint32 ultima = Carica(byte, tabella);
    memoria.EsigiLimite(byte.size(), Fissa, ultima + 1, CostoRiga);
    EsigiRilette(tabella, ultima);
    EsigiDigitate(byte);
    return 0;
}
