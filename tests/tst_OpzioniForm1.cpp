// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The options and the about window, and how the settings' windows take the font size.
#include "Banco.h"
#include "Dialoghi.h"
#include "app/Servizi.h"
#include "settings/OpzioniForm1.h"
#include "settings/aboutForm1.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTreeView>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// A program with a dictionary open, and the options.
struct BancoOpzioni : Banco {
    explicit BancoOpzioni(const QString &directory = {})
    {
        servizi().dlgFile.cartella = directory.isEmpty() ? cartella.path() : directory;
        Apri(Dizionario(u"a.dic"_s, {u"@casa@house@"_s}));
        Comando(u"mnuStrumentiOpzioni"_s);
    }
    template <typename T>
    [[nodiscard]] T *Controllo(const char *nome) const
    {
        return Trova<T>("OpzioniForm1", nome);
    }
    void Premi(const char *nome) const { Controllo<QPushButton>(nome)->click(); }
    [[nodiscard]] QLineEdit *Dimensione() const { return Controllo<QLineEdit>("txtDimensione"); }
    [[nodiscard]] QCheckBox *Suono() const { return Controllo<QCheckBox>("chkBeep"); }
};
} // namespace

class TestOpzioniForm1 : public QObject
{
    Q_OBJECT

private slots:
    void cambiaEResta();
    void dimensione_data();
    void dimensione();
    void dimensioneFatale_data();
    void dimensioneFatale();
    void cartella();
    void dizionarioChiuso();
    void informazioni();
    void nienteTagliato_data();
    void nienteTagliato();
};

