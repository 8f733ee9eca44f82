#pragma once

#include "core/page_module.h"

#include <QPrinter>

namespace kolibri {

bool printerExists();
/// Measures of the default printer's sheet; no value when there is no printer.
std::optional<PaperMeasures> defaultPrinterMeasures(PaperOrientation orientation);
/// The print dialog; nothing when the user gave up.
std::unique_ptr<PrintJob> askForPrinter(QWidget* parent, PaperOrientation orientation);

/// Prints a PDF as the printer's settings say. @returns what went wrong, in words; empty when it was taken
QString printPdf(const QByteArray& pdf, const QString& title, QPrinter& printer);

} // namespace kolibri
