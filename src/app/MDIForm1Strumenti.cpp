// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Attesa.h"
#include "app/MDIForm1.h"
#include "app/Protezione.h"
#include "app/Servizi.h"
#include "core/FileInPosto.h"
#include "edit/VisualizzaForm1.h"
#include "tools/ComponiForm1.h"
#include "tools/Composizione.h"
#include "tools/ConvertiForm1.h"
#include "tools/Inversione.h"
#include "tools/OutPutForm.h"
#include "tools/Unione.h"

#include <QFileInfo>
#include <QMdiArea>

using namespace Qt::StringLiterals;
using Module1::stato;

void MDIForm1::AggiornaVisualizza()
{
    if (auto *visualizza = Aperta<VisualizzaForm1>())
        visualizza->RiempiListe();
}

bool MDIForm1::ScegliFile(const QString &titolo, Scelta scelta, QString &scelto, const QString &filtro)
{
    DlgFile dlg = servizi().dlgFile;
    dlg.nomeFile.clear();
    dlg.titolo = titolo;
    if (!filtro.isEmpty())
        dlg.filtro = filtro;
    if (!MostraDlgFile(this, dlg, scelta))
        return false;
    scelto = dlg.nomeFile;
    servizi().dlgFile.nomeFile = scelto;
    return true;
}

void MDIForm1::mnuStrumentiUnisci()
{
    QString sorgente;
    if (!ScegliFile(u"Seleziona il dizionario sorgente"_s, Scelta::Apri, sorgente))
        return;
    const qint32 voci = ContaVoci(stato().Dizionario1, stato().LenDizionario1);
    qint32 aggiunte = 0;
    bool interrotta = false;
    try {
        Attesa attesa(this, u"Unione"_s);
        aggiunte = UnisciDizionario(sorgente, [&](qint64 fatto, qint64 totale) {
            interrotta = !attesa.Avanti(fatto, totale);
            return !interrotta;
        });
    } catch (const ErroreRuntime &errore) {
        Messaggio(this, QMessageBox::Critical, u"Errore!"_s,
                  u"Impossibile leggere "_s + sorgente + u".\n"_s + errore.testo);
        return;
    }
    if (aggiunte > 0) {
        AggiornaVisualizza();
        SegnaModificato();
    }
    if (interrotta)
        Messaggio(this, QMessageBox::Information, u"Unione"_s,
                  u"Unione interrotta. Voci aggiunte: %1."_s.arg(
                      ContaVoci(stato().Dizionario1, stato().LenDizionario1) - voci));
}

void MDIForm1::mnuStrumentiComponi()
{
    if (QMdiSubWindow *aperta = FinestraAperta(u"ComponiForm1"_s); aperta && !aperta->close())
        return;
    QString secondo;
    if (!ScegliFile(u"Componi Dizionario"_s, Scelta::Apri, secondo) || NomeRiservato(secondo))
        return;
    try {
        Composizione::Leggi(secondo);
    } catch (ErroreRuntime &errore) {
        errore.testo = u"Impossibile leggere il dizionario "_s + secondo + u".\n"_s + errore.testo;
        throw;
    }
    if (!StessoFile(secondo, stato().PercorsoDizionario) && Composizione::ApertoAltrove() &&
        !ChiediAltrove(secondo, u"Aprirlo lo stesso?"_s)) {
        Composizione::Libera();
        return;
    }
    Mostra<ComponiForm1>();
}

void MDIForm1::mnuStrumentiInverti()
{
    QString scelto;
    // The open dictionary's own name means the one in memory: nothing is overwritten by choosing it.
    if (!ScegliFile(u"Inverti Dizionario"_s, Scelta::SalvaEsistente, scelto))
        return;
    if (scelto == stato().PercorsoDizionario) {
        InvertiInPosto();
        SegnaModificato();
        AggiornaVisualizza();
        return;
    }
    if (NomeRiservato(scelto))
        return;
    if (QFileInfo::exists(scelto) && Messaggio(this, QMessageBox::Warning, u"Inverti Dizionario"_s,
                                               u"Il file "_s + scelto + u" esiste già. Sostituirlo?"_s,
                                               QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    if (!StessoFile(scelto, stato().PercorsoDizionario) && !ChiediSopra(scelto, u"Sostituirlo lo stesso?"_s))
        return;
    const qint32 spezzate = ScriviInvertito(scelto);
    Messaggio(this, QMessageBox::Information, u"Salvataggio"_s, u"Salvataggio completato di "_s + scelto);
    if (spezzate > 0)
        AvvisaSpezzate(this, scelto, spezzate, false);
}

void MDIForm1::mnuStrumentiConversioni()
{
    QString scelto;
    if (!ScegliFile(u"Conversioni"_s, Scelta::Apri, scelto, u"*.* (tutti i file)|*.*"_s))
        return;
    // One window: another file takes the place of the one it was opened for.
    ScaricaFinestre({u"ConvertiForm1"_s});
    m_daConvertire = scelto;
    try {
        Mostra<ConvertiForm1>();
    } catch (const ErroreRuntime &errore) {
        if (errore.termina)
            throw;
        Messaggio(this, QMessageBox::Critical, u"Errore!"_s,
                  u"Impossibile leggere "_s + scelto + u".\n"_s + errore.testo);
    }
}

QWidget *MDIForm1::CreaConverti()
{
    auto *converti = new ConvertiForm1(m_daConvertire, this);
    Collega(converti, &ConvertiForm1::tabellaCambiata, this, [this] { AggiornaVisualizza(); });
    Collega(converti, &ConvertiForm1::convertito, this, [this](const QStringList &errori) { MostraUscita(errori); });
    return converti;
}

void MDIForm1::MostraUscita(const QStringList &errori)
{
    // One window: this list takes the place of the one of another conversion.
    ScaricaFinestre({u"OutPutForm"_s});
    Mostra<OutPutForm>()->ImpostaErrori(errori);
    // The conversion window, which closes next, takes its caption off the list but leaves the marks where they are.
    QMetaObject::invokeMethod(
        this, [this] { Attivata(m_ultimaAttiva); }, Qt::QueuedConnection);
}
