// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Every window as a screen reader, the keyboard and a reader of large letters meet it. It runs at the screen scale
// that QT_SCALE_FACTOR says.
#include "Banco.h"
#include "Dialoghi.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabBar>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
// Each window with the command that opens it.
const std::array<std::pair<const char *, const char *>, 13> Finestre = {{
    {"VisualizzaForm1", ""},
    {"InserimentoForm1", "mnuModificaAggiungi"},
    {"EsercizioForm1", "mnuEserciziCasuale"},
    {"TastiRapidiForm", "mnuStrumentiCaratteri"},
    {"CaratteriForm1", "mnuStrumentiCaratteri"},
    {"ComponiForm1", "mnuStrumentiComponi"},
    {"ConvertiForm1", "mnuStrumentiConversioni"},
    {"OutPutForm", "mnuStrumentiConversioni"},
    {"proprietaForm1", "mnuFileProprieta"},
    {"OpzioniForm1", "mnuStrumentiOpzioni"},
    {"aboutForm1", "mnuHelpAbout"},
    {"ManualeForm1", "mnuHelpManuale"},
    {"MDIForm1", ""},
}};

// A program with a Greek dictionary and one of the windows, in letters of that size.
struct Sala {
    Sala(const QString &finestra, int punti) : m_finestra(finestra)
    {
        ScriviInPosto(banco.Ini(),
                      LeggiTutto(banco.Ini()).replace("[Font]\r\n10", "[Font]\r\n" + QByteArray::number(punti)));
        banco.Avvia();
        banco.finestra->resize(1400, 1000);
        for (const QString &tipo : {u"dic"_s, u"ini"_s})
            QFile::copy(u"" ASSETS "/dizionari/Greco-Italiano."_s + tipo, banco.File(u"a."_s + tipo));
        banco.Apri(banco.File(u"a.dic"_s));
        const auto *trovata = std::find_if(Finestre.begin(), Finestre.end(),
                                           [&](const auto &questa) { return QLatin1String(questa.first) == finestra; });
        Apri(finestra, QString::fromLatin1(trovata->second));
        QApplication::processEvents();
    }

    void Apri(const QString &finestra, const QString &comando)
    {
        if (comando == "mnuStrumentiComponi"_L1)
            dialoghi.file(banco.Dizionario(u"b.dic"_s, {u"@casa@house@"_s}));
        if (comando == "mnuStrumentiConversioni"_L1) {
            ScriviInPosto(banco.File(u"c.txt"_s), QByteArray("senza separatori\n"));
            dialoghi.file(banco.File(u"c.txt"_s), u"*.* (tutti i file) (*)"_s);
        }
        if (!comando.isEmpty())
            banco.Comando(comando);
        if (finestra == "CaratteriForm1"_L1)
            banco.Trova<QPushButton>("TastiRapidiForm", "cmdSeleziona")->click();
        if (finestra == "OutPutForm"_L1) {
            banco.Trova<QLineEdit>("ConvertiForm1", "txtSeparatore(0)")->setText(u";"_s);
            banco.Trova<QLineEdit>("ConvertiForm1", "txtLingua1")->setText(u"1"_s);
            banco.Trova<QLineEdit>("ConvertiForm1", "txtLingua2")->setText(u"2"_s);
            banco.Trova<QPushButton>("ConvertiForm1", "cmdOk")->click();
        }
    }

    [[nodiscard]] QWidget *Form() const
    {
        for (QWidget *sola : QApplication::topLevelWidgets()) {
            if (sola->objectName() == m_finestra)
                return sola;
        }
        return banco.finestra->findChild<QWidget *>(m_finestra);
    }

    // What the user sees of the window's own controls.
    template <typename Controllo = QWidget>
    [[nodiscard]] QList<Controllo *> Visti() const
    {
        const QWidget *const form = Form();
        QList<Controllo *> visti = form->findChildren<Controllo *>();
        visti.removeIf([form](const QWidget *questo) {
            return !questo->isVisibleTo(form) || (form->isWindow() && FiglioDiFinestra(questo));
        });
        return visti;
    }

    static bool FiglioDiFinestra(const QWidget *questo)
    {
        for (; questo; questo = questo->parentWidget()) {
            if (questo->inherits("QMdiSubWindow"))
                return true;
        }
        return false;
    }

    Banco banco;
    Dialoghi dialoghi;

private:
    QString m_finestra;
};

QString Nome(const QWidget *controllo)
{
    return QString::fromLatin1(controllo->metaObject()->className()) + u' ' + controllo->objectName();
}

