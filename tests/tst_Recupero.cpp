// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What a program that ended without closing its dictionary leaves, and what the next one makes of it.
#include "Banco.h"
#include "Dialoghi.h"
#include "Errori.h"
#include "app/Servizi.h"
#include "core/Documento.h"
#include "edit/Voci.h"
#include "tools/Composizione.h"

#include <QProcess>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
const QStringList Due = {u"@cane@dog@"_s, u"@casa@house@"_s};

// A dictionary with an entry that its file does not hold, the program gone.
struct Interrotto : Banco {
    Interrotto() : percorso(Dizionario(u"a.dic"_s, Due))
    {
        Apri(percorso);
        Aggiungi(u"gatto"_s, u"cat"_s);
        Avvia();
    }

    static void Aggiungi(const QString &parola1, const QString &parola2)
    {
        AggiungiVoce({parola1, parola2, u'@' + parola1 + u'@' + parola2 + u'@'});
        SegnaModificato();
    }

    // The question, which must begin and end as it always does; what stands between is returned.
    QString Chiedi(QMessageBox::StandardButton risposta)
    {
        QString fatti;
        dialoghi.altro([&, risposta](QDialog *dialogo) {
            auto *box = qobject_cast<QMessageBox *>(dialogo);
            const QString inizio = u"È stata trovata una copia di recupero del dizionario "_s + percorso + u".\n"_s;
            const QString fine = u"\nRecuperarla?"_s;
            if (box && box->windowTitle() == u"Recupero"_s && box->text().startsWith(inizio) &&
                box->text().endsWith(fine))
                fatti = box->text().sliced(inizio.size()).chopped(fine.size());
            box ? box->button(risposta)->click() : dialogo->reject();
        });
        Apri(percorso);
        return dialoghi.verifica() ? fatti : dialoghi.guasti();
    }

    [[nodiscard]] QStringList Copie() const
    {
        return QDir(cartella.filePath(u"stato/varbel"_s)).entryList({u"*.txt"_s}, QDir::Files);
    }

    QString percorso;
    Dialoghi dialoghi;
};
} // namespace

class TestRecupero : public QObject
{
    Q_OBJECT

private slots:
    void copiaRiletta();
    void recupera();
    void rifiuta();
    void soloImpostazioni();
    void nuovoSuEsistente();
    void fileSparito();
    void copiaRotta();
    void copiaImpossibile();
    void apertoDueVolte();
    void cambiatoDaAltri();
    void salvaConNome();
    void scritturaDelSecondo();
    void rimandata();
    void dopoUnSalvataggioFallito_data();
    void dopoUnSalvataggioFallito();
    void fileIlleggibile();
    void nuovoScrittoDaAltri();
    void serratureDiNessuno();
    void altroPosto();
    void sopraUnoApertoAltrove();
    void legame();
    void spezzate();
    void erroreCheTermina();
    void copiaDelSecondo();
};

void TestRecupero::copiaRiletta()
{
    // Whatever a table can hold: the line form of a copy gives it back unit by unit.
    const QTemporaryDir cartella;
    qputenv("XDG_STATE_HOME", QFile::encodeName(cartella.path()));
    QRandomGenerator caso(7);
    const QString segni = u"@\r\nab\u010D\u010A\uFEFF\U0001F600\u0000"_s;
    for (int volta = 0; volta < 200; ++volta) {
        Tabella tabella;
        Ridimensiona(tabella, 20);
        QStringList linee;
        for (RigaTabella &riga : tabella.righe) {
            for (int i = caso.bounded(6); i > 0; --i)
                riga[2] += segni[caso.bounded(static_cast<int>(segni.size()))];
            // No line of a dictionary holds the pair.
            while (riga[2].contains("\r\n"_L1))
                riga[2].replace("\r\n"_L1, "\n"_L1);
            if (!riga[2].isEmpty())
                linee += riga[2];
        }
        const QString percorso = cartella.filePath(u"a%1\n 50%.dic"_s.arg(volta));
        const Impronta impronta = {.quando = QDateTime::fromMSecsSinceEpoch(volta * 1000LL, Qt::UTC),
                                   .dimensione = volta};
        const QByteArray ini = "[Lingue]\r\nItaliano\r\n\xCE\xB1\r\n";
        Recupero recupero(percorso);
        recupero.Scrivi(impronta, ini, tabella, 20);
        recupero.Scrivi(impronta, ini, tabella, 20);
        const QStringList file = QDir(cartella.filePath(u"varbel"_s)).entryList({u"*.txt"_s});
        QCOMPARE(file.size(), 1);
        const QString copia = cartella.filePath(u"varbel/"_s + file.first());
        QCOMPARE(QFile::permissions(copia) & (Leggere | Scrivere | QFile::ExeOther),
                 QFile::ReadOwner | QFile::WriteOwner);
        const CopiaRecupero letta = LeggiFileCopia(copia);
        QCOMPARE(letta.percorso, percorso);
        QCOMPARE(letta.dizionario, impronta);
        QCOMPARE(letta.ini, ini);
        QCOMPARE(letta.voci, linee);
        recupero.Togli();
    }
    QCOMPARE(NumeroErrore([] { LeggiCopia("altro"); }), 57);
    QCOMPARE(NumeroErrore([] { LeggiCopia({}); }), 57);
}

