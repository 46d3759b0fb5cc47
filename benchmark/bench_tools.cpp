// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Misure.h"
#include "tools/Conversione.h"
#include "tools/Inversione.h"
#include "tools/OutPutForm.h"

#include <benchmark/benchmark.h>

#include <QApplication>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
constexpr qint32 Voci = 100000;

// A dictionary into another that is open, the lists refilled and painted.
void Unisci(benchmark::State &giri)
{
    const QString altro = Dizionario(Voci);
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        const auto vista = std::make_unique<Vista>(Voci);
        giri.ResumeTiming();
        UnisciDizionario(altro, [](qint64, qint64) { return true; });
        vista->visualizza->RiempiListe();
        QApplication::processEvents();
    }
}
BENCHMARK(Unisci)->Iterations(5)->Unit(benchmark::kMillisecond);

void Inverti(benchmark::State &giri)
{
    const Vista vista(Voci);
    for ([[maybe_unused]] const auto giro : giri) {
        InvertiInPosto();
        vista.visualizza->RiempiListe();
        QApplication::processEvents();
    }
}
BENCHMARK(Inverti)->Iterations(10)->Unit(benchmark::kMillisecond);

// Lines of three segments into an empty open dictionary; every tenth one fails and is listed.
void Converti(benchmark::State &giri)
{
    const auto linee = static_cast<qint32>(giri.range(0));
    const QTemporaryDir cartella;
    const QString file = cartella.filePath(u"lista.txt"_s);
    QRandomGenerator caso(2);
    QString testo;
    for (qint32 i = 0; i < linee; ++i)
        testo += Parola(caso) + (i % 10 == 9 ? u',' : u';') + Parola(caso) + u'è' + u';' + Parola(caso) + u'\n';
    ScriviInPosto(file, testo.toUtf8());
    ImpostazioniConversione impostazioni;
    impostazioni.separatori[0] = impostazioni.separatori[1] = u";"_s;
    impostazioni.lingua1 = u"1"_s;
    impostazioni.lingua2 = u"2"_s;
    impostazioni.commento1 = u"3"_s;
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        const auto vista = std::make_unique<Vista>(1);
        const auto uscita = std::make_unique<OutPutForm>();
        giri.ResumeTiming();
        EsitoConversione esito;
        ConvertiFile(
            file, impostazioni, [](qint64, qint64) { return true; }, esito);
        uscita->ImpostaErrori(esito.errori);
        uscita->show();
        vista->visualizza->RiempiListe();
        QApplication::processEvents();
    }
    giri.counters["per_linea"] = benchmark::Counter(
        static_cast<double>(linee), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(Converti)->RangeMultiplier(10)->Range(1000, 1000000)->Iterations(3)->Unit(benchmark::kMillisecond);
} // namespace
