// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/Voci.h"

#include "core/ErroreRuntime.h"
#include "core/Module1.h"
#include "edit/Ordinamento.h"

#include <utility>

void EliminaVoce(qint32 k)
{
    Module1::Stato &s = Module1::stato();
    if (k < 0 || k > s.LenDizionario1 || s.LenDizionario1 > Capacita(s.Dizionario1))
        throw ErroreRuntime(9, true);
    RigaTabella &ultima = RigaDi(s.Dizionario1, s.LenDizionario1);
    RigaDi(s.Dizionario1, k) = std::exchange(ultima, RigaTabella());
    if (k == s.LenDizionario1)
        ultima = {};
    --s.LenDizionario1;
    OrdinaStringhe(s.Dizionario1, s.LenDizionario1);
}

qint32 RaccogliVoci()
{
    Module1::Stato &s = Module1::stato();
    return ChiudiBuchi(s.Dizionario1, s.LenDizionario1);
}
