// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The dictionary composed on sheets, without a printer: lines of a fixed height.
#include "print/StampaDizionario.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace
{
const Avanzamento Avanti = [](qint64 /*fatto*/, qint64 /*totale*/) { return true; };

// A point is 20 twips high, and so is the font "Alto" twice over.
class SpoolProva : public Spool
{
public:
    struct Pezzo {
        int pagina;
        float x;
        float y;
        QString font;
        QString testo;
    };

    explicit SpoolProva(qint32 largo = 11900, qint32 alto = 16840) : w(largo), h(alto), utile(alto) {}

    [[nodiscard]] qint32 Larghezza() const override { return w; }
    [[nodiscard]] qint32 Altezza() const override { return h; }
    void ImpostaFont(const QString &nome, int punti) override
    {
        font = nome + u' ' + QString::number(punti);
        altezza = static_cast<float>(punti * (nome == u"Alto"_s ? 40 : 20));
    }
    void Stampa(QStringView testo) override
    {
        pezzi += {pagina, CurrentX, CurrentY, font, testo.toString()};
        CurrentX = 0;
        CurrentY += altezza;
    }
    [[nodiscard]] bool Entra() const override { return CurrentY + altezza <= static_cast<float>(utile); }
    void NuovaPagina() override
    {
        ++pagina;
        CurrentX = CurrentY = 0;
    }
    void Fine() override {}
    void Scarta() override {}

    // The rows of all sheets as "c1|c2|c3|c4"; each header is five texts, each row four.
    [[nodiscard]] QStringList Righe() const
    {
        QStringList righe;
        for (qsizetype i = 0; i < pezzi.size();) {
            if (pezzi[i].font == u"Arial 14"_s) {
                i += 5;
                continue;
            }
            QStringList campi;
            for (const Pezzo &pezzo : pezzi.sliced(i, 4))
                campi += pezzo.testo;
            righe += campi.join(u'|');
            i += 4;
        }
        return righe;
    }

    const qint32 w;
    const qint32 h;
    qint32 utile;
    int pagina = 1;
    QString font;
    float altezza = 0;
    QList<Pezzo> pezzi;
};

QByteArray Utf16(const QString &testo)
{
    return {reinterpret_cast<const char *>(testo.utf16()), testo.size() * 2};
}
} // namespace

class TestPrint : public QObject
{
    Q_OBJECT

private slots:
    void colonne_data();
    void colonne();
    void righe_data();
    void righe();
    void pagine_data();
    void pagine();
    void margini();
    void interrotta();
};

void TestPrint::colonne_data()
{
    QTest::addColumn<qint32>("larghezza");
    QTest::addColumn<QList<float>>("posti");
    QTest::newRow("A4") << 11900 << QList<float>{1000, 4458, 6442, 8175};
    QTest::newRow("halves to even, and not rounded") << 12241 << QList<float>{1000, 4600, 6640.5F, 8430.75F};
    QTest::newRow("the other half") << 12243 << QList<float>{1000, 4602, 6641.5F, 8432.25F};
}

void TestPrint::colonne()
{
    QFETCH(const qint32, larghezza);
    QFETCH(const QList<float>, posti);
    ImpostazioniDizionario impostazioni;
    impostazioni.lingua1 = u"italiano"_s;
    impostazioni.lingua2 = u"ελληνικά"_s;
    impostazioni.FontCommento1 = u"Uno"_s;
    impostazioni.FontLingua1 = u"Due"_s;
    impostazioni.FontLingua2 = u"Tre"_s;
    impostazioni.FontCommento2 = u"Alto"_s;
    SpoolProva spool(larghezza);
    QCOMPARE(StampaDizionario(spool, "a@b@c@d\ne@f@g@h", impostazioni, Avanti), 1);
    QCOMPARE(spool.pezzi.size(), 13);
    const QStringList testi = {u"COMMENTO 1"_s, u"ITALIANO"_s, u"ΕΛΛΗΝΙΚΆ"_s, u"COMMENTO 2"_s, u" "_s, u"a"_s, u"b"_s,
                               u"c"_s,          u"d"_s,        u"e"_s,        u"f"_s,          u"g"_s, u"h"_s};
    const QStringList font = {u"Uno 10"_s, u"Due 10"_s, u"Tre 10"_s, u"Alto 10"_s};
    for (qsizetype i = 0; i < testi.size(); ++i) {
        const SpoolProva::Pezzo &pezzo = spool.pezzi[i];
        QCOMPARE(pezzo.testo, testi[i]);
        if (i == 4)
            continue;
        const qsizetype colonna = i < 4 ? i : (i - 5) % 4;
        QCOMPARE(pezzo.x, posti[colonna]);
        QCOMPARE(pezzo.font, i < 4 ? u"Arial 14"_s : font[colonna]);
        // Two lines of the header; then each row as high as the font of comment 2.
        QCOMPARE(pezzo.y, i < 4 ? 0.F : i < 9 ? 560.F : 960.F);
    }
}

