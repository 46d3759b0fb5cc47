// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Recupero.h"

#include "core/ErroreRuntime.h"
#include "core/FileDizionario.h"
#include "core/Testo8Bit.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <QtEndian>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
// Programs that may have the same dictionary open, each with a copy of its own.
constexpr int MassimoPosti = 9;

const QString Titolo = QStringLiteral("Copia di recupero di un dizionario di Varbel");
const QString RigaDizionario = QStringLiteral("Dizionario: ");
const QString RigaFile = QStringLiteral("File, byte e data: ");
const QString RigaQuando = QStringLiteral("Data della copia: ");
const QString RigaImpostazioni = QStringLiteral("Righe di impostazioni: ");

QString Cartella()
{
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/varbel/recupero"_s;
#else
    const QString stato = qEnvironmentVariable("XDG_STATE_HOME");
    return (QDir::isAbsolutePath(stato) ? stato : QDir::homePath() + u"/.local/state"_s) + u"/varbel"_s;
#endif
}

// The same file for a dictionary that is reached by another way.
QString FileDi(const QString &percorso, int posto)
{
    const QFileInfo info(SenzaLegami(percorso));
    QString nome = info.fileName();
    const QString cartella = QFileInfo(info.path()).canonicalFilePath();
    const QString intero = (cartella.isEmpty() ? info.path() : cartella) + u'/' + info.fileName();
    const QByteArray sigla = QCryptographicHash::hash(intero.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    // File systems take 255 bytes, of which a character of the name may be four.
    constexpr qsizetype massimoNome = 40;
    nome.truncate(massimoNome);
    if (!nome.isEmpty() && nome.back().isHighSurrogate())
        nome.chop(1);
    return u"%1/%2-%3-%4.txt"_s.arg(Cartella(), nome, QString::fromLatin1(sigla), QString::number(posto));
}

QString FileSerratura(const QString &file)
{
    return file + u".lock"_s;
}

std::unique_ptr<QLockFile> Serratura(const QString &file)
{
    auto serratura = std::make_unique<QLockFile>(FileSerratura(file));
    // Stale when its program has died, never by its age.
    serratura->setStaleLockTime(0);
    return serratura;
}

// A lock that a program was ended in the middle of making is nobody's: it does not say whose in full.
bool Incompiuta(const QLockFile &serratura)
{
    constexpr qsizetype righe = 5;
    constexpr qint64 secondi = 5;
    QFile file(serratura.fileName());
    const QDateTime fatta = QFileInfo(file).lastModified();
    return file.open(QIODevice::ReadOnly) && file.readAll().count('\n') < righe &&
           fatta.secsTo(QDateTime::currentDateTime()) > secondi;
}

// False when a living program holds it, or the folder takes no file.
bool Serra(QLockFile &serratura)
{
    // Two that start together meet for a moment over a lock that nobody holds.
    constexpr int attesa = 100;
    if (serratura.tryLock(attesa))
        return true;
    // A living program's cannot be removed.
    return serratura.error() == QLockFile::LockFailedError && Incompiuta(serratura) &&
           serratura.removeStaleLockFile() && serratura.tryLock();
}

// Held by this program still: the folder may have been emptied since, and another have taken the place.
bool Tiene(const QLockFile &serratura)
{
    qint64 processo = 0;
    QString macchina;
    QString programma;
    return serratura.isLocked() && serratura.getLockInfo(&processo, &macchina, &programma) &&
           processo == QCoreApplication::applicationPid();
}

void FaiCartella()
{
    const QString cartella = Cartella();
    QDir().mkpath(cartella);
    QFile::setPermissions(cartella, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

// What a program that was killed while it wrote has left beside the copy.
void TogliIncompiute(const QString &file)
{
    const QFileInfo copia(file);
    const QString inizio = copia.fileName() + u'.';
    constexpr qsizetype lettereACaso = 6;
    for (const QString &nome : QDir(copia.path()).entryList(QDir::Files)) {
        if (nome.startsWith(inizio) && nome.size() == inizio.size() + lettereACaso)
            QFile::remove(copia.path() + u'/' + nome);
    }
}

// A path as one line: a name may hold anything.
QString InUnaRiga(const QString &percorso)
{
    QString riga;
    for (const QChar c : percorso)
        riga += c < u' ' || c == u'%' ? u'%' + QString::number(c.unicode(), 16).rightJustified(2, u'0') : QString(c);
    return riga;
}

QByteArray InUtf16(const QString &testo)
{
    QByteArray byte(testo.size() * 2, Qt::Uninitialized);
    qToLittleEndian<char16_t>(testo.utf16(), testo.size(), byte.data());
    return byte;
}

// The lines one after the other; only the pair CR LF ends one, since a stored line may end in a CR.
class Linee
{
public:
    explicit Linee(QString testo) : m_testo(std::move(testo)) {}

    [[nodiscard]] bool Finite() const { return m_posto >= m_testo.size(); }

    QString Prossima()
    {
        const qsizetype trovata = m_testo.indexOf("\r\n"_L1, m_posto);
        const qsizetype fine = trovata < 0 ? m_testo.size() : trovata;
        QString linea = m_testo.sliced(m_posto, fine - m_posto);
        m_posto = trovata < 0 ? fine : fine + 2;
        return linea;
    }

    // What stands after `inizio` on the next line.
    QString Dopo(const QString &inizio)
    {
        const QString linea = Finite() ? QString() : Prossima();
        if (!linea.startsWith(inizio))
            throw ErroreRuntime(57, u"Il file non è una copia di recupero."_s);
        return linea.sliced(inizio.size());
    }

private:
    QString m_testo;
    qsizetype m_posto = 0;
};

QDateTime Data(const QString &testo)
{
    return QDateTime::fromString(testo, Qt::ISODateWithMs);
}

QString TestoData(const QDateTime &data)
{
    return data.toUTC().toString(Qt::ISODateWithMs);
}

// The copies in the folder, the newest first, and whose they are.
QList<std::pair<QString, QString>> Copie()
{
    QList<std::pair<QString, QString>> copie;
    for (const QFileInfo &trovato : QDir(Cartella()).entryInfoList({u"*.txt"_s}, QDir::Files, QDir::Time)) {
        try {
            // The head says it.
            QFile file(trovato.filePath());
            constexpr qint64 testa = 0x10000;
            if (file.open(QIODevice::ReadOnly))
                copie.emplaceBack(trovato.filePath(), LeggiCopia(file.read(testa)).percorso);
        } catch (const ErroreRuntime &) {
            continue;
        }
    }
    return copie;
}
} // namespace

CopiaRecupero LeggiCopia(const QByteArray &byte)
{
    QString testo(byte.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(byte.constData(), testo.size(), testo.data());
    Linee linee(std::move(testo));
    CopiaRecupero copia;
    linee.Dopo(QChar(QChar::ByteOrderMark) + Titolo);
    copia.percorso = QUrl::fromPercentEncoding(linee.Dopo(RigaDizionario).toUtf8());
    const QString file = linee.Dopo(RigaFile);
    copia.dizionario = {.quando = Data(file.section(u' ', 1)), .dimensione = file.section(u' ', 0, 0).toLongLong()};
    copia.quando = Data(linee.Dopo(RigaQuando));
    QStringList ini;
    for (qint64 righe = linee.Dopo(RigaImpostazioni).toLongLong(); righe > 0 && !linee.Finite(); --righe)
        ini += linee.Prossima();
    copia.ini = Testo8Bit::Scrivi(Testo8Bit::Unisci(ini));
    while (!linee.Finite())
        copia.voci += linee.Prossima();
    copia.voci.removeAll(QString());
    return copia;
}

CopiaRecupero LeggiFileCopia(const QString &file)
{
    return LeggiCopia(LeggiTutto(file));
}

Recupero::Recupero(QString percorso) : m_percorso(std::move(percorso))
{
    FaiCartella();
    for (int posto = 1; posto <= MassimoPosti; ++posto) {
        const QString file = FileDi(m_percorso, posto);
        // A lock costs a write to the disk.
        if (m_file.isEmpty() || QFileInfo::exists(file) || QFileInfo::exists(FileSerratura(file)))
            Prende(file);
    }
    if (QFileInfo::exists(m_percorso))
        return;
    // A way to the dictionary that leads nowhere now: the copies know it by its name.
    for (const auto &[file, dizionario] : Copie()) {
        if (dizionario == m_percorso && file != m_file && !m_trovate.contains(file))
            Prende(file);
    }
}

void Recupero::Prende(const QString &file)
{
    std::unique_ptr<QLockFile> serratura = Serratura(file);
    if (!Serra(*serratura) && serratura->error() == QLockFile::LockFailedError) {
        m_altrove = true;
        return;
    }
    if (QFileInfo::exists(file))
        m_trovate += file;
    if (m_file.isEmpty()) {
        m_file = file;
        m_serratura = std::move(serratura);
        TogliIncompiute(m_file);
    } else {
        m_serratureTrovate.push_back(std::move(serratura));
    }
}

void Recupero::CambiaPosto()
{
    m_serratureTrovate.push_back(std::move(m_serratura));
    const QString prima = std::exchange(m_file, QString());
    for (int posto = 1; posto <= MassimoPosti && m_file.isEmpty(); ++posto) {
        const QString file = FileDi(m_percorso, posto);
        if (file != prima && !QFileInfo::exists(file))
            Prende(file);
    }
}

void Recupero::Lascia(const QString &illeggibile)
{
    m_trovate.removeAll(illeggibile);
    if (illeggibile == m_file)
        CambiaPosto();
}

void Recupero::Scrivi(const Impronta &dizionario, const QByteArray &ini, const Tabella &tabella, qint32 ultima)
{
    const QStringList righeIni = Testo8Bit::Linee(Testo8Bit::Leggi(ini));
    QString testa = QChar(QChar::ByteOrderMark) + Titolo + "\r\n"_L1;
    testa += RigaDizionario + InUnaRiga(m_percorso) + "\r\n"_L1;
    testa += RigaFile + QString::number(dizionario.dimensione) + u' ' + TestoData(dizionario.quando) + "\r\n"_L1;
    testa += RigaQuando + TestoData(QDateTime::currentDateTimeUtc()) + "\r\n"_L1;
    testa += RigaImpostazioni + QString::number(righeIni.size()) + "\r\n"_L1 + Testo8Bit::Unisci(righeIni);

    // The folder may have been full, or away, when the dictionary was opened.
    FaiCartella();
    if (m_serratura && !Tiene(*m_serratura)) {
        // The end of one that was taken away would remove the other program's: it has none.
        static auto *const perse = new std::vector<std::unique_ptr<QLockFile>>;
        if (m_serratura->isLocked())
            perse->push_back(std::move(m_serratura));
        m_serratura = Serratura(m_file);
        // Another program has taken the place meanwhile: what stands there is its own.
        if (!Serra(*m_serratura) && m_serratura->error() == QLockFile::LockFailedError) {
            m_altrove = true;
            CambiaPosto();
        }
    }
    if (m_file.isEmpty())
        throw ErroreRuntime(75, u"Troppi programmi hanno aperto il dizionario "_s + m_percorso + u'.');
    try {
        ScriviIntero(
            m_file,
            [&](QIODevice &file) {
                ScriviTutto(file, InUtf16(testa));
                ScriviDizionario(file, tabella, ultima);
            },
            true);
    } catch (ErroreRuntime &errore) {
        errore.testo = m_file + u": "_s + errore.testo;
        throw;
    }
    m_trovate.removeAll(m_file);
    if (const QString sostituita = std::exchange(m_sostituita, QString());
        !sostituita.isEmpty() && sostituita != m_file && QFile::remove(sostituita))
        m_trovate.removeAll(sostituita);
}

void Recupero::Togli()
{
    QFile::remove(m_file);
}

QStringList Recupero::SenzaFile()
{
    QStringList percorsi;
    for (const auto &[file, dizionario] : Copie()) {
        if (QFileInfo::exists(dizionario) || percorsi.contains(dizionario))
            continue;
        // A folder that takes no lock has none.
        const std::unique_ptr<QLockFile> serratura = Serratura(file);
        if (Serra(*serratura) || serratura->error() != QLockFile::LockFailedError)
            percorsi += dizionario;
    }
    return percorsi;
}
