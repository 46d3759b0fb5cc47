// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/ComandoStampa.h"

#include "app/Attesa.h"
#include "app/Protezione.h"
#include "core/FileInPosto.h"
#include "core/Module1.h"
#include "print/StampaDizionario.h"
#include "print/Stampante.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
std::optional<qint32> Componi(QWidget *genitore, Spool &spool)
{
    const Module1::Stato &s = Module1::stato();
    Attesa attesa(genitore, u"Stampa"_s);
    return StampaDizionario(spool, LeggiTutto(s.PercorsoDizionario), s.impostazioni,
                            [&attesa](qint64 fatto, qint64 totale) { return attesa.Avanti(fatto, totale); });
}

void Spedisci(QWidget *genitore, SpoolStampante &spool)
{
    Attesa attesa(genitore, u"Stampa"_s, Attesa::FinoInFondo);
    spool.avanti = [&attesa](qint64 fatto, qint64 totale) { return attesa.Avanti(fatto, totale); };
    spool.Fine();
}
} // namespace

void StampaDizionarioAperto(QWidget *genitore)
{
    const QString titolo = QFileInfo(Module1::stato().PercorsoDizionario).completeBaseName();
    ConStampante(genitore, titolo, [genitore](SpoolStampante &spool) {
        const std::optional<qint32> pagine = Componi(genitore, spool);
        if (!pagine)
            return;
        const auto risposta =
            Messaggio(genitore, QMessageBox::NoIcon, u"Attenzione!"_s,
                      u"La stampa utilizzerà %1 pagine di carta. Procedo con la stampa?"_s.arg(*pagine),
                      QMessageBox::Yes | QMessageBox::No);
        if (risposta == QMessageBox::Yes)
            Spedisci(genitore, spool);
        else
            spool.Scarta();
    });
}
