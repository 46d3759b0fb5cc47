// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MDIForm1.h"

#include "app/FinestraFiglia.h"
#include "app/Finestre.h"
#include "app/Protezione.h"
#include "app/Servizi.h"
#include "edit/InserimentoForm1.h"
#include "edit/Ordinamento.h"
#include "edit/VisualizzaForm1.h"
#include "exercise/EsercizioForm1.h"
#include "help/ComandoManuale.h"
#include "input/CaratteriForm1.h"
#include "input/GestoreTasti.h"
#include "input/TastiRapidiForm.h"
#include "settings/OpzioniForm1.h"
#include "settings/aboutForm1.h"
#include "settings/proprietaForm1.h"
#include "tools/ComponiForm1.h"
#include "tools/OutPutForm.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QTime>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// The commands that only an open dictionary allows, whoever opened it.
const QStringList &VociComuni()
{
    static const QStringList voci = {
        u"mnuFileChiudi"_s,           u"mnuFileStampa"_s,       u"mnuFileProprieta"_s,      u"mnuModificaAggiungi"_s,
        u"mnuModificaElimina"_s,      u"mnuModificaCopia"_s,    u"mnuModificaTaglia"_s,     u"mnuModificaIncolla"_s,
        u"mnuModificaOrdina"_s,       u"mnuEserciziCasuale"_s,  u"mnuEserciziRipasso"_s,    u"mnuEserciziInverti"_s,
        u"mnuStrumentiUnisci"_s,      u"mnuStrumentiComponi"_s, u"mnuStrumentiCaratteri"_s, u"mnuStrumentiInverti"_s,
        u"mnuStrumentiConversioni"_s, u"mnuStrumentiOpzioni"_s,
    };
    return voci;
}

// The dictionary among the files dragged, empty when there is none.
QString DizionarioTrascinato(const QMimeData *dati)
{
    const QList<QUrl> indirizzi = dati->urls();
    const auto trovato = std::find_if(indirizzi.cbegin(), indirizzi.cend(), [](const QUrl &indirizzo) {
        return indirizzo.isLocalFile() && indirizzo.toLocalFile().endsWith(".dic"_L1, Qt::CaseInsensitive);
    });
    return trovato == indirizzi.cend() ? QString() : trovato->toLocalFile();
}
} // namespace

MDIForm1::MDIForm1() : m_area(new QMdiArea(this)), m_manuale(new ComandoManuale(m_area))
{
    Q_INIT_RESOURCE(varbel);
    setObjectName("MDIForm1"_L1);
    setWindowTitle(u"Varbel"_s);
    setAcceptDrops(true);
    m_area->setObjectName("MdiArea"_L1);
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_area);
    resize(QSize(1000, 700).boundedTo(screen()->availableSize() * 0.95));
    servizi() = Servizi();

    // Dialogs are windows of their own: what had the focus before them keeps its turn.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget * /*prima*/, QWidget *ora) {
        if (ora && ora->window() == this)
            servizi().ultimoFuoco = ora;
    });

    m_finestre.insert(u"VisualizzaForm1"_s, [this] { return CreaVisualizza(); });
    m_finestre.insert(u"InserimentoForm1"_s, [this] { return CreaInserimento(); });
    m_finestre.insert(u"EsercizioForm1"_s, [this] { return CreaEsercizio(); });
    m_finestre.insert(u"OutPutForm"_s, [this] { return new OutPutForm(this); });
    m_finestre.insert(u"ConvertiForm1"_s, [this] { return CreaConverti(); });
    m_finestre.insert(u"TastiRapidiForm"_s, [this] { return CreaTastiRapidi(); });
    m_finestre.insert(u"CaratteriForm1"_s, [this] { return CreaCaratteri(); });
    m_finestre.insert(u"ComponiForm1"_s, [this] { return CreaComponi(); });
    m_finestre.insert(u"proprietaForm1"_s, [this] { return CreaProprieta(); });
    m_finestre.insert(u"OpzioniForm1"_s, [this] { return CreaOpzioni(); });
    m_finestre.insert(u"aboutForm1"_s, [this] { return new aboutForm1(this); });
    CreaMenu();
    CreaAiuti();
    CreaToolbar();
    StatoChiuso();
    Collega(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *finestra) { Attivata(finestra); });

    for (std::size_t i = 1; i < servizi().mnuFinestra.size(); ++i)
        servizi().mnuFinestra[i]->setVisible(false);
    servizi().mnuFinestre->setVisible(false);
    stato().Modificato = false;
    stato().LenDizionario1 = 0;
    LeggiImpostazioni();
}