void TestRecupero::recupera()
{
    Interrotto banco;
    QCOMPARE(banco.Copie().size(), 1);
    const QString fatti = banco.Chiedi(QMessageBox::Yes);
    QVERIFY2(QRegularExpression(u"^Copia: 3 voci, fatta il \\d\\d/\\d\\d/\\d{4} alle \\d\\d:\\d\\d:\\d\\d\\.\n"
                                u"File: 2 voci\\.$"_s)
                 .match(fatti)
                 .hasMatch(),
             qPrintable(fatti));
    QCOMPARE(banco.Parole(1), QStringList({u"cane"_s, u"casa"_s, u"gatto"_s}));
    QVERIFY(stato().Modificato && banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    // Added to before it is saved, and ended once more: nothing of either is lost.
    Interrotto::Aggiungi(u"topo"_s, u"mouse"_s);
    banco.Avvia();
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 4 voci"_s));
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(banco.Copie().isEmpty());
    banco.Comando(u"mnuFileChiudi"_s);
    banco.Apri(banco.percorso);
    QCOMPARE(banco.Parole(1).size(), 4);
    QVERIFY(banco.dialoghi.verifica());
}

void TestRecupero::rifiuta()
{
    Interrotto banco;
    // Another program has written the file since.
    ScriviInPosto(banco.percorso, ByteDelFile(banco.percorso) + QByteArray("@\0x\0@\0y\0@\0\r\0\n\0", 14));
    const QString fatti = banco.Chiedi(QMessageBox::No);
    QVERIFY2(fatti.endsWith(u"\nFile: 3 voci.\nIl file è cambiato dopo la copia."_s), qPrintable(fatti));
    QCOMPARE(banco.Parole(1), QStringList({u"cane"_s, u"casa"_s, u"x"_s}));
    QVERIFY(!stato().Modificato);
    QVERIFY(banco.Copie().isEmpty());
    QFile::setPermissions(banco.percorso, QFile::ReadOwner | QFile::WriteOwner);
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(QFile::permissions(banco.percorso) & (Leggere | Scrivere), QFile::ReadOwner | QFile::WriteOwner);
    // So does No to the question at a close, also after a save that could not touch the file.
    Interrotto::Aggiungi(u"gatto"_s, u"cat"_s);
    QCOMPARE(banco.Copie().size(), 1);
    banco.dialoghi.casella(u"Salvare?"_s, u"Il dizionario "_s + banco.percorso + u" è stato modificato. Salvare?"_s,
                           QMessageBox::Question, QMessageBox::No);
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(banco.dialoghi.verifica());
    QVERIFY(banco.Copie().isEmpty());
}

void TestRecupero::soloImpostazioni()
{
    Interrotto banco;
    banco.Chiedi(QMessageBox::Yes);
    stato().impostazioni.lingua1 = u"Ελληνικά"_s;
    SegnaModificato();
    banco.Avvia();
    // A save that was cut short between the two files.
    QVERIFY(QFile::remove(banco.File(u"a.ini"_s)));
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 3 voci"_s));
    QCOMPARE(banco.Testo(u"lbltitolo"_s), u"Dizionario Ελληνικά/"_s);
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(QFile::exists(banco.File(u"a.ini"_s)));
    QVERIFY(banco.dialoghi.verifica());
}

void TestRecupero::nuovoSuEsistente()
{
    Interrotto banco;
    banco.Chiedi(QMessageBox::Yes);
    stato().impostazioni.lingua1 = u"Ελληνικά"_s;
    SegnaModificato();
    banco.Avvia();
    banco.dialoghi.file(banco.percorso);
    banco.dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click(); });
    banco.Comando(u"mnuFileNuovo"_s);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    // The properties that come in front are those of the copy, and keep them at Ok.
    banco.Trova<QPushButton>("proprietaForm1", "cmdOk")->click();
    QCOMPARE(stato().impostazioni.lingua1, u"Ελληνικά"_s);
    QCOMPARE(banco.Parole(1).size(), 3);
}

