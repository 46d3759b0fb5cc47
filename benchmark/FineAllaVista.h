// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

/// Ends the program once the window has been painted, menus and toolbar included.
class FineAllaVista : public QObject
{
public:
    explicit FineAllaVista(QWidget *finestra) : QObject(finestra) { finestra->installEventFilter(this); }

    bool eventFilter(QObject *oggetto, QEvent *evento) override
    {
        if (evento->type() == QEvent::Paint)
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        return QObject::eventFilter(oggetto, evento);
    }
};
