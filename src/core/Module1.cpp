// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Module1.h"

#include "core/ErroreRuntime.h"

#include <limits>

namespace
{
void Avanza(qint32 &indice)
{
    if (indice == std::numeric_limits<qint32>::max())
        throw ErroreRuntime(6);
    ++indice;
}

void AzzeraErrori(Module1::Stato &s)
{
    s.LenSbagliate = 0;
    s.VociSbagliate.assign(Module1::DimensioneErrori + 1, QString());
    s.ConteggiSbagliate.assign(Module1::DimensioneErrori + 1, 0);
}
} // namespace

namespace Module1
{
Stato::Stato()
{
    Ridimensiona(Dizionario1, CapacitaIniziale);
    AzzeraErrori(*this);
}

Stato &stato()
{
    static Stato unico;
    return unico;
}

QString PercorsoVarbelIni()
{
    return stato().CartellaProgramma + QStringLiteral("/varbel.ini");
}

void Azzera()
{
    stato() = Stato();
}

void AzzeraDizionario()
{
    Stato &s = stato();
    s.impostazioni = ImpostazioniDizionario();
    Svuota(s.Dizionario1, s.LenDizionario1);
    s.LenDizionario1 = 0;
    s.VoceCorrente = 0;
    s.PercorsoDizionario.clear();
    s.PercorsoIni.clear();
    AzzeraErrori(s);
}

void AggiungiADizionario1(qint32 r)
{
    if (r == -1)
        return;
    Stato &s = stato();
    const RigaTabella &voce = RigaDi(s.Dizionario2, r);
    if (s.LenDizionario1 == Capacita(s.Dizionario1))
        Allarga(s.Dizionario1);
    if (s.LenDizionario1 == -1)
        s.LenDizionario1 = 0;
    RigaDi(s.Dizionario1, s.LenDizionario1) = voce;
    Avanza(s.LenDizionario1);
}

void AggiungiADizionario2(qint32 r)
{
    Stato &s = stato();
    const RigaTabella &voce = RigaDi(s.Dizionario1, r);
    if (s.LenDizionario2 == Capacita(s.Dizionario2))
        Allarga(s.Dizionario2);
    RigaDi(s.Dizionario2, s.LenDizionario2) = voce;
    Avanza(s.LenDizionario2);
}

void AllargaDizionario2()
{
    Allarga(stato().Dizionario2);
}

void CancellaDizionario2(qint32 r)
{
    Stato &s = stato();
    RigaDi(s.Dizionario2, r) = {};
    RiempiBuco(s.Dizionario2, r, s.LenDizionario2);
}

QString LemmaDizionario(qint32 c, qint32 r)
{
    const RigaTabella &voce = RigaDi(stato().Dizionario2, r);
    if (c < 0 || c >= static_cast<qint32>(voce.size()))
        throw ErroreRuntime(9);
    return voce[static_cast<std::size_t>(c)];
}
} // namespace Module1
