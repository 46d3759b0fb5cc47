// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/ManualeForm1.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "ui_ManualeForm1.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

ManualeForm1::ManualeForm1() : ui(std::make_unique<Ui::ManualeForm1>())
{
    ui->setupUi(this);
    ImpostaFontSize(this);
    setAttribute(Qt::WA_DeleteOnClose);
    // The program ends with its main window.
    setAttribute(Qt::WA_QuitOnClose, false);
    for (const PaginaManuale &pagina : ui->txtPagina->Pagine())
        ui->lstPagine->addItem(pagina.titolo);
    Disponi();
    Collega(ui->lstPagine, &QListWidget::currentRowChanged, this,
            [this](int riga) { ui->txtPagina->MostraPagina(riga); });
    Collega(ui->txtPagina, &QTextBrowser::sourceChanged, this, [this] {
        const QSignalBlocker ferma(ui->lstPagine);
        ui->lstPagine->setCurrentRow(static_cast<int>(ui->txtPagina->Pagina()));
    });
    Collega(ui->txtPagina, &QTextBrowser::backwardAvailable, ui->cmdIndietro,
            [this](bool indietro) { ui->cmdIndietro->setEnabled(indietro); });
    Collega(ui->cmdIndietro, &QPushButton::clicked, this, [this] { ui->txtPagina->backward(); });
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
    Collega(ui->txtCerca, &QLineEdit::textChanged, this, [this] { ui->lblEsito->clear(); });
    Tasti();
}

ManualeForm1::~ManualeForm1() = default;

void ManualeForm1::Disponi()
{
    const int lista = ui->lstPagine->sizeHintForColumn(0) + ui->lstPagine->verticalScrollBar()->sizeHint().width() +
                      2 * ui->lstPagine->frameWidth();
    const int carattere = fontMetrics().averageCharWidth();
    constexpr int larghezzaTesto = 78;
    constexpr int righe = 38;
    resize(QSize(lista + larghezzaTesto * carattere, righe * fontMetrics().lineSpacing())
               .boundedTo(screen()->availableSize() * 0.9));
    // The text has the greater part also on a small screen, where long titles take two lines.
    constexpr int parti = 3;
    constexpr int parola = 15;
    ui->lstPagine->setMinimumWidth(std::min({lista, parola * carattere, width() * 2 / 5}));
    const int sinistra = std::clamp(width() / parti, ui->lstPagine->minimumWidth(), lista);
    ui->divisore->setSizes({sinistra, width() - sinistra});
    ui->divisore->setStretchFactor(1, 1);
}

void ManualeForm1::Tasti()
{
    const auto tasto = [this](const QKeySequence &sequenza, const auto &comando) {
        Collega(new QShortcut(sequenza, this), &QShortcut::activated, this, comando);
    };
    tasto(QKeySequence::Find, [this] {
        ui->txtCerca->setFocus(Qt::ShortcutFocusReason);
        ui->txtCerca->selectAll();
    });
    tasto(Qt::Key_F3, [this] { Cerca(); });
    tasto(QKeySequence::ZoomIn, [this] { ui->txtPagina->zoomIn(); });
    tasto(QKeySequence::ZoomOut, [this] { ui->txtPagina->zoomOut(); });
    tasto(Qt::Key_F1, [this] { Mostra({objectName()}); });
}

void ManualeForm1::Mostra(const QStringList &finestre)
{
    // Before it is seen, so that the window system learns it too.
    if (!isVisible())
        create();
    SegueDialogo();
    ui->txtPagina->MostraPagina(PaginaDi(ui->txtPagina->Pagine(), finestre));
    isMinimized() ? showNormal() : show();
    raise();
    activateWindow();
    ui->txtPagina->setFocus();
}

void ManualeForm1::Cerca()
{
    const bool trovato = ui->txtPagina->Cerca(ui->txtCerca->text());
    ui->lblEsito->setText(trovato || ui->txtCerca->text().isEmpty() ? QString() : u"Non trovato"_s);
}

void ManualeForm1::SegueDialogo()
{
    // Only what belongs to a modal dialog can be used beside it; when the dialog goes, the window belongs to none.
    const QWidget *dialogo = QApplication::activeModalWidget();
    if (windowHandle())
        windowHandle()->setTransientParent(dialogo ? dialogo->windowHandle() : nullptr);
}

bool ManualeForm1::event(QEvent *evento)
{
    if (evento->type() == QEvent::WindowBlocked)
        QMetaObject::invokeMethod(this, &ManualeForm1::SegueDialogo, Qt::QueuedConnection);
    return QWidget::event(evento);
}

void ManualeForm1::keyPressEvent(QKeyEvent *evento)
{
    if (evento->key() == Qt::Key_Escape)
        close();
    else if ((evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) && ui->txtCerca->hasFocus())
        Cerca();
    else
        QWidget::keyPressEvent(evento);
}