void TestOpzioniForm1::cambiaEResta()
{
    BancoOpzioni banco;
    QCOMPARE(banco.Dimensione()->text(), u"10"_s);
    QVERIFY(banco.Suono()->isChecked());
    QCOMPARE(banco.Suono()->text(), u"Segnala acusticamete gli errori"_s);
    banco.Dimensione()->setText(u"14"_s);
    banco.Suono()->setChecked(false);
    auto *albero = banco.Controllo<QTreeView>("DirLavoro");
    const QModelIndex programma = albero->currentIndex();
    QCOMPARE(programma.data().toString(), QFileInfo(banco.cartella.path()).fileName());
    albero->expand(programma);
    // The program's, and the one of the recovery copies.
    QTRY_COMPARE(albero->model()->rowCount(programma), 2);
    albero->setCurrentIndex(albero->model()->index(0, 0, programma));
    banco.Premi("cmdOk");
    QVERIFY(!banco.Aperta("OpzioniForm1"));
    for (int lingua : {1, 2})
        QCOMPARE(banco.Lista(lingua)->font().pointSize(), 14);
    QVERIFY(stato().Modificato && banco.Azione(u"mnuFileSalva"_s)->isEnabled());

    // The sound is the dictionary's, the rest the program's.
    banco.Comando(u"mnuFileSalva"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    QCOMPARE(stato().impostazioni.Beep, 1);
    banco.Avvia();
    QCOMPARE(stato().DimensioneFont, 14);
    QCOMPARE(servizi().dlgFile.cartella, banco.File(u"programma"_s));
    banco.Apri(banco.File(u"a.dic"_s));
    QCOMPARE(stato().impostazioni.Beep, 0);
    QCOMPARE(banco.Lista(1)->font().pointSize(), 14);

    // Closed without Ok, nothing is kept; Ok without a change does not modify the dictionary.
    banco.Comando(u"mnuStrumentiOpzioni"_s);
    QVERIFY(!banco.Suono()->isChecked());
    banco.Dimensione()->setText(u"20"_s);
    banco.Suono()->setChecked(true);
    banco.finestra->findChild<OpzioniForm1 *>()->Scarica();
    QCOMPARE(stato().DimensioneFont, 14);
    banco.Comando(u"mnuStrumentiOpzioni"_s);
    banco.Premi("cmdOk");
    QVERIFY(!stato().Modificato && stato().impostazioni.Beep == 0);
}

void TestOpzioniForm1::dimensione_data()
{
    QTest::addColumn<QString>("scritto");
    QTest::addColumn<QString>("passi");
    QTest::addColumn<QString>("mostrato");
    QTest::addColumn<double>("provato");
    QTest::addColumn<int>("tenuto");
    QTest::newRow("oltre il massimo") << u"20"_s << u"+"_s << u"20"_s << 20.0 << 20;
    QTest::newRow("sotto il minimo") << u"5"_s << u"-"_s << u"5"_s << 5.0 << 5;
    QTest::newRow("scritto non ha limiti") << u"40"_s << QString() << u"40"_s << 40.0 << 40;
    QTest::newRow("grande, uno giù") << u"40"_s << u"-"_s << u"39"_s << 39.0 << 39;
    QTest::newRow("virgola, al pari") << u"12,5"_s << QString() << u"12,5"_s << 12.5 << 12;
    QTest::newRow("punto, al pari") << u"13.5"_s << QString() << u"13.5"_s << 13.5 << 14;
    QTest::newRow("negativo") << u"-3"_s << QString() << u"-3"_s << 1.0 << -3;
    QTest::newRow("il più grande") << u"32767,4"_s << QString() << u"32767,4"_s << 200.0 << 32767;
    QTest::newRow("lettera, poi su") << u"x"_s << u"+"_s << u"1"_s << 1.0 << 1;
}

void TestOpzioniForm1::dimensione()
{
    QFETCH(const QString, scritto);
    QFETCH(const QString, passi);
    QFETCH(const QString, mostrato);
    QFETCH(const double, provato);
    QFETCH(const int, tenuto);
    const BancoOpzioni banco;
    banco.Dimensione()->setText(scritto);
    for (const QChar passo : passi)
        banco.Premi(passo == u'+' ? "Command1" : "Command2");
    QCOMPARE(banco.Dimensione()->text(), mostrato);
    QCOMPARE(banco.Controllo<QLabel>("lblFont")->font().pointSizeF(), provato);
    banco.Premi("cmdOk");
    QCOMPARE(stato().DimensioneFont, tenuto);
}

void TestOpzioniForm1::dimensioneFatale_data()
{
    QTest::addColumn<QString>("scritto");
    QTest::addColumn<QString>("errore");
    QTest::newRow("vuota") << u"dieci"_s << u"Errore di run-time '13': "_s;
    QTest::newRow("troppo grande") << u"32767,5"_s << u"Errore di run-time '6': "_s;
    QTest::newRow("troppo piccola") << u"-40000"_s << u"Errore di run-time '6': "_s;
}

void TestOpzioniForm1::dimensioneFatale()
{
    QFETCH(const QString, scritto);
    QFETCH(const QString, errore);
    Dialoghi dialoghi;
    const BancoOpzioni banco;
    banco.Dimensione()->setText(scritto);
    dialoghi.errore(u"Varbel"_s, errore);
    QCOMPARE(banco.Fine([&banco] { banco.Premi("cmdOk"); }), 1);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(stato().DimensioneFont, 10);
}

void TestOpzioniForm1::cartella()
{
    const QString sparita = u"/un posto/che non c'è"_s;
    const BancoOpzioni banco(sparita);
    auto *albero = banco.Controllo<QTreeView>("DirLavoro");
    QVERIFY(!albero->currentIndex().isValid());
    // Passing through by Tab chooses nothing.
    albero->setFocus(Qt::TabFocusReason);
    banco.Premi("cmdOk");
    QCOMPARE(servizi().dlgFile.cartella, sparita);
    banco.Comando(u"mnuStrumentiOpzioni"_s);
    albero = banco.Controllo<QTreeView>("DirLavoro");
    albero->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(albero->model()->rowCount() > 0);
    QTest::keyClick(albero, Qt::Key_Home);
    QTest::keyClick(albero, Qt::Key_Space);
    // Enter is the default button's, there too.
    QTest::keyClick(albero, Qt::Key_Return);
    QVERIFY(!banco.Aperta("OpzioniForm1"));
    QCOMPARE(servizi().dlgFile.cartella, QDir::rootPath());
}

void TestOpzioniForm1::dizionarioChiuso()
{
    const BancoOpzioni banco;
    banco.Suono()->setChecked(false);
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(!banco.Suono()->isEnabled());
    // The next dictionary's own sound is shown.
    banco.Apri(banco.Dizionario(u"b.dic"_s, {}));
    QVERIFY(banco.Suono()->isEnabled() && banco.Suono()->isChecked());
    banco.Comando(u"mnuFileChiudi"_s);
    banco.Dimensione()->setText(u"12"_s);
    banco.Premi("cmdOk");
    QVERIFY(!banco.Visualizza());
    QVERIFY(!stato().Modificato && !banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    QCOMPARE(stato().impostazioni.Beep, 1);
    QCOMPARE(stato().DimensioneFont, 12);
}

void TestOpzioniForm1::informazioni()
{
    const Banco banco;
    banco.Comando(u"mnuHelpAbout"_s);
    QVERIFY(banco.Trova<QLabel>("aboutForm1", "lblProgramma")->text().endsWith(u" " VARBEL_VERSION ""_s));
    QVERIFY(banco.Trova<QLabel>("aboutForm1", "lblDisclaimer")->text().contains(u"GPL-3.0-or-later"_s));
    QVERIFY(!banco.Trova<QLabel>("aboutForm1", "Image1")->pixmap().isNull());
    QCOMPARE(banco.Trova<QLineEdit>("aboutForm1", "txtCartella")->text(), banco.File(u"programma"_s));
    QCOMPARE(stato().NumFinestre, 1);
    QTest::keyClick(banco.finestra->findChild<aboutForm1 *>(), Qt::Key_Return);
    QCOMPARE(stato().NumFinestre, 0);
}

void TestOpzioniForm1::nienteTagliato_data()
{
    QTest::addColumn<int>("punti");
    for (int punti : {5, 10, 20})
        QTest::addRow("%d punti", punti) << punti;
}

void TestOpzioniForm1::nienteTagliato()
{
    QFETCH(const int, punti);
    const Banco banco;
    stato().DimensioneFont = punti;
    ImpostazioniDizionario impostazioni;
    impostazioni.FontCommento2 = u"Un font con un nome assai lungo"_s;
    banco.Apri(banco.Dizionario(u"a.dic"_s, {}, ScriviIni(impostazioni)));
    for (const QString &comando : {u"mnuFileProprieta"_s, u"mnuStrumentiOpzioni"_s, u"mnuHelpAbout"_s})
        banco.Comando(comando);
    for (const QString &nome : {u"proprietaForm1"_s, u"OpzioniForm1"_s, u"aboutForm1"_s}) {
        const auto *form = banco.finestra->findChild<QWidget *>(nome);
        QVERIFY(form->parentWidget()->width() < 1000 && form->parentWidget()->height() < 660);
        for (const QWidget *controllo : form->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            QVERIFY2(form->rect().contains(controllo->geometry()), qPrintable(controllo->objectName()));
            if (controllo->isVisibleTo(form))
                QCOMPARE(controllo->font().pointSize(), punti);
        }
        for (const QWidget *controllo : form->findChildren<QWidget *>()) {
            const auto *etichetta = qobject_cast<const QLabel *>(controllo);
            QSize serve = controllo->minimumSizeHint();
            if (etichetta && etichetta->wordWrap())
                serve = {0, etichetta->heightForWidth(controllo->width())};
            else if (controllo->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
                serve.setWidth(0);
            if (controllo->isVisible() && (etichetta || qobject_cast<const QAbstractButton *>(controllo)))
                QVERIFY2(controllo->size().expandedTo(serve) == controllo->size(),
                         qPrintable(nome + u' ' + controllo->objectName()));
        }
    }
}

QTEST_MAIN(TestOpzioniForm1)
#include "tst_OpzioniForm1.moc"
