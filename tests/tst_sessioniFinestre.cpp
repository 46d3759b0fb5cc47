// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// A random session through the real windows, beside a model of what the dictionary must hold. VARBEL_PASSI says how
// many steps, VARBEL_SEME which. Then a day with a dictionary of VARBEL_VOCI entries.
#include "Banco.h"
#include "Dialoghi.h"
#include "Errori.h"
#include "Passi.h"
#include "core/Riga.h"
#include "print/SpoolStampante.h"
#include "print/StampaDizionario.h"
#include "tools/Inversione.h"

#include <QLineEdit>
#include <QPrinter>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
constexpr int PassiSoliti = 2000;
constexpr int VociSolite = 10000;
constexpr qsizetype MassimoVoci = 400;

class Utente
{
public:
    explicit Utente(quint32 seme) : m_caso(seme), m_percorso(m_banco.Dizionario(u"a.dic"_s, {u"@casa@house@"_s}))
    {
        m_salvate = {u"@casa@house@"_s};
        Riletto();
        m_banco.Apri(m_percorso);
    }

    void Passo()
    {
        static constexpr Passi<Utente, 11> comandi = {{{32, &Utente::Aggiungi},
                                                       {18, &Utente::Correggi},
                                                       {16, &Utente::Elimina},
                                                       {6, &Utente::Ordina},
                                                       {2, &Utente::Unisci},
                                                       {2, &Utente::Converti},
                                                       {2, &Utente::Inverti},
                                                       {8, &Utente::Salva},
                                                       {4, &Utente::ChiudiEApri},
                                                       {2, &Utente::Cade},
                                                       {8, &Utente::Guarda}}};
        UnPasso(*this, m_caso, comandi);
    }

    [[nodiscard]] QString Diverso()
    {
        if (!m_dialoghi.verifica())
            return m_dialoghi.guasti();
        QStringList parole;
        for (const QString &linea : m_attese)
            parole += CampiDellaRiga(linea).lingua1.toString();
        QStringList mostrate = m_banco.Parole(1);
        parole.sort();
        mostrate.sort();
        if (mostrate != parole)
            return u"in vista: "_s + mostrate.join(u',') + u"; attese: "_s + parole.join(u',');
        QStringList linee;
        for (qint32 i = 0; i <= stato().LenDizionario1; ++i)
            linee += RigaDi(stato().Dizionario1, i)[2];
        linee.removeAll(QString());
        linee.sort();
        m_attese.sort();
        return linee == m_attese ? QString() : linee.join(u',') + u"; attese: "_s + m_attese.join(u',');
    }

    QStringList fatti;

private:
    QString Parola()
    {
        static const QString lettere = u"abcàèαωжя' "_s;
        QString parola = u"p"_s;
        for (int i = m_caso.bounded(6); i > 0; --i)
            parola += lettere[m_caso.bounded(static_cast<int>(lettere.size()))];
        return parola;
    }

    void Scrivi(const char *casella, const QString &testo) const
    {
        m_banco.Trova<QLineEdit>("InserimentoForm1", casella)->setText(testo);
    }

    void Ok(const char *form) const { m_banco.Trova<QPushButton>(form, "cmdOk")->click(); }

    // The row chosen in the viewer, its stored line; none in an empty dictionary.
    QString Scegli()
    {
        if (m_attese.isEmpty())
            return {};
        const int k = m_caso.bounded(static_cast<int>(m_attese.size()));
        m_banco.Lista(1)->ImpostaListIndex(k);
        return RigaDi(stato().Dizionario1, k)[2];
    }

    void Aggiungi()
    {
        const riga voce = {.lingua1 = Parola(), .lingua2 = Parola(), .commento1 = Parola(), .commento2 = Parola()};
        fatti += u"aggiungi "_s + ComponiRiga(voce);
        m_banco.Comando(u"mnuModificaAggiungi"_s);
        Scrivi("txtLingua1", voce.lingua1);
        Scrivi("txtLingua2", voce.lingua2);
        Scrivi("txtCommento1", voce.commento1);
        Scrivi("txtCommento2", voce.commento2);
        Ok("InserimentoForm1");
        m_attese += ComponiRiga(voce);
    }

    void Correggi()
    {
        const QString linea = Scegli();
        if (linea.isEmpty())
            return Aggiungi();
        m_banco.Premi(u"cmdApri"_s);
        riga voce;
        ScomponiRiga(linea, voce.lingua1, voce.lingua2, voce.commento1, voce.commento2);
        voce.lingua2 = Parola();
        fatti += u"correggi "_s + linea + u" in "_s + ComponiRiga(voce);
        Scrivi("txtLingua2", voce.lingua2);
        if (m_caso.bounded(4) == 0)
            m_banco.Comando(u"mnuModificaOrdina2"_s);
        Ok("InserimentoForm1");
        m_attese.removeOne(linea);
        m_attese += ComponiRiga(voce);
    }

