// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The program that guasti.cpp is preloaded into: opens a dictionary, adds to it and then does what its first argument
// says, in the folder of the second. Its exit code is 0 when all went well, 3 when an error was told.
#include "core/Documento.h"
#include "core/Module1.h"
#include "core/Percorsi.h"
#include "edit/Voci.h"
#include "tools/Composizione.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>

using namespace Qt::StringLiterals;
using Module1::stato;

extern "C" {
[[gnu::weak]] void guasti_inizio();
[[gnu::weak]] int guasti_fine();
}

int main(int argc, char *argv[])
{
    const QCoreApplication programma(argc, argv);
    const QString che = QString::fromLocal8Bit(argv[1]);
    QDir::setCurrent(QString::fromLocal8Bit(argv[2]));
    Module1::Stato &s = stato();
    s.PercorsoDizionario = QDir::current().filePath(u"a.dic"_s);
    s.PercorsoIni = PercorsoIniLetto(s.PercorsoDizionario);
    s.impostazioni = LeggiFileIni(s.PercorsoIni);
    Documento::Occupa();
    Documento::Carica();
    AggiungiVoce({u"nuova"_s, u"new"_s, u"@nuova@new@"_s});
    Documento::AggiornaCopia();
    if (che.startsWith(u"componi"_s)) {
        Composizione::Leggi(QDir::current().filePath(u"b.dic"_s));
        Composizione::CopiaTutto1in2();
        Composizione::AggiornaCopia();
    }
    int esito = 0;
    guasti_inizio();
    try {
        if (che == u"modifica"_s) {
            AggiungiVoce({u"altra"_s, u"other"_s, u"@altra@other@"_s});
            Documento::AggiornaCopia();
        } else if (che.startsWith(u"componi"_s)) {
            Composizione::Scrivi();
        } else if (che == u"apri"_s) {
            // The next start of the same program.
            Documento::Occupa();
        } else {
            Documento::Salva();
        }
        if (che == u"chiudi"_s)
            Documento::Chiudi(QDir::current().filePath(u"varbel.ini"_s), u"/casa"_s,
                              [&esito](const ErroreRuntime &) { esito = 3; });
    } catch (const ErroreRuntime &) {
        esito = 3;
    }
    // The user lets go what could not be saved.
    if (esito == 3 && che.endsWith(u"poi No"_s)) {
        Composizione::Libera();
        Documento::Rinuncia();
    }
    std::printf("%d\n", guasti_fine());
    static_cast<void>(std::fflush(stdout));
    // As a power cut would end it: what an orderly end puts right counts for nothing.
    _exit(esito);
}
