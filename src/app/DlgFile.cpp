// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DlgFile.h"

#include "app/Protezione.h"
#include "core/Percorsi.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
// "description|pattern" in the toolkit's form, "description (pattern)".
QString FiltroQt(const QString &filtro)
{
    const QStringList parti = filtro.split(u'|');
    // "All" includes the names without a dot.
    const auto modello = [](const QString &parte) { return parte == u"*.*"_s ? u"*"_s : parte; };
    return parti.size() < 2 ? filtro : parti[0] + u" ("_s + modello(parti[1].trimmed()) + u')';
}
} // namespace

bool MostraDlgFile(QWidget *genitore, DlgFile &dlg, Scelta scelta)
{
    const bool salva = scelta == Scelta::Salva || scelta == Scelta::SalvaEsistente;
    QString cartella = dlg.cartella;
    if (!QFileInfo(cartella).isDir())
        cartella = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo(cartella).isDir())
        cartella = QDir::homePath();

    QFileDialog dialogo(genitore, dlg.titolo, cartella, FiltroQt(dlg.filtro));
    dialogo.setObjectName("DlgFile"_L1);
    dialogo.setAcceptMode(salva ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialogo.setFileMode(scelta == Scelta::Apri ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // Asked below, about the name that the suffix has completed: a native dialog may know only what was typed.
    dialogo.setOption(QFileDialog::DontConfirmOverwrite);
    // Native dialogs that open take only what exists.
    dialogo.setOption(QFileDialog::DontUseNativeDialog, scelta == Scelta::ApriAncheNuovo);
    dialogo.setDefaultSuffix(dlg.estensione.startsWith(u'.') ? dlg.estensione.sliced(1) : dlg.estensione);
    if (!dlg.nomeFile.isEmpty())
        dialogo.selectFile(dlg.nomeFile);
    while (dialogo.exec() == QDialog::Accepted && !dialogo.selectedFiles().isEmpty()) {
        QString scelto = PercorsoAssoluto(dialogo.selectedFiles().constFirst());
        // Native dialogs do not all add the suffix to a new name.
        if (scelta != Scelta::Apri && QFileInfo(scelto).suffix().isEmpty() && !QFileInfo::exists(scelto))
            scelto += dlg.estensione;
        if (scelta == Scelta::Salva && QFileInfo::exists(scelto) &&
            Messaggio(genitore, QMessageBox::Warning, dlg.titolo,
                      u"Il file "_s + scelto + u" esiste già. Sostituirlo?"_s,
                      QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
            continue;
        dlg.nomeFile = scelto;
        return !scelto.isEmpty();
    }
    return false;
}

bool MostraDlgFont(QWidget *genitore, DlgFile &dlg)
{
    QFontDialog dialogo(dlg.font, genitore);
    dialogo.setObjectName("DlgFile"_L1);
    dialogo.setWindowTitle(u"Seleziona il font"_s);
    if (dialogo.exec() != QDialog::Accepted)
        return false;
    dlg.font = dialogo.selectedFont();
    return true;
}
