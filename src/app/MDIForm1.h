// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPointer>

#include <array>
#include <functional>
#include <optional>

class ComandoManuale;
class QLineEdit;
class QMdiArea;
class QToolBar;
class VisualizzaForm1;
enum class Scelta;
class ErroreRuntime;
struct CopiaRecupero;

/// The main window: menus, toolbar, child windows, and the commands on the one open dictionary.
class MDIForm1 : public QMainWindow
{
    Q_OBJECT
public:
    /// Loads the window and varbel.ini from the program's folder. ErroreRuntime, which ends the program: 53 when that
    /// is missing, 13 or 6 when its font size is no number.
    MDIForm1();
    ~MDIForm1() override;

    /// Runs the open command on the path that the state holds already.
    void SimulaApertura();

    /// Asks about the recovery copies of dictionaries that no open dialog can show, since their files have gone.
    void OffriCopie();

    /// Asks whether to save a modified dictionary, then closes it; `annulla` is set when the user keeps it open or
    /// when saving failed.
    void simulachiusura(bool &annulla);

protected:
    bool event(QEvent *evento) override;
    void closeEvent(QCloseEvent *evento) override;
    void dragEnterEvent(QDragEnterEvent *evento) override;
    void dropEvent(QDropEvent *evento) override;

private:
    using Comando = void (MDIForm1::*)();

    void CreaMenu();
    void CreaToolbar();
    void CreaAiuti();
    void CaricaImmagini();
    void LeggiImpostazioni();
    QMenu *Menu(const QString &nome, const QString &testo, QMenu *in = nullptr);
    QAction *Voce(QMenu *menu, const QString &nome, const QString &testo, Comando comando);
    void Lega(QAction *azione, std::function<void()> comando);
    QAction *VoceDiLista(QMenu *menu, const QString &nome);
    void Linea(QMenu *menu, const QString &nome);
    void Abilita(const QString &nome, bool abilitata);
    void StatoAperto();
    void StatoChiuso();
    void AbilitaComuni(bool aperto);
    void AggiornaMenuRecenti();

    /// Brings a child window to the front, creating it when it is not open. The one place that knows them all.
    QWidget *MostraFinestra(const QString &nome);
    [[nodiscard]] QMdiSubWindow *FinestraAperta(const QString &nome) const;
    void DisponiFinestra(QMdiSubWindow *finestra);
    QWidget *CreaVisualizza();
    QWidget *CreaInserimento();
    QWidget *CreaEsercizio();
    void Attivata(QMdiSubWindow *finestra);
    QWidget *CreaTastiRapidi();
    QWidget *CreaCaratteri();
    QWidget *CreaComponi();
    QWidget *CreaProprieta();
    QWidget *CreaOpzioni();

    /// The same by a window's class, whose name is the form's; nullptr when it is not open, or was not created.
    template <typename Form>
    [[nodiscard]] Form *Aperta() const
    {
        const QMdiSubWindow *finestra = FinestraAperta(QString::fromLatin1(Form::staticMetaObject.className()));
        return finestra ? qobject_cast<Form *>(finestra->widget()) : nullptr;
    }
    template <typename Form>
    Form *Mostra()
    {
        return qobject_cast<Form *>(MostraFinestra(QString::fromLatin1(Form::staticMetaObject.className())));
    }
    void ScaricaFinestre(const QStringList &nomi);
    void PortaInPrimoPiano(QMdiSubWindow *finestra);
    void mnuFinestra(qint32 i);

    void mnuFileNuovo();
    void mnuFileNuovoDaModello();
    void mnuFileApri();
    void mnuFileRecente(std::size_t i);
    void mnuFileChiudi();
    void mnuFileSalva();
    void mnuFileSalvaConNome();
    void mnuFileStampa();
    void mnuFileProprieta();
    void mnuModifica_Apre();
    void mnuModificaCopia();
    void mnuModificaTaglia();
    void mnuModificaIncolla();
    void mnuModificaOrdina1();
    void mnuModificaOrdina2();
    void mnuModificaAggiungi();
    void mnuModificaElimina();
    void mnuEserciziCasuale();
    void mnuEserciziRipasso();
    void mnuEserciziInverti();
    void mnuStrumentiUnisci();
    void mnuStrumentiComponi();
    void mnuStrumentiInverti();
    void mnuStrumentiCaratteri();
    void mnuStrumentiConversioni();
    void mnuStrumentiOpzioni();
    void mnuHelpManuale();
    void mnuHelpAbout();

    void ModificaVoce(qint32 voce);
    void Ordina(qint32 chiave);
    QMessageBox::StandardButton ChiediOrdina();
    bool SalvaDocumento();
    void Chiudi();
    /// Takes the dictionary at the state's path; false when the user does not want it because another program has it
    /// open. `copia` is the recovery copy that the user wants back.
    bool Occupa(std::optional<CopiaRecupero> &copia);
    bool ChiediOccupa(std::optional<CopiaRecupero> &copia);
    void ApriFile(bool soloConCopia);
    /// Whether a command may write over a dictionary that is not the open one.
    bool ChiediSopra(const QString &percorso, const QString &domanda);
    bool ChiediAltrove(const QString &percorso, const QString &domanda);
    QMessageBox::StandardButton ChiediRecupero(const CopiaRecupero &copia);
    void MostraDizionario(const std::optional<CopiaRecupero> &copia);
    void AggiornaTastiRapidi();
    void AggiornaOpzioni();
    VisualizzaForm1 *VisualizzaDaAggiornare();
    void AggiornaVisualizza();
    QWidget *CreaConverti();
    void MostraUscita(const QStringList &errori);
    bool ScegliFile(const QString &titolo, Scelta scelta, QString &scelto, const QString &filtro = {});
    void AggiornaComponi();
    void ImpostazioniDiEsistente();
    bool NomeRiservato(const QString &percorso);
    void ErroreIni(const QString &percorso);

    /// The text box that the clipboard commands act on, nullptr when the active control is none.
    [[nodiscard]] QLineEdit *CasellaAttiva() const;
    [[nodiscard]] QWidget *ControlloAttivo() const;

    QMdiArea *m_area;
    ComandoManuale *m_manuale;
    /// The child window that was active last, also while the program is not in front.
    QPointer<QMdiSubWindow> m_ultimaAttiva;
    QToolBar *m_toolbar = nullptr;
    /// The toolbar's pictures that are still to be loaded, by button.
    QStringList ImageList1;
    QHash<QString, QAction *> m_voci;
    QHash<QString, QMenu *> m_menu;
    std::array<QAction *, 4> m_recenti{};
    QHash<QString, std::function<QWidget *()>> m_finestre;
    /// The text file that the conversion window opens with.
    QString m_daConvertire;
    /// The open dictionary's file was created by New, so that a close without saving may delete it.
    bool m_fileCreato = false;
};
