// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Banco.h"
#include "Dialoghi.h"
#include "edit/InserimentoForm1.h"
#include "edit/Voci.h"
#include "input/GestoreTasti.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMdiSubWindow>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
const QStringList Tre = {u"@cane@dog@"_s, u"c1@casa@house@c2"_s, u"@gatto@cat@"_s};
constexpr auto Form = "InserimentoForm1";

QByteArray IniGreco()
{
    ImpostazioniDizionario impostazioni;
    impostazioni.lingua1 = u"Italiano"_s;
    impostazioni.lingua2 = u"Greco & <b>"_s;
    impostazioni.Tastiera = u"0408"_s;
    return ScriviIni(impostazioni);
}

const QString ErroreTastiera = u"Errore nel cambio della tastiera. Prova a settarla manualmente. La lingua "
                               u"corrispondente potrebbe non essere installata in Windows."_s;
} // namespace

class TestInserimentoForm1 : public QObject
{
    Q_OBJECT

private slots:
    void aggiungeVoceDopoVoce();
    void tabellaCresce();
    void modificaDallaLista();
    void modificaDopoCheLaTabellaECambiata();
    void aCapoDiventaSpazio();
    void tastiRapidi_data();
    void tastiRapidi();
    void tastiRapidiNellaFinestra();
    void appunti();
    void tastieraDelCampo();
    void chiusaConIlDizionario();

private:
    static QLineEdit *Casella(const Banco &banco, const char *nome) { return banco.Trova<QLineEdit>(Form, nome); }
};

void TestInserimentoForm1::aggiungeVoceDopoVoce()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre, IniGreco()));
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    stato().Modificato = false;
    banco.Azione(u"mnuFileSalva"_s)->setEnabled(false);
    banco.Comando(u"mnuModificaAggiungi"_s);
    auto *form = banco.finestra->findChild<InserimentoForm1 *>(u"InserimentoForm1"_s);
    QCOMPARE(form->windowTitle(), u"Aggiungi Parole"_s);
    QCOMPARE(banco.Azione(u"mnuFinestra(0)"_s)->text(), u"Aggiungi Parole"_s);
    QCOMPARE(form->findChild<QLabel *>(u"lbllingua2"_s)->text(), u"Greco && <b>"_s);
    QCOMPARE(Casella(banco, "txtLingua2")->font().pointSize(), stato().DimensioneFont + 4);
    const QWidget *cornice = form->parentWidget();
    QCOMPARE(cornice->height(), qMax(433, cornice->minimumSizeHint().height()));
    QCOMPARE(cornice->width(), banco.finestra->width() - cornice->x() - 53);

    // Keyboard alone, in reading order.
    const qint32 prima = stato().LenDizionario1;
    for (const char *testo : {"ape", "insetto", "bee", "insect"}) {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(testo));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(QApplication::focusWidget()->objectName(), u"cmdOk"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(stato().LenDizionario1, prima + 2);
    QCOMPARE(stato().Dizionario1.righe[3], (RigaTabella{u"ape"_s, u"bee"_s, u"insetto@ape@bee@insect"_s}));
    QVERIFY(stato().Modificato);
    QVERIFY(banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    QCOMPARE(banco.Parole(2), QStringList({u"dog"_s, u"house"_s, u"cat"_s, u"bee"_s}));
    QCOMPARE(QApplication::focusWidget(), Casella(banco, "txtLingua1"));
    for (const QLineEdit *casella : form->findChildren<QLineEdit *>())
        QVERIFY(casella->text().isEmpty());

    // As it is, without a check; Enter in a box is Ok, a key held down adds once.
    QTest::keyClicks(QApplication::focusWidget(), u" a@b "_s);
    QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, true);
    QApplication::sendEvent(QApplication::focusWidget(), &tenuto);
    QCOMPARE(stato().LenDizionario1, prima + 2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(stato().LenDizionario1, prima + 6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(Banco::Linee(banco.File(u"a.dic"_s)).mid(3),
             QStringList({u"insetto@ape@bee@insect"_s, u"@ a@b @@"_s, u"@@@"_s}));

    banco.Trova<QPushButton>(Form, "cmdAnnulla")->click();
    QVERIFY(!banco.Aperta(Form));
    QVERIFY(!banco.Azione(u"mnuFinestra(0)"_s)->isVisible());
}

void TestInserimentoForm1::tabellaCresce()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre));
    for (qint32 libere : {2, 1, 0}) {
        stato().LenDizionario1 = Capacita(stato().Dizionario1) - libere;
        const qint32 prima = stato().LenDizionario1;
        AggiungiVoce({u"w"_s, u"p"_s, u"@w@p@"_s});
        QCOMPARE(stato().LenDizionario1, prima + 2);
        QCOMPARE(stato().Dizionario1.righe[static_cast<std::size_t>(prima) + 1][0], u"w"_s);
        QVERIFY(Capacita(stato().Dizionario1) >= prima + 2);
    }
}

