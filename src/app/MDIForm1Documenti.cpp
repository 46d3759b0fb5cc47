// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the File menu on the one open dictionary.
#include "app/MDIForm1.h"

#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/Documento.h"
#include "core/FileDizionario.h"
#include "core/FileInPosto.h"
#include "core/FileVarbel.h"
#include "core/Percorsi.h"
#include "core/Testo8Bit.h"
#include "edit/VisualizzaForm1.h"
#include "print/ComandoStampa.h"
#include "settings/proprietaForm1.h"
#include "tools/Inversione.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QStandardPaths>

#include <algorithm>
#include <exception>

using namespace Qt::StringLiterals;
using Module1::PercorsoVarbelIni;
using Module1::stato;

namespace
{
// What the two dialogs of New from model show.
const QString FiltroModello = QStringLiteral("*.dic (dizionari)| *.dic");

// Creates the file, or leaves the one that is there as it is. ErroreRuntime 75 when it can be neither.
void CreaFile(const QString &percorso)
{
    QFile file(percorso);
    if (!file.open(QIODevice::Append))
        throw ErroreRuntime(75, u"Impossibile creare il dizionario "_s + percorso + u".\n"_s + file.errorString());
}
} // namespace

void MDIForm1::LeggiImpostazioni()
{
    QStringList linee;
    try {
        linee = LineeDelFile(PercorsoVarbelIni());
    } catch (ErroreRuntime &errore) {
        errore.termina = errore.numero == 53;
        errore.testo = (errore.termina ? ErroreRuntime(53).testo + u": "_s : u"Impossibile leggere "_s) +
                       PercorsoVarbelIni() + (errore.termina ? QString() : u".\n"_s + errore.testo);
        if (errore.termina)
            throw;
        SegnalaErrore(nullptr, errore);
    }
    ImpostazioniVarbel lette;
    try {
        lette = LeggiVarbel(linee);
    } catch (const ErroreRuntime &) {
        throw ErroreRuntime(13, ErroreRuntime(13).testo + u": [Font] in "_s + PercorsoVarbelIni(), true);
    }
    stato().recenti = lette.recenti;
    stato().DimensioneFont = lette.dimensioneFont.value_or(stato().DimensioneFont);
    // The shipped file cannot know the user's folder and leaves the line blank.
    servizi().dlgFile.cartella = lette.cartella.trimmed().isEmpty()
                                     ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                                     : lette.cartella;
    AggiornaMenuRecenti();
}

void MDIForm1::ErroreIni(const QString &percorso)
{
    Messaggio(this, QMessageBox::Critical, u"Errore!"_s,
              u"Il File di inizializzazione "_s + percorso + u" non è valido o non esiste."_s);
}

bool MDIForm1::NomeRiservato(const QString &percorso)
{
    // Saving under such a name would overwrite the dictionary, or the program's settings, with the companion file.
    const QStringList compagni = {PercorsoIniScritto(percorso), PercorsoIniAccanto(percorso),
                                  PercorsoIniInvertito(percorso)};
    const QFileInfo varbel(PercorsoVarbelIni());
    // Compared as files, so that a folder reached by another way is the same one.
    const auto delProgramma = [&varbel](const QString &file) {
        // Two files that do not exist compare as equal.
        return varbel.exists() ? QFileInfo(file) == varbel : file == varbel.filePath();
    };
    if (!compagni.contains(percorso) && !delProgramma(percorso) &&
        std::none_of(compagni.cbegin(), compagni.cend(), delProgramma))
        return false;
    Messaggio(this, QMessageBox::Critical, u"Errore!"_s,
              u"Il nome "_s + percorso +
                  u" non può essere quello di un dizionario: è riservato a un file di impostazioni."_s);
    return true;
}

