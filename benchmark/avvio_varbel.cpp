// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The real start, option handling aside.
#include "FineAllaVista.h"
#include "app/Avvio.h"
#include "app/MDIForm1.h"

int main(int argc, char *argv[])
{
    const QApplication programma(argc, argv);
    PreparaProgramma();
    const std::unique_ptr<MDIForm1> finestra = Main(QString(), QApplication::applicationDirPath());
    const FineAllaVista fine(finestra.get());
    return QApplication::exec();
}
