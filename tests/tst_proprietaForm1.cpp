// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Banco.h"
#include "Dialoghi.h"
#include "app/Servizi.h"
#include "settings/proprietaForm1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// A program with a dictionary of these settings open, and its properties.
struct BancoProprieta : Banco {
    explicit BancoProprieta(const ImpostazioniDizionario &impostazioni = {})
    {
        Apri(Dizionario(u"a.dic"_s, {u"@casa@house@"_s}, ScriviIni(impostazioni)));
        Comando(u"mnuFileProprieta"_s);
    }
    template <typename T = QPushButton>
    [[nodiscard]] T *Controllo(const char *nome) const
    {
        return Trova<T>("proprietaForm1", nome);
    }
    [[nodiscard]] QString Etichetta(const char *nome) const { return Controllo<QLabel>(nome)->text(); }
    [[nodiscard]] QLineEdit *Frequenza() const { return Controllo<QLineEdit>("txtFrequenza"); }
    void Ok() const { Controllo("cmdOk")->click(); }
};
} // namespace

class TestproprietaForm1 : public QObject
{
    Q_OBJECT

private slots:
    void cambiaESalva();
    void annulla();
    void frequenza_data();
    void frequenza();
    void tastiera_data();
    void tastiera();
    void dialogoDeiFont();
    void varbelIniStrani();
    void nuovo();
};