void MDIForm1::MostraDizionario(const std::optional<CopiaRecupero> &copia)
{
    const QString percorso = stato().PercorsoDizionario;
    try {
        auto *visualizza = Mostra<VisualizzaForm1>();
        stato().DizionarioAperto = true;
        if (copia) {
            Documento::Prendi(*copia);
            visualizza->AggiornaFont();
            visualizza->AggiornaTitolo();
            visualizza->RiempiListe();
            SegnaModificato();
        }
        AggiornaTastiRapidi();
        AggiornaOpzioni();
        AggiornaComponi();
    } catch (ErroreRuntime &errore) {
        Chiudi();
        errore.testo = u"Impossibile leggere il dizionario "_s + percorso + u".\n"_s + errore.testo;
        throw;
    } catch (...) {
        // Nothing half open stays behind, whose save would replace the file.
        Chiudi();
        throw;
    }
}

void MDIForm1::ImpostazioniDiEsistente()
{
    // A dictionary that was there already keeps the settings it had, as far as they can be read.
    try {
        stato().impostazioni = LeggiFileIni(PercorsoIniLetto(stato().PercorsoDizionario));
    } catch (const ErroreRuntime &) {
        return;
    }
}

void MDIForm1::mnuFileNuovo()
{
    Module1::Stato &s = stato();
    DlgFile dlg = servizi().dlgFile;
    dlg.titolo = u"Nuovo"_s;
    dlg.cartella = s.CartellaProgramma;
    dlg.estensione = u".dic"_s;
    dlg.nomeFile.clear();
    dlg.filtro = u"*.dic (dizionari)|*.dic"_s;
    if (!MostraDlgFile(this, dlg, Scelta::SalvaEsistente) || NomeRiservato(dlg.nomeFile))
        return;
    const bool esisteva = QFileInfo::exists(dlg.nomeFile);
    CreaFile(dlg.nomeFile);
    s.PercorsoDizionario = dlg.nomeFile;
    std::optional<CopiaRecupero> copia;
    if (!Occupa(copia)) {
        s.recupero.reset();
        s.PercorsoDizionario.clear();
        if (!esisteva && QFileInfo(dlg.nomeFile).size() == 0)
            QFile::remove(dlg.nomeFile);
        return;
    }
    servizi().dlgFile.nomeFile = dlg.nomeFile;
    s.NuovoDizionario = true;
    m_fileCreato = !esisteva;
    s.PercorsoIni = PercorsoIniAccanto(s.PercorsoDizionario);
    s.impostazioni = ImpostazioniDizionario();
    s.impostazioni.lingua1 = u"lingua1"_s;
    s.impostazioni.lingua2 = u"lingua2"_s;
    if (esisteva)
        ImpostazioniDiEsistente();
    if (copia)
        Documento::PrendiImpostazioni(*copia);
    AbilitaComuni(true);
    // The new dictionary is shown also when its properties cannot be.
    Protetto(this, [this] { mnuFileProprieta(); });
    MostraDizionario(copia);
    // The user begins with them: in front of the empty lists.
    if (FinestraAperta(u"proprietaForm1"_s))
        mnuFileProprieta();
}

void MDIForm1::mnuFileNuovoDaModello()
{
    const auto scegli = [this](const QString &messaggio, Scelta scelta) {
        Messaggio(this, QMessageBox::Information, u"Varbel"_s, messaggio);
        DlgFile dlg = servizi().dlgFile;
        dlg.titolo.clear();
        dlg.filtro = FiltroModello;
        dlg.nomeFile.clear();
        return MostraDlgFile(this, dlg, scelta) ? dlg.nomeFile : QString();
    };
    const QString modello = scegli(u"Selezionare il dizionario di cui copiare il formato"_s, Scelta::Apri);
    if (modello.isEmpty())
        return;
    const QString iniModello = PercorsoIniLetto(modello);
    QByteArray formato;
    try {
        formato = LeggiTutto(iniModello);
        LeggiIni(formato);
    } catch (const ErroreRuntime &) {
        ErroreIni(iniModello);
        return;
    }
    const QString nuovo = scegli(u"Ora Selezionare il nome del file nuovo da salvare"_s, Scelta::ApriAncheNuovo);
    if (nuovo.isEmpty() || NomeRiservato(nuovo))
        return;
    if (QFileInfo::exists(nuovo))
        throw ErroreRuntime(58, u"Il file "_s + nuovo + u" esiste già. Scegliere un nome nuovo."_s);
    CreaFile(nuovo);
    const QString ini = PercorsoIniAccanto(nuovo);
    try {
        ScriviInPosto(ini, Testo8Bit::ConLineeCrLf(formato));
    } catch (ErroreRuntime &errore) {
        QFile::remove(nuovo);
        errore.testo = u"Impossibile scrivere "_s + ini + u".\n"_s + errore.testo;
        throw;
    }
    stato().PercorsoDizionario = nuovo;
    mnuFileApri();
}

