// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

/// A document that is composed sheet by sheet and kept until it is sent or discarded. Lengths are twips; positions
/// count from the corner of what can be printed on, where every sheet begins.
class Spool
{
public:
    Spool() = default;
    virtual ~Spool() = default;
    Q_DISABLE_COPY_MOVE(Spool)

    /// The measures of the whole sheet, margins included.
    [[nodiscard]] virtual qint32 Larghezza() const = 0;
    [[nodiscard]] virtual qint32 Altezza() const = 0;

    /// The font of what is printed next; a substitute stands for one that is not installed.
    virtual void ImpostaFont(const QString &nome, int punti) = 0;

    /// Prints a text at the current position and ends the line: back to the left, down by the font's line height.
    virtual void Stampa(QStringView testo) = 0;

    /// The sheet has room for a line of the font at the current height.
    [[nodiscard]] virtual bool Entra() const = 0;

    virtual void NuovaPagina() = 0;

    /// Sends the document. ErroreRuntime 57 when it did not get there whole.
    virtual void Fine() = 0;

    /// Drops the document: nothing of it is sent.
    virtual void Scarta() = 0;

    float CurrentX = 0;
    float CurrentY = 0;
};