void TestInserimentoForm1::modificaDallaLista()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre, IniGreco()));
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    banco.Lista(1)->setFocus();
    QTest::keyClick(banco.Lista(1), Qt::Key_Down);
    QTest::keyClick(banco.Lista(1), Qt::Key_Down);
    QTest::keyClick(banco.Lista(1), Qt::Key_Return);
    auto *form = banco.finestra->findChild<InserimentoForm1 *>(u"InserimentoForm1"_s);
    QCOMPARE(form->windowTitle(), u"Modifica Parola"_s);
    QCOMPARE(banco.Azione(u"mnuFinestra(0)"_s)->text(), u"Modifica Parola"_s);
    QCOMPARE(Casella(banco, "txtCommento1")->text(), u"c1"_s);
    QCOMPARE(Casella(banco, "txtLingua1")->text(), u"casa"_s);
    QCOMPARE(Casella(banco, "txtLingua2")->text(), u"house"_s);
    QCOMPARE(Casella(banco, "txtCommento2")->text(), u"c2"_s);
    Casella(banco, "txtLingua2")->setText(u"home"_s);
    QTest::keyClick(Casella(banco, "txtLingua2"), Qt::Key_Return);
    QVERIFY(!banco.Aperta(Form));
    QCOMPARE(stato().LenDizionario1, 3);
    QCOMPARE(stato().Dizionario1.righe[1], (RigaTabella{u"casa"_s, u"home"_s, u"c1@casa@home@c2\r"_s}));
    QCOMPARE(banco.Parole(2), QStringList({u"dog"_s, u"home"_s, u"cat"_s}));
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(Banco::Linee(banco.File(u"a.dic"_s)).value(1), u"c1@casa@home@c2\r"_s);

    // The same window goes from one mode to the other, its caption with it.
    banco.Comando(u"mnuModificaAggiungi"_s);
    banco.Lista(1)->setCurrentIndex(banco.Lista(1)->model()->index(1, 0));
    banco.Premi(u"cmdApri"_s);
    form = banco.finestra->findChild<InserimentoForm1 *>(u"InserimentoForm1"_s);
    QCOMPARE(form->windowTitle(), u"Modifica Parola"_s);
    banco.Comando(u"mnuModificaAggiungi"_s);
    QCOMPARE(form->windowTitle(), u"Aggiungi Parole"_s);
    QCOMPARE(stato().NumFinestre, 1);
    banco.Trova<QPushButton>(Form, "cmdOk")->click();
    QCOMPARE(banco.Parole(1).last(), u"casa"_s);
    QCOMPARE(stato().Dizionario1.righe[3][2], u"c1@casa@home@c2"_s);
}

void TestInserimentoForm1::modificaDopoCheLaTabellaECambiata()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, {u"@b@1@"_s, u"@a@2@"_s, u"@c@0@"_s}));
    const auto apri = [&banco](int riga) {
        banco.Lista(1)->setCurrentIndex(banco.Lista(1)->model()->index(riga, 0));
        banco.Premi(u"cmdApri"_s);
    };
    // The entry is where the sort has put it.
    apri(0);
    banco.Comando(u"mnuModificaOrdina2"_s);
    Casella(banco, "txtLingua1")->setText(u"A"_s);
    banco.Trova<QPushButton>(Form, "cmdOk")->click();
    QCOMPARE(banco.Parole(1), QStringList({u"c"_s, u"b"_s, u"A"_s}));
    QCOMPARE(stato().LenDizionario1, 3);

    // One deleted meanwhile comes back rather than be written over another.
    apri(1);
    EliminaVoce(1);
    Casella(banco, "txtLingua1")->setText(u"B"_s);
    banco.Trova<QPushButton>(Form, "cmdOk")->click();
    QStringList parole = banco.Parole(1);
    parole.sort();
    QCOMPARE(parole, QStringList({u"A"_s, u"B"_s, u"c"_s}));
}