MDIForm1::~MDIForm1()
{
    // The child windows go while what they use of this one still stands.
    delete takeCentralWidget();
    servizi() = Servizi();
}

QMenu *MDIForm1::Menu(const QString &nome, const QString &testo, QMenu *in)
{
    auto *menu = new QMenu(testo, in ? static_cast<QWidget *>(in) : this);
    menu->setObjectName(nome);
    menu->menuAction()->setObjectName(nome);
    in ? in->addMenu(menu) : menuBar()->addMenu(menu);
    m_menu.insert(nome, menu);
    return menu;
}

QAction *MDIForm1::Voce(QMenu *menu, const QString &nome, const QString &testo, Comando comando)
{
    QAction *voce = menu->addAction(testo);
    voce->setObjectName(nome);
    m_voci.insert(nome, voce);
    if (comando)
        Lega(voce, [this, comando] { (this->*comando)(); });
    return voce;
}

void MDIForm1::Lega(QAction *azione, std::function<void()> comando)
{
    // A desktop's own menu bar is not held back by a dialog of ours.
    Collega(azione, &QAction::triggered, this, [comando = std::move(comando)] {
        if (!QApplication::activeModalWidget())
            comando();
    });
}

QAction *MDIForm1::VoceDiLista(QMenu *menu, const QString &nome)
{
    return Voce(menu, nome, QString(), nullptr);
}

void MDIForm1::Linea(QMenu *menu, const QString &nome)
{
    menu->addSeparator()->setObjectName(nome);
}

