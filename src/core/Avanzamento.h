// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <functional>

/// Told how much of how much of a long command is done; false stops it after the current line.
using Avanzamento = std::function<bool(qint64 fatto, qint64 totale)>;