void MDIForm1::SimulaApertura()
{
    Protetto(this, [this] { mnuFileApri(); });
}

void MDIForm1::mnuFileApri()
{
    Module1::Stato &s = stato();
    s.NuovoDizionario = false;
    if (s.PercorsoDizionario.isEmpty()) {
        DlgFile scelta = servizi().dlgFile;
        scelta.titolo = u"Apri"_s;
        scelta.nomeFile.clear();
        if (MostraDlgFile(this, scelta, Scelta::Apri))
            s.PercorsoDizionario = scelta.nomeFile;
    }
    if (s.PercorsoDizionario.isEmpty())
        return;
    s.PercorsoDizionario = PercorsoAssoluto(s.PercorsoDizionario);
    ApriFile(false);
}

void MDIForm1::OffriCopie()
{
    for (const QString &percorso : Recupero::SenzaFile()) {
        if (stato().DizionarioAperto)
            return;
        stato().PercorsoDizionario = percorso;
        Protetto(this, [this] { ApriFile(true); });
    }
}

void MDIForm1::ApriFile(bool soloConCopia)
{
    Module1::Stato &s = stato();
    servizi().dlgFile.nomeFile = s.PercorsoDizionario;
    StatoAperto();
    s.PercorsoIni = PercorsoIniLetto(s.PercorsoDizionario);
    std::optional<CopiaRecupero> copia;
    bool occupato = false;
    try {
        occupato = Occupa(copia);
    } catch (...) {
        Chiudi();
        throw;
    }
    if (!occupato || (soloConCopia && !copia)) {
        Chiudi();
        return;
    }
    try {
        if (!QFileInfo::exists(s.PercorsoDizionario))
            throw ErroreRuntime(53);
        s.impostazioni = LeggiFileIni(s.PercorsoIni);
    } catch (const std::exception &) {
        // A copy brings its settings along.
        if (!copia) {
            ErroreIni(s.PercorsoIni);
            Chiudi();
            return;
        }
    }
    MostraDizionario(copia);
}

bool MDIForm1::Occupa(std::optional<CopiaRecupero> &copia)
{
    try {
        return ChiediOccupa(copia);
    } catch (const ErroreRuntime &errore) {
        Messaggio(this, QMessageBox::Critical, u"Errore!"_s, errore.testo);
        return false;
    }
}