void MDIForm1::CreaMenu()
{
    menuBar()->setObjectName("MenuBar"_L1);
    QMenu *file = Menu(u"mnuFile"_s, u"&File"_s);
    Voce(file, u"mnuFileNuovo"_s, u"Nuovo"_s, &MDIForm1::mnuFileNuovo);
    Voce(file, u"mnuFileNuovoDaModello"_s, u"Nuovo da modello"_s, &MDIForm1::mnuFileNuovoDaModello);
    Voce(file, u"mnuFileApri"_s, u"Apri"_s, &MDIForm1::mnuFileApri);
    Voce(file, u"mnuFileChiudi"_s, u"Chiudi"_s, &MDIForm1::mnuFileChiudi);
    servizi().mnuFileSalva = Voce(file, u"mnuFileSalva"_s, u"Salva"_s, &MDIForm1::mnuFileSalva);
    Voce(file, u"mnuFileSalvaConNome"_s, u"Salva con nome"_s, &MDIForm1::mnuFileSalvaConNome);
    Voce(file, u"mnuFileStampa"_s, u"Stampa"_s, &MDIForm1::mnuFileStampa);
    Linea(file, u"mnuLinea1"_s);
    Voce(file, u"mnuFileProprieta"_s, u"Proprietà"_s, &MDIForm1::mnuFileProprieta);
    Linea(file, u"mnuLinea2"_s);
    for (std::size_t i = 0; i < m_recenti.size(); ++i) {
        m_recenti[i] = VoceDiLista(file, u"mnuFileRecente(%1)"_s.arg(i));
        Lega(m_recenti[i], [this, i] { mnuFileRecente(i); });
    }
    Linea(file, u"mnuFileLinea2"_s);
    Lega(Voce(file, u"mnuFileEsci"_s, u"Esci"_s, nullptr), [this] { close(); });

    QMenu *modifica = Menu(u"mnuModifica"_s, u"&Modifica"_s);
    Collega(modifica, &QMenu::aboutToShow, this, [this] { mnuModifica_Apre(); });
    Voce(modifica, u"mnuModificaCopia"_s, u"Copia Ctrl+C"_s, &MDIForm1::mnuModificaCopia);
    Voce(modifica, u"mnuModificaTaglia"_s, u"Taglia Ctrl+X"_s, &MDIForm1::mnuModificaTaglia);
    Voce(modifica, u"mnuModificaIncolla"_s, u"Incolla Ctrl+V"_s, &MDIForm1::mnuModificaIncolla);
    Linea(modifica, u"mnuModificaLinea1"_s);
    QMenu *ordina = Menu(u"mnuModificaOrdina"_s, u"Ordina"_s, modifica);
    Voce(ordina, u"mnuModificaOrdina1"_s, u"per Lingua1"_s, &MDIForm1::mnuModificaOrdina1);
    Voce(ordina, u"mnuModificaOrdina2"_s, u"per Lingua2"_s, &MDIForm1::mnuModificaOrdina2);
    Linea(modifica, u"mnuModificaLinea2"_s);
    QAction *aggiungi = Voce(modifica, u"mnuModificaAggiungi"_s, u"Aggiungi Voce"_s, &MDIForm1::mnuModificaAggiungi);
    Voce(modifica, u"mnuModificaElimina"_s, u"Elimina Voce"_s, &MDIForm1::mnuModificaElimina);
    servizi().vociDelleListe = {aggiungi, ordina->menuAction()};

    QMenu *esercizi = Menu(u"mnuEsercizi"_s, u"&Esercizi"_s);
    Voce(esercizi, u"mnuEserciziCasuale"_s, u"Ordine Casuale"_s, &MDIForm1::mnuEserciziCasuale);
    Voce(esercizi, u"mnuEserciziRipasso"_s, u"Ripasso Completo"_s, &MDIForm1::mnuEserciziRipasso);
    Linea(esercizi, u"mnuEserciziLinea1"_s);
    Voce(esercizi, u"mnuEserciziInverti"_s, u"Inverti Lingue"_s, &MDIForm1::mnuEserciziInverti)->setCheckable(true);

    QMenu *strumenti = Menu(u"mnuStrumenti"_s, u"&Strumenti"_s);
    Voce(strumenti, u"mnuStrumentiUnisci"_s, u"Unisci Dizionario"_s, &MDIForm1::mnuStrumentiUnisci);
    Voce(strumenti, u"mnuStrumentiComponi"_s, u"Componi Dizionario"_s, &MDIForm1::mnuStrumentiComponi);
    Voce(strumenti, u"mnuStrumentiCaratteri"_s, u"Mappa Caratteri"_s, &MDIForm1::mnuStrumentiCaratteri);
    Voce(strumenti, u"mnuStrumentiInverti"_s, u"Inverti Dizionario"_s, &MDIForm1::mnuStrumentiInverti);
    Voce(strumenti, u"mnuStrumentiConversioni"_s, u"Conversioni"_s, &MDIForm1::mnuStrumentiConversioni);
    Linea(strumenti, u"mnuStrumentiLinea1"_s);
    Voce(strumenti, u"mnuStrumentiOpzioni"_s, u"Opzioni"_s, &MDIForm1::mnuStrumentiOpzioni);

    QMenu *finestre = Menu(u"mnuFinestre"_s, u"Finestre"_s);
    servizi().mnuFinestre = finestre->menuAction();
    for (qint32 i = 0; i < Module1::MassimoFinestre; ++i) {
        QAction *voce = VoceDiLista(finestre, u"mnuFinestra(%1)"_s.arg(i));
        voce->setCheckable(true);
        servizi().mnuFinestra[static_cast<std::size_t>(i)] = voce;
        Lega(voce, [this, i] { mnuFinestra(i); });
    }

    QMenu *aiuto = Menu(u"mnuHelp"_s, u"?"_s);
    QAction *manuale = Voce(aiuto, u"mnuHelpManuale"_s, u"Manuale"_s, &MDIForm1::mnuHelpManuale);
    manuale->setShortcut(Qt::Key_F1);
    Voce(aiuto, u"mnuHelpAbout"_s, u"Informazioni su Varbel"_s, &MDIForm1::mnuHelpAbout);
}

