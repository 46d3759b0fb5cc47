// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/Voci.h"

#include "core/ErroreRuntime.h"
#include "core/Module1.h"
#include "edit/Ordinamento.h"

#include <algorithm>
#include <utility>

void EliminaVoce(qint32 k)
{
    Module1::Stato &s = Module1::stato();
    if (k < 0 || k > s.LenDizionario1 || s.LenDizionario1 > Capacita(s.Dizionario1))
        throw ErroreRuntime(9, true);
    RigaTabella &ultima = RigaDi(s.Dizionario1, s.LenDizionario1);
    RigaDi(s.Dizionario1, k) = std::exchange(ultima, RigaTabella());
    if (k == s.LenDizionario1)
        ultima = {};
    --s.LenDizionario1;
    OrdinaStringhe(s.Dizionario1, s.LenDizionario1);
}

qint32 RaccogliVoci()
{
    Module1::Stato &s = Module1::stato();
    return ChiudiBuchi(s.Dizionario1, s.LenDizionario1);
}

void AggiungiVoce(const RigaTabella &voce)
{
    Module1::Stato &s = Module1::stato();
    qint32 ultima = s.LenDizionario1;
    for (int passo = 0; passo < 2; ++passo) {
        if (ultima >= Capacita(s.Dizionario1))
            Allarga(s.Dizionario1);
        ++ultima;
    }
    RigaDi(s.Dizionario1, ultima - 1) = voce;
    s.LenDizionario1 = ultima;
}

void ModificaVoce(qint32 indice, const QString &letta, const RigaTabella &voce)
{
    Module1::Stato &s = Module1::stato();
    std::vector<RigaTabella> &righe = s.Dizionario1.righe;
    const auto fine = righe.begin() + std::clamp(s.LenDizionario1 + 1, 0, Capacita(s.Dizionario1) + 1);
    const auto tiene = [&letta](const RigaTabella &riga) { return riga[2] == letta; };
    auto trovata = indice >= 0 && indice < fine - righe.begin() ? righe.begin() + indice : fine;
    if (trovata == fine || !tiene(*trovata))
        trovata = std::find_if(righe.begin(), fine, tiene);
    if (trovata == fine)
        AggiungiVoce(voce);
    else
        *trovata = voce;
}

void AccodaRiga(const RigaTabella &riga, bool prima)
{
    Module1::Stato &s = Module1::stato();
    const auto allarga = [&s] {
        while (s.LenDizionario1 >= Capacita(s.Dizionario1))
            Allarga(s.Dizionario1);
    };
    s.LenDizionario1 = std::max(s.LenDizionario1, 0);
    allarga();
    // A file without a final line end has left its last entry there.
    if (prima && !RigaDi(s.Dizionario1, s.LenDizionario1)[2].isEmpty()) {
        ++s.LenDizionario1;
        allarga();
    }
    RigaDi(s.Dizionario1, s.LenDizionario1) = riga;
    ++s.LenDizionario1;
    allarga();
}
