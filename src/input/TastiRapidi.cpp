// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/TastiRapidi.h"

#include "core/Module1.h"
#include "core/Testo8Bit.h"

#include <algorithm>
#include <span>

namespace
{
// The rows that take part in matching, one past the last in use among them.
std::span<const TastoRapido> Righe()
{
    const ImpostazioniDizionario &impostazioni = Module1::stato().impostazioni;
    const auto quante = std::min(static_cast<std::size_t>(std::max<qint16>(impostazioni.NumTastiRapidi, 0)) + 1,
                                 impostazioni.TastiRapidi.size());
    return std::span(impostazioni.TastiRapidi).first(quante);
}

bool Corrisponde(const TastoRapido &riga, qint16 codice, bool shift, bool ctrl)
{
    return riga[1] == codice && riga[2] == (shift ? 1 : 0) && riga[3] == (ctrl ? 1 : 0);
}
} // namespace

namespace TastiRapidi
{
bool Inserisci(QString &testo, qsizetype &punto, qint16 codice, quint8 maschera, bool &ctrlNotato)
{
    const bool conAlt = (maschera & MascheraAlt) != 0;
    const bool shift = !conAlt && (maschera & MascheraShift) != 0;
    ctrlNotato = !conAlt && (maschera & MascheraCtrl) != 0;
    if (conAlt)
        return false;
    const qsizetype p = std::clamp<qsizetype>(punto, 0, testo.size());
    bool trovato = false;
    for (const TastoRapido &riga : Righe()) {
        if (!Corrisponde(riga, codice, shift, ctrlNotato) || riga[0] < 1 || riga[0] > 255)
            continue;
        const QChar carattere(Testo8Bit::Carattere(static_cast<quint8>(riga[0])));
        // Shift alone has typed a character of its own already.
        const qsizetype prima = shift && !ctrlNotato ? std::max<qsizetype>(p - 1, 0) : p;
        testo = testo.first(prima) + carattere + testo.sliced(p);
        punto = p + 1;
        trovato = true;
    }
    return trovato;
}

bool Presente(qint16 codice, bool shift, bool ctrl)
{
    const auto righe = Righe();
    return std::any_of(righe.begin(), righe.end(),
                       [&](const TastoRapido &riga) { return Corrisponde(riga, codice, shift, ctrl); });
}

bool Definito(qint16 codice, bool shift, bool ctrl)
{
    const auto righe = Righe();
    return std::any_of(righe.begin(), righe.end(), [&](const TastoRapido &riga) {
        return Corrisponde(riga, codice, shift, ctrl) && riga[0] >= 1 && riga[0] <= 255;
    });
}
} // namespace TastiRapidi
