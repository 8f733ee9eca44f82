#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "lists/frmAnzeige_WEB_Browser.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/paper.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

constexpr double kInch = 72;
constexpr double kHalfInch = kInch / 2;
/// Enough for several sheets.
constexpr int kPupils = 120;
/// What a measure may be off by rounding.
constexpr double kHair = 0.5;
const QString kToday = u"20.11.2026"_s;

/// The page that the window shows, on paper.
QByteArray paperOf(quint8 listenArt, const DialogOptions& options = {}) {
    Liste().Dialog = options;
    prepareList(listenArt);
    auto& window = Form<frmAnzeige_WEB_Browser>();
    window.ShowPage(nullptr);
    return window.Pdf();
}

DialogOptions everything() {
    DialogOptions options;
    options.chkKontakteNeu = options.chkBaustein = options.chkSchwimmer = options.chkKennung = true;
    options.chkKlasse = options.chkGebDatum = options.chkBeiträge = true;
    options.cmbKontakte = {u"Name"_s, u"Telefon"_s, QString()};
    options.optFormat = PaperOrientation::Across;
    return options;
}

/// A page with the style sheet of a real one and this body.
QByteArray paperOfBody(const QByteArray& body) {
    prepareList(kBausteine);
    producePage();
    const QByteArray page = pageBytes();
    QFile file(QFileInfo(pageFile()).path() + u"/probe.html"_s);
    if (!file.open(QIODevice::WriteOnly)
        || file.write(page.left(page.indexOf("<BODY>")) + "<BODY>\r\n" + body + "</BODY>\r\n</HTML>\r\n") < 0)
        qFatal("no page");
    file.close();
    auto& window = Form<frmAnzeige_WEB_Browser>();
    window.ShowFile(file.fileName());
    return window.Pdf();
}

QByteArray table(const QByteArray& tableClass, const QByteArray& heading, const QByteArray& rows) {
    return "<TABLE class=\"" + tableClass + "\">\r\n<THEAD><TR class=\"KopfZeile\"><TD>" + heading
           + "</TD></TR></THEAD>\r\n" + rows + "</TABLE>\r\n";
}

QByteArray row(const QByteArray& text, const QByteArray& rowClass = "Stammdaten1") {
    return "<TR class=\"" + rowClass + "\"><TD>" + text + "</TD></TR>\r\n";
}

/// The sheet (from 1) on which a text stands first; 0 when on none.
int sheetOf(const QStringList& sheets, const QString& text) {
    for (int i = 0; i < sheets.size(); ++i)
        if (sheets[i].contains(text))
            return i + 1;
    return 0;
}

} // namespace

