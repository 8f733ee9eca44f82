#include "support/paper.h"
#include "web/printing.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// Three sheets with their numbers on them.
QByteArray threeSheets() {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    for (int sheet = 1; sheet <= 3; ++sheet) {
        if (sheet > 1)
            writer.newPage();
        painter.fillRect(0, 0, 2000 * sheet, 2000, Qt::black);
        painter.drawText(200, 4000, u"Blatt%1"_s.arg(sheet));
    }
    painter.end();
    return bytes;
}

} // namespace

class PrintingTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString file(const QString& name) const { return m_folder.filePath(name); }
    QByteArray bytesOf(const QString& name) const {
        QFile in(file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    /// Makes a spooler that keeps what it is given and ends with this code.
    void placeSpooler(int code) {
        QFile script(file(u"lp"_s));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf '%s\\n' \"$@\" > \"" + file(u"args"_s).toLocal8Bit() + "\"\ncat > \""
                     + file(u"data"_s).toLocal8Bit() + "\"\necho Papierstau >&2\nexit "
                     + QByteArray::number(code) + "\n");
        script.close();
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    QStringList optionsOf(QPrinter& printer) {
        if (!spoolPdf(file(u"lp"_s), threeSheets(), u"Liste"_s, printer).isEmpty())
            return {u"failed"_s};
        return QString::fromUtf8(bytesOf(u"args"_s)).split(u'\n', Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void init() {
        for (const auto& name : {u"args"_s, u"data"_s, u"lp"_s, u"out.pdf"_s})
            QFile::remove(file(name));
    }

#ifdef Q_OS_UNIX
    void theSpoolerGetsThePdfItself() {
        placeSpooler(0);
        QPrinter printer;
        const QByteArray pdf = threeSheets();
        QCOMPARE(spoolPdf(file(u"lp"_s), pdf, u"Liste Müller"_s, printer), QString());
        QCOMPARE(bytesOf(u"data"_s), pdf);
        QVERIFY(bytesOf(u"args"_s).contains("Liste Müller"));
    }

    void theSpoolerIsToldWhatTheUserChose() {
        placeSpooler(0);
        QPrinter printer;
        printer.setCopyCount(2);
        printer.setFromTo(2, 3);
        printer.setPrintRange(QPrinter::PageRange);
        const QStringList options = optionsOf(printer);
        QCOMPARE(options.value(options.indexOf(u"-n"_s) + 1), u"2"_s);
        QCOMPARE(options.value(options.indexOf(u"-P"_s) + 1), u"2-3"_s);
    }

    void aSpoolerThatFailsWithoutAWordIsAFailureToo() {
        QFile script(file(u"lp"_s));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\ncat > /dev/null\nexit 1\n");
        script.close();
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QPrinter printer;
        QVERIFY(spoolPdf(file(u"lp"_s), threeSheets(), u"Liste"_s, printer)
                    .endsWith(u"hat den Auftrag nicht angenommen."));
    }

    void theSpoolerIsToldThePaper() {
        placeSpooler(0);
        QPrinter printer;
        printer.setPageSize(QPageSize(QPageSize::A5));
        QVERIFY(optionsOf(printer).contains(u"media=A5"_s));
    }

    void theSpoolersWordsAreHandedOnWhenItFails() {
        placeSpooler(1);
        QPrinter printer;
        QCOMPARE(spoolPdf(file(u"lp"_s), threeSheets(), u"Liste"_s, printer), u"Papierstau"_s);
    }
#endif

    void whoPrintsIntoAFileGetsThePdf() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file(u"out.pdf"_s));
        const QByteArray pdf = threeSheets();
        QCOMPARE(printPdf(pdf, u"Liste"_s, printer), QString());
        QCOMPARE(bytesOf(u"out.pdf"_s), pdf);
    }

    void aFileThatCannotBeWrittenIsSaid() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file(u"fehlt/out.pdf"_s));
        QVERIFY(!printPdf(threeSheets(), u"Liste"_s, printer).isEmpty());
    }

    void sheetsAreDrawnWhereThePrinterTakesNoPdf() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file(u"out.pdf"_s));
        QCOMPARE(drawPdf(threeSheets(), printer), QString());
        QCOMPARE(sheetTexts(bytesOf(u"out.pdf"_s)).size(), 3);
    }

    void onlyTheChosenSheetsAreDrawn() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file(u"out.pdf"_s));
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(2, 9);
        QCOMPARE(drawPdf(threeSheets(), printer), QString());
        QCOMPARE(sheetTexts(bytesOf(u"out.pdf"_s)).size(), 2);
    }

    void sheetsThatAreNotThereAreSaidAndPrintNothing() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file(u"out.pdf"_s));
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(5, 9);
        QCOMPARE(drawPdf(threeSheets(), printer), u"Die gewählten Seiten gibt es nicht: Die Liste hat 3."_s);
        QVERIFY(!QFile::exists(file(u"out.pdf"_s)));
    }

    void whatIsNoPdfIsSaidAndPrintsNothing() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file(u"out.pdf"_s));
        QCOMPARE(drawPdf("kein PDF", printer), u"Die Druckseiten können nicht gelesen werden."_s);
        QVERIFY(!QFile::exists(file(u"out.pdf"_s)));
    }
};

QTEST_MAIN(PrintingTest)
#include "printing_test.moc"
