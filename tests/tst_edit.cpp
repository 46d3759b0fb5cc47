// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Errori.h"
#include "core/FileDizionario.h"
#include "core/Module1.h"
#include "core/Riga.h"
#include "edit/Ordinamento.h"
#include "edit/Voci.h"

#include <QRandomGenerator>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
RigaTabella Voce(const QString &parola1, const QString &parola2)
{
    return {parola1, parola2, ComponiRiga({parola1, parola2, {}, {}})};
}

// Rows of the words between blanks, up to `capacita`; "-" for a hole.
Tabella TabellaDi(const QString &parole, qint32 capacita)
{
    Tabella tabella;
    Ridimensiona(tabella, capacita);
    const QStringList lista = parole.split(u' ');
    std::transform(lista.cbegin(), lista.cend(), tabella.righe.begin(),
                   [](const QString &parola) { return parola == u"-" ? RigaTabella() : Voce(parola, parola); });
    return tabella;
}

QString Parole(const Tabella &tabella)
{
    QStringList parole;
    for (const RigaTabella &r : tabella.righe)
        parole += r[2].isEmpty() ? u"-"_s : r[0];
    return parole.join(u' ');
}

// A hole closed row by row.
void RiempiBucoPiano(Tabella &tabella, qint32 r, qint32 &n)
{
    qint32 k = r;
    for (; k <= n; ++k)
        RigaDi(tabella, k) = RigaDi(tabella, k + 1);
    RigaDi(tabella, k) = {};
    --n;
}

// Passes over the whole range, two neighbours exchanged at a time, until one exchanges nothing.
void OrdinaPiano(Tabella &tabella, qint32 n, std::size_t colonna)
{
    const auto chiave = [&](qint32 i) {
        std::u16string testo;
        for (const QChar c : RigaDi(tabella, i)[colonna])
            testo += c.toLower().unicode();
        return testo;
    };
    for (bool scambiate = true; scambiate;) {
        scambiate = false;
        for (qint32 i = 0; i <= n - 2; ++i) {
            if (chiave(i) > chiave(i + 1)) {
                std::swap(RigaDi(tabella, i), RigaDi(tabella, i + 1));
                scambiate = true;
            }
        }
    }
}

// Short texts of a small alphabet, so that equal keys are frequent, some after a long common beginning.
QString ParolaACaso(QRandomGenerator &caso)
{
    static const QString alfabeto = u"aAbBzZéÉàİıςΣ "_s + QChar(0xD801) + QChar(0xDC00) + QChar(u'\1');
    QString parola = caso.bounded(3) == 0 ? u"prefisso lungo comune "_s : u""_s;
    for (int quante = caso.bounded(4); quante > 0; --quante)
        parola += alfabeto[caso.bounded(alfabeto.size())];
    return parola;
}

// Adds an entry as the entry window does: one row left out, the index two further.
void Aggiungi(const RigaTabella &voce)
{
    auto &s = stato();
    for (const bool scrive : {true, false}) {
        if (s.LenDizionario1 >= Capacita(s.Dizionario1))
            Allarga(s.Dizionario1);
        ++s.LenDizionario1;
        if (scrive)
            RigaDi(s.Dizionario1, s.LenDizionario1) = voce;
    }
}

// Loads a file as the viewer does.
void Carica(QByteArray byte)
{
    QBuffer file(&byte);
    file.open(QIODevice::ReadOnly);
    stato().LenDizionario1 = CaricaDizionario(file, stato().Dizionario1);
    OrdinaStringhe(stato().Dizionario1, stato().LenDizionario1);
}

QByteArray Salvato()
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    ScriviDizionario(file, stato().Dizionario1, stato().LenDizionario1);
    return file.data();
}
} // namespace

class tst_edit : public QObject
{
    Q_OBJECT

private slots:
    void init() { Module1::Azzera(); }

    void crescita()
    {
        for (const auto &[prima, dopo] : {std::pair(1, 2), std::pair(2, 3), std::pair(3, 4), std::pair(5, 8),
                                          std::pair(15, 22), std::pair(1000, 1500), std::pair(1431655764, 2147483646)})
            QCOMPARE(CapacitaCresciuta(prima), dopo);
        QCOMPARE(NumeroErrore([] { CapacitaCresciuta(1431655765); }), 6);
        Tabella tabella = TabellaDi(u"a b"_s, 1);
        Allarga(tabella);
        QCOMPARE(Parole(tabella), u"a b -"_s);
        QCOMPARE(NumeroErrore([&] { RigaDi(tabella, 3); }), 9);
        QCOMPARE(NumeroErrore([&] { RigaDi(tabella, -1); }), 9);
    }