/// Lists on paper, as the printer and the PDF get them.
class PagePdfTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void everySheetHasTheHeadingRowAndTheDateAndNothingElseOfItsOwn() {
        useSampleSchool(kPupils);
        const QStringList sheets = sheetTexts(paperOf(kErweiterteListe, everything()));
        QVERIFY(sheets.size() > 3);
        for (int i = 0; i < sheets.size(); ++i) {
            const QStringList lines = sheets[i].split(u'\n', Qt::SkipEmptyParts);
            QCOMPARE(lines.last().trimmed(), kToday);
            QCOMPARE(sheets[i].count(kToday), 1);
            QCOMPARE(sheets[i].count(u"SCHWIMMER"_s), 1);
            // No header: the first sheet begins with the title, the others with the headings.
            QVERIFY2(lines.first().contains(i == 0 ? u"STAMMDATEN"_s : u"NACHNAME"_s),
                     qPrintable(lines.first()));
        }
    }

    void everyPupilOfTheListStandsOnPaperOnce() {
        useSampleSchool(kPupils);
        const QString text = sheetTexts(paperOf(kNamensliste)).join(QString());
        for (int i = 1; i <= Liste().ZeilenAnzahl; ++i) {
            const QString name = Liste().Daten(2, i);
            QVERIFY2(text.contains(name), qPrintable(name));
        }
        static const QRegularExpression numbered(u"^ *(\\d+) "_s, QRegularExpression::MultilineOption);
        QStringList numbers;
        for (auto found = numbered.globalMatch(text); found.hasNext();)
            numbers << found.next().captured(1);
        QCOMPARE(numbers.size(), Liste().ZeilenAnzahl);
        QCOMPARE(numbers.removeDuplicates(), 0);
    }

    void textKeepsHalfAnInchAndNothingRunsUnderTheDate_data() {
        QTest::addColumn<bool>("across");
        QTest::newRow("upright") << false;
        QTest::newRow("across") << true;
    }
    void textKeepsHalfAnInchAndNothingRunsUnderTheDate() {
        QFETCH(const bool, across);
        useSampleSchool(kPupils);
        const QByteArray pdf = across ? paperOf(kErweiterteListe, everything()) : paperOf(kNamensliste);
        const QSizeF sheet = sheetSize(pdf);
        const QRectF printed =
            QRectF(QPointF(), sheet)
                .adjusted(kHalfInch - kHair, kHalfInch - kHair, kHair - kHalfInch, kHair - kHalfInch);
        const auto words = paperWords(pdf);
        QVERIFY(words.size() > 500);
        for (const auto& word : words) {
            if (word.text == kToday) {
                QVERIFY(word.place.top() > printed.bottom() - 1);
                QVERIFY(word.place.bottom() < sheet.height() - kHalfInch / 2);
                QVERIFY(std::abs(word.place.left() - kHalfInch) < 1);
            } else {
                QVERIFY2(printed.contains(word.place), qPrintable(word.text));
            }
        }
    }

    void theSheetLiesAsTheListDoes() {
        useSampleSchool(kPupils);
        const QSizeF upright = sheetSize(paperOf(kUnterrichtszeiten));
        QCOMPARE(upright.toSize(), QSize(595, 842));
        DialogOptions options;
        options.optFormat = PaperOrientation::Across;
        QCOMPARE(sheetSize(paperOf(kNamensliste, options)).toSize(), QSize(842, 595));
    }

    void aTableIsOnPaperAsWideAsTheProgramComputedIt() {
        useSampleSchool(kPupils);
        const auto words = paperWords(paperOf(kUnterrichtszeiten));
        const auto friday = std::find_if(words.begin(), words.end(),
                                         [](const PaperWord& word) { return word.text == u"FR"_s; });
        QVERIFY(friday != words.end());
        // The heading stands in the middle of the last of six columns.
        const double width = Liste().Seite.TabellenBreite;
        const double column = Liste().SpaltenBreitePt(6);
        QVERIFY(std::abs(friday->place.center().x() - (kHalfInch + width - column / 2)) < 0.05 * width);
    }

    void textIsArialAndStaysText() {
        useSampleSchool(kPupils);
        const QStringList fonts = paperFonts(paperOf(kErweiterteListe, everything()));
        QVERIFY(!fonts.isEmpty());
        for (const auto& font : fonts)
            QVERIFY2(font.startsWith(u"LiberationSans"_s) || font.startsWith(u"Arial"_s), qPrintable(font));
    }

    void umlautsAndNamesFromElsewhereStayWhatTheyAre() {
        useEmptyDatabase();
        addPupil(u"Müßig-Çelik"_s, u"Michał"_s, u"1a"_s);
        const QString text = sheetTexts(paperOf(kNamensliste)).join(QString());
        QVERIFY2(text.contains(u"Müßig-Çelik"_s), qPrintable(text));
        QVERIFY2(text.contains(u"Michał"_s), qPrintable(text));
    }

    void aTableOfTheTagesplanEndsItsSheet() {
        useEmptyDatabase();
        const QStringList sheets = sheetTexts(paperOfBody(
            table("Wochenplan", "KOPF-1", row("eins")) + table("Wochenplan", "KOPF-2", row("zwei"))
            + table("Wochenplan_ohneSU", "KOPF-3", row("drei"))
            + table("Wochenplan_ohneSU", "KOPF-4", row("vier"))));
        QCOMPARE(sheets.size(), 3);
        QCOMPARE(sheetOf(sheets, u"eins"_s), 1);
        QCOMPARE(sheetOf(sheets, u"zwei"_s), 2);
        QCOMPARE(sheetOf(sheets, u"drei"_s), 3);
        QCOMPARE(sheetOf(sheets, u"vier"_s), 3);
    }

    void theClassesThatAskForANewSheetGetOne() {
        useEmptyDatabase();
        const QStringList sheets = sheetTexts(paperOfBody(
            table("Tpt", "KOPF-1", row("eins")) + table("SeitenumbruchAfter", "KOPF-2", row("zwei"))
            + table("Tpt", "KOPF-3", row("drei")) + table("Seitenumbruch", "KOPF-4", row("vier"))));
        QCOMPARE(sheets.size(), 3);
        QCOMPARE(sheetOf(sheets, u"eins"_s), 1);
        QCOMPARE(sheetOf(sheets, u"zwei"_s), 1);
        QCOMPARE(sheetOf(sheets, u"drei"_s), 2);
        QCOMPARE(sheetOf(sheets, u"vier"_s), 3);
        for (const auto& sheet : sheets)
            QCOMPARE(sheet.count(kToday), 1);
    }

    void markupLeftOpenInARemarkKeepsTheDateOnEverySheet() {
        useEmptyDatabase();
        QByteArray rows;
        for (int i = 0; i < 200; ++i)
            rows += row("Zeile " + QByteArray::number(i));
        const QStringList sheets =
            sheetTexts(paperOfBody(table("Tpt", "KOPF", row("<b><div><i>offen <!-- ") + rows + row("-->"))
                                   + table("Tpt", "WEITER", row("</div></div></b>") + rows)));
        QVERIFY(sheets.size() > 1);
        for (const auto& sheet : sheets)
            QCOMPARE(sheet.count(kToday), 1);
    }

    void thePageFileStaysAsItWasWritten() {
        useSampleSchool(kPupils);
        prepareList(kUnterrichtszeiten);
        producePage();
        const QByteArray before = pageBytes();
        const QStringList temporary = QDir::temp().entryList({u"kolibri-druck-*"_s});
        QVERIFY(!paperOf(kUnterrichtszeiten).isEmpty());
        QCOMPARE(pageBytes(), before);
        QCOMPARE(QDir::temp().entryList({u"kolibri-druck-*"_s}), temporary);
        QCOMPARE(QDir(home() + u"/ProgramData"_s).entryList(QDir::Files), QStringList{u"mog.html"_s});
    }
};

KOLIBRI_TEST_MAIN(PagePdfTest)
#include "page_pdf_test.moc"
