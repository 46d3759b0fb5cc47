// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/OpzioniForm1.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/Numeri.h"
#include "settings/CasellaNumero.h"
#include "ui_OpzioniForm1.h"

#include <QFileInfo>
#include <QFileSystemModel>
#include <QScrollBar>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
constexpr int MinimaDimensione = 5;
constexpr int MassimaDimensione = 20;
} // namespace

OpzioniForm1::OpzioniForm1(QWidget *genitore)
    : FinestraFiglia(genitore), ui(std::make_unique<Ui::OpzioniForm1>()), m_cartelle(new QFileSystemModel(this))
{
    ui->setupUi(this);
    Carica();
    MostraCartella();
    MostraDimensione();
    SegueDizionario();
    InvioPreme(this, ui->cmdOk);
    Collega(ui->cmdOk, &QPushButton::clicked, this, [this] { Ok(); });
    ui->txtDimensione->setFocus();
    QMetaObject::invokeMethod(ui->txtDimensione, &QLineEdit::selectAll, Qt::QueuedConnection);
}

OpzioniForm1::~OpzioniForm1() = default;

void OpzioniForm1::MostraDimensione()
{
    PreparaNumero(this, ui->txtDimensione, ui->Command1, ui->Command2, MinimaDimensione, MassimaDimensione);
    // Room for the largest size that the buttons give; one that is typed may be larger.
    QFont font = ui->lblFont->font();
    font.setPointSize(MassimaDimensione);
    ui->lblFont->setFont(font);
    const QSize posto = ui->lblFont->sizeHint();
    ui->lblFont->setMinimumWidth(posto.width());
    ui->lblFont->setFixedHeight(posto.height());
    Collega(ui->txtDimensione, &QLineEdit::textChanged, this, [this] {
        if (const std::optional<double> punti = NumeroOVuota(ui->txtDimensione)) {
            constexpr double massimo = 200;
            QFont provata = ui->lblFont->font();
            provata.setPointSizeF(std::clamp(*punti, 1.0, massimo));
            ui->lblFont->setFont(provata);
        }
    });
    ui->txtDimensione->setText(QString::number(stato().DimensioneFont));
}

void OpzioniForm1::MostraCartella()
{
    m_cartelle->setFilter(QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot);
    m_cartelle->setOption(QFileSystemModel::DontUseCustomDirectoryIcons);
    m_cartelle->setRootPath(QString());
    ui->DirLavoro->setModel(m_cartelle);
    for (int colonna = 1; colonna < m_cartelle->columnCount(); ++colonna)
        ui->DirLavoro->hideColumn(colonna);
    ui->DirLavoro->header()->setStretchLastSection(false);
    ui->DirLavoro->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    const QString &cartella = servizi().dlgFile.cartella;
    if (!QFileInfo(cartella).isDir())
        return;
    const QPersistentModelIndex sua = m_cartelle->index(cartella);
    const auto mostra = [this, sua] {
        if (ui->DirLavoro->currentIndex() != sua)
            return;
        ui->DirLavoro->scrollTo(sua, QAbstractItemView::PositionAtCenter);
        ui->DirLavoro->horizontalScrollBar()->setValue(0);
    };
    ui->DirLavoro->setCurrentIndex(sua);
    mostra();
    // Its neighbours come later, each time pushing it away, until the user looks elsewhere.
    Collega(m_cartelle, &QAbstractItemModel::layoutChanged, this, mostra);
    const auto lascia = [this] { disconnect(m_cartelle, &QAbstractItemModel::layoutChanged, this, nullptr); };
    Collega(ui->DirLavoro, &QTreeView::expanded, this, lascia);
    Collega(ui->DirLavoro, &QTreeView::collapsed, this, lascia);
}

void OpzioniForm1::SegueDizionario()
{
    const bool aperto = stato().DizionarioAperto;
    ui->chkBeep->setEnabled(aperto);
    ui->chkBeep->setChecked(aperto && stato().impostazioni.Beep != 0);
}

void OpzioniForm1::Ok()
{
    Module1::Stato &s = stato();
    // A working folder that is gone stays as it is; the focus alone makes a folder current, but does not select it.
    const QModelIndex cartella = ui->DirLavoro->currentIndex();
    if (ui->DirLavoro->selectionModel()->isSelected(cartella))
        servizi().dlgFile.cartella = m_cartelle->filePath(cartella);
    try {
        s.DimensioneFont = LeggiIntero(ui->txtDimensione->text(), std::numeric_limits<qint16>::min(),
                                       std::numeric_limits<qint16>::max());
    } catch (ErroreRuntime &errore) {
        errore.termina = true;
        throw;
    }
    const bool suona = ui->chkBeep->isChecked();
    if (s.DizionarioAperto && suona != (s.impostazioni.Beep != 0)) {
        s.impostazioni.Beep = suona ? 1 : 0;
        SegnaModificato();
    }
    emit opzioniCambiate();
    Scarica();
}
