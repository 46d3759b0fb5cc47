// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Errori.h"
#include "core/FileDizionario.h"
#include "core/Module1.h"
#include "tools/Conversione.h"
#include "tools/Inversione.h"
#include "tools/Unione.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
const Avanzamento Avanti = [](qint64 /*fatto*/, qint64 /*totale*/) { return true; };

// The stored lines of rows 0 to the last-row index, a hole as "-".
QStringList Righe()
{
    QStringList righe;
    for (qint32 i = 0; i <= stato().LenDizionario1; ++i) {
        const QString &linea = RigaDi(stato().Dizionario1, i)[2];
        righe += linea.isEmpty() ? u"-"_s : linea;
    }
    return righe;
}

void Tabella1(const QStringList &linee)
{
    Module1::Azzera();
    while (Capacita(stato().Dizionario1) < linee.size())
        Allarga(stato().Dizionario1);
    for (qsizetype i = 0; i < linee.size(); ++i)
        RigaDi(stato().Dizionario1, static_cast<qint32>(i)) = RigaDaLinea(linee[i]);
    stato().LenDizionario1 = static_cast<qint32>(linee.size()) - 1;
}

QString Fai(const QTemporaryDir &cartella, const QString &nome, const QByteArray &byte)
{
    const QString percorso = cartella.filePath(nome);
    return FaiFile(percorso, byte) ? percorso : QString();
}

QByteArray Utf16(const QString &testo)
{
    return {reinterpret_cast<const char *>(testo.utf16()), testo.size() * 2};
}
} // namespace

class TestTools : public QObject
{
    Q_OBJECT

private slots:
    void unisce_data();
    void unisce();
    void unioneComeAdUnaAdUna_data();
    void unioneComeAdUnaAdUna();
    void unioneInterrotta();
    void inverte_data();
    void inverte();
    void scriveInvertito();
    void estrae();
    void controllaCampi_data();
    void controllaCampi();
    void converte_data();
    void converte();
    void leggeTesti_data();
    void leggeTesti();
    void conversioneInterrotta();
};

void TestTools::unisce_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QStringList>("righe");
    const QStringList due = {u"@a@1@\r"_s, u"@b@2@\r"_s, u"-"_s};
    QTest::newRow("vuoto") << QString() << due;
    QTest::newRow("con l'ultima fine di linea")
        << u"@c@3@\r\n@a@1@\r\n"_s << due + QStringList({u"@c@3@\r"_s, u"@a@1@\r"_s, u"-"_s});
    QTest::newRow("senza") << u"@c@3@"_s << due + QStringList(u"@c@3@"_s);
    QTest::newRow("ordine dei byte ovunque, senza @") << u"\ufeffab\ufeffc"_s << due + QStringList(u"abc"_s);
}

void TestTools::unisce()
{
    QFETCH(QString, testo);
    QFETCH(QStringList, righe);
    const QTemporaryDir cartella;
    Tabella1({u"@a@1@\r"_s, u"@b@2@\r"_s, QString()});
    const QString file = Fai(cartella, u"b.dic"_s, Utf16(testo));
    QCOMPARE(UnisciDizionario(file, Avanti), static_cast<qint32>(righe.size()) - 3);
    QCOMPARE(Righe(), righe);
    if (testo.startsWith(u"@c"_s)) {
        QCOMPARE(RigaDi(stato().Dizionario1, 3)[1], u"3"_s);
    }
}

void TestTools::unioneComeAdUnaAdUna_data()
{
    QTest::addColumn<quint32>("seme");
    for (quint32 seme = 0; seme < 30; ++seme)
        QTest::addRow("%u", seme) << seme;
}

