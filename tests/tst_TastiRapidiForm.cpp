// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The hotkey editor and the character map that serves it.
#include "Banco.h"
#include "Dialoghi.h"
#include "input/CaratteriForm1.h"
#include "input/TastiRapidiForm.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QTabWidget>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
// A program with a dictionary of these hotkeys open, and the editor.
struct BancoTasti : Banco {
    explicit BancoTasti(const QList<TastoRapido> &tasti = {})
    {
        Apri(Con(u"a.dic"_s, tasti));
        Comando(u"mnuStrumentiCaratteri"_s);
        static_cast<void>(QTest::qWaitForWindowActive(finestra.get()));
    }

    [[nodiscard]] QString Con(const QString &nome, const QList<TastoRapido> &tasti) const
    {
        ImpostazioniDizionario impostazioni;
        impostazioni.FontLingua2 = u"DejaVu Serif"_s;
        std::copy(tasti.cbegin(), tasti.cend(), impostazioni.TastiRapidi.begin());
        impostazioni.NumTastiRapidi = static_cast<qint16>(tasti.size());
        return Dizionario(nome, {u"@casa@house@"_s}, ScriviIni(impostazioni));
    }

    template <typename T = QPushButton>
    [[nodiscard]] T *Controllo(const QString &nome) const
    {
        return finestra->findChild<TastiRapidiForm *>()->findChild<T *>(nome);
    }
    [[nodiscard]] QLineEdit *Casella() const { return Controllo<QLineEdit>(u"txtTastoRapido"_s); }
    [[nodiscard]] QString Scritto(const QString &etichetta) const { return Controllo<QLabel>(etichetta)->text(); }
    [[nodiscard]] QStringList Voci(const QString &nome) const
    {
        QStringList voci;
        const auto *lista = Controllo<QListWidget>(nome);
        for (int i = 0; i < lista->count(); ++i)
            voci += lista->item(i)->text();
        return voci;
    }
    [[nodiscard]] CaratteriForm1 *Mappa() const
    {
        Controllo(u"cmdSeleziona"_s)->click();
        return finestra->findChild<CaratteriForm1 *>(u"CaratteriForm1"_s);
    }
    void Carattere(int k) const
    {
        QTest::mouseDClick(Mappa()->findChild<QLabel *>(u"Label1(%1)"_s.arg(k)), Qt::LeftButton);
    }
    void Aggiungi(int k, Qt::Key tasto) const
    {
        Carattere(k);
        QTest::keyClick(Casella(), tasto);
        Controllo(u"cmdAggiungi"_s)->click();
    }
    static TastoRapido Riga(std::size_t i) { return stato().impostazioni.TastiRapidi[i]; }
};
} // namespace

class TestTastiRapidiForm : public QObject
{
    Q_OBJECT

private slots:
    void elencoAllApertura();
    void listeInsieme();
    void ordineDeiControlli();
    void eliminaESovrascrive();
    void ventiTasti();
    void tastoNotato();
    void mappaColMouse();
    void mappaDaTastiera();
    void mappaChiusa();
    void dizionarioChiuso();
};

void TestTastiRapidiForm::elencoAllApertura()
{
    // Codes that a settings file may hold, in the code page or not.
    const BancoTasti banco({{233, 69, 1, 1}, {128, 221, 0, 1}, {241, 78, 1, 0}, {300, -5, 0, 0}});
    QCOMPARE(banco.Voci(u"lstTasti"_s), QStringList({u"é"_s, u"€"_s, u"ñ"_s, u""_s}));
    QCOMPARE(banco.Voci(u"lstTasti2"_s),
             QStringList({u"(69)  E +SHIFT +CTRL"_s, u"(221)  Ý +CTRL"_s, u"(78)  N +SHIFT"_s, u"(-5)  "_s}));
    auto *tasti = banco.finestra->findChild<TastiRapidiForm *>();
    QCOMPARE(tasti->parentWidget()->size(), QSize(433, 433));
    QCOMPARE(banco.Casella()->height(), 20);
    for (const QString &nome : {u"lblCarattere"_s, u"lstTasti"_s})
        QCOMPARE(banco.Controllo<QWidget>(nome)->font().family(), u"DejaVu Serif"_s);
    QVERIFY(!stato().Modificato);
    QCOMPARE(QApplication::focusWidget(), banco.Casella());
    banco.Controllo(u"cmdChiudi"_s)->click();
    QCOMPARE(stato().NumFinestre, 0);
}

