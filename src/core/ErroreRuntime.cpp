// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ErroreRuntime.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace
{
QString TestoDelNumero(int numero)
{
    switch (numero) {
    case 5:
        return u"Chiamata di routine o argomento non valido"_s;
    case 6:
        return u"Overflow"_s;
    case 9:
        return u"Indice non compreso nell'intervallo"_s;
    case 13:
        return u"Tipo non corrispondente"_s;
    case 53:
        return u"Impossibile trovare il file"_s;
    case 57:
        return u"Errore di I/O della periferica"_s;
    case 61:
        return u"Disco pieno"_s;
    case 70:
        return u"Autorizzazione negata"_s;
    case 75:
        return u"Errore di accesso al percorso o al file"_s;
    default:
        return u"Errore definito dall'applicazione"_s;
    }
}
} // namespace

ErroreRuntime::ErroreRuntime(int numeroErrore, bool finisce)
    : ErroreRuntime(numeroErrore, TestoDelNumero(numeroErrore), finisce)
{
}

ErroreRuntime::ErroreRuntime(int numeroErrore, QString testoErrore, bool finisce)
    : numero(numeroErrore), testo(std::move(testoErrore)), termina(finisce)
{
}
