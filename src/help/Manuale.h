// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringList>

/// A page of the manual: what stands under one heading of the first or second level.
struct PaginaManuale {
    QString titolo;
    /// What links to the page name: the heading in small letters, "-" for blanks, without punctuation.
    QString nome;
    /// The windows whose help it is, by object name or title.
    QStringList finestre;
    /// Markdown, with the heading.
    QString testo;
};

/// The pages of a Markdown text. A line "<!-- F1: a, b -->" gives the windows of the page that it stands in.
QList<PaginaManuale> PagineDelManuale(const QString &testo);

/// The page of the first name that one has, or else the first page.
qsizetype PaginaDi(const QList<PaginaManuale> &pagine, const QStringList &finestre);
