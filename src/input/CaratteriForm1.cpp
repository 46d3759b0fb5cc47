// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CaratteriForm1.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/Testo8Bit.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int Colonne = 14;
constexpr int Righe = 6;
constexpr int CellePerPagina = Colonne * Righe;
// 255 twips, and 382.5 for the selected cell.
constexpr int Lato = 17;
constexpr int LatoScelta = 26;
constexpr int Rientro = (LatoScelta - Lato + 1) / 2;
constexpr int Punti = 12;
constexpr int PuntiScelta = 16;

// The code of a cell's character; the last cells are past the code page.
int Codice(qint16 k)
{
    constexpr int primo = 30;
    return k + primo;
}

QString Carattere(qint16 k)
{
    const int codice = Codice(k);
    return codice <= 255 ? QString(QChar(Testo8Bit::Carattere(static_cast<quint8>(codice)))) : QString();
}

QString NomeParlato(qint16 k)
{
    const QString carattere = Carattere(k);
    if (carattere.isEmpty())
        return u"nessun carattere"_s;
    const QChar c = carattere.front();
    const QString nome = c.isSpace() ? u"spazio"_s : c.isPrint() ? carattere : u"carattere"_s;
    return nome + u", "_s + QString::number(Codice(k));
}

QPalette Colori(QRgb testo, QRgb sfondo)
{
    QPalette colori;
    colori.setColor(QPalette::WindowText, QColor(testo));
    colori.setColor(QPalette::Window, QColor(sfondo));
    return colori;
}
} // namespace

class CaratteriForm1::Cella : public QLabel
{
public:
    Cella(qint16 k, const QFont &font, QWidget *pagina) : QLabel(pagina), indice(k)
    {
        setObjectName(u"Label1(%1)"_s.arg(k));
        setTextFormat(Qt::PlainText);
        setAutoFillBackground(true);
        setFocusPolicy(Qt::ClickFocus);
        setAccessibleName(NomeParlato(k));
        setText(Carattere(k));
        setFont(font);
        Scegli(false);
    }

    void Scegli(bool scelta)
    {
        static const QPalette normale = Colori(0x000000, 0xFFFFFF);
        static const QPalette evidente = Colori(0xFFC0FF, 0xC0C000);
        QFont nuovo = font();
        nuovo.setPointSize(scelta ? PuntiScelta : Punti);
        setFont(nuovo);
        setPalette(scelta ? evidente : normale);
        const int lato = scelta ? LatoScelta : Lato;
        resize(lato, lato);
    }

