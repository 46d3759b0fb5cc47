// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Misure.h"
#include "app/Avvio.h"
#include "core/FileDizionario.h"
#include "core/FileInPosto.h"
#include "edit/Ordinamento.h"
#include "edit/Voci.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#ifdef Q_OS_LINUX
#include <malloc.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
double MemoriaMiB()
{
#ifdef Q_OS_LINUX
    malloc_trim(0);
    QFile statm(u"/proc/self/statm"_s);
    if (statm.open(QIODevice::ReadOnly))
        return statm.readAll().split(' ').at(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
#endif
    return 0;
}

void PerVoce(benchmark::State &giri)
{
    giri.counters["per_voce"] =
        benchmark::Counter(static_cast<double>(giri.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Read, split, sort and fill through the main window, painted once.
void Apri(benchmark::State &giri)
{
    const QString percorso = Dizionario(static_cast<qint32>(giri.range(0)));
    double memoria = 0;
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        Module1::Azzera();
        stato().CartellaProgramma = QStringLiteral(ASSETS);
        auto finestra = std::make_unique<MDIForm1>();
        finestra->show();
        QApplication::processEvents();
        const double prima = MemoriaMiB();
        stato().PercorsoDizionario = percorso;
        giri.ResumeTiming();
        finestra->SimulaApertura();
        QApplication::processEvents();
        giri.PauseTiming();
        memoria = std::max(memoria, MemoriaMiB() - prima);
        stato().DizionarioAperto = false;
        finestra.reset();
        Module1::Azzera();
        giri.ResumeTiming();
    }
    giri.counters["MiB"] = memoria;
    PerVoce(giri);
}
BENCHMARK(Apri)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

void OrdinaDisordinate(benchmark::State &giri)
{
    Tabella letta;
    const qint32 ultima = CaricaDizionario(Dizionario(static_cast<qint32>(giri.range(0))), letta);
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        Tabella tabella = letta;
        giri.ResumeTiming();
        OrdinaStringhe(tabella, ultima);
        giri.PauseTiming();
        tabella = Tabella();
        giri.ResumeTiming();
    }
    PerVoce(giri);
}
BENCHMARK(OrdinaDisordinate)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

// The same bytes written and flushed plainly, and by a save.
void ScritturaSemplice(benchmark::State &giri)
{
    const QByteArray byte = LeggiTutto(Dizionario(static_cast<qint32>(giri.range(0))));
    const QTemporaryDir cartella;
    for ([[maybe_unused]] const auto giro : giri) {
        QFile file(cartella.filePath(u"a.dic"_s));
        QFile::remove(file.fileName());
        if (!file.open(QIODevice::WriteOnly) || file.write(byte) != byte.size() || !file.flush() ||
            fsync(file.handle()) != 0)
            giri.SkipWithError("write failed");
    }
}
BENCHMARK(ScritturaSemplice)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)->UseRealTime();

void Salva(benchmark::State &giri)
{
    Tabella tabella;
    const qint32 ultima = CaricaDizionario(Dizionario(static_cast<qint32>(giri.range(0))), tabella);
    const QTemporaryDir cartella;
    for ([[maybe_unused]] const auto giro : giri)
        SalvaDizionario(cartella.filePath(u"a.dic"_s), tabella, ultima);
}
BENCHMARK(Salva)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)->UseRealTime();

// The lists refilled, laid out and painted after a delete or an add; the sort of the delete measured apart.
void RiempiDopoElimina(benchmark::State &giri)
{
    const Vista vista(static_cast<qint32>(giri.range(0)));
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        EliminaVoce(stato().LenDizionario1 / 2);
        giri.ResumeTiming();
        vista.visualizza->RiempiListe();
        QApplication::processEvents();
    }
}
BENCHMARK(RiempiDopoElimina)->RangeMultiplier(10)->Range(1000, 1000000)->Iterations(100)->Unit(benchmark::kMillisecond);

void RiempiDopoAggiungi(benchmark::State &giri)
{
    const Vista vista(static_cast<qint32>(giri.range(0)));
    Module1::Stato &s = stato();
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        if (s.LenDizionario1 + 2 >= Capacita(s.Dizionario1))
            Allarga(s.Dizionario1);
        RigaDi(s.Dizionario1, s.LenDizionario1 + 1) = RigaDaLinea(u"@parola@word@"_s);
        s.LenDizionario1 += 2;
        giri.ResumeTiming();
        vista.visualizza->RiempiListe();
        QApplication::processEvents();
    }
}
BENCHMARK(RiempiDopoAggiungi)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Iterations(100)
    ->Unit(benchmark::kMillisecond);

void Elimina(benchmark::State &giri)
{
    const Vista vista(static_cast<qint32>(giri.range(0)));
    for ([[maybe_unused]] const auto giro : giri) {
        EliminaVoce(stato().LenDizionario1 / 2);
        vista.visualizza->RiempiListe();
        QApplication::processEvents();
    }
}
BENCHMARK(Elimina)->RangeMultiplier(10)->Range(1000, 1000000)->Iterations(100)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariable("QT_QPA_PLATFORM", u"offscreen"_s).toLocal8Bit());
    const QApplication programma(argc, argv);
    PreparaProgramma();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    Tenuto().reset();
    benchmark::Shutdown();
    return 0;
}
