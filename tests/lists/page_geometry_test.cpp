#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/page_geometry.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

class PageGeometryTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aHalfGoesToTheEvenNeighbour_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("expected");
        QTest::newRow("half above even") << 2.5 << 2;
        QTest::newRow("half above odd") << 3.5 << 4;
        QTest::newRow("half above zero") << 0.5 << 0;
        QTest::newRow("half below zero") << -0.5 << 0;
        QTest::newRow("negative half") << -1.5 << -2;
        QTest::newRow("just below a half") << 2.4999 << 2;
        QTest::newRow("just above a half") << 2.5001 << 3;
        QTest::newRow("whole") << 7.0 << 7;
        QTest::newRow("largest") << 32767.4 << 32767;
    }
    void aHalfGoesToTheEvenNeighbour() {
        QFETCH(const double, value);
        QTEST(wholeNumber(value), "expected");
    }

    void aNumberBeyondSixteenBitsIsAnOverflow() {
        for (const double value : {32768.0, -32769.0, 1e30}) {
            try {
                wholeNumber(value);
                QFAIL("no error");
            } catch (const RuntimeError& error) {
                QCOMPARE(error.message(), u"Laufzeitfehler '6': Überlauf"_s);
            }
        }
    }

    void withoutAPrinterTheSheetIsA4() {
        QCOMPARE(computeTabellenBreite(PaperOrientation::Upright), 514);
        QCOMPARE(computeTabellenBreite(PaperOrientation::Across), 736);
    }

    void theWidthIsNineTenthsOfWhatThePrinterReaches() {
        doorsOfTest.setPaper({612, 20, 560});
        QCOMPARE(computeTabellenBreite(PaperOrientation::Upright), 504);
        // 0.9 times 565 is 508.5, which goes to the even neighbour.
        doorsOfTest.setPaper({595, 15, 565});
        QCOMPARE(computeTabellenBreite(PaperOrientation::Upright), 508);
        doorsOfTest.setPaper({595, 12.5, 570.25});
        QCOMPARE(computeTabellenBreite(PaperOrientation::Upright), 513);
    }

    void aListWithNeitherFormatKeepsThePrintersOrientation() {
        computeTabellenBreite(PaperOrientation::Across);
        QCOMPARE(computeTabellenBreite(std::nullopt), 736);
        QCOMPARE(doorsOfTest.orientations(), std::vector{PaperOrientation::Across});
    }
};

KOLIBRI_TEST_MAIN(PageGeometryTest)
#include "page_geometry_test.moc"
