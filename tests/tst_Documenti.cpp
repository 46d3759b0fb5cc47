// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// New, Open, Save, Save as, Close and Exit, with every answer of every dialog, and what goes wrong on the way.
#include "Banco.h"
#include "Dialoghi.h"
#include "Errori.h"
#include "app/Servizi.h"

#include <QMdiArea>
#include <QMdiSubWindow>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// While it lives the process can take only that much more memory.
class PocaMemoria
{
public:
    explicit PocaMemoria(rlim_t byte)
    {
        getrlimit(RLIMIT_AS, &m_prima);
        const rlim_t usati = LeggiTutto(u"/proc/self/statm"_s).split(' ').at(0).toULongLong() *
                             static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
        const rlimit stretto{usati + byte, m_prima.rlim_max};
        setrlimit(RLIMIT_AS, &stretto);
    }
    ~PocaMemoria() { setrlimit(RLIMIT_AS, &m_prima); }
    Q_DISABLE_COPY_MOVE(PocaMemoria)

private:
    rlimit m_prima{};
};

const QStringList Tre = {u"@casa@house@"_s, u"@albero@tree@"_s, u"@cane@dog@"_s};

QStringList RecentiVisibili(const Banco &banco)
{
    QStringList visibili;
    for (int i = 0; i < 4; ++i) {
        const QAction *recente = banco.Azione(u"mnuFileRecente(%1)"_s.arg(i));
        if (recente->isVisible())
            visibili += recente->text();
    }
    return visibili;
}

QString DomandaSalvare(const QString &percorso)
{
    return u"Il dizionario "_s + percorso + u" è stato modificato. Salvare?"_s;
}

QString ErroreIni(const QString &percorso)
{
    return u"Il File di inizializzazione "_s + percorso + u" non è valido o non esiste."_s;
}

void Modifica(const Banco &banco)
{
    Module1::Stato &s = stato();
    RigaDi(s.Dizionario1, s.LenDizionario1) = RigaDaLinea(u"@nuova@new@"_s);
    ++s.LenDizionario1;
    banco.Visualizza()->RiempiListe();
    SegnaModificato();
}

// The three ways that a user closes a dictionary.
const QStringList ModiDiChiudere = {u"comando"_s, u"visualizzatore"_s, u"programma"_s, u"esci"_s};

void Chiudi(const Banco &banco, const QString &modo)
{
    if (modo == u"comando")
        banco.Comando(u"mnuFileChiudi"_s);
    else if (modo == u"visualizzatore")
        banco.finestra->findChild<QMdiArea *>()->activeSubWindow()->close();
    else if (modo == u"programma")
        banco.finestra->close();
    else
        banco.Comando(u"mnuFileEsci"_s);
}
} // namespace

class TestDocumenti : public QObject
{
    Q_OBJECT

private slots:
    void giroCompleto();
    void chiudiConOgniRisposta_data();
    void chiudiConOgniRisposta();
    void chiudiSenzaModifiche_data();
    void chiudiSenzaModifiche();
    void nuovo();
    void nuovoSuEsistente();
    void nuovoENo_data();
    void nuovoENo();
    void nuovoAnnullatoOImpossibile();
    void daModello();
    void daModelloInterrotto();
    void apriNonRiesce_data();
    void apriNonRiesce();
    void memoriaEsaurita();
    void apriDaDialogo();
    void aperturaDiFileStrani_data();
    void aperturaDiFileStrani();
    void recenti();
    void cartellaConPunto();
    void salvaConNome();
    void salvaConNomeAnnullato();
    void nomiRiservati_data();
    void nomiRiservati();
    void salvaNonRiesce();
    void iniDelProgrammaNonScrivibile();
    void finestraConUnaDomandaPropria();
};

