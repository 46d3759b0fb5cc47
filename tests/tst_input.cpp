// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Module1.h"
#include "input/CodiciTasto.h"
#include "input/TastiRapidi.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using Module1::stato;

class TestInput : public QObject
{
    Q_OBJECT

private slots:
    void init() { Module1::Azzera(); }
    void codici_data();
    void codici();
    void inserimento_data();
    void inserimento();
    void piuRighe();
    void tabellaPiena();
    void definito();

private:
    void Aggiungi(qint16 carattere, qint16 tasto, bool shift, bool ctrl)
    {
        ImpostazioniDizionario &impostazioni = stato().impostazioni;
        impostazioni.TastiRapidi[static_cast<std::size_t>(impostazioni.NumTastiRapidi)] = {
            carattere, tasto, static_cast<qint16>(shift), static_cast<qint16>(ctrl)};
        ++impostazioni.NumTastiRapidi;
    }
};

void TestInput::codici_data()
{
    QTest::addColumn<int>("tasto");
    QTest::addColumn<quint32>("scansione");
    QTest::addColumn<bool>("tastierino");
    QTest::addColumn<int>("codice");
    const auto riga = [](const char *nome, int tasto, quint32 scansione, int codice, bool tastierino = false) {
        QTest::newRow(nome) << tasto << scansione << tastierino << codice;
    };
    riga("Backspace", Qt::Key_Backspace, 22, 8);
    riga("Tab all'indietro", Qt::Key_Backtab, 23, 9);
    riga("Invio del tastierino", Qt::Key_Enter, 104, 13, true);
    riga("AltGr", Qt::Key_AltGr, 108, 18);
    riga("spazio", Qt::Key_Space, 65, 32);
    riga("Canc", Qt::Key_Delete, 119, 46);
    riga("F1", Qt::Key_F1, 67, 112);
    riga("F12", Qt::Key_F12, 96, 123);
    riga("F24", Qt::Key_F24, 202, 135);
    riga("F25 non ne ha", Qt::Key_F25, 0, 255);
    riga("cifra del tastierino", Qt::Key_7, 79, 103, true);
    riga("stessa senza BlocNum", Qt::Key_Home, 79, 36, true);
    riga("più del tastierino", Qt::Key_Plus, 86, 107, true);
    riga("virgola del tastierino", Qt::Key_Comma, 91, 110, true);
    // Italian: è stands where the US [ is, Shift+2 is a quote.
    riga("italiano è", Qt::Key_Egrave, 34, 219);
    riga("italiano Shift+2", Qt::Key_QuoteDbl, 11, '2');
    riga("italiano minore", Qt::Key_Less, 94, 226);
    // French: A where the US Q is goes by its letter; digits are the shifted signs of their row.
    riga("francese A", Qt::Key_A, 24, 'A');
    riga("francese é", Qt::Key_Eacute, 11, '2');
    riga("francese M", Qt::Key_M, 47, 'M');
    riga("tedesco Z", Qt::Key_Z, 29, 'Z');
    riga("tedesco ö", Qt::Key_Odiaeresis, 47, 186);
    riga("tedesco AltGr+Q", Qt::Key_At, 24, 'Q');
    riga("greco α", 0x0391, 38, 'A');
    riga("greco tasto morto", Qt::Key_Dead_Acute, 47, 186);
    riga("russo ф", 0x0424, 38, 'A');
    riga("russo э", 0x042D, 48, 222);
    riga("arabo", 0x0634, 38, 'A');
    riga("senza scansione, segno", Qt::Key_Question, 0, 191);
    riga("senza scansione, Shift+cifra", Qt::Key_Exclam, 0, '1');
    riga("senza scansione, greco", 0x0391, 0, 255);
    riga("sconosciuto", Qt::Key_unknown, 0, 255);
    riga("zero", 0, 0, 255);
}

void TestInput::codici()
{
    QFETCH(const int, tasto);
    QFETCH(const quint32, scansione);
    QFETCH(const bool, tastierino);
    QFETCH(const int, codice);
    QCOMPARE(int(CodiciTasto::Codice(tasto, scansione, tastierino)), codice);
}

