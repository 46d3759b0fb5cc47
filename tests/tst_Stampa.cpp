// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Printing from the menu, into PDF files and on a print server of its own, whose one queue writes a file.
#include "Banco.h"
#include "Dialoghi.h"
#include "Errori.h"
#include "print/Stampante.h"
#include "tools/OutPutForm.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>

#include <arpa/inet.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
const QString Coda = u"Prova"_s;

QString Chiedi(const QString &programma, const QStringList &argomenti)
{
    QProcess processo;
    processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo.start(programma, argomenti);
    processo.waitForFinished();
    return QString::fromUtf8(processo.readAllStandardOutput());
}

quint16 PortaLibera()
{
    const int presa = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in indirizzo{};
    indirizzo.sin_family = AF_INET;
    indirizzo.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t lunghezza = sizeof indirizzo;
    auto *generico = reinterpret_cast<sockaddr *>(&indirizzo);
    const bool presa_bene = bind(presa, generico, lunghezza) == 0 && getsockname(presa, generico, &lunghezza) == 0;
    close(presa);
    return presa_bene ? ntohs(indirizzo.sin_port) : 0;
}

int Pagine(const QString &pdf)
{
    static const QRegularExpression pagine(u"Pages: +([0-9]+)"_s);
    return pagine.match(Chiedi(u"pdfinfo"_s, {pdf})).captured(1).toInt();
}

QString Testo(const QString &pdf)
{
    return Chiedi(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s});
}

/// The print server: all that it reads and writes is in a folder of its own.
class ServerStampa
{
public:
    ServerStampa()
    {
        QFile::setPermissions(cartella.path(), LeggereEntrare | QFile::WriteOwner);
        for (const char *dove : {"ppd", "spool/tmp", "cache", "state"})
            QDir(cartella.path()).mkpath(QString::fromLatin1(dove));
        Scrivi("cups-files.conf", "ServerRoot %1\nRequestRoot %1/spool\nTempDir %1/spool/tmp\nCacheDir %1/cache\n"
                                  "StateDir %1/state\nAccessLog %1/access\nErrorLog %1/error\nPageLog %1/page\n"
                                  "FileDevice Yes\nSandboxing Relaxed\n");
        Scrivi("cupsd.conf", "Listen 127.0.0.1:%2\nBrowsing No\nWebInterface No\nDefaultAuthType None\n"
                             "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                             "<Policy default>\n<Limit All>\nOrder deny,allow\nAllow all\n</Limit>\n</Policy>\n");
        Scrivi("printers.conf", "<DefaultPrinter Prova>\nDeviceURI file:%1/uscita.pdf\nState Idle\nAccepting Yes\n"
                                "Shared No\n</DefaultPrinter>\n");
        QFile::copy(u"/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd"_s, File("ppd/Prova.ppd"));
        // Where programs are confined by their paths, the installed one may not use this folder.
        QFile::copy(u"/usr/sbin/cupsd"_s, File("cupsd"));
        qputenv("CUPS_SERVER", "127.0.0.1:" + QByteArray::number(porta));
    }
    ~ServerStampa() { Ferma(); }
    Q_DISABLE_COPY_MOVE(ServerStampa)

    void Avvia()
    {
        processo.start(File("cupsd"), {u"-f"_s, u"-c"_s, File("cupsd.conf"), u"-s"_s, File("cups-files.conf")});
    }
    void Ferma()
    {
        processo.terminate();
        processo.waitForFinished();
    }

    [[nodiscard]] QString File(const char *nome) const { return cartella.filePath(QString::fromLatin1(nome)); }
    [[nodiscard]] QString Uscita() const { return File("uscita.pdf"); }
    [[nodiscard]] static bool Vuoto() { return Chiedi(u"lpstat"_s, {u"-o"_s}).isEmpty(); }

private:
    void Scrivi(const char *nome, const char *testo) const
    {
        ScriviInPosto(File(nome), QString::fromLatin1(testo)
                                      .replace("%1"_L1, cartella.path())
                                      .replace("%2"_L1, QString::number(porta))
                                      .toUtf8());
    }

    QTemporaryDir cartella;
    const quint16 porta = PortaLibera();
    QProcess processo;
};

// A program with a dictionary of that many Greek entries open.
struct Tipografia : Banco {
    explicit Tipografia(int voci)
    {
        QStringList linee;
        for (int i = 1; i <= voci; ++i)
            linee += u"nota%1@parola%1@λέξη%1@σχόλιο%1"_s.arg(i);
        ImpostazioniDizionario impostazioni;
        impostazioni.lingua1 = u"Italiano"_s;
        impostazioni.lingua2 = u"Greco"_s;
        impostazioni.FontLingua1 = u"MS Sans Serif"_s;
        impostazioni.FontLingua2 = u"DejaVu Serif"_s;
        Apri(Dizionario(u"a.dic"_s, linee, ScriviIni(impostazioni)));
    }

