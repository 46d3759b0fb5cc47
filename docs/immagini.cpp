// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The manual's pictures, taken from the program itself: immagini <docs>. The same on every machine with these fonts.
#include "Banco.h"
#include "Dialoghi.h"
#include "app/Avvio.h"
#include "app/Servizi.h"
#include "core/Recupero.h"
#include "edit/Voci.h"
#include "input/CaratteriForm1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QStyleFactory>
#include <QTreeView>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
const QString Font = QStringLiteral("DejaVu Sans");
// What the pictures show in place of the temporary folder.
const QString Casa = QStringLiteral("/home/anna/Documenti");

struct Fotografo : Banco {
    explicit Fotografo(QString documenti) : m_documenti(std::move(documenti))
    {
        for (const QFileInfo &file : QDir(QStringLiteral(ASSETS "/dizionari")).entryInfoList(QDir::Files))
            ScriviInPosto(File(file.fileName()), LeggiTutto(file.filePath()));
        for (const QString &nome : {u"Trffc10a.ico"_s, u"Intl_no.bmp"_s})
            ScriviInPosto(File(u"programma/"_s + nome), LeggiTutto(QStringLiteral(ASSETS "/") + nome));
    }

    /// The window of a form as it is now, its frame included; a dialog without one.
    void Ritrai(QWidget *form, const QString &nome) const
    {
        for (QLabel *etichetta : form->findChildren<QLabel *>())
            etichetta->setText(etichetta->text().replace(cartella.path(), Casa));
        if (QWidget *ultimo = form->focusWidget())
            ultimo->setFocus();
        constexpr int disegno = 50;
        QTest::qWait(disegno);
        QWidget *cornice = qobject_cast<QMdiSubWindow *>(form->parentWidget());
        constexpr int massimaCompressione = 0;
        const QImage immagine = (cornice ? cornice : form)->grab().toImage().convertToFormat(QImage::Format_RGB888);
        if (!immagine.save(m_documenti + u'/' + nome, "PNG", massimaCompressione))
            qFatal("%s", qPrintable(nome));
    }
    void Ritrai(const char *form, const QString &nome) const
    {
        Ritrai(finestra->findChild<QWidget *>(QString::fromLatin1(form)), u"manuale/"_s + nome);
    }

    void ApriCampione(const QString &nome) const
    {
        Apri(File(nome));
        ImpostazioniDizionario &impostazioni = stato().impostazioni;
        for (QString *font : {&impostazioni.FontLingua1, &impostazioni.FontLingua2, &impostazioni.FontCommento1,
                              &impostazioni.FontCommento2})
            *font = Font;
        Visualizza()->AggiornaFont();
    }

    void Posto(const char *form, const QRect &dove) const
    {
        finestra->findChild<QWidget *>(QString::fromLatin1(form))->parentWidget()->setGeometry(dove);
    }

    static void Scegli(ListaParole *lista, int riga)
    {
        lista->setFocus();
        for (int i = 0; i <= riga; ++i)
            QTest::keyClick(lista, i == 0 ? Qt::Key_Home : Qt::Key_Down);
    }

    void Scrivi(const char *form, const QList<std::pair<const char *, QString>> &caselle) const
    {
        for (const auto &[nome, testo] : caselle)
            Trova<QLineEdit>(form, nome)->setText(testo);
    }

    Dialoghi dialoghi;

private:
    QString m_documenti;
};

void Principale(const Fotografo &f)
{
    f.ApriCampione(u"Greco-Italiano.dic"_s);
    Fotografo::Scegli(f.Lista(1), 7);
    f.Premi(u"cmdApri"_s);
    f.finestra->resize(760, 480);
    QTest::qWait(1);
    f.Posto("VisualizzaForm1", {6, 6, 360, 400});
    f.Posto("InserimentoForm1", {376, 6, 376, 320});
    f.Ritrai(f.finestra.get(), u"varbel.png"_s);
    f.Comando(u"mnuFileChiudi"_s);
}

