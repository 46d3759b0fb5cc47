// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ConvertiForm1.h"

#include "app/Attesa.h"
#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/Riga.h"
#include "ui_ConvertiForm1.h"

#include <exception>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;
using Module1::stato;

ConvertiForm1::ConvertiForm1(QString percorso, QWidget *genitore)
    : FinestraFiglia(genitore),
      ui(std::make_unique<Ui::ConvertiForm1>()),
      txtSeparatore(),
      FileDaConvertire(std::move(percorso))
{
    ui->setupUi(this);
    Carica();
    // A form file's names are identifiers, without the brackets.
    txtSeparatore = {ui->txtSeparatore_0_, ui->txtSeparatore_1_, ui->txtSeparatore_2_, ui->txtSeparatore_3_};
    for (std::size_t i = 0; i < txtSeparatore.size(); ++i)
        txtSeparatore[i]->setObjectName(u"txtSeparatore(%1)"_s.arg(i));
    const QString esempio = PrimaLinea(FileDaConvertire);
    for (QLineEdit *casella : findChildren<QLineEdit *>()) {
        casella->setMaxLength(std::numeric_limits<int>::max());
        Collega(casella, &QLineEdit::textChanged, this, [this] { AggiornaAnteprima(); });
    }
    ui->txtRigaEsempio->setText(esempio);
    ui->txtRigaEsempio->setCursorPosition(0);
    Collega(ui->chkTrim, &QCheckBox::toggled, this, [this] { AggiornaAnteprima(); });
    InvioPreme(this, ui->cmdOk);
    Collega(ui->cmdOk, &QPushButton::clicked, this, [this] { Ok(); });
    AggiornaAnteprima();
    txtSeparatore[0]->setFocus();
}

ConvertiForm1::~ConvertiForm1() = default;

QSize ConvertiForm1::Misura(int /*sinistra*/) const
{
    return {Pixel(7000), Pixel(5500)};
}

ImpostazioniConversione ConvertiForm1::Impostazioni() const
{
    ImpostazioniConversione impostazioni = {.separatori = {},
                                            .lingua1 = ui->txtLingua1->text(),
                                            .lingua2 = ui->txtLingua2->text(),
                                            .commento1 = ui->txtCommento1->text(),
                                            .commento2 = ui->txtCommento2->text(),
                                            .trim = ui->chkTrim->isChecked()};
    for (std::size_t i = 0; i < impostazioni.separatori.size(); ++i)
        impostazioni.separatori[i] = txtSeparatore[i]->text();
    return impostazioni;
}

bool ConvertiForm1::ControllaCampi()
{
    const std::optional<Rifiuto> rifiuto = ::ControllaCampi(Impostazioni(), m_separatori);
    if (rifiuto)
        Messaggio(this, QMessageBox::Critical, rifiuto->titolo, rifiuto->testo);
    return !rifiuto;
}

void ConvertiForm1::AggiornaAnteprima()
{
    const ImpostazioniConversione impostazioni = Impostazioni();
    const QString esempio = ui->txtRigaEsempio->text();
    const int separatori = ContaSeparatori(impostazioni);
    Segmenti segmenti;
    QString testo;
    if (const std::optional<Rifiuto> rifiuto = ::ControllaCampi(impostazioni, m_separatori)) {
        testo = rifiuto->testo;
    } else if (!TagliaLinea(esempio, impostazioni, separatori, segmenti)) {
        testo = u"La riga di esempio non si può dividere con questi separatori."_s;
    } else {
        try {
            const RigaTabella riga = RigaDaSegmenti(segmenti, impostazioni);
            const CampiRiga campi = CampiDellaRiga(riga[2]);
            testo = u"Lingua 1: «%1»   Lingua 2: «%2»   Commento 1: «%3»   Commento 2: «%4»"_s.arg(
                campi.lingua1, campi.lingua2, campi.commento1, campi.commento2);
        } catch (const ErroreRuntime &) {
            testo = u"Non c'è un segmento con questo numero."_s;
        }
    }
    ui->lblAnteprima->setText(testo);
}

void ConvertiForm1::Ok()
{
    // Left open after its dictionary was closed, it has nothing to add to.
    if (!stato().DizionarioAperto) {
        Messaggio(this, QMessageBox::Critical, u"Attenzione!"_s, u"Nessun dizionario è aperto!"_s);
        return;
    }
    if (!ControllaCampi())
        return;
    EsitoConversione esito;
    bool riuscita = false;
    try {
        const ImpostazioniConversione impostazioni = Impostazioni();
        m_separatori = ContaSeparatori(impostazioni);
        Attesa attesa(this, u"Conversione"_s);
        ConvertiFile(
            FileDaConvertire, impostazioni,
            [&attesa](qint64 fatto, qint64 totale) { return attesa.Avanti(fatto, totale); }, esito);
        riuscita = true;
    } catch (const std::exception &) {
        // Told below, once what was appended is shown and marked.
    }
    if (riuscita || esito.voci > 0) {
        emit tabellaCambiata();
        SegnaModificato();
    }
    if (!riuscita) {
        Messaggio(this, QMessageBox::Critical, u"Errore"_s, u"Si è verificato un errore nella conversione."_s);
        return;
    }
    emit convertito(esito.errori);
    QWidget *principale = window();
    Scarica();
    if (esito.annullata)
        Messaggio(principale, QMessageBox::Information, u"Conversione"_s,
                  u"Conversione interrotta. Voci aggiunte: %1."_s.arg(esito.voci));
}
