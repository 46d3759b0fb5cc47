// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Banco.h"
#include "Dialoghi.h"
#include "edit/InserimentoForm1.h"
#include "exercise/EsercizioForm1.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// Row 0 is not asked.
const QStringList Quattro = {u"@albero@tree@"_s, u"c1@barca@boat@c2"_s, u"@cane@dog@"_s, u"@dado@die@"_s};
const QString FineRipasso = u"Ripasso completato. Ricominciare da capo?"_s;

// An exercise in a program of its own, with the mark pictures beside it.
struct Aula {
    explicit Aula(const QStringList &linee, ImpostazioniDizionario impostazioni = {})
    {
        for (const QString &segno : {u"Trffc10a.ico"_s, u"Intl_no.bmp"_s})
            QFile::copy(QStringLiteral(ASSETS "/") + segno, Segno(segno));
        impostazioni.lingua1 = u"Italiano"_s;
        impostazioni.lingua2 = u"Inglese"_s;
        banco.Apri(banco.Dizionario(u"a.dic"_s, linee, ScriviIni(impostazioni)));
        static_cast<void>(QTest::qWaitForWindowActive(banco.finestra.get()));
    }

    [[nodiscard]] QString Segno(const QString &nome) const { return banco.File(u"programma/"_s + nome); }
    [[nodiscard]] EsercizioForm1 *Form() const
    {
        return banco.finestra->findChild<EsercizioForm1 *>(u"EsercizioForm1"_s);
    }
    [[nodiscard]] QString Etichetta(const char *nome) const
    {
        return banco.Trova<QLabel>("EsercizioForm1", nome)->text();
    }
    [[nodiscard]] QLineEdit *Casella(const char *nome) const { return banco.Trova<QLineEdit>("EsercizioForm1", nome); }
    [[nodiscard]] QString Domanda() const { return Casella("txtLingua1")->text(); }
    [[nodiscard]] QString Pulsante() const { return banco.Trova<QPushButton>("EsercizioForm1", "cmdOK")->text(); }
    [[nodiscard]] QString SegnoDetto() const
    {
        return banco.Trova<QLabel>("EsercizioForm1", "picRisposta")->accessibleName();
    }

    // Types into the control that has the focus, and Enter.
    void Rispondi(const QString &risposta) const
    {
        Torna();
        QTest::keyClicks(QApplication::focusWidget(), risposta);
        Avanti();
    }
    void Avanti() const
    {
        Torna();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    // Offscreen no window becomes active by itself when a message box goes.
    void Torna() const
    {
        if (!QApplication::focusWidget())
            banco.finestra->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(banco.finestra.get()));
    }

    Banco banco;
};
} // namespace

class TestEsercizioForm1 : public QObject
{
    Q_OBJECT

private slots:
    void ripassoDaTastiera();
    void ripassoFinitoMentreSiApre();
    void sessioneConUnSeme();
    void unaFinestraSola();
    void lingueInvertite();
    void correggi();
    void segniMancantiORotti();
    void dizionarioSparito_data();
    void dizionarioSparito();
    void tastieraELettereRapide();
};

