// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Documento.h"

#include "core/FileDizionario.h"
#include "core/FileVarbel.h"
#include "core/Module1.h"
#include "core/Percorsi.h"
#include "edit/Ordinamento.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;
using Module1::stato;

namespace
{
void NotaFile()
{
    Module1::Stato &s = stato();
    s.FileDizionario = ImprontaDi(s.PercorsoDizionario);
    s.FileIni = ImprontaDi(PercorsoIniScritto(s.PercorsoDizionario));
}
} // namespace

namespace Documento
{
void Occupa()
{
    // The place that was held is let go first, lest it seem another program's.
    stato().recupero.reset();
    stato().recupero = std::make_shared<Recupero>(stato().PercorsoDizionario);
    stato().FileRotto = false;
    stato().DaCopia = false;
    NotaFile();
}

void CreaMancante()
{
    QFile file(stato().PercorsoDizionario);
    if (file.exists())
        return;
    if (!file.open(QIODevice::Append))
        throw ErroreRuntime(75,
                            u"Impossibile creare il dizionario "_s + file.fileName() + u".\n"_s + file.errorString());
    NotaFile();
}

QString CambiatoDaAltri()
{
    const Module1::Stato &s = stato();
    // Under a new name it replaces what the user has chosen to replace.
    if (!s.recupero || s.recupero->percorso() != s.PercorsoDizionario)
        return {};
    if (CambiatoDa(s.FileDizionario, s.PercorsoDizionario))
        return s.PercorsoDizionario;
    const QString ini = PercorsoIniScritto(s.PercorsoDizionario);
    return CambiatoDa(s.FileIni, ini) ? ini : QString();
}

void Carica()
{
    Module1::Stato &s = stato();
    try {
        s.LenDizionario1 = CaricaDizionario(s.PercorsoDizionario, s.Dizionario1);
    } catch (const ErroreRuntime &) {
        if (!s.DaCopia)
            throw;
        s.LenDizionario1 = 0;
    }
    OrdinaStringhe(s.Dizionario1, s.LenDizionario1);
}

void PrendiImpostazioni(const CopiaRecupero &copia)
{
    try {
        stato().impostazioni = LeggiIni(copia.ini);
    } catch (const ErroreRuntime &) {
        // Those of the companion file stay.
    }
}

void Prendi(const CopiaRecupero &copia)
{
    Module1::Stato &s = stato();
    // One row more, free, as a file of as many entries leaves it.
    const auto voci = static_cast<qint32>(copia.voci.size());
    Tabella tabella;
    Ridimensiona(tabella, std::max(Capacita(s.Dizionario1), voci));
    std::transform(copia.voci.cbegin(), copia.voci.cend(), tabella.righe.begin(), RigaDaLinea);
    PrendiImpostazioni(copia);
    s.Dizionario1 = std::move(tabella);
    s.LenDizionario1 = voci;
    s.Modificato = true;
}

void AggiornaCopia()
{
    const Module1::Stato &s = stato();
    if (s.recupero)
        s.recupero->Scrivi(s.FileDizionario, ScriviIni(s.impostazioni), s.Dizionario1, s.LenDizionario1);
}

qint32 Salva()
{
    Module1::Stato &s = stato();
    bool conCopia = true;
    try {
        AggiornaCopia();
    } catch (const std::exception &) {
        // The save itself may still succeed.
        conCopia = false;
    }
    const QString ini = PercorsoIniScritto(s.PercorsoDizionario);
    // The same file by another way is not another one.
    const bool altro = s.recupero && !StessoFile(s.recupero->percorso(), s.PercorsoDizionario);
    const auto scrivi = [altro, &s](const QString &percorso, const auto &funzione) {
        const auto nota = [altro, &s] {
            if (altro)
                return;
            // What stands there now is ours, whole or not.
            s.FileRotto = s.FileRotto || ImprontaDi(s.PercorsoDizionario) != s.FileDizionario;
            NotaFile();
        };
        try {
            funzione();
        } catch (ErroreRuntime &errore) {
            nota();
            errore.testo = u"Impossibile salvare "_s + percorso + u".\n"_s + errore.testo;
            throw;
        } catch (...) {
            nota();
            throw;
        }
    };
    scrivi(s.PercorsoDizionario,
           [&] { SalvaDizionario(s.PercorsoDizionario, s.Dizionario1, s.LenDizionario1, conCopia); });
    s.PercorsoIni = ini;
    scrivi(ini, [&] {
        const auto byte = [&s](QIODevice &file) { ScriviTutto(file, ScriviIni(s.impostazioni)); };
        conCopia ? ScriviInPosto(ini, byte) : ScriviIntero(ini, byte);
    });
    NotaFile();
    s.Modificato = false;
    const qint32 spezzate = ContaSpezzate(s.Dizionario1, s.LenDizionario1);
    s.FileRotto = spezzate > 0;
    if (!s.recupero)
        return spezzate;
    if (s.recupero->percorso() != s.PercorsoDizionario) {
        // The new name's copy from now on.
        s.recupero->Togli();
        s.recupero.reset();
        s.recupero = std::make_shared<Recupero>(s.PercorsoDizionario);
    }
    if (spezzate == 0) {
        s.recupero->Togli();
        return 0;
    }
    try {
        // It knows the file as it stands now.
        AggiornaCopia();
    } catch (const std::exception &) {
        return spezzate;
    }
    return spezzate;
}

void Rinuncia()
{
    const Module1::Stato &s = stato();
    if (s.recupero && !s.FileRotto)
        s.recupero->Togli();
}

void AggiornaCopiaAllaFine()
{
    const Module1::Stato &s = stato();
    if (s.DizionarioAperto && (s.Modificato || !QFileInfo::exists(s.PercorsoDizionario)))
        AggiornaCopia();
}

void Chiudi(const QString &fileVarbel, const QString &cartella,
            const std::function<void(const ErroreRuntime &)> &avvisa)
{
    Module1::Stato &s = stato();
    AggiornaRecenti(s.recenti, s.PercorsoDizionario);
    try {
        // Named without a folder: the current one.
        RiscriviFileVarbel(fileVarbel, u"x1x2x3x4.zzz"_s, s.recenti, cartella, s.DimensioneFont);
    } catch (const ErroreRuntime &errore) {
        avvisa(errore);
    }
    s.recupero.reset();
    Module1::AzzeraDizionario();
    s.Modificato = false;
    s.NuovoDizionario = false;
}
} // namespace Documento
