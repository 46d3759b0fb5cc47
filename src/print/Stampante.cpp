// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/Stampante.h"

#include "app/Protezione.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{
std::unique_ptr<QPrinter> Predefinita(const QString &titolo)
{
    auto stampante = std::make_unique<QPrinter>(QPrinter::HighResolution);
    stampante->setDocName(titolo);
    // The toolkit begins with the sheet of the user's country, whatever lies in the printer.
    if (const QPageSize foglio = QPrinterInfo(*stampante).defaultPageSize(); foglio.isValid())
        stampante->setPageSize(foglio);
    return stampante;
}

std::unique_ptr<QPrinter> ScegliStampante(QWidget *genitore, const QString &titolo)
{
    auto stampante = Predefinita(titolo);
    QPrintDialog dialogo(stampante.get(), genitore->window());
    // So a range of pages is picked by the print server, from a document that is sent whole.
    dialogo.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (dialogo.exec() == QDialog::Accepted)
        return stampante;
    return Predefinita(titolo);
}
} // namespace

bool StampanteValida(const QPrinter &stampante)
{
    if (stampante.outputFormat() != QPrinter::NativeFormat || !stampante.outputFileName().isEmpty())
        return !stampante.outputFileName().isEmpty();
    // A name that no printer has is taken without a word.
    return !QPrinterInfo::printerInfo(stampante.printerName()).isNull();
}

void ConStampante(QWidget *genitore, const QString &titolo, const std::function<void(SpoolStampante &)> &stampa)
{
    try {
        const std::unique_ptr<QPrinter> stampante = ScegliStampante(genitore, titolo);
        if (!StampanteValida(*stampante))
            throw ErroreRuntime(57);
        SpoolStampante spool(*stampante);
        stampa(spool);
    } catch (const std::exception &) {
        Messaggio(genitore, QMessageBox::Critical, u"Errore!"_s, u"Errore nella stampa!"_s);
    }
}
