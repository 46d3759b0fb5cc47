// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Tabella.h"

#include <QAbstractListModel>
#include <QStyledItemDelegate>
#include <QTableView>

#include <functional>

/// One column of a table as a list: row i of the list is row i of the table, no word is copied.
class ModelloColonna : public QAbstractListModel
{
    Q_OBJECT
public:
    ModelloColonna(const Tabella &tabella, int colonna, QObject *genitore);

    /// Shows rows 0 to righe - 1 of the table anew.
    void Aggiorna(qint32 righe);

    [[nodiscard]] int rowCount(const QModelIndex &genitore = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &indice, int ruolo) const override;
    [[nodiscard]] QModelIndexList match(const QModelIndex &inizio, int ruolo, const QVariant &valore, int quanti,
                                        Qt::MatchFlags modo) const override;

protected:
    /// The text of list row i, which is one of the list's.
    [[nodiscard]] virtual QString Testo(qint32 i) const;

    const Tabella &m_tabella;

private:
    std::size_t m_colonna;
    qint32 m_righe = 0;
};

/// What is painted of a word or line: one of megabytes, or with controls in it, must not stop the list.
class DelegatoParola : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant &valore, const QLocale &locale) const override;
};

/// A list box over a ModelloColonna: one row selected or none, every move selects, typed letters find. A table of one
/// column, since a list view lays out each of its rows at every refill.
class ListaParole : public QTableView
{
    Q_OBJECT
public:
    explicit ListaParole(QWidget *genitore = nullptr);

    /// The selected row, -1 when none.
    [[nodiscard]] qint32 ListIndex() const;

    /// Selects a row without a sign of it, none for -1.
    void ImpostaListIndex(qint32 riga);

    /// The height of every row in pixels.
    void ImpostaAltezzaRiga(int altezza);

    /// A command that the list's context menu offers while a row is selected. What else it offers are the list's
    /// actions.
    QAction *OffriSullaVoce(const QString &nome, const QString &testo, const std::function<void()> &comando);

signals:
    /// The user moved the selection, by mouse or keyboard, or clicked the row again.
    void clic();
    /// The Delete key with a row selected.
    void canc();

protected:
    void contextMenuEvent(QContextMenuEvent *evento) override;
    void focusInEvent(QFocusEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    void selectionChanged(const QItemSelection &ora, const QItemSelection &prima) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &indice,
                                                                       const QEvent *evento) const override;
    QModelIndex moveCursor(CursorAction azione, Qt::KeyboardModifiers tasti) override;

private:
    QList<QAction *> m_sullaVoce;
    bool m_daProgramma = false;
};