void TestTastiRapidiForm::listeInsieme()
{
    const BancoTasti banco({{233, 69, 1, 1}, {128, 69, 0, 1}, {241, 78, 1, 0}});
    auto *lista1 = banco.Controllo<QListWidget>(u"lstTasti"_s);
    auto *lista2 = banco.Controllo<QListWidget>(u"lstTasti2"_s);
    const auto scelte = [&] { return std::pair(lista1->selectedItems().value(0), lista2->selectedItems().value(0)); };
    const auto riga = [&](int i) { return std::pair(lista1->item(i), lista2->item(i)); };
    // Coming by Tab chooses nothing; the first arrow then chooses the first row.
    lista1->setFocus(Qt::TabFocusReason);
    QCOMPARE(scelte(), riga(-1));
    QTest::keyClick(lista1, Qt::Key_Down);
    QCOMPARE(scelte(), riga(0));
    QTest::keyClick(lista2, Qt::Key_End);
    QCOMPARE(scelte(), riga(2));
    for (const auto tasti : {Qt::NoModifier, Qt::ControlModifier}) {
        QTest::mouseClick(lista1->viewport(), Qt::LeftButton, tasti, lista1->visualItemRect(lista1->item(1)).center());
        QCOMPARE(scelte(), riga(1));
    }
    QCOMPARE(lista1->visualItemRect(lista1->item(2)).top(), lista2->visualItemRect(lista2->item(2)).top());
}

void TestTastiRapidiForm::ordineDeiControlli()
{
    Dialoghi dialoghi;
    const BancoTasti banco({{233, 'E', 0, 0}});
    auto *aggiungi = banco.Controllo(u"cmdAggiungi"_s);
    auto *shift = banco.Controllo<QCheckBox>(u"chkShift"_s);
    const auto rifiuta = [&](const QString &titolo, const QString &testo) {
        dialoghi.casella(titolo, testo, QMessageBox::Critical);
        aggiungi->click();
        return dialoghi.verifica();
    };
    const auto presente = [&] { return rifiuta(u"Attenzione"_s, u"Combinazione di tasti già presente!"_s); };
    const auto nonValido = [&] { return rifiuta(u"Attenzione!"_s, u"Tasto non valido!"_s); };

    // With no key yet the row past the last, all zeros, is that combination; the character is looked at later.
    QVERIFY2(presente(), qPrintable(dialoghi.guasti()));
    QTest::keyClick(banco.Casella(), Qt::Key_E);
    QVERIFY(presente());
    shift->setChecked(true);
    QVERIFY(nonValido());
    banco.Carattere(225);
    QCOMPARE(banco.Scritto(u"lblCarattere"_s), u"ÿ"_s);
    QTest::keyClick(banco.Casella(), Qt::Key_Backspace);
    QVERIFY(nonValido());
    QCOMPARE(BancoTasti::Riga(1), (TastoRapido{255, 0, 0, 0}));
    QCOMPARE(stato().impostazioni.NumTastiRapidi, 1);
    QVERIFY(!stato().Modificato);

    banco.Controllo<QCheckBox>(u"chkControl"_s)->setChecked(true);
    QTest::keyClick(banco.Casella(), Qt::Key_Q);
    banco.Azione(u"mnuFileSalva"_s)->setEnabled(false);
    QTest::keyClick(banco.Casella(), Qt::Key_Return);
    QCOMPARE(BancoTasti::Riga(1), (TastoRapido{255, 'Q', 1, 1}));
    QCOMPARE(banco.Voci(u"lstTasti"_s), QStringList({u"é"_s, u"ÿ"_s}));
    QCOMPARE(banco.Voci(u"lstTasti2"_s), QStringList({u"(69)  E"_s, u"(81)  q+CTRL+SHIFT"_s}));
    QVERIFY(stato().Modificato);
    QVERIFY(banco.Azione(u"mnuFileSalva"_s)->isEnabled());
    QVERIFY(presente());
}

