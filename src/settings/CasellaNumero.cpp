// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/CasellaNumero.h"

#include "app/Protezione.h"
#include "core/Numeri.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

void PreparaNumero(QWidget *form, QLineEdit *casella, const QPushButton *su, const QPushButton *giu, int minimo,
                   int massimo)
{
    constexpr int bordi = 20;
    casella->setFixedWidth(casella->fontMetrics().horizontalAdvance(u"00000"_s) + bordi);
    const auto valore = [casella] { return LeggiNumero(casella->text()).value_or(0); };
    Collega(su, &QPushButton::clicked, form, [=] {
        const double piu = valore() + 1;
        casella->setText(TestoNumero(piu > massimo ? massimo : piu));
    });
    Collega(giu, &QPushButton::clicked, form, [=] {
        const double meno = valore() - 1;
        casella->setText(TestoNumero(meno < minimo ? minimo : meno));
    });
}

std::optional<double> NumeroOVuota(QLineEdit *casella)
{
    const std::optional<double> numero = LeggiNumero(casella->text());
    if (!numero)
        casella->clear();
    return numero;
}
