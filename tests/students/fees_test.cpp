#include "core/widgets/application.h"
#include "students/fees.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

class FeesTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aFee_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        const auto row = [](const QString& typed, const QString& shown) {
            QTest::newRow(qPrintable(typed)) << typed << shown;
        };
        row(u"0"_s, u"0,00"_s);
        row(u"12"_s, u"12,00"_s);
        row(u"12,5"_s, u"12,50"_s);
        row(u"12,50"_s, u"12,50"_s);
        row(u"1.250,00"_s, u"1250,00"_s);
        row(u"1.250"_s, u"1250,00"_s);
        row(u"1.234.567,8"_s, u"1234567,80"_s);
        row(u",5"_s, u"0,50"_s);
        row(u"5,"_s, u"5,00"_s);
        row(u" 7,1 "_s, u"7,10"_s);
        row(u"+3"_s, u"3,00"_s);
        row(u"-3,456"_s, u"-3,46"_s);
        row(u"007,00"_s, u"7,00"_s);
        // Half cents go away from zero, also those that have no exact binary fraction.
        row(u"12,345"_s, u"12,35"_s);
        row(u"-12,345"_s, u"-12,35"_s);
        row(u"1,005"_s, u"1,01"_s);
        row(u"0,0049"_s, u"0,00"_s);
        row(u"-0,001"_s, u"0,00"_s);
        row(u"0,995"_s, u"1,00"_s);
        row(u"922337203685477"_s, u"922337203685477,00"_s);
    }
    void aFee() {
        QFETCH(const QString, typed);
        QFETCH(const QString, shown);
        const auto cents = BeitragInCent(typed);
        QVERIFY(cents);
        QCOMPARE(BeitragText(*cents), shown);
        QCOMPARE(BeitragInCent(shown), cents);
    }

    void noFee_data() {
        QTest::addColumn<QString>("typed");
        for (const auto& typed : {u"abc"_s, u"1e9"_s, u"12.50"_s, u"1.25,00"_s, u"12,5,0"_s, u"1,250.00"_s,
                                  u"-"_s, u","_s, u" "_s, u"5 €"_s, u"1 000"_s, u"&H10"_s, u"12;5"_s,
                                  u"922337203685478"_s, u"99999999999999999999999"_s})
            QTest::newRow(qPrintable(typed)) << typed;
    }
    void noFee() {
        QFETCH(const QString, typed);
        QVERIFY(!BeitragInCent(typed));
    }

    void leavingABoxRewritesTheFeesAndShowsTheSum() {
        const auto result = BeitragSummeBilden(
            {u"12,5"_s, QString(), u"1.000"_s, u"0,005"_s, QString(), QString(), u"-2"_s, u"alt"_s});
        QCOMPARE(result.texte, (BeitragTexte{u"12,50"_s, QString(), u"1000,00"_s, u"0,01"_s, QString(),
                                             QString(), u"-2,00"_s, u"1010,51"_s}));
        QVERIFY(result.ungueltig.empty());
    }

    void theSumIsTheSumOfWhatIsShown() {
        const BeitragTexte typed{u"0,005"_s, u"0,005"_s};
        const auto first = BeitragSummeBilden(typed);
        QCOMPARE(first.texte[kBeitragSumme], u"0,02"_s);
        QCOMPARE(BeitragSummeBilden(first.texte).texte, first.texte);
    }

    void aTextThatIsNoFeeStaysAndTheWalkGoesOn() {
        const auto result = BeitragSummeBilden({u"abc"_s, u"1"_s, u"12.50"_s, u"2"_s});
        QCOMPARE(result.ungueltig, (std::vector<int>{0, 2}));
        QCOMPARE(result.texte[0], u"abc"_s);
        QCOMPARE(result.texte[1], u"1,00"_s);
        QCOMPARE(result.texte[2], u"12.50"_s);
        QCOMPARE(result.texte[kBeitragSumme], u"3,00"_s);
    }

    void emptyBoxesGiveASumOfZero() { QCOMPARE(BeitragSummeBilden({}).texte[kBeitragSumme], u"0,00"_s); }

    void storedFees() {
        QCOMPARE(GespeicherterBeitrag(QVariant()), QString());
        QCOMPARE(GespeicherterBeitrag(12.5), u"12,50"_s);
        QCOMPARE(GespeicherterBeitrag(999.99), u"999,99"_s);
        QCOMPARE(GespeicherterBeitrag(0.0), u"0,00"_s);
        QCOMPARE(GespeicherterBeitrag(1.005), u"1,01"_s);
        QCOMPARE(GespeicherterBeitrag(-0.4), u"-0,40"_s);
    }
};

KOLIBRI_TEST_MAIN(FeesTest)
#include "fees_test.moc"