    void riempiBuco_data()
    {
        QTest::addColumn<qint32>("r");
        QTest::addColumn<qint32>("n");
        QTest::addColumn<QString>("dopo");
        QTest::newRow("middle") << 1 << 3 << u"a c d e - f"_s;
        QTest::newRow("first") << 0 << 1 << u"b c - d e f"_s;
        QTest::newRow("last") << 3 << 3 << u"a b c e - f"_s;
        QTest::newRow("of the whole table") << 4 << 4 << u"a b c d f -"_s;
        QTest::newRow("below the range") << 4 << 2 << u"a b c d - f"_s;
        QTest::newRow("no row n + 1") << 1 << 5 << u""_s;
        QTest::newRow("negative row") << -1 << 3 << u""_s;
    }

    void riempiBuco()
    {
        QFETCH(qint32, r);
        QFETCH(qint32, n);
        QFETCH(QString, dopo);
        Tabella tabella = TabellaDi(u"a b c d e f"_s, 5);
        const qint32 prima = n;
        QCOMPARE(NumeroErrore([&] { RiempiBuco(tabella, r, n); }), dopo.isEmpty() ? 9 : 0);
        QCOMPARE(n, dopo.isEmpty() ? prima : prima - 1);
        QCOMPARE(Parole(tabella), dopo.isEmpty() ? u"a b c d e f"_s : dopo);
    }

    void aggiungiADizionario1()
    {
        auto &s = stato();
        s.Dizionario2 = TabellaDi(u"a b"_s, 1);
        s.LenDizionario1 = -1;
        Module1::AggiungiADizionario1(0);
        Module1::AggiungiADizionario1(-1);
        QCOMPARE(NumeroErrore([] { Module1::AggiungiADizionario1(2); }), 9);
        QCOMPARE(s.LenDizionario1, 1);
        s.LenDizionario1 = 999;
        Module1::AggiungiADizionario1(0);
        QCOMPARE(Capacita(s.Dizionario1), 1000);
        Module1::AggiungiADizionario1(1);
        QCOMPARE(Capacita(s.Dizionario1), 1500);
        QCOMPARE(s.LenDizionario1, 1001);
        for (const auto &[r, parola] : {std::pair(0, u"a"_s), std::pair(999, u"a"_s), std::pair(1000, u"b"_s)})
            QCOMPARE(RigaDi(s.Dizionario1, r), Voce(parola, parola));
        QCOMPARE(RigaDi(s.Dizionario1, 1001), RigaTabella());
    }

    void dizionario2()
    {
        auto &s = stato();
        s.Dizionario1 = TabellaDi(u"a b c"_s, 1000);
        Ridimensiona(s.Dizionario2, 1);
        for (const qint32 r : {2, 0, 1})
            Module1::AggiungiADizionario2(r);
        QCOMPARE(Parole(s.Dizionario2), u"c a b -"_s);
        QCOMPARE(NumeroErrore([] { Module1::AggiungiADizionario2(1001); }), 9);
        QCOMPARE(NumeroErrore([] { Module1::CancellaDizionario2(1); }), 9);
        QCOMPARE(s.LenDizionario2, 3);
        Module1::AllargaDizionario2();
        QCOMPARE(Capacita(s.Dizionario2), 4);
        Module1::CancellaDizionario2(0);
        Module1::CancellaDizionario2(0);
        QCOMPARE(Parole(s.Dizionario2), u"b - - - -"_s);
        QCOMPARE(s.LenDizionario2, 1);
        QCOMPARE(Module1::LemmaDizionario(2, 0), u"@b@b@"_s);
        QCOMPARE(Module1::LemmaDizionario(1, 4), u""_s);
        for (const auto &[c, r] : {std::pair(3, 0), std::pair(-1, 0), std::pair(0, 5), std::pair(0, -1)})
            QCOMPARE(NumeroErrore([c = c, r = r] { Module1::LemmaDizionario(c, r); }), 9);
    }

    void chiudiBuchiComeUnoPerUno()
    {
        QRandomGenerator caso(11);
        for (int volta = 0; volta < 2000; ++volta) {
            Tabella veloce;
            Ridimensiona(veloce, caso.bounded(12));
            const int buchi = caso.bounded(5);
            for (RigaTabella &r : veloce.righe)
                r = Voce(QString::number(caso.generate()), caso.bounded(4) < buchi ? u"buco"_s : u"voce"_s);
            for (RigaTabella &r : veloce.righe)
                r[2].resize(r[1] == u"buco" ? 0 : r[2].size());
            const qint32 n = caso.bounded(-1, Capacita(veloce) + 1);

            Tabella piana = veloce;
            Ridimensiona(piana, 30);
            qint32 ultima = n;
            for (qint32 i = 0; i <= ultima;) {
                if (RigaDi(piana, i)[2].isEmpty())
                    RiempiBucoPiano(piana, i, ultima);
                else
                    ++i;
            }
            QCOMPARE(ChiudiBuchi(veloce, n), ultima);
            QVERIFY(Capacita(veloce) > n);
            Ridimensiona(veloce, 30);
            QVERIFY(veloce.righe == piana.righe);
        }
        Tabella stretta;
        QCOMPARE(NumeroErrore([&] { ChiudiBuchi(stretta, 1); }), 9);
    }

