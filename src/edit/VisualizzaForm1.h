// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

class ModelloColonna;

namespace Ui
{
class VisualizzaForm1;
}

/// The viewer: the open dictionary as two lists side by side, kept on the same row. Loading it reads the dictionary
/// from its file into the main table and sorts it; ErroreRuntime 53, 57, 70 or 75 when the file cannot be read.
class VisualizzaForm1 : public QWidget
{
    Q_OBJECT
public:
    explicit VisualizzaForm1(QWidget *genitore = nullptr);
    ~VisualizzaForm1() override;

    /// Refills both lists from the main table, without its holes, and resets the position label.
    void RiempiListe();

    /// Runs what a click on the delete button does.
    void SimulaElimina();

    /// Shows the fonts of the two languages and the application's font size.
    void AggiornaFont();

    /// Shows the names of the two languages and the path of the open dictionary.
    void AggiornaTitolo();

signals:
    /// The user opens row `voce` for modification.
    void modificaVoce(qint32 voce);

    /// Both lists were refilled: the rows of the main table may have moved.
    void listeRiempite();

    /// The window is asked to close while a dictionary is open; set `annulla` to keep it.
    void chiusuraRichiesta(bool &annulla);

protected:
    void closeEvent(QCloseEvent *evento) override;

private:
    void Clic1();
    void Clic2();
    void Apri();
    void ScriviPosizione(qint32 scelta, qint32 ultima);

    std::unique_ptr<Ui::VisualizzaForm1> ui;
    ModelloColonna *m_parole1;
    ModelloColonna *m_parole2;
    qint32 m_ultima = 0;
};
