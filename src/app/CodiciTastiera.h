// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// A keyboard layout as the X keyboard extension names it.
struct Disposizione {
    QString layout;
    QString variante;

    bool operator==(const Disposizione &) const = default;
};

/// The layout of an eight-hexadecimal-digit name ("00000408"), nothing for a language not in the table.
std::optional<Disposizione> DisposizioneDi(const QString &nome);
