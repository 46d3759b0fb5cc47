// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileVarbel.h"

#include "core/ErroreRuntime.h"
#include "core/FileInPosto.h"
#include "core/Numeri.h"
#include "core/Testo8Bit.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>

using namespace Qt::StringLiterals;

ImpostazioniVarbel LeggiVarbel(const QStringList &linee)
{
    ImpostazioniVarbel lette;
    bool inRecenti = false;
    bool inCartella = false;
    bool inFont = false;
    std::size_t k = 0;
    for (const QString &linea : linee) {
        if (inRecenti) {
            lette.recenti[k] = linea;
            ++k;
            inRecenti = k < lette.recenti.size();
        }
        if (inCartella) {
            lette.cartella = linea;
            inCartella = false;
        }
        if (inFont) {
            inFont = false;
            lette.dimensioneFont =
                LeggiIntero(linea, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
        }
        if (linea == u"[Recenti]")
            inRecenti = k < lette.recenti.size();
        else if (linea == u"[Lingue]")
            inRecenti = false;
        else if (linea == u"[Directory]") {
            inRecenti = false;
            inCartella = true;
        } else if (linea == u"[Font]")
            inFont = true;
    }
    return lette;
}

QStringList LeggiLingue(const QStringList &linee)
{
    QStringList lingue;
    bool inLingue = false;
    for (const QString &linea : linee) {
        if (linea == u"[Lingue]")
            inLingue = true;
        else if (inLingue && linea == u"[Font]")
            break;
        else if (inLingue)
            lingue += linea;
    }
    return lingue;
}

void AggiornaRecenti(Recenti &recenti, const QString &percorso)
{
    if (percorso.isEmpty())
        return;
    const auto trovato = std::find(recenti.begin(), recenti.end(), percorso);
    const auto ultimo = trovato == recenti.end() ? recenti.end() - 1 : trovato;
    std::move_backward(recenti.begin(), ultimo, ultimo + 1);
    recenti.front() = percorso;
}

QStringList RiscriviVarbel(const QStringList &linee, const Recenti &recenti, const QString &cartella,
                           qint32 dimensioneFont)
{
    QStringList riscritte;
    bool inRecenti = false;
    bool inCartella = false;
    bool inFont = false;
    bool recentiScritti = false;
    for (const QString &linea : linee) {
        if (inRecenti) {
            if (!recentiScritti)
                std::copy_if(recenti.cbegin(), recenti.cend(), std::back_inserter(riscritte),
                             [](const QString &percorso) { return !percorso.isEmpty(); });
            recentiScritti = true;
        } else if (inCartella) {
            inCartella = false;
            riscritte += cartella;
        } else if (inFont)
            riscritte += QString::number(dimensioneFont);
        else
            riscritte += linea;

        if (linea == u"[Recenti]")
            inRecenti = true;
        else if (linea == u"[Lingue]") {
            inRecenti = false;
            riscritte += linea;
        } else if (linea == u"[Directory]") {
            inRecenti = false;
            inCartella = true;
        } else if (linea == u"[Font]")
            inFont = true;
    }
    return riscritte;
}

QStringList LineeDelFile(const QString &percorso)
{
    return Testo8Bit::Linee(Testo8Bit::Leggi(LeggiTutto(percorso)));
}

void RiscriviFileVarbel(const QString &percorso, const QString &temporaneo, const Recenti &recenti,
                        const QString &cartella, qint32 dimensioneFont)
{
    const QStringList linee = LineeDelFile(percorso);
    const QByteArray dopo =
        Testo8Bit::Scrivi(Testo8Bit::Unisci(RiscriviVarbel(linee, recenti, cartella, dimensioneFont)));
    const auto rinuncia = [&temporaneo](const QString &motivo) {
        QFile::remove(temporaneo);
        throw ErroreRuntime(75, motivo);
    };
    try {
        ScriviInPosto(temporaneo, dopo);
    } catch (const ErroreRuntime &errore) {
        rinuncia(QFileInfo(temporaneo).absoluteFilePath() + u": "_s + errore.testo);
    }
    // The old file gives way in one step: a program that ends here leaves the one or the other.
    std::error_code motivo;
    std::filesystem::rename(QFileInfo(temporaneo).filesystemFilePath(),
                            QFileInfo(SenzaLegami(percorso)).filesystemFilePath(), motivo);
    if (!motivo)
        return;
    // On two volumes.
    try {
        ScriviIntero(percorso, [&dopo](QIODevice &file) { ScriviTutto(file, dopo); });
    } catch (const ErroreRuntime &errore) {
        rinuncia(errore.testo);
    }
    QFile::remove(temporaneo);
}
