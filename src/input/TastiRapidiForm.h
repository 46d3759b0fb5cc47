// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"

#include <memory>

namespace Ui
{
class TastiRapidiForm;
}

/// The editor of the dictionary's hotkeys. It stays open when the dictionary closes, and is then without use.
class TastiRapidiForm : public FinestraFiglia
{
    Q_OBJECT
public:
    explicit TastiRapidiForm(QWidget *genitore = nullptr);
    ~TastiRapidiForm() override;

    /// Shows the hotkeys of the dictionary that is open now; none without one.
    void RiempiListe();

    /// The character of the next hotkey, as the map gives it; empty for none.
    void ImpostaCarattere(const QString &carattere);

    [[nodiscard]] QSize Misura(int sinistra) const override;

signals:
    /// The character map is asked for.
    void selezionaRichiesta();

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    void Aggiungi();
    void Elimina();
    void AggiungiAlleListe(const QString &carattere, const QString &tasto);

    std::unique_ptr<Ui::TastiRapidiForm> ui;
    /// The key code of the last key released in the box.
    qint16 m_codice = 0;
};
