// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Errori.h"
#include "core/Module1.h"
#include "core/Riga.h"
#include "exercise/Esercizio.h"

#include <QtTest>

#include <cmath>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// Fractions handed out in order; the test fails by the null one when they run out.
Esercizio::Sorte Sorti(std::initializer_list<double> valori)
{
    return [coda = QList<double>(valori)]() mutable { return coda.takeFirst(); };
}

bool MaiRicominciare()
{
    qFatal("the end of the review was not expected");
}

QString Chiave(int i)
{
    return u"c%1@w%1@p%1@"_s.arg(i);
}
} // namespace

class TestExercise : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void domandeACaso_data();
    void domandeACaso();
    void probabilita();
    void sogliaDegliErrori();
    void elencoDegliErrori();
    void contiCheNonSeguonoLeChiavi();
    void elencoOltreLaMisura();
    void ripasso();
    void ripassoVuotoOSenzaVoci();
    void buchi();
    void lingueInvertite();
    void campiMancanti();
    void giudizioEsatto();
    void troppeGiuste();
    void fileSparito();
    void sessioneRipetuta();

private:
    // Entries 1 to n as they stand after a load, row 0 included, which is not asked.
    void Riempi(int n)
    {
        Module1::Stato &s = stato();
        for (int i = 0; i <= n; ++i)
            RigaDi(s.Dizionario1, i) = RigaDaLinea(Chiave(i));
        s.LenDizionario1 = n;
    }

    CartellaProva m_cartella;
};

void TestExercise::init()
{
    Module1::Azzera();
    Esercizio::stato() = StatoEsercizio();
    Esercizio::stato().OrdineCasuale = true;
    stato().PercorsoDizionario = m_cartella.filePath(u"a.dic"_s);
    QVERIFY(FaiFile(stato().PercorsoDizionario, QByteArray("x\0\r\0\n\0", 6)));
}

void TestExercise::domandeACaso_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<int>("voce");
    QTest::newRow("0") << 0.0 << 1;
    // 10 entries: Round(x * 10.1), halves to the even neighbour.
    QTest::newRow("mezzo verso il pari, giù") << 0.5 / 10.1 << 1;
    QTest::newRow("uno") << 0.14 << 1;
    QTest::newRow("cinque") << 0.5 << 5;
    QTest::newRow("dieci") << 0.95 << 10;
    QTest::newRow("undici torna dieci") << 1 - 1.0 / (1 << 24) << 10;
}

void TestExercise::domandeACaso()
{
    QFETCH(const double, x);
    QFETCH(const int, voce);
    Riempi(10);
    QVERIFY(Esercizio::NuovaDomanda(Sorti({0.5, x}), MaiRicominciare));
    const StatoEsercizio &e = Esercizio::stato();
    QCOMPARE(e.voce, voce);
    QCOMPARE(e.parolaDomanda, u"w%1"_s.arg(voce));
    QCOMPARE(e.rispostaAttesa, u"p%1"_s.arg(voce));
    QCOMPARE(e.commentoDomanda, u"c%1"_s.arg(voce));
    QCOMPARE(e.commentoRisposta, u""_s);
}

void TestExercise::probabilita()
{
    constexpr int voci = 10;
    constexpr int tiri = 200'000;
    Riempi(voci);
    Caso caso(42);
    const Esercizio::Sorte sorte = [&caso] { return caso(); };
    std::array<int, voci + 1> volte{};
    for (int i = 0; i < tiri; ++i) {
        Esercizio::VoceCasuale(sorte);
        ++volte[static_cast<std::size_t>(Esercizio::stato().voce)];
    }
    const auto vicino = [&](std::size_t voce, double attesa) {
        const double scarto = std::sqrt(tiri * attesa * (1 - attesa));
        return std::abs(volte[voce] - tiri * attesa) < 5 * scarto;
    };
    QCOMPARE(volte[0], 0);
    QVERIFY(vicino(1, 1.5 / 10.1));
    QVERIFY(vicino(5, 1.0 / 10.1));
    QVERIFY(vicino(10, 0.6 / 10.1));
}