void TestDocumenti::giroCompleto()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, Tre, "[Tasti]\r\n233@69@0@1\r\n[Errori]\r\n");
    dialoghi.file(percorso);
    banco.Comando(u"mnuFileApri"_s);
    banco.Lista(2)->setCurrentIndex(banco.Lista(2)->model()->index(2, 0));
    banco.Lista(1)->setCurrentIndex(banco.Lista(1)->model()->index(0, 0));
    dialoghi.casella(u"Attenzione!"_s, u"Cancellare la voce : albero = tree?"_s, QMessageBox::Question,
                     QMessageBox::Yes);
    banco.Comando(u"mnuModificaElimina"_s);
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(!stato().Modificato);
    // Each line keeps the CR it was read with and gets its line end beside it.
    QCOMPARE(banco.Linee(percorso), QStringList({u"@cane@dog@\r"_s, u"@casa@house@\r"_s}));
    QCOMPARE(LeggiTutto(banco.File(u"a.ini"_s)), ScriviIni(stato().impostazioni));
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(!banco.Visualizza());
    QCOMPARE(RecentiVisibili(banco), QStringList(percorso));
    QCOMPARE(stato().PercorsoDizionario, QString());
    QCOMPARE(stato().LenDizionario1, 0);
    QCOMPARE(stato().VoceCorrente, 0);
    QCOMPARE(stato().impostazioni.NumTastiRapidi, 0);
    QCOMPARE(stato().impostazioni.TastiRapidi[0], TastoRapido());
    QVERIFY(stato().Dizionario1.righe[0][2].isEmpty());
    banco.Comando(u"mnuFileRecente(0)"_s);
    QCOMPARE(banco.Parole(1), QStringList({u"cane"_s, u"casa"_s}));
    QVERIFY(dialoghi.verifica());
}

void TestDocumenti::chiudiConOgniRisposta_data()
{
    QTest::addColumn<QString>("modo");
    QTest::addColumn<int>("risposta");
    for (const QString &modo : ModiDiChiudere) {
        for (const auto risposta : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})
            QTest::addRow("%s %d", qPrintable(modo), risposta) << modo << int(risposta);
    }
}

void TestDocumenti::chiudiConOgniRisposta()
{
    QFETCH(const QString, modo);
    QFETCH(const int, risposta);
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, Tre);
    const QByteArray prima = LeggiTutto(percorso);
    banco.Apri(percorso);
    Modifica(banco);
    dialoghi.casella(u"Salvare?"_s, DomandaSalvare(percorso), QMessageBox::Question,
                     static_cast<QMessageBox::StandardButton>(risposta));
    Chiudi(banco, modo);
    QVERIFY(dialoghi.verifica());

    const bool annullato = risposta == QMessageBox::Cancel;
    QCOMPARE(stato().DizionarioAperto, annullato);
    QCOMPARE(stato().Modificato, annullato);
    QCOMPARE(banco.Visualizza() != nullptr, annullato);
    QCOMPARE(banco.Azione(u"mnuFileChiudi"_s)->isEnabled(), annullato);
    QCOMPARE(RecentiVisibili(banco), annullato ? QStringList() : QStringList(percorso));
    QCOMPARE(banco.finestra->isVisible(), annullato || modo == u"comando" || modo == u"visualizzatore");
    if (annullato) {
        QCOMPARE(banco.Parole(1).size(), 4);
        stato().Modificato = false;
    }
    if (risposta == QMessageBox::Yes)
        QCOMPARE(banco.Linee(percorso).size(), 4);
    else
        QCOMPARE(LeggiTutto(percorso), prima);
}

void TestDocumenti::chiudiSenzaModifiche_data()
{
    QTest::addColumn<QString>("modo");
    for (const QString &modo : ModiDiChiudere)
        QTest::addRow("%s", qPrintable(modo)) << modo;
}

void TestDocumenti::chiudiSenzaModifiche()
{
    QFETCH(const QString, modo);
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, Tre);
    const QByteArray prima = LeggiTutto(percorso);
    for (int giro = 0; giro < 2; ++giro) {
        banco.finestra->show();
        banco.Apri(percorso);
        QCOMPARE(banco.Parole(2).size(), 3);
        Chiudi(banco, modo);
        QVERIFY(!stato().DizionarioAperto);
        QVERIFY(!banco.Visualizza());
        QCOMPARE(LeggiTutto(percorso), prima);
    }
    // The steps of a close ran once each time: the program's settings were rewritten, nothing left beside.
    QVERIFY(LeggiTutto(banco.Ini()).contains(percorso.toUtf8() + "\r\n \r\n \r\n \r\n[Lingue]\r\n"));
    QVERIFY(!QFile::exists(banco.File(u"x1x2x3x4.zzz"_s)));
    QVERIFY(dialoghi.verifica());
}