void TestRecupero::fileSparito()
{
    Interrotto banco;
    QVERIFY(QFile::remove(banco.percorso));
    QCOMPARE(Recupero::SenzaFile(), QStringList(banco.percorso));
    banco.dialoghi.altro([](QDialog *dialogo) {
        QVERIFY(qobject_cast<QMessageBox *>(dialogo)->text().contains(u"\nIl file del dizionario non c'è.\n"_s));
        qobject_cast<QMessageBox *>(dialogo)->button(QMessageBox::Yes)->click();
    });
    banco.finestra->OffriCopie();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(banco.Parole(1).size(), 3);
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(banco.Linee(banco.percorso).size(), 3);
    QVERIFY(Recupero::SenzaFile().isEmpty());
}

void TestRecupero::copiaRotta()
{
    Interrotto banco;
    const QString copia = banco.cartella.filePath(u"stato/varbel/"_s + banco.Copie().first());
    ScriviInPosto(copia, "rotta");
    banco.dialoghi.altro([&copia](QDialog *dialogo) {
        QVERIFY(qobject_cast<QMessageBox *>(dialogo)->text().startsWith(u"Impossibile leggere la copia di recupero "_s +
                                                                        copia));
        dialogo->accept();
    });
    banco.Apri(banco.percorso);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(banco.Parole(1).size(), 2);
    // Neither a change nor a save touches it.
    Interrotto::Aggiungi(u"topo"_s, u"mouse"_s);
    QCOMPARE(banco.Copie().size(), 2);
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(!stato().Modificato);
    QCOMPARE(ByteDelFile(copia), QByteArray("rotta"));
}

void TestRecupero::copiaImpossibile()
{
    Interrotto banco;
    banco.Chiedi(QMessageBox::No);
    banco.Comando(u"mnuFileChiudi"_s);
    // A file stands where the folder should: told once for as long as it lasts, and work goes on.
    const QString cartella = banco.cartella.filePath(u"stato/varbel"_s);
    QVERIFY(QDir(cartella).removeRecursively());
    ScriviInPosto(cartella, QByteArray());
    banco.Apri(banco.percorso);
    const auto avviso = [&banco] {
        banco.dialoghi.altro([](QDialog *dialogo) {
            QVERIFY(qobject_cast<QMessageBox *>(dialogo)->text().startsWith(u"Impossibile scrivere la copia di"_s));
            dialogo->accept();
        });
    };
    avviso();
    Interrotto::Aggiungi(u"gatto"_s, u"cat"_s);
    Interrotto::Aggiungi(u"topo"_s, u"mouse"_s);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(banco.Linee(banco.percorso).size(), 4);
    // With room again there is a copy, also in a folder that has gone.
    QVERIFY(QFile::remove(cartella));
    Interrotto::Aggiungi(u"lupo"_s, u"wolf"_s);
    QVERIFY(QDir(cartella).removeRecursively());
    Interrotto::Aggiungi(u"orso"_s, u"bear"_s);
    QCOMPARE(banco.Copie().size(), 1);
    QVERIFY(banco.dialoghi.verifica());
}

