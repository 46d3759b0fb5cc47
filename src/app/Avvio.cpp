// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Avvio.h"

#include "app/MDIForm1.h"
#include "app/Protezione.h"
#include "core/Module1.h"
#include "core/Percorsi.h"
#include "core/RigaDiComando.h"
#include "exercise/Esercizio.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

using namespace Qt::StringLiterals;

void PreparaProgramma()
{
    QApplication::setApplicationName(u"varbel"_s);
    QApplication::setApplicationVersion(QStringLiteral(VARBEL_VERSION));
    QApplication::setDesktopFileName(u"varbel"_s);

    auto *traduzione = new QTranslator(qApp);
    if (traduzione->load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(traduzione);
}

std::unique_ptr<MDIForm1> Main(const QString &rigaDiComando, const QString &cartellaProgramma)
{
    Module1::Azzera();
    Esercizio::stato() = {};
    Module1::stato().CartellaProgramma = cartellaProgramma;
    auto finestra = std::make_unique<MDIForm1>();
    const std::optional<QString> percorso = DizionarioNominato(rigaDiComando);
    if (percorso) {
        Module1::stato().PercorsoDizionario = PercorsoAssoluto(*percorso);
        finestra->SimulaApertura();
    }
    if (!ProgrammaTerminato())
        finestra->show();
    if (!percorso)
        QTimer::singleShot(0, finestra.get(), &MDIForm1::OffriCopie);
    return finestra;
}
