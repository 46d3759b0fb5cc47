// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Sonda.h"
#include "core/ErroreRuntime.h"
#include "core/FileVarbel.h"
#include "core/Testo8Bit.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace Sonda;

namespace
{
constexpr qint64 Fissa = 0x4000;
constexpr qint64 CostoLinea = 80;

const QStringList Sezioni = {u"[Recenti]"_s, u"[Lingue]"_s, u"[Directory]"_s, u"[Font]"_s};

QStringList Rilette(const QStringList &linee)
{
    return Testo8Bit::Linee(Testo8Bit::Leggi(Testo8Bit::Scrivi(Testo8Bit::Unisci(linee))));
}

// Any file is read or refused, and rewritten without growing beyond what the rules add to each line.
void EsigiLetto(const QStringList &linee)
{
    try {
        LeggiVarbel(linee);
    } catch (const ErroreRuntime &errore) {
        Esigi((errore.numero == 6 || errore.numero == 13) && !errore.termina, "a refusal is one of those foreseen");
    }
    const QStringList riscritte = RiscriviVarbel(linee, {u"/a"_s}, u"/b"_s, 1);
    Esigi(riscritte.size() <= linee.size() + linee.count(u"[Lingue]") + 4, "as many lines as the rules give");
    // A mark at the start is no part of a text.
    if (!riscritte.value(0).startsWith(QChar::ByteOrderMark))
        Esigi(Rilette(riscritte) == riscritte, "the lines come back");
}

// The lines as what a user has: four recent paths, a folder, languages; closing keeps them, whatever was there before.
void EsigiTenuto(QStringList linee, int font)
{
    linee.removeIf([](const QString &linea) { return linea.isEmpty() || Sezioni.contains(linea); });
    if (linee.size() < 6)
        return;
    const auto file = [font](const QString &cartella, const QStringList &recenti, const QStringList &lingue) {
        return QStringList{u"[Directory]"_s, cartella, u"[Recenti]"_s} + recenti + QStringList(u"[Lingue]"_s) + lingue +
               QStringList{u"[Font]"_s, QString::number(font)};
    };
    const QStringList lingue = linee.sliced(6);
    const QStringList vecchio = file({}, {4, u" "_s}, lingue);
    Recenti recenti;
    std::copy_n(linee.cbegin() + 1, recenti.size(), recenti.begin());
    AggiornaRecenti(recenti, linee[5]);
    const QStringList nuovo = Rilette(RiscriviVarbel(Rilette(vecchio), recenti, linee[0], font));
    Esigi(nuovo == file(linee[0], {recenti.cbegin(), recenti.cend()}, lingue), "a close rewrites what it should");
    const ImpostazioniVarbel lette = LeggiVarbel(nuovo);
    Esigi(lette.recenti == recenti && lette.cartella == linee[0] && lette.dimensioneFont == font,
          "the settings come back");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *dati, std::size_t quanti)
{
    const QByteArray byte(dati, static_cast<qsizetype>(quanti));
    const Memoria memoria;
    const QStringList linee = Testo8Bit::Linee(Testo8Bit::Leggi(byte));
    memoria.EsigiLimite(byte.size(), Fissa, linee.size(), CostoLinea);
    EsigiLetto(linee);
    EsigiTenuto(linee, static_cast<int>(quanti));
    return 0;
}
