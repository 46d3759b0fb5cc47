// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Sonda.h"
#include "core/ErroreRuntime.h"
#include "core/FileIni.h"

#include <QStringList>

#include <algorithm>

using namespace Sonda;

namespace
{
constexpr qint64 Fissa = 0x4000;
constexpr qint64 CostoLinea = 80;

QStringList Testi(const ImpostazioniDizionario &i)
{
    return {i.lingua1, i.lingua2, i.FontLingua1, i.FontLingua2, i.FontCommento1, i.FontCommento2};
}

// A name like a header hides the sections after it.
bool SembraSezione(const QString &nome)
{
    return nome.trimmed().startsWith(u'[');
}

bool StessiTasti(ImpostazioniDizionario prima, const ImpostazioniDizionario &dopo)
{
    // Rows of zeros are not written; the rows after them move up.
    const auto inizio = prima.TastiRapidi.begin();
    const auto fine = std::remove(inizio, inizio + prima.NumTastiRapidi, TastoRapido{});
    std::fill(fine, prima.TastiRapidi.end(), TastoRapido{});
    return dopo.NumTastiRapidi == fine - inizio && dopo.TastiRapidi == prima.TastiRapidi;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *dati, std::size_t quanti)
{
    const QByteArray byte(dati, static_cast<qsizetype>(quanti));
    ImpostazioniDizionario lette;
    const Memoria memoria;
    try {
        lette = LeggiIni(byte);
    } catch (const ErroreRuntime &errore) {
        Esigi((errore.numero == 9 || errore.numero == 13) && !errore.termina, "a refusal is one of those foreseen");
        return 0;
    }
    memoria.EsigiLimite(byte.size(), Fissa, byte.count('\n') + byte.count('\r'), CostoLinea);

    const ImpostazioniDizionario rilette = LeggiIni(ScriviIni(lette));
    Esigi(Testi(rilette) == Testi(lette), "names and fonts come back");
    Esigi(StessiTasti(lette, rilette), "the hotkeys come back");
    const QStringList testi = Testi(lette);
    if (std::any_of(testi.cbegin(), testi.cend(), SembraSezione))
        return 0;
    Esigi(rilette.PercentualeErrori == lette.PercentualeErrori, "the percentage comes back");
    Esigi(rilette.Beep == lette.Beep, "the beep comes back");
    Esigi(rilette.Tastiera == lette.Tastiera, "the keyboard layout comes back");
    return 0;
}