void TestTools::unioneComeAdUnaAdUna()
{
    // The plain procedure: room, one row further, the entry there, the lists refilled with the holes closed.
    QFETCH(quint32, seme);
    QRandomGenerator caso(seme);
    const QTemporaryDir cartella;
    QStringList linee;
    for (int i = caso.bounded(1200); i > 0; --i)
        linee += caso.bounded(20) == 0 ? QString() : u"@w%1@p@\r"_s.arg(i);
    QString testo;
    for (int i = caso.bounded(1200); i > 0; --i)
        testo += (caso.bounded(20) == 0 ? u"\0"_s : u"@u%1@q@\r\n"_s.arg(i));
    const QString file = Fai(cartella, u"b.dic"_s, Utf16(testo));
    Tabella1(linee);
    QFile dispositivo(file);
    QVERIFY(dispositivo.open(QIODevice::ReadOnly));
    LettoreDizionario lettore(dispositivo);
    Module1::Stato &s = stato();
    for (QString linea; LeggiLinea(lettore, linea);) {
        if (s.LenDizionario1 == Capacita(s.Dizionario1))
            Allarga(s.Dizionario1);
        RigaDi(s.Dizionario1, ++s.LenDizionario1) = RigaDaLinea(linea);
        ChiudiBuchi(s.Dizionario1, s.LenDizionario1);
    }
    const QStringList attese = Righe();
    const qint32 capacita = Capacita(s.Dizionario1);

    Tabella1(linee);
    UnisciDizionario(file, Avanti);
    ChiudiBuchi(s.Dizionario1, s.LenDizionario1);
    QCOMPARE(Righe(), attese);
    QCOMPARE(Capacita(s.Dizionario1), capacita);
}

void TestTools::unioneInterrotta()
{
    const QTemporaryDir cartella;
    const QStringList due = {u"@a@1@"_s, u"@b@2@"_s};
    Tabella1(due);
    const QString file = Fai(cartella, u"b.dic"_s, Utf16(u"@c@3@\r\n@d@4@\r\n@e@5@\r\n"_s));
    QCOMPARE(UnisciDizionario(file, [](qint64, qint64) { return Righe().size() < 4; }), 2);
    QCOMPARE(Righe(), due + QStringList({u"@c@3@\r"_s, u"@d@4@\r"_s}));
    Tabella1(due);
    QCOMPARE(NumeroErrore([&] { UnisciDizionario(cartella.filePath(u"manca.dic"_s), Avanti); }), 53);
    QCOMPARE(NumeroErrore([&] { UnisciDizionario(cartella.path(), Avanti); }), 75);
    QCOMPARE(NumeroErrore([&] { UnisciDizionario(file, [](qint64, qint64) -> bool { throw ErroreRuntime(57); }); }),
             57);
    QCOMPARE(Righe(), due);
    QVERIFY(RigaDi(stato().Dizionario1, 2)[2].isEmpty());
    // Zeros are an empty line each: no dictionary, and the table is as large as it was.
    const qint32 capacita = Capacita(stato().Dizionario1);
    const QString zeri = Fai(cartella, u"zeri.dic"_s, QByteArray(1 << 20, '\0'));
    QCOMPARE(NumeroErrore([&] { UnisciDizionario(zeri, Avanti); }), 57);
    QCOMPARE(Capacita(stato().Dizionario1), capacita);
}

void TestTools::inverte_data()
{
    QTest::addColumn<QString>("linea");
    QTest::addColumn<QString>("invertita");
    QTest::newRow("commenti e CR") << u"c1@a@b@c2\r"_s << u"c2\r@b@a@c1"_s;
    QTest::newRow("@ nel commento") << u"c1@a@b@x@y"_s << u"x@y@b@a@c1"_s;
    QTest::newRow("campi mancanti") << u"c1@a"_s << u"@@@c1"_s;
    QTest::newRow("senza @") << u"parola"_s << u"@@@"_s;
    QTest::newRow("vuota") << QString() << u"@@@"_s;
}

void TestTools::inverte()
{
    QFETCH(QString, linea);
    QFETCH(QString, invertita);
    QCOMPARE(LineaInvertita(linea), invertita);
    Tabella1({linea, u"@x@y@"_s});
    InvertiInPosto();
    QCOMPARE(Righe(), QStringList({linea.isEmpty() ? u"-"_s : invertita, u"@y@x@"_s}));
    if (linea.startsWith(u"c1@a@b"_s)) {
        // The words are those of the line as it was, also where the new one reads back otherwise.
        QCOMPARE(stato().Dizionario1.righe[0][0], u"b"_s);
        QCOMPARE(stato().Dizionario1.righe[0][1], u"a"_s);
        if (linea.count(u'@') == 3) {
            QCOMPARE(LineaInvertita(invertita), linea);
        }
    }
}

