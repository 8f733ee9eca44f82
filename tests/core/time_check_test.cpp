#include "core/time_check.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

class TimeCheckTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void check_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        const auto row = [](const QString& text, bool valid) {
            QTest::newRow(qPrintable(text.isEmpty() ? u"empty"_s : text)) << text << valid;
        };
        for (const auto& text : {u"00:00"_s, u"07:30"_s, u"08:05"_s, u"23:59"_s, u"24:00"_s})
            row(text, true);
        for (const auto& text :
             {QString(), u"7:30"_s, u"07:3"_s, u"24:01"_s, u"24:30"_s, u"25:00"_s, u"23:60"_s, u"07.30"_s,
              u"0730"_s, u"007:3"_s, u"07:30 "_s, u" 7:30"_s, u"07:30:00"_s, u"99:99"_s})
            row(text, false);
        for (const auto& text : {u"ab:cd"_s, u"0a:30"_s, u"07:3b"_s, u"+7:30"_s, u"-1:30"_s, u"07:+3"_s,
                                 u"07: 3"_s, u"1e:10"_s, u"٠٧:٣٠"_s, u"07:30\n"_s, u"7:30\n"_s})
            row(text, false);
    }

    void check() {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QCOMPARE(ZeitGueltig(text), valid);
    }

    void minutesOfATextThatCanBeReadAsTime() {
        QCOMPARE(ZeitAlsMinuten(u"08:05"_s), std::optional(485));
        QCOMPARE(ZeitAlsMinuten(u"8:05"_s), std::optional(485));
        QCOMPARE(ZeitAlsMinuten(u"00:00"_s), std::optional(0));
        QCOMPARE(ZeitAlsMinuten(u"24:00"_s), std::optional(1440));
    }

    void noMinutesOfAnyOtherText() {
        for (const auto& text : {QString(), u"acht"_s, u"8"_s, u"8:5"_s, u"24:01"_s, u"08:60"_s, u"108:05"_s})
            QVERIFY2(!ZeitAlsMinuten(text), qPrintable(text));
    }
};

KOLIBRI_TEST_MAIN(TimeCheckTest)
#include "time_check_test.moc"