void TestInput::inserimento_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("punto");
    QTest::addColumn<int>("maschera");
    QTest::addColumn<QString>("dopo");
    QTest::addColumn<int>("puntoDopo");
    QTest::addColumn<bool>("ctrl");
    // One hotkey an E: plain é, Shift È, Ctrl ê, Ctrl+Shift ë.
    QTest::newRow("semplice, dopo il carattere battuto") << u"caffe"_s << 5 << 0 << u"caffeé"_s << 6 << false;
    QTest::newRow("Shift prende il posto del carattere") << u"caffEx"_s << 5 << 1 << u"caffÈx"_s << 6 << false;
    QTest::newRow("Shift all'inizio") << u"abc"_s << 0 << 1 << u"Èabc"_s << 1 << false;
    QTest::newRow("Shift in un testo vuoto") << u""_s << 0 << 1 << u"È"_s << 1 << false;
    QTest::newRow("Ctrl") << u"abc"_s << 1 << 2 << u"aêbc"_s << 2 << true;
    QTest::newRow("Ctrl e Shift") << u"abc"_s << 3 << 3 << u"abcë"_s << 4 << true;
    QTest::newRow("Alt") << u"abc"_s << 1 << 4 << u"abc"_s << 1 << false;
    QTest::newRow("Alt e Ctrl") << u"abc"_s << 1 << 6 << u"abc"_s << 1 << false;
    QTest::newRow("tutti") << u"abc"_s << 1 << 7 << u"abc"_s << 1 << false;
}

void TestInput::inserimento()
{
    QFETCH(QString, testo);
    QFETCH(const int, punto);
    QFETCH(const int, maschera);
    QFETCH(const QString, dopo);
    QFETCH(const int, puntoDopo);
    QFETCH(const bool, ctrl);
    Aggiungi(233, 'E', false, false);
    Aggiungi(200, 'E', true, false);
    Aggiungi(234, 'E', false, true);
    Aggiungi(235, 'E', true, true);
    qsizetype p = punto;
    bool notato = !ctrl;
    TastiRapidi::Inserisci(testo, p, 'E', static_cast<quint8>(maschera), notato);
    QCOMPARE(testo, dopo);
    QCOMPARE(p, puntoDopo);
    QCOMPARE(notato, ctrl);
    const QString prima = testo;
    QVERIFY(!TastiRapidi::Inserisci(testo, p, 'F', static_cast<quint8>(maschera), notato));
    QCOMPARE(testo, prima);
}

void TestInput::piuRighe()
{
    // Two equal hotkeys both apply at the same place; codes outside the code page insert nothing.
    Aggiungi(233, 'E', false, true);
    Aggiungi(128, 'E', false, true);
    Aggiungi(0, 'E', false, true);
    Aggiungi(256, 'E', false, true);
    Aggiungi(-1, 'E', false, true);
    QString testo = u"ab"_s;
    qsizetype p = 1;
    bool notato = false;
    QVERIFY(TastiRapidi::Inserisci(testo, p, 'E', MascheraCtrl, notato));
    QCOMPARE(testo, u"a€éb"_s);
    QCOMPARE(p, 2);
    // The row past the last one in use takes part: a row that a deletion left behind.
    stato().impostazioni.NumTastiRapidi = 0;
    QVERIFY(TastiRapidi::Inserisci(testo, p, 'E', MascheraCtrl, notato));
    QCOMPARE(testo, u"a€éb"_s.insert(2, u'é'));
}

void TestInput::tabellaPiena()
{
    for (qint16 i = 0; i < MassimoTastiRapidi; ++i)
        Aggiungi(static_cast<qint16>(192 + i), static_cast<qint16>('A' + i), false, true);
    QString testo;
    qsizetype p = 0;
    bool notato = false;
    QVERIFY(TastiRapidi::Inserisci(testo, p, 'T', MascheraCtrl, notato));
    QCOMPARE(testo, QString(QChar(192 + 19)));
    QVERIFY(!TastiRapidi::Inserisci(testo, p, 'U', MascheraCtrl, notato));
}

void TestInput::definito()
{
    Aggiungi(233, 'C', false, true);
    QVERIFY(TastiRapidi::Definito('C', false, true));
    QVERIFY(!TastiRapidi::Definito('C', true, true));
    QVERIFY(!TastiRapidi::Definito('V', false, true));
    // The zero row past the last is no hotkey of the key 0.
    QVERIFY(!TastiRapidi::Definito(0, false, false));
}

QTEST_GUILESS_MAIN(TestInput)
#include "tst_input.moc"