void TestRecupero::apertoDueVolte()
{
    Interrotto banco;
    const auto apri = [&banco](QMessageBox::StandardButton risposta) {
        banco.dialoghi.casella(u"Attenzione!"_s,
                               u"Il dizionario "_s + banco.percorso +
                                   u" è già aperto in un altro Varbel: ciò che si salva da una parte può andare perso "
                                   u"dall'altra.\nAprirlo lo stesso?"_s,
                               QMessageBox::Warning, risposta);
        banco.Apri(banco.percorso);
        return banco.dialoghi.verifica();
    };
    const QStringList copie = banco.Copie();
    {
        // Another living program's copy is its own.
        const Recupero altro(banco.percorso);
        QVERIFY(apri(QMessageBox::No));
        QVERIFY(!stato().DizionarioAperto);
        QVERIFY(apri(QMessageBox::Yes));
        QCOMPARE(banco.Parole(1).size(), 2);
        Interrotto::Aggiungi(u"topo"_s, u"mouse"_s);
        QCOMPARE(banco.Copie().size(), 2);
        banco.Comando(u"mnuFileSalva"_s);
        QCOMPARE(banco.Copie(), copie);
        banco.Comando(u"mnuFileChiudi"_s);
    }
    // The other one has ended, without closing it.
    QVERIFY(banco.Chiedi(QMessageBox::No).contains(u"File: 3 voci."_s));
#ifdef Q_OS_UNIX
    // A lock left by a program that has died is none.
    banco.Comando(u"mnuFileChiudi"_s);
    const QString serratura = banco.cartella.filePath(u"stato/varbel/"_s + copie.first() + u".lock"_s);
    ScriviInPosto(serratura, "4194305\nvarbel\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    banco.Apri(banco.percorso);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(banco.Parole(1).size(), 3);
#endif
}

void TestRecupero::cambiatoDaAltri()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, Due);
    const QString ini = banco.File(u"a.ini"_s);
    banco.Apri(percorso);
    Interrotto::Aggiungi(u"gatto"_s, u"cat"_s);
    const auto salva = [&](const QString &file, QMessageBox::StandardButton risposta) {
        dialoghi.casella(u"Attenzione!"_s,
                         u"Il file "_s + file +
                             u" è stato cambiato da un altro programma da quando è stato letto. Sostituirlo?"_s,
                         QMessageBox::Warning, risposta);
        banco.Comando(u"mnuFileSalva"_s);
        return dialoghi.verifica();
    };
    const QByteArray altrui = ByteDelFile(percorso) + QByteArray("z\0", 2);
    ScriviInPosto(percorso, altrui);
    const QByteArray suo = ByteDelFile(ini);
    QVERIFY(salva(percorso, QMessageBox::No));
    QCOMPARE(ByteDelFile(percorso), altrui);
    QCOMPARE(ByteDelFile(ini), suo);
    QVERIFY(stato().Modificato);
    QVERIFY(salva(percorso, QMessageBox::Yes));
    QCOMPARE(banco.Linee(percorso).size(), 3);
    // Its own save is not another program's.
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(dialoghi.verifica());
    ScriviInPosto(ini, suo + "\r\n");
    QVERIFY(salva(ini, QMessageBox::No));
    QCOMPARE(ByteDelFile(ini), suo + "\r\n");
    // One that has gone is written again without a question.
    QVERIFY(QFile::remove(ini) && QFile::remove(percorso));
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(banco.Linee(percorso).size(), 3);
}

void TestRecupero::salvaConNome()
{
    Interrotto banco;
    banco.Chiedi(QMessageBox::Yes);
    const QString nuovo = banco.File(u"b.dic"_s);
    stato().NuovoDizionario = false;
    banco.dialoghi.file(nuovo);
    banco.Comando(u"mnuFileSalvaConNome"_s);
    QVERIFY(banco.dialoghi.verifica());
    QVERIFY(banco.Copie().isEmpty());
    // From now on the copy is the new file's.
    Interrotto::Aggiungi(u"topo"_s, u"mouse"_s);
    QVERIFY(banco.Copie().first().startsWith(u"b.dic-"_s));
    QVERIFY(!Recupero(banco.percorso).ApertoAltrove());
    QVERIFY(Recupero(nuovo).ApertoAltrove());
}

void TestRecupero::scritturaDelSecondo()
{
    Interrotto banco;
    banco.Chiedi(QMessageBox::No);
    const QString secondo = banco.Dizionario(u"b.dic"_s, {u"@uno@one@"_s});
    Composizione::Leggi(secondo);
    Composizione::CopiaTutto1in2();
    {
        const DiscoPieno pieno(8);
        QCOMPARE(NumeroErrore([] { Composizione::Scrivi(); }), 57);
    }
    // No room for the copy either; with room a write that ends early leaves it.
    QCOMPARE(banco.Copie(), QStringList());
    QVERIFY(QFile::remove(secondo) && QDir().mkdir(secondo));
    QCOMPARE(NumeroErrore([] { Composizione::Scrivi(); }), 75);
    QCOMPARE(LeggiFileCopia(banco.cartella.filePath(u"stato/varbel/"_s + banco.Copie().first())).voci.size(), 3);
    QVERIFY(QDir().rmdir(secondo));
    Composizione::Scrivi();
    QVERIFY(banco.Copie().isEmpty());
    Composizione::Libera();
}