void TestDocumenti::nuovo()
{
    Dialoghi dialoghi;
    const Banco banco;
    dialoghi.file(banco.File(u"nuovo"_s));
    banco.Comando(u"mnuFileNuovo"_s);
    const QString percorso = banco.File(u"nuovo.dic"_s);
    QCOMPARE(dialoghi.ultimaCartella, stato().CartellaProgramma);
    QCOMPARE(stato().PercorsoDizionario, percorso);
    QCOMPARE(stato().PercorsoIni, banco.File(u"nuovo.ini"_s));
    QCOMPARE(LeggiTutto(percorso), QByteArray());
    QCOMPARE(banco.Parole(1).size(), 0);
    QCOMPARE(banco.Testo(u"lblNumele"_s), u"Voce 1 di 0"_s);
    QCOMPARE(banco.Testo(u"lbltitolo"_s), u"Dizionario lingua1/lingua2"_s);
    const ImpostazioniDizionario &impostazioni = stato().impostazioni;
    QCOMPARE(impostazioni.FontCommento2, u"Arial"_s);
    QCOMPARE(impostazioni.PercentualeErrori, 0.3F);
    QCOMPARE(impostazioni.Beep, 1);
    QCOMPARE(impostazioni.Tastiera, QString());
    // Its starting folder was that dialog's alone.
    QVERIFY(servizi().dlgFile.cartella != stato().CartellaProgramma);

    Modifica(banco);
    dialoghi.casella(u"Salvare?"_s, DomandaSalvare(percorso), QMessageBox::Question, QMessageBox::Yes);
    banco.Comando(u"mnuFileChiudi"_s);
    QCOMPARE(banco.Linee(percorso), QStringList(u"@nuova@new@"_s));
    banco.Comando(u"mnuFileRecente(0)"_s);
    QCOMPARE(banco.Parole(1), QStringList(u"nuova"_s));
    QVERIFY(dialoghi.verifica());
}

void TestDocumenti::nuovoSuEsistente()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, Tre, "[Lingue]\r\nGreco\r\nItaliano\r\n");
    const QByteArray prima = LeggiTutto(percorso);
    dialoghi.file(percorso);
    banco.Comando(u"mnuFileNuovo"_s);
    QCOMPARE(banco.Parole(1).size(), 3);
    QCOMPARE(banco.Testo(u"lbltitolo"_s), u"Dizionario Greco/Italiano"_s);
    Modifica(banco);
    dialoghi.casella(u"Salvare?"_s, DomandaSalvare(percorso), QMessageBox::Question, QMessageBox::No);
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(LeggiTutto(percorso), prima);
}

void TestDocumenti::nuovoENo_data()
{
    QTest::addColumn<bool>("salvato");
    QTest::addColumn<bool>("resta");
    QTest::newRow("mai salvato") << false << false;
    QTest::newRow("salvato una volta") << true << true;
}

