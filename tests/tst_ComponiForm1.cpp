// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Composing: the logic by itself, then its window.
#include "Banco.h"
#include "Dialoghi.h"
#include "Errori.h"
#include "core/FileDizionario.h"
#include "edit/Voci.h"
#include "tools/ComponiForm1.h"
#include "tools/Composizione.h"

#include <QCheckBox>
#include <QListView>
#include <QMdiSubWindow>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
const QStringList Uno = {u"@casa@house@"_s, u"@albero@tree@"_s, u"@cane@dog@"_s, u"c@  @blank@"_s};
const QStringList Due = {u"@ zio @uncle@"_s, u"@nave@ship@"_s, u"@ @nothing@"_s, u"@mare@sea@"_s};

// A program with a.dic open and b.dic in the compose window, whose question gets `risposta` when the test is over.
struct BancoComponi : Banco {
    explicit BancoComponi(const QStringList &uno = Uno, const QStringList &due = Due)
    {
        ImpostazioniDizionario impostazioni;
        impostazioni.FontLingua1 = u"DejaVu Serif"_s;
        impostazioni.FontLingua2 = u"DejaVu Sans Mono"_s;
        a = Dizionario(u"a.dic"_s, uno, ScriviIni(impostazioni));
        b = Dizionario(u"b.dic"_s, due, QByteArray());
        Apri(a);
        Componi(b);
        finestra->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(finestra.get()));
    }

    void Componi(const QString &percorso)
    {
        dialoghi.file(percorso);
        Comando(u"mnuStrumentiComponi"_s);
    }
    [[nodiscard]] ComponiForm1 *Form() const { return finestra->findChild<ComponiForm1 *>(u"ComponiForm1"_s); }
    template <typename T = QPushButton>
    [[nodiscard]] T *C(const QString &nome) const
    {
        return Form()->findChild<T *>(nome);
    }
    void Clic(const QString &nome) const { C(nome)->click(); }
    [[nodiscard]] ListaParole *Lst(int n) const { return C<ListaParole>(u"lstDizionario%1"_s.arg(n)); }
    void Scegli(int n, int i) const { Lst(n)->ImpostaListIndex(i); }
    [[nodiscard]] QString Voci(int n) const
    {
        QStringList voci;
        const QAbstractItemModel *modello = Lst(n)->model();
        for (int i = 0; i < modello->rowCount(); ++i)
            voci += modello->index(i, 0).data().toString();
        return voci.join(u',');
    }
    void Domanda(QMessageBox::StandardButton risposta, const QString &percorso = {})
    {
        dialoghi.casella(u"Attenzione!"_s,
                         u"Salvare le modifiche al dizionario "_s + (percorso.isEmpty() ? b : percorso) + u'?',
                         QMessageBox::Question, risposta);
    }

    Dialoghi dialoghi;
    QString a;
    QString b;
};

// The second words of the rows of Dizionario2.
QString Righe2()
{
    QStringList righe;
    for (qint32 i = 0; i < stato().LenDizionario2; ++i)
        righe += Module1::LemmaDizionario(1, i);
    return righe.join(u',');
}
} // namespace

class TestComponiForm1 : public QObject
{
    Q_OBJECT

private slots:
    void leggeESepara();
    void comeLeTabelleSemplici();
    void apertura();
    void copiaUna();
    void copiaTutte();
    void eliminaEOrdina();
    void daTastiera();
    void chiudeConOgniRisposta();
    void scritturaFallita();
    void fileCambiato();
    void secondoNonLeggibile();
    void secondoInizio();
    void finestraPrincipaleChiusa();
    void dizionarioChiuso();
    void segueIlVisualizzatore();
};

void TestComponiForm1::leggeESepara()
{
    const QTemporaryDir cartella;
    const auto leggi = [&](const QByteArray &byte) {
        Module1::Azzera();
        ScriviInPosto(cartella.filePath(u"x.dic"_s), byte);
        Composizione::Leggi(cartella.filePath(u"x.dic"_s));
        return stato().LenDizionario2;
    };
    QCOMPARE(leggi(QByteArray()), 0);
    QCOMPARE(Composizione::VociDizionario2().size(), 0U);
    QCOMPARE(leggi(QByteArray(1 << 10, '\0')), 1);
    QCOMPARE(NumeroErrore([&] { leggi(QByteArray(1 << 20, '\0')); }), 57);
    const QString testo = u"@c@3@\r\n\r\n\0@b@2@\r\n@a@1@"_s;
    leggi(QByteArray(reinterpret_cast<const char *>(testo.utf16()), testo.size() * 2));
    // The last row of a file without a last line end keeps its place in the first sort, and is nothing special after.
    QCOMPARE(Righe2().split(u',', Qt::SkipEmptyParts), QStringList({u"2"_s, u"3"_s, u"1"_s}));
    Composizione::Libera();
}

