// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Servizi.h"

#include <QAction>
#include <QKeyEvent>
#include <QPushButton>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
// Buttons know Enter only in dialogs; a key that no control of the form wanted arrives at the form.
class TastoInvio : public QObject
{
public:
    TastoInvio(QWidget *form, QPushButton *predefinito) : QObject(form), m_form(form), m_predefinito(predefinito)
    {
        form->installEventFilter(this);
    }

    bool eventFilter(QObject *oggetto, QEvent *evento) override
    {
        if (evento->type() != QEvent::KeyPress)
            return QObject::eventFilter(oggetto, evento);
        const int tasto = static_cast<QKeyEvent *>(evento)->key();
        if (tasto != Qt::Key_Return && tasto != Qt::Key_Enter)
            return QObject::eventFilter(oggetto, evento);
        auto *scelto = qobject_cast<QPushButton *>(m_form->focusWidget());
        (scelto ? scelto : m_predefinito)->click();
        return true;
    }

private:
    QWidget *m_form;
    QPushButton *m_predefinito;
};
} // namespace

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
    // The number is kept as it is given; letters larger than the screen would help nobody.
    font.setPointSize(std::clamp(Module1::stato().DimensioneFont, 1, 200));
    form->setFont(font);
}

QString Didascalia(const QString &testo)
{
    return QString(testo).replace(u'&', "&&"_L1);
}

void InvioPreme(QWidget *form, QPushButton *predefinito)
{
    new TastoInvio(form, predefinito);
}
