// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Banco.h"
#include "Dialoghi.h"
#include "app/Protezione.h"
#include "app/Servizi.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
const QStringList Quattro = {u"@casa@house@"_s, u"@albero@tree@"_s, u"@Cane@dog@bau"_s, u"c1@barca@boat@"_s};
} // namespace

class TestVisualizzaForm1 : public QObject
{
    Q_OBJECT

private slots:
    void mostraIlDizionarioOrdinato();
    void clicETastieraTengonoLaStessaRiga();
    void dopoUnaRigaSceltaIlMouseNonLaToglie();
    void tastieraDaSubito();
    void lettereCercano();
    void apreLaVoce();
    void menuContestuale();
    void eliminaConOgniRisposta();
    void eliminaFinoAllUltima();
    void eliminaSenzaScelta_data();
    void eliminaSenzaScelta();
    void aggiunteETabellaColma();
    void parolePienePerLeListe();
    void lunghezzaSmisurata();
    void fontDelleDueLingue();
};

void TestVisualizzaForm1::mostraIlDizionarioOrdinato()
{
    ImpostazioniDizionario impostazioni;
    impostazioni.lingua1 = u"Italiano"_s;
    impostazioni.lingua2 = u"<b>&Inglese"_s;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a & b.dic"_s, Quattro, ScriviIni(impostazioni));
    banco.Apri(percorso);

    QCOMPARE(banco.Parole(1), QStringList({u"albero"_s, u"barca"_s, u"Cane"_s, u"casa"_s}));
    QCOMPARE(banco.Parole(2), QStringList({u"tree"_s, u"boat"_s, u"dog"_s, u"house"_s}));
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 1 di 3"_s);
    QCOMPARE(banco.Testo(u"lbltitolo"_s), u"Dizionario Italiano/<b>&Inglese"_s);
    QCOMPARE(banco.Testo(u"lblFile"_s), u'(' + percorso + u')');
    QCOMPARE(banco.Testo(u"lblLingua2"_s), u"<b>&Inglese"_s);
    QCOMPARE(banco.Visualizza()->windowTitle(), u"Dizionario"_s);
    QCOMPARE(banco.Lista(2)->accessibleName(), u"<b>&Inglese"_s);
    QCOMPARE(stato().LenDizionario1, 4);
    QCOMPARE(stato().Dizionario1.righe[1][2], u"c1@barca@boat@\r"_s);
    QVERIFY(!stato().Modificato);
}

void TestVisualizzaForm1::clicETastieraTengonoLaStessaRiga()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Quattro));
    QVERIFY(QTest::qWaitForWindowExposed(banco.finestra.get()));
    const auto clic = [&banco](int lingua, int riga) {
        ListaParole *lista = banco.Lista(lingua);
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualRect(lista->model()->index(riga, 0)).center());
    };
    clic(1, 1);
    QCOMPARE(banco.Lista(2)->ListIndex(), 1);
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 2 di 4"_s);
    QCOMPARE(stato().VoceCorrente, 0);

    clic(2, 3);
    QCOMPARE(banco.Lista(1)->ListIndex(), 3);
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 4 di 4"_s);
    QCOMPARE(stato().VoceCorrente, 3);

    // The same row again, in the other list, is a click too.
    clic(1, 2);
    QCOMPARE(stato().VoceCorrente, 3);
    clic(2, 2);
    QCOMPARE(stato().VoceCorrente, 2);

    QTest::keyClick(banco.Lista(2), Qt::Key_Home);
    QCOMPARE(banco.Lista(1)->ListIndex(), 0);
    QTest::keyClick(banco.Lista(1), Qt::Key_End);
    QTest::keyClick(banco.Lista(1), Qt::Key_Up);
    QCOMPARE(banco.Lista(2)->ListIndex(), 2);
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 3 di 4"_s);
}

void TestVisualizzaForm1::dopoUnaRigaSceltaIlMouseNonLaToglie()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Quattro));
    QVERIFY(QTest::qWaitForWindowExposed(banco.finestra.get()));
    ListaParole *lista = banco.Lista(1);
    lista->setCurrentIndex(lista->model()->index(2, 0));
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lista->viewport()->rect().bottomLeft() - QPoint(-5, 5));
    QCOMPARE(lista->ListIndex(), 2);
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      lista->visualRect(lista->currentIndex()).center());
    QCOMPARE(lista->ListIndex(), 2);
}

