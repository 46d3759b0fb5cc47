// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/proprietaForm1.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/Numeri.h"
#include "core/Percorsi.h"
#include "input/GestoreTasti.h"
#include "settings/CasellaNumero.h"
#include "ui_proprietaForm1.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
constexpr int MassimaFrequenza = 90;

// The share of questions that a text gives in hundredths, none for an empty one. ErroreRuntime 6 when it is too large.
float Frequenza(const QString &testo)
{
    const double frequenza = LeggiNumero(testo).value_or(0) / 100;
    if (std::abs(frequenza) > std::numeric_limits<float>::max())
        throw ErroreRuntime(6);
    return static_cast<float>(frequenza);
}

void MostraNome(QLabel *etichetta, const QString &font)
{
    etichetta->setText(font);
    etichetta->setToolTip("<span>"_L1 + font.toHtmlEscaped() + "</span>"_L1);
}
} // namespace

proprietaForm1::proprietaForm1(QWidget *genitore) : FinestraFiglia(genitore), ui(std::make_unique<Ui::proprietaForm1>())
{
    ui->setupUi(this);
    Carica();
    AggiornaTitolo();
    MostraLingue();
    MostraFonts();
    PreparaNumero(this, ui->txtFrequenza, ui->Command1, ui->Command2, 0, MassimaFrequenza);
    Collega(ui->txtFrequenza, &QLineEdit::textChanged, this, [this] {
        if (NumeroOVuota(ui->txtFrequenza) > MassimaFrequenza)
            ui->txtFrequenza->setText(QString::number(MassimaFrequenza));
    });
    // As many digits as a single-precision fraction holds for certain.
    constexpr int cifre = 6;
    ui->txtFrequenza->setText(TestoNumero(static_cast<double>(stato().impostazioni.PercentualeErrori) * 100, cifre));
    MostraTastiera();

    InvioPreme(this, ui->cmdOk);
    Collega(ui->cmdOk, &QPushButton::clicked, this, [this] { Ok(); });
    Collega(ui->cmdAnnulla, &QPushButton::clicked, this, [this] { Scarica(); });
    ui->cmbLingua1->setFocus();
    QMetaObject::invokeMethod(ui->cmbLingua1->lineEdit(), &QLineEdit::selectAll, Qt::QueuedConnection);
}

proprietaForm1::~proprietaForm1() = default;

void proprietaForm1::AggiornaTitolo()
{
    const Module1::Stato &s = stato();
    ui->lblTitolo->setText(u"Dizionario "_s + s.impostazioni.lingua1 + u'/' + s.impostazioni.lingua2);
    ui->lblFile->setText(u'(' + s.PercorsoDizionario + u')');
    ui->lblFile->setToolTip("<span>"_L1 + s.PercorsoDizionario.toHtmlEscaped() + "</span>"_L1);
}

void proprietaForm1::MostraLingue()
{
    const QString varbelIni = Module1::PercorsoVarbelIni();
    QStringList lingue;
    try {
        lingue = LeggiLingue(LineeDelFile(varbelIni));
    } catch (ErroreRuntime &errore) {
        errore.testo = u"Impossibile leggere "_s + varbelIni + u".\n"_s + errore.testo;
        throw;
    }
    const auto mostra = [&lingue](QComboBox *scelta, const QString &lingua) {
        scelta->setCompleter(nullptr);
        PreparaCasella(scelta->lineEdit());
        scelta->addItems(lingue);
        scelta->setCurrentIndex(static_cast<int>(lingue.indexOf(lingua)));
        scelta->setEditText(lingua);
    };
    mostra(ui->cmbLingua1, stato().impostazioni.lingua1);
    mostra(ui->cmbLingua2, stato().impostazioni.lingua2);
}

