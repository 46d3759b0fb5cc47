// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ComponiForm1.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/FileInPosto.h"
#include "edit/ListaParole.h"
#include "edit/Ordinamento.h"
#include "input/GestoreTasti.h"
#include "ui_ComponiForm1.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QScrollBar>

#include <utility>

using namespace Qt::StringLiterals;
using Module1::stato;

/// The items of a list over a table's language-1 words.
class ModelloVoci : public ModelloColonna
{
public:
    ModelloVoci(const Tabella &tabella, QObject *genitore) : ModelloColonna(tabella, 0, genitore) {}

    [[nodiscard]] const Composizione::Voci &Voci() const { return m_voci; }

    void Imposta(Composizione::Voci voci)
    {
        beginResetModel();
        m_voci = std::move(voci);
        endResetModel();
    }

    void Accoda(const Composizione::Voci &nuove)
    {
        if (nuove.empty())
            return;
        beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(nuove.size()) - 1);
        m_voci.insert(m_voci.end(), nuove.begin(), nuove.end());
        endInsertRows();
    }

    /// Takes item i out; `togli` does it, and what goes with it.
    template <typename Funzione>
    void Elimina(qint32 i, Funzione togli)
    {
        beginRemoveRows({}, i, i);
        togli(m_voci);
        endRemoveRows();
    }

    [[nodiscard]] int rowCount(const QModelIndex &genitore = {}) const override
    {
        return genitore.isValid() ? 0 : static_cast<int>(m_voci.size());
    }

protected:
    [[nodiscard]] QString Testo(qint32 i) const override
    {
        const auto riga = static_cast<std::size_t>(m_voci[static_cast<std::size_t>(i)]);
        return riga < m_tabella.righe.size() ? Composizione::TestoVoce(m_tabella.righe[riga]) : QString();
    }

private:
    Composizione::Voci m_voci;
};

namespace
{
// The part of a path after its last separator, the whole path in the tool tip.
void MostraNome(QLabel *etichetta, const QString &percorso)
{
    etichetta->setText(Didascalia(QFileInfo(percorso).fileName()));
    etichetta->setToolTip("<span>"_L1 + percorso.toHtmlEscaped() + "</span>"_L1);
}
} // namespace

ComponiForm1::ComponiForm1(QWidget *genitore)
    : FinestraFiglia(genitore),
      ui(std::make_unique<Ui::ComponiForm1>()),
      m_voci1(new ModelloVoci(stato().Dizionario1, this)),
      m_voci2(new ModelloVoci(stato().Dizionario2, this))
{
    ui->setupUi(this);
    const std::initializer_list<std::pair<QWidget *, QString>> nomi = {{ui->optLingua_0, u"optLingua(0)"_s},
                                                                       {ui->optLingua_1, u"optLingua(1)"_s},
                                                                       {ui->optLingua2_0, u"optLingua2(0)"_s},
                                                                       {ui->optLingua2_1, u"optLingua2(1)"_s}};
    for (const auto &[opzione, nome] : nomi)
        opzione->setObjectName(nome);
    ui->lstdizionario3->hide();
    ui->lstDizionario1->setModel(m_voci1);
    ui->lstDizionario2->setModel(m_voci2);
    Carica();
    MostraNome(ui->lblDizionario2, Composizione::componiFile());
    m_voci2->Imposta(Composizione::VociDizionario2());
    SegueDizionario1();
    SegnaModificato();

    for (ListaParole *lista : {ui->lstDizionario1, ui->lstDizionario2})
        lista->installEventFilter(this);
    ui->lstDizionario1->OffriSullaVoce(u"mnuListaCopia"_s, ui->cmd1to2->toolTip(), [this] { Copia1in2(); });
    ui->lstDizionario2->OffriSullaVoce(u"mnuListaCopia"_s, ui->cmd2to1->toolTip(), [this] { Copia2in1(); });
    const std::initializer_list<std::pair<ListaParole *, QList<QPushButton *>>> tutte = {
        {ui->lstDizionario1, {ui->cmdAllto2, ui->cmdOrdina1}}, {ui->lstDizionario2, {ui->cmdAllto1, ui->cmdOrdina2}}};
    for (const auto &[lista, pulsanti] : tutte) {
        lista->OffriSullaVoce(u"mnuListaElimina"_s, u"Elimina la voce scelta"_s,
                              [this, lista = lista] { Elimina(lista); });
        for (QPushButton *pulsante : pulsanti)
            lista->addAction(pulsante->toolTip(), pulsante, &QPushButton::click);
    }
    InvioPreme(this, ui->cmdOk);
    Collega(ui->lstDizionario1, &ListaParole::doubleClicked, this, [this] { Copia1in2(); });
    Collega(ui->lstDizionario2, &ListaParole::doubleClicked, this, [this] { Copia2in1(); });
    const std::initializer_list<std::pair<QPushButton *, void (ComponiForm1::*)()>> pulsanti = {
        {ui->cmd1to2, &ComponiForm1::Copia1in2},
        {ui->cmd2to1, &ComponiForm1::Copia2in1},
        {ui->cmdAllto2, &ComponiForm1::CopiaTutto1in2},
        {ui->cmdAllto1, &ComponiForm1::CopiaTutto2in1},
        {ui->cmdOrdina1, &ComponiForm1::Ordina1},
        {ui->cmdOrdina2, &ComponiForm1::Ordina2},
        {ui->cmdOk, &ComponiForm1::Ok}};
    for (const auto &[pulsante, comando] : pulsanti)
        Collega(pulsante, &QPushButton::clicked, this, [this, comando = comando] { (this->*comando)(); });
    Collega(ui->cmdAnnulla, &QPushButton::clicked, this, [this] { Scarica(); });
    Collega(ui->chkFont, &QCheckBox::toggled, this, [this] { ImpostaFontListe(); });
    ui->lstDizionario1->setFocus();
}

