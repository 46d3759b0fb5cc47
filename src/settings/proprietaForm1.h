// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"

#include <memory>

class QLabel;

namespace Ui
{
class proprietaForm1;
}

/// The open dictionary's languages, keyboard, fonts and error frequency. They reach its companion file with a save.
class proprietaForm1 : public FinestraFiglia
{
    Q_OBJECT
public:
    /// Loads the window. ErroreRuntime 53, 70 or 75 when varbel.ini, which lists the languages, cannot be read.
    explicit proprietaForm1(QWidget *genitore = nullptr);
    ~proprietaForm1() override;

    /// Shows the names of the two languages and the path of the open dictionary.
    void AggiornaTitolo();

signals:
    /// Ok has stored the settings.
    void impostazioniCambiate();

protected:
    bool event(QEvent *evento) override;

private:
    void MostraLingue();
    void MostraFonts();
    void MostraTastiera();
    void ScegliFont(QLabel *etichetta);
    void Ok();

    std::unique_ptr<Ui::proprietaForm1> ui;
};