bool MDIForm1::ChiediAltrove(const QString &percorso, const QString &domanda)
{
    return Messaggio(
               this, QMessageBox::Warning, u"Attenzione!"_s,
               u"Il dizionario "_s + percorso +
                   u" è già aperto in un altro Varbel: ciò che si salva da una parte può andare perso dall'altra.\n"_s +
                   domanda,
               QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

bool MDIForm1::ChiediSopra(const QString &percorso, const QString &domanda)
{
    const Recupero altro(percorso);
    if (altro.ApertoAltrove())
        return ChiediAltrove(percorso, domanda);
    if (altro.Trovate().isEmpty())
        return true;
    Messaggio(this, QMessageBox::Critical, u"Errore!"_s,
              u"Del dizionario "_s + percorso +
                  u" è stata trovata una copia di recupero: aprirlo prima, per prenderla o eliminarla."_s);
    return false;
}

bool MDIForm1::ChiediOccupa(std::optional<CopiaRecupero> &copia)
{
    Documento::Occupa();
    servizi().copiaFallita = false;
    Module1::Stato &s = stato();
    if (s.recupero->ApertoAltrove() && !ChiediAltrove(s.PercorsoDizionario, u"Aprirlo lo stesso?"_s))
        return false;
    for (const QString &file : s.recupero->Trovate()) {
        try {
            copia = LeggiFileCopia(file);
        } catch (const ErroreRuntime &errore) {
            Messaggio(this, QMessageBox::Warning, u"Recupero"_s,
                      u"Impossibile leggere la copia di recupero "_s + file + u".\n"_s + errore.testo);
            s.recupero->Lascia(file);
            continue;
        }
        const auto risposta = ChiediRecupero(*copia);
        if (risposta == QMessageBox::Yes) {
            s.recupero->Sostituisce(file);
            s.DaCopia = true;
            s.FileRotto = ImprontaDi(s.PercorsoDizionario) != copia->dizionario ||
                          !std::all_of(copia->voci.cbegin(), copia->voci.cend(), LineaTenuta);
            try {
                Documento::CreaMancante();
            } catch (const ErroreRuntime &errore) {
                Messaggio(this, QMessageBox::Warning, u"Recupero"_s,
                          errore.testo + u"\nLe voci recuperate si possono salvare con un altro nome."_s);
            }
            return true;
        }
        copia.reset();
        if (risposta != QMessageBox::No)
            return false;
        QFile::remove(file);
    }
    return true;
}

QMessageBox::StandardButton MDIForm1::ChiediRecupero(const CopiaRecupero &copia)
{
    const QString &percorso = stato().PercorsoDizionario;
    QString domanda = u"È stata trovata una copia di recupero del dizionario "_s + percorso + u".\n"_s;
    domanda += u"Copia: %1 voci, fatta il %2.\n"_s.arg(copia.voci.size())
                   .arg(copia.quando.toLocalTime().toString(u"dd/MM/yyyy 'alle' HH:mm:ss"_s));
    const Impronta adesso = ImprontaDi(percorso);
    if (adesso.dimensione < 0) {
        domanda += u"Il file del dizionario non c'è.\n"_s;
    } else {
        try {
            Tabella tabella;
            const qint32 ultima = CaricaDizionario(percorso, tabella);
            domanda += u"File: %1 voci.\n"_s.arg(ContaVoci(tabella, ultima));
        } catch (const ErroreRuntime &) {
            domanda += u"Il file del dizionario non si può leggere.\n"_s;
        }
        if (adesso != copia.dizionario)
            domanda += u"Il file è cambiato dopo la copia.\n"_s;
    }
    return DomandaRinviabile(this, u"Recupero"_s, domanda + u"Recuperarla?"_s);
}

void MDIForm1::mnuFileRecente(std::size_t i)
{
    stato().PercorsoDizionario = stato().recenti[i];
    mnuFileApri();
}

bool MDIForm1::SalvaDocumento()
{
    Module1::Stato &s = stato();
    if (!s.DizionarioAperto || NomeRiservato(s.PercorsoDizionario))
        return false;
    if (const QString file = Documento::CambiatoDaAltri();
        !file.isEmpty() && Messaggio(this, QMessageBox::Warning, u"Attenzione!"_s,
                                     u"Il file "_s + file +
                                         u" è stato cambiato da un altro programma da quando è stato letto. "
                                         u"Sostituirlo?"_s,
                                     QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return false;
    if (s.recupero && !StessoFile(s.recupero->percorso(), s.PercorsoDizionario) &&
        !ChiediSopra(s.PercorsoDizionario, u"Salvare lo stesso?"_s))
        return false;
    s.NuovoDizionario = false;
    qint32 spezzate = 0;
    try {
        spezzate = Documento::Salva();
    } catch (const std::exception &eccezione) {
        const auto *errore = dynamic_cast<const ErroreRuntime *>(&eccezione);
        // What stands on the disk now may be less than what is in memory; also a new dictionary can go elsewhere.
        s.Modificato = true;
        Abilita(u"mnuFileSalva"_s, true);
        Abilita(u"mnuFileSalvaConNome"_s, true);
        Messaggio(this, QMessageBox::Critical, u"Errore!"_s,
                  (errore ? errore->testo : TestoMemoria()) +
                      u"\nLe voci restano nel programma: liberare spazio o salvare con un altro nome."_s);
        return false;
    }
    if (spezzate > 0)
        AvvisaSpezzate(this, s.PercorsoDizionario, spezzate);
    return true;
}

void MDIForm1::mnuFileSalva()
{
    SalvaDocumento();
}

void MDIForm1::mnuFileSalvaConNome()
{
    Module1::Stato &s = stato();
    DlgFile dlg = servizi().dlgFile;
    dlg.titolo = u"Salva con nome"_s;
    dlg.nomeFile = s.PercorsoDizionario;
    const QString percorso = s.PercorsoDizionario;
    const QString ini = s.PercorsoIni;
    const bool modificato = s.Modificato;
    if (MostraDlgFile(this, dlg, Scelta::Salva))
        s.PercorsoDizionario = dlg.nomeFile;
    if (!SalvaDocumento()) {
        // The dictionary under its own name is untouched by what happened to the other one.
        if (s.PercorsoDizionario != percorso && !s.FileRotto) {
            s.Modificato = modificato;
            if (!modificato)
                Documento::Rinuncia();
        }
        s.PercorsoDizionario = percorso;
        s.PercorsoIni = ini;
        return;
    }
    servizi().dlgFile.nomeFile = s.PercorsoDizionario;
    if (QMdiSubWindow *visualizza = FinestraAperta(u"VisualizzaForm1"_s))
        static_cast<VisualizzaForm1 *>(visualizza->widget())->AggiornaTitolo();
    if (auto *proprieta = Aperta<proprietaForm1>())
        proprieta->AggiornaTitolo();
}

void MDIForm1::mnuFileStampa()
{
    StampaDizionarioAperto(this);
}

void MDIForm1::simulachiusura(bool &annulla)
{
    Module1::Stato &s = stato();
    // A file that has gone leaves the entries in the program alone.
    if (s.Modificato || !QFileInfo::exists(s.PercorsoDizionario)) {
        const auto risposta = Messaggio(this, QMessageBox::Question, u"Salvare?"_s,
                                        u"Il dizionario "_s + s.PercorsoDizionario + u" è stato modificato. Salvare?"_s,
                                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        if (risposta == QMessageBox::No) {
            // Unless somebody else has written it since.
            if (s.NuovoDizionario && m_fileCreato && QFileInfo(s.PercorsoDizionario).size() == 0)
                QFile::remove(s.PercorsoDizionario);
            Documento::Rinuncia();
            s.Modificato = false;
        } else if (risposta != QMessageBox::Yes || !SalvaDocumento()) {
            annulla = true;
            return;
        }
    }
    Abilita(u"mnuFileApri"_s, true);
    Abilita(u"mnuFileChiudi"_s, false);
    s.DizionarioAperto = false;
    Chiudi();
}

void MDIForm1::mnuFileChiudi()
{
    bool annulla = false;
    if (stato().DizionarioAperto)
        simulachiusura(annulla);
}

void MDIForm1::Chiudi()
{
    Module1::Stato &s = stato();
    s.DizionarioAperto = false;
    StatoChiuso();
    ScaricaFinestre({u"EsercizioForm1"_s, u"InserimentoForm1"_s, u"proprietaForm1"_s, u"VisualizzaForm1"_s});
    Documento::Chiudi(PercorsoVarbelIni(), servizi().dlgFile.cartella, [this](const ErroreRuntime &errore) {
        Messaggio(this, QMessageBox::Critical, u"Errore!"_s,
                  u"Impossibile aggiornare "_s + PercorsoVarbelIni() + u".\n"_s + errore.testo);
    });
    AggiornaMenuRecenti();
    AggiornaTastiRapidi();
    AggiornaOpzioni();
    AggiornaComponi();
    servizi().dlgFile.nomeFile.clear();
    m_fileCreato = false;
    servizi().mnuFinestre->setVisible(false);
}