    void Elimina()
    {
        for (int volte = m_attese.size() > MassimoVoci ? 100 : 1; volte > 0; --volte) {
            const QString linea = Scegli();
            if (linea.isEmpty())
                return;
            const bool davvero = m_caso.bounded(4) > 0;
            fatti += (davvero ? u"elimina "_s : u"non elimina "_s) + linea;
            m_dialoghi.altro([davvero](QDialog *box) {
                qobject_cast<QMessageBox *>(box)->button(davvero ? QMessageBox::Yes : QMessageBox::No)->click();
            });
            m_banco.Premi(u"cmdElimina"_s);
            if (davvero)
                m_attese.removeOne(linea);
        }
    }

    void Ordina()
    {
        fatti += u"ordina"_s;
        m_banco.Comando(m_caso.bounded(2) == 0 ? u"mnuModificaOrdina1"_s : u"mnuModificaOrdina2"_s);
    }

    void Unisci()
    {
        fatti += u"unisci"_s;
        const QStringList linee = {u"@"_s + Parola() + u"@x@"_s, u"c@"_s + Parola() + u"@y@d"_s};
        m_dialoghi.file(m_banco.Dizionario(u"b.dic"_s, linee));
        m_banco.Comando(u"mnuStrumentiUnisci"_s);
        for (const QString &linea : linee)
            m_attese += linea + u'\r';
    }

    void Converti()
    {
        fatti += u"converti"_s;
        const QString parola = Parola();
        const QString file = m_banco.File(u"c.txt"_s);
        ScriviInPosto(file, (parola + u";z\nsenza\n"_s).toUtf8());
        m_dialoghi.file(file, u"*.* (tutti i file) (*)"_s);
        m_banco.Comando(u"mnuStrumentiConversioni"_s);
        m_banco.Trova<QLineEdit>("ConvertiForm1", "txtSeparatore(0)")->setText(u";"_s);
        m_banco.Trova<QLineEdit>("ConvertiForm1", "txtLingua1")->setText(u"1"_s);
        m_banco.Trova<QLineEdit>("ConvertiForm1", "txtLingua2")->setText(u"2"_s);
        Ok("ConvertiForm1");
        Ok("OutPutForm");
        // A line that is one separator short of it fails, as the one without any does.
        m_attese += u'@' + parola + u"@z@"_s;
    }

    void Inverti()
    {
        fatti += u"inverti"_s;
        m_dialoghi.file(m_percorso);
        m_banco.Comando(u"mnuStrumentiInverti"_s);
        std::transform(m_attese.begin(), m_attese.end(), m_attese.begin(), LineaInvertita);
    }

    void Salva()
    {
        fatti += u"salva"_s;
        m_banco.Comando(u"mnuFileSalva"_s);
        m_salvate = m_attese;
    }

    void ChiudiEApri()
    {
        fatti += u"chiudi e apri"_s;
        if (stato().Modificato) {
            m_dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click(); });
            m_salvate = m_attese;
        }
        m_banco.Comando(u"mnuFileChiudi"_s);
        m_banco.Comando(u"mnuFileRecente(0)"_s);
        Riletto();
    }

    // Each line that is read has kept the CR of its end.
    void Riletto()
    {
        m_attese = m_salvate;
        for (QString &linea : m_attese)
            linea += u'\r';
    }

    void Cade()
    {
        fatti += u"cade"_s;
        const bool modificato = stato().Modificato;
        m_banco.Avvia();
        if (modificato)
            m_dialoghi.altro([](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click(); });
        else
            Riletto();
        m_banco.Apri(m_percorso);
    }

    // Windows that change nothing, opened and left or closed.
    void Guarda()
    {
        static const QStringList comandi = {u"mnuEserciziCasuale"_s, u"mnuEserciziInverti"_s, u"mnuHelpAbout"_s,
                                            u"mnuStrumentiCaratteri"_s, u"mnuStrumentiOpzioni"_s};
        const QString &comando = comandi[m_caso.bounded(static_cast<int>(comandi.size()))];
        fatti += comando;
        // The exercise reads the file, which must not be empty.
        if (comando.startsWith(u"mnuEsercizi"_s) && (stato().Modificato || m_attese.size() < 3))
            return;
        m_banco.Comando(comando);
        if (m_caso.bounded(2) == 0)
            m_banco.ChiudiFiglie();
    }

    QRandomGenerator m_caso;
    Banco m_banco;
    Dialoghi m_dialoghi;
    const QString m_percorso;
    QStringList m_attese;
    // What the file was last written with.
    QStringList m_salvate;
};
} // namespace