void MDIForm1::CreaToolbar()
{
    struct Pulsante {
        QString testo;
        QString immagine;
        QString voce;
        Comando comando;
    };
    const std::array pulsanti = {
        Pulsante{u"Nuovo"_s, u"nuovo"_s, u"mnuFileNuovo"_s, &MDIForm1::mnuFileNuovo},
        Pulsante{u"Apri"_s, u"apri"_s, u"mnuFileApri"_s, &MDIForm1::mnuFileApri},
        Pulsante{u"Salva"_s, u"salva"_s, u"mnuFileSalva"_s, &MDIForm1::mnuFileSalva},
        Pulsante{u"Aggiungi"_s, u"aggiungi"_s, u"mnuModificaAggiungi"_s, &MDIForm1::mnuModificaAggiungi},
        Pulsante{u"Esercizio"_s, u"esercizio"_s, u"mnuEserciziCasuale"_s, &MDIForm1::mnuEserciziCasuale},
        Pulsante{u"Mappa Caratteri"_s, u"caratteri"_s, u"mnuStrumentiCaratteri"_s, &MDIForm1::mnuStrumentiCaratteri},
        Pulsante{u"Componi Dizionario"_s, u"componi"_s, u"mnuStrumentiComponi"_s, &MDIForm1::mnuStrumentiComponi},
    };
    m_toolbar = addToolBar(u"Barra degli strumenti"_s);
    m_toolbar->setObjectName("Toolbar1"_L1);
    m_toolbar->setMovable(false);
    m_toolbar->toggleViewAction()->setEnabled(false);
    m_toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    // The pictures wait until the window is seen; this keeps their room.
    QPixmap vuota(m_toolbar->iconSize());
    vuota.fill(Qt::transparent);
    int numero = 0;
    for (const Pulsante &pulsante : pulsanti) {
        QAction *azione = m_toolbar->addAction(vuota, pulsante.testo);
        azione->setObjectName(u"Toolbar1(%1)"_s.arg(++numero));
        azione->setStatusTip(m_voci.value(pulsante.voce)->statusTip());
        ImageList1.append(pulsante.immagine);
        m_toolbar->widgetForAction(azione)->setObjectName(azione->objectName());
        Lega(azione, [this, comando = pulsante.comando] { (this->*comando)(); });
    }
    m_toolbar->actions().at(3)->setData(u"aggiungi"_s);
}

void MDIForm1::CreaAiuti()
{
    statusBar()->setObjectName("StatusBar"_L1);
    const std::initializer_list<std::pair<QString, QString>> aiuti = {
        {u"mnuFileNuovo"_s, u"Crea un dizionario nuovo"_s},
        {u"mnuFileNuovoDaModello"_s, u"Crea un dizionario con le impostazioni di un altro"_s},
        {u"mnuFileApri"_s, u"Apre un dizionario"_s},
        {u"mnuFileChiudi"_s, u"Chiude il dizionario"_s},
        {u"mnuFileSalva"_s, u"Salva il dizionario e le sue impostazioni"_s},
        {u"mnuFileSalvaConNome"_s, u"Salva il dizionario con un altro nome"_s},
        {u"mnuFileStampa"_s, u"Stampa il dizionario com'è stato salvato"_s},
        {u"mnuFileProprieta"_s, u"Lingue, tastiera, font e frequenza degli errori del dizionario"_s},
        {u"mnuFileEsci"_s, u"Chiude il programma"_s},
        {u"mnuModificaCopia"_s, u"Copia il testo selezionato"_s},
        {u"mnuModificaTaglia"_s, u"Taglia il testo selezionato"_s},
        {u"mnuModificaIncolla"_s, u"Incolla il testo copiato"_s},
        {u"mnuModificaOrdina"_s, u"Ordina le voci"_s},
        {u"mnuModificaOrdina1"_s, u"Ordina le voci per le parole della prima lingua"_s},
        {u"mnuModificaOrdina2"_s, u"Ordina le voci per le parole della seconda lingua"_s},
        {u"mnuModificaAggiungi"_s, u"Aggiunge voci al dizionario"_s},
        {u"mnuModificaElimina"_s, u"Elimina la voce scelta"_s},
        {u"mnuEserciziCasuale"_s, u"Chiede voci a caso"_s},
        {u"mnuEserciziRipasso"_s, u"Chiede tutte le voci in ordine"_s},
        {u"mnuEserciziInverti"_s, u"Chiede dalla seconda lingua alla prima"_s},
        {u"mnuStrumentiUnisci"_s, u"Aggiunge le voci di un altro dizionario"_s},
        {u"mnuStrumentiComponi"_s, u"Compone un dizionario con le voci di due"_s},
        {u"mnuStrumentiCaratteri"_s, u"Tasti rapidi e mappa dei caratteri"_s},
        {u"mnuStrumentiInverti"_s, u"Scambia le due lingue"_s},
        {u"mnuStrumentiConversioni"_s, u"Aggiunge voci dalle righe di un file di testo"_s},
        {u"mnuStrumentiOpzioni"_s, u"Grandezza dei caratteri, suono degli errori, cartella di lavoro"_s},
        {u"mnuHelpManuale"_s, u"Apre il manuale alla pagina della finestra attiva"_s},
        {u"mnuHelpAbout"_s, u"Versione, contatti e condizioni d'uso"_s},
    };
    for (const auto &[nome, aiuto] : aiuti) {
        QAction *voce = m_menu.contains(nome) ? m_menu.value(nome)->menuAction() : m_voci.value(nome);
        voce->setStatusTip(aiuto);
        voce->setToolTip(aiuto);
    }
    for (QMenu *menu : m_menu)
        menu->setToolTipsVisible(true);
}

