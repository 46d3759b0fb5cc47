// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The least that a program with such a window does, to measure the start of the real one against.
#include "FineAllaVista.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QApplication programma(argc, argv);
    QMainWindow finestra;
    finestra.setCentralWidget(new QMdiArea(&finestra));
    finestra.menuBar()->addMenu(u"File"_s)->addAction(u"Esci"_s);
    finestra.addToolBar(u"Barra"_s)->addAction(u"Nuovo"_s);
    finestra.resize(1000, 700);
    const FineAllaVista fine(&finestra);
    finestra.show();
    return QApplication::exec();
}
