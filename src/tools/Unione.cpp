// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Unione.h"

#include "core/ErroreRuntime.h"
#include "core/FileDizionario.h"
#include "core/FileInPosto.h"
#include "core/Module1.h"

#include <QFile>

#include <algorithm>

namespace
{
void Accoda(const QString &linea)
{
    Module1::Stato &s = Module1::stato();
    if (s.LenDizionario1 >= Capacita(s.Dizionario1))
        Allarga(s.Dizionario1);
    RigaDi(s.Dizionario1, s.LenDizionario1 + 1) = RigaDaLinea(linea);
    ++s.LenDizionario1;
    // The lists, refilled after each entry, want a row beyond the last one.
    if (s.LenDizionario1 == Capacita(s.Dizionario1))
        Allarga(s.Dizionario1);
}
} // namespace

qint32 UnisciDizionario(const QString &percorso, const Avanzamento &avanti)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        ErroreApertura(percorso, file.errorString());
    Module1::Stato &s = Module1::stato();
    const qint32 prima = s.LenDizionario1;
    LettoreDizionario lettore(file);
    const qint64 totale = file.size();
    const qint32 capacita = Capacita(s.Dizionario1);
    ContaVuote vuote;
    try {
        for (QString linea; LeggiLinea(lettore, linea);) {
            vuote.Conta(linea, s.LenDizionario1 - prima);
            Accoda(QStringView(linea).toString());
            if (!avanti(file.pos(), totale))
                break;
        }
    } catch (...) {
        const auto righe = s.Dizionario1.righe.begin();
        std::fill(righe + prima + 1, righe + s.LenDizionario1 + 1, RigaTabella());
        s.LenDizionario1 = prima;
        Ridimensiona(s.Dizionario1, capacita);
        throw;
    }
    return s.LenDizionario1 - prima;
}
