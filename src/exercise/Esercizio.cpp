// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exercise/Esercizio.h"

#include "core/ErroreRuntime.h"
#include "core/Module1.h"
#include "core/Riga.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr double Eccesso = 1.01;

QString FineRipasso()
{
    return u"@@@@"_s;
}

bool Buco(qint32 r)
{
    return RigaDi(Module1::stato().Dizionario1, r)[2].isEmpty();
}

// The first row from r on that holds an entry, one past the last index when none does.
qint32 PrimaVoceDa(qint32 r)
{
    while (r <= Module1::stato().LenDizionario1 && Buco(r))
        ++r;
    return r;
}

// A random draw reads the dictionary's file to its end; a file that has gone is noticed here.
qsizetype ContaLinee(const QString &percorso)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw ErroreRuntime(53, true);
    std::array<char, 0x8000> blocco{};
    qsizetype linee = 0;
    for (qint64 letti = file.read(blocco.data(), blocco.size()); letti > 0;
         letti = file.read(blocco.data(), blocco.size()))
        linee += std::count(blocco.data(), blocco.data() + letti, '\n');
    return linee;
}

// Closes the gap at slot i of a list in use up to `ultimo`; leaves i one past it.
template <typename Elemento>
void Sposta(std::vector<Elemento> &lista, qint32 &i, qint32 ultimo, const Elemento &riempimento)
{
    for (; i <= ultimo; ++i)
        lista[static_cast<std::size_t>(i)] = lista[static_cast<std::size_t>(i) + 1];
    lista[static_cast<std::size_t>(i)] = riempimento;
}
} // namespace

namespace Esercizio
{
StatoEsercizio &stato()
{
    static StatoEsercizio unico;
    return unico;
}

void Comincia()
{
    StatoEsercizio &e = stato();
    e.voce = 0;
    e.attende = true;
    e.domande = 0;
    e.giuste = 0;
}

QString LeggiRiga(qint32 r)
{
    const Module1::Stato &s = Module1::stato();
    return r <= s.LenDizionario1 ? RigaDi(s.Dizionario1, r)[2] : FineRipasso();
}

QString VoceCasuale(const Sorte &sorte)
{
    const Module1::Stato &s = Module1::stato();
    ContaLinee(s.PercorsoDizionario);
    const qint32 n = std::max(s.LenDizionario1, 0);
    const bool vuoto = PrimaVoceDa(1) > n;
    qint32 r = 0;
    do {
        r = static_cast<qint32>(std::nearbyint(sorte() * n * Eccesso));
        // More than the others, the first and the last entry are drawn: so it is meant.
        if (r == 0)
            r = 1;
        else if (r > n)
            r = n;
    } while (!vuoto && Buco(r));
    stato().voce = r;
    return vuoto ? FineRipasso() : LeggiRiga(r);
}

QString VoceSbagliata(const Sorte &sorte)
{
    const Module1::Stato &s = Module1::stato();
    if (s.LenSbagliate < 3)
        return {};
    const auto r = static_cast<qint32>(std::nearbyint(s.LenSbagliate * sorte() * Eccesso));
    return s.VociSbagliate[static_cast<std::size_t>(std::min(r, s.LenSbagliate - 1))];
}

bool NuovaDomanda(const Sorte &sorte, const std::function<bool()> &ricominciare)
{
    StatoEsercizio &e = stato();
    const double x = sorte();
    QString linea;
    if (e.OrdineCasuale) {
        if (x < static_cast<double>(Module1::stato().impostazioni.PercentualeErrori))
            linea = VoceSbagliata(sorte);
        if (linea.isEmpty())
            linea = VoceCasuale(sorte);
    } else {
        e.posizioneRipasso = PrimaVoceDa(e.posizioneRipasso + 1);
        linea = LeggiRiga(e.posizioneRipasso);
        if (linea == FineRipasso()) {
            if (!ricominciare()) {
                e.posizioneRipasso = 0;
                return false;
            }
            e.posizioneRipasso = PrimaVoceDa(1);
            linea = LeggiRiga(e.posizioneRipasso);
        }
    }
    ScomponiRiga(linea, e.parolaDomanda, e.rispostaAttesa, e.commentoDomanda, e.commentoRisposta);
    if (e.InvertiLingue) {
        e.parolaDomanda.swap(e.rispostaAttesa);
        e.commentoDomanda.swap(e.commentoRisposta);
    }
    return true;
}

bool ControllaRisposta(const QString &risposta)
{
    StatoEsercizio &e = stato();
    ++e.domande;
    const QString chiave = ComponiRiga({e.parolaDomanda, e.rispostaAttesa, e.commentoDomanda, e.commentoRisposta});
    e.attende = false;
    if (risposta != e.rispostaAttesa) {
        AggiungiErrore(chiave);
        return false;
    }
    if (e.giuste == std::numeric_limits<qint16>::max())
        throw ErroreRuntime(6, true);
    ++e.giuste;
    TogliErrore(chiave);
    return true;
}

QString Riepilogo()
{
    return u"%1 su %2"_s.arg(stato().giuste).arg(stato().domande);
}

void AggiungiErrore(const QString &chiave)
{
    Module1::Stato &s = Module1::stato();
    const auto inizio = s.VociSbagliate.begin();
    const auto trovata = std::find(inizio, inizio + s.LenSbagliate, chiave);
    const auto i = static_cast<std::size_t>(trovata - inizio);
    if (trovata != inizio + s.LenSbagliate) {
        ++s.ConteggiSbagliate[i];
        return;
    }
    // One slot stays free past the used ones: taking a key out reads it.
    if (i + 2 > s.VociSbagliate.size()) {
        s.VociSbagliate.resize(i * 2 + 2);
        s.ConteggiSbagliate.resize(i * 2 + 2);
    }
    s.VociSbagliate[i] = chiave;
    s.ConteggiSbagliate[i] = 3;
    ++s.LenSbagliate;
}

void TogliErrore(const QString &chiave)
{
    Module1::Stato &s = Module1::stato();
    qint32 i = s.LenSbagliate - 1;
    while (i >= 0 && s.VociSbagliate[static_cast<std::size_t>(i)] != chiave)
        --i;
    if (i < 0 || --s.ConteggiSbagliate[static_cast<std::size_t>(i)] >= 1)
        return;
    // The counts do not move with their keys, and the number of slots in use never falls.
    Sposta(s.VociSbagliate, i, s.LenSbagliate - 1, QString());
    Sposta(s.ConteggiSbagliate, i, s.LenSbagliate - 1, 0);
}
} // namespace Esercizio
