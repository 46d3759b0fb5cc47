// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FinestraFiglia.h"
#include "tools/Composizione.h"

#include <memory>
#include <optional>

class ListaParole;
class ModelloVoci;

namespace Ui
{
class ComponiForm1;
}

/// The open dictionary and the second one side by side, to copy entries between them; closing it writes the second one.
/// It stays open when the dictionary closes, and then keeps only the second one in use.
class ComponiForm1 : public FinestraFiglia
{
    Q_OBJECT
public:
    explicit ComponiForm1(QWidget *genitore = nullptr);
    ~ComponiForm1() override;

    /// Shows the open dictionary as its table is now, whose rows may have moved; none when it has been closed.
    void SegueDizionario1();

signals:
    /// Entries of the open dictionary were added or moved.
    void dizionarioCambiato();

protected:
    bool ChiediChiusura() override;
    void Unload() override;
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    void Copia1in2();
    void Copia2in1();
    void CopiaTutto1in2();
    void CopiaTutto2in1();
    void Ordina1();
    void Ordina2();
    void Elimina(const ListaParole *lista);
    void Ok();
    void Copia(const Composizione::Voci &righe);
    void ImpostaFontListe();
    bool ScriviSecondo();

    std::unique_ptr<Ui::ComponiForm1> ui;
    ModelloVoci *m_voci1;
    ModelloVoci *m_voci2;
    /// The items of the open dictionary after the refill that this window has asked for.
    std::optional<Composizione::Voci> m_dopoRefill;
};
