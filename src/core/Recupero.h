// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileInPosto.h"
#include "core/Tabella.h"

#include <QByteArray>
#include <QDateTime>
#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// What a recovery copy holds: the entries of a dictionary that were not in its file, and its settings.
struct CopiaRecupero {
    /// Full path of the dictionary.
    QString percorso;
    /// The dictionary's file when it was last read or saved.
    Impronta dizionario;
    /// When the copy was made.
    QDateTime quando;
    /// The companion settings file as it would have been saved.
    QByteArray ini;
    /// The stored lines.
    QStringList voci;
};

/// Reads a copy: UTF-16 text, a few lines that say what it is, the settings, then one stored line an entry, each ended
/// by CR LF. ErroreRuntime 57 when the bytes are no such text.
CopiaRecupero LeggiCopia(const QByteArray &byte);

/// As above, from the file. ErroreRuntime 53, 57, 70 or 75 when it cannot be read.
CopiaRecupero LeggiFileCopia(const QString &file);

/// Keeps the recovery copy of a dictionary while it is open, in the user's state folder, and tells other programs that
/// it is open. What lies in the folder is for the owner's eyes alone.
class Recupero
{
public:
    /// Takes the first place for a copy of this dictionary that no living program keeps.
    explicit Recupero(QString percorso);

    [[nodiscard]] const QString &percorso() const { return m_percorso; }

    /// Full path of the copy; empty when no place is left.
    [[nodiscard]] const QString &file() const { return m_file; }

    /// A copy that cannot be read keeps its place: this one takes another.
    void Lascia(const QString &illeggibile);

    /// Another living program keeps a copy of this dictionary: it has it open.
    [[nodiscard]] bool ApertoAltrove() const { return m_altrove; }

    /// The copies of this dictionary that no living program keeps, full paths. None takes them while this one lives.
    [[nodiscard]] QStringList Trovate() const { return m_trovate; }

    /// The next copy written takes the place of this one found.
    void Sostituisce(const QString &trovata) { m_sostituita = trovata; }

    /// Replaces the copy, whole or not at all, by rows 0 to `ultima`. ErroreRuntime 57, 61 or 75 with the reason.
    void Scrivi(const Impronta &dizionario, const QByteArray &ini, const Tabella &tabella, qint32 ultima);

    /// Removes the copy.
    void Togli();

    /// The dictionaries that have a copy which no living program keeps, but no file any more.
    static QStringList SenzaFile();

private:
    QString m_percorso;
    void Prende(const QString &file);
    void CambiaPosto();

    QString m_file;
    std::unique_ptr<QLockFile> m_serratura;
    QStringList m_trovate;
    std::vector<std::unique_ptr<QLockFile>> m_serratureTrovate;
    QString m_sostituita;
    bool m_altrove = false;
};