    bool Stampa()
    {
        Comando(u"mnuFileStampa"_s);
        return dialoghi.verifica();
    }
    void ErroreDopo() { dialoghi.casella(u"Errore!"_s, u"Errore nella stampa!"_s, QMessageBox::Critical); }

    Dialoghi dialoghi;
};
} // namespace

class TestStampa : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void greco();
    void dialogoAnnullato();
    void serverCheNonPrende_data();
    void serverCheNonPrende();
    void suFile_data();
    void suFile();
    void fileCheNonSiScrive();
    void senzaDizionario();
    void elenco();
    void senzaStampanti();

private:
    ServerStampa m_server;
};

void TestStampa::initTestCase()
{
    m_server.Avvia();
    QTRY_COMPARE(QPrinterInfo::defaultPrinterName(), Coda);
}

void TestStampa::greco()
{
    constexpr int voci = 300;
    Tipografia banco(voci);
    banco.dialoghi.stampa(Coda);
    banco.dialoghi.fogliDaStampare(QMessageBox::Yes);
    QVERIFY(banco.Stampa());
    QTRY_VERIFY(QFile::exists(m_server.Uscita()) && m_server.Vuoto());
    QVERIFY(banco.dialoghi.fogli > 5);
    QCOMPARE(Pagine(m_server.Uscita()), banco.dialoghi.fogli);

    // Every entry once, in the order of the file, its four texts on one line; a header on every sheet.
    int attesa = 1;
    int intestazioni = 0;
    for (const QString &linea : Testo(m_server.Uscita()).remove(u'\f').split(u'\n')) {
        const QString pulita = linea.simplified();
        if (pulita == u"COMMENTO 1 ITALIANO GRECO COMMENTO 2"_s)
            ++intestazioni;
        else if (!pulita.isEmpty())
            QCOMPARE(pulita, u"nota%1 parola%1 λέξη%1 σχόλιο%1"_s.arg(attesa++));
    }
    QCOMPARE(attesa, voci + 1);
    QCOMPARE(intestazioni, banco.dialoghi.fogli);

    // The columns of the queue's own sheet, a Letter, in points of 20 twips from its margin of 18.
    const QString posti = Chiedi(u"pdftotext"_s, {u"-bbox"_s, m_server.Uscita(), u"-"_s});
    const QList<std::pair<QString, double>> colonne = {
        {u"nota"_s, 1000}, {u"parola"_s, 4600}, {u"λέξη"_s, 6640}, {u"σχόλιο"_s, 8430}};
    for (const auto &[parola, twip] : colonne) {
        const QRegularExpression posto(u"xMin=\"([0-9.]+)\"[^>]*>%1[0-9]+<"_s.arg(parola));
        int viste = 0;
        for (const QRegularExpressionMatch &trovata : posto.globalMatch(posti)) {
            QVERIFY2(qAbs(trovata.captured(1).toDouble() - (twip / 20 + 18)) < 1, qPrintable(trovata.captured()));
            ++viste;
        }
        QCOMPARE(viste, voci);
    }
}

void TestStampa::dialogoAnnullato()
{
    QFile::remove(m_server.Uscita());
    Tipografia banco(3);
    banco.dialoghi.stampa({});
    banco.dialoghi.fogliDaStampare(QMessageBox::No);
    QVERIFY(banco.Stampa());
    QVERIFY(m_server.Vuoto() && !QFile::exists(m_server.Uscita()));
    banco.dialoghi.stampa({});
    banco.dialoghi.fogliDaStampare(QMessageBox::Yes);
    QVERIFY(banco.Stampa());
    QCOMPARE(banco.dialoghi.fogli, 1);
    QTRY_VERIFY(QFile::exists(m_server.Uscita()) && m_server.Vuoto());
    QVERIFY(Testo(m_server.Uscita()).contains(u"λέξη3"_s));
    QVERIFY(Chiedi(u"pdfinfo"_s, {m_server.Uscita()}).contains(u"612 x 792 pts"_s));
}

void TestStampa::serverCheNonPrende_data()
{
    QTest::addColumn<bool>("fermo");
    QTest::newRow("rejects") << false;
    QTest::newRow("stopped while asking") << true;
}

