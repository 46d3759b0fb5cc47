// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Tastiera.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
double Massimo(const std::vector<double> &tempi)
{
    return *std::max_element(tempi.begin(), tempi.end());
}

// A field in another language than the one before, on a real X server. `prima`: the user's keyboard is kept first.
void CambioTastiera(benchmark::State &giri)
{
    if (QGuiApplication::platformName() != "xcb"_L1) {
        giri.SkipWithError("needs an X server");
        return;
    }
    static const std::unique_ptr<MezzoTastiera> mezzo = CreaMezzoTastiera();
    static bool greco = false;
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        if (giri.range(0) != 0)
            mezzo->Restituisci();
        greco = !greco;
        giri.ResumeTiming();
        if (!mezzo->Carica(greco ? u"00000408"_s : u"00000419"_s))
            giri.SkipWithError("no such layout");
    }
}
BENCHMARK(CambioTastiera)
    ->ArgName("prima")
    ->Arg(1)
    ->Arg(0)
    ->Iterations(1)
    ->Repetitions(200)
    ->ComputeStatistics("max", Massimo)
    ->ReportAggregatesOnly()
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// A field in the same language.
void StessaTastiera(benchmark::State &giri)
{
    const std::unique_ptr<MezzoTastiera> mezzo = CreaMezzoTastiera();
    if (!mezzo || !mezzo->Carica(u"00000408"_s)) {
        giri.SkipWithError("needs an X server");
        return;
    }
    for ([[maybe_unused]] const auto giro : giri)
        mezzo->Carica(u"00000408"_s);
    mezzo->Restituisci();
}
BENCHMARK(StessaTastiera)->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
