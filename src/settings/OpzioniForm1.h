// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"

#include <memory>

class QFileSystemModel;

namespace Ui
{
class OpzioniForm1;
}

/// The program's font size and working folder, and the open dictionary's error sound. It stays open when the
/// dictionary closes, and leaves the sound alone then.
class OpzioniForm1 : public FinestraFiglia
{
    Q_OBJECT
public:
    explicit OpzioniForm1(QWidget *genitore = nullptr);
    ~OpzioniForm1() override;

    /// Shows the error sound of the dictionary that is open now; none without one.
    void SegueDizionario();

signals:
    /// Ok has stored the options.
    void opzioniCambiate();

private:
    void MostraDimensione();
    void MostraCartella();
    void Ok();

    std::unique_ptr<Ui::OpzioniForm1> ui;
    QFileSystemModel *m_cartelle;
};
