// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Errori.h"
#include "core/FileDizionario.h"
#include "core/FileInPosto.h"
#include "core/FileIni.h"
#include "core/FileVarbel.h"
#include "core/Percorsi.h"
#include "core/Riga.h"
#include "core/Testo8Bit.h"

#include <array>

#include <QRandomGenerator>
#include <QTest>

#include <numeric>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype Blocco = 0x40000;

QString Fixture(const QString &nome)
{
    return QStringLiteral(FIXTURES "/%1.dic").arg(nome);
}

QByteArray ByteUtf16(QStringView testo)
{
    QByteArray byte;
    for (const QChar c : testo)
        byte.append(static_cast<char>(c.cell())).append(static_cast<char>(c.row()));
    return byte;
}

// The format read the plain way: two bytes at a time, zeros past the end.
QStringList LineePiane(const QByteArray &byte)
{
    QStringList linee;
    qsizetype posto = 0;
    for (bool fine = byte.isEmpty(); !fine; posto += 2) {
        QString linea;
        for (bool ritorno = false;; posto += 2) {
            fine = fine || posto + 2 > byte.size();
            const uchar basso = posto < byte.size() ? static_cast<uchar>(byte[posto]) : 0;
            const uchar alto = posto + 1 < byte.size() ? static_cast<uchar>(byte[posto + 1]) : 0;
            ritorno = ritorno || basso == 13;
            if ((basso == 0 && alto == 0) || (ritorno && basso == 10))
                break;
            if (basso != 0xFF || alto != 0xFE)
                linea += QChar(basso, alto);
        }
        linee += linea;
    }
    return linee;
}

QStringList LineeLette(const QByteArray &byte, qint64 quantiPerVolta)
{
    DispositivoGuasto file(byte, QIODevice::ReadOnly, byte.size() + 1, quantiPerVolta);
    LettoreDizionario lettore(file);
    QStringList linee;
    for (QString linea; LeggiLinea(lettore, linea);)
        linee += QStringView(linea).toString();
    return linee;
}

qint32 Carica(QByteArray byte, Tabella &tabella)
{
    QBuffer file(&byte);
    file.open(QIODevice::ReadOnly);
    return CaricaDizionario(file, tabella);
}

QByteArray Salvato(const Tabella &tabella, qint32 ultima)
{
    QBuffer uscita;
    uscita.open(QIODevice::WriteOnly);
    ScriviDizionario(uscita, tabella, ultima);
    return uscita.data();
}

Tabella TabellaDi(const QStringList &linee)
{
    Tabella tabella;
    Ridimensiona(tabella, static_cast<qint32>(linee.size()) - 1);
    std::transform(linee.cbegin(), linee.cend(), tabella.righe.begin(), RigaDaLinea);
    return tabella;
}

// Its file is longer than a block.
Tabella TabellaGrande()
{
    return TabellaDi(QStringList(10000, u"@parola@word@una nota"_s));
}

QByteArray IniCon(const QByteArray &altro)
{
    return "[Lingue]\r\nInglese\r\nItaliano\r\n" + altro;
}
} // namespace

class tst_core : public QObject
{
    Q_OBJECT

private slots:
    void scomponiRiga_data()
    {
        QTest::addColumn<QString>("linea");
        QTest::addColumn<QString>("campi"); // lingua1, lingua2, commento1, commento2; "=" is left as given
        QTest::newRow("four fields") << u"c1@uno@one@c2\r"_s << u"uno|one|c1|c2\r"_s;
        QTest::newRow("@ in comment 2") << u"c1@uno@one@a@b@"_s << u"uno|one|c1|a@b@"_s;
        QTest::newRow("empty fields") << u"@@@"_s << u"|||"_s;
        QTest::newRow("no separator") << u"uno"_s << u"=|=|=|="_s;
        QTest::newRow("one separator") << u"@uno"_s << u"=|=||="_s;
        QTest::newRow("two separators") << u"c1@uno@one"_s << u"uno|=|c1|="_s;
    }

    void scomponiRiga()
    {
        QFETCH(QString, linea);
        QFETCH(QString, campi);
        riga r{u"="_s, u"="_s, u"="_s, u"="_s};
        ScomponiRiga(linea, r.lingua1, r.lingua2, r.commento1, r.commento2);
        QCOMPARE((QStringList{r.lingua1, r.lingua2, r.commento1, r.commento2}.join(u'|')), campi);
        if (!campi.contains(u'='))
            QCOMPARE(ComponiRiga(r), linea);
    }

