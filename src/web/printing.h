#pragma once

#include "core/page_module.h"

#include <QPrinter>

namespace kolibri {

bool printerExists();
/// Measures of the default printer's sheet; no value when there is no printer.
std::optional<PaperMeasures> defaultPrinterMeasures(PaperOrientation orientation);
/// The print dialog; nothing when the user gave up.
std::unique_ptr<PrintJob> askForPrinter(QWidget* parent, PaperOrientation orientation);

/// Hands a PDF itself to the spooler of a Unix machine, so that text stays text on its way to the printer.
/// @returns as printPdf
QString spoolPdf(const QString& spooler, const QByteArray& pdf, const QString& title,
                 const QPrinter& printer);
/// Draws the sheets of a PDF one by one, for systems whose printers take no PDF. @returns as printPdf
QString drawPdf(const QByteArray& pdf, QPrinter& printer);
/// Prints a PDF as the printer's settings say. @returns what went wrong, in words; empty when it was taken
QString printPdf(const QByteArray& pdf, const QString& title, QPrinter& printer);

} // namespace kolibri
