// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Errori.h"
#include "Sonda.h"
#include "core/RigaDiComando.h"

using namespace Qt::StringLiterals;
using namespace Sonda;

namespace
{
constexpr qint64 Fissa = 0x4000;

void EsigiLetta(const QString &comando)
{
    std::optional<QString> nominato;
    const Memoria memoria;
    const std::optional<ErroreRuntime> errore = ErroreDi([&] { nominato = DizionarioNominato(comando); });
    memoria.EsigiLimite(comando.size() * 2, Fissa, 0, 0);
    if (comando.isEmpty() || !comando.contains(u'"')) {
        Esigi(!nominato && errore.has_value() != comando.isEmpty(), "only a line in quotes names a file");
        Esigi(!errore || (errore->numero == 9 && errore->termina), "the refusal is the one foreseen");
        return;
    }
    Esigi(nominato && !nominato->contains(u'"'), "a name holds no quote");
    const QString inizio = comando.first(comando.indexOf(u'"') + 1) + *nominato;
    Esigi(comando == inizio || comando.startsWith(inizio + u'"'), "the name is what the first quotes hold");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const char *dati, std::size_t quanti)
{
    const QString testo = QString::fromUtf8(dati, static_cast<qsizetype>(quanti));
    EsigiLetta(testo);
    // The same as the arguments of a shell.
    const QStringList argomenti = QStringList(u"varbel"_s) + testo.split(u'\0');
    const QString comando = RigaDiComando(argomenti);
    EsigiLetta(comando);
    if (!argomenti[1].contains(u'"'))
        Esigi(DizionarioNominato(comando) == argomenti[1], "an argument is a path as it stands");
    return 0;
}
