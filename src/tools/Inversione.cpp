// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Inversione.h"

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
constexpr std::size_t Campi = 4;

// Comment 1, word 1, word 2, comment 2.
std::array<QStringView, Campi> Pezzi(QStringView linea)
{
    std::array<QStringView, Campi> pezzi;
    for (std::size_t i = 0; i < Campi; ++i) {
        const qsizetype chiocciola = i + 1 < Campi ? linea.indexOf(u'@') : -1;
        pezzi[i] = chiocciola < 0 ? linea : linea.first(chiocciola);
        linea = chiocciola < 0 ? QStringView() : linea.sliced(chiocciola + 1);
    }
    return pezzi;
}
} // namespace

QString LineaInvertita(const QString &linea)
{
    const std::array<QStringView, Campi> pezzi = Pezzi(linea);
    return ComponiRiga({.lingua1 = pezzi[2].toString(),
                        .lingua2 = pezzi[1].toString(),
                        .commento1 = pezzi[3].toString(),
                        .commento2 = pezzi[0].toString()});
}

void InvertiInPosto()
{
    Module1::Stato &s = stato();
    // Made before any is changed: half a dictionary inverted could not be told from the other half.
    std::vector<RigaTabella> invertite;
    invertite.reserve(static_cast<std::size_t>(qMax(s.LenDizionario1 + 1, 0)));
    for (qint32 i = 0; i <= s.LenDizionario1; ++i) {
        const QString &linea = RigaDi(s.Dizionario1, i)[2];
        const std::array<QStringView, Campi> pezzi = Pezzi(linea);
        invertite.push_back(linea.isEmpty()
                                ? RigaDi(s.Dizionario1, i)
                                : RigaTabella{pezzi[2].toString(), pezzi[1].toString(), LineaInvertita(linea)});
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

void ScriviInvertito(const QString &dizionario)
{
    const Module1::Stato &s = stato();
    const QString ini = PercorsoIniInvertito(dizionario);
    if (!ini.isEmpty() && ini != s.PercorsoIni) {
        const QByteArray impostazioni = QFile::exists(s.PercorsoIni) ? LeggiTutto(s.PercorsoIni) : QByteArray();
        ScriviInPosto(ini, Testo8Bit::ConLineeCrLf(impostazioni));
    }
    Tabella invertita;
    Ridimensiona(invertita, qMax(s.LenDizionario1, 0));
    for (qint32 i = 0; i <= s.LenDizionario1; ++i)
        RigaDi(invertita, i)[2] = LineaInvertita(RigaDi(s.Dizionario1, i)[2]);
    SalvaDizionario(dizionario, invertita, s.LenDizionario1);
}
