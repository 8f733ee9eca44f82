#include "core/sort_text.h"
#include "core/store/german_order.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace kolibri;

Q_DECLARE_METATYPE(kolibri::SortKind)

class SortTextTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    /// Each row tells cells in the order in which they must come out.
    void order_data() {
        QTest::addColumn<SortKind>("kind");
        QTest::addColumn<QStringList>("inOrder");
        QTest::newRow("text") << SortKind::Text
                              << QStringList{u""_s, u"10"_s, u"9"_s, u"Ärger"_s, u"arzt"_s, u"Zöbl"_s};
        QTest::newRow("numbers by value")
            << SortKind::Number << QStringList{u"-10"_s, u"-2,5"_s, u"0"_s,     u"0,5"_s,
                                               u"9"_s,   u"10"_s,   u"80331"_s, u"1.250.000"_s};
        QTest::newRow("leading zeros do not count")
            << SortKind::Number << QStringList{u"00002"_s, u"00010"_s, u"11"_s};
        QTest::newRow("cells that are no number stay and sort as text")
            << SortKind::Number << QStringList{u""_s, u"7"_s, u"12"_s, u"D-80331"_s, u"ohne"_s};
        QTest::newRow("times under the number sort stay texts")
            << SortKind::Number << QStringList{u"08:00"_s, u"08:45"_s, u"13:05"_s};
        QTest::newRow("dates") << SortKind::Date
                               << QStringList{u"31.12.2014"_s, u"1.2.2015"_s, u"02.02.2015"_s,
                                              u"01.03.2015"_s};
        QTest::newRow("cells that are no date stay")
            << SortKind::Date << QStringList{u""_s, u"01.01.2015"_s, u"31.01.2015"_s, u"unbekannt"_s};
        QTest::newRow("times") << SortKind::Time
                               << QStringList{u""_s, u"7:50"_s, u"08:00"_s, u"12:45"_s, u"24:00"_s};
        QTest::newRow("times with seconds")
            << SortKind::TimeSeconds << QStringList{u"8:00"_s, u"08:00:01"_s, u"8:00:30"_s, u"10:00:00"_s};
        QTest::newRow("date and time") << SortKind::DateTime
                                       << QStringList{u"31.12.2014 23:59:59"_s, u"01.01.2015"_s,
                                                      u"1.1.2015 7:00"_s, u"01.01.2015 07:00:01"_s};
    }

    void order() {
        QFETCH(SortKind, kind);
        QFETCH(QStringList, inOrder);
        QStringList mixed = inOrder;
        std::reverse(mixed.begin(), mixed.end());
        std::stable_sort(mixed.begin(), mixed.end(), [&](const QString& a, const QString& b) {
            return germanOrder(SortText(a, kind).toUtf8(), SortText(b, kind).toUtf8()) < 0;
        });
        QCOMPARE(mixed, inOrder);
    }
};

KOLIBRI_TEST_MAIN(SortTextTest)
#include "sort_text_test.moc"
