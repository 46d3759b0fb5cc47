// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The manual's window, and whether the manual says what the program shows.
#include "Banco.h"
#include "Dialoghi.h"
#include "help/Manuale.h"
#include "help/ManualeForm1.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QTextBlock>
#include <QTextBrowser>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
ManualeForm1 *Manuale()
{
    const QWidgetList finestre = QApplication::topLevelWidgets();
    const auto trovata = std::find_if(finestre.cbegin(), finestre.cend(), [](const QWidget *finestra) {
        return finestra->objectName() == "ManualeForm1"_L1 && finestra->isVisible();
    });
    return trovata == finestre.cend() ? nullptr : qobject_cast<ManualeForm1 *>(*trovata);
}

// The heading of the page that is shown, which the list must mark too; empty when the manual is not open.
QString Pagina()
{
    const ManualeForm1 *manuale = Manuale();
    if (!manuale)
        return {};
    const auto *lista = manuale->findChild<QListWidget *>(u"lstPagine"_s);
    const QString titolo = manuale->findChild<QTextBrowser *>()->document()->begin().text();
    return lista->currentItem() && lista->currentItem()->text() == titolo ? titolo : u"elenco: altra pagina"_s;
}

void F1()
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
}

QString Testo()
{
    return QString::fromUtf8(LeggiTutto(QStringLiteral(ASSETS "/../docs/manuale.md")));
}

// What the user reads on controls and menus, without mnemonics and keys; a menu item also by its way, "Menu, Voce".
void RaccogliMenu(const QWidget *menu, const QString &via, QStringList &didascalie)
{
    for (const QAction *voce : menu->actions()) {
        const QString testo = QString(voce->text()).remove(u'&');
        didascalie += {testo, via + testo};
        if (voce->menu())
            RaccogliMenu(voce->menu(), via + testo + u", "_s, didascalie);
    }
}

void Raccogli(const QWidget *finestra, QStringList &didascalie)
{
    for (const auto *controllo : finestra->findChildren<QWidget *>()) {
        for (const char *proprieta : {"text", "title", "windowTitle"})
            didascalie += controllo->property(proprieta).toString();
    }
}
} // namespace

class TestManualeForm1 : public QObject
{
    Q_OBJECT

private slots:
    void paginaEDidascalieDiOgniFinestra();
    void collegamentiEImmagini();
    void nelDialogo();
    void tastoRapidoF1();
    void finestraDelManuale();
};

void TestManualeForm1::paginaEDidascalieDiOgniFinestra()
{
    Dialoghi dialoghi;
    const Banco banco;
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    QTest::keyClick(banco.finestra.get(), Qt::Key_F1);
    QCOMPARE(Pagina(), u"Manuale di Varbel"_s);
    // The dialogs' own, and the captions that a window takes on later.
    QStringList didascalie = {u"Sì"_s, u"No"_s, u"Stampa su file (PDF)"_s, u"Modifica Parola"_s, u"Nuova Domanda"_s};
    Raccogli(Manuale(), didascalie);
    RaccogliMenu(banco.finestra->menuBar(), QString(), didascalie);

    banco.Apri(banco.Dizionario(u"a.dic"_s, {u"@a@b@"_s, u"@c@d@"_s}));
    ScriviInPosto(banco.File(u"t.txt"_s), "a;b\r\n");
    const QList<std::pair<QString, QString>> finestre = {
        {QString(), u"Sfogliare, correggere, eliminare"_s},
        {u"mnuModificaAggiungi"_s, u"Aggiungere voci"_s},
        {u"mnuEserciziRipasso"_s, u"Esercizi"_s},
        {u"mnuStrumentiConversioni"_s, u"Convertire un testo"_s},
        {u"mnuStrumentiComponi"_s, u"Comporre un dizionario"_s},
        {u"mnuFileProprieta"_s, u"Proprietà del dizionario"_s},
        {u"mnuStrumentiOpzioni"_s, u"Opzioni"_s},
        {u"mnuHelpAbout"_s, u"I file di impostazioni"_s},
        {u"mnuStrumentiCaratteri"_s, u"Tasti rapidi e mappa dei caratteri"_s},
    };
    for (const auto &[comando, pagina] : finestre) {
        const bool componi = comando == "mnuStrumentiComponi"_L1;
        if (comando == "mnuStrumentiConversioni"_L1)
            dialoghi.file(banco.File(u"t.txt"_s), u"*.* (tutti i file) (*)"_s);
        if (componi)
            dialoghi.file(banco.Dizionario(u"b.dic"_s, {u"@e@f@"_s}));
        if (!comando.isEmpty())
            banco.Comando(comando);
        // The box for a hotkey takes F1 for itself.
        if (auto *aggiungi = banco.Trova<QPushButton>("TastiRapidiForm", "cmdAggiungi"))
            aggiungi->setFocus();
        QApplication::setActiveWindow(banco.finestra.get());
        F1();
        QCOMPARE(Pagina(), pagina);
        Raccogli(banco.finestra.get(), didascalie);
        if (componi)
            dialoghi.casella(u"Attenzione!"_s, u"Salvare le modifiche al dizionario "_s + banco.File(u"b.dic"_s) + u'?',
                             QMessageBox::Question, QMessageBox::No);
        banco.ChiudiFiglie();
        QVERIFY(dialoghi.verifica());
    }
    const QList<PaginaManuale> pagine = PagineDelManuale(Testo());
    for (const QString &finestra : {u"CaratteriForm1"_s, u"OutPutForm"_s, u"Recupero"_s})
        QVERIFY2(PaginaDi(pagine, {finestra}) > 0, qPrintable(finestra));

    static const QRegularExpression grassetto(u"\\*\\*([^*]+)\\*\\*"_s);
    int quanti = 0;
    for (auto trovati = grassetto.globalMatch(Testo()); trovati.hasNext(); ++quanti) {
        const QString testo = trovati.next().captured(1).simplified();
        QVERIFY2(didascalie.contains(testo), qPrintable(testo));
    }
    QVERIFY(quanti > 80);
}