void TestVisualizzaForm1::tastieraDaSubito()
{
    Dialoghi dialoghi;
    const Banco banco;
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    const auto fuoco = [] { return qobject_cast<ListaParole *>(QApplication::focusWidget()); };
    // The keyboard is in the list at once, whichever way the dictionary came, and its first row can be chosen.
    banco.Apri(banco.Dizionario(u"una.dic"_s, {u"@sola@only@"_s}));
    QCOMPARE(fuoco(), banco.Lista(1));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(banco.Lista(2)->ListIndex(), 0);
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 1 di 1"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    banco.Comando(u"mnuFileRecente(0)"_s);
    QCOMPARE(fuoco(), banco.Lista(1));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S);
    QCOMPARE(banco.Lista(1)->ListIndex(), 0);
    banco.Comando(u"mnuFileChiudi"_s);

    QStringList linee;
    for (int i = 0; i < 300; ++i)
        linee += u"@w%1@p%1@"_s.arg(i, 3, 10, QChar(u'0'));
    banco.Apri(banco.Dizionario(u"molte.dic"_s, linee));
    ListaParole *lista = banco.Lista(1);
    QTest::keyClick(lista, Qt::Key_Tab);
    QCOMPARE(fuoco(), banco.Lista(2));
    QTest::keyClick(banco.Lista(2), Qt::Key_Home);
    QCOMPARE(lista->ListIndex(), 0);
    // After a delete the next arrow starts where the list stands; Delete again asks nothing.
    lista->setCurrentIndex(lista->model()->index(150, 0));
    dialoghi.casella(u"Attenzione!"_s, u"Cancellare la voce : w150 = p150?"_s, QMessageBox::Question, QMessageBox::Yes);
    QTest::keyClick(lista, Qt::Key_Delete);
    QTest::keyClick(lista, Qt::Key_Delete);
    QVERIFY(dialoghi.verifica());
    lista->setFocus();
    QTest::keyClick(lista, Qt::Key_Down);
    QVERIFY(lista->ListIndex() > 100);

    // Enter on a button is that button's.
    auto *elimina = banco.Visualizza()->findChild<QPushButton *>(u"cmdElimina"_s);
    elimina->setFocus();
    const QString parola = lista->currentIndex().data().toString();
    dialoghi.casella(u"Attenzione!"_s, u"Cancellare la voce : "_s + parola + u" = p"_s + parola.sliced(1) + u'?',
                     QMessageBox::Question, QMessageBox::No);
    QTest::keyClick(elimina, Qt::Key_Return);
    QVERIFY(dialoghi.verifica());
}

void TestVisualizzaForm1::lettereCercano()
{
    QStringList linee;
    for (int i = 0; i < 200; ++i)
        linee += u"@w%1@p%1@"_s.arg(i, 3, 10, QChar(u'0'));
    linee += u"@Éa@zz@"_s;
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, linee));
    ListaParole *lista = banco.Lista(1);
    lista->setFocus();
    for (const auto tasto : {Qt::Key_W, Qt::Key_1, Qt::Key_2})
        QTest::keyClick(lista, tasto);
    QCOMPARE(lista->ListIndex(), 120);
    QCOMPARE(banco.Lista(2)->ListIndex(), 120);
    QCOMPARE(banco.Lista(2)->verticalScrollBar()->value(), lista->verticalScrollBar()->value());
    // An empty search ends the one under way, as a pause does.
    lista->keyboardSearch(QString());
    QTest::sendKeyEvent(QTest::Click, lista, Qt::Key_unknown, u"é"_s, {});
    QCOMPARE(lista->ListIndex(), 200);
}

void TestVisualizzaForm1::apreLaVoce()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Quattro));
    QSignalSpy modifica(banco.Visualizza(), &VisualizzaForm1::modificaVoce);
    banco.Premi(u"cmdApri"_s);
    QCOMPARE(modifica.size(), 0);

    ListaParole *lista = banco.Lista(2);
    lista->setCurrentIndex(lista->model()->index(2, 0));
    stato().VoceCorrente = 0;
    banco.Premi(u"cmdApri"_s);
    QCOMPARE(stato().VoceCorrente, 2);
    QTest::keyClick(lista, Qt::Key_Return);
    const QPoint dove = lista->visualRect(lista->model()->index(1, 0)).center();
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, dove);
    QTest::mouseDClick(lista->viewport(), Qt::LeftButton, {}, dove);
    QCOMPARE(modifica.size(), 3);
    QCOMPARE(modifica.at(1).at(0).toInt(), 2);
    QCOMPARE(modifica.at(2).at(0).toInt(), 1);
}

