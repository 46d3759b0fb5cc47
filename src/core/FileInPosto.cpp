// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileInPosto.h"

#include "core/ErroreRuntime.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace
{
bool SvuotaSulDisco(QFileDevice &file)
{
    if (!file.flush())
        return false;
#ifdef Q_OS_WIN
    return _commit(file.handle()) == 0;
#else
    // Not every file system can do it; what cannot be flushed further is not a failed write.
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
#endif
}

// The names in a folder outlive a power cut only once it is flushed itself. What cannot be flushed stops nothing: the
// file's own bytes are on the disk.
void SvuotaCartella(const QString &file)
{
#ifndef Q_OS_WIN
    const int cartella = open(QFile::encodeName(QFileInfo(file).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
    if (cartella < 0)
        return;
    static_cast<void>(fsync(cartella));
    static_cast<void>(close(cartella));
#else
    static_cast<void>(file);
#endif
}

QString NonIntero()
{
    return QStringLiteral("Il file non è stato scritto per intero.");
}

ErroreRuntime ErroreScrittura(const QFileDevice &file)
{
    if (file.error() == QFileDevice::NoError)
        return ErroreRuntime(57, NonIntero());
    const bool pieno = file.error() == QFileDevice::ResourceError;
    return ErroreRuntime(pieno ? 61 : 57, file.errorString());
}
} // namespace

Impronta ImprontaDi(const QString &percorso)
{
    const QFileInfo info(percorso);
    return info.isFile() ? Impronta{.quando = info.lastModified(), .dimensione = info.size()} : Impronta();
}

bool CambiatoDa(const Impronta &prima, const QString &percorso)
{
    const Impronta adesso = ImprontaDi(percorso);
    return adesso.dimensione >= 0 && adesso != prima;
}

void ErroreApertura(const QString &percorso, const QString &motivo)
{
    const QFileInfo info(percorso);
    if (!info.exists())
        throw ErroreRuntime(53, motivo);
    throw ErroreRuntime(info.isFile() ? 70 : 75, motivo);
}

void ScriviTutto(QIODevice &dispositivo, QByteArrayView byte)
{
    // A device that takes only a part says why at the next attempt.
    while (!byte.isEmpty()) {
        const qint64 scritti = dispositivo.write(byte.data(), byte.size());
        if (scritti <= 0) {
            const auto *file = qobject_cast<QFileDevice *>(&dispositivo);
            throw file ? ErroreScrittura(*file) : ErroreRuntime(57, dispositivo.errorString());
        }
        byte = byte.sliced(scritti);
    }
}

bool StessoFile(const QString &a, const QString &b)
{
    return a == b || (QFileInfo::exists(a) && QFileInfo(a) == QFileInfo(b));
}

QString SenzaLegami(const QString &percorso)
{
    QFileInfo info(percorso);
    constexpr int massimoLegami = 40;
    for (int i = 0; i < massimoLegami && info.isSymbolicLink(); ++i)
        info.setFile(info.symLinkTarget());
    return info.filePath();
}

void ScriviInPosto(const QString &percorso, const std::function<void(QIODevice &)> &scrivi)
{
    const QString vero = SenzaLegami(percorso);
    const QFileInfo vecchio(vero);
    const QFileDevice::Permissions diritti = vecchio.isFile() ? vecchio.permissions() : QFileDevice::Permissions();
    QFile::remove(vero);
    QFile file(vero);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        throw ErroreRuntime(75, file.errorString());
    // A list that was its owner's alone stays so; some file systems have no owners.
    if (diritti)
        static_cast<void>(file.setPermissions(diritti | QFileDevice::WriteOwner));
    scrivi(file);
    const qint64 attesi = file.pos();
    if (!SvuotaSulDisco(file))
        throw ErroreRuntime(57, qt_error_string());
    file.close();
    if (file.error() != QFileDevice::NoError)
        throw ErroreScrittura(file);
    if (QFileInfo(vero).size() != attesi)
        throw ErroreRuntime(57, NonIntero());
    SvuotaCartella(vero);
}

void ScriviInPosto(const QString &percorso, const QByteArray &byte)
{
    ScriviInPosto(percorso, [&byte](QIODevice &file) { ScriviTutto(file, byte); });
}

void ScriviIntero(const QString &percorso, const std::function<void(QIODevice &)> &scrivi, bool privato)
{
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly))
        throw ErroreRuntime(75, file.errorString());
    // Some file systems have no owners.
    if (privato)
        static_cast<void>(file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    scrivi(file);
    const qint64 attesi = file.pos();
    // The commit by itself would take a file cut short for a whole one.
    if (!file.flush() || file.error() != QFileDevice::NoError || file.size() != attesi)
        throw ErroreScrittura(file);
    // Nor does it say that the disk did not take it.
    if (!SvuotaSulDisco(file))
        throw ErroreRuntime(57, qt_error_string());
    if (!file.commit())
        throw ErroreScrittura(file);
    SvuotaCartella(percorso);
}

QByteArray LeggiTutto(const QString &percorso)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        ErroreApertura(percorso, file.errorString());
    QByteArray byte = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw ErroreRuntime(57, file.errorString());
    return byte;
}
