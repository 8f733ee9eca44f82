#include "lists/print_copy.h"

#include <QDate>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

QByteArray pageWithTitle(const QByteArray& title) {
    return "<HEAD>\r\n<style>BODY {align: center}</style>\r\n</HEAD>\r\n<BODY>\r\n<h1>" + title
           + "</h1><BR>\r\n</BODY>\r\n</HTML>\r\n";
}

} // namespace

class PrintCopyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theCopyAddsTheFooterBehindTheBeginningOfTheBodyAndChangesNothingElse() {
        const QByteArray page = pageWithTitle("LISTE M\xDCLLER");
        QByteArray copy = printCopy(page, u"20.11.2026"_s);
        const qsizetype start = page.indexOf("<BODY>") + 6;
        QVERIFY(copy.startsWith(page.left(start)));
        QVERIFY(copy.endsWith(page.mid(start)));
        QCOMPARE(copy.mid(start, copy.size() - page.size()).count("20.11.2026"), 1);
    }

    void whatIsNoPageStaysAsItIs() { QCOMPARE(printCopy("kein Text", u"20.11.2026"_s), "kein Text"); }

    void theSheetHasHalfAnInchAndTheFooterStandsInTheLowerMargin() {
        const QPageLayout sheet = printSheet(QPageSize(QPageSize::A4), QPageLayout::Landscape);
        QCOMPARE(sheet.units(), QPageLayout::Point);
        QCOMPARE(sheet.margins(), QMarginsF(36, 36, 36, 18));
        QCOMPARE(sheet.orientation(), QPageLayout::Landscape);
    }

    void theTitleIsTheHeadingAsText_data() {
        QTest::addColumn<QByteArray>("heading");
        QTest::addColumn<QString>("title");
        QTest::newRow("plain") << QByteArray("STAMMDATEN") << u"STAMMDATEN"_s;
        QTest::newRow("umlaut") << QByteArray("SCH\xDCLER") << u"SCHÜLER"_s;
        QTest::newRow("reference") << QByteArray("MICHA&#321;") << u"MICHAŁ"_s;
        QTest::newRow("markup") << QByteArray("A <i>B</i><br>C") << u"A B C"_s;
        QTest::newRow("empty") << QByteArray() << QString();
    }
    void theTitleIsTheHeadingAsText() {
        QFETCH(const QByteArray, heading);
        QFETCH(const QString, title);
        QCOMPARE(pageTitle(pageWithTitle(heading)), title);
    }

    void aPageWithoutAHeadingHasNoTitle() { QCOMPARE(pageTitle("<BODY></BODY>"), QString()); }

    void theSuggestedNameHoldsNothingThatAFileNameMayNot() {
        const QDate day(2026, 1, 5);
        QCOMPARE(suggestedFileName(pageWithTitle("MENSA: MO/DI *"), day), u"MENSA MO DI 05.01.2026.pdf"_s);
        QCOMPARE(suggestedFileName("", day), u"Liste 05.01.2026.pdf"_s);
        QVERIFY(suggestedFileName(pageWithTitle(QByteArray(400, 'x')), day).size() < 128);
    }
};

QTEST_MAIN(PrintCopyTest)
#include "print_copy_test.moc"
