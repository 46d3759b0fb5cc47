// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/Ordinamento.h"

#include "core/ErroreRuntime.h"
#include "core/Module1.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace
{
// A row's key: its first four lower-cased units packed to be compared at once, the rest in the shared text.
struct Chiave {
    quint64 testa = 0;
    std::size_t inizio = 0;
    std::size_t lunghezza = 0;
    std::size_t riga = 0;
};

struct Chiavi {
    std::u16string testo;
    std::vector<Chiave> righe;
};

Chiavi PreparaChiavi(std::span<const RigaTabella> righe, std::size_t colonna)
{
    constexpr int unitaInTesta = 4;
    Chiavi chiavi;
    chiavi.righe.reserve(righe.size());
    for (const RigaTabella &riga : righe) {
        Chiave chiave{0, chiavi.testo.size(), 0, chiavi.righe.size()};
        int spazio = unitaInTesta;
        for (const QChar unita : riga[colonna]) {
            const char16_t minuscola = unita.toLower().unicode();
            if (spazio > 0)
                chiave.testa |= static_cast<quint64>(minuscola) << (16 * --spazio);
            chiavi.testo.push_back(minuscola);
        }
        chiave.lunghezza = chiavi.testo.size() - chiave.inizio;
        chiavi.righe.push_back(chiave);
    }
    return chiavi;
}

// A merge sort of the runs that are in order already: a table with one change is nearly sorted.
template <typename Minore>
void FondiSequenze(std::vector<Chiave> &chiavi, Minore minore)
{
    std::vector<std::size_t> confini = {0};
    for (auto qui = chiavi.begin(); qui != chiavi.end();) {
        qui = std::is_sorted_until(qui, chiavi.end(), minore);
        confini.push_back(static_cast<std::size_t>(qui - chiavi.begin()));
    }
    std::vector<Chiave> fuse(confini.size() > 2 ? chiavi.size() : 0);
    while (confini.size() > 2) {
        std::vector<std::size_t> nuovi = {0};
        const auto punto = [&chiavi](std::size_t i) { return chiavi.begin() + static_cast<std::ptrdiff_t>(i); };
        auto uscita = fuse.begin();
        std::size_t k = 0;
        for (; k + 2 < confini.size(); k += 2) {
            uscita = std::merge(punto(confini[k]), punto(confini[k + 1]), punto(confini[k + 1]), punto(confini[k + 2]),
                                uscita, minore);
            nuovi.push_back(confini[k + 2]);
        }
        if (k + 1 < confini.size()) {
            std::copy(punto(confini[k]), chiavi.end(), uscita);
            nuovi.push_back(confini[k + 1]);
        }
        chiavi.swap(fuse);
        confini.swap(nuovi);
    }
}

// Two runs in order become one: only what lies between the places where they mesh moves.
template <typename Minore>
void FondiDue(std::span<RigaTabella> righe, std::size_t mezzo, Minore minore)
{
    const auto meta = righe.begin() + static_cast<std::ptrdiff_t>(mezzo);
    const auto inizio = std::upper_bound(righe.begin(), meta, *meta, minore);
    const auto fine = std::lower_bound(meta, righe.end(), *(meta - 1), minore);
    std::inplace_merge(inizio, meta, fine, minore);
}

// Puts row chiavi[i].riga in place i, moving each row once along the cycles of the permutation.
void Disponi(std::span<RigaTabella> righe, std::vector<Chiave> &chiavi)
{
    for (std::size_t i = 0; i < righe.size(); ++i) {
        if (chiavi[i].riga == i)
            continue;
        RigaTabella prima = std::move(righe[i]);
        std::size_t qui = i;
        for (std::size_t da = chiavi[qui].riga; da != i; da = chiavi[qui].riga) {
            righe[qui] = std::move(righe[da]);
            chiavi[qui].riga = qui;
            qui = da;
        }
        righe[qui] = std::move(prima);
        chiavi[qui].riga = qui;
    }
}
} // namespace

void OrdinaStringhe(Tabella &tabella, qint32 n)
{
    OrdinaLista(tabella, n, 0);
}

void OrdinaLista(Tabella &tabella, qint32 n, qint32 chiave)
{
    if (n < 2)
        return;
    if (chiave < 0 || chiave > 2 || n - 1 > Capacita(tabella))
        throw ErroreRuntime(9);
    const std::span<RigaTabella> righe(tabella.righe.data(), static_cast<std::size_t>(n));
    // In order already, or but for one change: no keys are needed to find out.
    const auto minore = [colonna = static_cast<std::size_t>(chiave)](const RigaTabella &a, const RigaTabella &b) {
        return std::lexicographical_compare(a[colonna].cbegin(), a[colonna].cend(), b[colonna].cbegin(),
                                            b[colonna].cend(),
                                            [](QChar x, QChar y) { return x.toLower() < y.toLower(); });
    };
    const auto mezzo = std::is_sorted_until(righe.begin(), righe.end(), minore);
    if (mezzo == righe.end())
        return;
    if (std::is_sorted(mezzo, righe.end(), minore))
        return FondiDue(righe, static_cast<std::size_t>(mezzo - righe.begin()), minore);
    Chiavi chiavi = PreparaChiavi(righe, static_cast<std::size_t>(chiave));
    FondiSequenze(chiavi.righe, [testo = std::u16string_view(chiavi.testo)](const Chiave &a, const Chiave &b) {
        if (a.testa != b.testa)
            return a.testa < b.testa;
        return testo.substr(a.inizio, a.lunghezza) < testo.substr(b.inizio, b.lunghezza);
    });
    Disponi(righe, chiavi.righe);
}

void ordinadizionario2(qint32 chiave)
{
    Module1::Stato &s = Module1::stato();
    OrdinaLista(s.Dizionario2, s.LenDizionario2, chiave);
}
