// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Finestre.h"
#include "app/MDIForm1.h"
#include "app/Protezione.h"
#include "core/FileInPosto.h"
#include "core/Module1.h"
#include "edit/ListaParole.h"
#include "edit/VisualizzaForm1.h"
#include "exercise/Esercizio.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// A program of its own for one test: a folder with varbel.ini, the current folder in it, the state at its start.
struct Banco {
    Banco()
    {
        Module1::LoadKeyboardLayoutA() = [this](const QString &nome) {
            tastiere += nome;
            return tastieraRiesce;
        };
        qputenv("XDG_STATE_HOME", QFile::encodeName(cartella.filePath(QStringLiteral("stato"))));
        QDir().mkpath(cartella.filePath(QStringLiteral("programma")));
        ScriviInPosto(Ini(), LeggiTutto(QStringLiteral(ASSETS "/varbel.ini")));
        QDir::setCurrent(cartella.path());
        Avvia();
    }
    ~Banco()
    {
        finestra.reset();
        QDir::setCurrent(QDir::rootPath());
        Module1::Azzera();
        Module1::LoadKeyboardLayoutA() = nullptr;
    }
    Q_DISABLE_COPY_MOVE(Banco)

    void Avvia()
    {
        finestra.reset();
        Module1::Azzera();
        Esercizio::stato() = {};
        Module1::stato().CartellaProgramma = cartella.filePath(QStringLiteral("programma"));
        finestra = std::make_unique<MDIForm1>();
        finestra->show();
    }

    [[nodiscard]] QString Ini() const { return cartella.filePath(QStringLiteral("programma/varbel.ini")); }
    [[nodiscard]] QString File(const QString &nome) const { return cartella.filePath(nome); }

    /// A dictionary of these stored lines, with a companion file unless `ini` is null.
    QString Dizionario(const QString &nome, const QStringList &linee,
                       const QByteArray &ini = ScriviIni(ImpostazioniDizionario())) const
    {
        QString testo;
        for (const QString &linea : linee)
            testo += linea + QStringLiteral("\r\n");
        ScriviInPosto(File(nome), QByteArray(reinterpret_cast<const char *>(testo.utf16()), testo.size() * 2));
        if (!ini.isNull())
            ScriviInPosto(File(nome.chopped(3) + QStringLiteral("ini")), ini);
        return File(nome);
    }

    void Apri(const QString &percorso) const
    {
        Module1::stato().PercorsoDizionario = percorso;
        finestra->SimulaApertura();
    }

    [[nodiscard]] QAction *Azione(const QString &nome) const { return finestra->findChild<QAction *>(nome); }
    void Comando(const QString &nome) const { Azione(nome)->trigger(); }

    [[nodiscard]] VisualizzaForm1 *Visualizza() const
    {
        return finestra->findChild<VisualizzaForm1 *>(QStringLiteral("VisualizzaForm1"));
    }
    [[nodiscard]] ListaParole *Lista(int lingua) const
    {
        return Visualizza()->findChild<ListaParole *>(QStringLiteral("ListaParoleLingua%1").arg(lingua));
    }
    [[nodiscard]] QStringList Parole(int lingua) const
    {
        QStringList parole;
        const QAbstractItemModel *modello = Lista(lingua)->model();
        for (int i = 0; i < modello->rowCount(); ++i)
            parole += modello->index(i, 0).data().toString();
        return parole;
    }
    [[nodiscard]] QString Testo(const QString &etichetta) const
    {
        return Visualizza()->findChild<QLabel *>(etichetta)->text();
    }
    void Premi(const QString &pulsante) const { Visualizza()->findChild<QPushButton *>(pulsante)->click(); }

    /// A control of a child window, which must be open.
    template <typename Controllo>
    [[nodiscard]] Controllo *Trova(const char *form, const char *nome) const
    {
        const auto *aperta = finestra->findChild<QWidget *>(QString::fromLatin1(form));
        return aperta ? aperta->findChild<Controllo *>(QString::fromLatin1(nome)) : nullptr;
    }
    [[nodiscard]] bool Aperta(const char *form) const
    {
        return finestra->findChild<QWidget *>(QString::fromLatin1(form)) != nullptr;
    }

    /// Closes every child window but the viewer.
    void ChiudiFiglie() const
    {
        for (const auto &figlia : finestra->findChild<QMdiArea *>()->subWindowList()) {
            if (figlia->widget() && figlia->widget() != Visualizza())
                figlia->close();
        }
    }

    /// A key pressed and let go in the control that has the focus, as the platform sends it: `scansione` is the key's
    /// place, `testo` what it types.
    static void Batti(int tasto, Qt::KeyboardModifiers tasti, const QString &testo = {}, quint32 scansione = 0)
    {
        for (const QEvent::Type tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent evento(tipo, tasto, tasti, scansione, 0, 0, testo);
            QApplication::sendEvent(QApplication::focusWidget(), &evento);
        }
    }

    /// The exit code of the program when `azione` ends it.
    template <typename Azione>
    [[nodiscard]] int Fine(Azione azione) const
    {
        QMetaObject::invokeMethod(finestra.get(), azione, Qt::QueuedConnection);
        const int codice = QApplication::exec();
        return std::exchange(ProgrammaTerminato(), false) ? codice : 0;
    }

    /// The stored lines of a dictionary file, without their ends.
    static QStringList Linee(const QString &percorso)
    {
        const QByteArray byte = LeggiTutto(percorso);
        const QString testo(reinterpret_cast<const QChar *>(byte.constData()), byte.size() / 2);
        QStringList linee = testo.split(QStringLiteral("\r\n"));
        linee.removeLast();
        return linee;
    }

    /// The keyboard layouts asked for, and whether they can be had.
    QStringList tastiere;
    bool tastieraRiesce = true;
    QTemporaryDir cartella;
    std::unique_ptr<MDIForm1> finestra;
};
