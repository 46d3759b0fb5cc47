// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QFont>
#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <optional>

/// Answers the modal dialogs that the program shows, in the order expected; each expectation may open further ones.
/// `verifica` fails for a dialog that came unexpected, differed, or did not come.
class Dialoghi : public QObject
{
    Q_OBJECT
public:
    Dialoghi();

    /// A message box with exactly this title, text and icon is answered with `pulsante`.
    void casella(const QString &titolo, const QString &testo, QMessageBox::Icon icona,
                 QMessageBox::StandardButton pulsante = QMessageBox::Ok);

    /// A critical box of that title whose text begins so is acknowledged.
    void errore(const QString &titolo, const QString &inizioTesto);

    /// In a file dialog `percorso` is typed and accepted; an empty one cancels. `filtro` must be its only name filter.
    void file(const QString &percorso, const QString &filtro = QStringLiteral("*.dic (dizionari) (*.dic)"));

    /// Any other dialog: `risposta` checks it and ends it.
    void altro(const std::function<void(QDialog *)> &risposta) { m_attese += risposta; }

    /// In the print dialog the printer of that name is chosen, for a path the PDF file; an empty one cancels.
    void stampa(const QString &dove);

    /// The question how many sheets to print, after `prima`, is answered with `pulsante`; `fogli` is then the number.
    void fogliDaStampare(QMessageBox::StandardButton pulsante, const std::function<void()> &prima = {});

    /// In the font dialog `scelto` is chosen; none cancels.
    void font(const std::optional<QFont> &scelto);

    /// True when all that was expected came and nothing else; forgets both.
    bool verifica();

    /// What went wrong, for the message of a failed check.
    [[nodiscard]] QString guasti() const { return m_guasti.join(u'\n'); }

    /// The starting folder of the last file dialog.
    QString ultimaCartella;
    /// The file name that the last file dialog came with.
    QString ultimoNome;
    /// The sheets that the last question was about.
    int fogli = 0;

private:
    void Guarda();

    using Risposta = std::function<void(QDialog *)>;
    QList<Risposta> m_attese;
    QStringList m_guasti;
    QList<QPointer<QDialog>> m_visti;
    QTimer m_orologio;
};
