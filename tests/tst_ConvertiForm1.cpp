// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The tools that add to the open dictionary or write it anew: conversion, merge, inversion.
#include "Banco.h"
#include "Dialoghi.h"
#include "Errori.h"
#include "app/Servizi.h"
#include "tools/ConvertiForm1.h"
#include "tools/OutPutForm.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QMdiArea>
#include <QMdiSubWindow>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
const QStringList Due = {u"@cane@dog@"_s, u"@casa@house@"_s};
const QString TuttiIFile = u"*.* (tutti i file) (*)"_s;

// A program with a dictionary open, and the conversion window on a text.
struct Convertitore : Banco {
    explicit Convertitore(const QByteArray &testo)
    {
        Apri(Dizionario(u"a.dic"_s, Due));
        ScriviInPosto(File(u"testo.txt"_s), testo);
        ApriTesto();
    }

    void ApriTesto()
    {
        dialoghi.file(File(u"testo.txt"_s), TuttiIFile);
        Comando(u"mnuStrumentiConversioni"_s);
    }

    [[nodiscard]] QLineEdit *Casella(const char *nome) const { return Trova<QLineEdit>("ConvertiForm1", nome); }

    void Campi(const QString &separatore, const QString &lingua1, const QString &lingua2, const QString &commento1 = {})
    {
        Casella("txtSeparatore(0)")->setText(separatore);
        Casella("txtSeparatore(1)")->setText(commento1.isEmpty() ? QString() : separatore);
        Casella("txtLingua1")->setText(lingua1);
        Casella("txtLingua2")->setText(lingua2);
        Casella("txtCommento1")->setText(commento1);
    }

    void Ok() const { Trova<QPushButton>("ConvertiForm1", "cmdOk")->click(); }

    Dialoghi dialoghi;
};
} // namespace

class TestConvertiForm1 : public QObject
{
    Q_OBJECT

private slots:
    void converteEdElenca();
    void anteprima();
    void rifiutiEErrori();
    void fileIlleggibili();
    void senzaDizionario();
    void interrotta();
    void unisce();
    void inverte();
};

void TestConvertiForm1::converteEdElenca()
{
    Convertitore banco("albero;tree;pianta\nsenza separatori\n\nbarca ; boat;\n");
    QCOMPARE(servizi().dlgFile.filtro, u"*.dic (dizionari)|*.dic"_s);
    QCOMPARE(banco.Casella("txtRigaEsempio")->text(), u"albero;tree;pianta"_s);
    stato().Modificato = false;
    banco.Campi(u";"_s, u"1"_s, u"2"_s, u"3"_s);
    banco.Trova<QCheckBox>("ConvertiForm1", "chkTrim")->setChecked(true);
    banco.Ok();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(banco.Parole(1), QStringList({u"cane"_s, u"casa"_s, u"albero"_s}));
    QCOMPARE(stato().Dizionario1.righe[2][2], u"pianta@albero@tree@"_s);
    QVERIFY(stato().Modificato);
    QVERIFY(!banco.Aperta("ConvertiForm1"));
    const auto *uscita = banco.finestra->findChild<OutPutForm *>(u"OutPutForm"_s);
    QVERIFY(uscita && uscita->isVisible());
    QCOMPARE(banco.Azione(u"mnuFinestra(0)"_s)->text(), u"OutPut di Conversione"_s);
    QTRY_VERIFY(banco.Azione(u"mnuFinestra(0)"_s)->isChecked());
    const QAbstractItemModel *lista = banco.Trova<QListView>("OutPutForm", "lstOutput")->model();
    QCOMPARE(lista->rowCount(), 2);
    QCOMPARE(lista->index(0, 0).data(), u"Riga 2: senza separatori"_s);
    QCOMPARE(lista->index(1, 0).data(), u"Riga 4: barca ; boat;"_s);

    // The next conversion's list takes its place, also an empty one.
    ScriviInPosto(banco.File(u"testo.txt"_s), "a,b");
    banco.ApriTesto();
    banco.Campi(u","_s, u"2"_s, u"1"_s);
    banco.Ok();
    QCOMPARE(banco.Trova<QListView>("OutPutForm", "lstOutput")->model()->rowCount(), 0);
    QCOMPARE(banco.Parole(1).last(), u"b"_s);
    QCOMPARE(stato().NumFinestre, 1);
    banco.Trova<QPushButton>("OutPutForm", "cmdOk")->click();
    QCOMPARE(stato().NumFinestre, 0);
}

