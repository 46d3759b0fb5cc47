// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// On an X server of its own with a window manager: what real keys type into the program's own boxes, and that the
// user's keyboard comes back.
#include "Banco.h"
#include "Dialoghi.h"
#include "app/CodiciTastiera.h"
#include "app/Tastiera.h"

#include <QLineEdit>
#include <QMdiSubWindow>
#include <QProcess>

#include <csignal>
#include <optional>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

using namespace Qt::StringLiterals;

namespace
{
using Tasti = QList<quint8>;

// The X server needs this long to tell the toolkit of a new layout.
constexpr int DopoCambio = 150;
constexpr quint8 TastoTab = 23;
constexpr quint8 TastoInvio = 36;
constexpr quint8 TastoGiu = 116;

QByteArray Chiedi(const QString &programma, const QStringList &argomenti)
{
    QProcess processo;
    processo.setStandardErrorFile(QProcess::nullDevice());
    processo.start(programma, argomenti);
    processo.waitForFinished();
    return processo.readAllStandardOutput();
}

// Names, map and locked group of the server's keyboard.
QByteArray TastieraDelServer()
{
    return Chiedi(u"setxkbmap"_s, {u"-query"_s}) +
           Chiedi(u"xkbcomp"_s, {u"-w0"_s, u"-xkb"_s, qEnvironmentVariable("DISPLAY"), u"-"_s}) +
           Chiedi(u"xset"_s, {u"-q"_s}).split('\n').value(1);
}

QString LayoutDelServer()
{
    const QList<QByteArray> linee = Chiedi(u"setxkbmap"_s, {u"-query"_s}).split('\n');
    const auto trovata =
        std::find_if(linee.begin(), linee.end(), [](const QByteArray &linea) { return linea.startsWith("layout:"); });
    return trovata == linee.end() ? QString() : QString::fromLatin1(trovata->mid(7).trimmed());
}

void Imposta(const QStringList &argomenti)
{
    Chiedi(u"setxkbmap"_s, QStringList({u"-option"_s, QString()}) + argomenti);
}
} // namespace

