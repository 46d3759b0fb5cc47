// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DlgFile.h"

#include "core/Percorsi.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
// "description|pattern" in the toolkit's form, "description (pattern)".
QString FiltroQt(const QString &filtro)
{
    const QStringList parti = filtro.split(u'|');
    return parti.size() < 2 ? filtro : parti[0] + u" ("_s + parti[1].trimmed() + u')';
}
} // namespace

bool MostraDlgFile(QWidget *genitore, DlgFile &dlg, Scelta scelta)
{
    const bool salva = scelta == Scelta::Salva || scelta == Scelta::SalvaEsistente;
    QString cartella = dlg.cartella;
    if (!QFileInfo(cartella).isDir())
        cartella = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);

    QFileDialog dialogo(genitore, dlg.titolo, cartella, FiltroQt(dlg.filtro));
    dialogo.setObjectName("DlgFile"_L1);
    dialogo.setAcceptMode(salva ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialogo.setFileMode(scelta == Scelta::Apri ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialogo.setOption(QFileDialog::DontConfirmOverwrite, scelta != Scelta::Salva);
    dialogo.setDefaultSuffix(dlg.estensione.startsWith(u'.') ? dlg.estensione.sliced(1) : dlg.estensione);
    if (!dlg.nomeFile.isEmpty())
        dialogo.selectFile(dlg.nomeFile);
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty())
        return false;
    QString scelto = PercorsoAssoluto(dialogo.selectedFiles().constFirst());
    // Native dialogs do not all add the suffix to a new name.
    if (scelta != Scelta::Apri && QFileInfo(scelto).suffix().isEmpty() && !QFileInfo::exists(scelto))
        scelto += dlg.estensione;
    dlg.nomeFile = scelto;
    return !scelto.isEmpty();
}