void TestDocumenti::nuovoENo()
{
    QFETCH(const bool, salvato);
    QFETCH(const bool, resta);
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.File(u"nuovo.dic"_s);
    dialoghi.file(percorso);
    banco.Comando(u"mnuFileNuovo"_s);
    if (salvato) {
        SegnaModificato();
        banco.Comando(u"mnuFileSalva"_s);
    }
    Modifica(banco);
    dialoghi.casella(u"Salvare?"_s, DomandaSalvare(percorso), QMessageBox::Question, QMessageBox::No);
    banco.Comando(u"mnuFileChiudi"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(QFile::exists(percorso), resta);
}

void TestDocumenti::nuovoAnnullatoOImpossibile()
{
    Dialoghi dialoghi;
    const Banco banco;
    dialoghi.file(QString());
    banco.Comando(u"mnuFileNuovo"_s);
    QVERIFY(!banco.Visualizza());
    const CartellaProva cartella;
    cartella.Chiudi();
    const SenzaPrivilegi scope;
    const QString percorso = cartella.chiusa + u"/a.dic"_s;
    dialoghi.file(percorso);
    dialoghi.errore(u"Errore!"_s, u"Impossibile creare il dizionario "_s + percorso);
    banco.Comando(u"mnuFileNuovo"_s);
    QVERIFY(dialoghi.verifica());
    QVERIFY(!banco.Visualizza());
    QVERIFY(banco.Azione(u"mnuFileNuovo"_s)->isEnabled());
    QCOMPARE(stato().PercorsoDizionario, QString());
}

void TestDocumenti::daModello()
{
    const QString filtro = u"*.dic (dizionari) (*.dic)"_s;
    Dialoghi dialoghi;
    const Banco banco;
    const QByteArray formato = "[Lingue]\nGreco\nItaliano\r[Fonts]\r\nA\r\nB\r\nC\r\nD\r\n[Tasti]\r\n233@69@0@1\r\n"
                               "[Errori]\r\nPercentuale=45\r\n[Tastiera]\r\nTastiera=0408";
    const QString modello = banco.Dizionario(u"modello.dic"_s, Tre, formato);
    dialoghi.casella(u"Varbel"_s, u"Selezionare il dizionario di cui copiare il formato"_s, QMessageBox::Information);
    dialoghi.file(modello, filtro);
    dialoghi.casella(u"Varbel"_s, u"Ora Selezionare il nome del file nuovo da salvare"_s, QMessageBox::Information);
    dialoghi.file(banco.File(u"nuovo"_s), filtro);
    banco.Comando(u"mnuFileNuovoDaModello"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(stato().PercorsoDizionario, banco.File(u"nuovo.dic"_s));
    QCOMPARE(LeggiTutto(banco.File(u"nuovo.ini"_s)), QByteArray(formato)
                                                             .replace("Greco\n", "Greco\r\n")
                                                             .replace("[Lingue]\n", "[Lingue]\r\n")
                                                             .replace("Italiano\r[", "Italiano\r\n[") +
                                                         "\r\n");
    QCOMPARE(stato().impostazioni.lingua1, u"Greco"_s);
    QCOMPARE(stato().impostazioni.NumTastiRapidi, 1);
    QCOMPARE(stato().impostazioni.Tastiera, u"0408"_s);
    QCOMPARE(banco.Parole(1).size(), 0);
    QVERIFY(banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    QVERIFY(QFile::exists(modello));
}

void TestDocumenti::daModelloInterrotto()
{
    const QString primo = u"Selezionare il dizionario di cui copiare il formato"_s;
    const QString secondo = u"Ora Selezionare il nome del file nuovo da salvare"_s;
    Dialoghi dialoghi;
    const Banco banco;
    const QString modello = banco.Dizionario(u"modello.dic"_s, Tre);
    const QString solo = banco.Dizionario(u"solo.dic"_s, Tre, QByteArray());
    const QByteArray prima = LeggiTutto(modello);
    const QStringList file = QDir(banco.cartella.path()).entryList(QDir::Files);
    const auto prova = [&] {
        banco.Comando(u"mnuFileNuovoDaModello"_s);
        return dialoghi.verifica() && !banco.Visualizza() && !stato().DizionarioAperto &&
               QDir(banco.cartella.path()).entryList(QDir::Files) == file;
    };
    dialoghi.casella(u"Varbel"_s, primo, QMessageBox::Information);
    dialoghi.file(QString());
    QVERIFY(prova());

    dialoghi.casella(u"Varbel"_s, primo, QMessageBox::Information);
    dialoghi.file(solo);
    dialoghi.casella(u"Errore!"_s, ErroreIni(banco.File(u"solo.ini"_s)), QMessageBox::Critical);
    QVERIFY(prova());

    dialoghi.casella(u"Varbel"_s, primo, QMessageBox::Information);
    dialoghi.file(modello);
    dialoghi.casella(u"Varbel"_s, secondo, QMessageBox::Information);
    dialoghi.file(QString());
    QVERIFY(prova());

    // A dictionary that exists is not made anew.
    dialoghi.casella(u"Varbel"_s, primo, QMessageBox::Information);
    dialoghi.file(modello);
    dialoghi.casella(u"Varbel"_s, secondo, QMessageBox::Information);
    dialoghi.file(modello);
    dialoghi.errore(u"Errore!"_s, u"Il file "_s + modello + u" esiste già."_s);
    QVERIFY(prova());
    QCOMPARE(LeggiTutto(modello), prima);

    // Nor under a name whose companion file would be the program's settings, nor where it cannot be written.
    const QByteArray programma = LeggiTutto(banco.Ini());
    QDir().mkdir(banco.File(u"b.ini"_s));
    for (const auto &[nome, errore] :
         {std::pair(u"programma/varbel.dic"_s, u"Il nome "_s), std::pair(u"b.dic"_s, u"Impossibile scrivere "_s)}) {
        dialoghi.casella(u"Varbel"_s, primo, QMessageBox::Information);
        dialoghi.file(modello);
        dialoghi.casella(u"Varbel"_s, secondo, QMessageBox::Information);
        dialoghi.file(banco.File(nome));
        dialoghi.errore(u"Errore!"_s, errore);
        QVERIFY(prova());
    }
    QCOMPARE(LeggiTutto(banco.Ini()), programma);
}

void TestDocumenti::apriNonRiesce_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::newRow("manca il compagno") << QByteArray();
    QTest::newRow("tre numeri in un tasto") << QByteArray("[Tasti]\r\n1@2@3\r\n[Errori]\r\n");
    QTest::newRow("ventuno tasti") << "[Tasti]\r\n" + QByteArray("1@2@0@1\r\n").repeated(21) + "[Errori]\r\n";
}

void TestDocumenti::apriNonRiesce()
{
    QFETCH(const QByteArray, ini);
    Dialoghi dialoghi;
    const Banco banco;
    dialoghi.casella(u"Errore!"_s, ErroreIni(banco.File(u"a.ini"_s)), QMessageBox::Critical);
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre, ini));
    QVERIFY(dialoghi.verifica());
    QVERIFY(!stato().DizionarioAperto);
    QVERIFY(!banco.Visualizza());
    QCOMPARE(stato().PercorsoDizionario, QString());
    QCOMPARE(stato().impostazioni.NumTastiRapidi, 0);

    // A dictionary that is not there, its companion or not.
    banco.Dizionario(u"b.dic"_s, Tre);
    QFile::remove(banco.File(u"b.dic"_s));
    dialoghi.casella(u"Errore!"_s, ErroreIni(banco.File(u"b.ini"_s)), QMessageBox::Critical);
    banco.Apri(banco.File(u"b.dic"_s));
    // A folder of such a name.
    QDir().mkdir(banco.File(u"c.dic"_s));
    ScriviInPosto(banco.File(u"c.ini"_s), ScriviIni(ImpostazioniDizionario()));
    dialoghi.errore(u"Errore!"_s, u"Impossibile leggere il dizionario "_s + banco.File(u"c.dic"_s));
    banco.Apri(banco.File(u"c.dic"_s));
    QVERIFY(dialoghi.verifica());
    QVERIFY(!stato().DizionarioAperto);
    QVERIFY(banco.Azione(u"mnuFileApri"_s)->isEnabled());

    banco.Apri(banco.Dizionario(u"d.dic"_s, Tre));
    QCOMPARE(banco.Parole(1).size(), 3);
}