void TestRecupero::rimandata()
{
    // Escape puts the question off: only a clicked No gives the copy up.
    Interrotto banco;
    for (int volta = 0; volta < 2; ++volta) {
        banco.dialoghi.altro([volta](QDialog *dialogo) {
            const QList<QPushButton *> pulsanti = dialogo->findChildren<QPushButton *>();
            QCOMPARE(std::count_if(pulsanti.cbegin(), pulsanti.cend(), [](auto *p) { return p->isVisible(); }), 2);
            volta == 0 ? QTest::keyClick(dialogo, Qt::Key_Escape) : void(dialogo->close());
        });
        banco.Apri(banco.percorso);
        QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
        QVERIFY(!stato().DizionarioAperto);
        QCOMPARE(banco.Copie().size(), 1);
    }
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 3 voci"_s));
}

void TestRecupero::dopoUnSalvataggioFallito_data()
{
    QTest::addColumn<bool>("conAltroNome");
    QTest::newRow("salva") << false;
    QTest::newRow("salva con nome, per un altro verso") << true;
}

void TestRecupero::dopoUnSalvataggioFallito()
{
    QFETCH(const bool, conAltroNome);
    Interrotto banco;
    banco.Chiedi(QMessageBox::No);
    // The old file is deleted, then a folder takes its place.
    banco.finestra.reset();
    Module1::Azzera();
    banco.Avvia();
    banco.Apri(banco.percorso);
    const QString legame = banco.File(u"altrove"_s);
    QVERIFY(QFile::link(banco.cartella.path(), legame));
    const QString ini = banco.File(u"a.ini"_s);
    QVERIFY(QFile::remove(ini) && QDir().mkdir(ini));
    const auto fallisce = [&] {
        banco.dialoghi.altro([](QDialog *dialogo) {
            QVERIFY(qobject_cast<QMessageBox *>(dialogo)->text().startsWith(u"Impossibile salvare "_s));
            dialogo->accept();
        });
    };
    if (conAltroNome) {
        banco.dialoghi.file(legame + u"/a.dic"_s);
        banco.dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click(); });
        fallisce();
        banco.Comando(u"mnuFileSalvaConNome"_s);
    } else {
        fallisce();
        banco.Comando(u"mnuFileSalva"_s);
    }
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QVERIFY(stato().Modificato);
    // No gives the changes up, not what the file has lost.
    QVERIFY(QFile::remove(banco.percorso) && QDir().rmdir(ini));
    banco.dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::No)->click(); });
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(banco.dialoghi.verifica());
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 2 voci"_s));
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(Banco::Linee(banco.percorso).size(), 2);
    QVERIFY(banco.Copie().isEmpty());
}

void TestRecupero::fileIlleggibile()
{
    Interrotto banco;
    QVERIFY(QFile::remove(banco.percorso) && QDir().mkdir(banco.percorso));
    banco.dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click(); });
    banco.Apri(banco.percorso);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(banco.Parole(1).size(), 3);
    banco.dialoghi.file(banco.File(u"b.dic"_s));
    banco.Comando(u"mnuFileSalvaConNome"_s);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(Banco::Linee(banco.File(u"b.dic"_s)).size(), 3);
    QVERIFY(banco.Copie().isEmpty());
}

void TestRecupero::nuovoScrittoDaAltri()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString nuovo = banco.File(u"n.dic"_s);
    dialoghi.file(nuovo);
    banco.Comando(u"mnuFileNuovo"_s);
    Interrotto::Aggiungi(u"gatto"_s, u"cat"_s);
    ScriviInPosto(nuovo, QByteArray("x\0", 2));
    dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::No)->click(); });
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QCOMPARE(ByteDelFile(nuovo), QByteArray("x\0", 2));
}

