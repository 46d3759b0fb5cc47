// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Misure.h"
#include "app/Finestre.h"
#include "edit/ListaParole.h"
#include "print/SpoolStampante.h"
#include "print/StampaDizionario.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
constexpr int Volte = 20;

// What a command takes until it is painted, the mean of `volte` times, in ms.
template <typename Comando>
double Millisecondi(Comando comando, int volte = 1)
{
    QElapsedTimer orologio;
    orologio.start();
    for (int i = 0; i < volte; ++i) {
        comando();
        QApplication::processEvents();
    }
    return static_cast<double>(orologio.nsecsElapsed()) / 1e6 / volte;
}

// The command of a menu; a question that it asks is answered with Yes.
void Comando(const Vista &vista, const QString &nome)
{
    QTimer::singleShot(0, qApp, [] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            box->button(QMessageBox::Yes)->click();
    });
    vista.finestra->findChild<QAction *>(nome)->trigger();
}

void Invio()
{
    QKeyEvent evento(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
    QApplication::sendEvent(QApplication::focusWidget(), &evento);
}

void Aggiungi(const Vista &vista)
{
    const auto *form = vista.finestra->findChild<QWidget *>(u"InserimentoForm1"_s);
    form->findChild<QLineEdit *>(u"txtLingua1"_s)->setText(u"parola"_s);
    form->findChild<QLineEdit *>(u"txtLingua2"_s)->setText(u"word"_s);
    form->findChild<QPushButton *>(u"cmdOk"_s)->click();
}

void Stampa(const QString &pdf)
{
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setOutputFileName(pdf);
    SpoolStampante spool(stampante);
    StampaDizionario(spool, LeggiTutto(stato().PercorsoDizionario), stato().impostazioni,
                     [](qint64, qint64) { return true; });
    spool.Fine();
}

// A user's day with a dictionary of any size: each command's time in ms, painted, with its recovery copy where it
// makes one.
void Giornata(benchmark::State &giri)
{
    Module1::LoadKeyboardLayoutA() = [](const QString & /*nome*/) { return true; };
    const QTemporaryDir cartella;
    const QString percorso = Dizionario(static_cast<qint32>(giri.range(0)));
    const Vista vista(100);
    // Closing writes the settings beside the program: these and the pictures are the benchmark's own.
    for (const QString &nome : {u"varbel.ini"_s, u"Trffc10a.ico"_s, u"Intl_no.bmp"_s})
        QFile::copy(QDir(stato().CartellaProgramma).filePath(nome), cartella.filePath(nome));
    stato().CartellaProgramma = cartella.path();
    for ([[maybe_unused]] const auto giro : giri) {
        Comando(vista, u"mnuFileChiudi"_s);
        giri.counters["1_apri"] = Millisecondi([&] {
            stato().PercorsoDizionario = percorso;
            vista.finestra->SimulaApertura();
        });
        // Saved under a name of its own: others measure the same dictionary.
        stato().PercorsoDizionario = cartella.filePath(u"a.dic"_s);
        Comando(vista, u"mnuModificaAggiungi"_s);
        giri.counters["2_aggiungi"] = Millisecondi([&] { Aggiungi(vista); }, Volte);
        giri.counters["3_ordina2"] = Millisecondi([&] { Comando(vista, u"mnuModificaOrdina2"_s); });
        giri.counters["4_elimina"] = Millisecondi(
            [&] {
                vista.finestra->findChild<ListaParole *>(u"ListaParoleLingua1"_s)->ImpostaListIndex(Volte);
                Comando(vista, u"mnuModificaElimina"_s);
            },
            Volte);
        giri.counters["5_salva"] = Millisecondi([&] { Comando(vista, u"mnuFileSalva"_s); });
        giri.counters["6_esercizio"] = Millisecondi([&] { Comando(vista, u"mnuEserciziCasuale"_s); });
        vista.finestra->activateWindow();
        QApplication::processEvents();
        giri.counters["7_risposta_e_domanda"] = Millisecondi(
            [] {
                Invio();
                Invio();
            },
            Volte);
        giri.counters["8_stampa"] = Millisecondi([&] { Stampa(cartella.filePath(u"a.pdf"_s)); });
        giri.counters["9_chiudi"] = Millisecondi([&] { Comando(vista, u"mnuFileChiudi"_s); });
    }
}
BENCHMARK(Giornata)->RangeMultiplier(10)->Range(10000, 1000000)->Iterations(1)->Unit(benchmark::kSecond);
} // namespace
