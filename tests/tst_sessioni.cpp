// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Random sessions of the commands without a window, beside a model of what the dictionary must hold. VARBEL_PASSI says
// how many steps, VARBEL_SEME which.
#include "Errori.h"
#include "Passi.h"
#include "core/Documento.h"
#include "core/FileDizionario.h"
#include "core/Module1.h"
#include "core/Percorsi.h"
#include "core/Riga.h"
#include "edit/Ordinamento.h"
#include "edit/Voci.h"
#include "tools/Composizione.h"
#include "tools/Conversione.h"
#include "tools/Inversione.h"
#include "tools/Unione.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
constexpr int PassiSoliti = 3000;
constexpr qsizetype MassimoVoci = 600;

QByteArray Utf16(const QString &testo)
{
    return {reinterpret_cast<const char *>(testo.utf16()), testo.size() * 2};
}

bool Prosegui(qint64 /*fatto*/, qint64 /*totale*/)
{
    return true;
}

class Sessione
{
public:
    explicit Sessione(quint32 seme) : m_caso(seme)
    {
        qputenv("XDG_STATE_HOME", QFile::encodeName(m_cartella.filePath(u"stato"_s)));
        FaiFile(m_cartella.filePath(u"varbel.ini"_s),
                "[Directory]\r\n\r\n[Recenti]\r\n\r\n[Lingue]\r\n[Font]\r\n10\r\n");
        QDir::setCurrent(m_cartella.path());
        FaiFile(m_percorso, {});
        FaiFile(m_cartella.filePath(u"a.ini"_s), ScriviIni({}));
        Module1::Azzera();
        Apri();
    }
    Sessione(const Sessione &) = delete;
    Sessione &operator=(const Sessione &) = delete;
    ~Sessione()
    {
        QDir::setCurrent(QDir::rootPath());
        Module1::Azzera();
    }

    void Passo()
    {
        static constexpr Passi<Sessione, 11> comandi = {{{30, &Sessione::Aggiungi},
                                                         {20, &Sessione::Modifica},
                                                         {20, &Sessione::Elimina},
                                                         {6, &Sessione::Ordina},
                                                         {3, &Sessione::Unisci},
                                                         {3, &Sessione::Converti},
                                                         {3, &Sessione::Componi},
                                                         {3, &Sessione::Inverti},
                                                         {5, &Sessione::Salva},
                                                         {3, &Sessione::ChiudiEApri},
                                                         {4, &Sessione::Cade}}};
        UnPasso(*this, m_caso, comandi);
    }

    // What the dictionary must hold and does not, or the other way round; empty when it is right.
    [[nodiscard]] QString Diverso() const
    {
        QStringList voci = Voci();
        QStringList attese = m_attese;
        voci.sort();
        attese.sort();
        if (voci == attese)
            return {};
        for (const QString &voce : m_attese)
            voci.removeOne(voce);
        for (const QString &voce : Voci())
            attese.removeOne(voce);
        return u"persi: %1; di troppo: %2"_s.arg(attese.join(u", "_s), voci.join(u", "_s));
    }

    QStringList fatti;

private:
    static QStringList Voci()
    {
        QStringList voci;
        for (qint32 i = 0; i <= qMin(stato().LenDizionario1, Capacita(stato().Dizionario1)); ++i)
            voci += RigaDi(stato().Dizionario1, i)[2];
        voci.removeAll(QString());
        return voci;
    }

    QString Parola()
    {
        static const QString lettere = u"abcàèzαωжяЊ上 ' -.;éÉ"_s;
        QString parola;
        for (int i = m_caso.bounded(6); i > 0; --i)
            parola += lettere[m_caso.bounded(static_cast<int>(lettere.size()))];
        return parola;
    }

    riga Voce() { return {.lingua1 = Parola(), .lingua2 = Parola(), .commento1 = Parola(), .commento2 = Parola()}; }

    // As the viewer shows it, and the recovery copy keeps it.
    static void Cambiato()
    {
        RaccogliVoci();
        stato().Modificato = true;
        Documento::AggiornaCopia();
    }

    void Nota(const QString &che) { fatti += che; }

    void Apri()
    {
        Module1::Stato &s = stato();
        s.PercorsoDizionario = m_percorso;
        s.PercorsoIni = PercorsoIniLetto(m_percorso);
        s.impostazioni = LeggiFileIni(s.PercorsoIni);
        Documento::Occupa();
        Documento::Carica();
        RaccogliVoci();
    }