void TestExercise::sogliaDegliErrori()
{
    Riempi(10);
    Module1::Stato &s = stato();
    s.impostazioni.PercentualeErrori = 0.25F;
    for (int i = 100; i < 102; ++i)
        Esercizio::AggiungiErrore(Chiave(i));
    const auto domanda = [](std::initializer_list<double> sorti) {
        Esercizio::NuovaDomanda(Sorti(sorti), MaiRicominciare);
        return Esercizio::stato().parolaDomanda;
    };
    // Two keys: the list is never drawn from; the fraction of the list is then not taken either.
    QCOMPARE(domanda({0.1, 0.5}), u"w5"_s);
    Esercizio::AggiungiErrore(Chiave(102));
    QCOMPARE(domanda({0.1, 0.0}), u"w100"_s);
    QCOMPARE(domanda({0.1, 0.4}), u"w101"_s);
    // Round(3 x 1.01) is 2 from 1.5 / 3.03 on, halves to the even 2.
    QCOMPARE(domanda({0.24, 1.51 / 3.03}), u"w102"_s);
    QCOMPARE(domanda({0.24, 0.99}), u"w102"_s);
    QCOMPARE(domanda({0.25, 0.5}), u"w5"_s);
    // A draw from the list leaves the row last drawn as it was.
    QCOMPARE(Esercizio::stato().voce, 5);
    s.impostazioni.PercentualeErrori = 0;
    QCOMPARE(domanda({0.0, 0.5}), u"w5"_s);
    s.impostazioni.PercentualeErrori = 1;
    QCOMPARE(domanda({0.999, 0.0}), u"w100"_s);
}

void TestExercise::elencoDegliErrori()
{
    const Module1::Stato &s = stato();
    // Wrong once: three right answers. Wrong twice: four.
    Esercizio::AggiungiErrore(Chiave(1));
    Esercizio::AggiungiErrore(Chiave(2));
    Esercizio::AggiungiErrore(Chiave(2));
    QCOMPARE(s.ConteggiSbagliate[1], 4);
    for (int i = 0; i < 2; ++i)
        Esercizio::TogliErrore(Chiave(1));
    QCOMPARE(s.VociSbagliate[0], Chiave(1));
    QCOMPARE(s.ConteggiSbagliate[0], 1);
    Esercizio::TogliErrore(u"sconosciuta"_s);
    for (int i = 0; i < 4; ++i)
        Esercizio::TogliErrore(Chiave(2));
    QCOMPARE(s.VociSbagliate[1], QString());
    QCOMPARE(s.LenSbagliate, 2);
    Module1::AzzeraDizionario();
    QCOMPARE(s.LenSbagliate, 0);
    QCOMPARE(s.VociSbagliate[0], QString());
    QCOMPARE(s.ConteggiSbagliate[0], 0);
}

void TestExercise::contiCheNonSeguonoLeChiavi()
{
    const Module1::Stato &s = stato();
    Riempi(10);
    for (int i = 0; i < 4; ++i)
        Esercizio::AggiungiErrore(Chiave(i));
    Esercizio::AggiungiErrore(Chiave(2));
    for (int i = 0; i < 3; ++i)
        Esercizio::TogliErrore(Chiave(1));
    // The keys moved down, the counts did not: key 2 has the 0 of the key removed, key 3 the 4 of key 2.
    QCOMPARE(s.VociSbagliate[1], Chiave(2));
    QCOMPARE(s.VociSbagliate[2], Chiave(3));
    QCOMPARE(s.VociSbagliate[3], QString());
    QCOMPARE(s.ConteggiSbagliate[1], 0);
    QCOMPARE(s.ConteggiSbagliate[2], 4);
    QCOMPARE(s.ConteggiSbagliate[3], 3);
    QCOMPARE(s.LenSbagliate, 4);
    // The emptied slot, when drawn, gives way to a random entry.
    stato().impostazioni.PercentualeErrori = 1;
    Esercizio::NuovaDomanda(Sorti({0.0, 0.99, 0.5}), MaiRicominciare);
    QCOMPARE(Esercizio::stato().parolaDomanda, u"w5"_s);
}

void TestExercise::elencoOltreLaMisura()
{
    const Module1::Stato &s = stato();
    for (int i = 0; i < 300; ++i)
        Esercizio::AggiungiErrore(Chiave(i));
    QCOMPARE(s.LenSbagliate, 300);
    for (int i = 0; i < 3; ++i)
        Esercizio::TogliErrore(Chiave(299));
    QCOMPARE(s.VociSbagliate[299], QString());
    QCOMPARE(s.VociSbagliate[298], Chiave(298));
    // Full to its last slot, as at 101 keys, and the first one taken out.
    Module1::AzzeraDizionario();
    for (int i = 0; i < 101; ++i)
        Esercizio::AggiungiErrore(Chiave(i));
    for (int i = 0; i < 3; ++i)
        Esercizio::TogliErrore(Chiave(0));
    QCOMPARE(s.VociSbagliate[0], Chiave(1));
    QCOMPARE(s.VociSbagliate[99], Chiave(100));
    QCOMPARE(s.VociSbagliate[100], QString());
}