void OgniFinestra()
{
    QTest::addColumn<QString>("finestra");
    for (const auto &[finestra, comando] : Finestre)
        QTest::newRow(finestra) << QString::fromLatin1(finestra);
}

// The contrast of two colours as accessibility guides reckon it, 1 to 21.
double Contrasto(const QColor &a, const QColor &b)
{
    const auto luce = [](const QColor &colore) {
        const auto lineare = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
        return 0.2126 * lineare(colore.redF()) + 0.7152 * lineare(colore.greenF()) + 0.0722 * lineare(colore.blueF());
    };
    const auto [meno, piu] = std::minmax({luce(a), luce(b)});
    return (piu + 0.05) / (meno + 0.05);
}

// The room that the text of a control needs; none for what scrolls, or is told in full elsewhere.
QSize Serve(const QWidget *controllo)
{
    if (const auto *etichetta = qobject_cast<const QLabel *>(controllo)) {
        // A cell of the map draws its character as large as it fits; a long path is whole in the tool tip.
        if (controllo->objectName().startsWith("Label1("_L1))
            return {};
        if (!etichetta->toolTip().isEmpty())
            return QSize(0, etichetta->sizeHint().height());
        return etichetta->wordWrap() ? QSize(0, etichetta->heightForWidth(etichetta->width())) : etichetta->sizeHint();
    }
    constexpr int cornice = 4;
    if (qobject_cast<const QLineEdit *>(controllo))
        return {0, controllo->fontMetrics().height() + cornice};
    if (const auto *gruppo = qobject_cast<const QGroupBox *>(controllo))
        return {gruppo->fontMetrics().horizontalAdvance(gruppo->title()), 0};
    const bool conTesto =
        qobject_cast<const QAbstractButton *>(controllo) || qobject_cast<const QComboBox *>(controllo);
    return conTesto && !controllo->parentWidget()->inherits("QTabBar") ? controllo->sizeHint() : QSize();
}

// What the text of a control needs, and does not get; empty when all of it is seen.
QString Tagliato(const QWidget *controllo)
{
    const QSize serve = Serve(controllo);
    if (controllo->width() >= serve.width() && controllo->height() >= serve.height())
        return {};
    return u"%1: %2×%3 di %4×%5"_s.arg(Nome(controllo))
        .arg(controllo->width())
        .arg(controllo->height())
        .arg(serve.width())
        .arg(serve.height());
}
} // namespace

class TestAccessibilita : public QObject
{
    Q_OBJECT

private slots:
    void nomiERuoli_data() { OgniFinestra(); }
    void nomiERuoli();
    void ordineDelFuoco_data() { OgniFinestra(); }
    void ordineDelFuoco();
    void testoIntero_data() { OgniFinestra(); }
    void testoIntero();
    void coloriDellUtente_data() { OgniFinestra(); }
    void coloriDellUtente();
    void ogniComandoSpiega();
};

void TestAccessibilita::nomiERuoli()
{
    QFETCH(const QString, finestra);
    const Sala sala(finestra, 10);
    QVERIFY(sala.Form());
    QStringList nomi;
    for (QWidget *controllo : sala.Visti()) {
        QAccessibleInterface *accesso = QAccessible::queryAccessibleInterface(controllo);
        if (!accesso || !accesso->state().focusable || controllo->focusPolicy() == Qt::NoFocus ||
            controllo->focusProxy())
            continue;
        const QString nome = accesso->text(QAccessible::Name);
        QVERIFY2(!nome.trimmed().isEmpty(), qPrintable(Nome(controllo)));
        QVERIFY2(accesso->role() != QAccessible::NoRole && accesso->role() != QAccessible::Client,
                 qPrintable(Nome(controllo)));
        QVERIFY2(!nomi.contains(nome), qPrintable(Nome(controllo) + u": "_s + nome));
        nomi += nome;
    }
    QVERIFY(sala.dialoghi.guasti().isEmpty());
}

