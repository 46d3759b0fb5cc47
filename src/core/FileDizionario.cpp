// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileDizionario.h"

#include "core/ErroreRuntime.h"
#include "core/FileInPosto.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <limits>

namespace
{
constexpr qsizetype DimensioneBlocco = 0x40000;
constexpr char16_t OrdineByte = 0xFEFF;

// False at the end of the file; a lone last byte is completed with a zero one.
bool LeggiBlocco(LettoreDizionario &lettore)
{
    lettore.blocco.resize(DimensioneBlocco);
    qint64 letti = 0;
    while (letti < DimensioneBlocco) {
        const qint64 ora = lettore.dispositivo.read(lettore.blocco.data() + letti, DimensioneBlocco - letti);
        if (ora < 0)
            throw ErroreRuntime(57, lettore.dispositivo.errorString());
        if (ora == 0)
            break;
        letti += ora;
    }
    lettore.blocco.resize(letti);
    if (letti % 2 != 0) {
        lettore.blocco.append('\0');
        lettore.fine = true;
    }
    lettore.posto = 0;
    return letti > 0;
}

// How many rows the file filled.
qint32 RiempiTabella(QIODevice &dispositivo, Tabella &tabella)
{
    // So many that no dictionary has them, and their rows would fill the memory.
    constexpr qint32 troppe = 5000000;
    LettoreDizionario lettore(dispositivo);
    ContaVuote vuote(troppe);
    qint32 righe = 0;
    for (QString linea; LeggiLinea(lettore, linea); ++righe) {
        vuote.Conta(linea, righe);
        if (righe == Capacita(tabella)) {
            if (righe > std::numeric_limits<qint32>::max() / 2)
                throw ErroreRuntime(6);
            Ridimensiona(tabella, std::max(righe * 2, 1));
        }
        // A copy as long as its text: the buffer that is read into is larger.
        RigaDi(tabella, righe) = RigaDaLinea(QStringView(linea).toString());
    }
    return righe;
}
} // namespace

LettoreDizionario::LettoreDizionario(QIODevice &dispositivo_)
    : dispositivo(dispositivo_), fine(dispositivo_.size() == 0)
{
}

bool LeggiLinea(LettoreDizionario &lettore, QString &linea)
{
    linea.resize(0);
    if (lettore.fine && lettore.posto >= lettore.blocco.size())
        return false;
    bool ritornoVisto = false;
    for (;;) {
        if (lettore.posto >= lettore.blocco.size() && (lettore.fine || !LeggiBlocco(lettore))) {
            lettore.fine = true;
            return true;
        }
        const char *const inizio = lettore.blocco.constData() + lettore.posto;
        const char *const oltre = lettore.blocco.constData() + lettore.blocco.size();
        const char *qui = inizio;
        // Runs of plain characters are appended at once.
        const auto aggiungi = [&] {
            const qsizetype quanti = (qui - inizio) / 2;
            const qsizetype prima = linea.size();
            linea.resize(prima + quanti);
            qFromLittleEndian<char16_t>(inizio, quanti, linea.data() + prima);
            lettore.posto += quanti * 2;
        };
        bool fineLinea = false;
        for (; qui != oltre; qui += 2) {
            const auto unita = qFromLittleEndian<char16_t>(qui);
            const auto basso = static_cast<quint8>(unita);
            if (basso == 13)
                ritornoVisto = true;
            fineLinea = unita == 0 || (ritornoVisto && basso == 10);
            if (fineLinea || unita == OrdineByte)
                break;
        }
        aggiungi();
        if (qui == oltre)
            continue;
        lettore.posto += 2;
        if (fineLinea)
            return true;
    }
}

bool LineaTenuta(QStringView linea)
{
    bool ritornoVisto = false;
    return std::none_of(linea.begin(), linea.end(), [&ritornoVisto](QChar c) {
        ritornoVisto = ritornoVisto || c.cell() == 13;
        return c.isNull() || c == QChar::ByteOrderMark || (ritornoVisto && c.cell() == 10);
    });
}

qint32 ContaSpezzate(const Tabella &tabella, qint32 ultima)
{
    const auto inizio = tabella.righe.cbegin();
    return static_cast<qint32>(std::count_if(inizio, inizio + std::clamp(ultima + 1, 0, Capacita(tabella) + 1),
                                             [](const RigaTabella &riga) { return !LineaTenuta(riga[2]); }));
}

void ContaVuote::Conta(const QString &linea, qint32 righe)
{
    m_vuote += linea.isEmpty() ? 1 : 0;
    if (m_vuote > m_molte && m_vuote > righe / 2)
        throw ErroreRuntime(57, QStringLiteral("Il file non è un dizionario."));
}

qint32 CaricaDizionario(QIODevice &dispositivo, Tabella &tabella)
{
    Svuota(tabella, Capacita(tabella));
    qint32 righe = 0;
    try {
        righe = RiempiTabella(dispositivo, tabella);
    } catch (...) {
        Svuota(tabella, Capacita(tabella));
        throw;
    }
    return righe > 0 ? righe - 1 : 0;
}

qint32 CaricaDizionario(const QString &percorso, Tabella &tabella)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        ErroreApertura(percorso, file.errorString());
    return CaricaDizionario(file, tabella);
}

void ScriviDizionario(QIODevice &dispositivo, const Tabella &tabella, qint32 ultima)
{
    QByteArray blocco;
    blocco.reserve(DimensioneBlocco);
    const auto aggiungi = [&blocco](QStringView testo) {
        const qsizetype prima = blocco.size();
        blocco.resize(prima + testo.size() * 2);
        qToLittleEndian<char16_t>(testo.utf16(), testo.size(), blocco.data() + prima);
    };
    for (qint32 i = 0; i <= ultima; ++i) {
        const QString &linea = RigaDi(tabella, i)[2];
        if (linea.isEmpty())
            continue;
        aggiungi(linea);
        aggiungi(u"\r\n");
        if (blocco.size() >= DimensioneBlocco) {
            ScriviTutto(dispositivo, blocco);
            blocco.resize(0);
        }
    }
    ScriviTutto(dispositivo, blocco);
}

void SalvaDizionario(const QString &percorso, const Tabella &tabella, qint32 ultima, bool conCopia)
{
    const auto scrivi = [&](QIODevice &file) { ScriviDizionario(file, tabella, ultima); };
    conCopia ? ScriviInPosto(percorso, scrivi) : ScriviIntero(percorso, scrivi);
}
