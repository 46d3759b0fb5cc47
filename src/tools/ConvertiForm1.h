// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"
#include "tools/Conversione.h"

#include <memory>

class QLineEdit;

namespace Ui
{
class ConvertiForm1;
}

/// The conversion of a text file: how its lines are cut, and which segment is which field.
class ConvertiForm1 : public FinestraFiglia
{
    Q_OBJECT
public:
    /// Loads the window with the file's first line as the sample. ErroreRuntime as `PrimaLinea`.
    explicit ConvertiForm1(QString percorso, QWidget *genitore = nullptr);
    ~ConvertiForm1() override;

    [[nodiscard]] QSize Misura(int sinistra) const override;

signals:
    /// Entries may have been appended to the main table.
    void tabellaCambiata();

    /// A conversion has ended, with these lines that could not be cut.
    void convertito(const QStringList &errori);

private:
    [[nodiscard]] ImpostazioniConversione Impostazioni() const;
    bool ControllaCampi();
    void AggiornaAnteprima();
    void Ok();

    std::unique_ptr<Ui::ConvertiForm1> ui;
    std::array<QLineEdit *, ImpostazioniConversione::MassimoSeparatori> txtSeparatore;
    const QString FileDaConvertire;
    /// Separators that the check counts on: all, until a conversion has counted those filled in.
    int m_separatori = ImpostazioniConversione::MassimoSeparatori;
};
