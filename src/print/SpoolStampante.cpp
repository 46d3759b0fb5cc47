// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/SpoolStampante.h"

#include "core/ErroreRuntime.h"

#include <QFile>
#include <QFontMetricsF>
#include <QLibrary>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int TwipPerPollice = 1440;
// More than any sheet shows of one text.
constexpr qsizetype MassimoTesto = 4000;

// The end of the file is what a full disk does not take; the toolkit does not tell.
bool FileIntero(const QString &percorso)
{
    constexpr qint64 coda = 64;
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - coda)) &&
           file.readAll().contains("%%EOF");
}

// What the print server answered to the job, which the toolkit does not tell either.
bool LavoroAccettato()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    constexpr int primoErrore = 0x400;
    if (const auto ultimoErrore = reinterpret_cast<int (*)()>(QLibrary::resolve(u"cups"_s, 2, "cupsLastError"))) {
        const int risposta = ultimoErrore();
        return risposta >= 0 && risposta < primoErrore;
    }
#endif
    return true;
}

bool Arrivato(const QPrinter &stampante)
{
    if (stampante.printerState() == QPrinter::Error || stampante.printerState() == QPrinter::Aborted)
        return false;
    if (stampante.outputFormat() == QPrinter::PdfFormat)
        return FileIntero(stampante.outputFileName());
    return !stampante.outputFileName().isEmpty() || LavoroAccettato();
}
} // namespace

SpoolStampante::SpoolStampante(QPrinter &stampante)
    : m_stampante(stampante), m_altezzaUtile(InTwip(stampante.pageRect(QPrinter::DevicePixel).height()))
{
}

float SpoolStampante::InTwip(double punti) const
{
    return static_cast<float>(punti * TwipPerPollice / m_stampante.resolution());
}

qint32 SpoolStampante::Larghezza() const
{
    return m_stampante.pageLayout().fullRectPixels(TwipPerPollice).width();
}

qint32 SpoolStampante::Altezza() const
{
    return m_stampante.pageLayout().fullRectPixels(TwipPerPollice).height();
}

void SpoolStampante::ImpostaFont(const QString &nome, int punti)
{
    const auto uguale = [&](const FontMisurato &misurato) { return misurato.punti == punti && misurato.nome == nome; };
    const auto trovato = std::find_if(m_font.cbegin(), m_font.cend(), uguale);
    m_fontCorrente = static_cast<std::size_t>(trovato - m_font.cbegin());
    if (trovato != m_font.cend())
        return;
    const QFont font(nome, punti);
    const QFontMetricsF metrica(font, &m_stampante);
    m_font.push_back({nome, punti, font, InTwip(metrica.lineSpacing()), InTwip(metrica.ascent())});
}

void SpoolStampante::Stampa(QStringView testo)
{
    QStringView visibile = testo.first(std::min(testo.size(), MassimoTesto));
    if (visibile.size() < testo.size() && visibile.back().isHighSurrogate())
        visibile.chop(1);
    if (!visibile.isEmpty()) {
        Pagina &pagina = m_pagine.back();
        pagina.testo += visibile;
        pagina.pezzi.push_back(
            {CurrentX, CurrentY, static_cast<quint32>(m_fontCorrente), static_cast<qint32>(visibile.size())});
    }
    CurrentX = 0;
    CurrentY += m_font[m_fontCorrente].altezza;
}

bool SpoolStampante::Entra() const
{
    return CurrentY + m_font[m_fontCorrente].altezza <= m_altezzaUtile;
}

void SpoolStampante::NuovaPagina()
{
    m_pagine.back().testo.squeeze();
    m_pagine.back().pezzi.shrink_to_fit();
    m_pagine.emplace_back();
    CurrentX = 0;
    CurrentY = 0;
}

void SpoolStampante::Disegna(QPainter &pittore, const Pagina &pagina) const
{
    const double scala = static_cast<double>(m_stampante.resolution()) / TwipPerPollice;
    qsizetype inizio = 0;
    std::size_t prima = m_font.size();
    for (const Pezzo &pezzo : pagina.pezzi) {
        const FontMisurato &misurato = m_font[pezzo.font];
        if (pezzo.font != prima)
            pittore.setFont(misurato.font);
        prima = pezzo.font;
        pittore.drawText(QPointF(pezzo.x, pezzo.y + misurato.ascesa) * scala,
                         QString::fromRawData(pagina.testo.constData() + inizio, pezzo.lunghezza));
        inizio += pezzo.lunghezza;
    }
}

void SpoolStampante::Fine()
{
    const std::vector<Pagina> pagine = std::move(m_pagine);
    Scarta();
    QPainter pittore;
    bool bene = pittore.begin(&m_stampante);
    for (std::size_t i = 0; bene && i < pagine.size(); ++i) {
        bene = i == 0 || m_stampante.newPage();
        if (bene)
            Disegna(pittore, pagine[i]);
        if (avanti)
            avanti(static_cast<qint64>(i), static_cast<qint64>(pagine.size()));
    }
    // Whatever happened, the painter must leave the printer before it goes.
    if (pittore.isActive() && !pittore.end())
        bene = false;
    if (!bene || !Arrivato(m_stampante))
        throw ErroreRuntime(57);
}

void SpoolStampante::Scarta()
{
    m_pagine = std::vector<Pagina>(1);
    CurrentX = 0;
    CurrentY = 0;
}
