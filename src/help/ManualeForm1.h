// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace Ui
{
class ManualeForm1;
}

/// The user's manual: the list of its pages, a search, the page. A window of its own, in front of none and in no list,
/// that can be used also while a dialog is open.
class ManualeForm1 : public QWidget
{
    Q_OBJECT
public:
    ManualeForm1();
    ~ManualeForm1() override;

    /// Shows the page of the first of these windows, by object name or title, that one is for, and comes to the front.
    void Mostra(const QStringList &finestre);

protected:
    bool event(QEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;

private:
    void Disponi();
    void Tasti();
    void Cerca();
    void SegueDialogo();

    std::unique_ptr<Ui::ManualeForm1> ui;
};
