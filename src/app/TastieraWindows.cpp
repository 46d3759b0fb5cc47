// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TastieraWindows.h"

#include <windows.h>

#include <cstdlib>

namespace
{
HKL Utente = nullptr;
} // namespace

bool CaricaTastieraWindows(const char *nome)
{
    const HKL prima = GetKeyboardLayout(0);
    const HKL caricata = LoadKeyboardLayoutA(nome, KLF_ACTIVATE);
    if (caricata == nullptr)
        return false;
    // A language that is not installed gives the default layout, of another language.
    const unsigned long chiesta = std::strtoul(nome, nullptr, 16);
    if (LOWORD(caricata) != LOWORD(chiesta)) {
        ActivateKeyboardLayout(prima, 0);
        return false;
    }
    if (Utente == nullptr)
        Utente = prima;
    return true;
}

void RestituisciTastieraWindows()
{
    if (Utente == nullptr)
        return;
    ActivateKeyboardLayout(Utente, 0);
    Utente = nullptr;
}
