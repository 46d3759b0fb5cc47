// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Banco.h"
#include "Dialoghi.h"
#include "app/Finestre.h"
#include "app/Protezione.h"
#include "app/Servizi.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// The tree as text: a line an item, indented by depth, "name|caption", separators "name|-".
QStringList Albero(const QWidget *menu, const QString &rientro = {})
{
    QStringList linee;
    for (const QAction *voce : menu->actions()) {
        linee += rientro + voce->objectName() + u'|' + (voce->isSeparator() ? u"-"_s : voce->text());
        if (voce->menu())
            linee += Albero(voce->menu(), rientro + u' ');
    }
    return linee;
}

// A child window that uses the shared hooks, as the editing windows do.
class Finta : public QWidget
{
public:
    explicit Finta(const QString &titolo)
    {
        setWindowTitle(titolo);
        Module1::RegisterWindow(this);
    }

protected:
    void closeEvent(QCloseEvent *evento) override
    {
        Module1::UnregisterWindow(this);
        QWidget::closeEvent(evento);
    }
};

// The window list as the user sees it: captions of the visible entries, the checked ones with a star.
QStringList ListaFinestre()
{
    QStringList voci;
    for (const QAction *voce : servizi().mnuFinestra) {
        if (voce->isVisible())
            voci += voce->text() + (voce->isChecked() ? u"*"_s : QString());
    }
    return voci;
}
} // namespace

class TestMDIForm1 : public QObject
{
    Q_OBJECT

private slots:
    void alberoDeiMenu();
    void statiDiMenuEToolbar();
    void pulsantiDellaToolbar();
    void ordina_data();
    void ordina();
    void listaDelleFinestre();
    void limiteDelleFinestre();
    void visualizzatoreNellaListaFinestre();
    void cambioTastiera();
    void trascinamento();
    void fontErratoOIniMancante_data();
    void fontErratoOIniMancante();
    void iniStrani_data();
    void iniStrani();
};

void TestMDIForm1::alberoDeiMenu()
{
    const Banco banco;
    const QString atteso = uR"(mnuFile|&File
 mnuFileNuovo|Nuovo
 mnuFileNuovoDaModello|Nuovo da modello
 mnuFileApri|Apri
 mnuFileChiudi|Chiudi
 mnuFileSalva|Salva
 mnuFileSalvaConNome|Salva con nome
 mnuFileStampa|Stampa
 mnuLinea1|-
 mnuFileProprieta|Proprietà
 mnuLinea2|-
 mnuFileRecente(0)| 
 mnuFileRecente(1)| 
 mnuFileRecente(2)| 
 mnuFileRecente(3)| 
 mnuFileLinea2|-
 mnuFileEsci|Esci
mnuModifica|&Modifica
 mnuModificaCopia|Copia Ctrl+C
 mnuModificaTaglia|Taglia Ctrl+X
 mnuModificaIncolla|Incolla Ctrl+V
 mnuModificaLinea1|-
 mnuModificaOrdina|Ordina
  mnuModificaOrdina1|per Lingua1
  mnuModificaOrdina2|per Lingua2
 mnuModificaLinea2|-
 mnuModificaAggiungi|Aggiungi Voce
 mnuModificaElimina|Elimina Voce
mnuEsercizi|&Esercizi
 mnuEserciziCasuale|Ordine Casuale
 mnuEserciziRipasso|Ripasso Completo
 mnuEserciziLinea1|-
 mnuEserciziInverti|Inverti Lingue
mnuStrumenti|&Strumenti
 mnuStrumentiUnisci|Unisci Dizionario
 mnuStrumentiComponi|Componi Dizionario
 mnuStrumentiCaratteri|Mappa Caratteri
 mnuStrumentiInverti|Inverti Dizionario
 mnuStrumentiConversioni|Conversioni
 mnuStrumentiLinea1|-
 mnuStrumentiOpzioni|Opzioni
mnuFinestre|Finestre
 mnuFinestra(0)|
 mnuFinestra(1)|
 mnuFinestra(2)|
 mnuFinestra(3)|
 mnuFinestra(4)|
 mnuFinestra(5)|
 mnuFinestra(6)|
 mnuFinestra(7)|
 mnuFinestra(8)|
 mnuFinestra(9)|
mnuHelp|?
 mnuHelpManuale|Manuale
 mnuHelpAbout|Informazioni su Varbel)"_s;
    QCOMPARE(Albero(banco.finestra->menuBar()).join(u'\n'), atteso);
    QVERIFY(banco.finestra->findChild<QMenu *>(u"mnuModificaOrdina"_s));
}

