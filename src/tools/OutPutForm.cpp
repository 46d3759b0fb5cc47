// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/OutPutForm.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "edit/ListaParole.h"
#include "print/StampaElenco.h"
#include "ui_OutPutForm.h"

#include <QStringListModel>

OutPutForm::OutPutForm(QWidget *genitore)
    : FinestraFiglia(genitore), ui(std::make_unique<Ui::OutPutForm>()), m_errori(new QStringListModel(this))
{
    ui->setupUi(this);
    Carica();
    ui->lstOutput->setModel(m_errori);
    ui->lstOutput->setItemDelegate(new DelegatoParola(ui->lstOutput));
    InvioPreme(this, ui->cmdOk);
    Collega(ui->cmdStampa, &QPushButton::clicked, this, [this] { StampaElenco(this, m_errori->stringList()); });
    Collega(ui->cmdOk, &QPushButton::clicked, this, [this] { Scarica(); });
    setFocusProxy(ui->cmdOk);
}

OutPutForm::~OutPutForm() = default;

void OutPutForm::ImpostaErrori(const QStringList &errori)
{
    m_errori->setStringList(errori);
    // No sheet for nothing.
    ui->cmdStampa->setEnabled(!errori.isEmpty());
}

QSize OutPutForm::Misura(int /*sinistra*/) const
{
    return {Pixel(7000), Pixel(6000)};
}
