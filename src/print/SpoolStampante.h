// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Avanzamento.h"
#include "print/Spool.h"

#include <QFont>

#include <vector>

class QPainter;
class QPrinter;

/// A document recorded as texts and their places, measured for a printer, which hears of it only when it is sent.
class SpoolStampante : public Spool
{
public:
    explicit SpoolStampante(QPrinter &stampante);

    [[nodiscard]] qint32 Larghezza() const override;
    [[nodiscard]] qint32 Altezza() const override;
    void ImpostaFont(const QString &nome, int punti) override;
    void Stampa(QStringView testo) override;
    [[nodiscard]] bool Entra() const override;
    void NuovaPagina() override;
    void Fine() override;
    void Scarta() override;

    /// Told of each sheet that is sent; a job that is on its way cannot be stopped.
    Avanzamento avanti;

private:
    struct FontMisurato {
        QString nome;
        int punti;
        QFont font;
        float altezza;
        float ascesa;
    };
    struct Pezzo {
        float x;
        float y;
        quint32 font;
        qint32 lunghezza;
    };
    /// The texts stand one after the other in `testo`.
    struct Pagina {
        QString testo;
        std::vector<Pezzo> pezzi;
    };

    void Disegna(QPainter &pittore, const Pagina &pagina) const;
    [[nodiscard]] float InTwip(double punti) const;

    QPrinter &m_stampante;
    float m_altezzaUtile;
    std::vector<FontMisurato> m_font;
    std::size_t m_fontCorrente = 0;
    std::vector<Pagina> m_pagine{1};
};
