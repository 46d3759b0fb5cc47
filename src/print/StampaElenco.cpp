// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/StampaElenco.h"

#include "app/Protezione.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>

using namespace Qt::StringLiterals;

bool StampanteValida(const QPrinter &stampante)
{
    if (stampante.outputFormat() != QPrinter::NativeFormat || !stampante.outputFileName().isEmpty())
        return !stampante.outputFileName().isEmpty();
    // A name that no printer has is taken without a word.
    return !QPrinterInfo::printerInfo(stampante.printerName()).isNull();
}

bool StampaElenco(QPrinter &stampante, const QFont &font, const QStringList &righe)
{
    QPainter pittore;
    if (!pittore.begin(&stampante))
        return false;
    pittore.setFont(font);
    const QFontMetricsF metrica(font, &stampante);
    const double altezza = stampante.pageRect(QPrinter::DevicePixel).height();
    double cima = 0;
    for (const QString &riga : righe) {
        if (cima > 0 && cima + metrica.height() > altezza) {
            if (!stampante.newPage())
                return false;
            cima = 0;
        }
        // Wider than any sheet.
        constexpr qsizetype massimo = 1000;
        pittore.drawText(QPointF(0, cima + metrica.ascent()), riga.left(massimo));
        cima += metrica.lineSpacing();
    }
    return pittore.end() && stampante.printerState() != QPrinter::Error;
}

void StampaElenco(QWidget *genitore, const QStringList &righe)
{
    if (righe.isEmpty())
        return;
    QPrinter stampante;
    QPrintDialog dialogo(&stampante, genitore->window());
    dialogo.exec();
    if (!StampanteValida(stampante) || !StampaElenco(stampante, genitore->font(), righe))
        Messaggio(genitore, QMessageBox::Critical, u"Errore!"_s, u"Errore nella stampa!"_s);
}
