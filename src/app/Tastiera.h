// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <memory>

/// One system's way to its keyboard layouts.
class MezzoTastiera
{
public:
    MezzoTastiera() = default;
    virtual ~MezzoTastiera() = default;
    Q_DISABLE_COPY_MOVE(MezzoTastiera)

    /// Makes the layout of an eight-hexadecimal-digit name the active one; false when it cannot. What the user had is
    /// kept at the first change.
    virtual bool Carica(const QString &nome) = 0;

    /// Gives the user's own keyboard back, as it was; nothing when it was never changed.
    virtual void Restituisci() = 0;
};

/// The back end of this platform, nullptr where there is none.
std::unique_ptr<MezzoTastiera> CreaMezzoTastiera();

/// The keyboard that follows the field: the layout last asked for while the program is in front, the user's own
/// otherwise. The user's own comes back for good when this is deleted, and on SIGTERM, SIGINT and SIGHUP, which then
/// end the program.
class Tastiera : public QObject
{
    Q_OBJECT
public:
    explicit Tastiera(std::unique_ptr<MezzoTastiera> mezzo);
    ~Tastiera() override;

    /// Activates a layout; false when it cannot.
    bool Attiva(const QString &nome);

private:
    void StatoCambiato(Qt::ApplicationState stato);
    void AscoltaSegnali();

    std::unique_ptr<MezzoTastiera> m_mezzo;
    QString m_voluta;
};
