// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Avvio.h"

#include "app/MDIForm1.h"
#include "app/Protezione.h"
#include "core/Module1.h"
#include "core/Percorsi.h"
#include "exercise/Esercizio.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

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

#ifdef Q_OS_WIN
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
    const QStringList pezzi = rigaDiComando.split(u'"');
    if (pezzi.size() < 2)
        throw ErroreRuntime(9, true);
    return pezzi[1];
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
