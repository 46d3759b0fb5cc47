// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QIODevice>
#include <QString>

#include <functional>

/// What a file looks like from outside: another one means that somebody has written it. Size -1: there is none.
struct Impronta {
    QDateTime quando;
    qint64 dimensione = -1;

    bool operator==(const Impronta &) const = default;
};
Impronta ImprontaDi(const QString &percorso);

/// Whether a file stands there that is not as it was when it looked like `prima`.
bool CambiatoDa(const Impronta &prima, const QString &percorso);

/// Both paths lead to one file that exists, or are the same path.
bool StessoFile(const QString &a, const QString &b);

/// The file that symbolic links lead to, also when it does not exist; any other path as it is.
QString SenzaLegami(const QString &percorso);

/// Writes a file in place: deletes the one that is there (a failure to delete is no error), then opens, writes with
/// `scrivi`, flushes to the disk, checks the size on it and closes; its folder is flushed too. A symbolic link stays
/// one: the file it leads to is written, and keeps its permissions. ErroreRuntime 57, 61 or 75 with the reason.
void ScriviInPosto(const QString &percorso, const std::function<void(QIODevice &)> &scrivi);

/// As above, with the bytes themselves.
void ScriviInPosto(const QString &percorso, const QByteArray &byte);

/// Writes a file beside its place and then puts it there in one step, so that the old one or the new one stands there
/// whole at any time; for its owner's eyes alone with `privato`. ErroreRuntime as above; the old one then stands.
void ScriviIntero(const QString &percorso, const std::function<void(QIODevice &)> &scrivi, bool privato = false);

/// The bytes of a whole file. ErroreRuntime 53 when there is none, 57, 70 or 75 with the reason when it cannot be read.
QByteArray LeggiTutto(const QString &percorso);

/// Writes all of `byte` or throws ErroreRuntime 57 with the device's reason.
void ScriviTutto(QIODevice &dispositivo, QByteArrayView byte);

/// Throws the ErroreRuntime for a file that could not be opened: 53 when it does not exist, else 70 or 75.
[[noreturn]] void ErroreApertura(const QString &percorso, const QString &motivo);