void TestDocumenti::memoriaEsaurita()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer ends the program when memory runs out");
#endif
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, {});
    QVERIFY(FaiFile(percorso, QByteArray("x\0", 2).repeated(30 << 20)));
    const qint64 prima = QFileInfo(percorso).size();
    {
        const PocaMemoria scope(40 << 20);
        dialoghi.errore(u"Errore!"_s, u"Memoria esaurita"_s);
        banco.Apri(percorso);
    }
    QVERIFY(dialoghi.verifica());
    QVERIFY(!stato().DizionarioAperto);
    QVERIFY(!banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    banco.finestra->findChild<QAction *>(u"Toolbar1(3)"_s)->trigger();
    QCOMPARE(QFileInfo(percorso).size(), prima);
    QVERIFY(banco.Azione(u"mnuFileApri"_s)->isEnabled());
}

void TestDocumenti::apriDaDialogo()
{
    Dialoghi dialoghi;
    const Banco banco;
    servizi().dlgFile.cartella = banco.cartella.path();
    dialoghi.file(QString());
    banco.Comando(u"mnuFileApri"_s);
    QVERIFY(dialoghi.verifica());
    QVERIFY(!banco.Visualizza());
    QVERIFY(banco.Azione(u"mnuFileApri"_s)->isEnabled());
    QCOMPARE(dialoghi.ultimaCartella, QDir(banco.cartella.path()).absolutePath());
    banco.Dizionario(u"a.dic"_s, Tre);
    dialoghi.file(u"a.dic"_s);
    banco.Comando(u"mnuFileApri"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(stato().PercorsoDizionario, banco.File(u"a.dic"_s));
}

void TestDocumenti::aperturaDiFileStrani_data()
{
    QTest::addColumn<QByteArray>("byte");
    QTest::addColumn<qint64>("righe");
    QByteArray caso(16 << 20, Qt::Uninitialized);
    quint32 seme = 1;
    for (char &byte : caso) {
        seme = seme * 1664525U + 1013904223U;
        byte = static_cast<char>(seme >> 24U);
    }
    QTest::newRow("0 byte") << QByteArray("") << qint64(0);
    QTest::newRow("dispari") << QByteArray("@\0a\0@\0b\0@\0c", 11) << qint64(1);
    QTest::newRow("16 MB a caso") << caso << qint64(-1);
    QTest::newRow("una riga di 10 MB") << QByteArray("x\0", 2).repeated(5 << 20) << qint64(1);
    QTest::newRow("surrogati soli") << QByteArray("@\0\x00\xD8@\0\x00\xDC@\0\r\0\n\0", 14) << qint64(1);
}

void TestDocumenti::aperturaDiFileStrani()
{
    QFETCH(const QByteArray, byte);
    QFETCH(const qint64, righe);
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, {});
    ScriviInPosto(percorso, byte);
    banco.Apri(percorso);
    QVERIFY(banco.Visualizza());
    QVERIFY(!banco.finestra->grab().isNull());
    if (righe >= 0)
        QCOMPARE(banco.Parole(1).size(), righe);
    banco.Comando(u"mnuFileChiudi"_s);
    QCOMPARE(LeggiTutto(percorso), byte);
    QVERIFY(dialoghi.verifica());
}

