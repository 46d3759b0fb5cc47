// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Sonda.h"
#include "core/ErroreRuntime.h"
#include "core/Recupero.h"

using namespace Qt::StringLiterals;
using namespace Sonda;

namespace
{
constexpr qint64 Fissa = 0x4000;
constexpr qint64 CostoLinea = 80;

// The head of a copy, before the bytes that are tried as its entries.
QByteArray ConTesta(const QByteArray &byte)
{
    const QString testa = u"\uFEFFCopia di recupero di un dizionario di Varbel\r\nDizionario: /a%0a.dic\r\n"
                          "File, byte e data: 7 2026-11-22T10:00:00.000Z\r\n"
                          "Data della copia: 2026-11-22T10:00:01.000Z\r\nRighe di impostazioni: 1\r\n[Lingue]\r\n"_s;
    return QByteArray(reinterpret_cast<const char *>(testa.utf16()), testa.size() * 2) + byte;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *dati, std::size_t quanti)
{
    const QByteArray byte(dati, static_cast<qsizetype>(quanti));
    try {
        const Memoria memoria;
        const CopiaRecupero copia = LeggiCopia(byte);
        memoria.EsigiLimite(byte.size(), Fissa, copia.voci.size(), CostoLinea);
    } catch (const ErroreRuntime &errore) {
        Esigi(errore.numero == 57 && !errore.termina, "a refusal is the one foreseen");
    }
    const CopiaRecupero copia = LeggiCopia(ConTesta(byte));
    Esigi(copia.percorso == u"/a\n.dic" && copia.dizionario.dimensione == 7, "the head comes back");
    // What was read as entries reads as the same ones again, written in the same form.
    QString linee;
    for (const QString &voce : copia.voci)
        linee += voce + "\r\n"_L1;
    const QByteArray ancora(reinterpret_cast<const char *>(linee.utf16()), linee.size() * 2);
    Esigi(LeggiCopia(ConTesta(ancora)).voci == copia.voci, "the entries come back");
    return 0;
}
