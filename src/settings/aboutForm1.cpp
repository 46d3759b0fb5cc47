// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/aboutForm1.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "ui_aboutForm1.h"

#include <QDir>

using namespace Qt::StringLiterals;

aboutForm1::aboutForm1(QWidget *genitore) : FinestraFiglia(genitore), ui(std::make_unique<Ui::aboutForm1>())
{
    ui->setupUi(this);
    Carica();
    constexpr int lato = 64;
    ui->Image1->setPixmap(QIcon(u":/icone/varbel.svg"_s).pixmap(QSize(lato, lato), devicePixelRatioF()));
    ui->lblProgramma->setText(u"Varbel %1"_s.arg(QStringLiteral(VARBEL_VERSION)));
    ui->txtCartella->setText(QDir::toNativeSeparators(Module1::stato().CartellaProgramma));
    ui->txtCartella->setCursorPosition(0);

    // A text over several lines tells its height only for a given width.
    const int larghezza = 58 * fontMetrics().averageCharWidth();
    ui->lblDisclaimer->setMinimumWidth(larghezza);
    ui->lblDisclaimer->setMinimumHeight(ui->lblDisclaimer->heightForWidth(larghezza));
    InvioPreme(this, ui->cmdOk);
    Collega(ui->cmdOk, &QPushButton::clicked, this, [this] { Scarica(); });
    ui->cmdOk->setFocus();
}

aboutForm1::~aboutForm1() = default;