void TestTastiRapidiForm::eliminaESovrascrive()
{
    Dialoghi dialoghi;
    const BancoTasti banco({{233, 'E', 0, 1}, {241, 'N', 0, 1}, {252, 'U', 0, 1}});
    auto *elimina = banco.Controllo(u"cmdElimina"_s);
    dialoghi.casella(u"Attenzione!"_s, u"Nessun tasto rapido selezionato!"_s, QMessageBox::Critical);
    elimina->click();
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QVERIFY(!stato().Modificato);

    banco.Controllo<QListWidget>(u"lstTasti2"_s)->setCurrentRow(1);
    elimina->click();
    QVERIFY(stato().Modificato);
    QCOMPARE(stato().impostazioni.NumTastiRapidi, 2);
    QCOMPARE(BancoTasti::Riga(1), TastoRapido{});
    QCOMPARE(BancoTasti::Riga(2), (TastoRapido{252, 'U', 0, 1}));
    QCOMPARE(banco.Voci(u"lstTasti"_s), QStringList({u"é"_s, u"ü"_s}));
    QCOMPARE(banco.Voci(u"lstTasti2"_s), QStringList({u"(69)  E +CTRL"_s, u"(85)  U +CTRL"_s}));
    QVERIFY(banco.Controllo<QListWidget>(u"lstTasti"_s)->selectedItems().isEmpty());

    // The next one takes the row of the former last, which the lists still show.
    banco.Aggiungi(4, Qt::Key_K);
    QCOMPARE(BancoTasti::Riga(2), (TastoRapido{'"', 'K', 0, 0}));
    QCOMPARE(banco.Voci(u"lstTasti"_s), QStringList({u"é"_s, u"ü"_s, u"\""_s}));
    banco.Comando(u"mnuFileSalva"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    banco.Apri(banco.File(u"a.dic"_s));
    QCOMPARE(banco.Voci(u"lstTasti"_s), QStringList({u"é"_s, u"\""_s}));
    QCOMPARE(banco.Voci(u"lstTasti2"_s), QStringList({u"(69)  E +CTRL"_s, u"(75)  K"_s}));
}

void TestTastiRapidiForm::ventiTasti()
{
    Dialoghi dialoghi;
    QList<TastoRapido> tasti;
    for (qint16 i = 0; i < MassimoTastiRapidi - 1; ++i)
        tasti += TastoRapido{static_cast<qint16>(192 + i), static_cast<qint16>('A' + i), 0, 1};
    const BancoTasti banco(tasti);
    banco.Aggiungi(220, Qt::Key_Y);
    QCOMPARE(stato().impostazioni.NumTastiRapidi, MassimoTastiRapidi);
    const auto prima = stato().impostazioni.TastiRapidi;
    dialoghi.casella(u"Attenzione!"_s, u"Non si possono definire più di 20 tasti rapidi!"_s, QMessageBox::Critical);
    banco.Aggiungi(221, Qt::Key_Z);
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QCOMPARE(stato().impostazioni.TastiRapidi, prima);
    QCOMPARE(stato().impostazioni.NumTastiRapidi, MassimoTastiRapidi);
    banco.Comando(u"mnuFileSalva"_s);
    banco.Comando(u"mnuFileChiudi"_s);
    banco.Apri(banco.File(u"a.dic"_s));
    QCOMPARE(stato().impostazioni.TastiRapidi, prima);
    banco.Controllo<QListWidget>(u"lstTasti"_s)->setCurrentRow(19);
    banco.Controllo(u"cmdElimina"_s)->click();
    QCOMPARE(BancoTasti::Riga(19), TastoRapido{});
}

void TestTastiRapidiForm::tastoNotato()
{
    const BancoTasti banco;
    QLineEdit *casella = banco.Casella();
    const auto codice = [&] { return banco.Scritto(u"lblCodice"_s); };
    // Enter and Tab come from the menu or the control before, or go to the default button.
    QTest::keyRelease(casella, Qt::Key_Return);
    banco.Controllo(u"cmdElimina"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), casella);
    QTest::keyRelease(casella, Qt::Key_Tab);
    QCOMPARE(codice(), u""_s);
    QTest::keyClick(casella, Qt::Key_E);
    QCOMPARE(codice(), u"(69)"_s);
    QKeyEvent ripetuto(QEvent::KeyRelease, Qt::Key_R, {}, u"r"_s, true);
    QApplication::sendEvent(casella, &ripetuto);
    QCOMPARE(codice(), u"(69)"_s);
    // One key at a time; what types nothing leaves the text.
    QTest::keyClick(casella, Qt::Key_R);
    QCOMPARE(casella->text(), u"r"_s);
    QTest::keyClick(casella, Qt::Key_F5);
    QCOMPARE(casella->text(), u"r"_s);
    QCOMPARE(codice(), u"(116)"_s);
    casella->selectAll();
    QGuiApplication::clipboard()->setText(u"a\r\nb@"_s);
    casella->paste();
    QCOMPARE(casella->text(), u"a b@"_s);
}