void TestComponiForm1::comeLeTabelleSemplici()
{
    // Random copies and deletions against rows that carry their items along.
    QRandomGenerator caso(20261123);
    Module1::Azzera();
    Module1::Stato &s = stato();
    for (qint32 i = 0; i < 300; ++i)
        RigaDi(s.Dizionario1, i) = RigaDaLinea(i % 7 == 0 ? u"@ @b%1@"_s.arg(i) : u"@w%1@p@"_s.arg(i));
    s.LenDizionario1 = 300;
    Ridimensiona(s.Dizionario2, 3);
    Composizione::Voci voci;
    QStringList linee;
    const auto inVista = [](const QString &linea) { return !linea.startsWith(u"@ @") && !linea.isEmpty(); };
    const auto aggiungi = [&](const Composizione::Voci &nuove) { voci.insert(voci.end(), nuove.begin(), nuove.end()); };
    for (int volta = 0; volta < 900; ++volta) {
        const qint32 r = caso.bounded(s.LenDizionario1);
        if (volta == 400) {
            aggiungi(Composizione::CopiaTutto1in2());
            for (qint32 i = 0; i <= s.LenDizionario1; ++i)
                linee += RigaDi(s.Dizionario1, i)[2];
        } else if (caso.bounded(3) > 0) {
            aggiungi(Composizione::Copia1in2(r));
            linee += RigaDi(s.Dizionario1, r)[2];
        } else if (!voci.empty()) {
            const qint32 i = caso.bounded(static_cast<int>(voci.size()));
            linee.removeAt(voci[static_cast<std::size_t>(i)]);
            Composizione::Elimina2(voci, i);
        }
    }
    QCOMPARE(s.LenDizionario2, static_cast<qint32>(linee.size()));
    std::size_t k = 0;
    for (qint32 i = 0; i < s.LenDizionario2; ++i) {
        QCOMPARE(Module1::LemmaDizionario(2, i), linee[i]);
        if (inVista(linee[i])) {
            QCOMPARE(voci.at(k++), i);
        }
    }
    QCOMPARE(k, voci.size());
    QCOMPARE(NumeroErrore([&] { Composizione::Elimina2(voci, static_cast<qint32>(k)); }), 9);
    // Back into a main table with holes, which the viewer then closes: each item still shows its row.
    for (int volta = 0; volta < 40; ++volta)
        RigaDi(s.Dizionario1, caso.bounded(s.LenDizionario1)) = {};
    Composizione::Voci voci1 = Composizione::VociDizionario1();
    const Composizione::Voci copiate(voci.begin() + 5, voci.end());
    const Composizione::Voci nuove = Composizione::Copia2in1(copiate);
    voci1.insert(voci1.end(), nuove.begin(), nuove.end());
    QStringList prima;
    for (const qint32 riga : voci1)
        prima += RigaDi(s.Dizionario1, riga)[2];
    QCOMPARE(prima.last(), Module1::LemmaDizionario(2, copiate.back()));
    const Composizione::Voci dopo = Composizione::DopoChiusuraBuchi(voci1);
    RaccogliVoci();
    QCOMPARE(dopo, Composizione::VociDizionario1());
    for (std::size_t i = 0; i < dopo.size(); ++i)
        QCOMPARE(RigaDi(s.Dizionario1, dopo[i])[2], prima[static_cast<qsizetype>(i)]);
    Composizione::Libera();
}

