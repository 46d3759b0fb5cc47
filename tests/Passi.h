// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRandomGenerator>

#include <array>
#include <utility>

/// The commands of a random session, each with its share of a hundred steps.
template <typename Chi, std::size_t N>
using Passi = std::array<std::pair<int, void (Chi::*)()>, N>;

/// Does one of them.
template <typename Chi, std::size_t N>
void UnPasso(Chi &chi, QRandomGenerator &caso, const Passi<Chi, N> &comandi)
{
    int scelta = caso.bounded(100);
    for (const auto &[peso, comando] : comandi) {
        scelta -= peso;
        if (scelta < 0)
            return (chi.*comando)();
    }
}
