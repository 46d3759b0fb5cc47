// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Numeri.h"

#include "core/ErroreRuntime.h"

#include <cmath>

std::optional<double> LeggiNumero(const QString &testo)
{
    bool valido = false;
    const double numero = testo.trimmed().replace(u',', u'.').toDouble(&valido);
    // "inf" and "nan" are words here.
    return valido && std::isfinite(numero) ? std::optional(numero) : std::nullopt;
}

qint32 LeggiIntero(const QString &testo, qint32 minimo, qint32 massimo)
{
    const std::optional<double> numero = LeggiNumero(testo);
    if (!numero)
        throw ErroreRuntime(13);
    const double intero = std::nearbyint(*numero);
    if (intero < minimo || intero > massimo)
        throw ErroreRuntime(6);
    return static_cast<qint32>(intero);
}

QString TestoNumero(double numero, int cifre)
{
    return QString::number(numero, 'g', cifre).replace(u'.', u',');
}