void TestComponiForm1::apertura()
{
    BancoComponi banco;
    QVERIFY(banco.dialoghi.verifica());
    QCOMPARE(banco.C<QLabel>(u"lblDizionario1"_s)->text(), u"a.dic"_s);
    QCOMPARE(banco.C<QLabel>(u"lblDizionario2"_s)->text(), u"b.dic"_s);
    QCOMPARE(banco.Voci(1), u"albero,cane,casa"_s);
    // Sorted by the word as it stands, shown without its blanks.
    QCOMPARE(banco.Voci(2), u"zio,mare,nave"_s);
    QVERIFY(stato().Modificato && stato().NumFinestre == 1);
    QVERIFY(banco.C<QListView>(u"lstdizionario3"_s)->isHidden());
    const auto font = [&](int n) { return banco.Lst(n)->font().family(); };
    QCOMPARE(font(1), u"DejaVu Serif"_s);
    QCOMPARE(font(2), u"DejaVu Serif"_s);
    banco.C<QCheckBox>(u"chkFont"_s)->click();
    QCOMPARE(font(1), u"DejaVu Serif"_s);
    QCOMPARE(font(2), u"DejaVu Sans Mono"_s);
    QCOMPARE(banco.Lst(2)->font().pointSize(), 10);
    banco.C<QCheckBox>(u"chkFont"_s)->click();
    QCOMPARE(font(2), u"DejaVu Serif"_s);
}

void TestComponiForm1::copiaUna()
{
    BancoComponi banco;
    banco.Clic(u"cmd1to2"_s);
    banco.Clic(u"cmd2to1"_s);
    QCOMPARE(Righe2(), u"nothing,uncle,sea,ship,"_s);
    banco.Scegli(1, 1);
    banco.Clic(u"cmd1to2"_s);
    banco.Clic(u"cmd1to2"_s);
    QCOMPARE(banco.Voci(2), u"zio,mare,nave,cane,cane"_s);
    QCOMPARE(Righe2(), u"nothing,uncle,sea,ship,,dog,dog"_s);

    // The other way, by double click; an entry saved meanwhile makes the dictionary modified again.
    banco.Comando(u"mnuFileSalva"_s);
    banco.Scegli(1, 0);
    QTest::keyRelease(banco.Lst(1), Qt::Key_Delete);
    QMetaObject::invokeMethod(banco.Lst(2), "doubleClicked", Q_ARG(QModelIndex, {}));
    banco.Scegli(2, 2);
    QMetaObject::invokeMethod(banco.Lst(2), "doubleClicked", Q_ARG(QModelIndex, {}));
    QVERIFY(stato().Modificato);
    QCOMPARE(banco.Voci(1), u"cane,casa,nave"_s);
    QCOMPARE(banco.Parole(2), QStringList({u"blank"_s, u"tree"_s, u"dog"_s, u"house"_s, u"ship"_s}));
    banco.Comando(u"mnuFileSalva"_s);
    QCOMPARE(banco.Linee(banco.a).size(), 5);
}

void TestComponiForm1::copiaTutte()
{
    // The last entry of a file without a last line end stands where the next one would be written.
    BancoComponi banco;
    banco.Clic(u"cmdAllto2"_s);
    QCOMPARE(banco.Voci(2), u"zio,mare,nave,albero,cane,casa"_s);
    QCOMPARE(Righe2(), u"nothing,uncle,sea,ship,,blank,tree,dog,house,"_s);
    stato().LenDizionario1 = 3;
    banco.Clic(u"cmdAllto1"_s);
    QCOMPARE(banco.Voci(1), u"albero,cane,casa,zio,mare,nave,albero,cane,casa"_s);
    QCOMPARE(banco.Parole(2).mid(0, 6),
             QStringList({u"blank"_s, u"tree"_s, u"dog"_s, u"house"_s, u"uncle"_s, u"sea"_s}));
    banco.Domanda(QMessageBox::Yes);
    banco.Clic(u"cmdOk"_s);
    QVERIFY(banco.dialoghi.verifica() && !banco.Form());
    QCOMPARE(stato().NumFinestre, 0);
    QCOMPARE(banco.Linee(banco.b),
             QStringList({u"@ @nothing@\r"_s, u"@ zio @uncle@\r"_s, u"@mare@sea@\r"_s, u"@nave@ship@\r"_s,
                          u"c@  @blank@\r"_s, u"@albero@tree@\r"_s, u"@cane@dog@\r"_s, u"@casa@house@\r"_s}));
}