    void ordina_data()
    {
        QTest::addColumn<QString>("prima");
        QTest::addColumn<qint32>("n");
        QTest::addColumn<QString>("dopo");
        QTest::newRow("n = 0") << u"b a"_s << 0 << u"b a"_s;
        QTest::newRow("n = 1") << u"b a"_s << 1 << u"b a"_s;
        QTest::newRow("the last row stays") << u"c b a"_s << 2 << u"b c a"_s;
        QTest::newRow("n one beyond the table") << u"c b a"_s << 3 << u"a b c"_s;
        QTest::newRow("n two beyond") << u"b a"_s << 4 << u""_s;
        QTest::newRow("whatever the case") << u"abc ABC Zeta alfa Abc x"_s << 5 << u"abc ABC Abc alfa Zeta x"_s;
        QTest::newRow("accents after z") << u"Éa zeta éa Ea x"_s << 4 << u"Ea zeta Éa éa x"_s;
        QTest::newRow("a beginning first")
            << u"prefissi prefisso pref prefiss x"_s << 4 << u"pref prefiss prefissi prefisso x"_s;
        QTest::newRow("unit by unit") << u"\uFF5E 😀 \U00010428 \U00010400 x"_s << 4
                                      << u"\U00010400 \U00010428 😀 \uFF5E x"_s;
    }

    void ordina()
    {
        QFETCH(QString, prima);
        QFETCH(qint32, n);
        QFETCH(QString, dopo);
        Tabella perLingua1 = TabellaDi(prima, static_cast<qint32>(prima.count(u' ')));
        Tabella perLingua2 = perLingua1;
        QCOMPARE(NumeroErrore([&] { OrdinaStringhe(perLingua1, n); }), dopo.isEmpty() ? 9 : 0);
        QCOMPARE(NumeroErrore([&] { OrdinaLista(perLingua2, n, 1); }), dopo.isEmpty() ? 9 : 0);
        QCOMPARE(Parole(perLingua1), dopo.isEmpty() ? prima : dopo);
        QVERIFY(perLingua2.righe == perLingua1.righe);
    }

    void ordinaComeScambi()
    {
        QRandomGenerator caso(3);
        for (int volta = 0; volta < 600; ++volta) {
            Tabella veloce;
            Ridimensiona(veloce, caso.bounded(36));
            const qint32 righe = Capacita(veloce) + 1;
            int numero = 0;
            for (RigaTabella &r : veloce.righe)
                r = {ParolaACaso(caso), ParolaACaso(caso), QString::number(++numero)};
            const qint32 n = caso.bounded(righe + 1);
            const std::size_t colonna = volta % 2 == 0 ? 0 : 1;
            // The usual table was sorted before, then one row or what follows it changed.
            if (volta % 6 > 1)
                OrdinaPiano(veloce, volta % 6 > 3 ? n : caso.bounded(righe + 1), colonna);
            if (volta % 6 > 3)
                RigaDi(veloce, caso.bounded(righe))[colonna] = ParolaACaso(caso);
            Tabella piana = veloce;
            OrdinaPiano(piana, n, colonna);
            if (colonna == 0)
                OrdinaStringhe(veloce, n);
            else
                OrdinaLista(veloce, n, 1);
            QVERIFY2(veloce.righe == piana.righe, QByteArray::number(volta));
        }
    }

    void ordinaDizionario2()
    {
        stato().Dizionario2 = TabellaDi(u"c b a -"_s, 3);
        stato().LenDizionario2 = 3;
        ordinadizionario2(1);
        QCOMPARE(Parole(stato().Dizionario2), u"a b c -"_s);
    }

    void elimina_data()
    {
        QTest::addColumn<qint32>("ultima");
        QTest::addColumn<qint32>("k");
        QTest::addColumn<QString>("eliminata");
        QTest::addColumn<QString>("raccolta");
        QTest::newRow("last row") << 3 << 3 << u"a b c - - -"_s << u"a b c - - -"_s;
        // The last row comes in its place and is sorted in, the new last one keeps its own.
        QTest::newRow("first row") << 3 << 0 << u"b d c - - -"_s << u"b d c - - -"_s;
        // The free row comes in its place, and holes sort first.
        QTest::newRow("free row at the end") << 4 << 1 << u"- a c d - -"_s << u"a c d - - -"_s;
        QTest::newRow("two free rows") << 5 << 3 << u"- a b c - -"_s << u"a b c - - -"_s;
    }

