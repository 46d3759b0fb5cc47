// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{
// Milliseconds from the start of a process to its window painted and its end; below 0 when it failed.
double Avvia(const QString &programma)
{
    QElapsedTimer orologio;
    orologio.start();
    const int esito = QProcess::execute(programma, QStringList());
    return esito == 0 ? static_cast<double>(orologio.nsecsElapsed()) / 1e6 : -1;
}

double Mediana(std::vector<double> tempi)
{
    const auto mezzo = tempi.begin() + static_cast<std::ptrdiff_t>(tempi.size() / 2);
    std::nth_element(tempi.begin(), mezzo, tempi.end());
    return *mezzo;
}

// The program's start and a bare one's in alternation, and the ratio of their medians.
void Avvio(benchmark::State &giri)
{
    std::vector<double> nudo;
    std::vector<double> varbel;
    for ([[maybe_unused]] const auto giro : giri) {
        nudo.push_back(Avvia(QStringLiteral(NUDO)));
        varbel.push_back(Avvia(QStringLiteral(AVVIO)));
        if (nudo.back() < 0 || varbel.back() < 0) {
            giri.SkipWithError("a program failed");
            return;
        }
    }
    giri.counters["nudo_ms"] = Mediana(nudo);
    giri.counters["varbel_ms"] = Mediana(varbel);
    giri.counters["rapporto"] = Mediana(varbel) / Mediana(nudo);
}
BENCHMARK(Avvio)->Iterations(60)->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
