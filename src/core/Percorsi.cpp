// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Percorsi.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
QString TagliaE(const QString &percorso, qsizetype punto)
{
    return (punto < 0 ? percorso : percorso.first(punto)) + u".ini"_s;
}
} // namespace

QString PercorsoAssoluto(const QString &percorso)
{
    return percorso.isEmpty() ? percorso : QDir::cleanPath(QFileInfo(percorso).absoluteFilePath());
}

QString PercorsoIniScritto(const QString &dizionario)
{
    return TagliaE(dizionario, dizionario.indexOf(u'.'));
}

QString PercorsoIniAccanto(const QString &dizionario)
{
    return TagliaE(dizionario, dizionario.lastIndexOf(u'.'));
}

QString PercorsoIniLetto(const QString &dizionario)
{
    QString scritto = PercorsoIniScritto(dizionario);
    return QFileInfo::exists(scritto) ? scritto : PercorsoIniAccanto(dizionario);
}

QString CartellaProgramma(const QString &cartellaEseguibile, const QString &cartellaDati)
{
    const QDir forniti(cartellaEseguibile + u"/../share/varbel"_s);
    if (QFileInfo::exists(cartellaEseguibile + u"/varbel.ini"_s) || !forniti.exists(u"varbel.ini"_s))
        return cartellaEseguibile;
    QDir().mkpath(cartellaDati);
    const QDir dati(cartellaDati);
    for (const QString &nome : {u"varbel.ini"_s, u"Trffc10a.ico"_s, u"Intl_no.bmp"_s}) {
        // Shipped files may be read-only; the copy is the user's to rewrite.
        if (!dati.exists(nome) && QFile::copy(forniti.filePath(nome), dati.filePath(nome)))
            QFile::setPermissions(dati.filePath(nome), QFile::ReadOwner | QFile::WriteOwner);
    }
    return cartellaDati;
}
