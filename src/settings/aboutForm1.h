// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"

#include <memory>

namespace Ui
{
class aboutForm1;
}

/// What the program is, its version, licence and folder.
class aboutForm1 : public FinestraFiglia
{
    Q_OBJECT
public:
    explicit aboutForm1(QWidget *genitore = nullptr);
    ~aboutForm1() override;

private:
    std::unique_ptr<Ui::aboutForm1> ui;
};
