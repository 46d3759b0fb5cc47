// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Sonda.h"

#include <algorithm>
#include <atomic>

#include <sanitizer/allocator_interface.h>

namespace
{
constexpr qint64 Volte = 20;

// Signed: what was there before the first count is freed too.
std::atomic<qint64> inUso = 0;
std::atomic<qint64> massimo = 0;

void Presa(const volatile void * /*dove*/, std::size_t quanti)
{
    massimo = std::max<qint64>(massimo, inUso += static_cast<qint64>(quanti));
}

void Resa(const volatile void *dove)
{
    // Of the sanitizer's own signature.
    inUso -= static_cast<qint64>(__sanitizer_get_allocated_size(const_cast<const void *>(dove))); // NOLINT
}
} // namespace

namespace Sonda
{
Memoria::Memoria() : m_prima(inUso)
{
    static const int contata = __sanitizer_install_malloc_and_free_hooks(Presa, Resa);
    Esigi(contata > 0, "the memory is counted");
    massimo = m_prima;
}

qint64 Memoria::Massima() const
{
    return massimo - m_prima;
}

void Memoria::EsigiLimite(qint64 letti, qint64 fissa, qint64 pezzi, qint64 ciascuno) const
{
    const qint64 massima = Massima();
    if (massima > Volte * letti + fissa + pezzi * ciascuno) {
        static_cast<void>(std::fprintf(stderr, "%lld bytes for %lld read, %lld kept\n", static_cast<long long>(massima),
                                       static_cast<long long>(letti), static_cast<long long>(pezzi)));
        Esigi(false, "memory in proportion to what is read");
    }
}
} // namespace Sonda