void TestInserimentoForm1::aCapoDiventaSpazio()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre));
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    banco.Comando(u"mnuModificaAggiungi"_s);
    for (const char *nome : {"txtLingua1", "txtCommento1", "txtLingua2", "txtCommento2"}) {
        QLineEdit *casella = Casella(banco, nome);
        casella->setFocus();
        casella->setText(u"xy"_s);
        casella->setCursorPosition(1);
        QApplication::clipboard()->setText(u"a\r\nb\n\nc\rd\u2028@"_s + QChar(0) + u'e');
        QTest::keyClick(casella, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(casella->text(), u"xa b  c d\u2028@ ey"_s);
        QCOMPARE(casella->cursorPosition(), casella->text().size() - 1);
        casella->undo();
        QCOMPARE(casella->text(), u"xy"_s);
        casella->redo();
        QCOMPARE(casella->text(), u"xa b  c d\u2028@ ey"_s);
        QInputMethodEvent composto;
        composto.setCommitString(u"1\n2"_s);
        QApplication::sendEvent(casella, &composto);
        QCOMPARE(casella->text(), u"xa b  c d\u2028@ e1 2y"_s);
    }
    const QString lunga(100000, u'à');
    QApplication::clipboard()->setText(lunga);
    Casella(banco, "txtLingua1")->clear();
    Casella(banco, "txtLingua1")->paste();
    banco.Trova<QPushButton>(Form, "cmdOk")->click();
    QCOMPARE(stato().Dizionario1.righe[3][0], lunga);
}

void TestInserimentoForm1::tastiRapidi_data()
{
    QTest::addColumn<QString>("casella");
    QTest::addColumn<int>("tasto");
    QTest::addColumn<Qt::KeyboardModifiers>("tasti");
    QTest::addColumn<QString>("digita");
    QTest::addColumn<quint32>("scansione");
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("punto");
    const auto riga = [](const char *nome, const char *casella, int tasto, Qt::KeyboardModifiers tasti,
                         const QString &digita, quint32 scansione, const QString &testo, int punto) {
        QTest::newRow(nome) << QString::fromLatin1(casella) << tasto << tasti << digita << scansione << testo << punto;
    };
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
    // "abcd" with "bc" selected; the caret counts from the selection's start.
    riga("solo il tasto: il selezionato è già scritto sopra", "txtLingua1", Qt::Key_E, {}, u"e"_s, 26, u"aeéd"_s, 3);
    riga("Shift: al posto di quel che ha scritto", "txtLingua1", Qt::Key_E, shift, u"E"_s, 26, u"aÉd"_s, 3);
    riga("Ctrl: non scrive e non cancella", "txtLingua2", Qt::Key_U, ctrl, u"\u0015"_s, 30, u"aùbcd"_s, 2);
    riga("Ctrl e Shift", "txtLingua1", Qt::Key_U, ctrl | shift, u"\u0015"_s, 30, u"aÙbcd"_s, 2);
    riga("con Alt nessuno", "txtLingua1", Qt::Key_U, ctrl | Qt::AltModifier, u"@"_s, 30, u"a@d"_s, 2);
    riga("Ctrl senza tasto rapido", "txtLingua1", Qt::Key_K, ctrl, u"\u000b"_s, 45, u"abcd"_s, 3);
    riga("Ctrl+W non chiude", "txtLingua2", Qt::Key_W, ctrl, u"\u0017"_s, 25, u"abcd"_s, 3);
    riga("tasto greco al suo posto", "txtLingua2", 0x03b5, {}, u"ε"_s, 26, u"aεéd"_s, 3);
    riga("commento 2: solo al rilascio", "txtCommento2", Qt::Key_E, {}, u"e"_s, 26, u"aeéd"_s, 3);
    riga("commento 1: nessuno", "txtCommento1", Qt::Key_E, {}, u"e"_s, 26, u"aed"_s, 2);
    riga("commento 2: Ctrl non cancella", "txtCommento2", Qt::Key_U, ctrl, u"\u0015"_s, 30, u"aùbcd"_s, 2);
    riga("commento 1: Ctrl non cancella", "txtCommento1", Qt::Key_U, ctrl, u"\u0015"_s, 30, u"abcd"_s, 3);
    riga("due righe uguali", "txtLingua1", Qt::Key_D, ctrl, u"\u0004"_s, 40, u"a21bcd"_s, 2);
    riga("fuori dai caratteri", "txtLingua1", Qt::Key_O, ctrl, u"\u000f"_s, 32, u"abcd"_s, 3);
}

