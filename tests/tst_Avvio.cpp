// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Banco.h"
#include "Dialoghi.h"
#include "app/Avvio.h"
#include "app/Protezione.h"
#include "core/RigaDiComando.h"

#include <QProcess>

using namespace Qt::StringLiterals;

class TestAvvio : public QObject
{
    Q_OBJECT

private slots:
    void rigaDiComando_data();
    void rigaDiComando();
    void senzaVirgolette();
    void avvio_data();
    void avvio();
    void geometria();
    void programma_data();
    void programma();
    void erroreInEventi();
};

void TestAvvio::rigaDiComando_data()
{
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<QString>("percorso");
    QTest::newRow("uno") << QStringList({u"varbel"_s, u"a.dic"_s}) << u"a.dic"_s;
    QTest::newRow("con blanchi") << QStringList({u"varbel"_s, u"le mie parole.dic"_s}) << u"le mie parole.dic"_s;
    QTest::newRow("due: il primo") << QStringList({u"varbel"_s, u"a.dic"_s, u"b.dic"_s}) << u"a.dic"_s;
    QTest::newRow("virgolette proprie") << QStringList({u"varbel"_s, u"\"a b.dic\" resto"_s}) << u"a b.dic"_s;
    QTest::newRow("greco") << QStringList({u"varbel"_s, u"λέξεις.dic"_s}) << u"λέξεις.dic"_s;
}

void TestAvvio::rigaDiComando()
{
#ifdef Q_OS_WIN
    QSKIP("the raw line is the system's own");
#endif
    QFETCH(const QStringList, argomenti);
    QFETCH(const QString, percorso);
    QCOMPARE(DizionarioNominato(RigaDiComando(argomenti)), std::optional(percorso));
    QCOMPARE(DizionarioNominato(RigaDiComando({u"varbel"_s})), std::nullopt);
}

void TestAvvio::senzaVirgolette()
{
    Banco banco;
    for (const QString &riga : {u"a.dic"_s, u" "_s}) {
        try {
            Main(riga, banco.cartella.filePath(u"programma"_s));
            QFAIL("the program started");
        } catch (const ErroreRuntime &errore) {
            QCOMPARE(errore.numero, 9);
            QVERIFY(errore.termina);
        }
    }
}

void TestAvvio::avvio_data()
{
    QTest::addColumn<QString>("riga");
    QTest::addColumn<bool>("aperto");
    QTest::addColumn<bool>("messaggio");
    QTest::newRow("niente") << QString() << false << false;
    QTest::newRow("relativo") << u"\"a.dic\""_s << true << false;
    QTest::newRow("non c'è") << u"\"b.dic\" \"a.dic\""_s << false << true;
}

void TestAvvio::avvio()
{
    QFETCH(const QString, riga);
    QFETCH(const bool, aperto);
    QFETCH(const bool, messaggio);
    Dialoghi dialoghi;
    Banco banco;
    banco.Dizionario(u"a.dic"_s, {u"@a@b@"_s});
    if (messaggio)
        dialoghi.casella(u"Errore!"_s,
                         u"Il File di inizializzazione "_s + banco.File(u"b.ini"_s) + u" non è valido o non esiste."_s,
                         QMessageBox::Critical);
    banco.finestra = Main(riga, banco.cartella.filePath(u"programma"_s));
    QVERIFY(dialoghi.verifica());
    QVERIFY(banco.finestra->isVisible());
    QCOMPARE(banco.finestra->windowTitle(), u"Varbel"_s);
    QCOMPARE(Module1::stato().DizionarioAperto, aperto);
    QCOMPARE(Module1::stato().PercorsoDizionario, aperto ? banco.File(u"a.dic"_s) : QString());
    QCOMPARE(Capacita(Module1::stato().Dizionario1), 1000);
}

void TestAvvio::geometria()
{
    Banco banco;
    const QString file = banco.File(u"configurazione/finestra.ini"_s);
    const QSize solita = banco.finestra->size();
    const auto avvia = [&] {
        banco.finestra.reset();
        banco.finestra = Main(QString(), banco.cartella.filePath(u"programma"_s), file);
        return banco.finestra->size();
    };
    QCOMPARE(avvia(), solita);
    banco.finestra->resize(640, 480);
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    QApplication::exec();
    QCOMPARE(avvia(), QSize(640, 480));
    ScriviInPosto(file, QByteArray("geometria=@ByteArray(\x1\xd9)\n"));
    QCOMPARE(avvia(), solita);
}

void TestAvvio::programma_data()
{
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<int>("esito");
    QTest::addColumn<QString>("uscita");
    QTest::newRow("versione") << QStringList(u"--version"_s) << u"nessuno"_s << 0 << u"Varbel " VARBEL_VERSION "\n"_s;
    QTest::newRow("aiuto") << QStringList(u"--help"_s) << u"nessuno"_s << 0 << u"Uso: varbel [dizionario.dic]\n"_s;
    QTest::newRow("senza schermo") << QStringList() << u"xcb"_s << 1 << u"Varbel: impossibile aprire lo schermo.\n"_s;
}

void TestAvvio::programma()
{
    QFETCH(const QStringList, argomenti);
    QFETCH(const QString, schermo);
    QFETCH(const int, esito);
    QFETCH(const QString, uscita);
    QProcess programma;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(u"QT_QPA_PLATFORM"_s, schermo);
    ambiente.remove(u"DISPLAY"_s);
    ambiente.remove(u"WAYLAND_DISPLAY"_s);
    programma.setProcessEnvironment(ambiente);
    programma.setProcessChannelMode(QProcess::MergedChannels);
    programma.start(QStringLiteral(PROGRAMMA), argomenti);
    QVERIFY(programma.waitForFinished());
    QCOMPARE(programma.exitStatus(), QProcess::NormalExit);
    QCOMPARE(programma.exitCode(), esito);
    const QString testo = QString::fromUtf8(programma.readAll());
    QVERIFY2(testo.startsWith(uscita), qPrintable(testo));
}

void TestAvvio::erroreInEventi()
{
    Dialoghi dialoghi;
    QWidget finestra;
    dialoghi.casella(u"Errore!"_s, u"<b>testo</b>"_s, QMessageBox::Critical);
    Protetto(&finestra, [] { throw ErroreRuntime(75, u"<b>testo</b>"_s); });
    dialoghi.casella(u"Errore!"_s, u"Memoria esaurita"_s, QMessageBox::Critical);
    Protetto(&finestra, [] { throw std::bad_alloc(); });
    QVERIFY(dialoghi.verifica());
    QVERIFY(!ProgrammaTerminato());
}

QTEST_MAIN(TestAvvio)
#include "tst_Avvio.moc"