void TestTastiRapidiForm::mappaColMouse()
{
    const BancoTasti banco;
    CaratteriForm1 *mappa = banco.Mappa();
    QCOMPARE(mappa->parentWidget()->size(), QSize(400, 300));
    const auto cella = [&](int k) { return mappa->findChild<QLabel *>(u"Label1(%1)"_s.arg(k)); };
    const auto *schede = mappa->findChild<QTabWidget *>(u"SSTab1"_s);
    QCOMPARE(schede->tabText(1), QStringLiteral("U - \u061F"));
    QCOMPARE(schede->font().family(), u"DejaVu Serif"_s);
    for (const auto &[k, pagina] : {std::pair(1, 0), {84, 0}, {85, 1}, {168, 1}, {169, 2}, {228, 2}}) {
        QCOMPARE(schede->indexOf(cella(k)->parentWidget()), pagina);
        QVERIFY(schede->widget(0)->rect().contains(QRect(cella(k)->pos(), QSize(26, 26))));
    }
    QCOMPARE(cella(98)->text(), u"€"_s);
    QCOMPARE(cella(8)->text(), u"&"_s);
    QCOMPARE(cella(203)->accessibleName(), u"é, 233"_s);
    QCOMPARE(cella(226)->text(), u""_s);

    const auto aspetto = [&](int k) {
        const QLabel *questa = cella(k);
        return std::tuple(questa->size(), questa->font().pointSize(), questa->font().family(),
                          questa->palette().color(QPalette::WindowText).name(),
                          questa->palette().color(QPalette::Window).name());
    };
    const auto normale = std::tuple(QSize(17, 17), 12, u"DejaVu Serif"_s, u"#000000"_s, u"#ffffff"_s);
    const auto scelta = std::tuple(QSize(26, 26), 16, u"DejaVu Serif"_s, u"#ffc0ff"_s, u"#c0c000"_s);
    QCOMPARE(aspetto(1), normale);
    for (const int k : {2, 2, 35}) {
        QTest::mouseClick(cella(k), Qt::LeftButton);
        QCOMPARE(aspetto(k), scelta);
    }
    QCOMPARE(aspetto(2), normale);
    // A second request shows the same window.
    QCOMPARE(banco.Mappa(), mappa);
    QTest::mouseDClick(cella(36), Qt::LeftButton);
    QCOMPARE(banco.Scritto(u"lblCarattere"_s), u"B"_s);
    QCOMPARE(stato().NumFinestre, 1);
}

