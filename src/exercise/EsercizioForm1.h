// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"
#include "exercise/Esercizio.h"

#include <memory>

class QLabel;

namespace Ui
{
class EsercizioForm1;
}

/// The exercise window: shows a question, judges the typed answer, shows the mark, the expected answer and the score.
class EsercizioForm1 : public FinestraFiglia
{
    Q_OBJECT
public:
    /// Loads the window and draws its first question with a sequence that starts at `seme`. ErroreRuntime as
    /// Esercizio::NuovaDomanda.
    explicit EsercizioForm1(quint32 seme, QWidget *genitore = nullptr);
    ~EsercizioForm1() override;

    /// The review ended, and was not begun again, while the window loaded: it is not to be shown.
    [[nodiscard]] bool Finito() const { return m_finito; }

    [[nodiscard]] QSize Misura(int sinistra) const override;
    void Activate() override;

signals:
    /// The user wants to correct row `voce` of the main table.
    void correggiVoce(qint32 voce);

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;
    void Unload() override;

private:
    void Ok();
    void Controlla();
    void Correggi();

    /// Draws a question; false when the exercise is over.
    bool NuovaDomanda();
    void MostraDomanda();
    void MostraSegno(bool giusta);

    std::unique_ptr<Ui::EsercizioForm1> ui;
    Caso m_caso;
    bool m_finito = false;
    bool m_segnoIllegibile = false;
};
