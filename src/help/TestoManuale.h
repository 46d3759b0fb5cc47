// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "help/Manuale.h"

#include <QTextBrowser>

/// The manual's text, a page at a time, each a source of its own; pictures are made as narrow as the page.
class TestoManuale : public QTextBrowser
{
    Q_OBJECT
public:
    explicit TestoManuale(QWidget *genitore = nullptr);

    /// The pages, read at the first call.
    [[nodiscard]] const QList<PaginaManuale> &Pagine();

    /// The page shown, -1 before the first.
    [[nodiscard]] qsizetype Pagina() const { return m_pagina; }
    void MostraPagina(qsizetype pagina);

    /// Goes to the next place of a text, over all pages; false when there is none.
    bool Cerca(const QString &testo);

    QVariant loadResource(int tipo, const QUrl &indirizzo) override;

protected:
    void resizeEvent(QResizeEvent *evento) override;

private:
    void Collegamento(const QUrl &indirizzo);
    void AdattaImmagini();
    /// Makes a picture no wider than the page, at its own size where there is room; false when it is so already.
    bool Adatta(QTextImageFormat &formato);

    [[nodiscard]] qsizetype PaginaDi(const QUrl &indirizzo) const;

    QList<PaginaManuale> m_pagine;
    qsizetype m_pagina = -1;
};