void TestComponiForm1::eliminaEOrdina()
{
    BancoComponi banco;
    banco.Clic(u"cmdAllto2"_s);
    banco.Scegli(2, 1);
    QTest::keyRelease(banco.Lst(2), Qt::Key_Delete);
    QCOMPARE(Righe2(), u"nothing,uncle,ship,,blank,tree,dog,house,"_s);
    // The next item is chosen, and its row is still its own.
    QCOMPARE(banco.Lst(2)->ListIndex(), 1);
    banco.Clic(u"cmd2to1"_s);
    QCOMPARE(banco.Voci(1), u"albero,cane,casa,nave"_s);
    banco.C<QRadioButton>(u"optLingua2(1)"_s)->click();
    banco.Clic(u"cmdOrdina2"_s);
    QCOMPARE(Righe2(), u",,blank,dog,house,nothing,ship,tree,uncle"_s);
    QCOMPARE(banco.Voci(2), u"cane,casa,nave,albero,zio"_s);
    banco.Scegli(2, 3);
    banco.Clic(u"cmd2to1"_s);

    banco.C<QRadioButton>(u"optLingua(1)"_s)->click();
    banco.Clic(u"cmdOrdina1"_s);
    QCOMPARE(banco.Voci(1), u"cane,casa,nave,albero,albero"_s);
    QCOMPARE(banco.Parole(2).mid(0, 6),
             QStringList({u"blank"_s, u"dog"_s, u"house"_s, u"ship"_s, u"tree"_s, u"tree"_s}));
    QVERIFY(banco.C<QRadioButton>(u"optLingua2(1)"_s)->isChecked());
    // On the open dictionary only the item goes.
    banco.Scegli(1, 0);
    QTest::keyRelease(banco.Lst(1), Qt::Key_Delete);
    QCOMPARE(banco.Voci(1), u"casa,nave,albero,albero"_s);
    banco.Scegli(1, 0);
    banco.Clic(u"cmd1to2"_s);
    QVERIFY(Righe2().endsWith(u"uncle,house"_s));
    QCOMPARE(banco.Parole(2).size(), 6);
}

void TestComponiForm1::daTastiera()
{
    BancoComponi banco;
    QCOMPARE(QApplication::focusWidget(), banco.Lst(1));
    QStringList giro;
    for (int i = 0; i < 11; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        giro += QApplication::focusWidget()->objectName();
    }
    QCOMPARE(giro, QStringList({u"optLingua(0)"_s, u"cmdOrdina1"_s, u"cmd1to2"_s, u"cmd2to1"_s, u"cmdAllto1"_s,
                                u"cmdAllto2"_s, u"lstDizionario2"_s, u"optLingua2(0)"_s, u"cmdOrdina2"_s, u"chkFont"_s,
                                u"cmdOk"_s}));
    banco.Lst(1)->setFocus(Qt::TabFocusReason);
    BancoComponi::Batti(Qt::Key_Down, {});
    BancoComponi::Batti(Qt::Key_Down, {});
    BancoComponi::Batti(Qt::Key_Return, {}, u"\r"_s);
    QCOMPARE(banco.Voci(2), u"zio,mare,nave,cane"_s);
    banco.Lst(2)->setFocus(Qt::TabFocusReason);
    BancoComponi::Batti(Qt::Key_End, {});
    BancoComponi::Batti(Qt::Key_Enter, Qt::KeypadModifier, u"\r"_s);
    QCOMPARE(banco.Voci(1), u"albero,cane,casa,cane"_s);
    // Let go, once: neither the press nor its repetitions.
    QTest::keyPress(banco.Lst(2), Qt::Key_Delete);
    QKeyEvent ripetuto(QEvent::KeyRelease, Qt::Key_Delete, {}, QString(), true);
    QApplication::sendEvent(banco.Lst(2), &ripetuto);
    QCOMPARE(banco.Voci(2), u"zio,mare,nave,cane"_s);
    QTest::keyRelease(banco.Lst(2), Qt::Key_Delete);
    QCOMPARE(banco.Voci(2), u"zio,mare,nave"_s);
}