class TestSessioniFinestre : public QObject
{
    Q_OBJECT

private slots:
    void casuale()
    {
        bool dato = false;
        const int passi = qEnvironmentVariableIntValue("VARBEL_PASSI", &dato);
        const auto seme = static_cast<quint32>(qEnvironmentVariableIntValue("VARBEL_SEME"));
        Utente utente(seme);
        for (int i = 0; i < (dato ? passi : PassiSoliti); ++i) {
            utente.Passo();
            const QString diverso = utente.Diverso();
            const QString ultimi = utente.fatti.sliced(qMax(0, utente.fatti.size() - 10)).join(u'\n');
            QVERIFY2(diverso.isEmpty(),
                     qPrintable(u"seme %1, passo %2: %3\n%4"_s.arg(seme).arg(i).arg(ultimi, diverso)));
            QApplication::processEvents();
        }
    }

    void scala();
};

void TestSessioniFinestre::scala()
{
    bool dato = false;
    const int chieste = qEnvironmentVariableIntValue("VARBEL_VOCI", &dato);
    const int voci = dato ? chieste : VociSolite;
    Banco banco;
    Dialoghi dialoghi;
    QStringList attese;
    QRandomGenerator caso(1);
    for (int i = 0; i < voci; ++i)
        attese += u"@parola%1@word%2@"_s.arg(caso.generate()).arg(i);
    const QString percorso = banco.Dizionario(u"a.dic"_s, attese);
    attese.replaceInStrings(QRegularExpression(u"$"_s), u"\r"_s);
    banco.Apri(percorso);
    const auto premi = [&](const char *form, const char *pulsante) {
        banco.Trova<QPushButton>(form, pulsante)->click();
        QApplication::processEvents();
    };

    banco.Comando(u"mnuModificaAggiungi"_s);
    for (const QString &parola : {u"aaa"_s, u"mmm"_s, u"zzz"_s}) {
        banco.Trova<QLineEdit>("InserimentoForm1", "txtLingua1")->setText(parola);
        banco.Trova<QLineEdit>("InserimentoForm1", "txtLingua2")->setText(parola);
        premi("InserimentoForm1", "cmdOk");
        attese += u'@' + parola + u'@' + parola + u'@';
    }
    const auto si = [](QDialog *box) { qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click(); };
    dialoghi.altro(si);
    banco.Comando(u"mnuModificaOrdina2"_s);
    banco.Lista(1)->ImpostaListIndex(5);
    attese.removeOne(RigaDi(stato().Dizionario1, 5)[2]);
    dialoghi.altro(si);
    banco.Premi(u"cmdElimina"_s);
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QStringList nelFile = Banco::Linee(percorso);
    nelFile.sort();
    attese.sort();
    QVERIFY(nelFile == attese);

    for (const QString &segno : {u"Trffc10a.ico"_s, u"Intl_no.bmp"_s})
        QFile::copy(u"" ASSETS "/"_s + segno, banco.cartella.filePath(u"programma/"_s + segno));
    banco.Comando(u"mnuEserciziCasuale"_s);
    for (int i = 1; i <= 5; ++i) {
        banco.Trova<QLineEdit>("EsercizioForm1", "txtLingua2")->setText(Esercizio::stato().rispostaAttesa);
        premi("EsercizioForm1", "cmdOK");
        QVERIFY(banco.Trova<QLabel>("EsercizioForm1", "lblRiepilogo")->text().contains(u"%1 su %1"_s.arg(i)));
        premi("EsercizioForm1", "cmdOK");
    }

    QPrinter stampante(QPrinter::HighResolution);
    stampante.setOutputFileName(banco.File(u"a.pdf"_s));
    SpoolStampante spool(stampante);
    const auto fogli =
        StampaDizionario(spool, LeggiTutto(percorso), stato().impostazioni, [](qint64, qint64) { return true; });
    spool.Fine();
    constexpr int vociPerFoglio = 100;
    QVERIFY(fogli.value_or(0) > voci / vociPerFoglio);
    QVERIFY(ByteDelFile(banco.File(u"a.pdf"_s)).startsWith("%PDF"));

    banco.Comando(u"mnuFileChiudi"_s);
    banco.Apri(percorso);
    QCOMPARE(banco.Lista(1)->model()->rowCount(), voci + 2);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
}

QTEST_MAIN(TestSessioniFinestre)
#include "tst_sessioniFinestre.moc"