    void Aggiungi()
    {
        const riga voce = Voce();
        const QString linea = ComponiRiga(voce);
        AggiungiVoce({voce.lingua1, voce.lingua2, linea});
        m_attese += linea;
        Nota(u"aggiungi "_s + linea);
        Cambiato();
    }

    void Modifica()
    {
        const QStringList voci = Voci();
        if (voci.isEmpty())
            return Aggiungi();
        const int i = m_caso.bounded(static_cast<int>(voci.size()));
        const riga voce = Voce();
        const QString linea = ComponiRiga(voce);
        Nota(u"modifica "_s + voci[i] + u" in "_s + linea);
        // Sometimes the table has been sorted since the entry was read.
        if (m_caso.bounded(4) == 0)
            OrdinaLista(stato().Dizionario1, stato().LenDizionario1, m_caso.bounded(2));
        ModificaVoce(i, voci[i], {voce.lingua1, voce.lingua2, linea});
        m_attese.removeOne(voci[i]);
        m_attese += linea;
        Cambiato();
    }

    void Elimina()
    {
        for (int volte = m_attese.size() > MassimoVoci ? 100 : 1; volte > 0; --volte) {
            const QStringList voci = Voci();
            if (voci.isEmpty())
                return;
            const int i = m_caso.bounded(static_cast<int>(voci.size()));
            Nota(u"elimina "_s + voci[i]);
            EliminaVoce(i);
            m_attese.removeOne(voci[i]);
            RaccogliVoci();
        }
        Cambiato();
    }

    void Ordina()
    {
        Nota(u"ordina"_s);
        OrdinaLista(stato().Dizionario1, stato().LenDizionario1, m_caso.bounded(2));
        Cambiato();
    }

    // Lines of a dictionary file of its own; the last one with or without an end.
    QStringList FaiDizionario(const QString &percorso)
    {
        QString testo;
        QStringList linee;
        const int quante = m_caso.bounded(30);
        for (int i = 0; i < quante; ++i) {
            const QString linea = ComponiRiga(Voce());
            const bool finita = i + 1 < quante || m_caso.bounded(2) == 0;
            testo += finita ? linea + "\r\n"_L1 : linea;
            linee += finita ? linea + u'\r' : linea;
        }
        FaiFile(percorso, Utf16(testo));
        return linee;
    }

    void Unisci()
    {
        const QString altro = m_cartella.filePath(u"unisci.dic"_s);
        m_attese += FaiDizionario(altro);
        Nota(u"unisci"_s);
        UnisciDizionario(altro, Prosegui);
        Cambiato();
    }

    void Converti()
    {
        QByteArray testo;
        for (int i = m_caso.bounded(30); i > 0; --i) {
            const QString a = u'x' + Parola().remove(u';');
            const QString b = Parola().remove(u';') + u'y';
            testo += (a + u';' + b).toUtf8() + (m_caso.bounded(2) == 0 ? "\n" : "\r\n");
            m_attese += u'@' + a + u'@' + b + u'@';
        }
        Nota(u"converti"_s);
        const QString file = m_cartella.filePath(u"converti.txt"_s);
        FaiFile(file, testo);
        ImpostazioniConversione impostazioni;
        impostazioni.separatori[0] = u";"_s;
        impostazioni.lingua1 = u"1"_s;
        impostazioni.lingua2 = u"2"_s;
        EsitoConversione esito;
        ConvertiFile(file, impostazioni, Prosegui, esito);
        QCOMPARE(esito.errori, QStringList());
        Cambiato();
    }

