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
#include <QSettings>
#include <QTimer>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace
{
void TieniGeometria(QWidget *finestra, const QString &file)
{
    const QString chiave = u"geometria"_s;
    finestra->restoreGeometry(QSettings(file, QSettings::IniFormat).value(chiave).toByteArray());
    QObject::connect(qApp, &QApplication::aboutToQuit, finestra, [finestra, file, chiave] {
        QSettings(file, QSettings::IniFormat).setValue(chiave, finestra->saveGeometry());
    });
}
} // namespace

void PreparaProgramma()
{
    QApplication::setApplicationName(u"varbel"_s);
    QApplication::setApplicationVersion(QStringLiteral(VARBEL_VERSION));
    QApplication::setDesktopFileName(u"alt.varbel.varbel"_s);

    auto *traduzione = new QTranslator(qApp);
    if (traduzione->load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(traduzione);
}

std::unique_ptr<MDIForm1> Main(const QString &rigaDiComando, const QString &cartellaProgramma,
                               const QString &fileGeometria)
{
    Module1::Azzera();
    Esercizio::stato() = {};
    Module1::stato().CartellaProgramma = cartellaProgramma;
    auto finestra = std::make_unique<MDIForm1>();
    if (!fileGeometria.isEmpty())
        TieniGeometria(finestra.get(), fileGeometria);
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