void TestVisualizzaForm1::menuContestuale()
{
    Dialoghi dialoghi;
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Quattro));
    ListaParole *lista = banco.Lista(2);
    const auto apri = [lista] {
        const QPoint punto(5, lista->viewport()->height() - 2);
        QContextMenuEvent evento(QContextMenuEvent::Mouse, punto, lista->viewport()->mapToGlobal(punto));
        QApplication::sendEvent(lista->viewport(), &evento);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    };
    const auto testi = [](const QMenu *menu, bool soloAttive) {
        QStringList questi;
        for (const QAction *voce : menu->actions()) {
            if (voce->isEnabled() || !soloAttive)
                questi += voce->text();
        }
        return questi;
    };
    QMenu *menu = apri();
    QVERIFY(menu);
    QCOMPARE(testi(menu, false), QStringList({u"Apri"_s, u"Elimina Voce"_s, u"Aggiungi Voce"_s, u"Ordina"_s}));
    QCOMPARE(testi(menu, true), QStringList({u"Aggiungi Voce"_s, u"Ordina"_s}));
    menu->close();

    lista->ImpostaListIndex(1);
    lista->clic();
    menu = apri();
    QCOMPARE(testi(menu, true).size(), 4);
    dialoghi.casella(u"Attenzione!"_s, u"Cancellare la voce : barca = boat?"_s, QMessageBox::Question,
                     QMessageBox::Yes);
    menu->actions().at(1)->trigger();
    menu->close();
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QCOMPARE(banco.Parole(2), QStringList({u"tree"_s, u"dog"_s, u"house"_s}));
}

void TestVisualizzaForm1::eliminaConOgniRisposta()
{
    Dialoghi dialoghi;
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Quattro));
    ListaParole *lista = banco.Lista(1);
    lista->setCurrentIndex(lista->model()->index(1, 0));
    const QString domanda = u"Cancellare la voce : barca = boat?"_s;

    dialoghi.casella(u"Attenzione!"_s, domanda, QMessageBox::Question, QMessageBox::No);
    banco.Premi(u"cmdElimina"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(banco.Parole(1).size(), 4);
    QVERIFY(!stato().Modificato);

    banco.Azione(u"mnuFileSalva"_s)->setEnabled(false);
    dialoghi.casella(u"Attenzione!"_s, domanda, QMessageBox::Question, QMessageBox::Yes);
    QTest::keyClick(lista, Qt::Key_Delete);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(banco.Parole(1), QStringList({u"albero"_s, u"Cane"_s, u"casa"_s}));
    QCOMPARE(banco.Parole(2), QStringList({u"tree"_s, u"dog"_s, u"house"_s}));
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 1 di 2"_s);
    QCOMPARE(lista->ListIndex(), -1);
    QVERIFY(stato().Modificato);
    QVERIFY(banco.Azione(u"mnuFileSalva"_s)->isEnabled());

    lista->setCurrentIndex(lista->model()->index(1, 0));
    dialoghi.casella(u"Attenzione!"_s, u"Cancellare la voce : Cane = dog?"_s, QMessageBox::Question, QMessageBox::No);
    banco.Comando(u"mnuModificaElimina"_s);
    QVERIFY(dialoghi.verifica());
}

void TestVisualizzaForm1::eliminaFinoAllUltima()
{
    Dialoghi dialoghi;
    const Banco banco;
    // Without a final line end the table has no free row after the entries.
    const QString percorso = banco.Dizionario(u"a.dic"_s, Quattro);
    ScriviInPosto(percorso, LeggiTutto(percorso).chopped(4));
    banco.Apri(percorso);
    QCOMPARE(stato().LenDizionario1, 3);
    QStringList restanti = banco.Parole(1);
    QCOMPARE(restanti.size(), 4);
    while (!restanti.isEmpty()) {
        const auto quale = restanti.size() / 2;
        ListaParole *lista = banco.Lista(1);
        lista->setCurrentIndex(lista->model()->index(static_cast<int>(quale), 0));
        dialoghi.casella(u"Attenzione!"_s,
                         u"Cancellare la voce : "_s + restanti[quale] + u" = "_s + banco.Parole(2)[quale] + u'?',
                         QMessageBox::Question, QMessageBox::Yes);
        banco.Premi(u"cmdElimina"_s);
        QVERIFY(dialoghi.verifica());
        restanti.removeAt(quale);
        QStringList ora = banco.Parole(1);
        ora.sort(Qt::CaseInsensitive);
        QStringList attese = restanti;
        attese.sort(Qt::CaseInsensitive);
        QCOMPARE(ora, attese);
        restanti = banco.Parole(1);
        QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 1 di %1"_s.arg(qMax<qsizetype>(0, restanti.size() - 1)));
    }
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(QFileInfo(percorso).size(), 0);
}

void TestVisualizzaForm1::eliminaSenzaScelta_data()
{
    QTest::addColumn<QStringList>("linee");
    QTest::newRow("nessuna riga scelta") << Quattro;
    QTest::newRow("dizionario vuoto") << QStringList();
}