    const qint16 indice;

protected:
    // The cells are smaller than a line of their font: the character keeps its line as far as all of it is seen.
    void paintEvent(QPaintEvent * /*evento*/) override
    {
        QPainter pittore(this);
        const QFontMetricsF metrica(font());
        QRectF inchiostro = metrica.tightBoundingRect(text());
        const double stretta = std::min({1.0, width() / inchiostro.width(), height() / inchiostro.height()});
        QPointF punto((width() - metrica.horizontalAdvance(text()) * stretta) / 2,
                      (height() + (metrica.ascent() - metrica.descent()) * stretta) / 2);
        inchiostro = QRectF(inchiostro.topLeft() * stretta + punto, inchiostro.size() * stretta);
        punto.rx() += std::max(0.0, -inchiostro.left()) - std::max(0.0, inchiostro.right() - width());
        punto.ry() += std::max(0.0, -inchiostro.top()) - std::max(0.0, inchiostro.bottom() - height());
        pittore.translate(punto);
        pittore.scale(stretta, stretta);
        pittore.drawText(QPointF(), text());
        if (!hasFocus())
            return;
        pittore.resetTransform();
        pittore.setPen(Qt::black);
        pittore.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

/// One tab's cells, spread over its room; one that is selected grows into the gap beside it.
class CaratteriForm1::Pagina : public QWidget
{
public:
    Pagina() { setMinimumSize(Colonne * LatoScelta + Rientro, Righe * LatoScelta + Rientro); }

protected:
    void resizeEvent(QResizeEvent * /*evento*/) override
    {
        const QSize passo(width() / Colonne, height() / Righe);
        const QSize rientro = (passo - QSize(Lato, Lato)) / 2;
        for (QObject *figlio : children()) {
            auto *cella = static_cast<Cella *>(figlio);
            const int posto = (cella->indice - 1) % CellePerPagina;
            cella->move(posto % Colonne * passo.width() + rientro.width(),
                        posto / Colonne * passo.height() + rientro.height());
        }
    }
};

CaratteriForm1::CaratteriForm1(QWidget *genitore) : FinestraFiglia(genitore), SSTab1(new QTabWidget(this))
{
    setObjectName("CaratteriForm1"_L1);
    setWindowTitle(u"Mappa Caratteri"_s);
    auto *disposizione = new QVBoxLayout(this);
    constexpr int margine = 6;
    disposizione->setContentsMargins(margine, margine, margine, margine);
    disposizione->addWidget(SSTab1);
    Carica();
    SSTab1->setObjectName("SSTab1"_L1);
    SSTab1->setAccessibleName(windowTitle());
    ImpostaFont(SSTab1, Module1::stato().impostazioni.FontLingua2);
    CreaCelle();
    Label1(m_scelta)->setFocus();
}

void CaratteriForm1::CreaCelle()
{
    const std::array schede = {u"! - T"_s, u"U - \u061F"_s, u"® - \u00A0"_s};
    const QFont font(Module1::stato().impostazioni.FontLingua2, Punti);
    qint16 k = 1;
    for (const QString &scheda : schede) {
        auto *pagina = new Pagina;
        const qint16 prima = k;
        for (const int fine = std::min<int>(k + CellePerPagina - 1, NumCelle); k <= fine; ++k) {
            auto *cella = new Cella(k, font, pagina);
            cella->installEventFilter(this);
            m_celle[static_cast<std::size_t>(k - 1)] = cella;
        }
        SSTab1->addTab(pagina, scheda);
        Fermata(Label1(prima));
    }
}

QSize CaratteriForm1::Misura(int /*sinistra*/) const
{
    return {Pixel(6000), Pixel(4500)};
}

bool CaratteriForm1::eventFilter(QObject *oggetto, QEvent *evento)
{
    const auto indice = [oggetto] { return static_cast<Cella *>(oggetto)->indice; };
    switch (evento->type()) {
    case QEvent::MouseButtonPress:
        if (static_cast<QMouseEvent *>(evento)->button() != Qt::LeftButton)
            return false;
        Seleziona(indice());
        return true;
    case QEvent::MouseButtonDblClick:
        m_scelta = indice();
        Scarica();
        return true;
    case QEvent::KeyPress:
        return Tasto(static_cast<QKeyEvent *>(evento)->key(), indice());
    default:
        return FinestraFiglia::eventFilter(oggetto, evento);
    }
}

bool CaratteriForm1::Tasto(int tasto, qint16 k)
{
    const int primaDellaRiga = k - (k - 1) % Colonne;
    int nuova = k;
    switch (tasto) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_scelta = k;
        Scarica();
        return true;
    case Qt::Key_Space:
        break;
    case Qt::Key_Left:
        nuova = k - 1;
        break;
    case Qt::Key_Right:
        nuova = k + 1;
        break;
    case Qt::Key_Up:
        nuova = k - Colonne;
        break;
    case Qt::Key_Down:
        nuova = k + Colonne;
        break;
    case Qt::Key_Home:
        nuova = primaDellaRiga;
        break;
    case Qt::Key_End:
        nuova = std::min<int>(primaDellaRiga + Colonne - 1, NumCelle);
        break;
    case Qt::Key_PageUp:
        nuova = std::max(k - CellePerPagina, 1);
        break;
    case Qt::Key_PageDown:
        nuova = std::min<int>(k + CellePerPagina, NumCelle);
        break;
    default:
        return false;
    }
    if (nuova >= 1 && nuova <= NumCelle)
        Seleziona(static_cast<qint16>(nuova));
    return true;
}

void CaratteriForm1::Seleziona(qint16 k)
{
    Label1(m_scelta)->Scegli(false);
    m_scelta = k;
    Cella *cella = Label1(k);
    cella->Scegli(true);
    cella->raise();
    Fermata(cella);
    SSTab1->setCurrentIndex((k - 1) / CellePerPagina);
    cella->setFocus();
}

void CaratteriForm1::Fermata(Cella *cella)
{
    Cella *&fermata = m_fermate[static_cast<std::size_t>((cella->indice - 1) / CellePerPagina)];
    if (fermata)
        fermata->setFocusPolicy(Qt::ClickFocus);
    fermata = cella;
    cella->setFocusPolicy(Qt::StrongFocus);
}

void CaratteriForm1::QueryUnload()
{
    emit carattereScelto(Carattere(m_scelta));
}