void TestDocumenti::recenti()
{
    Dialoghi dialoghi;
    Banco banco;
    QStringList percorsi;
    for (const QString &nome : {u"a.dic"_s, u"b & c.dic"_s, u"d.dic"_s, u"e.dic"_s, u"f.dic"_s})
        percorsi += banco.Dizionario(nome, Tre);
    for (const QString &percorso : percorsi) {
        banco.Apri(percorso);
        banco.Comando(u"mnuFileChiudi"_s);
    }
    const QStringList attesi = {percorsi[4], percorsi[3], percorsi[2], QString(percorsi[1]).replace(u"&"_s, u"&&"_s)};
    QCOMPARE(RecentiVisibili(banco), attesi);
    banco.Avvia();
    QCOMPARE(RecentiVisibili(banco), attesi);
    banco.Comando(u"mnuFileRecente(3)"_s);
    QCOMPARE(stato().PercorsoDizionario, percorsi[1]);
    QCOMPARE(banco.Parole(1).size(), 3);
    banco.Comando(u"mnuFileChiudi"_s);
    QCOMPARE(RecentiVisibili(banco), QStringList({attesi[3], attesi[0], attesi[1], attesi[2]}));
    QVERIFY(dialoghi.verifica());
}

void TestDocumenti::cartellaConPunto()
{
    Dialoghi dialoghi;
    const Banco banco;
    QDir().mkdir(banco.File(u"mario.rossi"_s));
    dialoghi.file(banco.File(u"mario.rossi/a.dic"_s));
    banco.Comando(u"mnuFileNuovo"_s);
    QCOMPARE(stato().PercorsoIni, banco.File(u"mario.rossi/a.ini"_s));
    stato().impostazioni.lingua1 = u"Greco"_s;
    Modifica(banco);
    banco.Comando(u"mnuFileSalva"_s);
    // The writer cuts at the first dot of the whole path.
    QVERIFY(QFile::exists(banco.File(u"mario.ini"_s)));
    QVERIFY(!QFile::exists(banco.File(u"mario.rossi/a.ini"_s)));
    banco.Comando(u"mnuFileChiudi"_s);
    banco.Comando(u"mnuFileRecente(0)"_s);
    QCOMPARE(stato().impostazioni.lingua1, u"Greco"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    // One that came from elsewhere stands beside its dictionary.
    QFile::rename(banco.File(u"mario.ini"_s), banco.File(u"mario.rossi/a.ini"_s));
    banco.Comando(u"mnuFileRecente(0)"_s);
    QCOMPARE(stato().impostazioni.lingua1, u"Greco"_s);
    QVERIFY(dialoghi.verifica());
}

void TestDocumenti::salvaConNome()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, Tre);
    const QByteArray prima = LeggiTutto(percorso);
    banco.Apri(percorso);
    Modifica(banco);
    dialoghi.file(banco.File(u"b"_s));
    banco.Comando(u"mnuFileSalvaConNome"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(dialoghi.ultimoNome, u"a.dic"_s);
    QCOMPARE(stato().PercorsoDizionario, banco.File(u"b.dic"_s));
    QCOMPARE(stato().PercorsoIni, banco.File(u"b.ini"_s));
    QCOMPARE(banco.Testo(u"lblFile"_s), u'(' + banco.File(u"b.dic"_s) + u')');
    QCOMPARE(banco.Linee(banco.File(u"b.dic"_s)).size(), 4);
    QCOMPARE(LeggiTutto(percorso), prima);
    QVERIFY(!stato().Modificato);
    // A file that exists is asked about; No goes back to the dialog.
    const QString domanda = u"Il file "_s + percorso + u" esiste già. Sostituirlo?"_s;
    dialoghi.file(u"a"_s);
    dialoghi.casella(u"Salva con nome"_s, domanda, QMessageBox::Warning, QMessageBox::No);
    dialoghi.file(u"a"_s);
    dialoghi.casella(u"Salva con nome"_s, domanda, QMessageBox::Warning, QMessageBox::Yes);
    banco.Comando(u"mnuFileSalvaConNome"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(banco.Linee(percorso).size(), 4);
    banco.Comando(u"mnuFileChiudi"_s);
    QCOMPARE(RecentiVisibili(banco), QStringList(percorso));
}

void TestDocumenti::salvaConNomeAnnullato()
{
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, Tre);
    banco.Apri(percorso);
    Modifica(banco);
    // Another command's file is still in the shared record.
    servizi().dlgFile.nomeFile = banco.File(u"altro.txt"_s);
    dialoghi.file(QString());
    banco.Comando(u"mnuFileSalvaConNome"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(stato().PercorsoDizionario, percorso);
    QCOMPARE(banco.Linee(percorso).size(), 4);
    QVERIFY(!stato().Modificato);
    QVERIFY(!QFile::exists(banco.File(u"altro.txt"_s)));
}

void TestDocumenti::nomiRiservati_data()
{
    QTest::addColumn<QString>("nome");
    QTest::newRow("il compagno sarebbe varbel.ini") << u"programma/varbel.dic"_s;
    QTest::newRow("varbel.ini") << u"programma/varbel.ini"_s;
    QTest::newRow("un file di impostazioni") << u"a.ini"_s;
}

void TestDocumenti::nomiRiservati()
{
    QFETCH(const QString, nome);
    Dialoghi dialoghi;
    const Banco banco;
    const QString percorso = banco.Dizionario(u"a.dic"_s, Tre);
    const QByteArray programma = LeggiTutto(banco.Ini());
    const QByteArray compagno = LeggiTutto(banco.File(u"a.ini"_s));
    const QString messaggio = u"Il nome "_s + banco.File(nome) + u" non può essere"_s;
    dialoghi.file(banco.File(nome));
    dialoghi.errore(u"Errore!"_s, messaggio);
    banco.Comando(u"mnuFileNuovo"_s);
    QVERIFY(!banco.Visualizza());
    banco.Apri(percorso);
    Modifica(banco);
    dialoghi.file(banco.File(nome));
    if (QFile::exists(banco.File(nome)))
        dialoghi.casella(u"Salva con nome"_s, u"Il file "_s + banco.File(nome) + u" esiste già. Sostituirlo?"_s,
                         QMessageBox::Warning, QMessageBox::Yes);
    dialoghi.errore(u"Errore!"_s, messaggio);
    banco.Comando(u"mnuFileSalvaConNome"_s);
    QVERIFY(dialoghi.verifica());
    QCOMPARE(stato().PercorsoDizionario, percorso);
    QVERIFY(stato().Modificato);
    QCOMPARE(LeggiTutto(banco.Ini()), programma);
    QCOMPARE(LeggiTutto(banco.File(u"a.ini"_s)), compagno);
}

void TestDocumenti::salvaNonRiesce()
{
    Dialoghi dialoghi;
    const Banco banco;
    const CartellaProva cartella;
    QStringList molte;
    for (int i = 0; i < 500; ++i)
        molte += u"@parola%1@word%1@"_s.arg(i);
    const QString percorso = banco.Dizionario(u"a.dic"_s, molte);
    banco.Apri(percorso);
    QFile::remove(banco.File(u"a.ini"_s));

    // A full disk: the entries stay in memory, marked modified; a close with Yes is a Cancel.
    {
        const DiscoPieno pieno(8192);
        dialoghi.errore(u"Errore!"_s, u"Impossibile salvare "_s + percorso);
        banco.Azione(u"mnuFileSalvaConNome"_s)->setEnabled(false);
        banco.Comando(u"mnuFileSalva"_s);
        QVERIFY(dialoghi.verifica());
        // As for a dictionary made by New, which can be saved under another name from now on.
        QVERIFY(banco.Azione(u"mnuFileSalvaConNome"_s)->isEnabled());
        QVERIFY(stato().Modificato);
        QCOMPARE(banco.Parole(1).size(), 500);
        QVERIFY(!QFile::exists(banco.File(u"a.ini"_s)));
        dialoghi.casella(u"Salvare?"_s, DomandaSalvare(percorso), QMessageBox::Question, QMessageBox::Yes);
        dialoghi.errore(u"Errore!"_s, u"Impossibile salvare "_s + percorso);
        QVERIFY(!banco.finestra->close());
        QVERIFY(dialoghi.verifica());
        QVERIFY(stato().DizionarioAperto);
    }
    // Another name that cannot be written: the dictionary keeps its own.
    cartella.Chiudi();
    {
        const SenzaPrivilegi scope;
        dialoghi.file(cartella.chiusa + u"/b.dic"_s);
        dialoghi.errore(u"Errore!"_s, u"Impossibile salvare "_s + cartella.chiusa);
        banco.Comando(u"mnuFileSalvaConNome"_s);
    }
    QVERIFY(dialoghi.verifica());
    QCOMPARE(stato().PercorsoDizionario, percorso);
    QVERIFY(stato().Modificato);

    // The companion file fails alone: a folder stands in its place.
    QDir().mkdir(banco.File(u"a.ini"_s));
    dialoghi.errore(u"Errore!"_s, u"Impossibile salvare "_s + banco.File(u"a.ini"_s));
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(stato().Modificato);
    QDir().rmdir(banco.File(u"a.ini"_s));
    banco.Comando(u"mnuFileSalva"_s);
    QVERIFY(dialoghi.verifica());
    QVERIFY(!stato().Modificato);
    QCOMPARE(banco.Linee(percorso).size(), 500);
}

void TestDocumenti::iniDelProgrammaNonScrivibile()
{
    Dialoghi dialoghi;
    const Banco banco;
    const CartellaProva cartella;
    cartella.Chiudi();
    const QString percorso = banco.Dizionario(u"a.dic"_s, Tre);
    const QByteArray prima = LeggiTutto(banco.Ini());
    banco.Apri(percorso);
    QDir::setCurrent(cartella.chiusa);
    {
        const SenzaPrivilegi scope;
        dialoghi.errore(u"Errore!"_s, u"Impossibile aggiornare "_s + banco.Ini());
        banco.Comando(u"mnuFileChiudi"_s);
    }
    QVERIFY(dialoghi.verifica());
    QCOMPARE(LeggiTutto(banco.Ini()), prima);
    QVERIFY(!stato().DizionarioAperto);
    QCOMPARE(RecentiVisibili(banco), QStringList(percorso));
}

void TestDocumenti::finestraConUnaDomandaPropria()
{
    // A child window that refuses keeps the program open, after the dictionary's own close.
    class Tenace : public QWidget
    {
    public:
        bool tiene = true;

    protected:
        void closeEvent(QCloseEvent *evento) override { evento->setAccepted(!tiene); }
    };
    Dialoghi dialoghi;
    const Banco banco;
    auto *tenace = new Tenace;
    banco.finestra->findChild<QMdiArea *>()->addSubWindow(tenace)->show();
    banco.Apri(banco.Dizionario(u"a.dic"_s, Tre));
    QVERIFY(!banco.finestra->close());
    QVERIFY(!stato().DizionarioAperto);
    QVERIFY(banco.finestra->isVisible());
    tenace->tiene = false;
    QVERIFY(banco.finestra->close());
    QVERIFY(dialoghi.verifica());
}

QTEST_MAIN(TestDocumenti)
#include "tst_Documenti.moc"
