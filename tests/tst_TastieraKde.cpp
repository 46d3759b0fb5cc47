// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's keyboard service, played by this program on a session bus of its own.
#include "app/TastieraKde.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QGuiApplication>
#include <QProcess>
#include <QThread>
#include <QtTest>

#include <atomic>

using namespace Qt::StringLiterals;

struct NomiLayout {
    QString breve;
    QString mostrato;
    QString lungo;
};
Q_DECLARE_METATYPE(NomiLayout)

QDBusArgument &operator<<(QDBusArgument &argomento, const NomiLayout &nomi)
{
    argomento.beginStructure();
    argomento << nomi.breve << nomi.mostrato << nomi.lungo;
    argomento.endStructure();
    return argomento;
}

const QDBusArgument &operator>>(const QDBusArgument &argomento, NomiLayout &nomi)
{
    argomento.beginStructure();
    argomento >> nomi.breve >> nomi.mostrato >> nomi.lungo;
    argomento.endStructure();
    return argomento;
}

class Servizio : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.KeyboardLayouts")

public:
    std::atomic<uint> attivo = 0;
    std::atomic<int> cambi = 0;

public slots:
    Q_SCRIPTABLE QList<NomiLayout> getLayoutsList() const
    {
        return {{u"us"_s, {}, u"English"_s}, {u"it"_s, {}, u"Italiano"_s}, {u"gr"_s, {}, u"Greco"_s}};
    }
    Q_SCRIPTABLE uint getLayout() const { return attivo; }
    Q_SCRIPTABLE bool setLayout(uint quale)
    {
        ++cambi;
        attivo = quale;
        return true;
    }
};

class TestTastieraKde : public QObject
{
    Q_OBJECT

private slots:
    void cambiaERestituisce();
};

void TestTastieraKde::cambiaERestituisce()
{
    QVERIFY(!CreaTastieraKde());
    qDBusRegisterMetaType<NomiLayout>();
    qDBusRegisterMetaType<QList<NomiLayout>>();
    // A service answers while its caller waits: another connection, in another thread.
    QThread filo;
    Servizio servizio;
    servizio.moveToThread(&filo);
    filo.start();
    bool pronto = false;
    QMetaObject::invokeMethod(
        &servizio,
        [&] {
            QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"servizio"_s);
            pronto = bus.registerObject(u"/Layouts"_s, &servizio, QDBusConnection::ExportScriptableSlots) &&
                     bus.registerService(u"org.kde.keyboard"_s);
        },
        Qt::BlockingQueuedConnection);
    QVERIFY(pronto);

    const std::unique_ptr<MezzoTastiera> mezzo = CreaTastieraKde();
    QVERIFY(mezzo != nullptr);
    QVERIFY(mezzo->Carica(u"00000409"_s));
    QCOMPARE(servizio.cambi, 0);
    QVERIFY(mezzo->Carica(u"00000408"_s));
    QCOMPARE(servizio.attivo, 2U);
    QVERIFY(mezzo->Carica(u"00000410"_s));
    QVERIFY(mezzo->Carica(u"00000410"_s));
    QCOMPARE(servizio.cambi, 2);
    // Not among the user's, not in the table.
    QVERIFY(!mezzo->Carica(u"00000419"_s));
    QVERIFY(!mezzo->Carica(u"0000FFFF"_s));
    mezzo->Restituisci();
    mezzo->Restituisci();
    QCOMPARE(servizio.attivo, 0U);
    QCOMPARE(servizio.cambi, 3);

    // What the user chooses meanwhile stays.
    QVERIFY(mezzo->Carica(u"00000408"_s));
    servizio.attivo = 1;
    mezzo->Restituisci();
    QCOMPARE(servizio.attivo, 1U);
    filo.quit();
    filo.wait();
    QDBusConnection::disconnectFromBus(u"servizio"_s);
}

int main(int argc, char *argv[])
{
    QProcess bus;
    bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    if (!bus.waitForStarted() || !bus.waitForReadyRead()) {
        qCritical("no session bus: %s", qPrintable(bus.errorString()));
        return 1;
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
    int esito = 1;
    {
        const QGuiApplication applicazione(argc, argv);
        TestTastieraKde test;
        esito = QTest::qExec(&test, argc, argv);
    }
    bus.terminate();
    bus.waitForFinished();
    return esito;
}

#include "tst_TastieraKde.moc"
