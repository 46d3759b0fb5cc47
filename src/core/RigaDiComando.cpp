// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/RigaDiComando.h"

#include "core/ErroreRuntime.h"

#ifdef Q_OS_WIN
#include <windows.h>

QString RigaDiComando(const QStringList & /*argomenti*/)
{
    // The system's own line; the program's path ends at a blank outside quotes.
    QStringView riga = QStringView(GetCommandLineW());
    bool traVirgolette = false;
    qsizetype i = 0;
    for (; i < riga.size() && (traVirgolette || (riga[i] != u' ' && riga[i] != u'\t')); ++i)
        traVirgolette = (riga[i] == u'"') != traVirgolette;
    return riga.sliced(i).trimmed().toString();
}
#else
QString RigaDiComando(const QStringList &argomenti)
{
    QStringList parti;
    for (const QString &argomento : argomenti.sliced(qMin<qsizetype>(1, argomenti.size())))
        parti += argomento.contains(u'"') ? argomento : u'"' + argomento + u'"';
    return parti.join(u' ');
}
#endif

std::optional<QString> DizionarioNominato(const QString &rigaDiComando)
{
    if (rigaDiComando.isEmpty())
        return std::nullopt;
    const qsizetype prime = rigaDiComando.indexOf(u'"');
    if (prime < 0)
        throw ErroreRuntime(9, true);
    const qsizetype seconde = rigaDiComando.indexOf(u'"', prime + 1);
    return rigaDiComando.mid(prime + 1, seconde < 0 ? -1 : seconde - prime - 1);
}