void TestComponiForm1::chiudeConOgniRisposta()
{
    BancoComponi banco;
    const QByteArray prima = LeggiTutto(banco.b);
    banco.Scegli(2, 0);
    QTest::keyRelease(banco.Lst(2), Qt::Key_Delete);
    const ComponiForm1 *form = banco.Form();
    for (int modo = 0; modo < 3; ++modo) {
        banco.Domanda(QMessageBox::Cancel);
        if (modo < 2)
            banco.Clic(modo == 0 ? u"cmdAnnulla"_s : u"cmdOk"_s);
        else
            banco.Form()->parentWidget()->close();
        QVERIFY(banco.dialoghi.verifica());
        QCOMPARE(banco.Form(), form);
        QCOMPARE(stato().NumFinestre, 1);
    }
    QCOMPARE(banco.Voci(2), u"mare,nave"_s);
    banco.Domanda(QMessageBox::No);
    banco.Clic(u"cmdAnnulla"_s);
    QVERIFY(banco.dialoghi.verifica() && !banco.Form());
    QCOMPARE(LeggiTutto(banco.b), prima);
    QVERIFY(stato().Modificato);
}

void TestComponiForm1::scritturaFallita()
{
    BancoComponi banco;
    banco.Domanda(QMessageBox::Yes);
    banco.dialoghi.errore(u"Errore!"_s, u"Impossibile salvare "_s + banco.b + u'.');
    {
        const DiscoPieno pieno(50);
        banco.Clic(u"cmdOk"_s);
    }
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(banco.Voci(2), u"zio,mare,nave"_s);
    banco.Domanda(QMessageBox::Yes);
    banco.Clic(u"cmdOk"_s);
    QVERIFY(banco.dialoghi.verifica() && !banco.Form());
    QCOMPARE(banco.Linee(banco.b).size(), 4);
}

void TestComponiForm1::fileCambiato()
{
    // The open dictionary's own file: saved while the window is open, it holds what Dizionario2 does not.
    BancoComponi banco;
    banco.Domanda(QMessageBox::No);
    banco.Componi(banco.a);
    banco.Clic(u"cmdAllto1"_s);
    banco.Comando(u"mnuFileSalva"_s);
    const QByteArray salvato = LeggiTutto(banco.a);
    const auto chiudi = [&](QMessageBox::StandardButton sostituire) {
        banco.Domanda(QMessageBox::Yes, banco.a);
        banco.dialoghi.casella(u"Attenzione!"_s,
                               u"Il file "_s + banco.a + u" è cambiato da quando è stato aperto qui. Sostituirlo?"_s,
                               QMessageBox::Warning, sostituire);
        banco.Clic(u"cmdAnnulla"_s);
        return banco.dialoghi.verifica();
    };
    QVERIFY(chiudi(QMessageBox::No));
    QVERIFY(banco.Form() && !stato().Modificato);
    QCOMPARE(LeggiTutto(banco.a), salvato);
    QVERIFY(chiudi(QMessageBox::Yes));
    QVERIFY(!banco.Form());
    QCOMPARE(banco.Linee(banco.a).size(), 4);
    // What the dictionary in memory has more is asked for when it closes.
    QVERIFY(stato().Modificato);
}

void TestComponiForm1::secondoNonLeggibile()
{
    Dialoghi dialoghi;
    const Banco banco;
    banco.Apri(banco.Dizionario(u"a.dic"_s, Uno));
    dialoghi.file(QString());
    banco.Comando(u"mnuStrumentiComponi"_s);
    // A settings file is no dictionary: to save it as one would lose the settings.
    dialoghi.file(banco.File(u"a.ini"_s));
    dialoghi.errore(u"Errore!"_s, u"Il nome "_s + banco.File(u"a.ini"_s));
    banco.Comando(u"mnuStrumentiComponi"_s);
    const QString chiuso = banco.Dizionario(u"b.dic"_s, Due);
    QVERIFY(QFile::setPermissions(chiuso, Scrivere) && QFile::setPermissions(banco.cartella.path(), LeggereEntrare));
    const SenzaPrivilegi senza;
    QVERIFY(senza.riuscito);
    dialoghi.file(chiuso);
    dialoghi.errore(u"Errore!"_s, u"Impossibile leggere il dizionario "_s + chiuso + u'.');
    banco.Azione(u"Toolbar1(7)"_s)->trigger();
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QVERIFY(!banco.Aperta("ComponiForm1") && !stato().Modificato);
    QCOMPARE(stato().LenDizionario2, 0);
}