void TestInserimentoForm1::tastiRapidi()
{
    QFETCH(QString, casella);
    QFETCH(int, tasto);
    QFETCH(Qt::KeyboardModifiers, tasti);
    QFETCH(QString, digita);
    QFETCH(quint32, scansione);
    QFETCH(QString, testo);
    QFETCH(int, punto);
    ImpostazioniDizionario impostazioni;
    const std::initializer_list<TastoRapido> righe = {{0xE9, 'E', 0, 0}, {0xC9, 'E', 1, 0}, {0xF9, 'U', 0, 1},
                                                      {0xD9, 'U', 1, 1}, {'1', 'D', 0, 1},  {'2', 'D', 0, 1},
                                                      {300, 'O', 0, 1},  {-5, 'O', 0, 1}};
    std::copy(righe.begin(), righe.end(), impostazioni.TastiRapidi.begin());
    impostazioni.NumTastiRapidi = static_cast<qint16>(righe.size());
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre, ScriviIni(impostazioni)));
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    banco.Comando(u"mnuModificaAggiungi"_s);
    auto *box = banco.Trova<QLineEdit>(Form, casella.toLatin1().constData());
    box->setFocus();
    box->setText(u"abcd"_s);
    box->setSelection(1, 2);
    Banco::Batti(tasto, tasti, digita, scansione);
    QCOMPARE(box->text(), testo);
    QCOMPARE(box->cursorPosition(), punto);
    QVERIFY(banco.Aperta(Form));

    // What a hotkey has put in can be taken back like any typing, no more than that is selected then, and typing goes
    // on.
    if (testo != u"abcd"_s) {
        box->undo();
        QVERIFY(box->selectedText().size() < 4);
        while (box->isUndoAvailable())
            box->undo();
        QCOMPARE(box->text(), u"abcd"_s);
    }
    QKeyEvent ctrlLasciato(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    QApplication::sendEvent(box, &ctrlLasciato);
    Banco::Batti(Qt::Key_K, {}, u"k"_s, 45);
    QVERIFY(box->text().contains(u'k'));
}

