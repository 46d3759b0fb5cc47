// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <random>

/// Uniform fractions x of 24 bits, 0 <= x < 1, from one seeded sequence.
struct Caso {
    explicit Caso(quint32 seme) : generatore(seme) {}
    double operator()() { return static_cast<double>(generatore() >> 8U) / (1U << 24U); }

    std::mt19937 generatore;
};

/// The exercise, one for the program's life.
struct StatoEsercizio {
    /// Questions at random; else a complete review in the dictionary's order.
    bool OrdineCasuale = false;
    /// The word of language 2 is shown and that of language 1 expected.
    bool InvertiLingue = false;
    QString commentoDomanda;
    QString parolaDomanda;
    QString rispostaAttesa;
    QString commentoRisposta;
    /// The row last drawn at random from the dictionary, 0 before the first draw.
    qint32 voce = 0;
    /// A question is shown and not yet judged.
    bool attende = false;
    qint32 domande = 0;
    qint16 giuste = 0;
    qint32 posizioneRipasso = 0;
};

namespace Esercizio
{
StatoEsercizio &stato();

/// A source of fractions x, 0 <= x < 1.
using Sorte = std::function<double()>;

/// What a window's load begins anew: the counts, the row drawn, a question awaited.
void Comincia();

/// Draws the next question into the fields. At the end of a review `ricominciare` is asked; when it answers false the
/// review position is 0 and the result false: the exercise is over. ErroreRuntime 53, which ends the program, when a
/// random draw cannot open the dictionary's file.
bool NuovaDomanda(const Sorte &sorte, const std::function<bool()> &ricominciare);

/// Judges an answer, exactly, and updates the counts and the error list. ErroreRuntime 6, which ends the program, when
/// the right count passes 16 bits.
bool ControllaRisposta(const QString &risposta);

/// "right su asked".
QString Riepilogo();

QString VoceCasuale(const Sorte &sorte);

/// The stored line of row r, "@@@@" past the last.
QString LeggiRiga(qint32 r);

/// A key of the error list, empty while it holds fewer than three or when an emptied slot is drawn.
QString VoceSbagliata(const Sorte &sorte);

void AggiungiErrore(const QString &chiave);
void TogliErrore(const QString &chiave);
} // namespace Esercizio
