// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"

#include <memory>

class QStringListModel;

namespace Ui
{
class OutPutForm;
}

/// The lines that a conversion could not cut, to read and to print.
class OutPutForm : public FinestraFiglia
{
    Q_OBJECT
public:
    explicit OutPutForm(QWidget *genitore = nullptr);
    ~OutPutForm() override;

    void ImpostaErrori(const QStringList &errori);

    [[nodiscard]] QSize Misura(int sinistra) const override;

private:
    std::unique_ptr<Ui::OutPutForm> ui;
    QStringListModel *m_errori;
};
