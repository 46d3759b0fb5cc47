// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"

#include <array>

class QTabWidget;

/// The character map: the characters of the code page, one of which it gives when it closes.
class CaratteriForm1 : public FinestraFiglia
{
    Q_OBJECT
public:
    explicit CaratteriForm1(QWidget *genitore = nullptr);

    [[nodiscard]] QSize Misura(int sinistra) const override;

signals:
    /// The window closes with this character selected; empty for a cell without one.
    void carattereScelto(const QString &carattere);

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;
    void QueryUnload() override;

private:
    static constexpr qint16 NumCelle = 228;
    class Cella;
    class Pagina;

    [[nodiscard]] Cella *Label1(int k) const { return m_celle[static_cast<std::size_t>(k - 1)]; }
    void CreaCelle();
    void Seleziona(qint16 k);
    bool Tasto(int tasto, qint16 k);
    void Fermata(Cella *cella);

    QTabWidget *SSTab1;
    std::array<Cella *, NumCelle> m_celle{};
    /// For each tab the one cell that Tab stops at.
    std::array<Cella *, 3> m_fermate{};
    qint16 m_scelta = 1;
};
