// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

/// How far a long command is, with a button that stops it where that is possible; shown once it takes more than half a
/// second. No other command can begin meanwhile.
class Attesa
{
public:
    enum Fermata { Interrompibile, FinoInFondo };

    Attesa(QWidget *genitore, const QString &titolo, Fermata fermata = Interrompibile);

    /// Tells what is done of the whole; false once the user wants to stop.
    bool Avanti(qint64 fatto, qint64 totale);

private:
    QProgressDialog m_dialogo;
    QElapsedTimer m_daInizio;
    qint64 m_ultimo = 0;
};