void TestEsercizioForm1::ripassoDaTastiera()
{
    Dialoghi dialoghi;
    const Aula aula(Quattro);
    aula.banco.Comando(u"mnuEserciziRipasso"_s);
    QCOMPARE(aula.Form()->windowTitle(), u"Esercizio sul dizionario Italiano/Inglese"_s);
    QCOMPARE(aula.banco.Azione(u"mnuFinestra(0)"_s)->text(), aula.Form()->windowTitle());
    QCOMPARE(aula.Form()->parentWidget()->size(), QSize(700, 400));
    QCOMPARE(aula.Domanda(), u"barca"_s);
    QCOMPARE(aula.Etichetta("lblCommento1"), u"c1"_s);
    QCOMPARE(aula.Etichetta("lblCommento2"), QString());
    QCOMPARE(QApplication::focusWidget(), aula.Casella("txtLingua2"));

    aula.Rispondi(u"boat"_s);
    QCOMPARE(aula.SegnoDetto(), u"Giusto"_s);
    QCOMPARE(aula.Etichetta("lblRiepilogo"), u"1 su 1"_s);
    QCOMPARE(aula.Etichetta("lblCommento2"), u"c2"_s);
    QCOMPARE(aula.Pulsante(), u"Nuova Domanda"_s);
    QVERIFY(!aula.banco.Trova<QLabel>("EsercizioForm1", "picRisposta")->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(aula.Casella("txtLingua2")->accessibleDescription(), u"Giusto: boat. c2 1 su 1"_s);
    QCOMPARE(aula.banco.Trova<QLabel>("EsercizioForm1", "lblRiepilogo")->accessibleName(),
             u"Giusto: boat. c2 1 su 1"_s);

    aula.Avanti();
    QCOMPARE(aula.Domanda(), u"cane"_s);
    QCOMPARE(aula.Etichetta("lblCommento1"), QString());
    QCOMPARE(aula.Casella("txtLingua2")->text(), QString());
    QCOMPARE(aula.Pulsante(), u"Ok"_s);
    QCOMPARE(aula.SegnoDetto(), u"Giusto"_s);
    aula.Rispondi(u"Dog"_s);
    QCOMPARE(aula.SegnoDetto(), u"Sbagliato"_s);
    QCOMPARE(aula.Casella("txtLingua2")->text(), u"dog"_s);
    QCOMPARE(aula.Etichetta("lblRiepilogo"), u"1 su 2"_s);
    QCOMPARE(stato().VociSbagliate[0], u"@cane@dog@\r"_s);
    aula.Avanti();
    aula.Rispondi(u"die"_s);

    // Yes begins again, No ends it and closes; another start goes on where the review stands.
    dialoghi.casella(u"Attenzione!"_s, FineRipasso, QMessageBox::Question, QMessageBox::Yes);
    aula.Avanti();
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QCOMPARE(aula.Domanda(), u"barca"_s);
    QCOMPARE(aula.Etichetta("lblRiepilogo"), u"2 su 3"_s);
    aula.Rispondi(u"x"_s);
    aula.Form()->Scarica();
    QVERIFY(!aula.Form());
    aula.banco.Comando(u"mnuEserciziRipasso"_s);
    QCOMPARE(aula.Domanda(), u"cane"_s);
    QCOMPARE(aula.Etichetta("lblRiepilogo"), QString());
    for (int risposte = 0; risposte < 3; ++risposte)
        aula.Avanti();
    dialoghi.casella(u"Attenzione!"_s, FineRipasso, QMessageBox::Question, QMessageBox::No);
    aula.Avanti();
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QVERIFY(!aula.Form());
    QCOMPARE(stato().NumFinestre, 0);
    QCOMPARE(Esercizio::stato().posizioneRipasso, 0);
}

void TestEsercizioForm1::ripassoFinitoMentreSiApre()
{
    Dialoghi dialoghi;
    const Aula aula({});
    for (int volte = 0; volte < 2; ++volte) {
        dialoghi.casella(u"Attenzione!"_s, FineRipasso, QMessageBox::Question, QMessageBox::No);
        aula.banco.Comando(u"mnuEserciziRipasso"_s);
        QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
        QVERIFY(!aula.Form());
        QCOMPARE(stato().NumFinestre, 0);
        QVERIFY(!aula.banco.Azione(u"mnuFinestra(0)"_s)->isVisible());
    }
    // At random an empty dictionary asks nothing in particular.
    aula.banco.Comando(u"mnuEserciziCasuale"_s);
    QCOMPARE(aula.Domanda(), QString());
    aula.Avanti();
    QCOMPARE(aula.Etichetta("lblRiepilogo"), u"1 su 1"_s);
    QCOMPARE(aula.Etichetta("lblCommento2"), u"@"_s);
}

void TestEsercizioForm1::sessioneConUnSeme()
{
    ImpostazioniDizionario impostazioni;
    impostazioni.PercentualeErrori = 0.5F;
    const Aula aula(Quattro, impostazioni);
    const auto gioca = [&aula](quint32 seme) {
        Module1::stato().LenSbagliate = 0;
        Esercizio::stato() = {};
        Esercizio::stato().OrdineCasuale = true;
        auto form = std::make_unique<EsercizioForm1>(seme, aula.banco.finestra.get());
        form->show();
        QStringList sessione;
        for (int domanda = 0; domanda < 12; ++domanda) {
            sessione += form->findChild<QLineEdit *>(u"txtLingua1"_s)->text();
            // Right on every third.
            if (domanda % 3 == 0)
                form->findChild<QLineEdit *>(u"txtLingua2"_s)->setText(Esercizio::stato().rispostaAttesa);
            form->findChild<QPushButton *>(u"cmdOK"_s)->click();
            form->findChild<QPushButton *>(u"cmdOK"_s)->click();
        }
        sessione += form->findChild<QLabel *>(u"lblRiepilogo"_s)->text();
        for (qint32 i = 0; i < stato().LenSbagliate; ++i)
            sessione += stato().VociSbagliate[static_cast<std::size_t>(i)] +
                        QString::number(stato().ConteggiSbagliate[static_cast<std::size_t>(i)]);
        return sessione;
    };
    const QStringList prima = gioca(2026);
    QCOMPARE(gioca(2026), prima);
    QVERIFY(gioca(2027) != prima);
    // Worked out apart from the program, from the generator's definition and the drawing rule.
    QCOMPARE(prima, QStringList({u"dado"_s, u"barca"_s, u"cane"_s, u"dado"_s, u"dado"_s, u"barca"_s, u"barca"_s,
                                 u"dado"_s, u"dado"_s, u"dado"_s, u"dado"_s, u"barca"_s, u"4 su 12"_s,
                                 u"c1@barca@boat@c2\r4"_s, u"@cane@dog@\r3"_s, u"@dado@die@\r5"_s}));
}

void TestEsercizioForm1::unaFinestraSola()
{
    const Aula aula(Quattro);
    aula.banco.Comando(u"mnuEserciziCasuale"_s);
    EsercizioForm1 *form = aula.Form();
    aula.Rispondi(u"x"_s);
    aula.banco.Lista(1)->setFocus();
    aula.banco.Comando(u"mnuEserciziRipasso"_s);
    QCOMPARE(aula.Form(), form);
    QCOMPARE(QApplication::focusWidget(), aula.Casella("txtLingua2"));
    QCOMPARE(aula.Etichetta("lblRiepilogo").right(4), u"su 1"_s);
    aula.Avanti();
    QCOMPARE(aula.Domanda(), u"barca"_s);

    // Loaded anew after a random exercise, the first question is still a random one: rows 1 to 3 are drawn.
    aula.Form()->Scarica();
    Esercizio::stato().OrdineCasuale = true;
    Esercizio::stato().posizioneRipasso = 0;
    aula.banco.Comando(u"mnuEserciziRipasso"_s);
    QVERIFY(Esercizio::stato().voce > 0);
    QCOMPARE(Esercizio::stato().posizioneRipasso, 0);
    aula.Rispondi(u"x"_s);
    aula.Avanti();
    QCOMPARE(aula.Domanda(), u"barca"_s);
}

void TestEsercizioForm1::lingueInvertite()
{
    ImpostazioniDizionario impostazioni;
    impostazioni.FontLingua1 = u"DejaVu Sans"_s;
    impostazioni.FontLingua2 = u"DejaVu Serif"_s;
    impostazioni.FontCommento1 = u"Carattere che manca"_s;
    const Aula aula(Quattro, impostazioni);
    aula.banco.Comando(u"mnuEserciziRipasso"_s);
    QCOMPARE(aula.Casella("txtLingua2")->font().family(), u"DejaVu Serif"_s);
    QAction *inverti = aula.banco.Azione(u"mnuEserciziInverti"_s);
    inverti->trigger();
    QVERIFY(inverti->isChecked());
    QCOMPARE(aula.Domanda(), u"barca"_s);
    aula.Rispondi(u"boat"_s);
    QCOMPARE(aula.Etichetta("lblRiepilogo"), u"1 su 1"_s);
    aula.Avanti();
    QCOMPARE(aula.Domanda(), u"dog"_s);
    QCOMPARE(aula.Etichetta("lbllingua1"), u"Inglese"_s);
    QCOMPARE(aula.Etichetta("lbllingua2"), u"Italiano"_s);
    QCOMPARE(aula.Casella("txtLingua1")->font().family(), u"DejaVu Serif"_s);
    QCOMPARE(aula.Casella("txtLingua1")->font().pointSize(), stato().DimensioneFont);
    QCOMPARE(aula.Casella("txtLingua2")->font().family(), u"DejaVu Sans"_s);
    QCOMPARE(aula.Casella("txtLingua2")->font().pointSize(), stato().DimensioneFont + 4);
    QCOMPARE(aula.banco.Trova<QLabel>("EsercizioForm1", "lblCommento2")->font().family(), u"Carattere che manca"_s);
    aula.Rispondi(u"cane"_s);
    QCOMPARE(aula.SegnoDetto(), u"Giusto"_s);
    inverti->trigger();
    QVERIFY(!inverti->isChecked());
    aula.Avanti();
    QCOMPARE(aula.Domanda(), u"dado"_s);
}

void TestEsercizioForm1::correggi()
{
    const Aula aula(Quattro);
    const auto premi = [&aula] { aula.banco.Trova<QPushButton>("EsercizioForm1", "cmdModifica")->click(); };
    const auto lingua1 = [&aula] { return aula.banco.Trova<QLineEdit>("InserimentoForm1", "txtLingua1")->text(); };
    // In a review no entry has been drawn: row 0.
    aula.banco.Comando(u"mnuEserciziRipasso"_s);
    premi();
    QCOMPARE(lingua1(), u"albero"_s);
    QCOMPARE(aula.banco.finestra->findChild<InserimentoForm1 *>(u"InserimentoForm1"_s)->windowTitle(),
             u"Modifica Parola"_s);
    aula.Form()->Scarica();
    aula.banco.Comando(u"mnuEserciziCasuale"_s);
    while (Esercizio::stato().voce != 2) {
        aula.Avanti();
        QVERIFY(aula.Form());
    }
    premi();
    QCOMPARE(lingua1(), u"cane"_s);
    QCOMPARE(stato().VoceCorrente, 2);
    aula.banco.Trova<QLineEdit>("InserimentoForm1", "txtLingua2")->setText(u"hound"_s);
    aula.banco.Trova<QPushButton>("InserimentoForm1", "cmdOk")->click();
    QCOMPARE(stato().Dizionario1.righe[2][1], u"hound"_s);
    // No entry any more: nothing opens.
    stato().Dizionario1.righe[2] = {};
    premi();
    QVERIFY(!aula.banco.Aperta("InserimentoForm1"));
}

void TestEsercizioForm1::segniMancantiORotti()
{
    Dialoghi dialoghi;
    const Aula aula(Quattro);
    aula.banco.Comando(u"mnuEserciziRipasso"_s);
    QVERIFY(QFile::resize(aula.Segno(u"Intl_no.bmp"_s), 20));
    dialoghi.errore(u"Errore!"_s, u"Impossibile leggere l'immagine "_s + aula.Segno(u"Intl_no.bmp"_s));
    aula.Rispondi(u"x"_s);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QCOMPARE(aula.Etichetta("picRisposta"), u"Sbagliato"_s);
    QCOMPARE(aula.Etichetta("lblRiepilogo"), u"0 su 1"_s);
    aula.Avanti();
    aula.Rispondi(u"x"_s);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QCOMPARE(aula.Etichetta("lblRiepilogo"), u"0 su 2"_s);

    QVERIFY(QFile::remove(aula.Segno(u"Trffc10a.ico"_s)));
    aula.Avanti();
    dialoghi.errore(u"Varbel"_s, u"Errore di run-time '53': "_s);
    QCOMPARE(aula.banco.Fine([&aula] { aula.Rispondi(u"die"_s); }), 1);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
}

void TestEsercizioForm1::dizionarioSparito_data()
{
    QTest::addColumn<bool>("giaAperta");
    QTest::newRow("tra due domande") << true;
    QTest::newRow("alla prima") << false;
}

void TestEsercizioForm1::dizionarioSparito()
{
    QFETCH(bool, giaAperta);
    Dialoghi dialoghi;
    const Aula aula(Quattro);
    if (giaAperta) {
        aula.banco.Comando(u"mnuEserciziCasuale"_s);
        aula.Rispondi(u"x"_s);
    }
    QVERIFY(QFile::remove(aula.banco.File(u"a.dic"_s)));
    dialoghi.errore(u"Varbel"_s, u"Errore di run-time '53': "_s);
    const auto prossima = [&] { giaAperta ? aula.Avanti() : aula.banco.Comando(u"mnuEserciziCasuale"_s); };
    QCOMPARE(aula.banco.Fine(prossima), 1);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    // A window whose first question fails is none.
    QCOMPARE(aula.Form() != nullptr, giaAperta);
    QCOMPARE(stato().NumFinestre, giaAperta ? 1 : 0);
}

void TestEsercizioForm1::tastieraELettereRapide()
{
    ImpostazioniDizionario impostazioni;
    impostazioni.Tastiera = u"0408"_s;
    impostazioni.TastiRapidi[0] = {0xE9, 'E', 0, 1};
    impostazioni.NumTastiRapidi = 1;
    Aula aula(Quattro, impostazioni);
    const auto chieste = [&aula] { return std::exchange(aula.banco.tastiere, {}); };
    aula.banco.Comando(u"mnuEserciziRipasso"_s);
    QCOMPARE(chieste(), QStringList(u"00000408"_s));
    aula.Casella("txtLingua1")->setFocus();
    aula.Casella("txtLingua2")->setFocus();
    QCOMPARE(chieste(), QStringList({u"00000410"_s, u"00000408"_s}));
    aula.banco.Comando(u"mnuEserciziInverti"_s);
    aula.Casella("txtLingua1")->setFocus();
    aula.Casella("txtLingua2")->setFocus();
    QCOMPARE(chieste(), QStringList({u"00000410"_s, u"00000410"_s}));
    for (const char *nome : {"txtLingua1", "txtLingua2"}) {
        aula.Casella(nome)->setFocus();
        aula.Casella(nome)->setText(u"x"_s);
        Banco::Batti(Qt::Key_E, Qt::ControlModifier, u"\u0005"_s, 26);
        QCOMPARE(aula.Casella(nome)->text(), u"xé"_s);
    }
    chieste();
    stato().impostazioni.Tastiera.clear();
    aula.Casella("txtLingua1")->setFocus();
    aula.Casella("txtLingua2")->setFocus();
    QCOMPARE(chieste(), QStringList(u"00000410"_s));
    // Back in the window from another one of ours, the answer is typed at once.
    aula.Casella("txtLingua1")->setFocus();
    aula.banco.Comando(u"mnuModificaAggiungi"_s);
    chieste();
    aula.banco.Comando(u"mnuFinestra(0)"_s);
    QCOMPARE(QApplication::focusWidget(), aula.Casella("txtLingua2"));
    aula.banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(!aula.Form());
    QVERIFY(!chieste().contains(u"00000408"_s));
}

QTEST_MAIN(TestEsercizioForm1)
#include "tst_EsercizioForm1.moc"
