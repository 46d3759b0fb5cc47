// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exercise/EsercizioForm1.h"

#include "app/Finestre.h"
#include "app/Protezione.h"
#include "app/Servizi.h"
#include "input/GestoreTasti.h"
#include "ui_EsercizioForm1.h"

#include <QApplication>
#include <QFile>
#include <QFocusEvent>
#include <QImageReader>

#include <utility>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// Side of a mark, in device-independent pixels.
constexpr int LatoSegno = 48;

// A comment as it is shown: without the CRs that end a line of the file, and no longer than a window can show at once.
QString CommentoVisibile(QString commento)
{
    constexpr qsizetype massimo = 5000;
    while (commento.endsWith(u'\r'))
        commento.chop(1);
    return commento.size() > massimo ? commento.left(massimo) + u'…' : commento;
}

// The largest picture of a mark's file, which may hold several, made as small as the mark; null when it is none.
QPixmap LeggiSegno(const QString &percorso, qreal scala)
{
    QImageReader lettore(percorso);
    QImage immagine;
    do {
        const QImage questa = lettore.read();
        if (questa.width() > immagine.width())
            immagine = questa;
    } while (lettore.jumpToNextImage());
    const int lato = qRound(LatoSegno * scala);
    if (immagine.width() > lato || immagine.height() > lato)
        immagine = immagine.scaled(lato, lato, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPixmap segno = QPixmap::fromImage(immagine);
    segno.setDevicePixelRatio(scala);
    return segno;
}
} // namespace

EsercizioForm1::EsercizioForm1(quint32 seme, QWidget *genitore)
    : FinestraFiglia(genitore), ui(std::make_unique<Ui::EsercizioForm1>()), m_caso(seme)
{
    ui->setupUi(this);
    Carica();
    const ImpostazioniDizionario &impostazioni = stato().impostazioni;
    setWindowTitle(u"Esercizio sul dizionario "_s + impostazioni.lingua1 + u'/' + impostazioni.lingua2);
    constexpr int inPiu = 4;
    ImpostaFont(ui->txtLingua2, impostazioni.FontLingua2, inPiu);
    ImpostaFont(ui->lblCommento2, impostazioni.FontCommento2, inPiu);
    for (QLabel *commento : {ui->lblCommento1, ui->lblCommento2})
        commento->setMinimumHeight(commento->fontMetrics().height());
    ui->picRisposta->setMinimumSize(LatoSegno, LatoSegno);

    auto *tasti = new GestoreTasti(this);
    for (QLineEdit *casella : {ui->txtLingua1, ui->txtLingua2}) {
        tasti->Segui(casella);
        PreparaCasella(casella);
        casella->installEventFilter(this);
    }
    InvioPreme(this, ui->cmdOK);
    Collega(ui->cmdOK, &QPushButton::clicked, this, [this] { Ok(); });
    Collega(ui->cmdModifica, &QPushButton::clicked, this, [this] { Correggi(); });

    Esercizio::Comincia();
    if (NuovaDomanda())
        MostraDomanda();
    else
        m_finito = true;
}

EsercizioForm1::~EsercizioForm1() = default;

QSize EsercizioForm1::Misura(int /*sinistra*/) const
{
    return {Pixel(10500), Pixel(6000)};
}

void EsercizioForm1::Activate()
{
    ui->txtLingua2->setFocus();
}