void TestAccessibilita::ordineDelFuoco()
{
    QFETCH(const QString, finestra);
    const Sala sala(finestra, 10);
    QList<QWidget *> tutti = sala.Visti();
    tutti.removeIf([](const QWidget *questo) {
        return !(questo->focusPolicy() & Qt::TabFocus) || questo->focusProxy() || !questo->isEnabled();
    });
    sala.Form()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(sala.Form()->window()));
    if (finestra == "MDIForm1"_L1 || tutti.isEmpty())
        return;
    tutti.constFirst()->setFocus(Qt::TabFocusReason);
    QList<QWidget *> visitati;
    constexpr int molti = 200;
    for (int i = 0; i < molti; ++i) {
        QWidget *ora = QApplication::focusWidget();
        // A text takes the key once for each of its links.
        if (!ora || (visitati.contains(ora) && ora != visitati.constLast()))
            break;
        if (!visitati.contains(ora))
            visitati += ora;
        QTest::keyClick(ora, Qt::Key_Tab);
    }
    for (QWidget *controllo : tutti) {
        // Of a group of round buttons the chosen one stands for all; the arrows reach the others.
        const auto *opzione = qobject_cast<QRadioButton *>(controllo);
        QVERIFY2(visitati.contains(controllo) || (opzione && !opzione->isChecked()), qPrintable(Nome(controllo)));
    }
    // From the window's first control on: none lies above the one before it unless it is in a column further right.
    const auto posto = [&sala](const QWidget *questo) {
        return QRect(questo->mapTo(sala.Form(), QPoint()), questo->size());
    };
    QWidget *primo = sala.Form();
    while ((primo = primo->nextInFocusChain()) && !visitati.contains(primo) && primo != sala.Form()) {
    }
    std::rotate(visitati.begin(), std::find(visitati.begin(), visitati.end(), primo), visitati.end());
    for (qsizetype i = 1; i < visitati.size(); ++i) {
        const QRect prima = posto(visitati[i - 1]);
        const QRect ora = posto(visitati[i]);
        const bool indietro = ora.bottom() < prima.top() && ora.left() < prima.right();
        const bool aSinistra = ora.right() < prima.left() && ora.top() < prima.bottom() && ora.bottom() > prima.top();
        QVERIFY2(!indietro && !aSinistra, qPrintable(Nome(visitati[i - 1]) + u" -> "_s + Nome(visitati[i])));
    }
}

void TestAccessibilita::testoIntero()
{
    QFETCH(const QString, finestra);
    QStringList tagliati;
    for (const int punti : {10, 20}) {
        const Sala sala(finestra, punti);
        for (const QWidget *controllo : sala.Visti()) {
            const QString tagliato = Tagliato(controllo);
            if (!tagliato.isEmpty())
                tagliati += u"%1 punti: "_s.arg(punti) + tagliato;
        }
    }
    QVERIFY2(tagliati.isEmpty(), qPrintable(tagliati.join(u'\n')));
}

void TestAccessibilita::coloriDellUtente()
{
    QFETCH(const QString, finestra);
    const QPalette prima = QApplication::palette();
    QStringList illeggibili;
    for (const auto &[sfondo, testo] : {std::pair(QColor(0x20, 0x20, 0x20), QColor(0xE0, 0xE0, 0xE0)),
                                        std::pair(QColor(Qt::black), QColor(Qt::yellow))}) {
        QPalette scura(sfondo, sfondo);
        for (const auto ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
            scura.setColor(ruolo, testo);
        for (const auto ruolo : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase})
            scura.setColor(ruolo, sfondo);
        QApplication::setPalette(scura);
        const Sala sala(finestra, 10);
        for (const QWidget *controllo : sala.Visti()) {
            const QPalette &colori = controllo->palette();
            const double contrasto = Contrasto(colori.color(QPalette::Active, controllo->foregroundRole()),
                                               colori.color(QPalette::Active, controllo->backgroundRole()));
            if (contrasto < 4.5 || !controllo->styleSheet().isEmpty())
                illeggibili += Nome(controllo) + u' ' + QString::number(contrasto);
        }
    }
    QApplication::setPalette(prima);
    QVERIFY2(illeggibili.isEmpty(), qPrintable(illeggibili.join(u'\n')));
}

void TestAccessibilita::ogniComandoSpiega()
{
    const Banco banco;
    for (const QAction *azione : banco.finestra->findChildren<QAction *>()) {
        const QString nome = azione->objectName();
        if (azione->isSeparator() || nome.startsWith("mnuFinestr"_L1) ||
            !(nome.startsWith("mnu"_L1) || nome.startsWith("Toolbar1("_L1)))
            continue;
        const bool inBarra = azione->menu() && banco.finestra->menuBar()->actions().contains(azione);
        QVERIFY2(inBarra || !azione->statusTip().isEmpty(), qPrintable(nome));
        QVERIFY2(inBarra || !azione->toolTip().isEmpty(), qPrintable(nome));
    }
}

QTEST_MAIN(TestAccessibilita)
#include "tst_Accessibilita.moc"