void TestTools::scriveInvertito()
{
    const QTemporaryDir cartella;
    Tabella1({u"c@a@b@"_s, QString(), u"@x@y@\r"_s});
    stato().PercorsoIni = Fai(cartella, u"a.ini"_s, "[Lingue]\nGreco\rItali\xE0no\r\n[X]");
    const QString nuovo = cartella.filePath(u"nuovo.dic"_s);
    ScriviInvertito(nuovo);
    QCOMPARE(ByteDelFile(nuovo), Utf16(u"@b@a@c\r\n@@@\r\n\r@y@x@\r\n"_s));
    QCOMPARE(ByteDelFile(cartella.filePath(u"nuovo.ini"_s)), "[Lingue]\r\nGreco\r\nItali\xE0no\r\n[X]\r\n");
    QCOMPARE(Righe().first(), u"c@a@b@"_s);
    // The open dictionary's own companion is never written over.
    ScriviInvertito(cartella.filePath(u"a.txt"_s));
    QCOMPARE(ByteDelFile(stato().PercorsoIni), "[Lingue]\nGreco\rItali\xE0no\r\n[X]");
    QCOMPARE(PercorsoIniInvertito(u"/x/senza"_s), u"/x/s.ini"_s);
    QCOMPARE(PercorsoIniInvertito(u"/ab"_s), QString());
    QCOMPARE(NumeroErrore([&] { ScriviInvertito(cartella.filePath(u"manca/nuovo.dic"_s)); }), 75);
}

void TestTools::estrae()
{
    qsizetype posizione = 0;
    QCOMPARE(EstraiSegmento(u"a;bc;;d;"_s, posizione, u";"_s), u"a"_s);
    QCOMPARE(EstraiSegmento(u"a;bc;;d;"_s, posizione, u";"_s), u"bc"_s);
    QCOMPARE(EstraiSegmento(u"a;bc;;d;"_s, posizione, u";"_s), QString());
    QCOMPARE(posizione, 6);
    QCOMPARE(EstraiSegmento(u"a;bc;;d;"_s, posizione, u";"_s), QString());
    QCOMPARE(posizione, 6);
    posizione = 0;
    QCOMPARE(EstraiSegmento(u"aaab"_s, posizione, u"aa"_s), QString());
    QCOMPARE(posizione, 2);
    QCOMPARE(EstraiSegmento(u"aXx"_s, posizione, u"x"_s), QString());
    QCOMPARE(posizione, 2);
    posizione = 0;
    QCOMPARE(EstraiSegmento(QString(), posizione, u";"_s), QString());
}

void TestTools::controllaCampi_data()
{
    QTest::addColumn<QStringList>("campi");
    QTest::addColumn<QString>("testo");
    const QString vuoti = u"I campi Lingua1 e Lingua2 non possono essere vuoti!"_s;
    const QString numeri = u"I campi devono contenere valori numerici! (il numero del segmento)"_s;
    const QString troppi = u"Il numero dei campi e quello dei separatori di campo non corrispondono!"_s;
    const QString doppi = u"Non si possono assegnare due campi allo stesso segmento!"_s;
    const auto riga = [](const char *nome, const QStringList &campi, const QString &testo) {
        QTest::newRow(nome) << campi << testo;
    };
    // Separator 0, words 1 and 2, comments 1 and 2.
    riga("bene", {u";"_s, u"1"_s, u"5"_s, u"3"_s, u"0"_s}, {});
    riga("nessun separatore", {{}, {}, {}, {}, {}}, u"Bisogna specificare almeno un separatore (= 2 campi)!"_s);
    riga("parola vuota", {u";"_s, u"x"_s, {}, {}, {}}, vuoti);
    riga("troppo grande prima che numero", {u";"_s, u"6"_s, u"x"_s, {}, {}}, troppi);
    riga("numero che comincia", {u";"_s, u"1a"_s, u"2"_s, {}, {}}, numeri);
    riga("cifre arabe", {u";"_s, u"١"_s, u"2"_s, {}, {}}, numeri);
    riga("commento 1 non numero", {u";"_s, u"1"_s, u"2"_s, u"x"_s, {}}, numeri);
    riga("commento 1 oltre", {u";"_s, u"1"_s, u"2"_s, u"6"_s, {}}, vuoti);
    riga("commento 2 oltre", {u";"_s, u"1"_s, u"2"_s, {}, u"9"_s}, vuoti);
    riga("parole uguali", {u";"_s, u"2"_s, u"2"_s, {}, {}}, doppi);
    riga("parola e commento", {u";"_s, u"1"_s, u"2"_s, {}, u"2"_s}, doppi);
    riga("commenti uguali", {u";"_s, u"1"_s, u"2"_s, u"3"_s, u"3"_s}, doppi);
}

