// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/ComandoManuale.h"

#include "app/Protezione.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

ComandoManuale::ComandoManuale(QMdiArea *area) : QObject(area), m_area(area)
{
    qApp->installEventFilter(this);
}

ComandoManuale::~ComandoManuale()
{
    delete m_manuale;
}

void ComandoManuale::Mostra()
{
    QStringList finestre;
    if (const QWidget *dialogo = QApplication::activeModalWidget())
        finestre += {dialogo->objectName(), dialogo->windowTitle()};
    // While a menu is open the area has no active window, only a current one.
    const QMdiSubWindow *figlia = m_area->currentSubWindow();
    if (figlia && figlia->widget())
        finestre += figlia->widget()->objectName();
    if (!m_manuale)
        m_manuale = new ManualeForm1;
    m_manuale->Mostra(finestre);
}

void ComandoManuale::Chiudi()
{
    if (m_manuale)
        m_manuale->close();
}

bool ComandoManuale::eventFilter(QObject *oggetto, QEvent *evento)
{
    if (evento->type() != QEvent::KeyPress || !QApplication::activeModalWidget())
        return QObject::eventFilter(oggetto, evento);
    const auto &tasto = *static_cast<QKeyEvent *>(evento);
    if (tasto.key() != Qt::Key_F1 || tasto.modifiers() != Qt::NoModifier ||
        (m_manuale && QApplication::activeWindow() == m_manuale))
        return QObject::eventFilter(oggetto, evento);
    Protetto(QApplication::activeModalWidget(), [this] { Mostra(); });
    return true;
}