void TestRecupero::serratureDiNessuno()
{
    // Made by a program that ended before it had said whose it is.
    Interrotto banco;
    const QString serratura = banco.cartella.filePath(u"stato/varbel/"_s + banco.Copie().first() + u".lock"_s);
    ScriviInPosto(serratura, QByteArray());
    QFile file(serratura);
    QVERIFY(file.open(QIODevice::ReadWrite) &&
            file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    file.close();
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 3 voci"_s));
    // A place that is free again hides no other program.
    auto primo = std::make_unique<Recupero>(banco.File(u"z.dic"_s));
    const Recupero secondo(banco.File(u"z.dic"_s));
    primo.reset();
    QVERIFY(Recupero(banco.File(u"z.dic"_s)).ApertoAltrove());
#ifdef Q_OS_LINUX
    // One that another program has taken meanwhile, in a folder made anew, is its own.
    Tabella tabella;
    Recupero mia(banco.File(u"y.dic"_s));
    const QString suo = mia.file();
    QVERIFY(QFile::remove(suo + u".lock"_s));
    QProcess vivo;
    vivo.start(u"sleep"_s, {u"1000"_s});
    QVERIFY(vivo.waitForStarted());
    const QString nome = u"/proc/%1/exe"_s.arg(vivo.processId());
    // Until it is the program that it is to be.
    QTRY_VERIFY(QFileInfo(nome).symLinkTarget() != QCoreApplication::applicationFilePath());
    const QStringList righe = {QString::number(vivo.processId()),
                               QFileInfo(QFileInfo(nome).symLinkTarget()).fileName(),
                               QSysInfo::machineHostName(),
                               QString(),
                               QString(),
                               QString()};
    ScriviInPosto(suo + u".lock"_s, righe.join(u'\n').toUtf8());
    ScriviInPosto(suo, QByteArray("sua"));
    mia.Scrivi({}, "mia", tabella, 0);
    QVERIFY(mia.file() != suo);
    QCOMPARE(ByteDelFile(suo), QByteArray("sua"));
    vivo.kill();
    vivo.waitForFinished();
#endif
}

void TestRecupero::altroPosto()
{
    // A copy taken from another place than its successor's does not outlive the save.
    Interrotto banco;
    const QDir cartella(banco.cartella.filePath(u"stato/varbel"_s));
    const QString copia = cartella.filePath(banco.Copie().first());
    QVERIFY(QFile::rename(copia, copia.chopped(5) + u"2.txt"_s));
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 3 voci"_s));
    QCOMPARE(banco.Copie(), QStringList(QFileInfo(copia).fileName()));
    // The way to a dictionary that has gone: its copy is found by the dictionary's name.
    banco.Avvia();
    QVERIFY(QFile::rename(copia, cartella.filePath(u"a.dic-0000000000000000-1.txt"_s)) &&
            QFile::remove(banco.percorso));
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 3 voci"_s));
}

void TestRecupero::sopraUnoApertoAltrove()
{
    Interrotto banco;
    banco.Chiedi(QMessageBox::No);
    const QString altrui = banco.Dizionario(u"b.dic"_s, {u"@uno@one@"_s});
    const Recupero altro(altrui);
    const auto domanda = [&](const QString &fine) {
        banco.dialoghi.casella(u"Attenzione!"_s,
                               u"Il dizionario "_s + altrui +
                                   u" è già aperto in un altro Varbel: ciò che si salva da una parte può andare perso "
                                   u"dall'altra.\n"_s +
                                   fine,
                               QMessageBox::Warning, QMessageBox::No);
    };
    const auto si = [](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click(); };
    const QByteArray prima = ByteDelFile(altrui);
    for (const auto &[comando, fine] : {std::pair(u"mnuFileSalvaConNome"_s, u"Salvare lo stesso?"_s),
                                        std::pair(u"mnuStrumentiInverti"_s, u"Sostituirlo lo stesso?"_s),
                                        std::pair(u"mnuStrumentiComponi"_s, u"Aprirlo lo stesso?"_s)}) {
        banco.dialoghi.file(altrui);
        if (comando != u"mnuStrumentiComponi"_s)
            banco.dialoghi.altro(si);
        domanda(fine);
        banco.Comando(comando);
        QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
        QCOMPARE(ByteDelFile(altrui), prima);
        QCOMPARE(stato().PercorsoDizionario, banco.percorso);
    }
    // Nor over one whose copy waits for an answer, whether its file is there or not.
    const QString atteso = banco.File(u"c.dic"_s);
    {
        Recupero morto(atteso);
        morto.Scrivi({}, ScriviIni({}), stato().Dizionario1, stato().LenDizionario1);
    }
    banco.dialoghi.file(atteso);
    banco.dialoghi.errore(u"Errore!"_s, u"Del dizionario "_s + atteso + u" è stata trovata una copia di recupero"_s);
    banco.Comando(u"mnuFileSalvaConNome"_s);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QVERIFY(!QFile::exists(atteso));
    QCOMPARE(banco.Copie().filter(u"c.dic"_s).size(), 1);
}

void TestRecupero::legame()
{
#ifdef Q_OS_UNIX
    Interrotto banco;
    const QString legame = banco.File(u"legame.dic"_s);
    QVERIFY(QFile::link(banco.percorso, legame));
    QFile::copy(banco.File(u"a.ini"_s), banco.File(u"legame.ini"_s));
    const QString vero = std::exchange(banco.percorso, legame);
    // The copy is the same one's, under the name that it was made for.
    banco.dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click(); });
    banco.Apri(legame);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(QFileInfo(legame).isSymbolicLink());
    QCOMPARE(Banco::Linee(vero).size(), 3);