void TestTools::controllaCampi()
{
    QFETCH(QStringList, campi);
    QFETCH(QString, testo);
    const ImpostazioniConversione impostazioni = {.separatori = {campi[0]},
                                                  .lingua1 = campi[1],
                                                  .lingua2 = campi[2],
                                                  .commento1 = campi[3],
                                                  .commento2 = campi[4]};
    const std::optional<Rifiuto> rifiuto = ControllaCampi(impostazioni, 4);
    QCOMPARE(rifiuto ? rifiuto->testo : QString(), testo);
    if (rifiuto) {
        QCOMPARE(rifiuto->titolo, campi[0].isEmpty() ? u"Attenzione"_s : u"Attenzione!"_s);
    }
}

void TestTools::converte_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QStringList>("separatori");
    QTest::addColumn<QString>("campi");
    QTest::addColumn<bool>("trim");
    QTest::addColumn<QStringList>("righe");
    QTest::addColumn<QStringList>("errori");
    const auto riga = [](const char *nome, const QString &testo, const QStringList &separatori, const QString &campi,
                         bool trim, const QStringList &righe, const QStringList &errori = {}) {
        QTest::newRow(nome) << testo << separatori << campi << trim << righe << errori;
    };
    const QString p = u";"_s;
    riga("commento e parole", u"a;b;c"_s, {p, p}, u"231-"_s, false, {u"a@b@c@|b|c"_s});
    riga("pulite le parole, non nella linea", u" x ; b b ; c \n"_s, {p, p}, u"231-"_s, true, {u"x@ b b @ c @|b b|c"_s});
    riga("il commento 2 prende il posto", u"a;b;c"_s, {p, p}, u"12-3"_s, false, {u"c@|a|b"_s});
    riga("righe che non si tagliano", u"a;b\n\na;\n;b\nsolo\nc;d"_s, {p}, u"12--"_s, false,
         {u"@a@b@|a|b"_s, u"@c@d@|c|d"_s}, {u"Riga 3: a;"_s, u"Riga 4: ;b"_s, u"Riga 5: solo"_s});
    riga("due separatori di fila", u"a;;b"_s, {p, p}, u"12--"_s, false, {}, {u"Riga 1: a;;b"_s});
    riga("casella vuota in mezzo", u"a;b;c"_s, {p, {}, p}, u"12--"_s, false, {u"@a@b;c@|a|b;c"_s});
    riga("segmento di un'altra riga", u"a;b"_s, {p}, u"13--"_s, false, {u"@a@@|a|"_s});
    riga("separatori lunghi e diversi", u"a -> b, c=d = e"_s, {u" -> "_s, u", "_s, u" = "_s}, u"1234"_s, false,
         {u"e@|a|b"_s});
}

void TestTools::converte()
{
    QFETCH(QString, testo);
    QFETCH(QStringList, separatori);
    QFETCH(QString, campi);
    QFETCH(bool, trim);
    QFETCH(QStringList, righe);
    QFETCH(QStringList, errori);
    const auto campo = [&campi](int i) { return campi[i] == u'-' ? QString() : QString(campi[i]); };
    ImpostazioniConversione impostazioni = {.separatori = {},
                                            .lingua1 = campo(0),
                                            .lingua2 = campo(1),
                                            .commento1 = campo(2),
                                            .commento2 = campo(3),
                                            .trim = trim};
    std::copy(separatori.begin(), separatori.end(), impostazioni.separatori.begin());
    const QTemporaryDir cartella;
    const QString file = Fai(cartella, u"a.txt"_s, testo.toUtf8());
    // A file without a final line end has left an entry at the last-row index.
    Tabella1({u"@x@y@"_s});
    EsitoConversione esito;
    ConvertiFile(file, impostazioni, Avanti, esito);
    QStringList venute;
    for (qint32 i = 1; i < stato().LenDizionario1; ++i)
        venute += stato().Dizionario1.righe[static_cast<std::size_t>(i)][2] + u'|' +
                  stato().Dizionario1.righe[static_cast<std::size_t>(i)][0] + u'|' +
                  stato().Dizionario1.righe[static_cast<std::size_t>(i)][1];
    QCOMPARE(venute, righe);
    QCOMPARE(esito.voci, static_cast<qint32>(righe.size()));
    QCOMPARE(esito.errori, errori);
    QCOMPARE(stato().Dizionario1.righe[0][2], u"@x@y@"_s);
}

