// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/ListaParole.h"

#include "app/Protezione.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

QString DelegatoParola::displayText(const QVariant &valore, const QLocale & /*locale*/) const
{
    constexpr qsizetype massimo = 500;
    QString testo = valore.toString().left(massimo);
    std::replace_if(
        testo.begin(), testo.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(u' '));
    return testo;
}

ModelloColonna::ModelloColonna(const Tabella &tabella, int colonna, QObject *genitore)
    : QAbstractListModel(genitore), m_tabella(tabella), m_colonna(static_cast<std::size_t>(colonna))
{
}

void ModelloColonna::Aggiorna(qint32 righe)
{
    beginResetModel();
    m_righe = std::clamp(righe, 0, Capacita(m_tabella) + 1);
    endResetModel();
}

int ModelloColonna::rowCount(const QModelIndex &genitore) const
{
    return genitore.isValid() ? 0 : m_righe;
}

QVariant ModelloColonna::data(const QModelIndex &indice, int ruolo) const
{
    if (ruolo != Qt::DisplayRole || !indice.isValid() || indice.row() >= rowCount())
        return {};
    return Testo(indice.row());
}

QModelIndexList ModelloColonna::match(const QModelIndex &inizio, int ruolo, const QVariant &valore, int quanti,
                                      Qt::MatchFlags modo) const
{
    if (ruolo != Qt::DisplayRole || quanti != 1 || !modo.testFlags(Qt::MatchStartsWith | Qt::MatchWrap))
        return QAbstractListModel::match(inizio, ruolo, valore, quanti, modo);
    const QString testo = valore.toString();
    const qint32 righe = rowCount();
    for (qint32 i = 0; i < righe; ++i) {
        const qint32 riga = (inizio.row() + i) % righe;
        if (Testo(riga).startsWith(testo, Qt::CaseInsensitive))
            return {index(riga)};
    }
    return {};
}

QString ModelloColonna::Testo(qint32 i) const
{
    return m_tabella.righe[static_cast<std::size_t>(i)][m_colonna];
}

ListaParole::ListaParole(QWidget *genitore) : QTableView(genitore)
{
    setItemDelegate(new DelegatoParola(this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    connect(this, &QAbstractItemView::clicked, this, &ListaParole::clic);
}

qint32 ListaParole::ListIndex() const
{
    const QModelIndexList scelte = selectionModel() ? selectionModel()->selectedIndexes() : QModelIndexList();
    return scelte.isEmpty() ? -1 : scelte.constFirst().row();
}

void ListaParole::ImpostaListIndex(qint32 riga)
{
    const QScopedValueRollback daProgramma(m_daProgramma, true);
    if (riga < 0)
        clearSelection();
    else
        setCurrentIndex(model()->index(riga, 0));
}

void ListaParole::ImpostaAltezzaRiga(int altezza)
{
    verticalHeader()->setDefaultSectionSize(altezza);
}

QAction *ListaParole::OffriSullaVoce(const QString &nome, const QString &testo, const std::function<void()> &comando)
{
    auto *azione = new QAction(testo, this);
    azione->setObjectName(nome);
    Collega(azione, &QAction::triggered, this, [comando] { comando(); });
    addAction(azione);
    m_sullaVoce += azione;
    return azione;
}

void ListaParole::contextMenuEvent(QContextMenuEvent *evento)
{
    if (actions().isEmpty())
        return QTableView::contextMenuEvent(evento);
    for (QAction *azione : m_sullaVoce)
        azione->setEnabled(ListIndex() >= 0);
    auto *menu = new QMenu(this);
    menu->setObjectName(u"mnu"_s + objectName());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(actions());
    menu->popup(evento->globalPos());
}

void ListaParole::focusInEvent(QFocusEvent *evento)
{
    QTableView::focusInEvent(evento);
    // The view makes its first row current without choosing it, and the next arrow would pass it by.
    if (ListIndex() < 0)
        selectionModel()->clearCurrentIndex();
}

void ListaParole::keyPressEvent(QKeyEvent *evento)
{
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter)
        evento->ignore();
    else if (evento->key() != Qt::Key_Delete)
        QTableView::keyPressEvent(evento);
    else if (ListIndex() >= 0)
        emit canc();
}

void ListaParole::selectionChanged(const QItemSelection &ora, const QItemSelection &prima)
{
    QTableView::selectionChanged(ora, prima);
    if (!m_daProgramma)
        emit clic();
}

QItemSelectionModel::SelectionFlags ListaParole::selectionCommand(const QModelIndex &indice,
                                                                  const QEvent * /*evento*/) const
{
    return indice.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

QModelIndex ListaParole::moveCursor(CursorAction azione, Qt::KeyboardModifiers tasti)
{
    const int righe = model() ? model()->rowCount() : 0;
    if (azione == MoveHome || azione == MoveEnd)
        return righe > 0 ? model()->index(azione == MoveHome ? 0 : righe - 1, 0) : QModelIndex();
    // With no row chosen an arrow starts where the user is looking, not at the top.
    if (ListIndex() < 0 && (azione == MoveUp || azione == MoveDown)) {
        const QModelIndex inVista = indexAt(QPoint(1, 1));
        if (inVista.isValid())
            return inVista;
    }
    return QTableView::moveCursor(azione, tasti);
}
