// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Misure.h"
#include "print/SpoolStampante.h"
#include "print/StampaDizionario.h"

#include <benchmark/benchmark.h>

#include <QPrinter>

#ifdef Q_OS_LINUX
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// The most that was resident since the last reset, in MiB.
double MassimoMiB()
{
    constexpr QByteArrayView quale = "VmHWM:";
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray tutto = file.readAll();
    return tutto.mid(tutto.indexOf(quale) + quale.size(), 16).simplified().split(' ').first().toDouble() / 1024;
}

// Begins anew from what is resident now, which is returned.
double AzzeraMassimo()
{
#ifdef Q_OS_LINUX
    malloc_trim(0);
    QFile file(u"/proc/self/clear_refs"_s);
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        file.write("5");
#endif
    return MassimoMiB();
}

// What the print command does beside its dialogs: the file read, composed and counted, and sent to a PDF if `spedisci`.
void StampaVoci(benchmark::State &giri, bool spedisci)
{
    const Vista vista(static_cast<qint32>(giri.range(0)));
    const QTemporaryDir cartella;
    double memoria = 0;
    qint32 fogli = 0;
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        const double prima = AzzeraMassimo();
        giri.ResumeTiming();
        QPrinter stampante(QPrinter::HighResolution);
        stampante.setOutputFileName(cartella.filePath(u"a.pdf"_s));
        SpoolStampante spool(stampante);
        fogli =
            StampaDizionario(spool, LeggiTutto(stato().PercorsoDizionario), stato().impostazioni, [](qint64, qint64) {
                return true;
            }).value_or(0);
        if (spedisci)
            spool.Fine();
        giri.PauseTiming();
        memoria = std::max(memoria, MassimoMiB() - prima);
        giri.ResumeTiming();
    }
    giri.counters["MiB"] = memoria;
    giri.counters["fogli"] = fogli;
}

void StampaComponi(benchmark::State &giri)
{
    StampaVoci(giri, false);
}
BENCHMARK(StampaComponi)->Arg(32000)->Arg(1000000)->Iterations(3)->Unit(benchmark::kMillisecond);

void StampaPdf(benchmark::State &giri)
{
    StampaVoci(giri, true);
}
BENCHMARK(StampaPdf)->Arg(32000)->Iterations(3)->Unit(benchmark::kMillisecond);
} // namespace
