// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/VisualizzaForm1.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/Documento.h"
#include "edit/ListaParole.h"
#include "edit/Voci.h"
#include "ui_VisualizzaForm1.h"

#include <QAction>
#include <QCloseEvent>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;
using Module1::stato;

VisualizzaForm1::VisualizzaForm1(QWidget *genitore)
    : QWidget(genitore),
      ui(std::make_unique<Ui::VisualizzaForm1>()),
      m_parole1(new ModelloColonna(stato().Dizionario1, 0, this)),
      m_parole2(new ModelloColonna(stato().Dizionario1, 1, this))
{
    ui->setupUi(this);
    ui->ListaParoleLingua1->setModel(m_parole1);
    ui->ListaParoleLingua2->setModel(m_parole2);
    AggiornaFont();
    AggiornaTitolo();

    Documento::Carica();
    RiempiListe();

    QAction *voce = servizi().mnuFinestra[0];
    servizi().mnuFinestre->setVisible(true);
    servizi().mnuFinestre->setEnabled(true);
    voce->setText(Didascalia(windowTitle()));
    voce->setVisible(true);
    voce->setChecked(true);

    const ListaParole *lista1 = ui->ListaParoleLingua1;
    const ListaParole *lista2 = ui->ListaParoleLingua2;
    Collega(lista1, &ListaParole::clic, this, [this] { Clic1(); });
    Collega(lista2, &ListaParole::clic, this, [this] { Clic2(); });
    for (ListaParole *lista : {ui->ListaParoleLingua1, ui->ListaParoleLingua2}) {
        Collega(lista, &ListaParole::doubleClicked, this, [this] { Apri(); });
        Collega(lista, &ListaParole::canc, this, [this] { SimulaElimina(); });
        lista->OffriSullaVoce(u"mnuListaApri"_s, ui->cmdApri->text(), [this] { Apri(); });
        lista->OffriSullaVoce(u"mnuListaElimina"_s, u"Elimina Voce"_s, [this] { SimulaElimina(); });
        lista->addActions(servizi().vociDelleListe);
    }
    InvioPreme(this, ui->cmdApri);
    setFocusProxy(ui->ListaParoleLingua1);
    Collega(ui->cmdApri, &QPushButton::clicked, this, [this] { Apri(); });
    Collega(ui->cmdElimina, &QPushButton::clicked, this, [this] { SimulaElimina(); });
    connect(lista1->verticalScrollBar(), &QScrollBar::valueChanged, lista2->verticalScrollBar(), &QScrollBar::setValue);
    connect(lista2->verticalScrollBar(), &QScrollBar::valueChanged, lista1->verticalScrollBar(), &QScrollBar::setValue);
}

VisualizzaForm1::~VisualizzaForm1() = default;

void VisualizzaForm1::AggiornaFont()
{
    ImpostaFontSize(this);
    const ImpostazioniDizionario &impostazioni = stato().impostazioni;
    const auto conNome = [this](const QString &nome) {
        QFont font = this->font();
        font.setFamily(nome);
        return font;
    };
    ui->ListaParoleLingua1->setFont(conNome(impostazioni.FontLingua1));
    ui->ListaParoleLingua2->setFont(conNome(impostazioni.FontLingua2));
    // One height for both, so that the two words of an entry stand on one line.
    constexpr int aria = 4;
    const int altezza =
        aria + std::max(ui->ListaParoleLingua1->fontMetrics().height(), ui->ListaParoleLingua2->fontMetrics().height());
    ui->ListaParoleLingua1->ImpostaAltezzaRiga(altezza);
    ui->ListaParoleLingua2->ImpostaAltezzaRiga(altezza);
}

void VisualizzaForm1::AggiornaTitolo()
{
    const Module1::Stato &s = stato();
    ui->lbltitolo->setText(u"Dizionario "_s + s.impostazioni.lingua1 + u'/' + s.impostazioni.lingua2);
    ui->lblFile->setText(u'(' + s.PercorsoDizionario + u')');
    ui->lblFile->setToolTip("<span>"_L1 + s.PercorsoDizionario.toHtmlEscaped() + "</span>"_L1);
    ui->lblLingua1->setText(s.impostazioni.lingua1);
    ui->lblLingua2->setText(s.impostazioni.lingua2);
    ui->ListaParoleLingua1->setAccessibleName(s.impostazioni.lingua1);
    ui->ListaParoleLingua2->setAccessibleName(s.impostazioni.lingua2);
}

void VisualizzaForm1::RiempiListe()
{
    const int inCima = ui->ListaParoleLingua1->verticalScrollBar()->value();
    const qint32 ultima = RaccogliVoci();
    m_ultima = std::max(ultima, 0);
    m_parole1->Aggiorna(ultima + 1);
    m_parole2->Aggiorna(ultima + 1);
    ui->ListaParoleLingua1->verticalScrollBar()->setValue(inCima);
    ui->ListaParoleLingua2->verticalScrollBar()->setValue(inCima);
    ScriviPosizione(ui->ListaParoleLingua1->ListIndex(), m_ultima);
    emit listeRiempite();
}

void VisualizzaForm1::SimulaElimina()
{
    const qint32 k = ui->ListaParoleLingua1->ListIndex();
    const auto testo = [k](const ModelloColonna *parole) {
        constexpr qsizetype massimo = 500;
        const QString parola = parole->data(parole->index(k), Qt::DisplayRole).toString();
        return parola.size() > massimo ? parola.left(massimo) + u'…' : parola;
    };
    const QString domanda = u"Cancellare la voce : "_s + testo(m_parole1) + u" = "_s + testo(m_parole2) + u'?';
    if (Messaggio(this, QMessageBox::Question, u"Attenzione!"_s, domanda, QMessageBox::Yes | QMessageBox::No) !=
        QMessageBox::Yes)
        return;
    EliminaVoce(k);
    RiempiListe();
    SegnaModificato();
}

void VisualizzaForm1::closeEvent(QCloseEvent *evento)
{
    bool annulla = false;
    if (stato().DizionarioAperto)
        emit chiusuraRichiesta(annulla);
    evento->setAccepted(!annulla);
}

void VisualizzaForm1::Clic1()
{
    const qint32 k = ui->ListaParoleLingua1->ListIndex();
    ui->ListaParoleLingua2->ImpostaListIndex(k);
    ScriviPosizione(k, m_ultima + 1);
}

void VisualizzaForm1::Clic2()
{
    const qint32 k = ui->ListaParoleLingua2->ListIndex();
    ui->ListaParoleLingua1->ImpostaListIndex(k);
    stato().VoceCorrente = k;
    ScriviPosizione(k, m_ultima + 1);
}

void VisualizzaForm1::Apri()
{
    const qint32 k = ui->ListaParoleLingua1->ListIndex();
    if (k < 0)
        return;
    stato().VoceCorrente = k;
    emit modificaVoce(k);
}

void VisualizzaForm1::ScriviPosizione(qint32 scelta, qint32 ultima)
{
    ui->lblNumele->setText(u"Voce %1 di %2"_s.arg(std::max(scelta, 0) + 1).arg(ultima));
}