void TestTools::leggeTesti_data()
{
    QTest::addColumn<QByteArray>("byte");
    QTest::addColumn<QStringList>("linee");
    QTest::newRow("vuoto") << QByteArray() << QStringList();
    QTest::newRow("tutte le fini di linea")
        << QByteArray("a\nb\r\nc\rd\r\r\n\n") << QStringList({u"a"_s, u"b"_s, u"c"_s, u"d"_s, {}, {}});
    QTest::newRow("UTF-8 con il segno") << QByteArray("\xEF\xBB\xBFpo\xC3\xACi") << QStringList(u"poìi"_s);
    QTest::newRow("Windows-1252") << QByteArray("\x80po\xECi\n\xC3\xAC") << QStringList({u"€poìi"_s, u"Ã¬"_s});
    QTest::newRow("carattere tagliato alla fine") << QByteArray("a\xC3") << QStringList(u"aÃ"_s);
    QTest::newRow("NUL") << QByteArray("a\0b", 3) << QStringList(u"a b"_s);
    // A CR and a character of two bytes across the border of what is read at once.
    QTest::newRow("CR al confine") << QByteArray(0x3FFFF, 'a') + "\r\nb"
                                   << QStringList({QString(0x3FFFF, u'a'), u"b"_s});
    QTest::newRow("UTF-8 al confine") << QByteArray(0x3FFFF, 'a') + "\xC3\xA0\nb"
                                      << QStringList({QString(0x3FFFF, u'a') + u'à', u"b"_s});
}

void TestTools::leggeTesti()
{
    QFETCH(QByteArray, byte);
    QFETCH(QStringList, linee);
    QBuffer dispositivo(&byte);
    QVERIFY(dispositivo.open(QIODevice::ReadOnly));
    LettoreTesto lettore(dispositivo, Avanti);
    QStringList lette;
    for (QString linea; lettore.Leggi(linea, 0x100000);)
        lette += linea;
    QCOMPARE(lette, linee);
}

void TestTools::conversioneInterrotta()
{
    const QTemporaryDir cartella;
    ImpostazioniConversione impostazioni;
    impostazioni.separatori[0] = u";"_s;
    impostazioni.lingua1 = u"1"_s;
    impostazioni.lingua2 = u"0"_s;
    const QString file = Fai(cartella, u"a.txt"_s, QByteArray("a;b\n").repeated(3000));
    Tabella1({});
    EsitoConversione esito;
    QCOMPARE(NumeroErrore([&] { ConvertiFile(file, impostazioni, Avanti, esito); }), 9);
    QCOMPARE(esito.voci, 0);
    QCOMPARE(NumeroErrore([&] { ConvertiFile(cartella.path(), impostazioni, Avanti, esito); }), 75);

    impostazioni.lingua2 = u"2"_s;
    ConvertiFile(
        file, impostazioni, [&esito](qint64, qint64) { return esito.voci < 2500; }, esito);
    QVERIFY(esito.annullata);
    QCOMPARE(esito.voci, 2500);
    QCOMPARE(stato().LenDizionario1, 2500);
    QVERIFY(Capacita(stato().Dizionario1) > 2500);

    Fai(cartella, u"lunga.txt"_s, QByteArray(50000, 'x') + ";b");
    QCOMPARE(PrimaLinea(cartella.filePath(u"lunga.txt"_s)).size(), 10000);
    Fai(cartella, u"vuoto.txt"_s, QByteArray());
    QCOMPARE(PrimaLinea(cartella.filePath(u"vuoto.txt"_s)), QString());
}

QTEST_APPLESS_MAIN(TestTools)
#include "tst_tools.moc"