bool MDIForm1::event(QEvent *evento)
{
    if (evento->type() == QEvent::Paint && !ImageList1.isEmpty())
        QMetaObject::invokeMethod(this, &MDIForm1::CaricaImmagini, Qt::QueuedConnection);
    return QMainWindow::event(evento);
}

void MDIForm1::CaricaImmagini()
{
    const QList<QAction *> azioni = m_toolbar->actions();
    for (qsizetype i = 0; i < ImageList1.size(); ++i)
        azioni[i]->setIcon(QIcon(u":/icone/%1.svg"_s.arg(ImageList1[i])));
    ImageList1.clear();
    QApplication::setWindowIcon(QIcon(u":/icone/varbel.svg"_s));
}

void MDIForm1::Abilita(const QString &nome, bool abilitata)
{
    if (QMenu *menu = m_menu.value(nome))
        menu->setEnabled(abilitata);
    else
        m_voci.value(nome)->setEnabled(abilitata);
}

void MDIForm1::AbilitaComuni(bool aperto)
{
    for (const QString &nome : {u"mnuFileNuovo"_s, u"mnuFileApri"_s, u"mnuFileNuovoDaModello"_s})
        Abilita(nome, !aperto);
    for (const QString &nome : VociComuni())
        Abilita(nome, aperto);
    const QList<QAction *> pulsanti = m_toolbar->actions();
    for (qsizetype i = 0; i < pulsanti.size(); ++i)
        pulsanti[i]->setEnabled(i < 2 ? !aperto : aperto);
    for (QAction *recente : m_recenti)
        recente->setEnabled(!aperto);
}

void MDIForm1::StatoAperto()
{
    AbilitaComuni(true);
    Abilita(u"mnuFileSalva"_s, true);
    Abilita(u"mnuFileSalvaConNome"_s, true);
}

void MDIForm1::StatoChiuso()
{
    AbilitaComuni(false);
    Abilita(u"mnuFileSalva"_s, false);
    Abilita(u"mnuFileSalvaConNome"_s, false);
}

void MDIForm1::AggiornaMenuRecenti()
{
    for (std::size_t i = 0; i < m_recenti.size(); ++i) {
        const QString &percorso = stato().recenti[i];
        m_recenti[i]->setText(Didascalia(percorso));
        m_recenti[i]->setData(percorso);
        m_recenti[i]->setStatusTip(u"Apre "_s + percorso);
        m_recenti[i]->setToolTip(percorso.toHtmlEscaped());
        m_recenti[i]->setVisible(!percorso.trimmed().isEmpty());
    }
}

QMdiSubWindow *MDIForm1::FinestraAperta(const QString &nome) const
{
    const QList<QMdiSubWindow *> finestre = m_area->subWindowList();
    const auto trovata = std::find_if(finestre.cbegin(), finestre.cend(), [&nome](const QMdiSubWindow *finestra) {
        return finestra->widget() != nullptr && finestra->widget()->objectName() == nome;
    });
    return trovata == finestre.cend() ? nullptr : *trovata;
}

QWidget *MDIForm1::MostraFinestra(const QString &nome)
{
    QMdiSubWindow *finestra = FinestraAperta(nome);
    if (!finestra) {
        if (!m_finestre.contains(nome))
            return nullptr;
        QWidget *form = m_finestre.value(nome)();
        if (!form)
            return nullptr;
        finestra = m_area->addSubWindow(form);
        DisponiFinestra(finestra);
    }
    PortaInPrimoPiano(finestra);
    return finestra->widget();
}