void TestMDIForm1::statiDiMenuEToolbar()
{
    // Per item: enabled with no dictionary, with an opened one, with a new one. Recent items and the two that an
    // open dictionary disables stand with the rest; what is hidden is out of reach too.
    const QHash<QString, QString> attesi = {
        {u"mnuFileNuovo"_s, u"sì no no"_s},
        {u"mnuFileNuovoDaModello"_s, u"sì no no"_s},
        {u"mnuFileApri"_s, u"sì no no"_s},
        {u"mnuFileSalva"_s, u"no sì no"_s},
        {u"mnuFileSalvaConNome"_s, u"no sì no"_s},
        {u"mnuFileEsci"_s, u"sì sì sì"_s},
        {u"mnuFileRecente(0)"_s, u"sì no no"_s},
        {u"mnuFileRecente(1)"_s, u"sì no no"_s},
        {u"mnuFileRecente(2)"_s, u"sì no no"_s},
        {u"mnuFileRecente(3)"_s, u"sì no no"_s},
        {u"mnuHelpManuale"_s, u"sì sì sì"_s},
        {u"mnuHelpAbout"_s, u"sì sì sì"_s},
        {u"mnuModificaOrdina1"_s, u"no sì sì"_s},
        {u"mnuModificaOrdina2"_s, u"no sì sì"_s},
        {u"mnuFile"_s, u"sì sì sì"_s},
        {u"mnuModifica"_s, u"sì sì sì"_s},
        {u"mnuEsercizi"_s, u"sì sì sì"_s},
        {u"mnuStrumenti"_s, u"sì sì sì"_s},
        {u"mnuFinestre"_s, u"no sì sì"_s},
        {u"mnuHelp"_s, u"sì sì sì"_s},
        {u"Toolbar1(1)"_s, u"sì no no"_s},
        {u"Toolbar1(2)"_s, u"sì no no"_s},
    };
    Dialoghi dialoghi;
    Banco banco;
    ScriviInPosto(banco.Ini(),
                  LeggiTutto(banco.Ini()).replace("\r\n \r\n \r\n \r\n \r\n", "\r\n/a\r\n/b\r\n/c\r\n/d\r\n"));
    banco.Avvia();
    const auto verifica = [&](int colonna, const char *quando) {
        QList<QAction *> azioni = banco.finestra->findChild<QToolBar *>(u"Toolbar1"_s)->actions();
        QList<const QWidget *> menu = {banco.finestra->menuBar()};
        while (!menu.isEmpty()) {
            for (QAction *azione : menu.takeFirst()->actions()) {
                if (azione->menu())
                    menu += azione->menu();
                if (!azione->isSeparator() && !azione->objectName().startsWith("mnuFinestra("_L1))
                    azioni += azione;
            }
        }
        QVERIFY(azioni.size() > 40);
        for (const QAction *azione : azioni) {
            const QString attesa = attesi.value(azione->objectName(), u"no sì sì"_s).split(u' ').at(colonna);
            // An item is out of reach also when the menu that holds it is disabled.
            bool abilitata = azione->isEnabled();
            if (azione->objectName().startsWith("mnuModificaOrdina"_L1))
                abilitata = abilitata && banco.finestra->findChild<QMenu *>(u"mnuModificaOrdina"_s)->isEnabled();
            QVERIFY2(abilitata == (attesa == u"sì"), qPrintable(azione->objectName() + u' ' + QLatin1String(quando)));
        }
    };
    verifica(0, "all'avvio");
    banco.Apri(banco.Dizionario(u"a.dic"_s, {u"@a@b@"_s}));
    verifica(1, "aperto");
    banco.Comando(u"mnuFileChiudi"_s);
    verifica(0, "chiuso");
    dialoghi.file(banco.File(u"nuovo"_s));
    banco.Comando(u"mnuFileNuovo"_s);
    QVERIFY(dialoghi.verifica());
    verifica(2, "nuovo");
    SegnaModificato();
    QVERIFY(banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    QVERIFY(!banco.Azione(u"mnuFileSalvaConNome"_s)->isEnabled());
    dialoghi.casella(u"Salvare?"_s,
                     u"Il dizionario "_s + banco.File(u"nuovo.dic"_s) + u" è stato modificato. Salvare?"_s,
                     QMessageBox::Question, QMessageBox::No);
    banco.Comando(u"mnuFileChiudi"_s);
    verifica(0, "chiuso dopo nuovo");
    dialoghi.errore(u"Errore!"_s, u"Il File di inizializzazione "_s);
    banco.Apri(banco.Dizionario(u"senza.dic"_s, {}, QByteArray()));
    verifica(0, "dopo un'apertura fallita");
    QVERIFY(dialoghi.verifica());
}

void TestMDIForm1::pulsantiDellaToolbar()
{
    const Banco banco;
    const auto *toolbar = banco.finestra->findChild<QToolBar *>(u"Toolbar1"_s);
    QStringList testi;
    for (QAction *azione : toolbar->actions()) {
        testi += azione->toolTip();
        QVERIFY(qobject_cast<QToolButton *>(toolbar->widgetForAction(azione)));
    }
    QCOMPARE(testi, QStringList({u"Nuovo"_s, u"Apri"_s, u"Salva"_s, u"Aggiungi"_s, u"Esercizio"_s, u"Mappa Caratteri"_s,
                                 u"Componi Dizionario"_s}));
    QCOMPARE(toolbar->actions().at(3)->data().toString(), u"aggiungi"_s);
    // Seven different pictures, once the window has been seen.
    const auto diverse = [toolbar] {
        QList<QImage> immagini;
        for (const QAction *azione : toolbar->actions()) {
            const QImage immagine = azione->icon().pixmap(48).toImage();
            if (!immagini.contains(immagine))
                immagini += immagine;
        }
        return immagini.size();
    };
    QTRY_COMPARE(diverse(), 7);

    // Button 3 saves also where its menu item is disabled.
    Dialoghi dialoghi;
    dialoghi.file(banco.File(u"nuovo.dic"_s));
    toolbar->actions().at(0)->trigger();
    QVERIFY(dialoghi.verifica());
    QVERIFY(!banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    toolbar->actions().at(2)->trigger();
    QVERIFY(QFile::exists(banco.File(u"nuovo.ini"_s)));
}

void TestMDIForm1::ordina_data()
{
    QTest::addColumn<QString>("comando");
    QTest::addColumn<int>("voci");
    QTest::addColumn<int>("risposta");
    QTest::addColumn<bool>("ordinato");
    QTest::newRow("per lingua 1, piccolo") << u"mnuModificaOrdina1"_s << 100 << 0 << true;
    QTest::newRow("per lingua 2, piccolo") << u"mnuModificaOrdina2"_s << 100 << 0 << true;
    QTest::newRow("per lingua 1, grande, sì") << u"mnuModificaOrdina1"_s << 1100 << int(QMessageBox::Yes) << false;
    QTest::newRow("per lingua 1, grande, no") << u"mnuModificaOrdina1"_s << 1100 << int(QMessageBox::No) << false;
    QTest::newRow("per lingua 2, grande, sì") << u"mnuModificaOrdina2"_s << 1100 << int(QMessageBox::Yes) << true;
    QTest::newRow("per lingua 2, grande, no") << u"mnuModificaOrdina2"_s << 1100 << int(QMessageBox::No) << false;
}

void TestMDIForm1::ordina()
{
    QFETCH(const QString, comando);
    QFETCH(const int, voci);
    QFETCH(const int, risposta);
    QFETCH(const bool, ordinato);
    Dialoghi dialoghi;
    const Banco banco;
    QStringList linee;
    for (int i = 0; i < voci; ++i)
        linee += u"@a%1@b%2@"_s.arg(i, 5, 10, QChar(u'0')).arg(voci - i, 5, 10, QChar(u'0'));
    banco.Apri(banco.Dizionario(u"a.dic"_s, linee));
    const int lingua = comando.endsWith(u'1') ? 1 : 2;
    if (lingua == 1) {
        // Out of order by hand, since the viewer's load sorts.
        std::reverse(stato().Dizionario1.righe.begin(), stato().Dizionario1.righe.begin() + voci);
        banco.Visualizza()->RiempiListe();
    }
    if (risposta != 0)
        dialoghi.casella(u"Attenzione"_s,
                         u"Date le dimenzioni del dizionario l'operazione potrebbe richedere alcuni minuti. Procedo?"_s,
                         QMessageBox::Question, static_cast<QMessageBox::StandardButton>(risposta));
    const QStringList prima = banco.Parole(lingua);
    banco.Comando(comando);
    QVERIFY(dialoghi.verifica());
    QStringList attese = prima;
    if (ordinato)
        attese.sort();
    QCOMPARE(banco.Parole(lingua), attese);
    QVERIFY(!stato().Modificato);
}

void TestMDIForm1::listaDelleFinestre()
{
    const Banco banco;
    auto *area = banco.finestra->findChild<QMdiArea *>();
    const auto apri = [area](const QString &titolo) {
        QMdiSubWindow *finestra = area->addSubWindow(new Finta(titolo));
        finestra->show();
        return finestra;
    };
    apri(u"A"_s);
    QMdiSubWindow *b = apri(u"B & b"_s);
    apri(u"C"_s);
    QCOMPARE(ListaFinestre(), QStringList({u"A"_s, u"B && b"_s, u"C*"_s}));
    banco.Comando(u"mnuFinestra(1)"_s);
    QCOMPARE(ListaFinestre(), QStringList({u"A"_s, u"B && b*"_s, u"C"_s}));
    QCOMPARE(area->activeSubWindow(), b);
    b->close();
    QCOMPARE(stato().NumFinestre, 2);
    QStringList senzaSegni = ListaFinestre();
    senzaSegni.replaceInStrings(u"*"_s, QString());
    QCOMPARE(senzaSegni, QStringList({u"A"_s, u"C"_s}));

    QWidget estranea;
    Module1::UnregisterWindow(&estranea);
    QCOMPARE(stato().NumFinestre, 2);
    QVERIFY(banco.finestra->close());
    QCOMPARE(stato().NumFinestre, 0);
}

void TestMDIForm1::limiteDelleFinestre()
{
    const Banco banco;
    std::array<QWidget, 11> finestre;
    for (std::size_t i = 0; i < 10; ++i)
        Module1::RegisterWindow(&finestre[i]);
    QCOMPARE(ListaFinestre().size(), 10);
    const auto errore9 = [](const auto &operazione) {
        try {
            operazione();
        } catch (const ErroreRuntime &errore) {
            return errore.numero == 9 && errore.termina;
        }
        return false;
    };
    QVERIFY(errore9([&] { Module1::RegisterWindow(&finestre[10]); }));
    QCOMPARE(stato().NumFinestre, 10);
    QVERIFY(errore9([&] { Module1::UnregisterWindow(&finestre[4]); }));
    QVERIFY(errore9([] { Module1::WindowInSlot(10); }));
    QVERIFY(errore9([] { Module1::WindowInSlot(-1); }));
}

void TestMDIForm1::visualizzatoreNellaListaFinestre()
{
    const Banco banco;
    QVERIFY(QTest::qWaitForWindowActive(banco.finestra.get()));
    QVERIFY(!servizi().mnuFinestre->isVisible());
    banco.Apri(banco.Dizionario(u"a.dic"_s, {u"@a@b@"_s}));
    QVERIFY(servizi().mnuFinestre->isVisible());
    QCOMPARE(ListaFinestre(), QStringList({u"Dizionario*"_s}));

    // Choosing the entry does not change its mark, however often, and the keyboard stays in the list.
    for (int i = 0; i < 3; ++i) {
        banco.Comando(u"mnuFinestra(0)"_s);
        QCOMPARE(ListaFinestre(), QStringList({u"Dizionario*"_s}));
        QCOMPARE(QApplication::focusWidget(), banco.Lista(1));
    }

    auto *area = banco.finestra->findChild<QMdiArea *>();
    QMdiSubWindow *visualizza = area->activeSubWindow();
    QCOMPARE(visualizza->widget(), banco.Visualizza());
    QMdiSubWindow *altra = area->addSubWindow(new Finta(u"Altra"_s));
    altra->show();
    // The first window registered takes the viewer's entry.
    QCOMPARE(ListaFinestre(), QStringList({u"Altra*"_s}));
    area->setActiveSubWindow(visualizza);
    QCOMPARE(ListaFinestre(), QStringList({u"Altra"_s}));
    altra->close();
    QCOMPARE(ListaFinestre(), QStringList());
    visualizza->showMinimized();
    banco.Comando(u"mnuFinestra(0)"_s);
    QCOMPARE(area->activeSubWindow(), visualizza);
    QVERIFY(!visualizza->isMinimized());

    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(!servizi().mnuFinestre->isVisible());
}

void TestMDIForm1::cambioTastiera()
{
    Dialoghi dialoghi;
    const Banco banco;
    stato().impostazioni.Tastiera = u"0408"_s;
    QStringList chiesti;
    bool riesce = true;
    Module1::LoadKeyboardLayoutA() = [&](const QString &nome) {
        chiesti += nome;
        return riesce;
    };
    for (qint16 selettore : {qint16(1), qint16(2), qint16(0)})
        Module1::SwitchKeyboard(selettore, banco.finestra.get());
    QCOMPARE(chiesti, QStringList({u"00000408"_s, u"00000410"_s, u"00000410"_s}));
    QVERIFY(dialoghi.verifica());

    riesce = false;
    const QString messaggio = u"Errore nel cambio della tastiera. Prova a settarla manualmente. La lingua "
                              u"corrispondente potrebbe non essere installata in Windows."_s;
    dialoghi.casella(u"Varbel"_s, messaggio, QMessageBox::Critical);
    qint16 selettore = 1;
    Module1::SwitchKeyboard(selettore, banco.finestra.get());
    Module1::LoadKeyboardLayoutA() = nullptr;
    dialoghi.casella(u"Varbel"_s, messaggio, QMessageBox::Critical);
    Module1::SwitchKeyboard(selettore, banco.finestra.get());
    QVERIFY(dialoghi.verifica());
}

void TestMDIForm1::trascinamento()
{
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, {u"@a@b@"_s});
    const auto lascia = [&banco](const QList<QUrl> &indirizzi) {
        QMimeData dati;
        dati.setUrls(indirizzi);
        QDragEnterEvent entra({10, 10}, Qt::CopyAction, &dati, Qt::LeftButton, {});
        entra.ignore();
        QApplication::sendEvent(banco.finestra.get(), &entra);
        QDropEvent cade(QPointF(10, 10), Qt::CopyAction, &dati, Qt::LeftButton, {});
        QApplication::sendEvent(banco.finestra.get(), &cade);
        QCoreApplication::processEvents();
        return entra.isAccepted();
    };
    QVERIFY(!lascia({QUrl::fromLocalFile(banco.File(u"a.ini"_s))}));
    QVERIFY(!stato().DizionarioAperto);
    QVERIFY(lascia({QUrl::fromLocalFile(banco.File(u"a.ini"_s)), QUrl::fromLocalFile(percorso)}));
    QVERIFY(stato().DizionarioAperto);
    QCOMPARE(stato().PercorsoDizionario, percorso);
    QVERIFY(!lascia({QUrl::fromLocalFile(banco.Dizionario(u"b.dic"_s, {}))}));
    QCOMPARE(stato().PercorsoDizionario, percorso);
}

void TestMDIForm1::fontErratoOIniMancante_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<int>("numero");
    QTest::newRow("manca") << QByteArray() << 53;
    QTest::newRow("lettere") << QByteArray("[Font]\r\ndieci\r\n") << 13;
    QTest::newRow("riga vuota") << QByteArray("[Font]\r\n\r\n") << 13;
}