void TestVisualizzaForm1::eliminaSenzaScelta()
{
    QFETCH(const QStringList, linee);
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, linee);
    banco.Apri(percorso);
    const QString domanda = u"Cancellare la voce :  = ?"_s;
    dialoghi.casella(u"Attenzione!"_s, domanda, QMessageBox::Question, QMessageBox::No);
    banco.Premi(u"cmdElimina"_s);
    QVERIFY(!ProgrammaTerminato());

    const QByteArray prima = LeggiTutto(percorso);
    dialoghi.casella(u"Attenzione!"_s, domanda, QMessageBox::Question, QMessageBox::Yes);
    dialoghi.casella(u"Varbel"_s, u"Errore di run-time '9': Indice non compreso nell'intervallo"_s,
                     QMessageBox::Critical);
    // The error ends the event loop with exit code 1.
    QCOMPARE(banco.Fine([&banco] { banco.Premi(u"cmdElimina"_s); }), 1);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(LeggiTutto(percorso), prima);
}

void TestVisualizzaForm1::aggiunteETabellaColma()
{
    const Banco banco;
    QStringList linee;
    for (int i = 0; i < 999; ++i)
        linee += u"@w%1@p%1@"_s.arg(i, 4, 10, QChar(u'0'));
    banco.Apri(banco.Dizionario(u"a.dic"_s, linee));
    Module1::Stato &s = stato();
    QCOMPARE(Capacita(s.Dizionario1), 1000);
    QCOMPARE(s.LenDizionario1, 999);
    // An entry typed in: written one above the last row, the index then two above it.
    RigaDi(s.Dizionario1, s.LenDizionario1 + 1) = RigaDaLinea(u"@a@b@"_s);
    s.LenDizionario1 += 2;
    Ridimensiona(s.Dizionario1, s.LenDizionario1);
    banco.Visualizza()->RiempiListe();
    QCOMPARE(banco.Parole(1).size(), 1000);
    QCOMPARE(banco.Parole(1).constLast(), u"a"_s);
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 1 di 999"_s);
    QCOMPARE(s.LenDizionario1, 1001);
}

void TestVisualizzaForm1::parolePienePerLeListe()
{
    const Banco banco;
    // A zero unit ends a line: what follows it here are two holes, not listed, and a line of a CR alone, an entry.
    banco.Apri(banco.Dizionario(u"a.dic"_s, {u"@uno@one@"_s + QString(3, QChar(0)), u"senza"_s}));
    QCOMPARE(banco.Parole(1), QStringList({u""_s, u""_s, u"uno"_s}));
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 1 di 2"_s);
}

void TestVisualizzaForm1::lunghezzaSmisurata()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString enorme(5'000'000, u'x');
    banco.Apri(banco.Dizionario(u"a.dic"_s, {u"@a@b@"_s, u'@' + enorme + u"@\x0001\n\t@"_s}));
    QVERIFY(QTest::qWaitForWindowExposed(banco.finestra.get()));
    QVERIFY(!banco.finestra->grab().isNull());
    QCOMPARE(banco.Parole(1).constLast(), enorme);
    ListaParole *lista = banco.Lista(1);
    lista->setCurrentIndex(lista->model()->index(1, 0));
    dialoghi.casella(u"Attenzione!"_s, u"Cancellare la voce : "_s + enorme.left(500) + u"… = \x0001\n\t?"_s,
                     QMessageBox::Question, QMessageBox::No);
    banco.Premi(u"cmdElimina"_s);
    QVERIFY(dialoghi.verifica());
}

void TestVisualizzaForm1::fontDelleDueLingue()
{
    ImpostazioniDizionario impostazioni;
    impostazioni.FontLingua1 = u"DejaVu Serif"_s;
    impostazioni.FontLingua2 = u"Un font che non esiste"_s;
    const Banco banco;
    stato().DimensioneFont = 18;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Quattro, ScriviIni(impostazioni)));
    QCOMPARE(banco.Lista(1)->font().family(), u"DejaVu Serif"_s);
    QCOMPARE(banco.Lista(2)->font().family(), u"Un font che non esiste"_s);
    QCOMPARE(banco.Lista(1)->font().pointSize(), 18);
    QCOMPARE(banco.Lista(2)->font().pointSize(), 18);
    QCOMPARE(banco.Visualizza()->findChild<QPushButton *>(u"cmdApri"_s)->font().pointSize(), 18);
    // The two words of an entry stand on one line whatever their fonts.
    QCOMPARE(banco.Lista(1)->rowHeight(0), banco.Lista(2)->rowHeight(0));
    QVERIFY(banco.Lista(1)->rowHeight(0) >= banco.Lista(1)->fontMetrics().height());
}

QTEST_MAIN(TestVisualizzaForm1)
#include "tst_VisualizzaForm1.moc"