void TestManualeForm1::collegamentiEImmagini()
{
    const Banco banco;
    banco.Comando(u"mnuHelpManuale"_s);
    QVERIFY(Manuale());
    const auto *testo = Manuale()->findChild<QTextBrowser *>();
    auto *lista = Manuale()->findChild<QListWidget *>();
    const QList<PaginaManuale> pagine = PagineDelManuale(Testo());
    QCOMPARE(lista->count(), pagine.size());
    QSet<QString> nomi;
    for (const PaginaManuale &pagina : pagine)
        nomi += pagina.nome;
    QCOMPARE(nomi.size(), pagine.size());

    QSet<QString> immagini;
    int collegamenti = 0;
    const auto verifica = [&](const QTextCharFormat &formato) {
        if (formato.isAnchor()) {
            ++collegamenti;
            QVERIFY2(nomi.contains(formato.anchorHref().sliced(1)), qPrintable(formato.anchorHref()));
        }
        if (!formato.isImageFormat())
            return;
        // One that is there has a size, and is no wider than the page.
        const QTextImageFormat immagine = formato.toImageFormat();
        immagini += immagine.name().section(u'/', -1);
        QVERIFY2(immagine.width() > 100 && immagine.width() < testo->viewport()->width(), qPrintable(immagine.name()));
    };
    for (int i = 0; i < lista->count(); ++i) {
        lista->setCurrentRow(i);
        QCOMPARE(Pagina(), pagine[i].titolo);
        QVERIFY(!testo->toPlainText().contains(u"<!--"_s));
        for (QTextBlock blocco = testo->document()->begin(); blocco.isValid(); blocco = blocco.next()) {
            for (auto pezzo = blocco.begin(); !pezzo.atEnd(); ++pezzo)
                verifica(pezzo.fragment().charFormat());
        }
    }
    QVERIFY(collegamenti > 20);
    for (const QString &file : QDir(QStringLiteral(ASSETS "/../docs/manuale")).entryList(QDir::Files))
        QVERIFY2(immagini.contains(file), qPrintable(file));
}

