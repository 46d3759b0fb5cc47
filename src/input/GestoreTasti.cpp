// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/GestoreTasti.h"

#include "input/CodiciTasto.h"
#include "input/TastiRapidi.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr const char *SoloRilascio = "soloRilascio";

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

void GestoreTasti::Segui(QLineEdit *casella, bool soloRilascio)
{
    casella->setProperty(SoloRilascio, soloRilascio);
    casella->installEventFilter(this);
}

bool GestoreTasti::eventFilter(QObject *oggetto, QEvent *evento)
{
    auto *casella = qobject_cast<QLineEdit *>(oggetto);
    if (!casella)
        return false;
    const bool soloRilascio = casella->property(SoloRilascio).toBool();
    switch (evento->type()) {
    case QEvent::ShortcutOverride: {
        // A shortcut of the windows around it, such as the one that closes them, would take the key first.
        const bool suo = !soloRilascio && Scartato(*static_cast<QKeyEvent *>(evento));
        evento->setAccepted(suo);
        return suo;
    }
    case QEvent::KeyPress:
        return !soloRilascio && Scartato(*static_cast<QKeyEvent *>(evento));
    case QEvent::KeyRelease:
        if (!static_cast<QKeyEvent *>(evento)->isAutoRepeat())
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

bool GestoreTasti::Scartato(const QKeyEvent &evento)
{
    const quint8 maschera = Maschera(evento);
    // AltGr comes as Ctrl and Alt together on some systems; what it types is text.
    if ((maschera & MascheraAlt) != 0)
        return false;
    if ((maschera & MascheraCtrl) != 0)
        m_ctrlNotato = true;
    if (!m_ctrlNotato)
        return false;
    const bool shift = (maschera & MascheraShift) != 0;
    return TastiRapidi::Definito(CodiceDi(evento), shift, true) || !SempreDellaCasella(evento);
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
    // As typed, so that it can be undone.
    casella->selectAll();
    casella->insert(testo);
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
        SostituisciTesto(casella, QString(testo).replace(nonDaVoce, u" "_s), punto);
    });
}
