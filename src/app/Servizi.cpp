// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Servizi.h"

#include <QAction>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

Servizi &servizi()
{
    static Servizi unici;
    return unici;
}

void SegnaModificato()
{
    Module1::stato().Modificato = true;
    if (servizi().mnuFileSalva)
        servizi().mnuFileSalva->setEnabled(true);
}

void ImpostaFontSize(QWidget *form)
{
    QFont font = form->font();
    font.setPointSize(std::max(1, Module1::stato().DimensioneFont));
    form->setFont(font);
}

QString Didascalia(const QString &testo)
{
    return QString(testo).replace(u'&', "&&"_L1);
}