void TestproprietaForm1::cambiaESalva()
{
    ImpostazioniDizionario prima;
    prima.lingua1 = u"Klingon"_s;
    prima.lingua2 = u"Inglese"_s;
    prima.FontLingua1 = u"MS Sans Serif"_s;
    prima.Tastiera = u"0409"_s;
    prima.PercentualeErrori = 0.53F;
    BancoProprieta banco(prima);
    QCOMPARE(banco.Etichetta("lblTitolo"), u"Dizionario Klingon/Inglese"_s);
    QCOMPARE(banco.Etichetta("lblFile"), u'(' + banco.File(u"a.dic"_s) + u')');
    // A name that is not installed stays as it was stored.
    QCOMPARE(banco.Etichetta("lblLingua1"), u"MS Sans Serif"_s);
    QCOMPARE(banco.Frequenza()->text(), u"53"_s);
    QVERIFY(banco.Controllo<QCheckBox>("chkTastiera")->isChecked());
    QCOMPARE(banco.Controllo<QComboBox>("cboTastiera")->currentText(), u"Inglese"_s);
    auto *lingua1 = banco.Controllo<QComboBox>("cmbLingua1");
    auto *lingua2 = banco.Controllo<QComboBox>("cmbLingua2");
    QCOMPARE(lingua1->currentText(), u"Klingon"_s);
    QCOMPARE(lingua2->itemText(lingua2->currentIndex()), u"Inglese"_s);
    QCOMPARE(lingua1->count(), 28);
    QCOMPARE(lingua1->itemText(27), u"Ungherese"_s);
    QVERIFY(!stato().Modificato);

    // A line end would take a line of the companion file.
    lingua1->lineEdit()->selectAll();
    lingua1->lineEdit()->insert(u"Gre\nco"_s);
    emit lingua1->lineEdit()->textEdited(lingua1->currentText());
    lingua2->setCurrentText(u"Français"_s);
    banco.Controllo<QComboBox>("cboTastiera")->setCurrentIndex(1);
    banco.Frequenza()->setText(u"12,5"_s);
    Dialoghi dialoghi;
    dialoghi.font(QFont(u"DejaVu Serif"_s));
    banco.Controllo("cmdFontLingua2")->click();
    QVERIFY(dialoghi.verifica());
    banco.Azione(u"mnuFileSalva"_s)->setEnabled(false);
    banco.Ok();
    QVERIFY(!banco.Aperta("proprietaForm1"));
    QCOMPARE(banco.Testo(u"lbltitolo"_s), u"Dizionario Gre co/Français"_s);
    QCOMPARE(banco.Lista(2)->font().family(), u"DejaVu Serif"_s);
    QCOMPARE(banco.Parole(2), QStringList(u"house"_s));
    QVERIFY(stato().Modificato && banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    QCOMPARE(stato().impostazioni.PercentualeErrori, 0.125F);

    banco.Comando(u"mnuFileSalva"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    banco.Avvia();
    banco.Apri(banco.File(u"a.dic"_s));
    const ImpostazioniDizionario &dopo = stato().impostazioni;
    QCOMPARE(QStringList(
                 {dopo.lingua1, dopo.lingua2, dopo.FontLingua1, dopo.FontLingua2, dopo.FontCommento1, dopo.Tastiera}),
             QStringList({u"Gre co"_s, u"Français"_s, u"MS Sans Serif"_s, u"DejaVu Serif"_s, u"Arial"_s, u"040C"_s}));
    // The file holds whole percentages.
    QCOMPARE(dopo.PercentualeErrori, 0.12F);
}

void TestproprietaForm1::annulla()
{
    const BancoProprieta banco;
    stato().PercorsoDizionario = banco.File(u"a.b/c.dic"_s);
    const QString ini = stato().PercorsoIni;
    banco.Controllo<QComboBox>("cmbLingua1")->setCurrentText(u"Greco"_s);
    banco.Controllo("cmdAnnulla")->click();
    QVERIFY(!banco.Aperta("proprietaForm1"));
    QVERIFY(!stato().Modificato && stato().impostazioni.lingua1.isEmpty() && stato().PercorsoIni == ini);
    // Ok names the companion file as the next save will.
    banco.Comando(u"mnuFileProprieta"_s);
    banco.Ok();
    QCOMPARE(stato().PercorsoIni, banco.File(u"a.ini"_s));
}

void TestproprietaForm1::frequenza_data()
{
    QTest::addColumn<QString>("scritto");
    QTest::addColumn<QString>("passi");
    QTest::addColumn<QString>("mostrato");
    QTest::addColumn<double>("tenuto");
    QTest::newRow("troppo") << u"150"_s << QString() << u"90"_s << 0.9;
    QTest::newRow("lettere") << u"abc"_s << QString() << QString() << 0.0;
    QTest::newRow("infinito") << u"inf"_s << QString() << QString() << 0.0;
    QTest::newRow("vuoto e uno su") << QString() << u"+"_s << u"1"_s << 0.01;
    QTest::newRow("virgola") << u"12,5"_s << QString() << u"12,5"_s << 0.125;
    QTest::newRow("punto e due su") << u"12.5"_s << u"++"_s << u"14,5"_s << 0.145;
    QTest::newRow("fino al massimo") << u"89,5"_s << u"+"_s << u"90"_s << 0.9;
    QTest::newRow("fino al minimo") << u"0,5"_s << u"-"_s << u"0"_s << 0.0;
    QTest::newRow("negativo") << u"-5"_s << QString() << u"-5"_s << -0.05;
}

void TestproprietaForm1::frequenza()
{
    QFETCH(const QString, scritto);
    QFETCH(const QString, passi);
    QFETCH(const QString, mostrato);
    QFETCH(const double, tenuto);
    ImpostazioniDizionario impostazioni;
    impostazioni.PercentualeErrori = 1.5F;
    const BancoProprieta banco(impostazioni);
    QCOMPARE(banco.Frequenza()->text(), u"90"_s);
    banco.Frequenza()->setText(scritto);
    for (const QChar passo : passi)
        banco.Controllo(passo == u'+' ? "Command1" : "Command2")->click();
    QCOMPARE(banco.Frequenza()->text(), mostrato);
    banco.Ok();
    QCOMPARE(stato().impostazioni.PercentualeErrori, static_cast<float>(tenuto));
}

void TestproprietaForm1::tastiera_data()
{
    QTest::addColumn<QString>("prima");
    QTest::addColumn<int>("riga");
    QTest::addColumn<QString>("dopo");
    QTest::newRow("in tabella") << u"0408"_s << 3 << u"0408"_s;
    QTest::newRow("minuscole") << u"040c"_s << 1 << u"040C"_s;
    QTest::newRow("fuori tabella") << u"0410"_s << -1 << QString();
}

void TestproprietaForm1::tastiera()
{
    QFETCH(const QString, prima);
    QFETCH(const int, riga);
    QFETCH(const QString, dopo);
    ImpostazioniDizionario impostazioni;
    impostazioni.Tastiera = prima;
    const BancoProprieta banco(impostazioni);
    auto *chk = banco.Controllo<QCheckBox>("chkTastiera");
    auto *cbo = banco.Controllo<QComboBox>("cboTastiera");
    QCOMPARE(cbo->currentIndex(), riga);
    QCOMPARE(chk->isChecked(), riga >= 0);
    QCOMPARE(cbo->isEnabled(), riga >= 0);
    chk->click();
    QCOMPARE(cbo->isEnabled(), riga < 0);
    // Ticked without a row, where none was chosen: no code.
    if (riga >= 0)
        chk->click();
    banco.Ok();
    QCOMPARE(stato().impostazioni.Tastiera, dopo);
}

void TestproprietaForm1::dialogoDeiFont()
{
    Dialoghi dialoghi;
    const BancoProprieta banco;
    dialoghi.font({});
    banco.Controllo("cmdCommento1")->click();
    QVERIFY(dialoghi.verifica());
    QCOMPARE(banco.Etichetta("lblCommento1"), u"Arial"_s);
    QCOMPARE(servizi().dlgFile.font, QFont());

    dialoghi.font(QFont(u"DejaVu Sans"_s, 30, QFont::Bold, true));
    banco.Controllo("cmdCommento1")->click();
    QVERIFY(dialoghi.verifica());
    const auto *etichetta = banco.Controllo<QLabel>("lblCommento1");
    QCOMPARE(etichetta->text(), u"DejaVu Sans"_s);
    QVERIFY(etichetta->font().bold() && etichetta->font().italic());
    QCOMPARE(etichetta->font().pointSize(), 10);
    QCOMPARE(banco.Etichetta("lblCommento2"), u"Arial"_s);
}

void TestproprietaForm1::varbelIniStrani()
{
    Dialoghi dialoghi;
    BancoProprieta banco;
    const auto lingue = [&banco](const QByteArray &ini) {
        banco.Controllo("cmdAnnulla")->click();
        ScriviInPosto(banco.Ini(), ini);
        banco.Comando(u"mnuFileProprieta"_s);
        QStringList voci;
        const auto *cmb = banco.Controllo<QComboBox>("cmbLingua2");
        for (int i = 0; i < cmb->count(); ++i)
            voci += cmb->itemText(i);
        return voci;
    };
    QCOMPARE(lingue("[Recenti]\r\n\r\n[Font]\r\n10\r\n"), QStringList());
    QCOMPARE(lingue("[Lingue]\r\nGreco\r\n[Lingue]\r\nRusso"), QStringList({u"Greco"_s, u"Russo"_s}));
    QCOMPARE(lingue("Ceco\r\n[Lingue]\r\nGreco\r\n[Font]\r\n10\r\nRusso\r\n"), QStringList(u"Greco"_s));

    QVERIFY(QFile::remove(banco.Ini()));
    banco.Controllo("cmdAnnulla")->click();
    dialoghi.errore(u"Errore!"_s, u"Impossibile leggere "_s + banco.Ini());
    banco.Comando(u"mnuFileProprieta"_s);
    QVERIFY(dialoghi.verifica());
    QVERIFY(!banco.Aperta("proprietaForm1") && stato().NumFinestre == 0 && stato().DizionarioAperto);
    // A new dictionary is none the less there.
    dialoghi.errore(u"Errore!"_s, u"Impossibile aggiornare "_s + banco.Ini());
    banco.Comando(u"mnuFileChiudi"_s);
    dialoghi.file(banco.File(u"nuovo.dic"_s));
    dialoghi.errore(u"Errore!"_s, u"Impossibile leggere "_s + banco.Ini());
    banco.Comando(u"mnuFileNuovo"_s);
    QVERIFY(dialoghi.verifica());
    QVERIFY(stato().DizionarioAperto && banco.Visualizza());
    dialoghi.errore(u"Errore!"_s, u"Impossibile aggiornare "_s + banco.Ini());
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(dialoghi.verifica());
}

void TestproprietaForm1::nuovo()
{
    Dialoghi dialoghi;
    const Banco banco;
    dialoghi.file(banco.File(u"nuovo.dic"_s));
    banco.Comando(u"mnuFileNuovo"_s);
    QVERIFY(dialoghi.verifica());
    auto *area = banco.finestra->findChild<QMdiArea *>();
    QCOMPARE(area->currentSubWindow()->widget()->objectName(), u"proprietaForm1"_s);
    QCOMPARE(banco.Trova<QComboBox>("proprietaForm1", "cmbLingua1")->currentText(), u"lingua1"_s);
    banco.Trova<QPushButton>("proprietaForm1", "cmdOk")->click();
    QVERIFY(banco.Visualizza() && stato().Modificato);
    // The window goes with its dictionary.
    banco.Comando(u"mnuFileProprieta"_s);
    banco.Comando(u"mnuFileSalva"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(!banco.Aperta("proprietaForm1"));
}

QTEST_MAIN(TestproprietaForm1)
#include "tst_proprietaForm1.moc"
