// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/InserimentoForm1.h"

#include "app/Finestre.h"
#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/Riga.h"
#include "edit/Voci.h"
#include "input/GestoreTasti.h"
#include "ui_InserimentoForm1.h"

#include <QFocusEvent>

using namespace Qt::StringLiterals;
using Module1::stato;

InserimentoForm1::InserimentoForm1(QWidget *genitore)
    : FinestraFiglia(genitore), ui(std::make_unique<Ui::InserimentoForm1>())
{
    ui->setupUi(this);
    Carica();
    const ImpostazioniDizionario &impostazioni = stato().impostazioni;
    ui->lbllingua1->setText(Didascalia(impostazioni.lingua1));
    ui->lbllingua2->setText(Didascalia(impostazioni.lingua2));
    constexpr int inPiu = 4;
    ImpostaFont(ui->txtCommento1, impostazioni.FontCommento1);
    ImpostaFont(ui->txtCommento2, impostazioni.FontCommento2, inPiu);
    ImpostaFont(ui->txtLingua1, impostazioni.FontLingua1);
    ImpostaFont(ui->txtLingua2, impostazioni.FontLingua2, inPiu);
    ui->txtLingua1->setAccessibleName(impostazioni.lingua1);
    ui->txtLingua2->setAccessibleName(impostazioni.lingua2);
    // Both comment boxes have the same label.
    ui->txtCommento1->setAccessibleName(ui->lblCommento1->text() + u' ' + impostazioni.lingua1);
    ui->txtCommento2->setAccessibleName(ui->lblCommento2->text() + u' ' + impostazioni.lingua2);

    auto *tasti = new GestoreTasti(this);
    tasti->Segui(ui->txtLingua1);
    tasti->Segui(ui->txtLingua2);
    tasti->Segui(ui->txtCommento1, GestoreTasti::Eventi::Nessuno);
    tasti->Segui(ui->txtCommento2, GestoreTasti::Eventi::SoloRilascio);
    for (QLineEdit *casella : findChildren<QLineEdit *>()) {
        PreparaCasella(casella);
        casella->installEventFilter(this);
    }
    InvioPreme(this, ui->cmdOk);
    Collega(ui->cmdOk, &QPushButton::clicked, this, [this] { Ok(); });
    Collega(ui->cmdAnnulla, &QPushButton::clicked, this, [this] { Scarica(); });
    ImpostaModifica(false);
    ui->txtLingua1->setFocus();
}

InserimentoForm1::~InserimentoForm1() = default;

void InserimentoForm1::ImpostaModifica(bool daModificare)
{
    modifica = daModificare;
    setWindowTitle(modifica ? u"Modifica Parola"_s : u"Aggiungi Parole"_s);
}

void InserimentoForm1::RiempiCampi(qint32 indice)
{
    m_linea = RigaDi(stato().Dizionario1, indice)[2];
    m_indice = indice;
    riga voce;
    ScomponiRiga(m_linea, voce.lingua1, voce.lingua2, voce.commento1, voce.commento2);
    QString &commento2 = voce.commento2;
    m_codaCommento2.clear();
    while (commento2.endsWith(u'\r')) {
        commento2.chop(1);
        m_codaCommento2 += u'\r';
    }
    ui->txtCommento1->setText(voce.commento1);
    ui->txtLingua1->setText(voce.lingua1);
    ui->txtLingua2->setText(voce.lingua2);
    ui->txtCommento2->setText(commento2);
}

QSize InserimentoForm1::Misura(int sinistra) const
{
    return {window()->width() - sinistra - Pixel(800), Pixel(6500)};
}

void InserimentoForm1::Ok()
{
    const riga voce = {.lingua1 = ui->txtLingua1->text(),
                       .lingua2 = ui->txtLingua2->text(),
                       .commento1 = ui->txtCommento1->text(),
                       .commento2 = ui->txtCommento2->text() + (modifica ? m_codaCommento2 : QString())};
    const RigaTabella nuova = {voce.lingua1, voce.lingua2, ComponiRiga(voce)};
    if (modifica) {
        ModificaVoce(m_indice, m_linea, nuova);
    } else {
        AggiungiVoce(nuova);
        for (QLineEdit *casella : findChildren<QLineEdit *>())
            casella->setText(QString());
    }
    // Before anything that may stop at a message.
    SegnaModificato();
    emit voceScritta();
    ui->txtLingua1->setFocus();
    if (modifica)
        Scarica();
}

bool InserimentoForm1::eventFilter(QObject *oggetto, QEvent *evento)
{
    auto *casella = qobject_cast<QLineEdit *>(oggetto);
    if (evento->type() == QEvent::FocusIn && PrendeIlFuoco(casella, *static_cast<QFocusEvent *>(evento))) {
        const bool seconda = casella == ui->txtLingua2 || casella == ui->txtCommento2;
        if (!seconda || !stato().impostazioni.Tastiera.isEmpty())
            Protetto(this, [&] { Module1::SwitchKeyboard(seconda ? 1 : 2, this); });
    }
    return FinestraFiglia::eventFilter(oggetto, evento);
}

void InserimentoForm1::Unload()
{
    Module1::SwitchKeyboard(2, this);
}