void TestInserimentoForm1::tastiRapidiNellaFinestra()
{
    ImpostazioniDizionario impostazioni;
    impostazioni.TastiRapidi[0] = {0xE7, 'C', 0, 1};
    impostazioni.TastiRapidi[1] = {0xE9, 'Q', 0, 0};
    impostazioni.NumTastiRapidi = 2;
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre, ScriviIni(impostazioni)));
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    banco.Comando(u"mnuModificaAggiungi"_s);
    QLineEdit *box = Casella(banco, "txtLingua1");
    box->setText(u"abc"_s);
    box->selectAll();
    QApplication::clipboard()->setText(u"prima"_s);
    Banco::Batti(Qt::Key_X, Qt::ControlModifier, u"\u0018"_s, 53);
    QCOMPARE(QApplication::clipboard()->text(), u"abc"_s);
    Banco::Batti(Qt::Key_V, Qt::ControlModifier, u"\u0016"_s, 55);
    QCOMPARE(box->text(), u"abc"_s);
    // A hotkey of the dictionary's goes before copying.
    box->selectAll();
    QApplication::clipboard()->setText(u"prima"_s);
    Banco::Batti(Qt::Key_C, Qt::ControlModifier, u"\u0003"_s, 54);
    QCOMPARE(QApplication::clipboard()->text(), u"prima"_s);
    QCOMPARE(box->text(), u"çabc"_s);

    // A shortcut of the window around it never reaches a box: what was typed would be lost.
    for (QLineEdit *casella :
         banco.finestra->findChild<QWidget *>(u"InserimentoForm1"_s)->findChildren<QLineEdit *>()) {
        QKeyEvent chiude(QEvent::ShortcutOverride, Qt::Key_W, Qt::ControlModifier, 25, 0, 0);
        chiude.ignore();
        QApplication::sendEvent(casella, &chiude);
        QVERIFY(chiude.isAccepted());
    }

    // Keys that kill text with Ctrl do not reach any box, whatever the toolkit does with them on this platform.
    for (const char *nome : {"txtLingua1", "txtCommento1", "txtLingua2", "txtCommento2"}) {
        QLineEdit *casella = Casella(banco, nome);
        const QString testo = casella->text();
        casella->setFocus();
        for (const int tasto : {Qt::Key_U, Qt::Key_K, Qt::Key_D, Qt::Key_E}) {
            QKeyEvent premuto(QEvent::KeyPress, tasto, Qt::ControlModifier, u"\u0001"_s);
            QVERIFY(banco.finestra->findChild<GestoreTasti *>()->eventFilter(casella, &premuto));
        }
        QCOMPARE(casella->text(), testo);
    }

    // AltGr held: what the key types is text, and no hotkey; a key held down inserts once.
    box->setFocus();
    box->clear();
    QKeyEvent altGr(QEvent::KeyPress, Qt::Key_AltGr, {});
    QApplication::sendEvent(box, &altGr);
    Banco::Batti(Qt::Key_Q, {}, u"@"_s, 24);
    QCOMPARE(box->text(), u"@"_s);
    QKeyEvent altGrLasciato(QEvent::KeyRelease, Qt::Key_AltGr, {});
    QApplication::sendEvent(box, &altGrLasciato);
    QKeyEvent ripetuto(QEvent::KeyRelease, Qt::Key_Q, {}, 24, 0, 0, u"q"_s, true);
    QApplication::sendEvent(box, &ripetuto);
    QCOMPARE(box->text(), u"@"_s);
    box->setText(u"çabc"_s);

    // The Ctrl noted in one box is the other's too, until the focus has moved.
    QKeyEvent lasciato(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    QApplication::sendEvent(box, &lasciato);
    QKeyEvent premuto(QEvent::KeyPress, Qt::Key_Control, {});
    QApplication::sendEvent(box, &premuto);
    QKeyEvent altra(QEvent::KeyPress, Qt::Key_K, {}, u"k"_s);
    QApplication::sendEvent(box, &altra);
    QCOMPARE(box->text(), u"çabc"_s);
    Casella(banco, "txtLingua2")->setFocus();
    QApplication::sendEvent(Casella(banco, "txtLingua2"), &altra);
    QCOMPARE(Casella(banco, "txtLingua2")->text(), u"k"_s);
}