void MDIForm1::DisponiFinestra(QMdiSubWindow *finestra)
{
    // Each a title's height below and beside the one before, so that the titles of all can be seen.
    const int passo = finestra->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, finestra) + 4;
    const int posto = static_cast<int>(m_area->subWindowList().size()) - 1;
    finestra->move(QPoint(posto, posto) * passo);
    const auto *figlia = qobject_cast<const FinestraFiglia *>(finestra->widget());
    if (!figlia) {
        finestra->resize(finestra->widget()->size());
        return;
    }
    const QSize misura = figlia->Misura(finestra->x());
    finestra->resize((misura.isValid() ? misura : finestra->sizeHint()).expandedTo(finestra->minimumSizeHint()));
}

void MDIForm1::PortaInPrimoPiano(QMdiSubWindow *finestra)
{
    if (finestra->isMinimized() || finestra->isShaded())
        finestra->showNormal();
    else
        finestra->show();
    m_area->setActiveSubWindow(finestra);
    QWidget *form = finestra->widget();
    (form->focusWidget() ? form->focusWidget() : form)->setFocus();
}

QWidget *MDIForm1::CreaVisualizza()
{
    auto *visualizza = new VisualizzaForm1;
    visualizza->resize(QSize(width() * 3 / 5, height() * 3 / 4));
    connect(visualizza, &VisualizzaForm1::chiusuraRichiesta, this, [this](bool &annulla) {
        annulla = true;
        Protetto(this, [&] {
            bool tenuto = false;
            simulachiusura(tenuto);
            annulla = tenuto;
        });
    });
    Collega(visualizza, &VisualizzaForm1::modificaVoce, this, [this](qint32 voce) { ModificaVoce(voce); });
    Collega(visualizza, &VisualizzaForm1::listeRiempite, this, [this] { AggiornaComponi(); });
    return visualizza;
}

QWidget *MDIForm1::CreaInserimento()
{
    auto *inserimento = new InserimentoForm1(this);
    Collega(inserimento, &InserimentoForm1::voceScritta, this, [this] { AggiornaVisualizza(); });
    return inserimento;
}

QWidget *MDIForm1::CreaEsercizio()
{
    auto esercizio = std::make_unique<EsercizioForm1>(QTime::currentTime().msecsSinceStartOfDay(), this);
    if (esercizio->Finito())
        return nullptr;
    Collega(esercizio.get(), &EsercizioForm1::correggiVoce, this, [this](qint32 voce) { ModificaVoce(voce); });
    return esercizio.release();
}

void MDIForm1::Attivata(QMdiSubWindow *finestra)
{
    if (!finestra)
        return;
    // Coming back from another program activates no window of ours.
    const bool nuova = finestra != m_ultimaAttiva;
    m_ultimaAttiva = finestra;
    auto *figlia = qobject_cast<FinestraFiglia *>(finestra->widget());
    if (nuova && figlia)
        figlia->Activate();
    Module1::MarkActiveWindow(finestra->widget());
}

QWidget *MDIForm1::CreaTastiRapidi()
{
    auto *tasti = new TastiRapidiForm(this);
    Collega(tasti, &TastiRapidiForm::selezionaRichiesta, this, [this] { Mostra<CaratteriForm1>(); });
    return tasti;
}

QWidget *MDIForm1::CreaCaratteri()
{
    auto *caratteri = new CaratteriForm1(this);
    Collega(caratteri, &CaratteriForm1::carattereScelto, this, [this](const QString &carattere) {
        if (auto *tasti = Aperta<TastiRapidiForm>())
            tasti->ImpostaCarattere(carattere);
    });
    return caratteri;
}

QWidget *MDIForm1::CreaComponi()
{
    auto *componi = new ComponiForm1(this);
    Collega(componi, &ComponiForm1::dizionarioCambiato, this, [this] { AggiornaVisualizza(); });
    return componi;
}

QWidget *MDIForm1::CreaProprieta()
{
    auto *proprieta = new proprietaForm1(this);
    Collega(proprieta, &proprietaForm1::impostazioniCambiate, this, [this] {
        if (VisualizzaForm1 *visualizza = VisualizzaDaAggiornare()) {
            visualizza->AggiornaFont();
            visualizza->RiempiListe();
            visualizza->AggiornaTitolo();
        }
    });
    return proprieta;
}

