// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Dialoghi.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

Dialoghi::Dialoghi()
{
    connect(&m_orologio, &QTimer::timeout, this, &Dialoghi::Guarda);
    m_orologio.start(1);
}

void Dialoghi::casella(const QString &titolo, const QString &testo, QMessageBox::Icon icona,
                       QMessageBox::StandardButton pulsante)
{
    m_attese += [=, this](QDialog *dialogo) {
        auto *box = qobject_cast<QMessageBox *>(dialogo);
        if (!box || box->windowTitle() != titolo || box->text() != testo || box->icon() != icona ||
            !box->button(pulsante)) {
            m_guasti += u"atteso «%1» «%2», venuto «%3» «%4»"_s.arg(titolo, testo, dialogo->windowTitle(),
                                                                    box ? box->text() : QString());
            dialogo->reject();
            return;
        }
        box->button(pulsante)->click();
    };
}

void Dialoghi::errore(const QString &titolo, const QString &inizioTesto)
{
    m_attese += [=, this](QDialog *dialogo) {
        auto *box = qobject_cast<QMessageBox *>(dialogo);
        if (!box || box->windowTitle() != titolo || !box->text().startsWith(inizioTesto) ||
            box->icon() != QMessageBox::Critical)
            m_guasti += u"atteso errore «%1» «%2…», venuto «%3» «%4»"_s.arg(titolo, inizioTesto, dialogo->windowTitle(),
                                                                            box ? box->text() : QString());
        dialogo->reject();
    };
}

void Dialoghi::file(const QString &percorso, const QString &filtro)
{
    m_attese += [=, this](QDialog *dialogo) {
        auto *scelta = qobject_cast<QFileDialog *>(dialogo);
        if (!scelta || scelta->nameFilters() != QStringList(filtro)) {
            m_guasti += u"atteso un dialogo di file, venuto «%1»"_s.arg(dialogo->windowTitle());
            dialogo->reject();
            return;
        }
        ultimaCartella = scelta->directory().absolutePath();
        auto *nome = scelta->findChild<QLineEdit *>(u"fileNameEdit"_s);
        ultimoNome = nome->text();
        if (percorso.isEmpty()) {
            scelta->reject();
            return;
        }
        // Typing takes the selection off the file that the dialog came with; setting the text does not.
        scelta->findChild<QAbstractItemView *>(u"listView"_s)->clearSelection();
        nome->setFocus();
        nome->setText(percorso);
        const auto pulsante =
            scelta->acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open;
        scelta->findChild<QDialogButtonBox *>()->button(pulsante)->click();
        if (scelta->isVisible() && QApplication::activeModalWidget() == scelta) {
            m_guasti += u"il dialogo di file non accetta «%1»"_s.arg(percorso);
            scelta->reject();
        }
    };
}

void Dialoghi::stampa(const QString &dove)
{
    m_attese += [=, this](QDialog *dialogo) {
        auto *stampanti = dialogo->findChild<QComboBox *>(u"printers"_s);
        if (!qobject_cast<QPrintDialog *>(dialogo) || !stampanti || dove.isEmpty()) {
            if (!stampanti)
                m_guasti += u"atteso un dialogo di stampa, venuto «%1»"_s.arg(dialogo->windowTitle());
            dialogo->reject();
            return;
        }
        // The PDF file is the last one.
        const bool file = dove.startsWith(u'/');
        stampanti->setCurrentIndex(file ? stampanti->count() - 1 : stampanti->findText(dove));
        if (file)
            dialogo->findChild<QLineEdit *>(u"filename"_s)->setText(dove);
        dialogo->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        if (dialogo->isVisible()) {
            m_guasti += u"il dialogo di stampa non accetta «%1»"_s.arg(dove);
            dialogo->reject();
        }
    };
}

void Dialoghi::fogliDaStampare(QMessageBox::StandardButton pulsante, const std::function<void()> &prima)
{
    m_attese += [=, this](QDialog *dialogo) {
        auto *box = qobject_cast<QMessageBox *>(dialogo);
        static const QRegularExpression domanda(
            u"^La stampa utilizzerà ([0-9]+) pagine di carta\\. Procedo con la stampa\\?$"_s);
        const QRegularExpressionMatch trovata = domanda.match(box ? box->text() : QString());
        if (!box || !trovata.hasMatch() || box->windowTitle() != "Attenzione!"_L1 ||
            box->icon() != QMessageBox::NoIcon || box->standardButtons() != (QMessageBox::Yes | QMessageBox::No)) {
            m_guasti += u"attesa la domanda sui fogli, venuto «%1» «%2»"_s.arg(dialogo->windowTitle(),
                                                                               box ? box->text() : QString());
            dialogo->reject();
            return;
        }
        fogli = trovata.captured(1).toInt();
        if (prima)
            prima();
        box->button(pulsante)->click();
    };
}

void Dialoghi::font(const std::optional<QFont> &scelto)
{
    m_attese += [=, this](QDialog *dialogo) {
        auto *scelta = qobject_cast<QFontDialog *>(dialogo);
        if (!scelta) {
            m_guasti += u"atteso il dialogo dei font, venuto «%1»"_s.arg(dialogo->windowTitle());
            dialogo->reject();
            return;
        }
        scelta->setCurrentFont(scelto.value_or(QFont(u"DejaVu Sans Mono"_s)));
        const auto pulsante = scelto ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel;
        scelta->findChild<QDialogButtonBox *>()->button(pulsante)->click();
    };
}

bool Dialoghi::verifica()
{
    for (qsizetype i = 0; i < m_attese.size(); ++i)
        m_guasti += u"un dialogo atteso non è venuto"_s;
    m_attese.clear();
    m_visti.clear();
    const bool bene = m_guasti.isEmpty();
    if (!bene)
        qWarning("%s", qPrintable(guasti()));
    m_guasti.clear();
    return bene;
}

void Dialoghi::Guarda()
{
    auto *dialogo = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialogo || m_visti.contains(dialogo))
        return;
    m_visti.removeIf([](const QPointer<QDialog> &visto) { return !visto || !visto->isVisible(); });
    m_visti += dialogo;
    if (m_attese.isEmpty()) {
        const auto *box = qobject_cast<QMessageBox *>(dialogo);
        m_guasti += u"dialogo inatteso «%1» «%2»"_s.arg(dialogo->windowTitle(), box ? box->text() : QString());
        dialogo->reject();
        return;
    }
    // Outside the timer's own slot, which does not fire again while a nested dialog runs inside it.
    QTimer::singleShot(0, dialogo, [risposta = m_attese.takeFirst(), dialogo] { risposta(dialogo); });
}
