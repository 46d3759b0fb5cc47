// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/StampaElenco.h"

#include "app/Attesa.h"
#include "print/SpoolStampante.h"
#include "print/Stampante.h"

#include <QWidget>

using namespace Qt::StringLiterals;

void StampaElenco(Spool &spool, const QStringList &righe)
{
    constexpr int punti = 10;
    spool.ImpostaFont(u"Arial"_s, punti);
    for (const QString &riga : righe) {
        if (spool.CurrentY > 0 && !spool.Entra())
            spool.NuovaPagina();
        // Wider than any sheet.
        constexpr qsizetype massimo = 1000;
        spool.Stampa(riga.left(massimo));
    }
    spool.Fine();
}

void StampaElenco(QWidget *genitore, const QStringList &righe)
{
    ConStampante(genitore, genitore->windowTitle(), [&](SpoolStampante &spool) {
        Attesa attesa(genitore, u"Stampa"_s, Attesa::FinoInFondo);
        spool.avanti = [&attesa](qint64 fatto, qint64 totale) { return attesa.Avanti(fatto, totale); };
        StampaElenco(spool, righe);
    });
}