void TestInserimentoForm1::appunti()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre));
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    auto *menu = banco.finestra->findChild<QMenu *>(u"mnuModifica"_s);
    const auto abilitate = [&] {
        emit menu->aboutToShow();
        return banco.Azione(u"mnuModificaCopia"_s)->isEnabled() && banco.Azione(u"mnuModificaTaglia"_s)->isEnabled() &&
               banco.Azione(u"mnuModificaIncolla"_s)->isEnabled();
    };
    const auto disabilitate = [&] {
        emit menu->aboutToShow();
        return !banco.Azione(u"mnuModificaCopia"_s)->isEnabled() &&
               !banco.Azione(u"mnuModificaTaglia"_s)->isEnabled() &&
               !banco.Azione(u"mnuModificaIncolla"_s)->isEnabled();
    };
    banco.Lista(1)->setFocus();
    QVERIFY(disabilitate());
    banco.Comando(u"mnuModificaAggiungi"_s);
    QVERIFY(abilitate());

    QLineEdit *box = Casella(banco, "txtLingua1");
    for (int inizio = 0; inizio <= 6; ++inizio) {
        for (int quanti = 0; inizio + quanti <= 6; ++quanti) {
            const QString testo = u"abcdef"_s;
            const auto scelti = [&] {
                box->setText(testo);
                box->deselect();
                quanti > 0 ? box->setSelection(inizio, quanti) : box->setCursorPosition(inizio);
            };
            scelti();
            QApplication::clipboard()->setText(u"prima"_s);
            banco.Comando(u"mnuModificaCopia"_s);
            QCOMPARE(QApplication::clipboard()->text(), testo.mid(inizio, quanti));
            QCOMPARE(box->text(), testo);
            QApplication::clipboard()->setText(u"prima"_s);
            banco.Comando(u"mnuModificaTaglia"_s);
            QCOMPARE(QApplication::clipboard()->text(), testo.mid(inizio, quanti));
            QCOMPARE(box->text(), testo.first(inizio) + testo.sliced(inizio + quanti));
            QCOMPARE(box->cursorPosition(), 0);
            scelti();
            QApplication::clipboard()->setText(u"X\nY"_s);
            banco.Comando(u"mnuModificaIncolla"_s);
            QCOMPARE(box->text(), testo.first(inizio) + u"X Y"_s + testo.sliced(inizio + quanti));
            QCOMPARE(box->cursorPosition(), 0);
        }
    }
    // With no control at all they stay as they were.
    banco.Azione(u"mnuModificaCopia"_s)->setEnabled(false);
    banco.Trova<QPushButton>(Form, "cmdOk")->setFocus();
    QVERIFY(disabilitate());
    banco.Comando(u"mnuFileChiudi"_s);
}

void TestInserimentoForm1::tastieraDelCampo()
{
    Dialoghi dialoghi;
    Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre, IniGreco()));
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    const auto chieste = [&banco] { return std::exchange(banco.tastiere, {}); };
    const QString italiano = u"00000410"_s;
    const QString greco = u"00000408"_s;
    banco.Comando(u"mnuModificaAggiungi"_s);
    QCOMPARE(chieste(), QStringList(italiano));
    for (int campo = 0; campo < 3; ++campo)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(chieste(), QStringList({italiano, greco, greco}));
    // Another window of ours and back is a change, another program's is none.
    banco.Lista(1)->setFocus();
    Casella(banco, "txtCommento2")->setFocus();
    QCOMPARE(chieste(), QStringList(greco));
    QFocusEvent torna(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(Casella(banco, "txtCommento2"), &torna);
    QCOMPARE(chieste(), QStringList());
    banco.finestra->findChild<InserimentoForm1 *>(u"InserimentoForm1"_s)->Scarica();
    QCOMPARE(chieste(), QStringList(italiano));

    // No layout of the dictionary's: language 2 leaves the keyboard alone.
    stato().impostazioni.Tastiera.clear();
    banco.Comando(u"mnuModificaAggiungi"_s);
    Casella(banco, "txtLingua2")->setFocus();
    Casella(banco, "txtCommento2")->setFocus();
    QCOMPARE(chieste(), QStringList(italiano));

    // A failure is told once a change.
    banco.tastieraRiesce = false;
    dialoghi.casella(u"Varbel"_s, ErroreTastiera, QMessageBox::Critical);
    Casella(banco, "txtCommento1")->setFocus();
    QTest::qWait(50);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    banco.tastieraRiesce = true;
}

void TestInserimentoForm1::chiusaConIlDizionario()
{
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre));
    banco.Comando(u"mnuModificaAggiungi"_s);
    Casella(banco, "txtLingua1")->setText(u"mai aggiunta"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(!banco.Aperta(Form));
    QCOMPARE(stato().NumFinestre, 0);
    QVERIFY(!stato().Modificato);
    QCOMPARE(Banco::Linee(banco.File(u"a.dic"_s)), Tre);
}

QTEST_MAIN(TestInserimentoForm1)
#include "tst_InserimentoForm1.moc"
