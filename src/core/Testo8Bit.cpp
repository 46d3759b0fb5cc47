// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Testo8Bit.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{
constexpr quint8 PrimoDiverso = 0x80;

constexpr std::array<char16_t, 32> Diversi = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

QString LeggiPagina(const QByteArray &byte)
{
    QString testo(byte.size(), Qt::Uninitialized);
    std::transform(byte.cbegin(), byte.cend(), testo.begin(),
                   [](char c) { return QChar(Testo8Bit::Carattere(static_cast<quint8>(c))); });
    return testo;
}
} // namespace

namespace Testo8Bit
{
char16_t Carattere(quint8 byte)
{
    const auto posto = static_cast<std::size_t>(byte) - PrimoDiverso;
    return byte >= PrimoDiverso && posto < Diversi.size() ? Diversi[posto] : char16_t(byte);
}

int Codice(char16_t carattere)
{
    if (carattere < PrimoDiverso || (carattere >= 0xA0 && carattere <= 0xFF))
        return carattere;
    const auto trovato = std::find(Diversi.cbegin(), Diversi.cend(), carattere);
    return trovato == Diversi.cend() ? -1 : PrimoDiverso + static_cast<int>(trovato - Diversi.cbegin());
}

QString Leggi(const QByteArray &byte)
{
    return byte.isValidUtf8() ? QString::fromUtf8(byte) : LeggiPagina(byte);
}

QByteArray Scrivi(const QString &testo)
{
    QByteArray byte(testo.size(), Qt::Uninitialized);
    auto uscita = byte.begin();
    for (const QChar c : testo) {
        const int codice = Codice(c.unicode());
        if (codice < 0)
            return testo.toUtf8();
        *uscita++ = static_cast<char>(codice);
    }
    return Leggi(byte) == testo ? byte : testo.toUtf8();
}

QStringList Linee(const QString &testo)
{
    QStringList linee;
    qsizetype inizio = 0;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const QChar c = testo[i];
        if (c != u'\r' && c != u'\n')
            continue;
        linee += testo.sliced(inizio, i - inizio);
        if (c == u'\r' && i + 1 < testo.size() && testo[i + 1] == u'\n')
            ++i;
        inizio = i + 1;
    }
    if (inizio < testo.size())
        linee += testo.sliced(inizio);
    return linee;
}

QByteArray ConLineeCrLf(QByteArray byte)
{
    byte.replace("\r\n", "\n").replace('\r', '\n');
    if (!byte.isEmpty() && !byte.endsWith('\n'))
        byte += '\n';
    return byte.replace("\n", "\r\n");
}

QString Unisci(const QStringList &linee)
{
    QString testo;
    for (const QString &linea : linee)
        testo += linea + "\r\n"_L1;
    return testo;
}
} // namespace Testo8Bit
