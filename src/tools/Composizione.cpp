// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Composizione.h"

#include "core/ErroreRuntime.h"
#include "core/FileDizionario.h"
#include "core/FileInPosto.h"
#include "core/Module1.h"
#include "core/Percorsi.h"
#include "core/Recupero.h"
#include "core/Riga.h"
#include "edit/Ordinamento.h"
#include "edit/Voci.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
struct Secondo {
    QString percorso;
    Impronta impronta;
    std::shared_ptr<Recupero> recupero;
    /// A write has left less in the file than the copy holds.
    bool rotto = false;
};

Secondo &secondo()
{
    static Secondo unico;
    return unico;
}

void Riempi(QIODevice &dispositivo, Tabella &tabella, qint32 &righe)
{
    LettoreDizionario lettore(dispositivo);
    ContaVuote vuote;
    for (QString linea; LeggiLinea(lettore, linea); ++righe) {
        vuote.Conta(linea, righe);
        // A hole is sorted out of sight and never written, unless it is the last row, which the sort spares.
        if (righe > 0 && RigaDi(tabella, righe - 1)[2].isEmpty())
            --righe;
        if (righe == Capacita(tabella)) {
            if (righe > std::numeric_limits<qint32>::max() / 2)
                throw ErroreRuntime(6);
            Ridimensiona(tabella, std::max(righe * 2, 1));
        }
        RigaDi(tabella, righe) = RigaDaLinea(QStringView(linea).toString());
    }
}
} // namespace

namespace Composizione
{
QString TestoVoce(const RigaTabella &riga)
{
    return SenzaSpazi(riga[0]).toString();
}

Voci VociDi(const Tabella &tabella, qint32 prima, qint32 ultima)
{
    Voci voci;
    for (qint32 i = prima; i <= std::min(ultima, Capacita(tabella)); ++i) {
        if (!SenzaSpazi(RigaDi(tabella, i)[0]).isEmpty())
            voci.push_back(i);
    }
    return voci;
}

Voci VociDizionario1()
{
    return VociDi(stato().Dizionario1, 0, stato().LenDizionario1);
}

Voci VociDizionario2()
{
    return VociDi(stato().Dizionario2, 0, stato().LenDizionario2 - 1);
}

Voci DopoChiusuraBuchi(const Voci &voci)
{
    Voci dopo;
    dopo.reserve(voci.size());
    qint32 buchi = 0;
    qint32 qui = 0;
    for (const qint32 riga : voci) {
        for (; qui < riga; ++qui)
            buchi += RigaDi(stato().Dizionario1, qui)[2].isEmpty() ? 1 : 0;
        dopo.push_back(riga - buchi);
    }
    return dopo;
}

const QString &componiFile()
{
    return secondo().percorso;
}

void Leggi(const QString &percorso)
{
    Libera();
    const Impronta impronta = ImprontaDi(percorso);
    auto recupero = std::make_shared<Recupero>(percorso);
    if (!recupero->Trovate().isEmpty())
        throw ErroreRuntime(70,
                            u"Ne è stata trovata una copia di recupero: aprire prima il dizionario, per prenderla o "
                            u"eliminarla."_s);
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        ErroreApertura(percorso, file.errorString());
    Module1::Stato &s = stato();
    try {
        Ridimensiona(s.Dizionario2, Capacita(s.Dizionario1));
        Riempi(file, s.Dizionario2, s.LenDizionario2);
        OrdinaStringhe(s.Dizionario2, s.LenDizionario2 - 1);
    } catch (...) {
        Libera();
        throw;
    }
    secondo() = {percorso, impronta, std::move(recupero), false};
}

void Libera()
{
    stato().Dizionario2 = {};
    stato().LenDizionario2 = 0;
    if (secondo().recupero && !secondo().rotto)
        secondo().recupero->Togli();
    secondo() = {};
}

bool ApertoAltrove()
{
    return secondo().recupero && secondo().recupero->ApertoAltrove();
}

void AggiornaCopia()
{
    const Secondo &s = secondo();
    const QString ini = PercorsoIniLetto(s.percorso);
    s.recupero->Scrivi(s.impronta, QFileInfo::exists(ini) ? LeggiTutto(ini) : ScriviIni({}), stato().Dizionario2,
                       stato().LenDizionario2 - 1);
}

bool Cambiato()
{
    return CambiatoDa(secondo().impronta, componiFile());
}

qint32 Scrivi()
{
    const Module1::Stato &s = stato();
    bool conCopia = true;
    try {
        AggiornaCopia();
    } catch (const std::exception &) {
        // The write itself may still succeed.
        conCopia = false;
    }
    secondo().rotto = secondo().rotto || conCopia;
    try {
        SalvaDizionario(componiFile(), s.Dizionario2, s.LenDizionario2 - 1, conCopia);
    } catch (...) {
        secondo().impronta = ImprontaDi(componiFile());
        throw;
    }
    secondo().impronta = ImprontaDi(componiFile());
    const qint32 spezzate = ContaSpezzate(s.Dizionario2, s.LenDizionario2 - 1);
    secondo().rotto = spezzate > 0;
    if (spezzate == 0)
        secondo().recupero->Togli();
    else if (conCopia)
        AggiornaCopia();
    return spezzate;
}

Voci Copia1in2(qint32 riga)
{
    Module1::AggiungiADizionario2(riga);
    const qint32 nuova = stato().LenDizionario2 - 1;
    return VociDi(stato().Dizionario2, nuova, nuova);
}

Voci CopiaTutto1in2()
{
    Module1::Stato &s = stato();
    const qint32 prima = s.LenDizionario2;
    for (qint32 i = 0; i <= std::min(s.LenDizionario1, Capacita(s.Dizionario1)); ++i)
        Module1::AggiungiADizionario2(i);
    return VociDi(s.Dizionario2, prima, s.LenDizionario2 - 1);
}

Voci Copia2in1(const Voci &righe)
{
    const Module1::Stato &s = stato();
    Voci nuove;
    nuove.reserve(righe.size());
    for (const qint32 riga : righe) {
        AccodaRiga(RigaDi(s.Dizionario2, riga), nuove.empty());
        nuove.push_back(s.LenDizionario1 - 1);
    }
    return nuove;
}

void Elimina2(Voci &voci, qint32 i)
{
    if (i < 0 || i >= static_cast<qint32>(voci.size()))
        throw ErroreRuntime(9);
    const Module1::Stato &s = stato();
    // Closing the gap wants a row beyond the last one.
    if (s.LenDizionario2 >= Capacita(s.Dizionario2))
        Module1::AllargaDizionario2();
    const auto tolta = voci.begin() + i;
    Module1::CancellaDizionario2(*tolta);
    std::for_each(voci.erase(tolta), voci.end(), [](qint32 &riga) { --riga; });
}
} // namespace Composizione
