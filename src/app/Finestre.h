// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace Module1
{
/// Registers a child window at its load and shows its entry, checked. ErroreRuntime 9, which ends the program, when
/// ten are registered already.
void RegisterWindow(QWidget *finestra);

/// Shows an entry of the window list for each registered window, unchecked, and hides the others.
void RebuildWindowMenu();

/// Takes a closing window out; one that is not registered changes nothing. ErroreRuntime 9, which ends the program,
/// with ten registered.
void UnregisterWindow(QWidget *finestra);

/// Checks the entry of an activated window and unchecks the other registered ones.
void MarkActiveWindow(QWidget *finestra);

/// Shows a registered window's present caption in the window list.
void UpdateWindowCaption(const QWidget &finestra);

/// Takes a window that is being deleted out of the list, if it is still there.
void ForgetWindow(QWidget *finestra) noexcept;

/// The registered window of a slot, nullptr when none. ErroreRuntime 9 outside 0 to 9.
QWidget *WindowInSlot(qint32 i);

/// Activates the keyboard layout of an eight-hexadecimal-digit name; false when it cannot.
using CambioTastiera = std::function<bool(const QString &nome)>;

/// The keyboard back end; none until one is set, and every switch then fails.
CambioTastiera &LoadKeyboardLayoutA();

/// Selector 1: the dictionary's second-language layout; any other: Italian. A failure is shown to the user.
void SwitchKeyboard(const qint16 &selettore, QWidget *genitore);
} // namespace Module1
