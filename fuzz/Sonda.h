// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdio>
#include <cstdlib>

/// What the fuzz targets share: rules whose breach ends the program, which keeps the input, and the memory in use.
namespace Sonda
{
inline void Esigi(bool tiene, const char *regola)
{
    if (tiene)
        return;
    static_cast<void>(std::fprintf(stderr, "Broken rule: %s\n", regola));
    std::abort();
}

/// The most memory in use at once since it was made, in bytes.
class Memoria
{
public:
    Memoria();
    [[nodiscard]] qint64 Massima() const;

    /// A reader uses at most 20 times its input, beside what it needs for any input at all and what it keeps: `pezzi`
    /// rows or lines that cost `ciascuno` however short they are.
    void EsigiLimite(qint64 letti, qint64 fissa, qint64 pezzi, qint64 ciascuno) const;

private:
    qint64 m_prima;
};

} // namespace Sonda
