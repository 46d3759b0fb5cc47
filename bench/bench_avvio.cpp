// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QProcess>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace
{
// Wall time from the start of a process to its window painted and its end.
void Avvio(benchmark::State &stato, const QString &programma)
{
    for ([[maybe_unused]] const auto giro : stato) {
        if (QProcess::execute(programma, QStringList()) != 0) {
            stato.SkipWithError("the program failed");
            break;
        }
    }
}

// The two in alternation would be fairest; repetitions interleaved at random come near it.
BENCHMARK_CAPTURE(Avvio, nudo, QStringLiteral(NUDO))->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Avvio, varbel, QStringLiteral(AVVIO))->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