QWidget *MDIForm1::CreaOpzioni()
{
    auto *opzioni = new OpzioniForm1(this);
    Collega(opzioni, &OpzioniForm1::opzioniCambiate, this, [this] {
        if (VisualizzaForm1 *visualizza = VisualizzaDaAggiornare())
            visualizza->AggiornaFont();
    });
    return opzioni;
}

VisualizzaForm1 *MDIForm1::VisualizzaDaAggiornare()
{
    // One that is open stays where it is among the others; without a dictionary there is none to make.
    auto *visualizza = Aperta<VisualizzaForm1>();
    return visualizza || !stato().DizionarioAperto ? visualizza : Mostra<VisualizzaForm1>();
}

void MDIForm1::AggiornaOpzioni()
{
    if (auto *opzioni = Aperta<OpzioniForm1>())
        opzioni->SegueDizionario();
}

void MDIForm1::AggiornaComponi()
{
    if (auto *componi = Aperta<ComponiForm1>())
        componi->SegueDizionario1();
}

void MDIForm1::AggiornaTastiRapidi()
{
    if (auto *tasti = Aperta<TastiRapidiForm>())
        tasti->RiempiListe();
}

void MDIForm1::ScaricaFinestre(const QStringList &nomi)
{
    for (const QString &nome : nomi) {
        if (QMdiSubWindow *finestra = FinestraAperta(nome)) {
            finestra->close();
            // Its name is free for the next one from now on, not only when the event loop has deleted it.
            if (finestra->widget())
                finestra->widget()->setObjectName(QString());
        }
    }
}

void MDIForm1::mnuFinestra(qint32 i)
{
    // The choice itself has toggled the entry's mark; only activation sets marks.
    QAction *voce = servizi().mnuFinestra[static_cast<std::size_t>(i)];
    voce->setChecked(!voce->isChecked());
    QWidget *finestra = Module1::WindowInSlot(i);
    const QList<QMdiSubWindow *> finestre = m_area->subWindowList();
    const auto sua = std::find_if(finestre.cbegin(), finestre.cend(),
                                  [finestra](const QMdiSubWindow *questa) { return questa->widget() == finestra; });
    // An entry without a window of its own is the viewer's.
    QMdiSubWindow *scelta = finestra && sua != finestre.cend() ? *sua : FinestraAperta(u"VisualizzaForm1"_s);
    if (!scelta)
        return;
    Module1::MarkActiveWindow(scelta->widget());
    PortaInPrimoPiano(scelta);
}

void MDIForm1::closeEvent(QCloseEvent *evento)
{
    // An error on the way keeps the window.
    bool annulla = true;
    Protetto(this, [&] {
        bool tenuto = false;
        if (QApplication::activeModalWidget())
            return;
        if (stato().DizionarioAperto)
            simulachiusura(tenuto);
        if (tenuto)
            return;
        // Asked before any other window has gone.
        if (QMdiSubWindow *componi = FinestraAperta(u"ComponiForm1"_s); componi && !componi->close())
            return;
        m_area->closeAllSubWindows();
        const QList<QMdiSubWindow *> rimaste = m_area->subWindowList();
        annulla = std::any_of(rimaste.cbegin(), rimaste.cend(),
                              [](const QMdiSubWindow *finestra) { return finestra->isVisible(); });
    });
    if (!annulla)
        m_manuale->Chiudi();
    evento->setAccepted(!annulla);
}

void MDIForm1::dragEnterEvent(QDragEnterEvent *evento)
{
    if (!stato().DizionarioAperto && !DizionarioTrascinato(evento->mimeData()).isEmpty())
        evento->acceptProposedAction();
}

void MDIForm1::dropEvent(QDropEvent *evento)
{
    const QString percorso = DizionarioTrascinato(evento->mimeData());
    if (stato().DizionarioAperto || percorso.isEmpty())
        return;
    evento->acceptProposedAction();
    // Not inside the drop: the program that the file comes from waits for its end.
    QMetaObject::invokeMethod(
        this,
        [this, percorso] {
            if (stato().DizionarioAperto)
                return;
            stato().PercorsoDizionario = percorso;
            SimulaApertura();
        },
        Qt::QueuedConnection);
}

QMessageBox::StandardButton MDIForm1::ChiediOrdina()
{
    return Messaggio(this, QMessageBox::Question, u"Attenzione"_s,
                     u"Date le dimenzioni del dizionario l'operazione potrebbe richedere alcuni minuti. Procedo?"_s,
                     QMessageBox::Yes | QMessageBox::No);
}