bool EsercizioForm1::NuovaDomanda()
{
    return Esercizio::NuovaDomanda([this] { return m_caso(); },
                                   [this] {
                                       return Messaggio(this, QMessageBox::Question, u"Attenzione!"_s,
                                                        u"Ripasso completato. Ricominciare da capo?"_s,
                                                        QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
                                   });
}

void EsercizioForm1::MostraDomanda()
{
    const StatoEsercizio &e = Esercizio::stato();
    const ImpostazioniDizionario &impostazioni = stato().impostazioni;
    struct Lato {
        QString lingua;
        QString font;
        QString fontCommento;
    };
    Lato domanda = {impostazioni.lingua1, impostazioni.FontLingua1, impostazioni.FontCommento1};
    Lato risposta = {impostazioni.lingua2, impostazioni.FontLingua2, impostazioni.FontCommento2};
    if (e.InvertiLingue)
        std::swap(domanda, risposta);
    // The answer's side keeps its larger letters, whichever language it is in.
    const auto conFamiglia = [](QWidget *controllo, const QString &famiglia) {
        QFont font = controllo->font();
        font.setFamily(famiglia);
        controllo->setFont(font);
    };
    conFamiglia(ui->lblCommento1, domanda.fontCommento);
    conFamiglia(ui->lblCommento2, risposta.fontCommento);
    conFamiglia(ui->txtLingua1, domanda.font);
    conFamiglia(ui->txtLingua2, risposta.font);
    ui->lbllingua1->setText(Didascalia(domanda.lingua));
    ui->lbllingua2->setText(Didascalia(risposta.lingua));
    ui->txtLingua1->setAccessibleName(domanda.lingua);
    ui->txtLingua2->setAccessibleName(risposta.lingua);

    const QString commento = CommentoVisibile(e.commentoDomanda);
    ui->lblCommento1->setText(commento);
    ui->txtLingua1->setText(e.parolaDomanda);
    ui->txtLingua1->setCursorPosition(0);
    ui->cmdOK->setAccessibleDescription(QString());
    ui->txtLingua2->setAccessibleDescription(commento.isEmpty() ? e.parolaDomanda
                                                                : e.parolaDomanda + u" ("_s + commento + u')');
    ui->txtLingua2->setFocus();
}

void EsercizioForm1::Ok()
{
    if (Esercizio::stato().attende) {
        Controlla();
        return;
    }
    ui->lblCommento1->clear();
    ui->txtLingua1->clear();
    ui->txtLingua2->clear();
    ui->lblCommento2->clear();
    Esercizio::stato().attende = true;
    ui->cmdOK->setText(u"Ok"_s);
    if (NuovaDomanda())
        MostraDomanda();
    else
        Scarica();
}

void EsercizioForm1::Controlla()
{
    const StatoEsercizio &e = Esercizio::stato();
    const bool giusta = Esercizio::ControllaRisposta(ui->txtLingua2->text());
    MostraSegno(giusta);
    if (!giusta && stato().impostazioni.Beep != 0)
        QApplication::beep();
    ui->txtLingua2->setText(e.rispostaAttesa);
    ui->txtLingua2->setCursorPosition(0);
    const QString commento = CommentoVisibile(e.commentoRisposta);
    ui->lblCommento2->setText(commento);
    ui->lblRiepilogo->setText(Esercizio::Riepilogo());
    ui->cmdOK->setText(u"Nuova Domanda"_s);

    // Said by screen readers: the mark, the expected answer, its comment and the score, by the change of a name and,
    // for the control that has the focus, of its description.
    const QString esito = ui->picRisposta->accessibleName() + u": "_s + e.rispostaAttesa + u". "_s + commento + u' ' +
                          Esercizio::Riepilogo();
    ui->lblRiepilogo->setAccessibleName(esito);
    ui->txtLingua2->setAccessibleDescription(esito);
    ui->cmdOK->setAccessibleDescription(esito);
}

void EsercizioForm1::MostraSegno(bool giusta)
{
    const QString parola = giusta ? u"Giusto"_s : u"Sbagliato"_s;
    const QString percorso = stato().CartellaProgramma + (giusta ? u"/Trffc10a.ico"_s : u"/Intl_no.bmp"_s);
    if (!QFile::exists(percorso))
        throw ErroreRuntime(53, true);
    ui->picRisposta->setAccessibleName(parola);
    const QPixmap segno = LeggiSegno(percorso, devicePixelRatioF());
    if (!segno.isNull()) {
        ui->picRisposta->setPixmap(segno);
        return;
    }
    // A broken picture must not keep anyone from the exercise: the word stands for it, and it is told once.
    ui->picRisposta->setText(parola);
    if (!std::exchange(m_segnoIllegibile, true))
        Messaggio(this, QMessageBox::Critical, u"Errore!"_s, u"Impossibile leggere l'immagine "_s + percorso + u'.');
}

void EsercizioForm1::Correggi()
{
    const qint32 voce = Esercizio::stato().voce;
    if (voce <= stato().LenDizionario1 && !RigaDi(stato().Dizionario1, voce)[2].isEmpty())
        emit correggiVoce(voce);
}

bool EsercizioForm1::eventFilter(QObject *oggetto, QEvent *evento)
{
    auto *casella = qobject_cast<QLineEdit *>(oggetto);
    if (evento->type() == QEvent::FocusIn && PrendeIlFuoco(casella, *static_cast<QFocusEvent *>(evento))) {
        const bool risposta = casella == ui->txtLingua2;
        if (!risposta || !stato().impostazioni.Tastiera.isEmpty()) {
            const bool seconda = risposta && !Esercizio::stato().InvertiLingue;
            Protetto(this, [&] { Module1::SwitchKeyboard(seconda ? 1 : 2, this); });
        }
    }
    return FinestraFiglia::eventFilter(oggetto, evento);
}

void EsercizioForm1::Unload()
{
    Module1::SwitchKeyboard(2, this);
}
