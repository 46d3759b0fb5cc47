// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MDIForm1.h"
#include "core/FileDizionario.h"
#include "core/FileInPosto.h"
#include "core/Module1.h"
#include "edit/VisualizzaForm1.h"

#include <QApplication>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <memory>

inline QString Parola(QRandomGenerator &caso)
{
    QString parola(caso.bounded(5, 14), Qt::Uninitialized);
    std::generate(parola.begin(), parola.end(), [&caso] { return QChar(u'a' + caso.bounded(26)); });
    return parola;
}

/// A dictionary of that many unsorted entries in a folder of its own, written once.
inline QString Dizionario(qint32 voci)
{
    static const QTemporaryDir cartella;
    QString percorso = cartella.filePath(QStringLiteral("%1.dic").arg(voci));
    if (QFile::exists(percorso))
        return percorso;
    QRandomGenerator caso(1);
    Tabella tabella;
    Ridimensiona(tabella, voci);
    for (qint32 i = 0; i < voci; ++i)
        tabella.righe[static_cast<std::size_t>(i)] =
            RigaDaLinea(Parola(caso) + u'@' + Parola(caso) + u'@' + Parola(caso) + u'@');
    SalvaDizionario(percorso, tabella, voci);
    ScriviInPosto(cartella.filePath(QStringLiteral("%1.ini").arg(voci)), ScriviIni(ImpostazioniDizionario()));
    return percorso;
}

/// The main window with a dictionary of that many entries open.
struct Vista {
    explicit Vista(qint32 voci)
    {
        Module1::Azzera();
        Module1::stato().CartellaProgramma = QStringLiteral(ASSETS);
        finestra = std::make_unique<MDIForm1>();
        finestra->show();
        Module1::stato().PercorsoDizionario = Dizionario(voci);
        finestra->SimulaApertura();
        visualizza = finestra->findChild<VisualizzaForm1 *>();
        QApplication::processEvents();
    }
    ~Vista()
    {
        Module1::stato().DizionarioAperto = false;
        finestra.reset();
        Module1::Azzera();
    }
    Q_DISABLE_COPY_MOVE(Vista)

    std::unique_ptr<MDIForm1> finestra;
    VisualizzaForm1 *visualizza = nullptr;
};

/// What benchmarks keep open from one repetition to the next; let go before the application is.
inline std::shared_ptr<void> &Tenuto()
{
    static std::shared_ptr<void> tenuto;
    return tenuto;
}
