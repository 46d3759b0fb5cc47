// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Servizi.h"

#include "app/Protezione.h"
#include "core/Documento.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QWidget>

#include <algorithm>
#include <cmath>

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
        const auto *premuto = static_cast<QKeyEvent *>(evento);
        if (premuto->key() != Qt::Key_Return && premuto->key() != Qt::Key_Enter)
            return QObject::eventFilter(oggetto, evento);
        // A key held too long must not answer the next question as well.
        if (premuto->isAutoRepeat())
            return true;
        auto *scelto = qobject_cast<QPushButton *>(m_form->focusWidget());
        (scelto ? scelto : m_predefinito)->click();
        return true;
    }

private:
    QWidget *m_form;
    QPushButton *m_predefinito;
};

// The number is kept as it is given; letters larger than the screen would help nobody.
int PuntiVisibili(int punti)
{
    return std::clamp(punti, 1, 200);
}
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
    if (Module1::stato().DizionarioAperto)
        TentaCopia(Documento::AggiornaCopia);
}

void TentaCopia(const std::function<void()> &aggiorna)
{
    try {
        aggiorna();
        servizi().copiaFallita = false;
    } catch (const std::exception &eccezione) {
        const auto *errore = dynamic_cast<const ErroreRuntime *>(&eccezione);
        if (!std::exchange(servizi().copiaFallita, true))
            Messaggio(QApplication::activeWindow(), QMessageBox::Warning, u"Recupero"_s,
                      u"Impossibile scrivere la copia di recupero.\n"_s + (errore ? errore->testo : TestoMemoria()) +
                          u"\nLe voci restano nel programma: conviene salvare il dizionario."_s);
    }
}

void AvvisaSpezzate(QWidget *finestra, const QString &file, qint32 voci, bool conCopia)
{
    Messaggio(finestra, QMessageBox::Warning, u"Attenzione!"_s,
              u"Il file "_s + file +
                  u" è scritto, ma alla riapertura spezzerà %1 voci, per i caratteri che contengono.\n"_s.arg(voci) +
                  (conCopia ? u"Resta una copia di recupero, che le ha intere: alla riapertura conviene prenderla."_s
                            : u"Nel dizionario aperto sono intere."_s));
}

int Pixel(int twip)
{
    constexpr double twipPerPixel = 15;
    return static_cast<int>(std::nearbyint(twip / twipPerPixel));
}

void ImpostaFontSize(QWidget *form)
{
    QFont font = form->font();
    font.setPointSize(PuntiVisibili(Module1::stato().DimensioneFont));
    form->setFont(font);
}

void ImpostaFont(QWidget *controllo, const QString &famiglia, int inPiu)
{
    QFont font = controllo->font();
    font.setFamily(famiglia);
    font.setPointSize(PuntiVisibili(Module1::stato().DimensioneFont) + inPiu);
    controllo->setFont(font);
}

bool PrendeIlFuoco(const QWidget *controllo, const QFocusEvent &evento)
{
    // The main window may give the focus back before the toolkit says why.
    return evento.reason() != Qt::ActiveWindowFocusReason && evento.reason() != Qt::PopupFocusReason &&
           servizi().ultimoFuoco.data() != controllo;
}

QString Didascalia(const QString &testo)
{
    return QString(testo).replace(u'&', "&&"_L1);
}

void InvioPreme(QWidget *form, QPushButton *predefinito)
{
    new TastoInvio(form, predefinito);
}
