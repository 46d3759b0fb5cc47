// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FinestraFiglia.h"

#include "app/Finestre.h"
#include "app/Protezione.h"
#include "app/Servizi.h"

#include <QCloseEvent>
#include <QMdiSubWindow>

FinestraFiglia::~FinestraFiglia()
{
    // One whose load failed, or that goes with the main window, has not been closed.
    Module1::ForgetWindow(this);
}

QSize FinestraFiglia::Misura(int /*sinistra*/) const
{
    return {};
}

void FinestraFiglia::Scarica()
{
    auto *cornice = qobject_cast<QMdiSubWindow *>(parentWidget());
    cornice ? cornice->close() : close();
}

void FinestraFiglia::Carica()
{
    Module1::RegisterWindow(this);
    ImpostaFontSize(this);
}

void FinestraFiglia::closeEvent(QCloseEvent *evento)
{
    bool chiude = m_scaricata;
    if (!chiude)
        Protetto(this, [&] { chiude = ChiediChiusura(); });
    if (!chiude) {
        evento->ignore();
        return;
    }
    QWidget::closeEvent(evento);
    if (std::exchange(m_scaricata, true))
        return;
    Protetto(this, [this] {
        QueryUnload();
        Module1::UnregisterWindow(this);
        // The next window of this name may open before the event loop has deleted this one.
        setObjectName(QString());
        Unload();
    });
}

void FinestraFiglia::changeEvent(QEvent *evento)
{
    if (evento->type() == QEvent::WindowTitleChange)
        Module1::UpdateWindowCaption(*this);
    QWidget::changeEvent(evento);
}
