// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/StampaDizionario.h"

#include "core/Testo8Bit.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint32 MargineSinistro = 1000;
constexpr qint32 FondoLibero = 2000;
constexpr int PuntiIntestazione = 14;
constexpr int PuntiVoci = 10;

constexpr std::size_t Campi = 4;
using Colonne = std::array<float, Campi>;
using Testi = std::array<QString, Campi>;

Colonne ColonneDellaPagina(qint32 larghezza)
{
    const double w = larghezza;
    const double utile = w - MargineSinistro;
    return {MargineSinistro, static_cast<float>(std::nearbyint(utile / 2) - std::nearbyint(w / 12)),
            static_cast<float>(std::nearbyint(w / 12) + utile / 2), static_cast<float>(utile / 4 * 3)};
}

/// A field as the place of its bytes in the file.
struct Campo {
    qsizetype inizio = 0;
    qsizetype fine = 0;
};

std::array<Campo, Campi> CampiDellaLinea(const QByteArray &byte, qsizetype inizio, qsizetype fine)
{
    const QByteArrayView fino = QByteArrayView(byte).first(fine);
    std::array<Campo, Campi> campi;
    for (std::size_t i = 0; i < Campi; ++i) {
        const qsizetype divisore = i + 1 < Campi ? fino.indexOf('@', inizio) : -1;
        campi[i] = {inizio, divisore < 0 ? fine : divisore};
        if (divisore < 0)
            break;
        inizio = divisore + 1;
    }
    return campi;
}

// Controls, byte-order marks and line separators have no shape.
bool SiDisegna(char16_t c)
{
    return c >= 0x20 && (c < 0x7F || c > 0x9F) && c != 0xFEFF && c != 0x2028 && c != 0x2029;
}

void TestoDelCampo(const QByteArray &byte, bool dueByte, Campo campo, QString &testo)
{
    testo.resize(0);
    const auto aggiungi = [&testo](char16_t c) {
        if (SiDisegna(c))
            testo += QChar(c);
    };
    if (dueByte) {
        for (qsizetype i = campo.inizio + campo.inizio % 2; i + 1 < campo.fine; i += 2)
            aggiungi(qFromLittleEndian<char16_t>(byte.constData() + i));
        return;
    }
    for (qsizetype i = campo.inizio; i < campo.fine; ++i)
        aggiungi(Testo8Bit::Carattere(static_cast<quint8>(byte[i])));
}

void Intestazione(Spool &spool, const Colonne &colonne, const Testi &titoli)
{
    spool.ImpostaFont(u"Arial"_s, PuntiIntestazione);
    const float cima = spool.CurrentY;
    for (std::size_t i = 0; i < Campi; ++i) {
        spool.CurrentX = colonne[i];
        spool.CurrentY = cima;
        spool.Stampa(titoli[i]);
    }
    spool.Stampa(u" ");
}

qsizetype FineLinea(const QByteArray &byte, qsizetype inizio)
{
    const auto fine = std::find_if(byte.cbegin() + inizio, byte.cend(), [](char c) { return c == '\r' || c == '\n'; });
    return fine - byte.cbegin();
}
} // namespace

std::optional<qint32> StampaDizionario(Spool &spool, const QByteArray &byte, const ImpostazioniDizionario &impostazioni,
                                       const Avanzamento &avanti)
{
    const Colonne colonne = ColonneDellaPagina(spool.Larghezza());
    const auto fondo = static_cast<float>(spool.Altezza() - FondoLibero);
    const Testi titoli = {u"COMMENTO 1"_s, impostazioni.lingua1.toUpper(), impostazioni.lingua2.toUpper(),
                          u"COMMENTO 2"_s};
    const Testi font = {impostazioni.FontCommento1, impostazioni.FontLingua1, impostazioni.FontLingua2,
                        impostazioni.FontCommento2};
    const bool dueByte = byte.contains('\0');
    qint32 pagine = 1;
    Intestazione(spool, colonne, titoli);
    QString testo;
    for (qsizetype inizio = 0; inizio < byte.size();) {
        const qsizetype fine = FineLinea(byte, inizio);
        const auto campi = CampiDellaLinea(byte, inizio, fine);
        const float cima = spool.CurrentY;
        for (std::size_t i = 0; i < Campi; ++i) {
            TestoDelCampo(byte, dueByte, campi[i], testo);
            spool.CurrentX = colonne[i];
            spool.CurrentY = cima;
            spool.ImpostaFont(font[i], PuntiVoci);
            spool.Stampa(testo);
        }
        inizio = fine + (QByteArrayView(byte).sliced(fine).startsWith("\r\n") ? 2 : 1);
        // Margins wider than any printer's own could leave less room than the rule does.
        if (fondo > cima && spool.Entra())
            continue;
        ++pagine;
        spool.NuovaPagina();
        Intestazione(spool, colonne, titoli);
        if (!avanti(inizio, byte.size()))
            return std::nullopt;
    }
    return pagine;
}
