// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Errori.h"
#include "Sonda.h"
#include "core/FileDizionario.h"
#include "core/Module1.h"
#include "core/Testo8Bit.h"
#include "tools/Conversione.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace Sonda;

namespace
{
// Two forms of what is read at a time.
constexpr qint64 Fissa = 0x180000;
constexpr qint64 CostoRiga = 3 * static_cast<qint64>(sizeof(RigaTabella)) + 96;

bool Avanti(qint64 /*fatto*/, qint64 /*totale*/)
{
    return true;
}

// The settings are the input's first line: separators, segments and the trimming, "|" between two.
ImpostazioniConversione Impostazioni(const QByteArray &linea)
{
    QStringList campi = QString::fromUtf8(linea).split(u'|');
    campi.resize(9);
    ImpostazioniConversione impostazioni = {.separatori = {},
                                            .lingua1 = campi[4],
                                            .lingua2 = campi[5],
                                            .commento1 = campi[6],
                                            .commento2 = campi[7],
                                            .trim = !campi[8].isEmpty()};
    std::copy_n(campi.cbegin(), impostazioni.separatori.size(), impostazioni.separatori.begin());
    return impostazioni;
}

QStringList Lette(const QByteArray &byte, qint64 quantiPerVolta, qsizetype massimo)
{
    DispositivoGuasto testo(byte, QIODevice::ReadOnly, 2 * byte.size() + 1, quantiPerVolta);
    LettoreTesto lettore(testo, Avanti);
    QStringList linee;
    for (QString linea; lettore.Leggi(linea, massimo);)
        linee += QStringView(linea).toString();
    return linee;
}

// A part of it at a time, in pieces of any size, a text reads like the whole.
QStringList EsigiLette(const QByteArray &byte)
{
    QStringList intere = Testo8Bit::Linee(Testo8Bit::Leggi(byte)).replaceInStrings(QString(QChar(0)), u" "_s);
    const qint64 pezzo = 1 + byte.size() / 4;
    const Memoria memoria;
    Esigi(Lette(byte, pezzo, byte.size() + 1) == intere, "the lines are those of the whole text");
    memoria.EsigiLimite(byte.size(), Fissa, intere.size(), 80);
    Esigi(Lette(byte, pezzo, pezzo).join(QString()) == intere.join(QString()), "long lines go on in the next");
    return intere;
}

void EsigiConvertite(const QByteArray &byte, const ImpostazioniConversione &impostazioni, const QStringList &linee)
{
    Module1::Azzera();
    const Module1::Stato &s = Module1::stato();
    QBuffer testo;
    testo.setData(byte);
    testo.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    EsitoConversione esito;
    const Memoria memoria;
    const auto errore = ErroreDi([&] { ConvertiTesto(testo, impostazioni, Avanti, esito); });
    Esigi(!errore || (errore->numero == 9 && !errore->termina), "a refusal is one of those foreseen");
    memoria.EsigiLimite(byte.size(), Fissa, linee.size(), CostoRiga);
    Esigi(s.LenDizionario1 == esito.voci, "the entries are counted");
    Esigi(errore || esito.voci + esito.errori.size() == linee.size() - linee.count(QString()),
          "each line is an entry or an error");

    QBuffer file;
    file.open(QIODevice::ReadWrite);
    ScriviDizionario(file, s.Dizionario1, s.LenDizionario1);
    file.seek(0);
    Tabella rilette;
    CaricaDizionario(file, rilette);
    for (qint32 i = 0; i < esito.voci; ++i) {
        const QString &linea = RigaDi(s.Dizionario1, i)[2];
        if (!::LineaTenuta(linea))
            return;
        Esigi(RigaDi(rilette, i)[2] == linea + u'\r', "a converted line comes back");
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *dati, std::size_t quanti)
{
    const QByteArray byte(dati, static_cast<qsizetype>(quanti));
    const qsizetype fine = byte.indexOf('\n');
    const QByteArray testo = byte.sliced(fine + 1);
    EsigiConvertite(testo, Impostazioni(byte.first(std::max<qsizetype>(fine, 0))), EsigiLette(testo));
    return 0;
}
