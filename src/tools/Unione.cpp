// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Unione.h"

#include "core/ErroreRuntime.h"
#include "core/FileDizionario.h"
#include "core/FileInPosto.h"
#include "core/Module1.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
// A file of NULs is an empty line every two bytes: no dictionary has so many, and no memory holds them.
constexpr qint32 MassimoVuote = 100000;

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
    qint32 vuote = 0;
    try {
        for (QString linea; LeggiLinea(lettore, linea);) {
            vuote += linea.isEmpty() ? 1 : 0;
            if (vuote > MassimoVuote && vuote > (s.LenDizionario1 - prima) / 2)
                throw ErroreRuntime(57, u"Il file non è un dizionario."_s);
            Accoda(QStringView(linea).toString());
            if (!avanti(file.pos(), totale))
                break;
        }
    } catch (...) {
        const auto righe = s.Dizionario1.righe.begin();
        std::fill(righe + prima + 1, righe + s.LenDizionario1 + 1, RigaTabella());
        s.LenDizionario1 = prima;
        throw;
    }
    return s.LenDizionario1 - prima;
}
