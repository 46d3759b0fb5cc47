// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Attesa.h"

#include <QCoreApplication>

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr int Parti = 1000;
constexpr qint64 MsPrima = 500;
constexpr qint64 MsFraDue = 40;
} // namespace

Attesa::Attesa(QWidget *genitore, const QString &titolo, Fermata fermata)
    : m_dialogo(titolo + u"…"_s, u"Annulla"_s, 0, Parti, genitore ? genitore->window() : nullptr)
{
    m_dialogo.setObjectName("Attesa"_L1);
    m_dialogo.setWindowTitle(titolo);
    if (fermata == FinoInFondo)
        m_dialogo.setCancelButton(nullptr);
    m_dialogo.setWindowModality(Qt::WindowModal);
    m_dialogo.setAutoClose(false);
    m_dialogo.setAutoReset(false);
    // Shown by this clock: the toolkit's own guess may show it sooner.
    m_dialogo.setMinimumDuration(std::numeric_limits<int>::max());
    m_daInizio.start();
}

bool Attesa::Avanti(qint64 fatto, qint64 totale)
{
    const qint64 adesso = m_daInizio.elapsed();
    if (adesso < MsPrima || adesso - m_ultimo < MsFraDue)
        return true;
    m_ultimo = adesso;
    if (!m_dialogo.isVisible())
        m_dialogo.show();
    m_dialogo.setValue(totale > 0 ? static_cast<int>(qMin(fatto, totale) * (Parti - 1) / totale) : 0);
    // The toolkit does this only for a dialog that it has shown itself.
    QCoreApplication::processEvents();
    return !m_dialogo.wasCanceled();
}