void TestConvertiForm1::anteprima()
{
    Convertitore banco("a;b;c\n");
    const auto testo = [&banco] { return banco.Trova<QLabel>("ConvertiForm1", "lblAnteprima")->text(); };
    QVERIFY(testo().startsWith(u"Bisogna specificare"_s));
    banco.Campi(u";"_s, u"2"_s, u"3"_s, u"1"_s);
    QCOMPARE(testo(), u"Lingua 1: «b»   Lingua 2: «c»   Commento 1: «a»   Commento 2: «»"_s);
    banco.Casella("txtSeparatore(1)")->setText(u"|"_s);
    QVERIFY(testo().startsWith(u"La riga di esempio non si può dividere"_s));
    banco.Campi(u";"_s, u"0"_s, u"1"_s);
    QVERIFY(testo().startsWith(u"Non c'è un segmento"_s));
    banco.Campi(u";"_s, u"1"_s, u"2"_s);
    banco.Casella("txtRigaEsempio")->setText(u"x;y"_s);
    QVERIFY(testo().startsWith(u"Lingua 1: «x»   Lingua 2: «y»"_s));
}

void TestConvertiForm1::rifiutiEErrori()
{
    Convertitore banco("a;b\nc;d\n");
    banco.dialoghi.casella(u"Attenzione"_s, u"Bisogna specificare almeno un separatore (= 2 campi)!"_s,
                           QMessageBox::Critical);
    banco.Ok();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    // Five segments are taken for given until a conversion has counted them; then there are two.
    banco.Campi(u";"_s, u"0"_s, u"5"_s);
    const QString errore = u"Si è verificato un errore nella conversione."_s;
    banco.dialoghi.casella(u"Errore"_s, errore, QMessageBox::Critical);
    banco.Ok();
    banco.Campi(u";"_s, u"1"_s, u"5"_s);
    banco.dialoghi.casella(u"Attenzione!"_s,
                           u"Il numero dei campi e quello dei separatori di campo non corrispondono!"_s,
                           QMessageBox::Critical);
    banco.Ok();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(stato().NumFinestre, 1);
    QCOMPARE(banco.Parole(1).size(), 2);

    // The file goes while the window is open: nothing is lost, the window stays.
    QVERIFY(QFile::remove(banco.File(u"testo.txt"_s)));
    banco.Campi(u";"_s, u"1"_s, u"2"_s);
    banco.dialoghi.casella(u"Errore"_s, errore, QMessageBox::Critical);
    banco.Ok();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QVERIFY(banco.Aperta("ConvertiForm1"));
    QVERIFY(!banco.Aperta("OutPutForm"));
    QVERIFY(!stato().Modificato);

    // A line longer than any text after a good one: what was appended stays, shown and marked.
    ScriviInPosto(banco.File(u"testo.txt"_s), "x;y\n" + QByteArray(0x2000000, 'x'));
    banco.dialoghi.casella(u"Errore"_s, errore, QMessageBox::Critical);
    banco.Ok();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(banco.Parole(1).last(), u"x"_s);
    QVERIFY(stato().Modificato && banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    QVERIFY(!banco.Aperta("OutPutForm"));
    const QMdiSubWindow *davanti = banco.finestra->findChild<QMdiArea *>()->activeSubWindow();
    QVERIFY(davanti && qobject_cast<ConvertiForm1 *>(davanti->widget()));
    QVERIFY(banco.Azione(u"mnuFinestra(0)"_s)->isChecked());
}

void TestConvertiForm1::fileIlleggibili()
{
    Convertitore banco("a;b");
    banco.finestra->findChild<ConvertiForm1 *>(u"ConvertiForm1"_s)->Scarica();
    // Cancelled: nothing, the filter is the dictionaries' again.
    banco.dialoghi.file(QString(), TuttiIFile);
    banco.Comando(u"mnuStrumentiConversioni"_s);
    QVERIFY(!banco.Aperta("ConvertiForm1"));
    // An empty one has an empty sample and gives nothing.
    ScriviInPosto(banco.File(u"testo.txt"_s), QByteArray());
    banco.ApriTesto();
    QCOMPARE(banco.Casella("txtRigaEsempio")->text(), QString());
    banco.Campi(u";"_s, u"1"_s, u"2"_s);
    banco.Ok();
    QCOMPARE(banco.Parole(1).size(), 2);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
#ifdef Q_OS_UNIX
    const SenzaPrivilegi utente;
    QFile::setPermissions(banco.File(u"testo.txt"_s), QFile::Permissions());
    banco.dialoghi.errore(u"Errore!"_s, u"Impossibile leggere "_s + banco.File(u"testo.txt"_s));
    banco.ApriTesto();
    QVERIFY(!banco.Aperta("ConvertiForm1"));
    QFile::setPermissions(banco.File(u"testo.txt"_s), Leggere | Scrivere);
#endif
}

void TestConvertiForm1::senzaDizionario()
{
    Convertitore banco("a;b");
    banco.Campi(u";"_s, u"1"_s, u"2"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    banco.dialoghi.casella(u"Attenzione!"_s, u"Nessun dizionario è aperto!"_s, QMessageBox::Critical);
    banco.Ok();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QVERIFY(!banco.Visualizza());
    QCOMPARE(stato().Dizionario1.righe[0][2], QString());
}

void TestConvertiForm1::interrotta()
{
    Convertitore banco(QByteArray("a;b\n").repeated(4000000));
    banco.Campi(u";"_s, u"1"_s, u"2"_s);
    bool chiusa = true;
    banco.dialoghi.altro([&](QDialog *attesa) {
        // No other command begins meanwhile, whoever asks for it.
        banco.Comando(u"mnuModificaOrdina1"_s);
        chiusa = banco.finestra->close();
        attesa->findChild<QPushButton *>()->click();
    });
    QString detto;
    banco.dialoghi.altro([&detto](QDialog *box) {
        detto = qobject_cast<QMessageBox *>(box)->text();
        box->accept();
    });
    banco.Ok();
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QVERIFY(!chiusa);
    const qint32 voci = stato().LenDizionario1;
    QVERIFY(voci > 2 && voci < 4000000);
    QCOMPARE(detto, u"Conversione interrotta. Voci aggiunte: %1."_s.arg(voci - 2));
    QCOMPARE(stato().Dizionario1.righe[static_cast<std::size_t>(voci) - 1][2], u"@a@b@"_s);
    QVERIFY(stato().Modificato);
    QVERIFY(!banco.Aperta("ConvertiForm1"));
    QTRY_VERIFY(banco.Azione(u"mnuFinestra(0)"_s)->isChecked());
    QCOMPARE(banco.Azione(u"mnuFinestra(0)"_s)->text(), u"OutPut di Conversione"_s);
}

void TestConvertiForm1::unisce()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString altro = banco.Dizionario(u"b.dic"_s, {u"@ape@bee@c"_s, u"@casa@house@"_s});
    const QString mio = banco.Dizionario(u"a.dic"_s, Due);
    banco.Apri(mio);
    stato().Modificato = false;
    const auto unisci = [&](const QString &file) {
        dialoghi.file(file);
        banco.Comando(u"mnuStrumentiUnisci"_s);
        return dialoghi.verifica();
    };
    QVERIFY(unisci(QString()));
    QVERIFY(FaiFile(banco.File(u"vuoto.dic"_s), {}));
    QVERIFY(unisci(banco.File(u"vuoto.dic"_s)));
    QVERIFY(FaiFile(banco.File(u"zeri.dic"_s), QByteArray(1 << 20, '\0')));
    dialoghi.file(banco.File(u"zeri.dic"_s));
    dialoghi.errore(u"Errore!"_s, u"Impossibile leggere "_s + banco.File(u"zeri.dic"_s));
    banco.Comando(u"mnuStrumentiUnisci"_s);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QVERIFY(!stato().Modificato);
    QVERIFY(unisci(altro));
    QVERIFY(stato().Modificato);
    QCOMPARE(banco.Parole(1), QStringList({u"cane"_s, u"casa"_s, u"ape"_s, u"casa"_s}));
    QCOMPARE(stato().LenDizionario1, 5);
    // With itself: what its file holds once more.
    QVERIFY(unisci(mio));
    QCOMPARE(banco.Parole(1).size(), 6);
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(Banco::Linee(mio).value(2), u"@ape@bee@c\r"_s);
    QCOMPARE(Banco::Linee(mio).size(), 6);
}

void TestConvertiForm1::inverte()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString mio = banco.Dizionario(u"a.dic"_s, {u"c1@cane@dog@c2"_s, u"@casa@house@"_s});
    banco.Apri(mio);
    stato().Modificato = false;
    const auto inverti = [&](const QString &file) {
        dialoghi.file(file);
        banco.Comando(u"mnuStrumentiInverti"_s);
        return dialoghi.verifica();
    };
    QVERIFY(inverti(mio));
    QCOMPARE(banco.Parole(1), QStringList({u"dog"_s, u"house"_s}));
    QVERIFY(stato().Modificato);
    QVERIFY(inverti(mio));
    QCOMPARE(stato().Dizionario1.righe[0][2], u"c1@cane@dog@c2\r"_s);

    const QString nuovo = banco.File(u"nuovo.dic"_s);
    const QString completato = u"Salvataggio completato di "_s + nuovo;
    dialoghi.file(nuovo);
    dialoghi.casella(u"Salvataggio"_s, completato, QMessageBox::Information);
    banco.Comando(u"mnuStrumentiInverti"_s);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QCOMPARE(Banco::Linee(nuovo), QStringList({u"c2\r@dog@cane@c1"_s, u"\r@house@casa@"_s, u"@@@"_s}));
    QCOMPARE(ByteDelFile(banco.File(u"nuovo.ini"_s)), ByteDelFile(stato().PercorsoIni));
    // An existing one only after a question, a settings file never, and a failure is told.
    dialoghi.file(nuovo);
    dialoghi.casella(u"Inverti Dizionario"_s, u"Il file "_s + nuovo + u" esiste già. Sostituirlo?"_s,
                     QMessageBox::Warning, QMessageBox::No);
    banco.Comando(u"mnuStrumentiInverti"_s);
    dialoghi.file(stato().PercorsoIni);
    dialoghi.errore(u"Errore!"_s, u"Il nome "_s + stato().PercorsoIni);
    banco.Comando(u"mnuStrumentiInverti"_s);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QVERIFY(QFile::exists(stato().PercorsoIni));
#ifdef Q_OS_UNIX
    const CartellaProva prova;
    prova.Chiudi();
    // The other user could not read it.
    QVERIFY(QFile::remove(stato().PercorsoIni));
    const SenzaPrivilegi utente;
    dialoghi.file(prova.chiusa + u"/x.dic"_s);
    dialoghi.errore(u"Errore!"_s, u"Impossibile scrivere "_s + prova.chiusa);
    banco.Comando(u"mnuStrumentiInverti"_s);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
#endif
}

QTEST_MAIN(TestConvertiForm1)
#include "tst_ConvertiForm1.moc"
