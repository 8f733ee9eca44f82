#include "core/widgets/application.h"
#include "lists/money.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

class MoneyTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void amountsAreGermanNumbers_data() {
        QTest::addColumn<double>("amount");
        QTest::addColumn<QString>("plain");
        QTest::addColumn<QString>("sum");
        QTest::newRow("zero") << 0.0 << u"0,00"_s << u"0,00"_s;
        QTest::newRow("cents") << 0.05 << u"0,05"_s << u"0,05"_s;
        QTest::newRow("usual") << 12.5 << u"12,50"_s << u"12,50"_s;
        QTest::newRow("thousand") << 1234.5 << u"1234,50"_s << u"1.234,50"_s;
        QTest::newRow("hundred thousand") << 123456.78 << u"123456,78"_s << u"123.456,78"_s;
        QTest::newRow("million") << 1234567.0 << u"1234567,00"_s << u"1.234.567,00"_s;
        QTest::newRow("half a cent") << 0.125 << u"0,13"_s << u"0,13"_s;
        QTest::newRow("less than half") << 0.1249 << u"0,12"_s << u"0,12"_s;
        QTest::newRow("negative") << -1234.565 << u"-1234,57"_s << u"-1.234,57"_s;
        QTest::newRow("negative hundreds") << -123.0 << u"-123,00"_s << u"-123,00"_s;
        QTest::newRow("rounds to nothing") << -0.001 << u"0,00"_s << u"0,00"_s;
    }
    void amountsAreGermanNumbers() {
        QFETCH(const double, amount);
        QTEST(moneyText(toTenThousandths(amount)), "plain");
        QTEST(moneySumText(toTenThousandths(amount)), "sum");
    }
};

KOLIBRI_TEST_MAIN(MoneyTest)
#include "money_test.moc"