void TestExercise::ripasso()
{
    Riempi(3);
    StatoEsercizio &e = Esercizio::stato();
    e.OrdineCasuale = false;
    Caso caso(1);
    const Esercizio::Sorte sorte = [&caso] { return caso(); };
    QStringList chieste;
    int fini = 0;
    for (int i = 0; i < 5; ++i) {
        QVERIFY(Esercizio::NuovaDomanda(sorte, [&fini] { return ++fini > 0; }));
        chieste += e.parolaDomanda;
    }
    QCOMPARE(chieste, QStringList({u"w1"_s, u"w2"_s, u"w3"_s, u"w1"_s, u"w2"_s}));
    QCOMPARE(fini, 1);
    // The position outlives the window; a refusal sets it back to the start.
    Esercizio::Comincia();
    QVERIFY(Esercizio::NuovaDomanda(sorte, MaiRicominciare));
    QCOMPARE(e.parolaDomanda, u"w3"_s);
    QVERIFY(!Esercizio::NuovaDomanda(sorte, [] { return false; }));
    QCOMPARE(e.posizioneRipasso, 0);
    QCOMPARE(e.voce, 0);
}

void TestExercise::ripassoVuotoOSenzaVoci()
{
    StatoEsercizio &e = Esercizio::stato();
    for (const qint32 n : {-1, 0, 5}) {
        stato().LenDizionario1 = n;
        e = StatoEsercizio();
        int fini = 0;
        QVERIFY(Esercizio::NuovaDomanda(Sorti({0.5}), [&fini] { return ++fini > 0; }));
        QCOMPARE(fini, 1);
        QCOMPARE(e.parolaDomanda + e.rispostaAttesa + e.commentoDomanda, QString());
        QCOMPARE(e.commentoRisposta, u"@"_s);
        e.OrdineCasuale = true;
        QVERIFY(Esercizio::NuovaDomanda(Sorti({0.5, 0.5}), MaiRicominciare));
        QCOMPARE(e.commentoRisposta, u"@"_s);
    }
}

void TestExercise::buchi()
{
    Riempi(4);
    Module1::Stato &s = stato();
    RigaDi(s.Dizionario1, 1) = {};
    RigaDi(s.Dizionario1, 3) = {};
    QVERIFY(Esercizio::NuovaDomanda(Sorti({0.5, 0.0, 0.75, 0.5}), MaiRicominciare));
    QCOMPARE(Esercizio::stato().voce, 2);
    Esercizio::stato().OrdineCasuale = false;
    QStringList chieste;
    for (int i = 0; i < 3; ++i) {
        QVERIFY(Esercizio::NuovaDomanda(Sorti({0.5}), [] { return true; }));
        chieste += Esercizio::stato().parolaDomanda;
    }
    QCOMPARE(chieste, QStringList({u"w2"_s, u"w4"_s, u"w2"_s}));
}

void TestExercise::lingueInvertite()
{
    Module1::Stato &s = stato();
    StatoEsercizio &e = Esercizio::stato();
    RigaDi(s.Dizionario1, 1) = RigaDaLinea(u"c1@casa@house@c2@x\r"_s);
    s.LenDizionario1 = 1;
    e.InvertiLingue = true;
    Esercizio::NuovaDomanda(Sorti({0.5, 0.5}), MaiRicominciare);
    QCOMPARE(e.parolaDomanda, u"house"_s);
    QCOMPARE(e.rispostaAttesa, u"casa"_s);
    QCOMPARE(e.commentoDomanda, u"c2@x\r"_s);
    QVERIFY(!Esercizio::ControllaRisposta(u"house"_s));
    QCOMPARE(s.VociSbagliate[0], u"c2@x\r@house@casa@c1"_s);
    // Drawn again from the list, the halves come back: the entry is then asked the other way round.
    Esercizio::AggiungiErrore(u"1@a@b@2"_s);
    Esercizio::AggiungiErrore(u"1@c@d@2"_s);
    s.VociSbagliate[0] = u"c2@house@casa@c1"_s;
    s.impostazioni.PercentualeErrori = 1;
    Esercizio::NuovaDomanda(Sorti({0.5, 0.0}), MaiRicominciare);
    QCOMPARE(e.parolaDomanda, u"casa"_s);
    QCOMPARE(e.commentoDomanda, u"c1"_s);
}