void TestTastiRapidiForm::mappaDaTastiera()
{
    const BancoTasti banco;
    banco.Controllo(u"cmdSeleziona"_s)->setFocus();
    const CaratteriForm1 *mappa = banco.Mappa();
    const auto *schede = mappa->findChild<QTabWidget *>(u"SSTab1"_s);
    const auto scelta = [] { return QApplication::focusWidget()->objectName(); };
    QCOMPARE(scelta(), u"Label1(1)"_s);
    const QList<std::pair<Qt::Key, int>> passi = {
        {Qt::Key_Left, 1},       {Qt::Key_Up, 1},        {Qt::Key_Right, 2},      {Qt::Key_Down, 16},
        {Qt::Key_Home, 15},      {Qt::Key_End, 28},      {Qt::Key_PageDown, 112}, {Qt::Key_PageUp, 28},
        {Qt::Key_PageUp, 1},     {Qt::Key_PageDown, 85}, {Qt::Key_Up, 71},        {Qt::Key_Down, 85},
        {Qt::Key_PageDown, 169}, {Qt::Key_Left, 168},    {Qt::Key_PageDown, 228}, {Qt::Key_Right, 228},
        {Qt::Key_Down, 228},     {Qt::Key_Home, 225},    {Qt::Key_Up, 211}};
    for (const auto &[tasto, k] : passi) {
        QTest::keyClick(QApplication::focusWidget(), tasto);
        QCOMPARE(scelta(), u"Label1(%1)"_s.arg(k));
        QCOMPARE(schede->currentIndex(), (k - 1) / 84);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(banco.Scritto(u"lblCarattere"_s), u"ñ"_s);
    QCOMPARE(QApplication::focusWidget(), banco.Controllo(u"cmdSeleziona"_s));
}

void TestTastiRapidiForm::mappaChiusa()
{
    Dialoghi dialoghi;
    const BancoTasti banco;
    const auto chiudi = [&](int k) {
        CaratteriForm1 *mappa = banco.Mappa();
        if (k > 0)
            QTest::mouseClick(mappa->findChild<QLabel *>(u"Label1(%1)"_s.arg(k)), Qt::LeftButton);
        mappa->parentWidget()->close();
        return banco.Scritto(u"lblCarattere"_s);
    };
    QCOMPARE(chiudi(0), QString(QChar(31)));
    QCOMPARE(chiudi(98), u"€"_s);
    for (const int k : {226, 227, 228})
        QCOMPARE(chiudi(k), u""_s);
    QTest::keyClick(banco.Casella(), Qt::Key_E);
    dialoghi.casella(u"Attenzione!"_s, u"Tasto non valido!"_s, QMessageBox::Critical);
    banco.Controllo(u"cmdAggiungi"_s)->click();
    QVERIFY2(dialoghi.verifica(), qPrintable(dialoghi.guasti()));
    QCOMPARE(BancoTasti::Riga(0), TastoRapido{});

    // Without its editor the map only closes.
    CaratteriForm1 *mappa = banco.Mappa();
    banco.Controllo(u"cmdChiudi"_s)->click();
    mappa->Scarica();
    QCOMPARE(stato().NumFinestre, 0);
    QCOMPARE(banco.finestra->findChild<TastiRapidiForm *>(u"TastiRapidiForm"_s), nullptr);
}

void TestTastiRapidiForm::dizionarioChiuso()
{
    const BancoTasti banco({{233, 'E', 0, 1}});
    const QString altro = banco.Con(u"b.dic"_s, {{241, 'N', 0, 1}, {252, 'U', 0, 1}});
    banco.Controllo<QListWidget>(u"lstTasti"_s)->setCurrentRow(0);
    CaratteriForm1 *mappa = banco.Mappa();
    QTest::keyClick(banco.Casella(), Qt::Key_K);
    banco.Comando(u"mnuFileChiudi"_s);
    QCOMPARE(banco.Voci(u"lstTasti2"_s), QStringList());
    mappa->Scarica();
    QTest::keyClick(banco.Casella(), Qt::Key_Return);
    for (const QString &nome : {u"cmdAggiungi"_s, u"cmdElimina"_s})
        banco.Controllo(nome)->click();
    QCOMPARE(stato().impostazioni.NumTastiRapidi, 0);
    QVERIFY(!stato().Modificato && !banco.Azione(u"mnuFileSalva"_s)->isEnabled());

    banco.Apri(altro);
    QCOMPARE(banco.Voci(u"lstTasti"_s), QStringList({u"ñ"_s, u"ü"_s}));
    banco.Aggiungi(98, Qt::Key_K);
    QCOMPARE(BancoTasti::Riga(2), (TastoRapido{128, 'K', 0, 0}));
}

QTEST_MAIN(TestTastiRapidiForm)
#include "tst_TastiRapidiForm.moc"
