// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Avvio.h"
#include "app/Finestre.h"
#include "app/MDIForm1.h"
#include "app/Protezione.h"
#include "app/Tastiera.h"
#include "core/Percorsi.h"
#include "core/RigaDiComando.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::string_view Aiuto = "Uso: varbel [dizionario.dic]\n"
                                   "\n"
                                   "Crea, modifica e stampa dizionari bilingui e fa esercitare sulle loro voci.\n"
                                   "\n"
                                   "  --help     mostra questo aiuto\n"
                                   "  --version  mostra la versione\n";

// The toolkit aborts when it can open no display: a message and an orderly end instead.
void FineSenzaSchermo(QtMsgType tipo, const QMessageLogContext & /*contesto*/, const QString &messaggio)
{
    if (tipo != QtFatalMsg)
        return;
    static_cast<void>(std::fprintf(stderr, "Varbel: impossibile aprire lo schermo.\n%s\n", qPrintable(messaggio)));
    std::_Exit(1);
}
} // namespace

int main(int argc, char *argv[])
{
    if (argc == 2) {
        const std::string_view argomento = argv[1];
        if (argomento == "--version")
            return std::puts("Varbel " VARBEL_VERSION) < 0 ? 1 : 0;
        if (argomento == "--help")
            return std::fwrite(Aiuto.data(), 1, Aiuto.size(), stdout) == Aiuto.size() ? 0 : 1;
    }

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    // Where both can be had, the X server is the one whose keyboard layouts can be switched.
    if (!qEnvironmentVariableIsEmpty("DISPLAY") && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
#endif
    const QtMessageHandler prima = qInstallMessageHandler(FineSenzaSchermo);
    const QApplication programma(argc, argv);
    qInstallMessageHandler(prima);
    PreparaProgramma();

    // Found at the first switch; the user's own keyboard is back when it is deleted.
    std::unique_ptr<Tastiera> tastiera;
    Module1::LoadKeyboardLayoutA() = [&tastiera](const QString &nome) {
        if (!tastiera)
            tastiera = std::make_unique<Tastiera>(CreaMezzoTastiera());
        return tastiera->Attiva(nome);
    };

    std::unique_ptr<MDIForm1> finestra;
    Protetto(nullptr, [&] {
        finestra = Main(RigaDiComando(QApplication::arguments()),
                        CartellaProgramma(QApplication::applicationDirPath(),
                                          QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)),
                        QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + u"/finestra.ini"_s);
    });
    return finestra && !ProgrammaTerminato() ? QApplication::exec() : 1;
}