    void paginaDiCodici()
    {
        QByteArray tutti(256, Qt::Uninitialized);
        std::iota(tutti.begin(), tutti.end(), '\0');
        for (int codice = 0; codice < 256; ++codice)
            QCOMPARE(Testo8Bit::Codice(Testo8Bit::Carattere(static_cast<quint8>(codice))), codice);
        const QString testo = Testo8Bit::Leggi(tutti);
        QCOMPARE(testo.first(0x80), QString::fromLatin1(tutti.first(0x80)));
        QCOMPARE(testo.sliced(0x80, 0x20), u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ"_s);
        QCOMPARE(testo.sliced(0xA0), QString::fromLatin1(tutti.sliced(0xA0)));
        QCOMPARE(Testo8Bit::Scrivi(testo), tutti);
        QCOMPARE(Testo8Bit::Codice(u'\u0080'), -1);
    }

    void testo8Bit_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("siScriveCosi");
        QTest::newRow("empty") << QByteArray() << u""_s << true;
        QTest::newRow("code page") << QByteArray("citt\xE0 \x80") << u"città €"_s << true;
        QTest::newRow("UTF-8 that fits the code page") << QByteArray("citt\xC3\xA0") << u"città"_s << false;
        QTest::newRow("UTF-8") << QByteArray("\xC3\xA0\xCE\xBB\xE2\x82\xAC\xF0\x9F\x98\x80") << u"àλ€😀"_s << true;
        QTest::newRow("one byte not UTF-8") << QByteArray("\xCE\xBB\xCF\x8C\xE0") << u"Î»ÏŒà"_s << true;
        QTest::newRow("would read back as UTF-8") << QByteArray("\xC3\x83\xC2\xA9") << u"Ã©"_s << true;
        QTest::newRow("would read back as a mark") << QByteArray("\xC3\xAF\xC2\xBB\xC2\xBF") << u"ï»¿"_s << true;
        QTest::newRow("leading mark") << QByteArray("\xEF\xBB\xBF[Lingue]") << u"[Lingue]"_s << false;
        QTest::newRow("cut UTF-8") << QByteArray("a\xC3") << u"aÃ"_s << true;
        QTest::newRow("overlong UTF-8") << QByteArray("\xC0\xAF") << u"À¯"_s << true;
        QTest::newRow("surrogate in UTF-8") << QByteArray("\xED\xA0\x80") << u"í\u00A0€"_s << true;
    }

    void testo8Bit()
    {
        QFETCH(QByteArray, byte);
        QFETCH(QString, testo);
        QTEST(Testo8Bit::Scrivi(testo) == byte, "siScriveCosi");
        QCOMPARE(Testo8Bit::Leggi(byte), testo);
        QCOMPARE(Testo8Bit::Leggi(Testo8Bit::Scrivi(testo)), testo);
    }

