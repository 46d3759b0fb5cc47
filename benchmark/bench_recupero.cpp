// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Misure.h"
#include "core/Documento.h"

#include <benchmark/benchmark.h>

namespace
{
// What every command that changes the dictionary does beside its own work: the copy on the disk.
void CopiaDiRecupero(benchmark::State &giri)
{
    const Vista vista(static_cast<qint32>(giri.range(0)));
    for ([[maybe_unused]] const auto giro : giri)
        Documento::AggiornaCopia();
    Module1::stato().recupero->Togli();
}
BENCHMARK(CopiaDiRecupero)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
} // namespace