#endif
}

void TestRecupero::spezzate()
{
    // A line with its old end in front, and a letter that the reader takes for the new one.
    Interrotto banco;
    banco.Chiedi(QMessageBox::No);
    Interrotto::Aggiungi(u"\rЊ"_s, u"nj"_s);
    banco.dialoghi.altro([](QDialog *dialogo) {
        QVERIFY(qobject_cast<QMessageBox *>(dialogo)->text().contains(u"spezzerà 1 voci"_s));
        dialogo->accept();
    });
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QVERIFY(!stato().Modificato);
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 3 voci"_s));
    QVERIFY(banco.Parole(1).contains(u"\rЊ"_s));
    // It stays until the user does not want it, whatever else is refused or closed.
    banco.dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::No)->click(); });
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(banco.Chiedi(QMessageBox::No).endsWith(u" voci."_s));
    QVERIFY(banco.Copie().isEmpty());
}

void TestRecupero::erroreCheTermina()
{
    // Only the memory still has the entries.
    Interrotto banco;
    banco.Chiedi(QMessageBox::No);
    QVERIFY(QFile::remove(banco.percorso));
    banco.dialoghi.altro([](QDialog *dialogo) { dialogo->accept(); });
    QCOMPARE(banco.Fine([] { Protetto(nullptr, [] { throw ErroreRuntime(53, {}, true); }); }), 1);
    QCOMPARE(banco.Copie().size(), 1);
    banco.Avvia();
    QVERIFY(banco.Chiedi(QMessageBox::Yes).startsWith(u"Copia: 2 voci"_s));
    // A close asks too.
    QVERIFY(QFile::remove(banco.percorso));
    stato().Modificato = false;
    banco.dialoghi.casella(u"Salvare?"_s, u"Il dizionario "_s + banco.percorso + u" è stato modificato. Salvare?"_s,
                           QMessageBox::Question, QMessageBox::Yes);
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(Banco::Linee(banco.percorso).size(), 2);
}

void TestRecupero::copiaDelSecondo()
{
    // What is composed has a copy before it is written; while one waits for an answer nothing is composed over it.
    Interrotto banco;
    banco.Chiedi(QMessageBox::No);
    const QString secondo = banco.Dizionario(u"b.dic"_s, {u"@uno@one@"_s});
    banco.dialoghi.file(secondo);
    banco.Comando(u"mnuStrumentiComponi"_s);
    banco.Trova<QPushButton>("ComponiForm1", "cmdAllto2")->click();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    Composizione::AggiornaCopia();
    const QStringList copie = banco.Copie().filter(u"b.dic"_s);
    QCOMPARE(copie.size(), 1);
    const QByteArray copia = ByteDelFile(banco.cartella.filePath(u"stato/varbel/"_s + copie.first()));
    banco.dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::No)->click(); });
    banco.ChiudiFiglie();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QVERIFY(banco.Copie().filter(u"b.dic"_s).isEmpty());

    ScriviInPosto(banco.cartella.filePath(u"stato/varbel/"_s + copie.first()), copia);
    banco.dialoghi.file(secondo);
    banco.dialoghi.errore(u"Errore!"_s, u"Impossibile leggere il dizionario "_s + secondo + u".\nNe è stata trovata"_s);
    banco.Comando(u"mnuStrumentiComponi"_s);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QVERIFY(!banco.Aperta("ComponiForm1"));
}

QTEST_MAIN(TestRecupero)
#include "tst_Recupero.moc"
