// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QKeyEvent;
class QLineEdit;

/// The key events of one window's hotkey boxes, which share one noted Ctrl.
class GestoreTasti : public QObject
{
    Q_OBJECT
public:
    explicit GestoreTasti(QObject *finestra) : QObject(finestra) {}

    /// The key events of a box that hotkeys act on: all, its releases alone, none.
    enum class Eventi { Tutti, SoloRilascio, Nessuno };

    /// Follows a box. In each of them Ctrl with a letter that would kill text or close the window does nothing.
    void Segui(QLineEdit *casella, Eventi eventi = Eventi::Tutti);

    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    quint8 Maschera(const QKeyEvent &evento);
    /// Notes a Ctrl held, where presses count; true for a press that is not to reach the box.
    bool Scartato(const QKeyEvent &evento, Eventi eventi);
    /// The dictionary has a hotkey on this key with what is held.
    bool TastoDelDizionario(const QKeyEvent &evento, Eventi eventi);
    void Rilasciato(const QKeyEvent &evento, QLineEdit *casella);

    bool m_ctrlNotato = false;
    bool m_altGr = false;
};

/// The virtual-key code of a key event.
qint16 CodiceDi(const QKeyEvent &evento);

/// Gives a box a new text with the caret at `punto` (UTF-16 units), as an edit of the user's.
void SostituisciTesto(QLineEdit *casella, const QString &testo, qsizetype punto);

/// A box for a field of an entry: any length; a line end or a NUL typed, pasted or dropped becomes one blank.
void PreparaCasella(QLineEdit *casella);
