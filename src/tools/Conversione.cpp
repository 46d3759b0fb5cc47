// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Conversione.h"

#include "core/ErroreRuntime.h"
#include "core/FileInPosto.h"
#include "core/Riga.h"
#include "core/Testo8Bit.h"
#include "edit/Voci.h"

#include <QFile>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 DimensioneBlocco = 0x40000;
constexpr qsizetype MassimoEsempio = 10000;
constexpr qsizetype MassimoLinea = 0x2000000;
// What is looked at to tell the characters of a sample.
constexpr qint64 MassimoEsame = 0x4000000;
// Looking at the bytes takes about an eighth of the time that converting them does.
constexpr qint64 ParteEsame = 8;

QByteArray LeggiBlocco(QIODevice &dispositivo)
{
    QByteArray blocco(DimensioneBlocco, Qt::Uninitialized);
    const qint64 letti = dispositivo.read(blocco.data(), DimensioneBlocco);
    if (letti < 0)
        throw ErroreRuntime(57, dispositivo.errorString());
    blocco.truncate(letti);
    return blocco;
}

bool TuttoUtf8(QIODevice &dispositivo, const Avanzamento &avanti)
{
    QStringDecoder prova(QStringDecoder::Utf8);
    QString testo;
    for (QByteArray blocco = LeggiBlocco(dispositivo); !blocco.isEmpty(); blocco = LeggiBlocco(dispositivo)) {
        testo.resize(prova.requiredSpace(blocco.size()));
        prova.appendToBuffer(testo.data(), blocco);
        if (prova.hasError())
            return false;
        if (!avanti(dispositivo.pos(), dispositivo.size()))
            return true;
    }
    // A character cut off at the end shows only when another follows.
    static_cast<void>(QString(prova(QByteArrayView("\n"))));
    return !prova.hasError();
}

bool UnaCifra(const QString &testo)
{
    return testo.size() == 1 && testo[0] >= u'0' && testo[0] <= u'9';
}

// The number that a text begins with, 0 when none.
double Valore(const QString &testo)
{
    // No number is longer.
    constexpr qsizetype massimo = 400;
    QString numero = testo.left(massimo);
    numero.remove(u' ').remove(u'\t');
    // The toolkit would read "inf" and "nan".
    if (!numero.isEmpty() && numero[0].isLetter())
        return 0;
    for (; !numero.isEmpty(); numero.chop(1)) {
        bool letto = false;
        const double valore = numero.toDouble(&letto);
        if (letto)
            return valore;
    }
    return 0;
}

const QString &Segmento(const Segmenti &segmenti, const QString &numero)
{
    const double quale = Valore(numero);
    if (quale < 1 || quale > static_cast<double>(segmenti.size()))
        throw ErroreRuntime(9);
    return segmenti[static_cast<std::size_t>(quale) - 1];
}
} // namespace

int ContaSeparatori(const ImpostazioniConversione &impostazioni)
{
    return static_cast<int>(std::count_if(impostazioni.separatori.begin(), impostazioni.separatori.end(),
                                          [](const QString &separatore) { return !separatore.isEmpty(); }));
}

std::optional<Rifiuto> ControllaCampi(const ImpostazioniConversione &impostazioni, int numeroSeparatori)
{
    const QString attenzione = u"Attenzione!"_s;
    const Rifiuto vuoti = {u"I campi Lingua1 e Lingua2 non possono essere vuoti!"_s, attenzione};
    const Rifiuto nonNumeri = {u"I campi devono contenere valori numerici! (il numero del segmento)"_s, attenzione};
    const ImpostazioniConversione &i = impostazioni;
    const auto oltre = [numeroSeparatori](const QString &campo) { return Valore(campo) > numeroSeparatori + 1; };

    if (i.separatori[0].isEmpty())
        return Rifiuto{u"Bisogna specificare almeno un separatore (= 2 campi)!"_s, u"Attenzione"_s};
    if (i.lingua1.isEmpty() || i.lingua2.isEmpty())
        return vuoti;
    if (oltre(i.lingua1) || oltre(i.lingua2))
        return Rifiuto{u"Il numero dei campi e quello dei separatori di campo non corrispondono!"_s, attenzione};
    if (!UnaCifra(i.lingua1) || !UnaCifra(i.lingua2))
        return nonNumeri;
    for (const QString &commento : {i.commento1, i.commento2}) {
        if (commento.isEmpty())
            continue;
        if (!UnaCifra(commento))
            return nonNumeri;
        // The same words for another fault: so it is meant.
        if (oltre(commento))
            return vuoti;
    }
    if (i.lingua1 == i.lingua2 || i.lingua1 == i.commento1 || i.lingua1 == i.commento2 || i.lingua2 == i.commento1 ||
        i.lingua2 == i.commento2 || (!i.commento1.isEmpty() && i.commento1 == i.commento2))
        return Rifiuto{u"Non si possono assegnare due campi allo stesso segmento!"_s, attenzione};
    return std::nullopt;
}

QString EstraiSegmento(const QString &linea, qsizetype &posizione, const QString &separatore)
{
    // A separator that ends the line ends no segment: so it is meant.
    const qsizetype trovato =
        QStringView(linea).chopped(qMin<qsizetype>(1, linea.size())).indexOf(separatore, posizione);
    if (trovato < 0 || posizione > linea.size())
        return {};
    QString segmento = linea.sliced(posizione, trovato - posizione);
    posizione = trovato + separatore.size();
    return segmento;
}

