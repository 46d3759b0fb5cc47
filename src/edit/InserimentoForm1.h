// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"

#include <memory>

namespace Ui
{
class InserimentoForm1;
}

/// The entry window: adds entry after entry, or corrects one and closes.
class InserimentoForm1 : public FinestraFiglia
{
    Q_OBJECT
public:
    explicit InserimentoForm1(QWidget *genitore = nullptr);
    ~InserimentoForm1() override;

    /// True for the modify mode; the caption follows.
    void ImpostaModifica(bool daModificare);

    /// Fills the four boxes from row `indice`, which Ok will then write to. ErroreRuntime 9 for no row of the table.
    void RiempiCampi(qint32 indice);

    [[nodiscard]] QSize Misura(int sinistra) const override;

    bool modifica = false;

signals:
    /// An entry was stored in the main table.
    void voceScritta();

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;
    void Unload() override;

private:
    void Ok();

    std::unique_ptr<Ui::InserimentoForm1> ui;
    qint32 m_indice = 0;
    /// The stored line that the boxes were filled from, and the CRs at its end, which they do not show.
    QString m_linea;
    QString m_codaCommento2;
};
