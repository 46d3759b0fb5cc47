// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/TastiRapidiForm.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/Testo8Bit.h"
#include "input/GestoreTasti.h"
#include "input/TastiRapidi.h"
#include "ui_TastiRapidiForm.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// What stands for the character until one is chosen.
const QString DaSelezionare = QStringLiteral("--seleziona--");

// The character of a code read from a settings file, which may be any number.
QString CarattereDi(qint16 codice)
{
    return codice >= 1 && codice <= 255 ? QString(QChar(Testo8Bit::Carattere(static_cast<quint8>(codice)))) : QString();
}

QString TestoCodice(qint16 codice)
{
    return u'(' + QString::number(codice) + u')';
}

QString TestoTasto(qint16 codice, const QString &tasto)
{
    return TestoCodice(codice) + u"  "_s + tasto;
}
} // namespace

TastiRapidiForm::TastiRapidiForm(QWidget *genitore)
    : FinestraFiglia(genitore), ui(std::make_unique<Ui::TastiRapidiForm>())
{
    ui->setupUi(this);
    Carica();
    RiempiListe();
    ui->lblCodice->setMinimumWidth(ui->lblCodice->fontMetrics().horizontalAdvance(u"(255)"_s));
    PreparaCasella(ui->txtTastoRapido);
    ui->txtTastoRapido->installEventFilter(this);

    const auto insieme = [](ListaTasti *questa, ListaTasti *altra) {
        connect(questa, &QListWidget::itemSelectionChanged, altra,
                [questa, altra] { altra->setCurrentRow(questa->ListIndex()); });
        connect(questa->verticalScrollBar(), &QScrollBar::valueChanged, altra->verticalScrollBar(),
                &QScrollBar::setValue);
    };
    insieme(ui->lstTasti, ui->lstTasti2);
    insieme(ui->lstTasti2, ui->lstTasti);
    InvioPreme(this, ui->cmdAggiungi);
    connect(ui->cmdSeleziona, &QPushButton::clicked, this, &TastiRapidiForm::selezionaRichiesta);
    Collega(ui->cmdAggiungi, &QPushButton::clicked, this, [this] { Aggiungi(); });
    Collega(ui->cmdElimina, &QPushButton::clicked, this, [this] { Elimina(); });
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { Scarica(); });
    ui->txtTastoRapido->setFocus();
}

TastiRapidiForm::~TastiRapidiForm() = default;

void TastiRapidiForm::RiempiListe()
{
    const ImpostazioniDizionario &impostazioni = stato().impostazioni;
    ImpostaFont(ui->lblCarattere, impostazioni.FontLingua2);
    ImpostaFont(ui->lstTasti, impostazioni.FontLingua2);
    for (QWidget *riga : std::initializer_list<QWidget *>{ui->txtTastoRapido, ui->lblCarattere}) {
        constexpr int cornice = 4;
        riga->setFixedHeight(std::max(Pixel(300), riga->fontMetrics().height() + cornice));
    }
    ui->cmdAggiungi->setEnabled(stato().DizionarioAperto);
    ui->cmdElimina->setEnabled(stato().DizionarioAperto);

    ui->lstTasti->clear();
    ui->lstTasti2->clear();
    for (qint16 i = 0; i < impostazioni.NumTastiRapidi; ++i) {
        const TastoRapido &riga = impostazioni.TastiRapidi[static_cast<std::size_t>(i)];
        QString tasto = TestoTasto(riga[1], CarattereDi(riga[1]));
        if (riga[2] == 1)
            tasto += u" +SHIFT"_s;
        if (riga[3] == 1)
            tasto += u" +CTRL"_s;
        AggiungiAlleListe(CarattereDi(riga[0]), tasto);
    }
}

void TastiRapidiForm::AggiungiAlleListe(const QString &carattere, const QString &tasto)
{
    // One height for both, so that a character and its key stand on one line.
    constexpr int aria = 4;
    const int altezza = aria + std::max(ui->lstTasti->fontMetrics().height(), ui->lstTasti2->fontMetrics().height());
    ui->lstTasti->Aggiungi(carattere, altezza);
    ui->lstTasti2->Aggiungi(tasto, altezza);
}

