#pragma once

#include <QByteArray>
#include <QRectF>
#include <QSizeF>
#include <QStringList>

#include <vector>

/// What lies on the sheets of a PDF, read with the tools of poppler.
namespace kolibri::test {

/// A word where it stands on its sheet (from 1), in points from the upper left corner.
struct PaperWord {
    int sheet;
    QString text;
    QRectF place;
};

/// The text of each sheet, laid out as on paper.
QStringList sheetTexts(const QByteArray& pdf);
/// Every word of all sheets, in order.
std::vector<PaperWord> paperWords(const QByteArray& pdf);
/// Size of the first sheet in points.
QSizeF sheetSize(const QByteArray& pdf);
/// Names of the fonts in use.
QStringList paperFonts(const QByteArray& pdf);

} // namespace kolibri::test