    void Componi()
    {
        const QString secondo = m_cartella.filePath(u"secondo.dic"_s);
        QStringList altre = FaiDizionario(secondo);
        Nota(u"componi"_s);
        Composizione::Leggi(secondo);
        Composizione::Voci voci = Composizione::VociDizionario2();
        for (int i = m_caso.bounded(5); i > 0 && !voci.empty(); --i) {
            const int quale = m_caso.bounded(static_cast<int>(voci.size()));
            const QString linea = Module1::LemmaDizionario(2, voci[static_cast<std::size_t>(quale)]);
            if (m_caso.bounded(2) == 0) {
                Composizione::Copia2in1({voci[static_cast<std::size_t>(quale)]});
                m_attese += linea;
            } else {
                Composizione::Elimina2(voci, quale);
                altre.removeOne(linea);
            }
        }
        if (m_caso.bounded(3) == 0) {
            altre += Voci();
            Composizione::CopiaTutto1in2();
        }
        const bool spezzate = Composizione::Scrivi() > 0;
        Composizione::Libera();
        if (spezzate) {
            const QStringList copie = Recupero(secondo).Trovate();
            QCOMPARE(copie.size(), 1);
            QStringList tenute = LeggiFileCopia(copie.first()).voci;
            QVERIFY(QFile::remove(copie.first()));
            tenute.sort();
            altre.sort();
            QCOMPARE(tenute, altre);
            return Cambiato();
        }
        Tabella scritte;
        const qint32 ultima = CaricaDizionario(secondo, scritte);
        QStringList nelFile;
        for (qint32 i = 0; i <= ultima; ++i)
            nelFile += RigaDi(scritte, i)[2];
        nelFile.removeAll(QString());
        altre.replaceInStrings(QRegularExpression(u"$"_s), u"\r"_s);
        nelFile.sort();
        altre.sort();
        QCOMPARE(nelFile, altre);
        Cambiato();
    }

    void Inverti()
    {
        Nota(u"inverti"_s);
        InvertiInPosto();
        std::transform(m_attese.begin(), m_attese.end(), m_attese.begin(), LineaInvertita);
        Cambiato();
    }

    void Salva()
    {
        Nota(u"salva"_s);
        QCOMPARE(Documento::CambiatoDaAltri(), QString());
        m_spezzate = Documento::Salva() > 0;
        m_salvate = m_attese;
    }

    // Each line that is read has kept the CR of its end.
    void Riletto()
    {
        m_attese = m_salvate;
        for (QString &linea : m_attese)
            linea += u'\r';
    }

    void ChiudiEApri()
    {
        Salva();
        Nota(u"chiudi e apri"_s);
        Documento::Chiudi(m_cartella.filePath(u"varbel.ini"_s), QString(), [](const ErroreRuntime &) { QFAIL("ini"); });
        Apri();
        Ripreso(m_spezzate);
    }

    // The program ends as it stands; the next one takes the copy where there is one.
    void Cade()
    {
        Nota(u"cade"_s);
        const bool conCopia = stato().Modificato || m_spezzate;
        Module1::Azzera();
        Apri();
        Ripreso(conCopia);
    }

    // Opened again: from the copy where there must be one, else from the file.
    void Ripreso(bool conCopia)
    {
        const QStringList copie = stato().recupero->Trovate();
        QCOMPARE(!copie.isEmpty(), conCopia);
        m_spezzate = false;
        if (!conCopia)
            return Riletto();
        Documento::Prendi(LeggiFileCopia(copie.first()));
        Cambiato();
    }

    QTemporaryDir m_cartella;
    const QString m_percorso = m_cartella.filePath(u"a.dic"_s);
    QRandomGenerator m_caso;
    QStringList m_attese;
    // What the file was last written with.
    QStringList m_salvate;
    // It would not give them all back: the copy does.
    bool m_spezzate = false;
};
} // namespace

class TestSessioni : public QObject
{
    Q_OBJECT

private slots:
    void casuale()
    {
        bool dato = false;
        const int passi = qEnvironmentVariableIntValue("VARBEL_PASSI", &dato);
        const auto seme = static_cast<quint32>(qEnvironmentVariableIntValue("VARBEL_SEME"));
        QTest::failOnWarning(QRegularExpression(u"."_s));
        Sessione sessione(seme);
        for (int i = 0; i < (dato ? passi : PassiSoliti); ++i) {
            sessione.Passo();
            const QString diverso = sessione.Diverso();
            const QString ultimi = sessione.fatti.sliced(qMax(0, sessione.fatti.size() - 10)).join(u'\n');
            QVERIFY2(diverso.isEmpty() && !QTest::currentTestFailed(),
                     qPrintable(u"seme %1, passo %2: %3\n%4"_s.arg(seme).arg(i).arg(ultimi, diverso)));
        }
    }
};

QTEST_GUILESS_MAIN(TestSessioni)
#include "tst_sessioni.moc"
