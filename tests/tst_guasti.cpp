// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Save, close, a change's recovery copy and the writing of a second dictionary, ended or failing at each of their calls
// that change a file: what the next start finds holds every entry.
#include "Errori.h"
#include "core/FileDizionario.h"
#include "core/FileIni.h"
#include "core/Recupero.h"

#include <QProcess>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace
{
QByteArray Utf16(const QString &testo)
{
    return {reinterpret_cast<const char *>(testo.utf16()), testo.size() * 2};
}

QStringList Voci(const QString &percorso)
{
    Tabella tabella;
    QStringList voci;
    const qint32 ultima = CaricaDizionario(percorso, tabella);
    for (qint32 i = 0; i <= ultima; ++i)
        voci += RigaDi(tabella, i)[2].remove(u'\r');
    voci.removeAll(QString());
    return voci;
}

// Every entry is in the file, or in the copy that the next start offers.
bool Salve(const QString &percorso, const QStringList &attese)
{
    const auto tutte = [&attese](QStringList voci) {
        return std::all_of(attese.cbegin(), attese.cend(),
                           [&voci](const QString &voce) { return voci.removeOne(voce); });
    };
    if (QFile::exists(percorso) && tutte(Voci(percorso)))
        return true;
    const QStringList copie = Recupero(percorso).Trovate();
    return std::any_of(copie.cbegin(), copie.cend(), [&tutte](const QString &copia) {
        return tutte(LeggiFileCopia(copia).voci.replaceInStrings(u"\r"_s, QString()));
    });
}

// The settings of the companion file, or those of the copy.
bool SalveImpostazioni(const QString &percorso, const QString &ini)
{
    const auto intere = [](const QByteArray &byte) { return LeggiIni(byte).lingua1 == u"Italiano"_s; };
    if (intere(ByteDelFile(ini)))
        return true;
    const QStringList copie = Recupero(percorso).Trovate();
    return !copie.isEmpty() && intere(LeggiFileCopia(copie.first()).ini);
}
} // namespace

class TestGuasti : public QObject
{
    Q_OBJECT

private slots:
    void ognuna_data();
    void ognuna();
};

void TestGuasti::ognuna_data()
{
    QTest::addColumn<QString>("che");
    QTest::addColumn<QString>("come");
    for (const char *che : {"apri", "modifica", "salva", "salva, poi No", "chiudi", "componi", "componi, poi No"}) {
        for (const char *come : {"morte", "morte a meta", "meta", "EIO", "EIO sempre", "ENOSPC"})
            QTest::addRow("%s: %s", che, come) << QString::fromLatin1(che) << QString::fromLatin1(come);
    }
}

void TestGuasti::ognuna()
{
    QFETCH(QString, che);
    QFETCH(QString, come);
    QStringList mie;
    QStringList altre;
    for (int i = 0; i < 300; ++i) {
        mie += u"@parola%1@word%1@commento"_s.arg(i);
        altre += u"@altra%1@other%1@"_s.arg(i);
    }
    ImpostazioniDizionario impostazioni;
    impostazioni.lingua1 = u"Italiano"_s;
    int provate = 0;
    for (int n = 1;; ++n) {
        const QTemporaryDir cartella;
        const QString dizionario = cartella.filePath(u"a.dic"_s);
        const QString secondo = cartella.filePath(u"b.dic"_s);
        const QString varbel = cartella.filePath(u"varbel.ini"_s);
        const QByteArray prima = "[Directory]\r\n/casa\r\n[Recenti]\r\n \r\n[Lingue]\r\nGreco\r\n[Font]\r\n10\r\n";
        QVERIFY(FaiFile(dizionario, Utf16(mie.join(u"\r\n"_s) + u"\r\n"_s)));
        QVERIFY(FaiFile(secondo, Utf16(altre.join(u"\r\n"_s) + u"\r\n"_s)));
        QVERIFY(FaiFile(cartella.filePath(u"a.ini"_s), ScriviIni(impostazioni)));
        QVERIFY(FaiFile(varbel, prima));
        qputenv("XDG_STATE_HOME", QFile::encodeName(cartella.path()));

        QProcess vittima;
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(u"LD_PRELOAD"_s, QStringLiteral(GUASTI));
        ambiente.insert(u"GUASTI_CHIAMATA"_s, QString::number(n));
        ambiente.insert(u"GUASTI_COME"_s, come);
        // The sanitizers' library wants to come first; here it may not.
        ambiente.insert(u"ASAN_OPTIONS"_s, u"verify_asan_link_order=0:detect_leaks=0"_s);
        vittima.setProcessEnvironment(ambiente);
        vittima.start(QStringLiteral(VITTIMA), {che, cartella.path()});
        QVERIFY(vittima.waitForFinished(30000));
        const int esito = vittima.exitCode();
        const QByteArray detto = vittima.readAllStandardOutput();
        QVERIFY2(vittima.exitStatus() == QProcess::NormalExit && (esito == 0 || esito == 3 || esito == 137),
                 vittima.readAllStandardError().constData());

        const QString dove = u"chiamata %1, esito %2"_s.arg(n).arg(esito);
        // A lock that was cut short counts for nobody's once it is old.
        for (const QFileInfo &serratura : QDir(cartella.filePath(u"varbel"_s)).entryInfoList({u"*.lock"_s})) {
            QFile file(serratura.filePath());
            QVERIFY(file.open(QIODevice::ReadWrite) &&
                    file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
        }
        const bool poiNo = che.endsWith(u"poi No"_s) && esito == 3;
        QVERIFY2(Salve(dizionario, poiNo ? mie : mie + QStringList(u"@nuova@new@"_s)), qPrintable(dove));
        QVERIFY2(Salve(secondo, altre), qPrintable(dove));
        QVERIFY2(!che.startsWith(u"componi"_s) || poiNo || Salve(secondo, altre + mie), qPrintable(dove));
        if (che == u"modifica"_s && esito == 0)
            QVERIFY2(Salve(dizionario, mie + QStringList({u"@nuova@new@"_s, u"@altra@other@"_s})), qPrintable(dove));
        QVERIFY2(SalveImpostazioni(dizionario, cartella.filePath(u"a.ini"_s)), qPrintable(dove));
        const QByteArray ini = ByteDelFile(varbel);
        QVERIFY2(ini == prima || ini.contains("[Recenti]\r\n" + dizionario.toUtf8()), qPrintable(dove));
        if (esito == 0 && detto.toInt() < n)
            break;
        ++provate;
        QVERIFY(n < 500);
    }
    // Each of them changes several files.
    QVERIFY2(provate > 4, qPrintable(QString::number(provate)));
}

QTEST_GUILESS_MAIN(TestGuasti)
#include "tst_guasti.moc"