void TestPrint::righe_data()
{
    QTest::addColumn<QByteArray>("byte");
    QTest::addColumn<QStringList>("righe");
    const QString niente = u"|||"_s;
    QTest::newRow("empty") << QByteArray() << QStringList();
    QTest::newRow("8 bit, any line end") << QByteArray("a@b@c@d\r\ne@f@g@h@i\rj\nk@l\n\rm@n@o")
                                         << QStringList({u"a|b|c|d"_s, u"e|f|g|h@i"_s, u"j|||"_s, u"k|l||"_s, niente,
                                                         u"m|n|o|"_s});
    QTest::newRow("code page, controls") << QByteArray("\x80@caf\xe9\t@\x81x\x1f@\x7f\n")
                                         << QStringList({u"€|café|x|"_s});
    // The zero byte between CR and LF is a row, and so is the one after LF.
    QTest::newRow("Greek") << Utf16(u"α@λόγος@parola@β\r\n"_s) << QStringList({u"α|λόγος|parola|β"_s, niente, niente});
    QTest::newRow("saved twice, no last end")
        << Utf16(u"α@β@γ@\r\r\nδ"_s) << QStringList({u"α|β|γ|"_s, niente, niente, u"δ|||"_s});
    QTest::newRow("marks") << Utf16(u"\uFEFFa@\u2028b@c@\uFEFF"_s) << QStringList({u"a|b|c|"_s});
    QTest::newRow("a byte of a character divides") << Utf16(u"@хор@coro@"_s) << QStringList({u"|хо||coro@"_s});
    QTest::newRow("a byte of a character ends the row")
        << Utf16(u"@a\u010Db@c@"_s) << QStringList({u"|a||"_s, u"b|c||"_s});
    QTest::newRow("odd count of bytes") << Utf16(u"@a@b@c"_s).chopped(1) << QStringList({u"|a|b|"_s});
}

void TestPrint::righe()
{
    QFETCH(const QByteArray, byte);
    QFETCH(const QStringList, righe);
    SpoolProva spool;
    QCOMPARE(StampaDizionario(spool, byte, {}, Avanti), 1);
    QCOMPARE(spool.Righe(), righe);
}

void TestPrint::pagine_data()
{
    QTest::addColumn<int>("voci");
    QTest::addColumn<int>("fogli");
    QTest::addColumn<int>("sullUltimo");
    // Rows begin at 560 and are 200 high; the row whose top is 2560, the 11th, is the last on a sheet 4560 high.
    QTest::newRow("none") << 0 << 1 << 0;
    QTest::newRow("above the limit") << 10 << 1 << 10;
    QTest::newRow("at the limit, a sheet with the header alone") << 11 << 2 << 0;
    QTest::newRow("many") << 11 * 40 + 3 << 41 << 3;
}

void TestPrint::pagine()
{
    QFETCH(const int, voci);
    QFETCH(const int, fogli);
    QFETCH(const int, sullUltimo);
    SpoolProva spool(11900, 4560);
    QCOMPARE(StampaDizionario(spool, QByteArray("a@b@c@d\r\n").repeated(voci), {}, Avanti), fogli);
    QCOMPARE(spool.pagina, fogli);
    QCOMPARE(spool.Righe().size(), voci);
    const auto nelFoglio = [&spool](int foglio) {
        return std::count_if(spool.pezzi.cbegin(), spool.pezzi.cend(),
                             [foglio](const SpoolProva::Pezzo &pezzo) { return pezzo.pagina == foglio; });
    };
    for (int foglio = 1; foglio < fogli; ++foglio)
        QCOMPARE(nelFoglio(foglio), 5 + 4 * 11);
    QCOMPARE(nelFoglio(fogli), 5 + 4 * sullUltimo);
}

// No row is printed below what the margins leave, and the sheets are counted as they are.
void TestPrint::margini()
{
    SpoolProva spool(11900, 4560);
    spool.utile = 1500;
    QCOMPARE(StampaDizionario(spool, QByteArray("a@b@c@d\r\n").repeated(9), {}, Avanti), 3);
    QVERIFY(std::all_of(spool.pezzi.cbegin(), spool.pezzi.cend(),
                        [](const SpoolProva::Pezzo &pezzo) { return pezzo.y + 200 <= 1500; }));
    QCOMPARE(spool.Righe().size(), 9);
}

void TestPrint::interrotta()
{
    SpoolProva spool;
    int volte = 0;
    const QByteArray byte = QByteArray("a\n").repeated(10000);
    QVERIFY(
        !StampaDizionario(spool, byte, {}, [&](qint64 fatto, qint64 totale) { return fatto < totale && ++volte < 3; }));
    QCOMPARE(spool.pagina, 4);
}

QTEST_APPLESS_MAIN(TestPrint)
#include "tst_print.moc"
