// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Misure.h"
#include "app/Finestre.h"
#include "exercise/Esercizio.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
constexpr qint32 Voci = 100000;

double Massimo(const std::vector<double> &tempi)
{
    return *std::max_element(tempi.begin(), tempi.end());
}

// A child window over a large dictionary, painted, its keyboard layout always to be had.
struct Scrivania {
    explicit Scrivania(const QString &comando)
    {
        Module1::LoadKeyboardLayoutA() = [](const QString & /*nome*/) { return true; };
        stato().impostazioni.TastiRapidi[0] = {0xE9, 'E', 0, 1};
        stato().impostazioni.NumTastiRapidi = 1;
        vista.finestra->findChild<QAction *>(comando)->trigger();
        vista.finestra->activateWindow();
        QApplication::processEvents();
    }

    // Once for all repetitions.
    static void Apparecchia(const QString &comando)
    {
        static QString aperta;
        if (std::exchange(aperta, comando) == comando)
            return;
        Tenuto().reset();
        Tenuto() = std::make_shared<Scrivania>(comando);
    }

    static void Tasto(QEvent::Type tipo, int tasto, Qt::KeyboardModifiers tasti, const QString &testo)
    {
        QKeyEvent evento(tipo, tasto, tasti, 26, 0, 0, testo);
        QApplication::sendEvent(QApplication::focusWidget(), &evento);
    }

    Vista vista{Voci};
};

// From the release of a hotkey to its character painted in the box.
void TastoRapidoNellaCasella(benchmark::State &giri)
{
    Scrivania::Apparecchia(u"mnuModificaAggiungi"_s);
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        qobject_cast<QLineEdit *>(QApplication::focusWidget())->setText(u"una parola"_s);
        Scrivania::Tasto(QEvent::KeyPress, Qt::Key_E, Qt::ControlModifier, u"\u0005"_s);
        QApplication::processEvents();
        giri.ResumeTiming();
        Scrivania::Tasto(QEvent::KeyRelease, Qt::Key_E, Qt::ControlModifier, u"\u0005"_s);
        QApplication::processEvents();
    }
}
BENCHMARK(TastoRapidoNellaCasella)
    ->Iterations(1)
    ->Repetitions(1000)
    ->ComputeStatistics("max", Massimo)
    ->ReportAggregatesOnly()
    ->Unit(benchmark::kMillisecond);

// From Enter to the judged answer painted, and from Enter to the next question, drawn from the file.
void InvioEGiudizio(benchmark::State &giri)
{
    Scrivania::Apparecchia(u"mnuEserciziCasuale"_s);
    const bool domanda = giri.range(0) != 0;
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        if (Esercizio::stato().attende == domanda)
            Scrivania::Tasto(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s);
        QApplication::processEvents();
        giri.ResumeTiming();
        Scrivania::Tasto(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s);
        QApplication::processEvents();
    }
}
BENCHMARK(InvioEGiudizio)
    ->ArgName("domanda")
    ->Arg(0)
    ->Arg(1)
    ->Iterations(1)
    ->Repetitions(1000)
    ->ComputeStatistics("max", Massimo)
    ->ReportAggregatesOnly()
    ->Unit(benchmark::kMillisecond);

// The shares of a million seeded draws from 100 entries, in millionths, beside those of the drawing rule: the first
// and the last have half a share more, 1.5 / 101. Then those of the error list at a frequency of 0.25.
void Sorteggio(benchmark::State &giri)
{
    constexpr qint32 n = 100;
    constexpr int volte = 1000000;
    Module1::Azzera();
    Esercizio::stato() = {};
    stato().PercorsoDizionario = Dizionario(n);
    stato().LenDizionario1 = CaricaDizionario(stato().PercorsoDizionario, stato().Dizionario1) - 1;
    // The draw reads the whole file each time: one line suffices here.
    const QTemporaryDir cartella;
    stato().PercorsoDizionario = cartella.filePath(u"a.dic"_s);
    ScriviInPosto(stato().PercorsoDizionario, QByteArray("@\0\r\0\n\0", 6));
    RigaDi(stato().Dizionario1, n) = RigaDaLinea(u"@ultima@last@"_s);
    stato().LenDizionario1 = n;
    std::array<int, n + 1> estratte{};
    int daErrori = 0;
    for ([[maybe_unused]] const auto giro : giri) {
        Caso caso(20261122);
        const Esercizio::Sorte sorte = [&caso] { return caso(); };
        for (int i = 0; i < volte; ++i) {
            Esercizio::VoceCasuale(sorte);
            ++estratte[static_cast<std::size_t>(Esercizio::stato().voce)];
        }
        for (int i = 0; i < 3; ++i)
            Esercizio::AggiungiErrore(u"@errore%1@x@"_s.arg(i));
        stato().impostazioni.PercentualeErrori = 0.25F;
        Esercizio::stato().OrdineCasuale = true;
        for (int i = 0; i < volte; ++i) {
            Esercizio::NuovaDomanda(sorte, [] { return false; });
            daErrori += Esercizio::stato().parolaDomanda.startsWith("errore"_L1) ? 1 : 0;
        }
    }
    giri.counters["prima"] = estratte[1];
    giri.counters["di_mezzo"] = estratte[n / 2];
    giri.counters["ultima"] = estratte[n];
    giri.counters["errori"] = daErrori;
    Module1::Azzera();
}
BENCHMARK(Sorteggio)->Iterations(1)->Unit(benchmark::kSecond);
} // namespace