void TastiRapidiForm::ImpostaCarattere(const QString &carattere)
{
    ui->lblCarattere->setText(carattere);
}

QSize TastiRapidiForm::Misura(int /*sinistra*/) const
{
    return {Pixel(6500), Pixel(6500)};
}

void TastiRapidiForm::Aggiungi()
{
    const auto errore = [this](const QString &titolo, const QString &testo) {
        Messaggio(this, QMessageBox::Critical, titolo, testo);
    };
    ImpostazioniDizionario &impostazioni = stato().impostazioni;
    const bool shift = ui->chkShift->isChecked();
    const bool ctrl = ui->chkControl->isChecked();
    if (TastiRapidi::Presente(m_codice, shift, ctrl))
        return errore(u"Attenzione"_s, u"Combinazione di tasti già presente!"_s);
    const QString carattere = ui->lblCarattere->text();
    if (carattere.isEmpty() || carattere == DaSelezionare)
        return errore(u"Attenzione!"_s, u"Tasto non valido!"_s);
    if (impostazioni.NumTastiRapidi >= MassimoTastiRapidi)
        return errore(u"Attenzione!"_s, u"Non si possono definire più di %1 tasti rapidi!"_s.arg(MassimoTastiRapidi));
    TastoRapido &riga = impostazioni.TastiRapidi[static_cast<std::size_t>(impostazioni.NumTastiRapidi)];
    riga[0] = static_cast<qint16>(Testo8Bit::Codice(carattere.front().unicode()));
    if (ui->txtTastoRapido->text().isEmpty())
        return errore(u"Attenzione!"_s, u"Tasto non valido!"_s);
    riga[1] = m_codice;
    riga[2] = shift ? 1 : 0;
    riga[3] = ctrl ? 1 : 0;
    ++impostazioni.NumTastiRapidi;
    AggiungiAlleListe(carattere, TestoTasto(m_codice, ui->txtTastoRapido->text()) + (ctrl ? u"+CTRL"_s : QString()) +
                                     (shift ? u"+SHIFT"_s : QString()));
    ui->lstTasti->scrollToBottom();
    SegnaModificato();
}

void TastiRapidiForm::Elimina()
{
    ImpostazioniDizionario &impostazioni = stato().impostazioni;
    const int k = ui->lstTasti->ListIndex();
    if (k < 0) {
        Messaggio(this, QMessageBox::Critical, u"Attenzione!"_s, u"Nessun tasto rapido selezionato!"_s);
        return;
    }
    // The rows after it stay where they are, and the next hotkey takes the place of the last one.
    impostazioni.TastiRapidi[static_cast<std::size_t>(k)].fill(0);
    --impostazioni.NumTastiRapidi;
    ui->lstTasti->setCurrentRow(-1);
    delete ui->lstTasti->takeItem(k);
    delete ui->lstTasti2->takeItem(k);
    SegnaModificato();
}

bool TastiRapidiForm::eventFilter(QObject *oggetto, QEvent *evento)
{
    if (oggetto != ui->txtTastoRapido)
        return FinestraFiglia::eventFilter(oggetto, evento);
    if (evento->type() == QEvent::FocusIn) {
        // Once the click that brought the focus has placed the caret.
        QMetaObject::invokeMethod(ui->txtTastoRapido, &QLineEdit::selectAll, Qt::QueuedConnection);
    } else if (evento->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(evento)->key() == Qt::Key_F1) {
        // Here it is a key like any other.
        evento->accept();
        return true;
    } else if (evento->type() == QEvent::KeyRelease) {
        const auto &tasto = *static_cast<QKeyEvent *>(evento);
        const qint16 codice = CodiceDi(tasto);
        // Tab and Enter move and confirm: one that is let go here was pressed elsewhere, or for the default button.
        constexpr qint16 tab = 9;
        constexpr qint16 invio = 13;
        if (!tasto.isAutoRepeat() && codice != tab && codice != invio) {
            m_codice = codice;
            ui->lblCodice->setText(TestoCodice(codice));
            // The next key takes this one's place.
            ui->txtTastoRapido->selectAll();
        }
    }
    return FinestraFiglia::eventFilter(oggetto, evento);
}