QWidget *MDIForm1::ControlloAttivo() const
{
    // While a menu is open the area has no active window, only a current one.
    const QMdiSubWindow *finestra = m_area->currentSubWindow();
    return finestra && finestra->widget() ? finestra->widget()->focusWidget() : nullptr;
}

QLineEdit *MDIForm1::CasellaAttiva() const
{
    auto *casella = qobject_cast<QLineEdit *>(ControlloAttivo());
    return casella && !qobject_cast<QComboBox *>(casella->parentWidget()) ? casella : nullptr;
}

void MDIForm1::mnuModifica_Apre()
{
    if (!ControlloAttivo())
        return;
    for (const QString &nome : {u"mnuModificaCopia"_s, u"mnuModificaTaglia"_s, u"mnuModificaIncolla"_s})
        Abilita(nome, CasellaAttiva() != nullptr);
}

void MDIForm1::mnuModificaCopia()
{
    if (const QLineEdit *casella = CasellaAttiva())
        QApplication::clipboard()->setText(casella->selectedText());
}

void MDIForm1::mnuModificaTaglia()
{
    QLineEdit *casella = CasellaAttiva();
    if (!casella)
        return;
    QApplication::clipboard()->setText(casella->selectedText());
    if (casella->hasSelectedText())
        SostituisciTesto(casella, casella->text().remove(casella->selectionStart(), casella->selectionLength()), 0);
    else
        casella->setCursorPosition(0);
}

void MDIForm1::mnuModificaIncolla()
{
    QLineEdit *casella = CasellaAttiva();
    if (!casella)
        return;
    const int inizio = casella->hasSelectedText() ? casella->selectionStart() : casella->cursorPosition();
    const QString testo = QApplication::clipboard()->text();
    SostituisciTesto(casella, casella->text().replace(inizio, casella->selectionLength(), testo), 0);
}

void MDIForm1::mnuModificaOrdina1()
{
    // On a table grown past its first size this command only asks.
    if (Capacita(stato().Dizionario1) > Module1::CapacitaIniziale)
        ChiediOrdina();
    else
        Ordina(0);
}

void MDIForm1::mnuModificaOrdina2()
{
    if (Capacita(stato().Dizionario1) <= Module1::CapacitaIniziale || ChiediOrdina() == QMessageBox::Yes)
        Ordina(1);
}

void MDIForm1::Ordina(qint32 chiave)
{
    OrdinaLista(stato().Dizionario1, stato().LenDizionario1, chiave);
    AggiornaVisualizza();
}

void MDIForm1::mnuModificaElimina()
{
    Mostra<VisualizzaForm1>()->SimulaElimina();
}

void MDIForm1::mnuFileProprieta()
{
    MostraFinestra(u"proprietaForm1"_s);
}

void MDIForm1::mnuModificaAggiungi()
{
    Mostra<InserimentoForm1>()->ImpostaModifica(false);
}

void MDIForm1::ModificaVoce(qint32 voce)
{
    static_cast<void>(RigaDi(stato().Dizionario1, voce));
    stato().VoceCorrente = voce;
    auto *inserimento = Mostra<InserimentoForm1>();
    inserimento->ImpostaModifica(true);
    inserimento->RiempiCampi(voce);
}

void MDIForm1::mnuEserciziCasuale()
{
    Esercizio::stato().OrdineCasuale = true;
    Mostra<EsercizioForm1>();
}

void MDIForm1::mnuEserciziRipasso()
{
    // The first question is drawn while the window loads, still in the order of the last exercise.
    if (!Mostra<EsercizioForm1>())
        return;
    Esercizio::stato().OrdineCasuale = false;
}

void MDIForm1::mnuEserciziInverti()
{
    Esercizio::stato().InvertiLingue = m_voci.value(u"mnuEserciziInverti"_s)->isChecked();
}

void MDIForm1::mnuStrumentiCaratteri()
{
    MostraFinestra(u"TastiRapidiForm"_s);
}

void MDIForm1::mnuStrumentiOpzioni()
{
    MostraFinestra(u"OpzioniForm1"_s);
}

void MDIForm1::mnuHelpManuale()
{
    m_manuale->Mostra();
}

void MDIForm1::mnuHelpAbout()
{
    MostraFinestra(u"aboutForm1"_s);
}
