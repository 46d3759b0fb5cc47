// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/GestoreTasti.h"

#include "input/CodiciTasto.h"
#include "input/TastiRapidi.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr const char *Ascolto = "ascoltoTasti";

// Keys that a noted Ctrl leaves to the box unless the dictionary has a hotkey on them: copy, cut, paste, undo, select
// all, movement, and those that type nothing.
bool SempreDellaCasella(const QKeyEvent &evento)
{
    switch (evento.key()) {
    case Qt::Key_A:
    case Qt::Key_C:
    case Qt::Key_V:
    case Qt::Key_X:
    case Qt::Key_Z:
    case Qt::Key_Insert:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
        return true;
    default:
        return evento.key() >= Qt::Key_F1 && evento.key() <= Qt::Key_F35;
    }
}
} // namespace

qint16 CodiceDi(const QKeyEvent &evento)
{
#ifdef Q_OS_WIN
    if (evento.nativeVirtualKey() != 0)
        return static_cast<qint16>(evento.nativeVirtualKey());
#endif
    return CodiciTasto::Codice(evento.key(), evento.nativeScanCode(), evento.modifiers() & Qt::KeypadModifier);
}

void GestoreTasti::Segui(QLineEdit *casella, Eventi eventi)
{
    casella->setProperty(Ascolto, static_cast<int>(eventi));
    casella->installEventFilter(this);
}

bool GestoreTasti::eventFilter(QObject *oggetto, QEvent *evento)
{
    auto *casella = qobject_cast<QLineEdit *>(oggetto);
    if (!casella)
        return false;
    const auto eventi = static_cast<Eventi>(casella->property(Ascolto).toInt());
    switch (evento->type()) {
    case QEvent::ShortcutOverride: {
        // A shortcut of the windows around it, such as the one that closes them or F1, would take the key first.
        const auto &tasto = *static_cast<QKeyEvent *>(evento);
        const bool suo = Scartato(tasto, eventi) || TastoDelDizionario(tasto, eventi);
        evento->setAccepted(suo);
        return suo;
    }
    case QEvent::KeyPress:
        return Scartato(*static_cast<QKeyEvent *>(evento), eventi);
    case QEvent::KeyRelease:
        if (eventi != Eventi::Nessuno && !static_cast<QKeyEvent *>(evento)->isAutoRepeat())
            Rilasciato(*static_cast<QKeyEvent *>(evento), casella);
        return false;
    case QEvent::FocusIn:
        // A Ctrl or AltGr let go in another window is no longer held.
        m_ctrlNotato = false;
        m_altGr = false;
        return false;
    default:
        return false;
    }
}

quint8 GestoreTasti::Maschera(const QKeyEvent &evento)
{
    if (evento.key() == Qt::Key_AltGr)
        m_altGr = evento.type() != QEvent::KeyRelease;
    const Qt::KeyboardModifiers tasti = evento.modifiers();
    quint8 maschera = 0;
    if (tasti & Qt::ShiftModifier)
        maschera |= MascheraShift;
    if (tasti & Qt::ControlModifier)
        maschera |= MascheraCtrl;
    if (m_altGr || (tasti & (Qt::AltModifier | Qt::GroupSwitchModifier)))
        maschera |= MascheraAlt;
    return maschera;
}

bool GestoreTasti::Scartato(const QKeyEvent &evento, Eventi eventi)
{
    const quint8 maschera = Maschera(evento);
    // AltGr comes as Ctrl and Alt together on some systems; what it types is text.
    if ((maschera & MascheraAlt) != 0)
        return false;
    bool ctrl = (maschera & MascheraCtrl) != 0;
    if (eventi == Eventi::Tutti) {
        m_ctrlNotato = m_ctrlNotato || ctrl;
        ctrl = m_ctrlNotato;
    }
    if (!ctrl)
        return false;
    // Held in one box and let go unseen: only what would be typed is lost.
    if ((maschera & MascheraCtrl) == 0)
        return !evento.text().isEmpty() && evento.text().front().isPrint();
    // What kills text or closes the window with Ctrl must not do it to one who meant a hotkey.
    const bool shift = (maschera & MascheraShift) != 0;
    return !SempreDellaCasella(evento) ||
           (eventi != Eventi::Nessuno && TastiRapidi::Definito(CodiceDi(evento), shift, true));
}

bool GestoreTasti::TastoDelDizionario(const QKeyEvent &evento, Eventi eventi)
{
    const quint8 maschera = Maschera(evento);
    return eventi != Eventi::Nessuno && (maschera & MascheraAlt) == 0 &&
           TastiRapidi::Definito(CodiceDi(evento), (maschera & MascheraShift) != 0, (maschera & MascheraCtrl) != 0);
}

void GestoreTasti::Rilasciato(const QKeyEvent &evento, QLineEdit *casella)
{
    QString testo = casella->text();
    qsizetype punto = casella->hasSelectedText() ? casella->selectionStart() : casella->cursorPosition();
    if (TastiRapidi::Inserisci(testo, punto, CodiceDi(evento), Maschera(evento), m_ctrlNotato))
        SostituisciTesto(casella, testo, punto);
}

void SostituisciTesto(QLineEdit *casella, const QString &testo, qsizetype punto)
{
    // Only what differs, as typed: undoing it selects no more than that.
    const QString prima = casella->text();
    const auto inizio = std::mismatch(prima.begin(), prima.end(), testo.begin(), testo.end());
    const auto uguali = inizio.first - prima.begin();
    const auto fine = std::mismatch(prima.rbegin(), std::make_reverse_iterator(inizio.first), testo.rbegin(),
                                    std::make_reverse_iterator(inizio.second));
    const auto coda = fine.first - prima.rbegin();
    casella->setCursorPosition(static_cast<int>(uguali));
    if (uguali + coda < prima.size())
        casella->setSelection(static_cast<int>(uguali), static_cast<int>(prima.size() - uguali - coda));
    casella->insert(testo.sliced(uguali, testo.size() - uguali - coda));
    casella->setCursorPosition(static_cast<int>(punto));
}

void PreparaCasella(QLineEdit *casella)
{
    casella->setMaxLength(std::numeric_limits<int>::max());
    QObject::connect(casella, &QLineEdit::textEdited, casella, [casella](const QString &testo) {
        static const QRegularExpression nonDaVoce(u"\\r\\n|[\\r\\n\\x00]"_s);
        if (!testo.contains(nonDaVoce))
            return;
        const qsizetype punto = testo.first(casella->cursorPosition()).replace(nonDaVoce, u" "_s).size();
        const QString pulito = QString(testo).replace(nonDaVoce, u" "_s);
        // A line end that stayed in the box's history would come back with each undo.
        casella->undo();
        SostituisciTesto(casella, pulito, punto);
    });
}
