// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

/// A child window of the main window: in the window list from its load until it closes.
class FinestraFiglia : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    ~FinestraFiglia() override;

    /// The size of the whole window, frame and title included, once it stands `sinistra` pixels right of the main
    /// window's edge; an invalid one leaves it as it is.
    [[nodiscard]] virtual QSize Misura(int sinistra) const;

    /// What a window does when it becomes the active one, before the window list is marked.
    virtual void Activate() {}

    /// Closes the window, as its user would.
    void Scarica();

protected:
    /// The load hook, the first step of every load: the window list, then the application's font size.
    /// ErroreRuntime 9, which ends the program, with ten windows registered.
    void Carica();

    /// Asked before a window closes, by whatever way; false keeps it open.
    virtual bool ChiediChiusura() { return true; }

    /// What a window does when it closes, before and after it has left the window list.
    virtual void QueryUnload() {}
    virtual void Unload() {}

    void closeEvent(QCloseEvent *evento) override;
    void changeEvent(QEvent *evento) override;

private:
    bool m_scaricata = false;
};
