// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/Manuale.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
QString NomeDi(const QString &titolo)
{
    QString nome;
    for (const QChar c : titolo.toLower()) {
        if (c.isLetterOrNumber())
            nome += c;
        else if (c.isSpace() || c == u'-')
            nome += u'-';
    }
    return nome;
}
} // namespace

QList<PaginaManuale> PagineDelManuale(const QString &testo)
{
    const QString inizioFinestre = u"<!-- F1:"_s;
    const QString fineFinestre = u"-->"_s;
    QList<PaginaManuale> pagine;
    for (const QString &linea : testo.split(u'\n')) {
        if (linea.startsWith("# "_L1) || linea.startsWith("## "_L1)) {
            const QString titolo = linea.section(u' ', 1);
            pagine += {.titolo = titolo, .nome = NomeDi(titolo), .finestre = {}, .testo = {}};
        }
        if (pagine.isEmpty())
            continue;
        PaginaManuale &pagina = pagine.last();
        if (linea.startsWith(inizioFinestre)) {
            const qsizetype fine = linea.indexOf(fineFinestre);
            for (const QString &nome : linea.sliced(inizioFinestre.size(), fine - inizioFinestre.size()).split(u','))
                pagina.finestre += nome.trimmed();
        } else {
            pagina.testo += linea + u'\n';
        }
    }
    return pagine;
}

qsizetype PaginaDi(const QList<PaginaManuale> &pagine, const QStringList &finestre)
{
    for (const QString &nome : finestre) {
        const auto trovata = std::find_if(pagine.cbegin(), pagine.cend(), [&nome](const PaginaManuale &pagina) {
            return pagina.finestre.contains(nome);
        });
        if (trovata != pagine.cend())
            return trovata - pagine.cbegin();
    }
    return 0;
}
