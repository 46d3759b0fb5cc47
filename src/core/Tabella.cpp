// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Tabella.h"

#include "core/ErroreRuntime.h"
#include "core/Riga.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
bool Buco(const RigaTabella &r)
{
    return r[2].isEmpty();
}
} // namespace

void Ridimensiona(Tabella &tabella, qint32 capacita)
{
    if (capacita < 0)
        throw ErroreRuntime(6);
    tabella.righe.resize(static_cast<std::size_t>(capacita) + 1);
}

RigaTabella &RigaDi(Tabella &tabella, qint32 r)
{
    if (r < 0 || r > Capacita(tabella))
        throw ErroreRuntime(9);
    return tabella.righe[static_cast<std::size_t>(r)];
}

const RigaTabella &RigaDi(const Tabella &tabella, qint32 r)
{
    if (r < 0 || r > Capacita(tabella))
        throw ErroreRuntime(9);
    return tabella.righe[static_cast<std::size_t>(r)];
}

RigaTabella RigaDaLinea(const QString &linea)
{
    const CampiRiga campi = CampiDellaRiga(linea);
    return {campi.lingua1.toString(), campi.lingua2.toString(), linea};
}

qint32 CapacitaCresciuta(qint32 capacita)
{
    const double nuova = std::nearbyint(capacita * 1.5);
    if (nuova > std::numeric_limits<qint32>::max())
        throw ErroreRuntime(6);
    return static_cast<qint32>(nuova);
}

void Allarga(Tabella &tabella)
{
    Ridimensiona(tabella, CapacitaCresciuta(Capacita(tabella)));
}

void RiempiBuco(Tabella &tabella, qint32 r, qint32 &n)
{
    if (r < 0 || n >= Capacita(tabella))
        throw ErroreRuntime(9);
    const auto inizio = tabella.righe.begin();
    if (r <= n)
        std::rotate(inizio + r, inizio + r + 1, inizio + n + 2);
    RigaDi(tabella, std::max(r, n + 1)) = {};
    --n;
}

qint32 ChiudiBuchi(Tabella &tabella, qint32 n)
{
    if (n < 0)
        return n;
    if (n > Capacita(tabella))
        throw ErroreRuntime(9);
    if (n == Capacita(tabella))
        Ridimensiona(tabella, std::max(CapacitaCresciuta(n), n + 1));
    const auto inizio = tabella.righe.begin();
    const auto oltre = inizio + n + 1;
    const auto fine = std::remove_if(inizio, oltre, Buco);
    if (fine == oltre)
        return n;
    // Every closing also moves the row beyond the last one up by one.
    *fine = std::move(*oltre);
    std::fill(fine + 1, oltre + 1, RigaTabella());
    return static_cast<qint32>(fine - inizio) - 1;
}

qint32 ContaVoci(const Tabella &tabella, qint32 n)
{
    const auto inizio = tabella.righe.begin();
    const auto fine = inizio + std::clamp(n + 1, 0, Capacita(tabella) + 1);
    return static_cast<qint32>(std::count_if(inizio, fine, [](const RigaTabella &riga) { return !riga[2].isEmpty(); }));
}

void Svuota(Tabella &tabella, qint32 n)
{
    std::fill_n(tabella.righe.begin(), std::clamp(n + 1, 0, Capacita(tabella) + 1), RigaTabella());
}
