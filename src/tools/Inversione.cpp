// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Inversione.h"

#include "core/ErroreRuntime.h"
#include "core/FileDizionario.h"
#include "core/FileInPosto.h"
#include "core/Module1.h"
#include "core/Riga.h"
#include "core/Testo8Bit.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
riga Invertita(const QString &linea)
{
    riga voce;
    ScomponiRiga(linea, voce.lingua1, voce.lingua2, voce.commento1, voce.commento2);
    std::swap(voce.lingua1, voce.lingua2);
    std::swap(voce.commento1, voce.commento2);
    return voce;
}
} // namespace

QString LineaInvertita(const QString &linea)
{
    return ComponiRiga(Invertita(linea));
}

void InvertiInPosto()
{
    Module1::Stato &s = stato();
    // Made before any is changed: half a dictionary inverted could not be told from the other half.
    std::vector<RigaTabella> invertite;
    invertite.reserve(static_cast<std::size_t>(qMax(s.LenDizionario1 + 1, 0)));
    for (qint32 i = 0; i <= s.LenDizionario1; ++i) {
        const QString &linea = RigaDi(s.Dizionario1, i)[2];
        const riga voce = Invertita(linea);
        invertite.push_back(linea.isEmpty() ? RigaDi(s.Dizionario1, i)
                                            : RigaTabella{voce.lingua1, voce.lingua2, ComponiRiga(voce)});
    }
    std::move(invertite.begin(), invertite.end(), s.Dizionario1.righe.begin());
}

QString PercorsoIniInvertito(const QString &dizionario)
{
    constexpr qsizetype estensione = 4;
    // A shorter name would take the companion into another folder.
    return QFileInfo(dizionario).fileName().size() < estensione ? QString()
                                                                : dizionario.chopped(estensione) + u".ini"_s;
}

qint32 ScriviInvertito(const QString &dizionario)
{
    const Module1::Stato &s = stato();
    const auto nominando = [](const QString &che, const QString &file, const auto &funzione) {
        try {
            funzione();
        } catch (ErroreRuntime &errore) {
            errore.testo = che + file + u".\n"_s + errore.testo;
            throw;
        }
    };
    const QString ini = PercorsoIniInvertito(dizionario);
    if (!ini.isEmpty() && ini != s.PercorsoIni) {
        QByteArray impostazioni;
        if (QFile::exists(s.PercorsoIni))
            nominando(u"Impossibile leggere "_s, s.PercorsoIni, [&] { impostazioni = LeggiTutto(s.PercorsoIni); });
        nominando(u"Impossibile scrivere "_s, ini, [&] {
            ScriviIntero(ini, [&](QIODevice &file) { ScriviTutto(file, Testo8Bit::ConLineeCrLf(impostazioni)); });
        });
    }
    Tabella invertita;
    Ridimensiona(invertita, qMax(s.LenDizionario1, 0));
    for (qint32 i = 0; i <= s.LenDizionario1; ++i)
        RigaDi(invertita, i)[2] = LineaInvertita(RigaDi(s.Dizionario1, i)[2]);
    nominando(u"Impossibile scrivere "_s, dizionario,
              [&] { SalvaDizionario(dizionario, invertita, s.LenDizionario1, false); });
    return ContaSpezzate(invertita, s.LenDizionario1);
}
