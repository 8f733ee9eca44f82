#include "lists/print_copy.h"

#include "core/windows1252.h"

#include <QDate>
#include <QRegularExpression>
#include <QTextDocumentFragment>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

// A box laid around the page's content, as a table with head and foot: the engine repeats both on every
// sheet, and with them the room that they take. The foot's room is for the date, which is repeated because it
// stands at a fixed place; the head's keeps the upper line of a table from showing at the end of the sheet
// before. The box is no TABLE, which would take the fonts away from what stands in it. It is not closed
// again: the page's end does that, whatever markup the data hold. A row stays on one sheet. A
// heading asks for the room of a small table below itself, since the engine does not keep it with what
// follows, and lends that room to the table. The list begins at the margin, so that its table, as wide as the
// printer reaches, fits the sheet in its true size.
constexpr QByteArrayView kPaperStyle = R"(<style>
body { margin: 0; }
#box_table { margin-left: 0; }
tr { break-inside: avoid; }
.UE1_vorher { break-inside: avoid; padding-bottom: 120px; margin-bottom: -110px; }
#kolibri_blatt { display: table; width: 100%; }
.kolibri_kopf { display: table-header-group; break-inside: avoid; }
.kolibri_kopf div { height: 1px; }
.kolibri_platz { display: table-footer-group; break-inside: avoid; }
.kolibri_platz div { height: 24px; }
#kolibri_fuss { position: fixed; bottom: 0; left: 0; font: 12px arial, sans-serif; }
</style>
)";

constexpr QByteArrayView kBodyStart = "<BODY>";

} // namespace

QByteArray printCopy(const QByteArray& page, const QString& footer) {
    const qsizetype start = page.indexOf(kBodyStart);
    if (start < 0)
        return page;
    const QByteArray frame = kPaperStyle.toByteArray() + "<div id=\"kolibri_fuss\">"
                             + footer.toHtmlEscaped().toLatin1()
                             + "</div>\r\n<div id=\"kolibri_blatt\">"
                               "<div class=\"kolibri_kopf\"><div></div></div>"
                               "<div class=\"kolibri_platz\"><div></div></div>\r\n";
    QByteArray copy = page;
    return copy.insert(start + kBodyStart.size(), "\r\n" + frame);
}

QPageLayout printSheet(const QPageSize& size, QPageLayout::Orientation orientation) {
    constexpr double kHalfInch = 36;
    constexpr double kBelowFooter = 18;
    return QPageLayout(size, orientation, {kHalfInch, kHalfInch, kHalfInch, kBelowFooter},
                       QPageLayout::Point);
}

QPageLayout::Orientation layoutOrientation(PaperOrientation orientation) {
    return orientation == PaperOrientation::Across ? QPageLayout::Landscape : QPageLayout::Portrait;
}

QString pageTitle(const QByteArray& page) {
    constexpr QByteArrayView kStart = "<h1>";
    const qsizetype start = page.indexOf(kStart);
    const qsizetype end = page.indexOf("</h1>", start);
    if (start < 0 || end < 0)
        return {};
    const QString markup = fromWindows1252(page.sliced(start + kStart.size(), end - start - kStart.size()));
    return QTextDocumentFragment::fromHtml(markup).toPlainText().simplified();
}

QString suggestedFileName(const QByteArray& page, const QDate& day) {
    static const QRegularExpression unfit(uR"([\\/:*?"<>|\x00-\x1f]+)"_s);
    const QString title = pageTitle(page).replace(unfit, u" "_s).simplified();
    const QString date = day.toString(u"dd.MM.yyyy"_s);
    return (title.isEmpty() ? u"Liste"_s : title.left(100)) + u' ' + date + u".pdf"_s;
}

} // namespace kolibri