void TestComponiForm1::secondoInizio()
{
    BancoComponi banco;
    const QString c = banco.Dizionario(u"c.dic"_s, {u"@uva@grape@"_s}, QByteArray());
    banco.Scegli(1, 0);
    banco.Clic(u"cmd1to2"_s);
    banco.Domanda(QMessageBox::Cancel);
    banco.Comando(u"mnuStrumentiComponi"_s);
    QCOMPARE(banco.Voci(2), u"zio,mare,nave,albero"_s);
    banco.Domanda(QMessageBox::Yes);
    banco.Componi(c);
    QVERIFY2(banco.dialoghi.verifica(), qPrintable(banco.dialoghi.guasti()));
    QCOMPARE(banco.dialoghi.ultimoNome, QString());
    QCOMPARE(banco.Linee(banco.b).size(), 5);
    QCOMPARE(banco.Voci(2), u"uva"_s);
    QCOMPARE(stato().NumFinestre, 1);
}

void TestComponiForm1::finestraPrincipaleChiusa()
{
    BancoComponi banco;
    banco.Comando(u"mnuStrumentiCaratteri"_s);
    banco.dialoghi.casella(u"Salvare?"_s, u"Il dizionario "_s + banco.a + u" è stato modificato. Salvare?"_s,
                           QMessageBox::Question, QMessageBox::No);
    banco.Domanda(QMessageBox::Cancel);
    QVERIFY(!banco.finestra->close());
    QVERIFY(banco.dialoghi.verifica());
    QVERIFY(banco.finestra->isVisible() && banco.Form() && banco.Aperta("TastiRapidiForm"));
    QCOMPARE(banco.Voci(2), u"zio,mare,nave"_s);
    banco.Domanda(QMessageBox::Yes);
    QVERIFY(banco.finestra->close());
    QVERIFY(banco.dialoghi.verifica());
    QCOMPARE(banco.Linee(banco.b).size(), 4);
}

void TestComponiForm1::dizionarioChiuso()
{
    BancoComponi banco;
    banco.Scegli(1, 0);
    banco.Scegli(2, 0);
    stato().Modificato = false;
    banco.Comando(u"mnuFileChiudi"_s);
    QCOMPARE(banco.Voci(1), QString());
    for (const QString &nome : {u"cmd1to2"_s, u"cmd2to1"_s, u"cmdAllto1"_s, u"cmdAllto2"_s, u"cmdOrdina1"_s})
        QVERIFY(!banco.C(nome)->isEnabled());
    QTest::keyClick(banco.Lst(2), Qt::Key_Return);
    QTest::keyRelease(banco.Lst(2), Qt::Key_Delete);
    QCOMPARE(banco.Voci(2), u"mare,nave"_s);
    QVERIFY(!stato().Modificato && !banco.Visualizza() && stato().LenDizionario1 == 0);

    banco.Apri(banco.Dizionario(u"c.dic"_s, {u"@uva@grape@"_s}));
    QCOMPARE(banco.Voci(1), u"uva"_s);
    QCOMPARE(banco.C<QLabel>(u"lblDizionario1"_s)->text(), u"c.dic"_s);
    banco.Clic(u"cmdAllto1"_s);
    QCOMPARE(banco.Parole(1), QStringList({u"uva"_s, u"mare"_s, u"nave"_s}));
    stato().Modificato = false;
    banco.Comando(u"mnuFileChiudi"_s);
    banco.Domanda(QMessageBox::Yes);
    banco.Clic(u"cmdOk"_s);
    QVERIFY(banco.dialoghi.verifica() && !banco.Form() && !banco.Visualizza());
    QCOMPARE(banco.Linee(banco.b).size(), 3);
}

void TestComponiForm1::segueIlVisualizzatore()
{
    BancoComponi banco;
    banco.Lista(1)->setCurrentIndex(banco.Lista(1)->model()->index(1, 0));
    banco.dialoghi.casella(u"Attenzione!"_s, u"Cancellare la voce : albero = tree?"_s, QMessageBox::Question,
                           QMessageBox::Yes);
    banco.Comando(u"mnuModificaElimina"_s);
    QCOMPARE(banco.Voci(1), u"cane,casa"_s);
    banco.Scegli(1, 1);
    banco.Clic(u"cmd1to2"_s);
    banco.Comando(u"mnuModificaOrdina2"_s);
    banco.Scegli(1, 0);
    banco.Clic(u"cmd1to2"_s);
    QVERIFY(Righe2().endsWith(u"house,dog"_s));
}

QTEST_MAIN(TestComponiForm1)
#include "tst_ComponiForm1.moc"
