// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Misure.h"
#include "edit/ListaParole.h"
#include "tools/ComponiForm1.h"
#include "tools/Conversione.h"
#include "tools/Inversione.h"
#include "tools/OutPutForm.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

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

// The compose window over a dictionary of that many entries, and as many in the second one, painted.
struct Composta {
    explicit Composta(qint32 voci)
    {
        Composizione::Leggi(Dizionario(voci));
        form = std::make_unique<ComponiForm1>();
        form->show();
        QApplication::processEvents();
    }

    void Clic(const QString &pulsante) const
    {
        form->findChild<QPushButton *>(pulsante)->click();
        QApplication::processEvents();
    }
    [[nodiscard]] ListaParole *Lista2() const { return form->findChild<ListaParole *>(u"lstDizionario2"_s); }

    std::unique_ptr<ComponiForm1> form;
};

// All entries of the open dictionary copied into the second one.
void Componi(benchmark::State &giri)
{
    const auto voci = static_cast<qint32>(giri.range(0));
    const Vista vista(voci);
    for ([[maybe_unused]] const auto giro : giri) {
        giri.PauseTiming();
        auto composta = std::make_unique<Composta>(voci);
        giri.ResumeTiming();
        composta->Clic(u"cmdAllto2"_s);
        giri.PauseTiming();
        composta.reset();
        giri.ResumeTiming();
    }
}
BENCHMARK(Componi)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

// The second dictionary sorted by its other language, and back.
void ComponiOrdina(benchmark::State &giri)
{
    const auto voci = static_cast<qint32>(giri.range(0));
    const Vista vista(voci);
    const Composta composta(voci);
    bool seconda = false;
    for ([[maybe_unused]] const auto giro : giri) {
        seconda = !seconda;
        composta.form->findChild<QAbstractButton *>(seconda ? u"optLingua2(1)"_s : u"optLingua2(0)"_s)->click();
        composta.Clic(u"cmdOrdina2"_s);
    }
}
BENCHMARK(ComponiOrdina)->Arg(100000)->Unit(benchmark::kMillisecond);

// From the Delete key let go to the list painted without the item and its row.
void ComponiElimina(benchmark::State &giri)
{
    const auto voci = static_cast<qint32>(giri.range(0));
    const Vista vista(voci);
    const Composta composta(voci);
    composta.Lista2()->ImpostaListIndex(5);
    for ([[maybe_unused]] const auto giro : giri) {
        QKeyEvent tasto(QEvent::KeyRelease, Qt::Key_Delete, {});
        QApplication::sendEvent(composta.Lista2(), &tasto);
        QApplication::processEvents();
    }
}
BENCHMARK(ComponiElimina)->Arg(100000)->Iterations(100)->Unit(benchmark::kMillisecond);
} // namespace