    void lineeDiTesto()
    {
        QCOMPARE(Testo8Bit::Linee(u"a\r\nb\nc\rd"_s), (QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
        QCOMPARE(Testo8Bit::Linee(u"\n\r\n\r\r"_s), QStringList(4, u""_s));
        QCOMPARE(Testo8Bit::Linee(u""_s), QStringList());
        QCOMPARE(Testo8Bit::Unisci({u" a "_s, u""_s}), u" a \r\n\r\n"_s);
    }

    void fileDizionario_data()
    {
        QTest::addColumn<QStringList>("linee");
        QTest::newRow("normale") << QStringList{u"s@casa@house@n\r"_s, u"@città@λόγος@a@b\r"_s, u"@@@\r"_s, u""_s};
        QTest::newRow("senza-ultima-fine-riga") << QStringList{u"s@casa@house@n\r"_s, u"@re@king@"_s};
        QTest::newRow("marche-ordine-byte") << QStringList{u"s@casa@house@n\r"_s, u"@re@king@\r"_s, u""_s};
        QTest::newRow("vuoto") << QStringList();
        QTest::newRow("un-solo-byte") << QStringList{u"A"_s};
        QTest::newRow("byte-dispari-nel-testo") << QStringList{u"@re@king@\r"_s, u"x"_s};
        QTest::newRow("byte-dispari-cr") << QStringList{u"@re@king@\r"_s};
        QTest::newRow("byte-dispari-lf-dopo-cr") << QStringList{u"@re@king@\r"_s};
        QTest::newRow("byte-dispari-zero") << QStringList{u"@re@king@\r"_s, u""_s};
        QTest::newRow("solo-fini-riga") << QStringList{u"\r"_s, u"\r"_s, u""_s};
        QTest::newRow("zero-nel-mezzo") << QStringList{u"@re@ki"_s, u"ng@\r"_s, u"@due@two@\r"_s, u""_s};
        QTest::newRow("u010d-poi-u010a") << QStringList{u"@če@x"_s, u"y@z@\r"_s, u""_s};
        QTest::newRow("lf-e-cr-da-soli") << QStringList{u"@a\nb@c@\rd\r"_s, u""_s};
        static constexpr std::array<char16_t, 9> soli = {0xD800, u'@', 0xDC00, u'@', u'x', 0xDFFF, u'@', 0xD83D, u'\r'};
        QTest::newRow("surrogati-soli") << QStringList{QString::fromUtf16(soli.data(), soli.size()), u""_s};
    }

    void fileDizionario()
    {
        QFETCH(QStringList, linee);
        Tabella tabella = TabellaDi(QStringList(7, u"c@una@riga@di prima"_s));
        const QString file = Fixture(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(LineeLette(ByteDelFile(file), 3), linee);
        const qint32 ultima = CaricaDizionario(file, tabella);
        QCOMPARE(ultima, std::max(static_cast<qint32>(linee.size()) - 1, 0));
        QByteArray attesi;
        linee.resize(7);
        for (qint32 i = 0; i < 7; ++i) {
            riga voce;
            ScomponiRiga(linee[i], voce.lingua1, voce.lingua2, voce.commento1, voce.commento2);
            QCOMPARE(RigaDi(tabella, i), (RigaTabella{voce.lingua1, voce.lingua2, linee[i]}));
            if (!linee[i].isEmpty())
                attesi += ByteUtf16(linee[i] + u"\r\n"_s);
        }
        QCOMPARE(Capacita(tabella), 6);
        QCOMPARE(Salvato(tabella, ultima), attesi);
    }

    void unCrPerSalvataggio()
    {
        QTemporaryDir cartella;
        const QString file = cartella.filePath(u"d.dic"_s);
        QVERIFY(QFile::copy(Fixture(u"normale"_s), file));
        for (const QString &salvato : {u"normale-salvato-una-volta"_s, u"normale-salvato-due-volte"_s}) {
            Tabella tabella;
            SalvaDizionario(file, tabella, CaricaDizionario(file, tabella));
            QCOMPARE(ByteDelFile(file), ByteDelFile(Fixture(salvato)));
        }
        // Of the longer file that stood there nothing is left.
        SalvaDizionario(file, TabellaDi({u""_s, u"@a@b@"_s}), 1);
        QCOMPARE(ByteDelFile(file), ByteUtf16(u"@a@b@\r\n"));
        QCOMPARE(NumeroErrore([] { Salvato(TabellaDi({u"@a@b@"_s}), 1); }), 9);
    }

    void crescitaRaddoppiando_data()
    {
        QTest::addColumn<int>("voci");
        QTest::addColumn<bool>("ultimaFineRiga");
        QTest::addColumn<int>("capacita");
        QTest::newRow("998") << 998 << true << 1000;
        QTest::newRow("999") << 999 << true << 1000;
        QTest::newRow("1000") << 1000 << true << 2000;
        QTest::newRow("1000, no final line end") << 1000 << false << 1000;
        QTest::newRow("1001, no final line end") << 1001 << false << 2000;
        QTest::newRow("2001") << 2001 << true << 4000;
    }

    void crescitaRaddoppiando()
    {
        QFETCH(int, voci);
        QFETCH(bool, ultimaFineRiga);
        QByteArray byte = ByteUtf16(u"@a@b@\r\n").repeated(voci);
        byte.chop(ultimaFineRiga ? 0 : 4);
        Tabella tabella;
        Ridimensiona(tabella, 1000);
        QCOMPARE(Carica(byte, tabella), ultimaFineRiga ? voci : voci - 1);
        QTEST(Capacita(tabella), "capacita");
        QCOMPARE(RigaDi(tabella, voci - 1)[1], u"b"_s);
        QVERIFY(RigaDi(tabella, voci)[2].isEmpty());
    }

    void confineDiBlocco_data()
    {
        QTest::addColumn<QString>("sequenza");
        QTest::newRow("CR LF") << u"\r\nb@c@d"_s;
        QTest::newRow("CR, far from its LF") << u"\rxy\nb"_s;
        QTest::newRow("mark between CR and LF") << u"\r\uFEFF\nb"_s;
        QTest::newRow("zero unit") << u"a\0b"_s;
        QTest::newRow("end of file") << u""_s;
    }

    void confineDiBlocco()
    {
        QFETCH(QString, sequenza);
        for (qsizetype prima = Blocco / 2 - 5; prima <= Blocco / 2 + 1; ++prima) {
            const QByteArray byte = ByteUtf16(QString(prima, u'w') + sequenza);
            QVERIFY2(LineeLette(byte, 1 << 30) == LineePiane(byte), QByteArray::number(prima));
            QVERIFY2(LineeLette(byte + 'z', 1 << 30) == LineePiane(byte + 'z'), QByteArray::number(prima));
        }
    }

    void lettoreComeQuelloPiano_data()
    {
        QTest::addColumn<QList<char16_t>>("alfabeto");
        QTest::addColumn<qsizetype>("dimensione");
        const QList<char16_t> brutti = {u'a',   u'@',   u'\r',  u'\n',  0,      0xFEFF,
                                        0xFFFE, 0x010D, 0x010A, 0x0D00, 0x0A0A, 0xD83D};
        for (const qsizetype n : {qsizetype(1), qsizetype(77), Blocco - 1, Blocco, Blocco + 1, 2 * Blocco})
            QTest::addRow("units that matter, %d bytes", static_cast<int>(n)) << brutti << n;
        QTest::newRow("any bytes, 1 MB") << QList<char16_t>() << qsizetype(1024 * 1024);
        QTest::newRow("any bytes, 1 MB and one") << QList<char16_t>() << qsizetype(1024 * 1024 + 1);
    }

    void lettoreComeQuelloPiano()
    {
        QFETCH(QList<char16_t>, alfabeto);
        QFETCH(qsizetype, dimensione);
        QRandomGenerator caso(20260);
        for (int volta = 0; volta < (dimensione < 100 ? 300 : 1); ++volta) {
            QByteArray byte;
            while (byte.size() < dimensione) {
                const QChar unita(alfabeto.isEmpty() ? static_cast<char16_t>(caso.bounded(0x10000U))
                                                     : alfabeto[caso.bounded(alfabeto.size())]);
                byte += ByteUtf16(QStringView(&unita, 1));
            }
            byte.resize(dimensione);
            const QStringList attese = LineePiane(byte);
            // In short reads of an odd length the units lie across the pieces.
            QVERIFY(LineeLette(byte, dimensione < 100 ? 3 : 70001) == attese);
            Tabella tabella;
            QCOMPARE(Carica(byte, tabella), static_cast<qint32>(attese.size()) - 1);
            QVERIFY(std::equal(attese.cbegin(), attese.cend(), tabella.righe.cbegin(),
                               [](const QString &linea, const RigaTabella &r) { return r[2] == linea; }));
        }
    }

    void lineaLunghissima()
    {
        const QString lunga = u"c@"_s + QString(5 * 1024 * 1024 + 3, u'x') + u"@y@z\r"_s;
        QTemporaryDir cartella;
        const QString file = cartella.filePath(u"lunga.dic"_s);
        QVERIFY(FaiFile(file, ByteUtf16(u"@a@b@\r\n"_s + lunga + u"\n@c@d@"_s)));
        Tabella tabella;
        QCOMPARE(CaricaDizionario(file, tabella), 2);
        QVERIFY(RigaDi(tabella, 1)[2] == lunga);
        QCOMPARE(RigaDi(tabella, 1)[1], u"y"_s);
        SalvaDizionario(file, tabella, 2);
        QVERIFY(ByteDelFile(file) == ByteUtf16(u"@a@b@\r\r\n"_s + lunga + u"\r\n@c@d@\r\n"_s));
    }

    void dispositivoCheSiGuasta()
    {
        const Tabella grande = TabellaGrande();
        const qint32 ultima = Capacita(grande);
        const QByteArray byte = Salvato(grande, ultima);
        QVERIFY(byte.size() > Blocco);
        for (const qsizetype buoni : {qsizetype(0), qsizetype(1), Blocco, Blocco + 7, byte.size() - 1}) {
            DispositivoGuasto uscita({}, QIODevice::WriteOnly, buoni);
            DispositivoGuasto entrata(byte, QIODevice::ReadOnly, buoni);
            Tabella letta;
            for (const auto &errore : {ErroreDi([&] { ScriviDizionario(uscita, grande, ultima); }),
                                       ErroreDi([&] { CaricaDizionario(entrata, letta); })}) {
                QVERIFY(errore && !errore->termina);
                QCOMPARE(errore->numero, 57);
                QCOMPARE(errore->testo, u"guasto"_s);
            }
        }
        DispositivoGuasto aPezzi({}, QIODevice::WriteOnly, byte.size(), 1001);
        ScriviDizionario(aPezzi, grande, ultima);
        QVERIFY(aPezzi.data() == byte);
    }

    void fileCheNonSiApre()
    {
#ifdef Q_OS_UNIX
        const CartellaProva cartella;
        const QString vecchio = cartella.chiusa + u"/vecchio.dic"_s;
        const QString segreto = cartella.aperta + u"/segreto.dic"_s;
        const Tabella tabella = TabellaDi({u"@a@b@"_s});
        Tabella letta = tabella;
        QVERIFY(FaiFile(vecchio, "vecchio") && QFile::setPermissions(vecchio, Leggere));
        QVERIFY(FaiFile(segreto, "vecchio") && QFile::setPermissions(segreto, {}));
        cartella.Chiudi();
        {
            const SenzaPrivilegi ora;
            QVERIFY(ora.riuscito);
            for (const QString &file :
                 {cartella.aperta + u"/manca/d.dic"_s, cartella.aperta, cartella.chiusa + u"/nuovo.dic"_s, vecchio}) {
                const auto errore = ErroreDi([&] { SalvaDizionario(file, tabella, 0); });
                QVERIFY2(errore, qPrintable(file));
                QCOMPARE(errore->numero, 75);
                QVERIFY(!errore->testo.isEmpty() && !errore->termina);
            }
            QCOMPARE(NumeroErrore([&] { CaricaDizionario(cartella.aperta + u"/manca.dic"_s, letta); }), 53);
            QCOMPARE(NumeroErrore([&] { CaricaDizionario(cartella.aperta, letta); }), 75);
            QCOMPARE(NumeroErrore([&] { CaricaDizionario(segreto, letta); }), 70);
        }
        QVERIFY(letta.righe == tabella.righe);
        QVERIFY(QFileInfo(cartella.aperta).isDir());
        QCOMPARE(ByteDelFile(vecchio), "vecchio");
#else
        QSKIP("file permissions of another kind");
#endif
    }

    void discoPieno()
    {
#ifdef Q_OS_UNIX
        QTemporaryDir cartella;
        const Tabella grande = TabellaGrande();
        for (const rlim_t limite : {0U, 4096U, 300000U}) {
            const DiscoPieno ora(limite);
            const auto errore =
                ErroreDi([&] { SalvaDizionario(cartella.filePath(u"d.dic"_s), grande, Capacita(grande)); });
            QVERIFY(errore);
            QCOMPARE(errore->testo, qt_error_string(EFBIG));
        }
        QFile pieno(u"/dev/full"_s);
        if (!pieno.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            QSKIP("no device that is always full");
        QCOMPARE(NumeroErrore([&] { ScriviDizionario(pieno, grande, 0); }), 61);
#else
        QSKIP("no limit of file sizes");
#endif
    }

    void iniScritto()
    {
        ImpostazioniDizionario i;
        i.lingua1 = u"Inglese"_s;
        i.lingua2 = u"Portoghês"_s;
        i.FontLingua2 = u"Courier New"_s;
        i.FontCommento1 = u""_s;
        i.TastiRapidi = {TastoRapido{224, 65, 0, 1}, TastoRapido{}, TastoRapido{-1, 32767, 1, 0},
                         TastoRapido{9, 9, 9, 9}};
        i.NumTastiRapidi = 3;
        i.PercentualeErrori = 0.5F;
        i.Beep = -7;
        i.Tastiera = u"0416"_s;
        QCOMPARE(ScriviIni(i), "[Lingue]\r\nInglese\r\nPortogh\xEAs\r\n[Fonts]\r\nArial\r\nCourier New\r\n\r\nArial\r\n"
                               "[Tasti]\r\n224@65@0@1\r\n-1@32767@1@0\r\n[Errori]\r\nPercentuale=50\r\n"
                               "[Beep]\r\nAttivato=-7\r\n[Tastiera]\r\nTastiera=0416\r\n");
        i.lingua1 = u"Ελληνικά"_s;
        i.Tastiera.clear();
        QVERIFY(ScriviIni(i).startsWith(u"[Lingue]\r\nΕλληνικά\r\nPortoghês\r\n"_s.toUtf8()));
        QVERIFY(ScriviIni(i).endsWith("[Tastiera]\r\nTastiera=0000\r\n"));
        for (const auto &[frazione, scritta] : {std::pair(0.005F, "=0\r"), std::pair(0.125F, "=12\r"),
                                                std::pair(0.375F, "=38\r"), std::pair(1.0F, "=100\r")}) {
            i.PercentualeErrori = frazione;
            QVERIFY2(ScriviIni(i).contains(QByteArray("Percentuale") + scritta), scritta);
        }
    }

    void iniRiletto()
    {
        QTemporaryDir cartella;
        const QString file = cartella.filePath(u"d.ini"_s);
        for (qint16 giro = 0; giro <= 100; ++giro) {
            ImpostazioniDizionario i;
            i.lingua1 = giro % 2 != 0 ? u"Ελληνικά"_s : u"Español"_s;
            i.lingua2 = u"[strana] = \"a@b\""_s;
            i.FontCommento2 = u"ＭＳ 明朝"_s.left(giro % 6);
            i.NumTastiRapidi = static_cast<qint16>(giro % (MassimoTastiRapidi + 1));
            std::fill_n(i.TastiRapidi.begin(), i.NumTastiRapidi, TastoRapido{233, giro, 0, 1});
            i.PercentualeErrori = static_cast<float>(giro) / 100;
            i.Beep = giro - 50;
            i.Tastiera = giro % 3 != 0 ? u"0809"_s : u""_s;
            ScriviInPosto(file, ScriviIni(i));
            const ImpostazioniDizionario l = LeggiFileIni(file);
            QCOMPARE((QStringList{l.lingua1, l.lingua2, l.FontLingua1, l.FontCommento2, l.Tastiera}),
                     (QStringList{i.lingua1, i.lingua2, u"Arial"_s, i.FontCommento2, i.Tastiera}));
            QCOMPARE(l.NumTastiRapidi, i.NumTastiRapidi);
            QVERIFY(l.TastiRapidi == i.TastiRapidi);
            QCOMPARE(l.PercentualeErrori, i.PercentualeErrori);
            QCOMPARE(l.Beep, i.Beep);
        }
        QCOMPARE(NumeroErrore([&] { LeggiFileIni(cartella.filePath(u"manca.ini"_s)); }), 53);
        QCOMPARE(NumeroErrore([&] { LeggiFileIni(cartella.path()); }), 75);
    }

    void iniSezioni()
    {
        const auto testi = [](const QByteArray &byte) {
            const ImpostazioniDizionario l = LeggiIni(byte);
            return QStringList{l.lingua1, l.lingua2, l.FontLingua1, l.FontLingua2, l.FontCommento1, l.FontCommento2}
                .join(u'|');
        };
        QCOMPARE(testi(""), u"||Arial|Arial|Arial|Arial"_s);
        QCOMPARE(testi("x\n[Fonts]\n1\n2\n3\n4\n5\n[Lingue]\n \nB\nC\n"), u" |B|1|2|3|4"_s);
        QCOMPARE(testi(" [Fonts]\n1\n[lingue]\nA\n[Fonts] \n2\n"), u"||Arial|Arial|Arial|Arial"_s);
    }

    void iniTasti_data()
    {
        QTest::addColumn<QByteArray>("tasti");
        QTest::addColumn<int>("righe");
        QTest::addColumn<int>("errore");
        QTest::newRow("16-bit numbers") << QByteArray("1@2@0@1\r\n-32768@32767@1@0\r\n") << 2 << 0;
        QTest::newRow("ended by any [") << QByteArray("1@2@0@1\r\nx[\r\n7@7\r\n") << 1 << 0;
        QTest::newRow("20 rows") << QByteArray("1@2@0@1\r\n").repeated(20) << 20 << 0;
        QTest::newRow("21 rows") << QByteArray("1@2@0@1\r\n").repeated(21) << 0 << 9;
        QTest::newRow("three numbers") << QByteArray("1@2@0\r\n") << 0 << 13;
        QTest::newRow("five numbers") << QByteArray("1@2@0@1@5\r\n") << 0 << 13;
        QTest::newRow("beyond 16 bits") << QByteArray("1@40000@0@1\r\n") << 0 << 13;
        QTest::newRow("letters") << QByteArray("1@A@0@1\r\n") << 0 << 13;
        QTest::newRow("empty line") << QByteArray("1@2@0@1\r\n\r\n") << 0 << 13;
    }

    void iniTasti()
    {
        QFETCH(QByteArray, tasti);
        ImpostazioniDizionario l;
        QTEST(NumeroErrore([&] { l = LeggiIni(IniCon("[Tasti]\r\n" + tasti + "[Errori]\r\nPercentuale=30")); }),
              "errore");
        QTEST(static_cast<int>(l.NumTastiRapidi), "righe");
        QCOMPARE(l.TastiRapidi[0], (l.NumTastiRapidi > 0 ? TastoRapido{1, 2, 0, 1} : TastoRapido{}));
    }

    void iniValori_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<QString>("valori"); // percentage, beep, layout
        QTest::newRow("none") << QByteArray("[Tastiera]\n[Errori]\nAltro=1\n") << u"30 1 0410"_s;
        QTest::newRow("off") << QByteArray("[Errori]\nPercentuale=0\n[Beep]\nAttivato=0\n[Tastiera]\nTastiera=0000")
                             << u"0 0 "_s;
        QTest::newRow("case, blanks") << QByteArray("[ERRORI]\n percentuale = 40 \n[beep]\nATTIVATO=2\n")
                                      << u"40 2 0410"_s;
        QTest::newRow("quotes") << QByteArray("[Errori]\nPercentuale=\"40\"\n[Tastiera]\nTastiera='0409'\n")
                                << u"40 1 0409"_s;
        QTest::newRow("five characters") << QByteArray("[Tastiera]\nTastiera=04091\n") << u"30 1 0409"_s;
        QTest::newRow("blanks in quotes") << QByteArray("[Tastiera]\nTastiera=\" 409\"\n") << u"30 1 409"_s;
        QTest::newRow("eight characters") << QByteArray("[Tastiera]\nTastiera=00000409\n") << u"30 1 "_s;
        QTest::newRow("first key") << QByteArray("[Errori]\nPercentuale=1\nPercentuale=2\n") << u"1 1 0410"_s;
        QTest::newRow("first section") << QByteArray("[Errori]\nx=1\n[Beep]\n[Errori]\nPercentuale=2\n")
                                       << u"30 1 0410"_s;
        QTest::newRow("of another section")
            << QByteArray("Attivato=2\n[Beep]\nPercentuale=2\nTastiera=1234\n") << u"30 1 0410"_s;
        QTest::newRow("more than a number")
            << QByteArray("[Errori]\nPercentuale=15%\n[Beep]\nAttivato=si\n") << u"15 0 0410"_s;
    }

    void iniValori()
    {
        QFETCH(QByteArray, byte);
        const ImpostazioniDizionario l = LeggiIni(IniCon(byte));
        QTEST(u"%1 %2 %3"_s.arg(l.PercentualeErrori * 100.0F, 0, 'f', 0).arg(l.Beep).arg(l.Tastiera), "valori");
    }

    void varbelLetto_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("letto"); // recent list, folder
        QTest::newRow("as written") << u"[Directory]|/d|[Recenti]|/a|/b|/c|/e|[Lingue]|x|[Font]|12"_s
                                    << u"/a|/b|/c|/e|/d"_s;
        QTest::newRow("four blanks") << u"[Directory]||[Recenti]| | | | |[Lingue]|x|[Font]|12"_s << u" | | | |"_s;
        QTest::newRow("fewer than four") << u"[Directory]|/d|[Recenti]|/a|[Lingue]|x|[Font]|12"_s
                                         << u"/a|[Lingue]|||/d"_s;
        QTest::newRow("folder header among them")
            << u"[Recenti]|/a|[Directory]|/d|[Font]|12"_s << u"/a|[Directory]|||/d"_s;
        QTest::newRow("[Font] among them") << u"[Recenti]|/a|[Font]|12|/b|/c"_s << u"/a|[Font]|12|/b|"_s;
        QTest::newRow("header as folder") << u"[Directory]|[Font]|12"_s << u"||||[Font]"_s;
        QTest::newRow("exact headers") << u"[recenti]|/x|[Recenti] |[Recenti]| /a|/b|/c|/e|/f|[Font]|12"_s
                                       << u" /a|/b|/c|/e|"_s;
    }

    void varbelLetto()
    {
        QFETCH(QString, file);
        const ImpostazioniVarbel l = LeggiVarbel(file.split(u'|'));
        QTEST((QStringList(l.recenti.cbegin(), l.recenti.cend()) << l.cartella).join(u'|'), "letto");
        QCOMPARE(l.dimensioneFont, 12);
    }

    void varbelFont()
    {
        const auto dimensione = [](const QString &linea) {
            return LeggiVarbel({u"[Font]"_s, linea, u"altro"_s}).dimensioneFont.value_or(-1);
        };
        QCOMPARE(dimensione(u" 14 "_s), 14);
        QCOMPARE(dimensione(u"10.5"_s), 10);
        for (const QString &linea : {u""_s, u"dieci"_s, u"10pt"_s, u"nan"_s})
            QCOMPARE(NumeroErrore([&] { dimensione(linea); }), 13);
        QCOMPARE(NumeroErrore([&] { dimensione(u"2147483648"_s); }), 6);
        QVERIFY(!LeggiVarbel({u"[Font]"_s}).dimensioneFont);
    }

    void recenti()
    {
        Recenti lista = {u"a"_s, u"b"_s, u"c"_s, u"d"_s};
        for (const auto &[chiuso, dopo] :
             {std::pair(u"c"_s, u"cabd"_s), std::pair(u"c"_s, u"cabd"_s), std::pair(u"C"_s, u"Ccab"_s),
              std::pair(u""_s, u"Ccab"_s), std::pair(u"b"_s, u"bCca"_s), std::pair(u"e"_s, u"ebCc"_s)}) {
            AggiornaRecenti(lista, chiuso);
            QCOMPARE(QStringList(lista.cbegin(), lista.cend()).join(u""_s), dopo);
        }
    }

    void varbelRiscritto_data()
    {
        QTest::addColumn<QString>("prima");
        QTest::addColumn<QString>("dopo");
        QTest::newRow("as written") << u"[Directory]|/d|[Recenti]|/1|/2|/3|/4|[Lingue]|x|y|[Font]|10"_s
                                    << u"[Directory]|/D|[Recenti]|/a|/b|[Lingue]|x|y|[Font]|20"_s;
        QTest::newRow("all after [Font]") << u"x|[Font]|10|y||[Font]"_s << u"x|[Font]|20|20|20|20"_s;
        QTest::newRow("[Lingue] alone twice") << u"[Lingue]|x|[Lingue]"_s << u"[Lingue]|[Lingue]|x|[Lingue]|[Lingue]"_s;
        QTest::newRow("[Directory] after the recent")
            << u"[Recenti]|/1|[Directory]|/d|z"_s << u"[Recenti]|/a|/b|/D|z"_s;
        QTest::newRow("[Font] after the recent")
            << u"[Recenti]|/1|[Font]|10|[Lingue]|x"_s << u"[Recenti]|/a|/b|[Lingue]|20"_s;
        QTest::newRow("[Recenti] last") << u"x|[Recenti]"_s << u"x|[Recenti]"_s;
        QTest::newRow("[Recenti] without lines") << u"[Recenti]|[Lingue]"_s << u"[Recenti]|/a|/b|[Lingue]"_s;
    }

    void varbelRiscritto()
    {
        QFETCH(QString, prima);
        QTEST(RiscriviVarbel(prima.split(u'|'), {u"/a"_s, u""_s, u"/b"_s, u""_s}, u"/D"_s, 20).join(u'|'), "dopo");
    }

    void cinquantaChiusure()
    {
        const QByteArray fornito = ByteDelFile(QStringLiteral(ASSETS "/varbel.ini"));
        QVERIFY(fornito.startsWith("[Directory]\r\n\r\n[Recenti]\r\n \r\n \r\n \r\n \r\n[Lingue]\r\n"));
        QVERIFY(fornito.endsWith("\r\n[Font]\r\n10\r\n"));
        const QByteArray lingue = fornito.sliced(fornito.indexOf("[Lingue]"));
        QTemporaryDir cartella;
        const QString ini = cartella.filePath(u"varbel.ini"_s);
        QVERIFY(FaiFile(ini, fornito));
        QRandomGenerator caso(7);
        for (int chiusura = 0; chiusura < 50; ++chiusura) {
            // Each close in a session of its own.
            Recenti lista = LeggiVarbel(LineeDelFile(ini)).recenti;
            AggiornaRecenti(lista, u"/dizionari/Ελλάδα%1.dic"_s.arg(caso.bounded(9)));
            RiscriviFileVarbel(ini, cartella.filePath(u"x1x2x3x4.zzz"_s), lista, u"/città"_s, 10);
            const QString recenti = QStringList(lista.cbegin(), lista.cend()).join(u"\r\n"_s);
            QCOMPARE(ByteDelFile(ini), "[Directory]\r\n/città\r\n[Recenti]\r\n" + recenti.toUtf8() + "\r\n" + lingue);
        }
        QCOMPARE(QDir(cartella.path()).entryList(QDir::Files), QStringList{u"varbel.ini"_s});
    }

    void riscritturaCheFallisce()
    {
#ifdef Q_OS_UNIX
        const CartellaProva cartella;
        const QByteArray prima = "[Recenti]\n/vecchio\n \n \n \n[Lingue]\nGreco\n[Font]\n10";
        const QString ini = cartella.aperta + u"/varbel.ini"_s;
        const QString temporaneo = cartella.aperta + u"/x1x2x3x4.zzz"_s;
        const QString iniChiuso = cartella.chiusa + u"/varbel.ini"_s;
        const QString fermo = cartella.chiusa + u"/x1x2x3x4.zzz"_s;
        const auto riscrivi = [](const QString &file, const QString &passaggio) {
            return NumeroErrore([&] { RiscriviFileVarbel(file, passaggio, {u"/nuovo"_s}, u"/c"_s, 12); });
        };
        QVERIFY(FaiFile(ini, prima) && FaiFile(iniChiuso, prima) && FaiFile(fermo, ""));
        QVERIFY(QFile::setPermissions(fermo, Leggere | Scrivere));
        cartella.Chiudi();
        {
            const SenzaPrivilegi ora;
            QVERIFY(ora.riuscito);
            QCOMPARE(riscrivi(cartella.aperta + u"/manca.ini"_s, temporaneo), 53);
            QCOMPARE(riscrivi(ini, cartella.chiusa + u"/nuovo.zzz"_s), 75);
            QCOMPARE(riscrivi(ini, cartella.aperta), 75);
            QCOMPARE(riscrivi(iniChiuso, temporaneo), 75);
            const DiscoPieno pieno(20);
            QCOMPARE(riscrivi(ini, temporaneo), 75);
        }
        QCOMPARE(ByteDelFile(ini), prima);
        QCOMPARE(ByteDelFile(iniChiuso), prima);
        QCOMPARE(QDir(cartella.aperta).entryList(QDir::Files), QStringList{u"varbel.ini"_s});
        {
            // Written, but it can't be moved away: it is copied.
            const SenzaPrivilegi ora;
            QVERIFY(ora.riuscito);
            QCOMPARE(riscrivi(ini, fermo), 0);
        }
        QVERIFY(ByteDelFile(ini).startsWith("[Recenti]\r\n/nuovo\r\n[Lingue]\r\n"));
#else
        QSKIP("file permissions of another kind");
#endif
    }

    void percorsiDellIni()
    {
        QCOMPARE(PercorsoIniScritto(u"/d/greco.dic"_s), u"/d/greco.ini"_s);
        QCOMPARE(PercorsoIniScritto(u"/mio.d/greco.v2.dic"_s), u"/mio.ini"_s);
        QCOMPARE(PercorsoIniScritto(u"/d/greco"_s), u"/d/greco.ini"_s);
        QCOMPARE(PercorsoIniAccanto(u"/mio.d/greco.v2.dic"_s), u"/mio.d/greco.v2.ini"_s);
        QCOMPARE(PercorsoIniAccanto(u"/d/greco"_s), u"/d/greco.ini"_s);
        QCOMPARE(PercorsoAssoluto(u""_s), u""_s);
        QCOMPARE(PercorsoAssoluto(u"a/../b//c.dic"_s), QDir::currentPath() + u"/b/c.dic"_s);

        QTemporaryDir cartella;
        QVERIFY2(!cartella.path().contains(u'.'), "needs a temporary folder without a dot");
        const QString dizionario = cartella.filePath(u"mio.d/greco.dic"_s);
        QCOMPARE(PercorsoIniLetto(dizionario), cartella.filePath(u"mio.d/greco.ini"_s));
        QVERIFY(FaiFile(cartella.filePath(u"mio.ini"_s), ""));
        QCOMPARE(PercorsoIniLetto(dizionario), cartella.filePath(u"mio.ini"_s));
    }

    void cartellaDelProgramma()
    {
        QTemporaryDir cartella;
        const QString bin = cartella.filePath(u"bin"_s);
        const QString forniti = cartella.filePath(u"share/varbel"_s);
        const QString dati = cartella.filePath(u"home/dati"_s);
        QVERIFY(QDir().mkpath(bin) && QDir().mkpath(forniti));
        QCOMPARE(CartellaProgramma(bin, dati), bin);
        QVERIFY(!QFile::exists(dati));
        for (const QString &nome : {u"/varbel.ini"_s, u"/Trffc10a.ico"_s, u"/Intl_no.bmp"_s})
            QVERIFY(FaiFile(forniti + nome, "fornito") && QFile::setPermissions(forniti + nome, QFile::ReadOwner));
        QCOMPARE(CartellaProgramma(bin, dati), dati);
        QCOMPARE(ByteDelFile(dati + u"/Intl_no.bmp"_s), "fornito");
        QVERIFY(QFile::permissions(dati + u"/varbel.ini"_s).testFlag(QFile::WriteOwner));
        // Later starts bring back what is missing and leave the rest as the user has it.
        QVERIFY(FaiFile(dati + u"/varbel.ini"_s, "riscritto") && QFile::remove(dati + u"/Trffc10a.ico"_s));
        QCOMPARE(CartellaProgramma(bin, dati), dati);
        QCOMPARE(ByteDelFile(dati + u"/varbel.ini"_s), "riscritto");
        QCOMPARE(ByteDelFile(dati + u"/Trffc10a.ico"_s), "fornito");
        QVERIFY(FaiFile(bin + u"/varbel.ini"_s, ""));
        QCOMPARE(CartellaProgramma(bin, dati), bin);
    }
};

QTEST_GUILESS_MAIN(tst_core)
#include "tst_core.moc"