void TestExercise::campiMancanti()
{
    Module1::Stato &s = stato();
    StatoEsercizio &e = Esercizio::stato();
    e.OrdineCasuale = false;
    RigaDi(s.Dizionario1, 1)[2] = u"c1@w1@p1@d1"_s;
    RigaDi(s.Dizionario1, 2)[2] = u"c2@w2"_s;
    RigaDi(s.Dizionario1, 3)[2] = u"niente"_s;
    s.LenDizionario1 = 3;
    QStringList viste;
    for (int i = 0; i < 3; ++i) {
        Esercizio::NuovaDomanda(Sorti({0.5}), MaiRicominciare);
        viste += ComponiRiga({e.parolaDomanda, e.rispostaAttesa, e.commentoDomanda, e.commentoRisposta});
    }
    QCOMPARE(viste, QStringList({u"c1@w1@p1@d1"_s, u"c2@w1@p1@d1"_s, u"c2@w1@p1@d1"_s}));
}

void TestExercise::giudizioEsatto()
{
    StatoEsercizio &e = Esercizio::stato();
    Esercizio::Comincia();
    e.parolaDomanda = u"w"_s;
    e.rispostaAttesa = u"Casa"_s;
    for (const QString &sbagliata : {u"casa"_s, u"Casa "_s, u" Casa"_s, u""_s}) {
        e.attende = true;
        QVERIFY(!Esercizio::ControllaRisposta(sbagliata));
        QVERIFY(!e.attende);
    }
    QVERIFY(Esercizio::ControllaRisposta(u"Casa"_s));
    QCOMPARE(Esercizio::Riepilogo(), u"1 su 5"_s);
    QCOMPARE(stato().LenSbagliate, 1);
    QCOMPARE(stato().ConteggiSbagliate[0], 5);
    Esercizio::Comincia();
    QCOMPARE(Esercizio::Riepilogo(), u"0 su 0"_s);
    e.rispostaAttesa.clear();
    QVERIFY(Esercizio::ControllaRisposta(QString()));
}

void TestExercise::troppeGiuste()
{
    StatoEsercizio &e = Esercizio::stato();
    e.giuste = 32766;
    QVERIFY(Esercizio::ControllaRisposta(e.rispostaAttesa));
    const auto errore = ErroreDi([&] { Esercizio::ControllaRisposta(e.rispostaAttesa); });
    QVERIFY(errore && errore->numero == 6 && errore->termina);
}

void TestExercise::fileSparito()
{
    Riempi(3);
    QVERIFY(QFile::remove(stato().PercorsoDizionario));
    const auto errore = ErroreDi([] { Esercizio::NuovaDomanda(Sorti({0.5, 0.5}), MaiRicominciare); });
    QVERIFY(errore && errore->numero == 53 && errore->termina);
    // A review does not read the file.
    Esercizio::stato().OrdineCasuale = false;
    QVERIFY(Esercizio::NuovaDomanda(Sorti({0.5}), MaiRicominciare));
}

void TestExercise::sessioneRipetuta()
{
    // The same seed and the same answers: the same questions, judgements and list, to the letter.
    const auto sessione = [this] {
        init();
        Riempi(20);
        Caso caso(7);
        StatoEsercizio &e = Esercizio::stato();
        QStringList cronaca;
        Esercizio::Comincia();
        for (int i = 0; i < 300; ++i) {
            Esercizio::NuovaDomanda([&caso] { return caso(); }, MaiRicominciare);
            const bool giusta = Esercizio::ControllaRisposta(i % 3 == 0 ? u"?"_s : e.rispostaAttesa);
            cronaca += e.parolaDomanda + (giusta ? u"+"_s : u"-"_s);
        }
        for (qint32 i = 0; i < stato().LenSbagliate; ++i)
            cronaca += stato().VociSbagliate[static_cast<std::size_t>(i)] +
                       QString::number(stato().ConteggiSbagliate[static_cast<std::size_t>(i)]);
        return cronaca.join(u' ') + Esercizio::Riepilogo();
    };
    const QString prima = sessione();
    QVERIFY(prima.endsWith(u"200 su 300"_s));
    QCOMPARE(sessione(), prima);
}

QTEST_GUILESS_MAIN(TestExercise)
#include "tst_exercise.moc"