ComponiForm1::~ComponiForm1() = default;

void ComponiForm1::SegueDizionario1()
{
    if (m_dopoRefill) {
        // Only what was deleted or added here: an item taken out of the list stays out.
        if (*m_dopoRefill != m_voci1->Voci())
            m_voci1->Imposta(*std::exchange(m_dopoRefill, std::nullopt));
        return;
    }
    const bool aperto = stato().DizionarioAperto;
    const int inCima = ui->lstDizionario1->verticalScrollBar()->value();
    m_voci1->Imposta(aperto ? Composizione::VociDizionario1() : Composizione::Voci());
    ui->lstDizionario1->verticalScrollBar()->setValue(inCima);
    MostraNome(ui->lblDizionario1, stato().PercorsoDizionario);
    ImpostaFontListe();
    for (QWidget *pulsante :
         std::initializer_list<QWidget *>{ui->cmd1to2, ui->cmd2to1, ui->cmdAllto1, ui->cmdAllto2, ui->cmdOrdina1})
        pulsante->setEnabled(aperto);
}

void ComponiForm1::ImpostaFontListe()
{
    const ImpostazioniDizionario &impostazioni = stato().impostazioni;
    const auto imposta = [](ListaParole *lista, const QString &famiglia) {
        constexpr int aria = 4;
        ImpostaFont(lista, famiglia);
        lista->ImpostaAltezzaRiga(lista->fontMetrics().height() + aria);
    };
    imposta(ui->lstDizionario1, impostazioni.FontLingua1);
    imposta(ui->lstDizionario2, ui->chkFont->isChecked() ? impostazioni.FontLingua2 : impostazioni.FontLingua1);
}

void ComponiForm1::Copia1in2()
{
    const qint32 i = ui->lstDizionario1->ListIndex();
    if (i < 0 || !stato().DizionarioAperto)
        return;
    m_voci2->Accoda(Composizione::Copia1in2(m_voci1->Voci()[static_cast<std::size_t>(i)]));
    ui->lstDizionario2->scrollToBottom();
    TentaCopia(Composizione::AggiornaCopia);
}

void ComponiForm1::Copia2in1()
{
    const qint32 i = ui->lstDizionario2->ListIndex();
    if (i < 0 || !stato().DizionarioAperto)
        return;
    Copia({m_voci2->Voci()[static_cast<std::size_t>(i)]});
    ui->lstDizionario1->scrollToBottom();
}

void ComponiForm1::CopiaTutto1in2()
{
    m_voci2->Accoda(Composizione::CopiaTutto1in2());
    TentaCopia(Composizione::AggiornaCopia);
}

void ComponiForm1::CopiaTutto2in1()
{
    Copia(m_voci2->Voci());
}