bool TagliaLinea(const QString &linea, const ImpostazioniConversione &impostazioni, int numeroSeparatori,
                 Segmenti &segmenti)
{
    qsizetype posizione = 0;
    std::size_t i = 0;
    for (; i < static_cast<std::size_t>(numeroSeparatori); ++i) {
        const QString &separatore = impostazioni.separatori[i];
        if (separatore.isEmpty())
            break;
        segmenti[i] = EstraiSegmento(linea, posizione, separatore);
        if (segmenti[i].isEmpty())
            return false;
    }
    segmenti[i] = linea.sliced(posizione);
    return true;
}

RigaTabella RigaDaSegmenti(const Segmenti &segmenti, const ImpostazioniConversione &impostazioni)
{
    const auto pulito = [&impostazioni](const QString &testo) {
        return impostazioni.trim ? SenzaSpazi(testo).toString() : testo;
    };
    const QString &parola1 = Segmento(segmenti, impostazioni.lingua1);
    const QString &parola2 = Segmento(segmenti, impostazioni.lingua2);
    QString linea;
    if (!impostazioni.commento1.isEmpty())
        linea = pulito(Segmento(segmenti, impostazioni.commento1));
    linea += u'@' + parola1 + u'@' + parola2 + u'@';
    // A comment 2 takes the place of all the rest: so it is meant.
    if (!impostazioni.commento2.isEmpty())
        linea = pulito(Segmento(segmenti, impostazioni.commento2)) + u'@';
    return {pulito(parola1), pulito(parola2), linea};
}

LettoreTesto::LettoreTesto(QIODevice &dispositivo, const Avanzamento &avanti) : m_dispositivo(dispositivo)
{
    if (TuttoUtf8(dispositivo, avanti))
        m_utf8.emplace(QStringDecoder::Utf8);
    if (!dispositivo.seek(0))
        throw ErroreRuntime(57, dispositivo.errorString());
}

bool LettoreTesto::Blocco()
{
    m_posto = 0;
    m_testo.clear();
    while (m_testo.isEmpty()) {
        const QByteArray byte = LeggiBlocco(m_dispositivo);
        if (byte.isEmpty())
            return false;
        if (m_utf8) {
            m_testo = (*m_utf8)(byte);
        } else {
            m_testo.resize(byte.size());
            std::transform(byte.begin(), byte.end(), m_testo.begin(),
                           [](char uno) { return QChar(Testo8Bit::Carattere(static_cast<quint8>(uno))); });
        }
        // A dictionary's line would end at it.
        m_testo.replace(QChar(0), u' ');
    }
    return true;
}

bool LettoreTesto::Leggi(QString &linea, qsizetype massimo)
{
    linea.resize(0);
    bool letto = false;
    for (;;) {
        if (m_posto >= m_testo.size() && !Blocco())
            return letto;
        if (std::exchange(m_dopoCr, false) && m_testo[m_posto] == u'\n') {
            ++m_posto;
            continue;
        }
        letto = true;
        const QStringView resto = QStringView(m_testo).sliced(m_posto);
        const auto fine = std::find_if(resto.begin(), resto.end(), [](QChar c) { return c == u'\r' || c == u'\n'; });
        const qsizetype quanti = qMin<qsizetype>(fine - resto.begin(), massimo - linea.size());
        linea.append(resto.first(quanti));
        m_posto += quanti;
        if (linea.size() == massimo)
            return true;
        if (fine != resto.end()) {
            m_dopoCr = *fine == u'\r';
            ++m_posto;
            return true;
        }
    }
}

QString PrimaLinea(const QString &percorso)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        ErroreApertura(percorso, file.errorString());
    QString linea;
    LettoreTesto(file, [](qint64 fatto, qint64) { return fatto < MassimoEsame; }).Leggi(linea, MassimoEsempio);
    return linea;
}

void ConvertiTesto(QIODevice &testo, const ImpostazioniConversione &impostazioni, const Avanzamento &avanti,
                   EsitoConversione &esito)
{
    const int separatori = ContaSeparatori(impostazioni);
    Segmenti segmenti;
    const qint64 esame = testo.size() / ParteEsame;
    const qint64 totale = testo.size() + esame;
    LettoreTesto lettore(testo, [&](qint64 fatto, qint64) {
        esito.annullata = !avanti(fatto / ParteEsame, totale);
        return !esito.annullata;
    });
    if (esito.annullata)
        return;
    QString linea;
    for (qint64 numero = 1; lettore.Leggi(linea, MassimoLinea); ++numero) {
        if (linea.size() == MassimoLinea)
            throw ErroreRuntime(14);
        if (!linea.isEmpty()) {
            if (TagliaLinea(linea, impostazioni, separatori, segmenti)) {
                const RigaTabella riga = RigaDaSegmenti(segmenti, impostazioni);
                AccodaRiga(riga, esito.voci == 0);
                ++esito.voci;
            } else {
                esito.errori += u"Riga %1: "_s.arg(numero) + linea;
            }
        }
        if (!avanti(esame + testo.pos(), totale)) {
            esito.annullata = true;
            return;
        }
    }
}

void ConvertiFile(const QString &percorso, const ImpostazioniConversione &impostazioni, const Avanzamento &avanti,
                  EsitoConversione &esito)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        ErroreApertura(percorso, file.errorString());
    ConvertiTesto(file, impostazioni, avanti, esito);
}
