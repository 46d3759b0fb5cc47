// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/TestoManuale.h"

#include "app/Protezione.h"

#include <QFile>
#include <QImage>
#include <QTextBlock>
#include <QTextImageFormat>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
// Where the text and its pictures are in the program; each page stands there under its own name.
const QString Cartella = QStringLiteral("qrc:/docs/");
const QString Estensione = QStringLiteral(".md");
} // namespace

TestoManuale::TestoManuale(QWidget *genitore) : QTextBrowser(genitore)
{
    setOpenLinks(false);
    Collega(this, &QTextBrowser::anchorClicked, this, [this](const QUrl &indirizzo) { Collegamento(indirizzo); });
    // Before source() tells of it.
    Collega(this, &QTextBrowser::sourceChanged, this, [this](const QUrl &indirizzo) {
        m_pagina = PaginaDi(indirizzo);
        constexpr int margine = 10;
        document()->setDocumentMargin(margine);
        AdattaImmagini();
    });
}

const QList<PaginaManuale> &TestoManuale::Pagine()
{
    if (m_pagine.isEmpty()) {
        Q_INIT_RESOURCE(manuale);
        QFile file(u":/docs/manuale.md"_s);
        if (file.open(QIODevice::ReadOnly))
            m_pagine = PagineDelManuale(QString::fromUtf8(file.readAll()));
    }
    return m_pagine;
}

qsizetype TestoManuale::PaginaDi(const QUrl &indirizzo) const
{
    const QString file = indirizzo.fileName();
    const auto trovata = std::find_if(m_pagine.cbegin(), m_pagine.cend(), [&file](const PaginaManuale &pagina) {
        return pagina.nome + Estensione == file;
    });
    return trovata == m_pagine.cend() ? -1 : trovata - m_pagine.cbegin();
}

void TestoManuale::MostraPagina(qsizetype pagina)
{
    if (pagina >= 0 && pagina < Pagine().size() && pagina != m_pagina)
        setSource(QUrl(Cartella + m_pagine[pagina].nome + Estensione));
}

bool TestoManuale::Cerca(const QString &testo)
{
    if (testo.isEmpty() || find(testo))
        return !testo.isEmpty();
    const qsizetype qui = m_pagina;
    const qsizetype quante = Pagine().size();
    // The page that is shown comes again at last, for what stands above.
    for (qsizetype i = 1; i <= quante; ++i) {
        const qsizetype pagina = (qui + i) % quante;
        if (pagina != qui && !m_pagine[pagina].testo.contains(testo, Qt::CaseInsensitive))
            continue;
        MostraPagina(pagina);
        moveCursor(QTextCursor::Start);
        if (find(testo))
            return true;
    }
    MostraPagina(qui);
    return false;
}

QVariant TestoManuale::loadResource(int tipo, const QUrl &indirizzo)
{
    if (tipo != QTextDocument::MarkdownResource)
        return QTextBrowser::loadResource(tipo, indirizzo);
    const qsizetype pagina = PaginaDi(indirizzo);
    return pagina < 0 ? QVariant() : m_pagine[pagina].testo;
}

void TestoManuale::resizeEvent(QResizeEvent *evento)
{
    QTextBrowser::resizeEvent(evento);
    AdattaImmagini();
}

void TestoManuale::Collegamento(const QUrl &indirizzo)
{
    const QString nome = indirizzo.fragment(QUrl::FullyDecoded);
    MostraPagina(PaginaDi(QUrl(nome + Estensione)));
}

void TestoManuale::AdattaImmagini()
{
    QTextCursor cursore(document());
    for (QTextBlock blocco = document()->begin(); blocco.isValid(); blocco = blocco.next()) {
        for (auto pezzo = blocco.begin(); !pezzo.atEnd(); ++pezzo) {
            const QTextFragment questo = pezzo.fragment();
            if (!questo.charFormat().isImageFormat())
                continue;
            QTextImageFormat formato = questo.charFormat().toImageFormat();
            if (!Adatta(formato))
                continue;
            cursore.setPosition(questo.position());
            cursore.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
            cursore.setCharFormat(formato);
            // The change has put other fragments in this one's place.
            break;
        }
    }
}

bool TestoManuale::Adatta(QTextImageFormat &formato)
{
    const QUrl nome(formato.name());
    const QImage intera(u':' + QUrl(Cartella).resolved(nome).path());
    const qreal larghezza = std::min<qreal>(intera.width(), viewport()->width() - 2 * document()->documentMargin());
    if (intera.isNull() || larghezza < 1 || qFuzzyCompare(formato.width(), larghezza))
        return false;
    formato.setWidth(larghezza);
    formato.setHeight(larghezza * intera.height() / intera.width());
    // Made smaller here: the text's painter would leave out lines of it.
    const qreal scala = devicePixelRatioF();
    QImage immagine = intera;
    if (larghezza * scala < intera.width()) {
        immagine = intera.scaledToWidth(qRound(larghezza * scala), Qt::SmoothTransformation);
        immagine.setDevicePixelRatio(scala);
    }
    document()->addResource(QTextDocument::ImageResource, document()->baseUrl().resolved(nome), immagine);
    return true;
}