class TestTastiera : public QObject
{
    Q_OBJECT

public:
    explicit TestTastiera(QString programma) : m_programma(std::move(programma)) {}

private slots:
    void initTestCase();
    void cleanupTestCase();
    void codici();
    void scriveNellaLingua_data();
    void scriveNellaLingua();
    void esercizioNeiDueVersi();
    void restituisce_data();
    void restituisce();
    void altroProgrammaDavanti();
    void unMessaggioPerCambio();
    void senzaSetxkbmap();
    void fineDelProgramma_data();
    void fineDelProgramma();

private:
    // Key codes as the X server numbers them, pressed and let go.
    void Premi(const Tasti &tasti) const
    {
        for (const quint8 tasto : tasti) {
            xcb_test_fake_input(m_x, XCB_KEY_PRESS, tasto, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
            xcb_test_fake_input(m_x, XCB_KEY_RELEASE, tasto, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
        }
        xcb_flush(m_x);
    }

    QString m_programma;
    xcb_connection_t *m_x = nullptr;
};

// The program's windows on a dictionary with a keyboard layout, its own boxes and the real back end.
struct Scrivania {
    explicit Scrivania(const QString &codice)
    {
        tastiera = std::make_unique<Tastiera>(CreaMezzoTastiera());
        Module1::LoadKeyboardLayoutA() = [this](const QString &nome) { return tastiera->Attiva(nome); };
        for (const QString &segno : {u"Trffc10a.ico"_s, u"Intl_no.bmp"_s})
            QFile::copy(QStringLiteral(ASSETS "/") + segno, banco.File(u"programma/"_s + segno));
        ImpostazioniDizionario impostazioni;
        impostazioni.Tastiera = codice;
        banco.Apri(
            banco.Dizionario(u"a.dic"_s, {u"@uno@one@"_s, u"@due@two@"_s, u"@tre@three@"_s}, ScriviIni(impostazioni)));
    }

    Banco banco;
    std::unique_ptr<Tastiera> tastiera;
    const bool attiva = QTest::qWaitForWindowActive(banco.finestra.get());
};

void TestTastiera::initTestCase()
{
    QCOMPARE(QGuiApplication::platformName(), u"xcb"_s);
    m_x = xcb_connect(nullptr, nullptr);
    QCOMPARE(xcb_connection_has_error(m_x), 0);
    Imposta({u"-layout"_s, u"us"_s});
    // The window manager is there once it makes a window the active one.
    QVERIFY(QTest::qWaitFor(
        [] {
            QWidget prova;
            prova.show();
            return QTest::qWaitForWindowActive(&prova, 500);
        },
        20000));
}

void TestTastiera::cleanupTestCase()
{
    xcb_disconnect(m_x);
}

void TestTastiera::codici()
{
    QCOMPARE(DisposizioneDi(u"00000408"_s), (Disposizione{u"gr"_s, {}}));
    QCOMPARE(DisposizioneDi(u"0000100C"_s), (Disposizione{u"ch"_s, u"fr"_s}));
    QCOMPARE(DisposizioneDi(u"0000040a"_s), (Disposizione{u"es"_s, {}}));
    for (const char *strano : {"0408", "0000FFFF", "0000zzzz", "0000", ""})
        QVERIFY(!DisposizioneDi(QString::fromLatin1(strano)));
}

void TestTastiera::scriveNellaLingua_data()
{
    QTest::addColumn<QString>("codice");
    QTest::addColumn<Tasti>("tasti");
    QTest::addColumn<QString>("parola");
    QTest::newRow("greco") << u"0408"_s << Tasti({46, 32, 42, 32, 25}) << u"λογος"_s;
    QTest::newRow("russo") << u"0419"_s << Tasti({55, 56, 43}) << u"мир"_s;
    QTest::newRow("arabo") << u"0401"_s << Tasti({39, 42, 43, 46}) << u"سلام"_s;
    QTest::newRow("francese") << u"040C"_s << Tasti({11, 28, 11}) << u"été"_s;
    QTest::newRow("svizzero francese") << u"100C"_s << Tasti({47, 28, 47}) << u"été"_s;
    QTest::newRow("nessuna: resta quella che c'è") << QString() << Tasti({47}) << u"ò"_s;
}

void TestTastiera::scriveNellaLingua()
{
    QFETCH(QString, codice);
    QFETCH(const Tasti, tasti);
    QFETCH(QString, parola);
    const QByteArray prima = TastieraDelServer();
    {
        const Scrivania scrivania(codice);
        QVERIFY(scrivania.attiva);
        scrivania.banco.Comando(u"mnuModificaAggiungi"_s);
        const auto casella = [&scrivania](const char *nome) {
            return scrivania.banco.Trova<QLineEdit>("InserimentoForm1", nome);
        };
        QTRY_COMPARE(QApplication::focusWidget(), casella("txtLingua1"));
        // però, in language 1 and after it.
        QTest::qWait(DopoCambio);
        Premi({33, 26, 27, 47, TastoTab, TastoTab});
        QTRY_COMPARE(QApplication::focusWidget(), casella("txtLingua2"));
        QCOMPARE(casella("txtLingua1")->text(), u"però"_s);
        for (const char *nome : {"txtLingua2", "txtCommento2"}) {
            QTest::qWait(DopoCambio);
            Premi(tasti);
            QTRY_COMPARE(casella(nome)->text(), parola);
            Premi({TastoTab});
            QTRY_VERIFY(!casella(nome)->hasFocus());
        }
        casella("txtCommento1")->setFocus();
        QTest::qWait(DopoCambio);
        Premi({47});
        QTRY_COMPARE(casella("txtCommento1")->text(), u"ò"_s);
    }
    QCOMPARE(TastieraDelServer(), prima);
}

void TestTastiera::esercizioNeiDueVersi()
{
    const QByteArray prima = TastieraDelServer();
    {
        const Scrivania scrivania(u"0408"_s);
        QVERIFY(scrivania.attiva);
        scrivania.banco.Comando(u"mnuEserciziRipasso"_s);
        const auto *risposta = scrivania.banco.Trova<QLineEdit>("EsercizioForm1", "txtLingua2");
        QTRY_VERIFY(risposta->hasFocus());
        QTest::qWait(DopoCambio);
        Premi({46});
        QTRY_COMPARE(risposta->text(), u"λ"_s);
        scrivania.banco.Comando(u"mnuEserciziInverti"_s);
        // Two at once would be one key held down.
        Premi({TastoInvio});
        QTRY_COMPARE(risposta->text(), u"three"_s);
        Premi({TastoInvio});
        QTRY_COMPARE(risposta->text(), QString());
        // The next change of field, the exercise's own side first, brings Italian.
        scrivania.banco.Trova<QLineEdit>("EsercizioForm1", "txtLingua1")->setFocus();
        scrivania.banco.Trova<QLineEdit>("EsercizioForm1", "txtLingua2")->setFocus();
        QTest::qWait(DopoCambio);
        Premi({47});
        QTRY_COMPARE(risposta->text(), u"ò"_s);
    }
    QCOMPARE(TastieraDelServer(), prima);
}

void TestTastiera::restituisce_data()
{
    QTest::addColumn<QStringList>("tastiera");
    QTest::addColumn<int>("gruppo");
    QTest::addColumn<bool>("cambiataAMano");
    QTest::newRow("una") << QStringList({u"-layout"_s, u"de"_s}) << 0 << false;
    const QStringList tre = {u"-model"_s,   u"pc104"_s,           u"-layout"_s, u"it,us,gr"_s,
                             u"-variant"_s, u",intl,polytonic"_s, u"-option"_s, u"grp:alt_shift_toggle,compose:menu"_s};
    QTest::newRow("tre con varianti e opzioni") << tre << 0 << false;
    QTest::newRow("il terzo gruppo") << tre << 2 << false;
    QTest::newRow("un tasto cambiato a mano") << tre << 1 << true;
}

void TestTastiera::restituisce()
{
    QFETCH(QStringList, tastiera);
    QFETCH(int, gruppo);
    QFETCH(bool, cambiataAMano);
    Imposta(tastiera);
    if (cambiataAMano) {
        // The Caps key made one more Escape.
        QByteArray mappa = Chiedi(u"xkbcomp"_s, {u"-w0"_s, u"-xkb"_s, qEnvironmentVariable("DISPLAY"), u"-"_s});
        QVERIFY(mappa.contains("[       Caps_Lock ]"));
        mappa.replace("[       Caps_Lock ]", "[          Escape ]");
        QProcess carica;
        carica.start(u"xkbcomp"_s, {u"-w0"_s, u"-"_s, qEnvironmentVariable("DISPLAY")});
        carica.write(mappa);
        carica.closeWriteChannel();
        QVERIFY(carica.waitForFinished());
    }
    for (int i = 0; i < gruppo; ++i)
        Chiedi(u"xdotool"_s, {u"key"_s, u"ISO_Next_Group"_s});
    const QByteArray prima = TastieraDelServer();
    {
        const Scrivania scrivania(u"0419"_s);
        QVERIFY(scrivania.attiva);
        scrivania.banco.Comando(u"mnuModificaAggiungi"_s);
        scrivania.banco.Trova<QLineEdit>("InserimentoForm1", "txtLingua2")->setFocus();
        QCOMPARE(LayoutDelServer(), u"ru"_s);
        scrivania.banco.Trova<QLineEdit>("InserimentoForm1", "txtCommento2")->setFocus();
        scrivania.banco.Trova<QLineEdit>("InserimentoForm1", "txtLingua1")->setFocus();
        QCOMPARE(LayoutDelServer(), u"it"_s);
    }
    QCOMPARE(TastieraDelServer(), prima);
    Imposta({u"-model"_s, u"pc105"_s, u"-layout"_s, u"us"_s, u"-variant"_s, QString()});
}

void TestTastiera::altroProgrammaDavanti()
{
    Imposta({u"-layout"_s, u"de"_s});
    const QByteArray prima = TastieraDelServer();
    auto scrivania = std::make_unique<Scrivania>(u"0408"_s);
    QVERIFY(scrivania->attiva);
    scrivania->banco.Comando(u"mnuModificaAggiungi"_s);
    scrivania->banco.Trova<QLineEdit>("InserimentoForm1", "txtLingua2")->setFocus();
    QCOMPARE(LayoutDelServer(), u"gr"_s);
    const auto altro = [this] {
        const xcb_screen_t *schermo = xcb_setup_roots_iterator(xcb_get_setup(m_x)).data;
        const xcb_window_t finestra = xcb_generate_id(m_x);
        xcb_create_window(m_x, XCB_COPY_FROM_PARENT, finestra, schermo->root, 0, 0, 200, 100, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, schermo->root_visual, 0, nullptr);
        xcb_map_window(m_x, finestra);
        xcb_flush(m_x);
        return finestra;
    };
    xcb_window_t davanti = altro();
    QTRY_COMPARE(QGuiApplication::applicationState(), Qt::ApplicationInactive);
    QCOMPARE(TastieraDelServer(), prima);
    const auto torna = [&] {
        xcb_destroy_window(m_x, davanti);
        xcb_flush(m_x);
        scrivania->banco.finestra->activateWindow();
    };
    torna();
    QTRY_COMPARE(LayoutDelServer(), u"gr"_s);

    // A layout that the user chooses meanwhile is what comes back at the end.
    davanti = altro();
    QTRY_COMPARE(QGuiApplication::applicationState(), Qt::ApplicationInactive);
    Imposta({u"-layout"_s, u"se"_s});
    const QByteArray nuova = TastieraDelServer();
    torna();
    QTRY_COMPARE(LayoutDelServer(), u"gr"_s);
    scrivania.reset();
    QCOMPARE(TastieraDelServer(), nuova);
}

void TestTastiera::unMessaggioPerCambio()
{
    Dialoghi dialoghi;
    const QByteArray prima = TastieraDelServer();
    {
        const Scrivania scrivania(u"FFFF"_s);
        QVERIFY(scrivania.attiva);
        scrivania.banco.Comando(u"mnuModificaAggiungi"_s);
        for (const char *nome : {"txtLingua2", "txtCommento2"}) {
            dialoghi.errore(u"Varbel"_s, u"Errore nel cambio della tastiera."_s);
            scrivania.banco.Trova<QLineEdit>("InserimentoForm1", nome)->setFocus();
            QVERIFY(QTest::qWaitForWindowActive(scrivania.banco.finestra.get()));
            QTest::qWait(300);
            QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
        }
    }
    QCOMPARE(TastieraDelServer(), prima);
}

void TestTastiera::senzaSetxkbmap()
{
    const QByteArray percorsi = qgetenv("PATH");
    const QByteArray prima = TastieraDelServer();
    {
        const Scrivania scrivania(QString{});
        QVERIFY(scrivania.attiva);
        qputenv("PATH", "/nessuno");
        QVERIFY(!scrivania.tastiera->Attiva(u"00000408"_s));
        qputenv("PATH", percorsi);
    }
    QCOMPARE(TastieraDelServer(), prima);
}

void TestTastiera::fineDelProgramma_data()
{
    QTest::addColumn<int>("segnale");
    for (const int segnale : {SIGTERM, SIGINT, SIGHUP, SIGKILL})
        QTest::addRow("segnale %d", segnale) << segnale;
}

void TestTastiera::fineDelProgramma()
{
    QFETCH(int, segnale);
    Imposta({u"-layout"_s, u"it,de"_s});
    const QByteArray prima = TastieraDelServer();
    const Banco cartella;
    cartella.finestra->hide();
    const QString programma = cartella.File(u"programma/varbel"_s);
    QVERIFY(QFile::copy(m_programma, programma));
    ImpostazioniDizionario impostazioni;
    impostazioni.Tastiera = u"0408"_s;
    const QString dizionario = cartella.Dizionario(u"a.dic"_s, {u"@uno@one@"_s}, ScriviIni(impostazioni));
    // One killed leaves its layout behind; the next one gives back what that one had found.
    for (const int colpo : segnale == SIGKILL ? QList<int>{SIGKILL, SIGTERM} : QList<int>{segnale}) {
        QProcess processo;
        processo.start(programma, {dizionario});
        QVERIFY(processo.waitForStarted());
        // The list, its first entry, the entry window, language 2.
        QTRY_COMPARE_WITH_TIMEOUT(Chiedi(u"xdotool"_s, {u"getactivewindow"_s, u"getwindowname"_s}).trimmed(), "Varbel",
                                  20000);
        QTest::qWait(DopoCambio);
        Premi({TastoGiu, TastoInvio});
        QTRY_COMPARE_WITH_TIMEOUT(LayoutDelServer().startsWith(u"it"_s), true, 10000);
        QTest::qWait(DopoCambio * 2);
        Premi({TastoTab, TastoTab});
        QTRY_COMPARE_WITH_TIMEOUT(LayoutDelServer(), u"gr"_s, 10000);
        QTest::qWait(DopoCambio * 2);
        QCOMPARE(::kill(static_cast<pid_t>(processo.processId()), colpo), 0);
        QVERIFY(processo.waitForFinished());
        QCOMPARE(processo.exitStatus(), QProcess::CrashExit);
        if (colpo == SIGKILL) {
            QCOMPARE(LayoutDelServer(), u"gr"_s);
        }
    }
    QCOMPARE(TastieraDelServer(), prima);
}

int main(int argc, char *argv[])
{
    // The server tells its number on a pipe once it takes connections.
    QProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-noreset"_s, u"-screen"_s, u"0"_s, u"1280x900x24"_s,
                             u"-nolisten"_s, u"tcp"_s});
    if (!server.waitForStarted() || !server.waitForReadyRead()) {
        qCritical("no X server: %s", qPrintable(server.errorString()));
        return 1;
    }
    qputenv("DISPLAY", ':' + server.readLine().trimmed());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qunsetenv("WAYLAND_DISPLAY");
    // No session bus is started for this server, nor the user's one used.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    QProcess gestore;
    // It says that it manages windows before it does; what it starts then writes a line.
    gestore.start(u"openbox"_s, {u"--sm-disable"_s, u"--startup"_s, u"echo pronto"_s});
    int esito = 1;
    if (gestore.waitForStarted() && gestore.waitForReadyRead()) {
        const QApplication applicazione(argc, argv);
        TestTastiera test(QStringLiteral(PROGRAMMA));
        esito = QTest::qExec(&test, argc, argv);
    }
    gestore.kill();
    gestore.waitForFinished();
    server.terminate();
    server.waitForFinished();
    return esito;
}

#include "tst_Tastiera.moc"