void TestMDIForm1::fontErratoOIniMancante()
{
    QFETCH(const QByteArray, ini);
    QFETCH(const int, numero);
    Banco banco;
    QFile::remove(banco.Ini());
    if (!ini.isNull())
        ScriviInPosto(banco.Ini(), ini);
    try {
        banco.Avvia();
        QFAIL("the program started");
    } catch (const ErroreRuntime &errore) {
        QCOMPARE(errore.numero, numero);
        QVERIFY(errore.termina);
    }
}

void TestMDIForm1::iniStrani_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::newRow("vuoto") << QByteArray("");
    QByteArray binario;
    for (int i = 0; i < 4096; ++i)
        binario += static_cast<char>(i * 131 + i / 7);
    QTest::newRow("binario") << binario;
    QTest::newRow("senza font") << QByteArray("[Directory]\n/un posto che non c'è\n");
}

void TestMDIForm1::iniStrani()
{
    QFETCH(const QByteArray, ini);
    Dialoghi dialoghi;
    Banco banco;
    ScriviInPosto(banco.Ini(), ini);
    banco.Avvia();
    QCOMPARE(stato().DimensioneFont, 10);
    banco.Apri(banco.Dizionario(u"a.dic"_s, {u"@a@b@"_s}));
    banco.Comando(u"mnuFileChiudi"_s);
    dialoghi.file(QString());
    banco.Comando(u"mnuFileApri"_s);
    QVERIFY(dialoghi.verifica());
    const QString documenti = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QCOMPARE(dialoghi.ultimaCartella, QFileInfo(documenti).isDir() ? documenti : QDir::homePath());

    // One that cannot be read at all is reported, and the program starts without it.
    QFile::remove(banco.Ini());
    QDir().mkdir(banco.Ini());
    dialoghi.errore(u"Errore!"_s, u"Impossibile leggere "_s + banco.Ini());
    banco.Avvia();
    QVERIFY(dialoghi.verifica());
    QVERIFY(banco.finestra->isVisible());
}

QTEST_MAIN(TestMDIForm1)
#include "tst_MDIForm1.moc"