void ComponiForm1::Copia(const Composizione::Voci &righe)
{
    Composizione::Voci nuove;
    try {
        nuove = Composizione::Copia2in1(righe);
    } catch (...) {
        // Those that came before the memory was full.
        SegnaModificato();
        throw;
    }
    if (nuove.empty())
        return;
    m_voci1->Accoda(nuove);
    SegnaModificato();
    m_dopoRefill = Composizione::DopoChiusuraBuchi(m_voci1->Voci());
    emit dizionarioCambiato();
    m_dopoRefill.reset();
}

void ComponiForm1::Elimina(const ListaParole *lista)
{
    const qint32 i = lista->ListIndex();
    if (i < 0)
        return;
    if (lista == ui->lstDizionario1)
        m_voci1->Elimina(i, [i](Composizione::Voci &voci) { voci.erase(voci.begin() + i); });
    else {
        m_voci2->Elimina(i, [i](Composizione::Voci &voci) { Composizione::Elimina2(voci, i); });
        TentaCopia(Composizione::AggiornaCopia);
    }
}

void ComponiForm1::Ordina1()
{
    Module1::Stato &s = stato();
    OrdinaLista(s.Dizionario1, s.LenDizionario1, ui->optLingua_1->isChecked() ? 1 : 0);
    SegueDizionario1();
    // Its holes have moved too, and the viewer shows the table without them.
    emit dizionarioCambiato();
}

void ComponiForm1::Ordina2()
{
    ordinadizionario2(ui->optLingua2_1->isChecked() ? 1 : 0);
    m_voci2->Imposta(Composizione::VociDizionario2());
}

void ComponiForm1::Ok()
{
    if (stato().DizionarioAperto)
        emit dizionarioCambiato();
    Scarica();
}

bool ComponiForm1::ChiediChiusura()
{
    const auto risposta = Messaggio(this, QMessageBox::Question, u"Attenzione!"_s,
                                    u"Salvare le modifiche al dizionario "_s + Composizione::componiFile() + u'?',
                                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    return risposta == QMessageBox::No || (risposta == QMessageBox::Yes && ScriviSecondo());
}

bool ComponiForm1::ScriviSecondo()
{
    const QString &percorso = Composizione::componiFile();
    if (Composizione::Cambiato() &&
        Messaggio(this, QMessageBox::Warning, u"Attenzione!"_s,
                  u"Il file "_s + percorso + u" è cambiato da quando è stato aperto qui. Sostituirlo?"_s,
                  QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return false;
    qint32 spezzate = 0;
    try {
        spezzate = Composizione::Scrivi();
    } catch (ErroreRuntime &errore) {
        errore.testo = u"Impossibile salvare "_s + percorso + u".\n"_s + errore.testo +
                       u"\nLe voci restano nella finestra: liberare spazio e chiuderla di nuovo."_s;
        throw;
    }
    if (spezzate > 0)
        AvvisaSpezzate(this, percorso, spezzate);
    // What is in memory is no longer what its file holds.
    if (stato().DizionarioAperto && StessoFile(percorso, stato().PercorsoDizionario)) {
        // Nor is it the file that a close without saving may delete.
        stato().NuovoDizionario = false;
        SegnaModificato();
    }
    return true;
}

void ComponiForm1::Unload()
{
    // The form itself goes later, when the table is another one's.
    m_voci1->Imposta({});
    m_voci2->Imposta({});
    Composizione::Libera();
}

bool ComponiForm1::eventFilter(QObject *oggetto, QEvent *evento)
{
    const auto *lista = qobject_cast<ListaParole *>(oggetto);
    if (!lista || (evento->type() != QEvent::KeyPress && evento->type() != QEvent::KeyRelease))
        return FinestraFiglia::eventFilter(oggetto, evento);
    const auto &tasto = *static_cast<QKeyEvent *>(evento);
    if (evento->type() == QEvent::KeyRelease) {
        constexpr qint16 canc = 46;
        if (!tasto.isAutoRepeat() && CodiceDi(tasto) == canc)
            Protetto(this, [this, lista] { Elimina(lista); });
        return FinestraFiglia::eventFilter(oggetto, evento);
    }
    if (tasto.key() != Qt::Key_Return && tasto.key() != Qt::Key_Enter)
        return FinestraFiglia::eventFilter(oggetto, evento);
    if (!tasto.isAutoRepeat())
        Protetto(this, [this, lista] { lista == ui->lstDizionario1 ? Copia1in2() : Copia2in1(); });
    return true;
}
