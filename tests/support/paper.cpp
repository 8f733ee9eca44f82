#include "support/paper.h"

#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kolibri::test {
namespace {

/// What a tool makes of a PDF; without the tool no test of paper means anything.
QString output(const QString& tool, const QStringList& arguments, const QByteArray& pdf) {
    QProcess process;
    process.start(tool, arguments);
    process.write(pdf);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(tool), process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

QStringList sheetTexts(const QByteArray& pdf) {
    QStringList sheets = output(u"pdftotext"_s, {u"-layout"_s, u"-"_s, u"-"_s}, pdf).split(u'\f');
    // A form feed ends each sheet.
    sheets.removeLast();
    return sheets;
}

std::vector<PaperWord> paperWords(const QByteArray& pdf) {
    static const QRegularExpression part(
        u"<page |<word xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" xMax=\"([0-9.]+)\" "
        u"yMax=\"([0-9.]+)\">([^<]*)</word>"_s);
    const QString page = output(u"pdftotext"_s, {u"-bbox"_s, u"-"_s, u"-"_s}, pdf);
    std::vector<PaperWord> words;
    int sheet = 0;
    for (auto parts = part.globalMatch(page); parts.hasNext();) {
        const auto found = parts.next();
        if (found.captured(0) == u"<page "_s) {
            ++sheet;
            continue;
        }
        const auto number = [&](int i) { return found.captured(i).toDouble(); };
        words.push_back(
            {sheet, found.captured(5), QRectF(QPointF(number(1), number(2)), QPointF(number(3), number(4)))});
    }
    return words;
}

QSizeF sheetSize(const QByteArray& pdf) {
    static const QRegularExpression line(u"Page size: +([0-9.]+) x ([0-9.]+) pts"_s);
    const auto found = line.match(output(u"pdfinfo"_s, {u"-"_s}, pdf));
    return {found.captured(1).toDouble(), found.captured(2).toDouble()};
}

QStringList paperFonts(const QByteArray& pdf) {
    QStringList names;
    // Two lines of headings, then a font a line, its name behind the mark of the subset.
    const QStringList lines = output(u"pdffonts"_s, {u"-"_s}, pdf).split(u'\n', Qt::SkipEmptyParts);
    for (const auto& line : lines.mid(2))
        names << line.section(u' ', 0, 0).section(u'+', -1);
    return names;
}

} // namespace kolibri::test
