// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListWidget>

/// A list box: one row selected or none, every move selects.
class ListaTasti : public QListWidget
{
public:
    using QListWidget::QListWidget;

    /// The selected row, -1 when none.
    [[nodiscard]] int ListIndex() const
    {
        const QModelIndexList scelte = selectedIndexes();
        return scelte.isEmpty() ? -1 : scelte.constFirst().row();
    }

    void Aggiungi(const QString &testo, int altezza)
    {
        auto *voce = new QListWidgetItem(testo, this);
        voce->setSizeHint({1, altezza});
    }

protected:
    void focusInEvent(QFocusEvent *evento) override
    {
        QListWidget::focusInEvent(evento);
        // The view makes its first row current without choosing it, and the next arrow would pass it by.
        if (ListIndex() < 0)
            selectionModel()->clearCurrentIndex();
    }

    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &indice,
                                                                       const QEvent * /*evento*/) const override
    {
        return indice.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
    }
};
