#include "web/printing.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfDocument>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QPageLayout::Orientation layoutOrientation(PaperOrientation orientation) {
    return orientation == PaperOrientation::Across ? QPageLayout::Landscape : QPageLayout::Portrait;
}

/// Sheets to print, from 1; the whole document unless the user chose a range.
struct SheetRange {
    int first;
    int last;
};

SheetRange rangeOf(const QPrinter& printer, int sheets) {
    if (printer.printRange() != QPrinter::PageRange || printer.fromPage() < 1)
        return {1, sheets};
    return {printer.fromPage(), std::min(printer.toPage(), sheets)};
}

QString writeFile(const QByteArray& pdf, const QString& file) {
    QSaveFile out(file);
    if (out.open(QIODevice::WriteOnly) && out.write(pdf) == pdf.size() && out.commit())
        return {};
    return out.errorString();
}

/// The settings of a print as the spooler of Unix machines reads them.
QStringList spoolerOptions(const QPrinter& printer, const QString& title) {
    QStringList options{
        u"-d"_s, printer.printerName(), u"-t"_s, title, u"-n"_s, QString::number(printer.copyCount())};
    const auto add = [&](const QString& option) { options << u"-o"_s << option; };
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0)
        options << u"-P"_s << u"%1-%2"_s.arg(printer.fromPage()).arg(printer.toPage());
    if (printer.duplex() == QPrinter::DuplexNone)
        add(u"sides=one-sided"_s);
    else if (printer.duplex() == QPrinter::DuplexLongSide)
        add(u"sides=two-sided-long-edge"_s);
    else if (printer.duplex() == QPrinter::DuplexShortSide)
        add(u"sides=two-sided-short-edge"_s);
    if (const QString paper = printer.pageLayout().pageSize().key(); !paper.isEmpty())
        add(u"media="_s + paper);
    if (printer.colorMode() == QPrinter::GrayScale)
        add(u"print-color-mode=monochrome"_s);
    if (printer.copyCount() > 1)
        add(printer.collateCopies() ? u"collate=true"_s : u"collate=false"_s);
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        add(u"outputorder=reverse"_s);
    return options;
}

class ChosenPrinter final : public PrintJob {
public:
    explicit ChosenPrinter(std::unique_ptr<QPrinter> printer) : m_printer(std::move(printer)) {}

    QPageLayout sheet() const override { return m_printer->pageLayout(); }
    QString print(const QByteArray& pdf, const QString& title) override {
        return printPdf(pdf, title, *m_printer);
    }

private:
    std::unique_ptr<QPrinter> m_printer;
};

} // namespace

bool printerExists() {
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

std::optional<PaperMeasures> defaultPrinterMeasures(PaperOrientation orientation) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull())
        return std::nullopt;
    QPrinter printer(info);
    printer.setPageOrientation(layoutOrientation(orientation));
    const QPageLayout sheet = printer.pageLayout();
    QMarginsF edge = sheet.minimumMargins();
    if (sheet.units() != QPageLayout::Point) {
        QPageLayout points = sheet;
        points.setUnits(QPageLayout::Point);
        edge = points.minimumMargins();
    }
    const double width = sheet.fullRect(QPageLayout::Point).width();
    return PaperMeasures{width, edge.left(), width - edge.left() - edge.right()};
}

std::unique_ptr<PrintJob> askForPrinter(QWidget* parent, PaperOrientation orientation) {
    auto printer = std::make_unique<QPrinter>(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    printer->setPageOrientation(layoutOrientation(orientation));
    QPrintDialog dialog(printer.get(), parent);
    dialog.setWindowTitle(u"Drucken"_s);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    return std::make_unique<ChosenPrinter>(std::move(printer));
}

QString spoolPdf(const QString& spooler, const QByteArray& pdf, const QString& title,
                 const QPrinter& printer) {
    constexpr int kLongest = 60'000;
    QProcess process;
    process.start(spooler, spoolerOptions(printer, title));
    process.write(pdf);
    process.closeWriteChannel();
    if (!process.waitForFinished(kLongest))
        return process.errorString();
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    const QString words = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    return words.isEmpty() ? u"Der Drucker %1 hat den Auftrag nicht angenommen."_s.arg(printer.printerName())
                           : words;
}

QString drawPdf(const QByteArray& pdf, QPrinter& printer) {
    // Finer than the eye sees, and a sheet still fits into memory.
    constexpr int kFinest = 600;
    QBuffer buffer;
    buffer.setData(pdf);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument document;
    document.load(&buffer);
    if (document.pageCount() == 0)
        return u"Die Druckseiten können nicht gelesen werden."_s;
    const SheetRange range = rangeOf(printer, document.pageCount());
    if (range.first > range.last)
        return u"Die gewählten Seiten gibt es nicht: Die Liste hat %1."_s.arg(document.pageCount());
    printer.setFullPage(true);
    if (printer.resolution() > kFinest)
        printer.setResolution(kFinest);
    QPainter painter;
    if (!painter.begin(&printer))
        return u"Der Drucker %1 nimmt nichts an."_s.arg(printer.printerName());
    const QRect sheet(QPoint(), printer.pageLayout().fullRectPixels(printer.resolution()).size());
    for (int number = range.first; number <= range.last; ++number) {
        if (number > range.first && !printer.newPage())
            return u"Der Drucker %1 hat abgebrochen."_s.arg(printer.printerName());
        painter.drawImage(sheet, document.render(number - 1, sheet.size()));
    }
    return painter.end() ? QString() : u"Der Drucker %1 hat abgebrochen."_s.arg(printer.printerName());
}

QString printPdf(const QByteArray& pdf, const QString& title, QPrinter& printer) {
    if (printer.outputFormat() == QPrinter::PdfFormat)
        return writeFile(pdf, printer.outputFileName());
    const QString spooler = QStandardPaths::findExecutable(u"lp"_s);
    return spooler.isEmpty() ? drawPdf(pdf, printer) : spoolPdf(spooler, pdf, title, printer);
}

} // namespace kolibri
