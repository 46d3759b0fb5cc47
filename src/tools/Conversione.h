// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/Tabella.h"
#include "tools/Unione.h"

#include <QString>
#include <QStringDecoder>
#include <QStringList>

#include <array>
#include <optional>

class QIODevice;

/// How the lines of a text file are cut into segments, and which segment is which field.
struct ImpostazioniConversione {
    static constexpr int MassimoSeparatori = 4;

    std::array<QString, MassimoSeparatori> separatori;
    /// Segment numbers, "1" for the text before the first separator; an empty comment is not taken from the file.
    QString lingua1;
    QString lingua2;
    QString commento1;
    QString commento2;
    /// The fields, but not the words of the stored line, lose the blanks around them.
    bool trim = false;
};

/// The segments of the line being cut; one that a line does not set keeps the value of the last line that did.
using Segmenti = std::array<QString, ImpostazioniConversione::MassimoSeparatori + 1>;

/// Separator boxes that are not empty.
int ContaSeparatori(const ImpostazioniConversione &impostazioni);

/// A refusal's text and title.
struct Rifiuto {
    QString testo;
    QString titolo;
};

/// What is wrong with the settings, the first fault found; nothing when a conversion can start.
std::optional<Rifiuto> ControllaCampi(const ImpostazioniConversione &impostazioni, int numeroSeparatori);

/// Cuts the next segment of a line: the text from `posizione` (from 0) to the next separator, past which the position
/// then stands. Empty, the position unchanged, when there is none; one that ends the line is not found.
QString EstraiSegmento(const QString &linea, qsizetype &posizione, const QString &separatore);

/// Cuts a line; false when a segment before a separator is missing or empty.
bool TagliaLinea(const QString &linea, const ImpostazioniConversione &impostazioni, int numeroSeparatori,
                 Segmenti &segmenti);

/// The row of a line that was cut. ErroreRuntime 9 for a segment number outside 1 to 5.
RigaTabella RigaDaSegmenti(const Segmenti &segmenti, const ImpostazioniConversione &impostazioni);

/// The lines of a text file, a part of it at a time: UTF-8 when all its bytes are valid UTF-8 (a leading mark dropped),
/// else the 8-bit code page; CR LF, LF and CR end a line, a NUL is read as a blank. ErroreRuntime 57 when reading
/// fails.
class LettoreTesto
{
public:
    /// Looks at all the bytes first, or at those before `avanti` says to stop.
    explicit LettoreTesto(QIODevice &dispositivo, const Avanzamento &avanti);

    /// The next line, of at most `massimo` characters: what is longer goes on in the next; false at the end.
    bool Leggi(QString &linea, qsizetype massimo);

private:
    bool Blocco();

    QIODevice &m_dispositivo;
    std::optional<QStringDecoder> m_utf8;
    QString m_testo;
    qsizetype m_posto = 0;
    bool m_dopoCr = false;
};

/// The first line of a text file, cut to what a sample box can show. ErroreRuntime 53, 57, 70 or 75.
QString PrimaLinea(const QString &percorso);

struct EsitoConversione {
    qint32 voci = 0;
    /// "Riga n: line" for each line that could not be cut.
    QStringList errori;
    bool annullata = false;
};

/// Appends an entry for each line of a text to the main table, empty lines skipped. What was appended before an error
/// stays and is counted in `esito`. ErroreRuntime 57 when the text cannot be read, 9 for a segment number outside 1 to
/// 5, 14 for a line longer than a text can be.
void ConvertiTesto(QIODevice &testo, const ImpostazioniConversione &impostazioni, const Avanzamento &avanti,
                   EsitoConversione &esito);

/// As above, opening the file. ErroreRuntime 53, 70 or 75 when it cannot be opened.
void ConvertiFile(const QString &percorso, const ImpostazioniConversione &impostazioni, const Avanzamento &avanti,
                  EsitoConversione &esito);