void proprietaForm1::MostraFonts()
{
    const ImpostazioniDizionario &impostazioni = stato().impostazioni;
    const auto mostra = [this](QLabel *etichetta, const QString &font, const QPushButton *pulsante) {
        constexpr int caratteri = 15;
        etichetta->setMinimumWidth(caratteri * etichetta->fontMetrics().averageCharWidth());
        // The name as it is stored: one that is not installed is shown in the font that stands in for it.
        MostraNome(etichetta, font);
        ImpostaFont(etichetta, font);
        Collega(pulsante, &QPushButton::clicked, this, [this, etichetta] { ScegliFont(etichetta); });
    };
    mostra(ui->lblLingua1, impostazioni.FontLingua1, ui->cmdFontLingua1);
    mostra(ui->lblLingua2, impostazioni.FontLingua2, ui->cmdFontLingua2);
    mostra(ui->lblCommento1, impostazioni.FontCommento1, ui->cmdCommento1);
    mostra(ui->lblCommento2, impostazioni.FontCommento2, ui->cmdCommento2);
}

void proprietaForm1::MostraTastiera()
{
    using Tastiera = std::pair<QString, QString>;
    for (const auto &[nome, codice] :
         {Tastiera(u"Araba"_s, u"0401"_s), Tastiera(u"Francese"_s, u"040C"_s), Tastiera(u"Inglese"_s, u"0409"_s),
          Tastiera(u"Greca"_s, u"0408"_s), Tastiera(u"Russa"_s, u"0419"_s), Tastiera(u"Spagnola"_s, u"040A"_s),
          Tastiera(u"Tedesca"_s, u"0407"_s)}) {
        ui->cboTastiera->addItem(nome);
        ui->cboTastiera2->addItem(codice);
    }
    connect(ui->chkTastiera, &QCheckBox::toggled, ui->cboTastiera, &QWidget::setEnabled);
    // Hexadecimal digits: their case does not count.
    const int riga = ui->cboTastiera2->findText(stato().impostazioni.Tastiera, Qt::MatchFixedString);
    ui->cboTastiera->setCurrentIndex(riga);
    ui->chkTastiera->setChecked(riga >= 0);
}

void proprietaForm1::ScegliFont(QLabel *etichetta)
{
    DlgFile dlg = servizi().dlgFile;
    dlg.font = etichetta->font();
    if (!MostraDlgFont(this, dlg))
        return;
    servizi().dlgFile.font = dlg.font;
    MostraNome(etichetta, dlg.font.family());
    QFont font = etichetta->font();
    font.setFamily(dlg.font.family());
    font.setBold(dlg.font.bold());
    font.setItalic(dlg.font.italic());
    etichetta->setFont(font);
}

bool proprietaForm1::event(QEvent *evento)
{
    const bool fatto = FinestraFiglia::event(evento);
    // The name of a font just chosen may take more lines, or higher ones.
    QWidget *cornice = parentWidget();
    if (evento->type() == QEvent::LayoutRequest && cornice && !cornice->isMaximized() && !cornice->isMinimized()) {
        const int manca = layout()->totalHeightForWidth(width()) - height();
        if (manca > 0)
            cornice->resize(cornice->width(), cornice->height() + manca);
    }
    return fatto;
}

void proprietaForm1::Ok()
{
    const float frequenza = Frequenza(ui->txtFrequenza->text());
    Module1::Stato &s = stato();
    s.PercorsoIni = PercorsoIniScritto(s.PercorsoDizionario);
    s.impostazioni.lingua1 = ui->cmbLingua1->currentText();
    s.impostazioni.lingua2 = ui->cmbLingua2->currentText();
    s.impostazioni.FontLingua1 = ui->lblLingua1->text();
    s.impostazioni.FontLingua2 = ui->lblLingua2->text();
    s.impostazioni.FontCommento1 = ui->lblCommento1->text();
    s.impostazioni.FontCommento2 = ui->lblCommento2->text();
    const int riga = ui->chkTastiera->isChecked() ? ui->cboTastiera->currentIndex() : -1;
    s.impostazioni.Tastiera = ui->cboTastiera2->itemText(riga);
    s.impostazioni.PercentualeErrori = frequenza;
    SegnaModificato();
    emit impostazioniCambiate();
    Scarica();
}
