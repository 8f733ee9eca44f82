#include "core/mdlAllgemein.h"
#include "core/rich_text.h"
#include "core/widgets/application.h"
#include "lists/dayplan/class_text.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

void save(const QString& klasse, const QString& text) {
    const DbSession session(u"Test"_s);
    Text_WP_Speichern(klasse, text);
}

QString read(const QString& klasse) {
    const DbSession session(u"Test"_s);
    return readClassText(klasse);
}

} // namespace

class ClassTextTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theTextBeginsBehindTheLetterSize_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("page");
        const QString head = u"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\r\n\\viewkind4\\uc1\\pard\\f0"_s;
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("old box") << head + u"\\fs17 Bitte Sportzeug!\r\n\\par }\r\n"_s
                                 << u"Bitte Sportzeug!"_s;
        QTest::newRow("umlauts and lines") << head + u"\\fs20 T\\'fcr zu!\r\n\\par B\\ücher mit\r\n\\par }"_s
                                           << u"Tür zu!<br />Bücher mit"_s;
        QTest::newRow("six characters are counted from the backslash") << u"abc\\fs17 Text"_s << u"Text"_s;
        QTest::newRow("a short size takes a letter with it") << u"{\\rtf1\\fs8 Text}"_s << u"ext"_s;
        QTest::newRow("a long size leaves its blank") << u"{\\rtf1\\fs100 Text}"_s << u" Text"_s;
        QTest::newRow("text in front is left out") << u"{\\rtf1 vorn \\fs17 hinten}"_s << u"hinten"_s;
        QTest::newRow("only the first size counts") << u"{\\rtf1\\fs17 eins \\fs24 zwei}"_s << u"eins zwei"_s;
        QTest::newRow("cut off behind the size") << u"{\\rtf1\\fs17"_s << QString();
        QTest::newRow("no size, plain")
            << u"Hausschuhe {nicht} vergessen"_s << u"Hausschuhe {nicht} vergessen"_s;
        QTest::newRow("no size, markup") << u"{\\rtf1 Haus\\b schuhe}"_s << u"Haus<b>schuhe</b>"_s;
    }
    void theTextBeginsBehindTheLetterSize() {
        QFETCH(const QString, stored);
        QTEST(classTextOnPage(stored), "page");
    }

    void whatTheBoxHoldsComesBackOnThePage_data() {
        QTest::addColumn<QString>("text");
        for (const auto& text : {u"Hallo"_s, u" Einrückung"_s, u"9 Uhr"_s, u"-5 Grad"_s, u"Übung"_s,
                                 u"{\\fs17 so}"_s, u"\\fs"_s, u"a\nb"_s})
            QTest::newRow(qPrintable(text)) << text;
    }
    void whatTheBoxHoldsComesBackOnThePage() {
        QFETCH(const QString, text);
        const RichText rich(text);
        const QString stored = storedClassText(rich);
        QVERIFY(stored.startsWith(u"{\\rtf1\\fs17 "_s));
        QCOMPARE(richTextFrom(stored), rich);
        QCOMPARE(classTextOnPage(stored), QString(text).replace(u'\n', u"<br />"_s));
    }

    void theMarksOfTheBoxComeBackToo() {
        const RichText rich = readRtf(u"{\\rtf1\\b fett\\b0  und {\\i schräg}}");
        QCOMPARE(classTextOnPage(storedClassText(rich)), u"<b>fett</b> und <i>schräg</i>"_s);
        QCOMPARE(storedClassText(RichText()), QString());
    }

    void aNewTextGetsTheNextNumber() {
        useEmptyDatabase();
        save(u"1A"_s, u"eins"_s);
        save(u"2A"_s, u"zwei"_s);
        save(u"1a"_s, u"anders"_s);
        QCOMPARE(rowsOf(u"WochenplanTexte"_s), QStringList({u"ID=1; Klasse=1A; TextVorher=anders"_s,
                                                            u"ID=2; Klasse=2A; TextVorher=zwei"_s}));
        QCOMPARE(read(u"2a"_s), u"zwei"_s);
        QCOMPARE(read(u"3A"_s), QString());
    }

    void anEmptyTextTakesTheRowAway() {
        useEmptyDatabase();
        save(u"1A"_s, u"eins"_s);
        save(u"2A"_s, u"zwei"_s);
        save(u"1A"_s, QString());
        QCOMPARE(rowsOf(u"WochenplanTexte"_s).size(), 1);
        save(u"3A"_s, u"drei"_s);
        QVERIFY(rowsOf(u"WochenplanTexte"_s).last().startsWith(u"ID=3;"_s));
    }

    void withoutAClassNothingHappens() {
        useEmptyDatabase();
        save(QString(), u"eins"_s);
        addRow(u"WochenplanTexte"_s, {{u"ID"_s, 7}, {u"Klasse"_s, u""_s}, {u"TextVorher"_s, u"x"_s}});
        save(QString(), QString());
        QCOMPARE(rowsOf(u"WochenplanTexte"_s).size(), 1);
    }

    void anApostropheIsTakenInANewTextAndRefusedInAChange() {
        useEmptyDatabase();
        save(u"1A"_s, u"Opa's Tag"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, save(u"1A"_s, u"Oma's Tag"_s));
        QCOMPARE(read(u"1A"_s), u"Opa's Tag"_s);
    }
};

KOLIBRI_TEST_MAIN(ClassTextTest)
#include "class_text_test.moc"
