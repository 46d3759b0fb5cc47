// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Finestre.h"

#include "app/Protezione.h"
#include "app/Servizi.h"

#include <QAction>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
std::size_t Posto(qint32 i)
{
    if (i < 0 || i >= Module1::MassimoFinestre)
        throw ErroreRuntime(9, true);
    return static_cast<std::size_t>(i);
}

QAction *Voce(qint32 i)
{
    return servizi().mnuFinestra[Posto(i)];
}
// A menu that is opened empty shows nothing ever after.
void AbilitaLista()
{
    const auto &voci = servizi().mnuFinestra;
    servizi().mnuFinestre->setEnabled(
        std::any_of(voci.cbegin(), voci.cend(), [](const QAction *voce) { return voce->isVisible(); }));
}
} // namespace

namespace Module1
{
void RegisterWindow(QWidget *finestra)
{
    Stato &s = stato();
    s.Finestre[Posto(s.NumFinestre)] = finestra;
    ++s.NumFinestre;
    RebuildWindowMenu();
    Voce(s.NumFinestre - 1)->setChecked(true);
}

void RebuildWindowMenu()
{
    for (QAction *voce : servizi().mnuFinestra) {
        voce->setChecked(false);
        voce->setVisible(false);
    }
    for (qint32 i = 0; i < stato().NumFinestre; ++i) {
        Voce(i)->setText(Didascalia(WindowInSlot(i)->windowTitle()));
        Voce(i)->setVisible(true);
    }
    AbilitaLista();
}

void UnregisterWindow(QWidget *finestra)
{
    Stato &s = stato();
    const auto fine = s.Finestre.begin() + s.NumFinestre;
    const auto trovata = std::find(s.Finestre.begin(), fine, finestra);
    if (trovata == fine)
        return;
    for (auto j = static_cast<qint32>(trovata - s.Finestre.begin()); j < s.NumFinestre; ++j) {
        s.Finestre[Posto(j)] = s.Finestre[Posto(j + 1)];
        Voce(j)->setText(Voce(j + 1)->text());
    }
    --s.NumFinestre;
    Voce(s.NumFinestre)->setVisible(false);
    AbilitaLista();
}

void MarkActiveWindow(QWidget *finestra)
{
    for (qint32 i = 0; i < stato().NumFinestre; ++i)
        Voce(i)->setChecked(WindowInSlot(i) == finestra);
}

void UpdateWindowCaption(const QWidget &finestra)
{
    for (qint32 i = 0; i < stato().NumFinestre; ++i) {
        if (WindowInSlot(i) == &finestra)
            Voce(i)->setText(Didascalia(finestra.windowTitle()));
    }
}

void ForgetWindow(QWidget *finestra) noexcept
{
    Stato &s = stato();
    const auto fine = s.Finestre.begin() + s.NumFinestre;
    // One of ten that were closed has left the last one in two slots.
    const auto resto = std::remove(s.Finestre.begin(), fine, finestra);
    if (resto == fine)
        return;
    std::fill(resto, fine, nullptr);
    s.NumFinestre = static_cast<qint32>(resto - s.Finestre.begin());
    if (servizi().mnuFinestra[0] != nullptr)
        RebuildWindowMenu();
}

QWidget *WindowInSlot(qint32 i)
{
    QObject *finestra = stato().Finestre[Posto(i)];
    return i < stato().NumFinestre ? qobject_cast<QWidget *>(finestra) : nullptr;
}

CambioTastiera &LoadKeyboardLayoutA()
{
    static CambioTastiera cambio;
    return cambio;
}

void SwitchKeyboard(const qint16 &selettore, QWidget *genitore)
{
    const QString nome = u"0000"_s + (selettore == 1 ? stato().impostazioni.Tastiera : u"0410"_s);
    if (LoadKeyboardLayoutA() && LoadKeyboardLayoutA()(nome))
        return;
    Messaggio(genitore, QMessageBox::Critical, u"Varbel"_s,
              u"Errore nel cambio della tastiera. Prova a settarla manualmente. La lingua corrispondente potrebbe "
              u"non essere installata in Windows."_s);
}
} // namespace Module1