void Voci(const Fotografo &f)
{
    f.ApriCampione(u"Inglese-Italiano.dic"_s);
    f.finestra->resize(960, 700);
    Fotografo::Scegli(f.Lista(1), 4);
    f.Posto("VisualizzaForm1", {0, 0, 480, 420});
    f.Ritrai("VisualizzaForm1", u"dizionario.png"_s);

    f.Comando(u"mnuModificaAggiungi"_s);
    f.Scrivi("InserimentoForm1", {{"txtLingua1", u"to cook"_s},
                                  {"txtLingua2", u"cucinare"_s},
                                  {"txtCommento1", u"I cook, he cooks"_s},
                                  {"txtCommento2", u"a cook = un cuoco"_s}});
    f.Posto("InserimentoForm1", {0, 0, 480, 320});
    f.Ritrai("InserimentoForm1", u"aggiungi.png"_s);
    f.ChiudiFiglie();

    const auto esercizio = [&f](const QString &risposta, const QString &nome) {
        auto *casella = f.Trova<QLineEdit>("EsercizioForm1", "txtLingua2");
        casella->setText(risposta.isEmpty() ? Esercizio::stato().rispostaAttesa : risposta);
        f.Trova<QPushButton>("EsercizioForm1", "cmdOK")->click();
        f.Posto("EsercizioForm1", {0, 0, 560, 360});
        f.Ritrai("EsercizioForm1", nome);
        f.Trova<QPushButton>("EsercizioForm1", "cmdOK")->click();
    };
    Esercizio::stato().OrdineCasuale = false;
    f.Comando(u"mnuEserciziRipasso"_s);
    esercizio(QString(), u"esercizio-giusto.png"_s);
    esercizio(u"zio"_s, u"esercizio-sbagliato.png"_s);
    f.ChiudiFiglie();
}

void Tasti(const Fotografo &f)
{
    ImpostazioniDizionario &impostazioni = stato().impostazioni;
    // é and à with Ctrl, ç with Ctrl and Shift.
    const std::array<TastoRapido, 3> tasti = {{{233, 'E', 0, 1}, {224, 'A', 0, 1}, {231, 'S', 1, 1}}};
    std::copy(tasti.begin(), tasti.end(), impostazioni.TastiRapidi.begin());
    impostazioni.NumTastiRapidi = tasti.size();
    f.Comando(u"mnuStrumentiCaratteri"_s);
    f.Posto("TastiRapidiForm", {0, 0, 433, 433});
    f.Trova<QPushButton>("TastiRapidiForm", "cmdSeleziona")->click();
    f.Posto("CaratteriForm1", {0, 0, 433, 300});
    constexpr int uConAccento = 249 - 30;
    QTest::mouseClick(f.Trova<QLabel>("CaratteriForm1", qPrintable(u"Label1(%1)"_s.arg(uConAccento))), Qt::LeftButton);
    f.Ritrai("CaratteriForm1", u"mappa.png"_s);
    f.Trova<QWidget>("CaratteriForm1", "SSTab1")->parentWidget()->parentWidget()->close();
    auto *casella = f.Trova<QLineEdit>("TastiRapidiForm", "txtTastoRapido");
    casella->setFocus();
    Fotografo::Batti(Qt::Key_U, Qt::NoModifier, u"u"_s);
    f.Trova<QCheckBox>("TastiRapidiForm", "chkControl")->setChecked(true);
    f.Ritrai("TastiRapidiForm", u"tasti-rapidi.png"_s);
    f.ChiudiFiglie();
}

void Strumenti(Fotografo &f)
{
    ScriviInPosto(f.File(u"verbi.txt"_s), "to drive;guidare;drove, driven\r\nto swim;nuotare;swam, swum\r\n"
                                          "to fly volare\r\nto grow;crescere;grew, grown\r\nto dig;scavare\r\n");
    f.dialoghi.file(f.File(u"verbi.txt"_s), u"*.* (tutti i file) (*)"_s);
    f.Comando(u"mnuStrumentiConversioni"_s);
    f.Scrivi("ConvertiForm1", {{"txtSeparatore(0)", u";"_s},
                               {"txtSeparatore(1)", u";"_s},
                               {"txtLingua1", u"1"_s},
                               {"txtLingua2", u"2"_s},
                               {"txtCommento1", u"3"_s}});
    f.Posto("ConvertiForm1", {0, 0, 560, 430});
    f.Ritrai("ConvertiForm1", u"conversioni.png"_s);
    f.Trova<QPushButton>("ConvertiForm1", "cmdOk")->click();
    QTest::qWait(1);
    f.Posto("OutPutForm", {0, 0, 467, 260});
    f.Ritrai("OutPutForm", u"righe-non-convertite.png"_s);
    f.ChiudiFiglie();

    f.Dizionario(u"Animali.dic"_s, {u"@bear@orso@"_s, u"@cat@gatto@"_s, u"@fox@volpe@"_s, u"@wolf@lupo@"_s});
    f.dialoghi.file(f.File(u"Animali.dic"_s));
    f.Comando(u"mnuStrumentiComponi"_s);
    f.Posto("ComponiForm1", {0, 0, 640, 460});
    Fotografo::Scegli(f.Trova<ListaParole>("ComponiForm1", "lstDizionario1"), 2);
    f.Ritrai("ComponiForm1", u"componi.png"_s);
    f.dialoghi.casella(u"Attenzione!"_s, u"Salvare le modifiche al dizionario "_s + f.File(u"Animali.dic"_s) + u'?',
                       QMessageBox::Question, QMessageBox::No);
    f.ChiudiFiglie();
}

