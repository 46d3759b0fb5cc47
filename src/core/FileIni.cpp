// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileIni.h"

#include "core/ErroreRuntime.h"
#include "core/FileInPosto.h"
#include "core/Testo8Bit.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
TastoRapido LeggiTasto(const QString &linea)
{
    const QStringList numeri = linea.split(u'@');
    TastoRapido tasto{};
    if (numeri.size() != static_cast<qsizetype>(tasto.size()))
        throw ErroreRuntime(13);
    std::transform(numeri.cbegin(), numeri.cend(), tasto.begin(), [](const QString &numero) {
        bool valido = false;
        const qint16 valore = numero.trimmed().toShort(&valido);
        if (!valido)
            throw ErroreRuntime(13);
        return valore;
    });
    return tasto;
}

void LeggiSezioni(const QStringList &linee, ImpostazioniDizionario &impostazioni)
{
    enum class Sezione { Nessuna, Lingue, Fonts, Tasti };
    const std::array lingue = {&impostazioni.lingua1, &impostazioni.lingua2};
    const std::array fonts = {&impostazioni.FontLingua1, &impostazioni.FontLingua2, &impostazioni.FontCommento1,
                              &impostazioni.FontCommento2};
    Sezione sezione = Sezione::Nessuna;
    std::size_t numero = 0;
    for (const QString &linea : linee) {
        const Sezione prima = sezione;
        if (linea == u"[Lingue]")
            sezione = Sezione::Lingue;
        else if (linea == u"[Fonts]")
            sezione = Sezione::Fonts;
        else if (linea == u"[Tasti]")
            sezione = Sezione::Tasti;
        else if (sezione == Sezione::Tasti && linea.contains(u'['))
            sezione = Sezione::Nessuna;
        else if (sezione == Sezione::Lingue && numero < lingue.size())
            *lingue[numero++] = linea;
        else if (sezione == Sezione::Fonts && numero < fonts.size())
            *fonts[numero++] = linea;
        else if (sezione == Sezione::Tasti) {
            if (impostazioni.NumTastiRapidi >= MassimoTastiRapidi)
                throw ErroreRuntime(9);
            impostazioni.TastiRapidi[static_cast<std::size_t>(impostazioni.NumTastiRapidi)] = LeggiTasto(linea);
            ++impostazioni.NumTastiRapidi;
        }
        if (sezione != prima)
            numero = 0;
    }
}

// The platform's keyed look-up: the first section and the first key of the names, without regard to case, blanks
// around trimmed, one pair of quotes around the value taken off.
QString Valore(const QStringList &linee, const QString &sezione, const QString &chiave, const QString &mancante)
{
    bool dentro = false;
    for (const QString &grezza : linee) {
        const QString linea = grezza.trimmed();
        if (linea.startsWith(u'[')) {
            if (dentro)
                break;
            const qsizetype chiusa = linea.indexOf(u']');
            dentro = chiusa > 0 && linea.sliced(1, chiusa - 1).trimmed().compare(sezione, Qt::CaseInsensitive) == 0;
            continue;
        }
        const qsizetype uguale = linea.indexOf(u'=');
        if (!dentro || uguale < 0 || linea.first(uguale).trimmed().compare(chiave, Qt::CaseInsensitive) != 0)
            continue;
        QString valore = linea.sliced(uguale + 1).trimmed();
        const bool traApici =
            valore.size() > 1 && (valore.front() == u'"' || valore.front() == u'\'') && valore.front() == valore.back();
        return traApici ? valore.sliced(1, valore.size() - 2) : valore;
    }
    return mancante;
}

// The integer that a value begins with, 0 without one.
qint32 Intero(const QString &valore)
{
    const bool conSegno = valore.startsWith(u'-') || valore.startsWith(u'+');
    const auto cifre =
        std::find_if(valore.cbegin() + (conSegno ? 1 : 0), valore.cend(), [](QChar c) { return c < u'0' || c > u'9'; });
    const double numero = valore.first(cifre - valore.cbegin()).toDouble();
    return static_cast<qint32>(
        std::clamp<double>(numero, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()));
}
} // namespace

ImpostazioniDizionario LeggiIni(const QByteArray &byte)
{
    const QStringList linee = Testo8Bit::Linee(Testo8Bit::Leggi(byte));
    ImpostazioniDizionario impostazioni;
    LeggiSezioni(linee, impostazioni);
    const qint32 percentuale = Intero(Valore(linee, u"Errori"_s, u"Percentuale"_s, u"30"_s));
    impostazioni.PercentualeErrori = static_cast<float>(percentuale / 100.0);
    impostazioni.Beep = Intero(Valore(linee, u"Beep"_s, u"Attivato"_s, u"1"_s));
    const QString tastiera = Valore(linee, u"Tastiera"_s, u"Tastiera"_s, u"0410"_s).left(4).trimmed();
    // Its value is that of the hexadecimal digits: "0C0A" is a layout, "0000" is none.
    impostazioni.Tastiera = tastiera.toUInt(nullptr, 16) > 0 ? tastiera : QString();
    return impostazioni;
}

ImpostazioniDizionario LeggiFileIni(const QString &percorso)
{
    return LeggiIni(LeggiTutto(percorso));
}

QByteArray ScriviIni(const ImpostazioniDizionario &impostazioni)
{
    QStringList linee = {u"[Lingue]"_s,
                         impostazioni.lingua1,
                         impostazioni.lingua2,
                         u"[Fonts]"_s,
                         impostazioni.FontLingua1,
                         impostazioni.FontLingua2,
                         impostazioni.FontCommento1,
                         impostazioni.FontCommento2,
                         u"[Tasti]"_s};
    for (qint16 i = 0; i < impostazioni.NumTastiRapidi; ++i) {
        const TastoRapido &tasto = impostazioni.TastiRapidi[static_cast<std::size_t>(i)];
        if (tasto != TastoRapido{})
            linee += u"%1@%2@%3@%4"_s.arg(tasto[0]).arg(tasto[1]).arg(tasto[2]).arg(tasto[3]);
    }
    const double percentuale = std::nearbyint(static_cast<double>(impostazioni.PercentualeErrori) * 100);
    linee += {u"[Errori]"_s,   u"Percentuale="_s + QString::number(percentuale, 'f', 0),
              u"[Beep]"_s,     u"Attivato="_s + QString::number(impostazioni.Beep),
              u"[Tastiera]"_s, u"Tastiera="_s + (impostazioni.Tastiera.isEmpty() ? u"0000"_s : impostazioni.Tastiera)};
    return Testo8Bit::Scrivi(Testo8Bit::Unisci(linee));
}