void TestManualeForm1::nelDialogo()
{
    Dialoghi dialoghi;
    const Banco banco;
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    // A click as the window system sends it, which a modal dialog holds back from the other windows.
    const auto scegli = [](int riga) {
        const auto *lista = Manuale()->findChild<QListWidget *>();
        const QPoint dove = lista->visualItemRect(lista->item(riga)).center();
        QTest::mouseClick(Manuale()->windowHandle(), Qt::LeftButton, {}, lista->viewport()->mapTo(Manuale(), dove));
        return Pagina() == lista->item(riga)->text();
    };
    bool chiesto = false;
    bool aperto = false;
    for (bool *usato : {&chiesto, &aperto}) {
        dialoghi.altro([&, usato](QDialog *dialogo) {
            // The first time it is the dialog that asks for it; the second it is there already.
            if (usato == &chiesto)
                QTest::keyClick(dialogo, Qt::Key_F1);
            *usato = Manuale() && (usato != &chiesto || Pagina() == u"Aprire un dizionario"_s);
            QCoreApplication::processEvents();
            *usato = *usato && scegli(0) && scegli(5);
            dialogo->reject();
        });
        banco.Comando(u"mnuFileApri"_s);
        QVERIFY(dialoghi.verifica());
        QVERIFY(*usato);
        QVERIFY(Manuale());
    }
    QVERIFY(scegli(2));
    QVERIFY(banco.finestra->close());
    QVERIFY(!Manuale());
}

void TestManualeForm1::tastoRapidoF1()
{
    const Banco banco;
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    banco.Apri(banco.Dizionario(u"a.dic"_s, {u"@a@b@"_s}));
    banco.Comando(u"mnuStrumentiCaratteri"_s);
    F1();
    QCOMPARE(banco.Trova<QLabel>("TastiRapidiForm", "lblCodice")->text(), u"(112)"_s);
    QVERIFY(!Manuale());
    banco.ChiudiFiglie();

    stato().impostazioni.TastiRapidi[0] = {233, 112, 0, 0};
    stato().impostazioni.NumTastiRapidi = 1;
    banco.Comando(u"mnuModificaAggiungi"_s);
    F1();
    QCOMPARE(banco.Trova<QLineEdit>("InserimentoForm1", "txtLingua1")->text(), u"é"_s);
    QVERIFY(!Manuale());
    // The first comment takes no hotkeys.
    banco.Trova<QLineEdit>("InserimentoForm1", "txtCommento1")->setFocus();
    F1();
    QCOMPARE(Pagina(), u"Aggiungere voci"_s);
}

void TestManualeForm1::finestraDelManuale()
{
    const Banco banco;
    stato().DimensioneFont = 20;
    banco.Comando(u"mnuHelpManuale"_s);
    QPointer<ManualeForm1> manuale = Manuale();
    QVERIFY(QTest::qWaitForWindowActive(manuale));
    QCOMPARE(manuale->font().pointSize(), 20);
    QCOMPARE(stato().NumFinestre, 0);
    auto *testo = manuale->findChild<QTextBrowser *>();
    QCOMPARE(QApplication::focusWidget(), testo);
    QTest::keyClick(testo, Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(testo->font().pointSize(), 21);

    // A search goes through the pages and comes round.
    QTest::keyClick(testo, Qt::Key_F, Qt::ControlModifier);
    auto *cerca = manuale->findChild<QLineEdit *>();
    QCOMPARE(QApplication::focusWidget(), cerca);
    cerca->setText(u"xwayland"_s);
    for (int i = 0; i < 2; ++i) {
        QTest::keyClick(cerca, Qt::Key_Return);
        QCOMPARE(Pagina(), u"La tastiera"_s);
        QCOMPARE(testo->textCursor().selectedText(), u"Xwayland"_s);
    }
    cerca->setText(u"zzz"_s);
    QTest::keyClick(cerca, Qt::Key_Return);
    QCOMPARE(manuale->findChild<QLabel *>(u"lblEsito"_s)->text(), u"Non trovato"_s);
    QCOMPARE(Pagina(), u"La tastiera"_s);

    // A link to another page, and back.
    testo->setFocus();
    emit testo->anchorClicked(QUrl(u"qrc:/docs/la-tastiera.md#opzioni"_s));
    QCOMPARE(Pagina(), u"Opzioni"_s);
    manuale->findChild<QPushButton *>(u"cmdIndietro"_s)->click();
    QCOMPARE(Pagina(), u"La tastiera"_s);
    QTest::keyClick(testo, Qt::Key_Escape);
    QTRY_VERIFY(!manuale);
}

QTEST_MAIN(TestManualeForm1)
#include "tst_ManualeForm1.moc"
