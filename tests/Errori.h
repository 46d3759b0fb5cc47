// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ErroreRuntime.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <optional>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

/// The run-time error that a call ends in, none when it does not.
template <typename Chiamata>
std::optional<ErroreRuntime> ErroreDi(Chiamata &&chiamata)
{
    try {
        chiamata();
    } catch (const ErroreRuntime &errore) {
        return errore;
    }
    return std::nullopt;
}

/// Its number, 0 without one.
template <typename Chiamata>
int NumeroErrore(Chiamata &&chiamata)
{
    const auto errore = ErroreDi(chiamata);
    return errore ? errore->numero : 0;
}

inline QByteArray ByteDelFile(const QString &percorso)
{
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

// For every class of user: without root's rights a process can keep root's group.
constexpr QFile::Permissions Leggere = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
constexpr QFile::Permissions Scrivere = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
constexpr QFile::Permissions LeggereEntrare = Leggere | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;

/// Writes a file that everybody can read.
inline bool FaiFile(const QString &percorso, const QByteArray &byte)
{
    QFile file(percorso);
    return file.open(QIODevice::WriteOnly) && file.write(byte) == byte.size() && file.flush() &&
           file.setPermissions(Leggere | QFile::WriteOwner);
}

/// A device in memory that moves at most `tratto` bytes at a time and fails after `buoni` bytes.
class DispositivoGuasto : public QBuffer
{
public:
    DispositivoGuasto(const QByteArray &byte, OpenMode modo, qint64 quantiBuoni, qint64 quantiPerVolta = 1 << 30)
        : buoni(quantiBuoni), tratto(quantiPerVolta)
    {
        setData(byte);
        open(modo | Unbuffered);
    }

protected:
    qint64 readData(char *dati, qint64 quanti) override
    {
        return Conta(quanti, QBuffer::readData(dati, Muove(quanti)));
    }
    qint64 writeData(const char *dati, qint64 quanti) override
    {
        return Conta(quanti, QBuffer::writeData(dati, Muove(quanti)));
    }

private:
    [[nodiscard]] qint64 Muove(qint64 quanti) const { return std::min({quanti, buoni, tratto}); }
    qint64 Conta(qint64 quanti, qint64 mossi)
    {
        if (quanti > 0 && buoni == 0) {
            setErrorString(QStringLiteral("guasto"));
            return -1;
        }
        buoni -= mossi;
        return mossi;
    }

    qint64 buoni;
    qint64 tratto;
};

/// A temporary folder with two in it that stand for every user: `aperta` to write in, `chiusa` to read only.
struct CartellaProva : QTemporaryDir {
    const QString aperta = filePath(QStringLiteral("aperta"));
    const QString chiusa = filePath(QStringLiteral("chiusa"));

    CartellaProva() { QDir(path()).mkdir(aperta), QDir(path()).mkdir(chiusa); }
    ~CartellaProva() { Chiudi(false); }
    Q_DISABLE_COPY_MOVE(CartellaProva)

    /// Sets the rights; the read-only folder can be filled and removed while they are not set.
    void Chiudi(bool chiuso = true) const
    {
        QFile::setPermissions(path(), LeggereEntrare | QFile::WriteOwner);
        QFile::setPermissions(aperta, LeggereEntrare | Scrivere);
        QFile::setPermissions(chiusa, chiuso ? LeggereEntrare : LeggereEntrare | Scrivere);
    }
};

#ifdef Q_OS_UNIX
/// Gives up root's rights while it lives: nothing is read-only to root.
class SenzaPrivilegi
{
public:
    SenzaPrivilegi() : utente(geteuid()), riuscito(utente != 0 || seteuid(65534) == 0) {}
    ~SenzaPrivilegi()
    {
        if (geteuid() != utente && seteuid(utente) != 0)
            std::abort();
    }
    Q_DISABLE_COPY_MOVE(SenzaPrivilegi)

    const uid_t utente;
    const bool riuscito;
};

/// While it lives no file grows beyond `byte`, as on a full disk.
class DiscoPieno
{
public:
    explicit DiscoPieno(rlim_t byte) : segnale(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &prima);
        const rlimit stretto{byte, prima.rlim_max};
        setrlimit(RLIMIT_FSIZE, &stretto);
    }
    ~DiscoPieno()
    {
        setrlimit(RLIMIT_FSIZE, &prima);
        static_cast<void>(std::signal(SIGXFSZ, segnale));
    }
    Q_DISABLE_COPY_MOVE(DiscoPieno)

private:
    rlimit prima{};
    void (*segnale)(int);
};
#endif