    void elimina()
    {
        QFETCH(qint32, ultima);
        QFETCH(qint32, k);
        auto &s = stato();
        s.Dizionario1 = TabellaDi(u"a b c d"_s, 5);
        s.LenDizionario1 = ultima;
        EliminaVoce(k);
        QTEST(Parole(s.Dizionario1), "eliminata");
        QCOMPARE(RaccogliVoci(), 2);
        QTEST(Parole(s.Dizionario1), "raccolta");
        QCOMPARE(s.LenDizionario1, ultima - 1);
    }

    void eliminaSenzaRiga()
    {
        auto &s = stato();
        s.Dizionario1 = TabellaDi(u"a"_s, 5);
        for (const auto &[ultima, k] : {std::pair(0, -1), std::pair(0, 1), std::pair(-1, 0), std::pair(6, 0)}) {
            s.LenDizionario1 = ultima;
            const auto errore = ErroreDi([k = k] { EliminaVoce(k); });
            QVERIFY(errore && errore->termina);
            QCOMPARE(errore->numero, 9);
            QCOMPARE(s.LenDizionario1, ultima);
            QCOMPARE(Parole(s.Dizionario1), u"a - - - - -"_s);
        }
        s.LenDizionario1 = 0;
        EliminaVoce(0);
        QCOMPARE(RaccogliVoci(), -1);
        Aggiungi(Voce(u"b"_s, u"b"_s));
        QCOMPARE(RaccogliVoci(), 0);
        QCOMPARE(s.LenDizionario1, 1);
    }

    void sessioni_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("pesoEliminare");
        QTest::newRow("growing") << u"@z@z@\r\n"_s << 2;
        QTest::newRow("growing, no final line end") << u"@z@z@"_s << 2;
        QTest::newRow("even") << u"@z@z@\r\n"_s << 5;
        QTest::newRow("shrinking") << u"@z@z@"_s << 9;
        QTest::newRow("from an empty file") << u""_s << 5;
    }

    void sessioni()
    {
        QFETCH(QString, file);
        QFETCH(int, pesoEliminare);
        auto &s = stato();
        Ridimensiona(s.Dizionario1, 3);
        Carica(QByteArray(reinterpret_cast<const char *>(file.utf16()), file.size() * 2));
        // The stored lines that there should be.
        QStringList voci(file.isEmpty() ? 0 : 1, file.remove(u'\n'));
        QRandomGenerator caso(42);
        for (int passo = 0; passo < 1000; ++passo) {
            const auto quante = static_cast<qint32>(voci.size());
            const qint32 k = quante == 0 ? -1 : caso.bounded(5) == 0 ? quante - 1 : caso.bounded(quante);
            const int scelta = caso.bounded(9 + pesoEliminare);
            if (scelta < 5) {
                const RigaTabella nuova = Voce(ParolaACaso(caso), QString::number(caso.bounded(9)));
                voci += nuova[2];
                Aggiungi(nuova);
            } else if (scelta < 7) {
                OrdinaLista(s.Dizionario1, s.LenDizionario1, scelta - 5);
            } else if (scelta == 7) {
                if (caso.bounded(4) == 0) {
                    Carica(Salvato());
                    std::for_each(voci.begin(), voci.end(), [](QString &voce) { voce += u'\r'; });
                }
            } else if (k >= 0) {
                QVERIFY(voci.removeOne(RigaDi(s.Dizionario1, k)[2]));
                if (scelta == 8) {
                    RigaDi(s.Dizionario1, k) = Voce(u"corretta"_s, QString::number(passo));
                    voci += RigaDi(s.Dizionario1, k)[2];
                } else
                    EliminaVoce(k);
            }

            const qint32 ultima = RaccogliVoci();
            QCOMPARE(ultima, static_cast<qint32>(voci.size()) - 1);
            QStringList elencate;
            for (qint32 i = 0; i <= ultima; ++i) {
                elencate += RigaDi(s.Dizionario1, i)[2];
                QCOMPARE(RigaDi(s.Dizionario1, i), RigaDaLinea(elencate.last()));
            }
            elencate.sort();
            voci.sort();
            QCOMPARE(elencate, voci);
        }
    }
};

QTEST_GUILESS_MAIN(tst_edit)
#include "tst_edit.moc"