void Impostazioni(const Fotografo &f)
{
    f.Comando(u"mnuFileProprieta"_s);
    f.Ritrai("proprietaForm1", u"proprieta.png"_s);
    f.ChiudiFiglie();

    for (const char *nome : {"Documenti/Dizionari", "Documenti/Lettere", "Immagini", "Musica", "Scaricati"})
        QDir(f.cartella.path()).mkpath(u"anna/"_s + QLatin1String(nome));
    f.Comando(u"mnuStrumentiOpzioni"_s);
    auto *albero = f.Trova<QTreeView>("OpzioniForm1", "DirLavoro");
    const auto *modello = qobject_cast<QFileSystemModel *>(albero->model());
    albero->setRootIndex(modello->index(f.File(u"anna"_s)));
    const QModelIndex scelta = modello->index(f.File(u"anna/Documenti/Dizionari"_s));
    albero->setCurrentIndex(scelta);
    static_cast<void>(QTest::qWaitFor(
        [&] { return modello->rowCount(scelta.parent()) == 2 && modello->rowCount(scelta.parent().parent()) == 4; }));
    albero->expand(scelta.parent());
    f.Posto("OpzioniForm1", {0, 0, 400, 440});
    f.Ritrai("OpzioniForm1", u"opzioni.png"_s);
    f.ChiudiFiglie();
}

// What a program that ended before its save has left.
void Recuperare(Fotografo &f)
{
    AggiungiVoce({u"to cook"_s, u"cucinare"_s, u"@to cook@cucinare@"_s});
    SegnaModificato();
    f.Avvia();
    const QDir copie(f.File(u"stato/varbel"_s));
    const QString file = copie.filePath(copie.entryList({u"*.txt"_s}, QDir::Files).constFirst());
    const QByteArray byte = LeggiTutto(file);
    QString testo(reinterpret_cast<const QChar *>(byte.constData()), byte.size() / 2);
    testo.replace(QRegularExpression(u"Data della copia: [^\r]*"_s), u"Data della copia: 2026-03-14T17:42:05.000Z"_s);
    ScriviInPosto(file, QByteArray(reinterpret_cast<const char *>(testo.utf16()), testo.size() * 2));
    f.dialoghi.altro([&f](QDialog *dialogo) {
        auto *box = qobject_cast<QMessageBox *>(dialogo);
        box->setText(box->text().replace(f.cartella.path(), Casa));
        f.Ritrai(box, u"manuale/recupero.png"_s);
        box->button(QMessageBox::No)->click();
    });
    f.Apri(f.File(u"Inglese-Italiano.dic"_s));
}
} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    const QApplication programma(argc, argv);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(QApplication::style()->standardPalette());
    constexpr int punti = 10;
    QApplication::setFont(QFont(Font, punti));
    QApplication::setCursorFlashTime(0);
    PreparaProgramma();
    if (argc != 2 || !QDir(QString::fromLocal8Bit(argv[1])).mkpath(u"manuale"_s))
        return 1;
    Fotografo f(QString::fromLocal8Bit(argv[1]));
    f.Avvia();
    QApplication::setActiveWindow(f.finestra.get());
    // The first paint loads the pictures.
    static_cast<void>(QTest::qWaitFor([] { return !QApplication::windowIcon().isNull(); }));
    Principale(f);
    Voci(f);
    Tasti(f);
    Strumenti(f);
    Impostazioni(f);
    Recuperare(f);
    return f.dialoghi.verifica() ? 0 : 1;
}