void TestStampa::serverCheNonPrende()
{
    QFETCH(const bool, fermo);
    Tipografia banco(3);
    banco.dialoghi.stampa(Coda);
    banco.dialoghi.fogliDaStampare(QMessageBox::Yes, [&] {
        if (fermo)
            m_server.Ferma();
        else
            Chiedi(u"/usr/sbin/cupsreject"_s, {Coda});
    });
    banco.ErroreDopo();
    const bool detto = banco.Stampa();
    if (fermo)
        m_server.Avvia();
    QTRY_COMPARE(QPrinterInfo::defaultPrinterName(), Coda);
    Chiedi(u"/usr/sbin/cupsaccept"_s, {Coda});
    QVERIFY(detto);
    QVERIFY(m_server.Vuoto());
}

void TestStampa::suFile_data()
{
    QTest::addColumn<QByteArray>("byte");
    QTest::addColumn<int>("fogli");
    QTest::addColumn<QString>("testo");
    QTest::newRow("empty") << QByteArray() << 1 << u"COMMENTO 1"_s;
    QTest::newRow("no divider") << QByteArray("tutta la riga\n") << 1 << u"tutta la riga"_s;
    QTest::newRow("longer than the sheet")
        << QByteArray(100000, 'x') + '@' + QByteArray(100000, 'y') + "@fine" << 1 << u"xxxx"_s;
    QTest::newRow("blank rows") << QByteArray(1000, '\n') + "fine" << 0 << u"fine"_s;
}

void TestStampa::suFile()
{
    QFETCH(const QByteArray, byte);
    QFETCH(const int, fogli);
    QFETCH(const QString, testo);
    Tipografia banco(1);
    ScriviInPosto(banco.File(u"a.dic"_s), byte);
    const QString pdf = banco.File(u"a.pdf"_s);
    // What is not saved is not printed.
    stato().Dizionario1.righe[1] = RigaDaLinea(u"@nuova@new@"_s);
    for (const auto pulsante : {QMessageBox::No, QMessageBox::Yes}) {
        QVERIFY(!QFile::exists(pdf));
        banco.dialoghi.stampa(pdf);
        banco.dialoghi.fogliDaStampare(pulsante);
        QVERIFY(banco.Stampa());
    }
    QCOMPARE(Pagine(pdf), banco.dialoghi.fogli);
    QVERIFY(fogli == 0 ? banco.dialoghi.fogli > 10 : banco.dialoghi.fogli == fogli);
    QVERIFY(Testo(pdf).contains(testo));
    QVERIFY(!Testo(pdf).contains(u"nuova"_s));
}

void TestStampa::fileCheNonSiScrive()
{
    Tipografia banco(300);
    QDir(banco.cartella.path()).mkdir(u"pdf"_s);
    banco.dialoghi.stampa(banco.File(u"pdf/a.pdf"_s));
    banco.dialoghi.fogliDaStampare(QMessageBox::Yes, [&] { QDir(banco.File(u"pdf"_s)).removeRecursively(); });
    banco.ErroreDopo();
    QVERIFY(banco.Stampa());

    std::optional<DiscoPieno> disco;
    banco.dialoghi.stampa(banco.File(u"a.pdf"_s));
    banco.dialoghi.fogliDaStampare(QMessageBox::Yes, [&] { disco.emplace(20000); });
    banco.ErroreDopo();
    const bool detto = banco.Stampa();
    disco.reset();
    QVERIFY(detto);
}

void TestStampa::senzaDizionario()
{
    Tipografia banco(1);
    QFile::remove(banco.File(u"a.dic"_s));
    banco.dialoghi.stampa(banco.File(u"a.pdf"_s));
    banco.ErroreDopo();
    QVERIFY(banco.Stampa());
    QVERIFY(!QFile::exists(banco.File(u"a.pdf"_s)));
}

void TestStampa::elenco()
{
    Dialoghi dialoghi;
    const QTemporaryDir cartella;
    const QString pdf = cartella.filePath(u"elenco.pdf"_s);
    const Banco banco;
    OutPutForm uscita;
    QStringList righe;
    for (int i = 1; i <= 200; ++i)
        righe += u"Riga %1: λέξη"_s.arg(i);
    uscita.ImpostaErrori(righe);
    dialoghi.stampa(pdf);
    uscita.findChild<QPushButton *>(u"cmdStampa"_s)->click();
    QVERIFY(dialoghi.verifica());
    QVERIFY(Pagine(pdf) > 2);
    QCOMPARE(Testo(pdf).remove(u'\f').split(u'\n', Qt::SkipEmptyParts), righe);
}

void TestStampa::senzaStampanti()
{
    QPrinter stampante;
    QVERIFY(StampanteValida(stampante));
    m_server.Ferma();
    QVERIFY(!StampanteValida(stampante));
    Tipografia banco(1);
    banco.dialoghi.stampa({});
    banco.ErroreDopo();
    QVERIFY(banco.Stampa());
}

QTEST_MAIN(TestStampa)
#include "tst_Stampa.moc"
