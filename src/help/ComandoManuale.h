// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "help/ManualeForm1.h"

#include <QPointer>

class QMdiArea;

/// F1: the manual, at the page of the window in front. The main window's menu has the key; this one answers it where no
/// menu does, in the modal dialogs.
class ComandoManuale : public QObject
{
    Q_OBJECT
public:
    /// `area` holds the child windows.
    explicit ComandoManuale(QMdiArea *area);
    ~ComandoManuale() override;

    void Mostra();
    void Chiudi();

    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    QMdiArea *m_area;
    QPointer<ManualeForm1> m_manuale;
};
