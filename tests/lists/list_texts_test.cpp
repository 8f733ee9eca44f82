#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/rich_text.h"
#include "core/widgets/application.h"
#include "lists/list_texts.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const ListTextRows kRows{u"Klasse = ? AND Zeit = ?"_s, {u"A"_s, u"13:00 - 13:45"_s}};
const FieldValues kNewRow{{u"Klasse"_s, u"A"_s}, {u"Zeit"_s, u"13:00 - 13:45"_s}};

void save(const ListTexts& texts) {
    const DbSession session(u"Test"_s);
    saveListTexts(kRows, kNewRow, texts);
}

ListTexts read() {
    const DbSession session(u"Test"_s);
    return readListTexts(kRows);
}

} // namespace

class ListTextsTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aPageShowsNoControlWords_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("page");
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("plain") << u"Bitte leise, Türe zu."_s << u"Bitte leise, Türe zu."_s;
        QTest::newRow("plain lines") << u"A\r\nB\nC"_s << u"A<br />B<br />C"_s;
        QTest::newRow("markup of a page is left to the page") << u"<b>A</b> & B"_s << u"<b>A</b> & B"_s;
        QTest::newRow("old box") << u"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\r\n\\viewkind4\\uc1\\pard"
                                    "\\f0\\fs17 T\\'fcr zu!\\par Danke.\r\n\\par }\r\n"_s
                                 << u"Tür zu!<br />Danke."_s;
        QTest::newRow("marks") << u"{\\rtf1 {\\b fett} {\\i schräg} {\\ul unten}{\\b\\i beides}\\line neu}"_s
                               << u"<b>fett</b> <i>schräg</i> <u>unten</u><b><i>beides</i></b><br />neu"_s;
    }
    void aPageShowsNoControlWords() {
        QFETCH(const QString, stored);
        QTEST(pageText(stored), "page");
    }

    void aBoxWithoutTextIsStoredAsNothing() {
        QCOMPARE(storedText(RichText()), QString());
        QVERIFY(isRtf(storedText(RichText(u"Tür"_s))));
        QCOMPARE(pageText(storedText(RichText(u"Tür"_s))), u"Tür"_s);
    }

    void theFirstSaveAddsARowAndTheNextChangesIt() {
        useEmptyDatabase();
        save({u"vorher"_s, QString()});
        QCOMPARE(read(), (ListTexts{u"vorher"_s, QString()}));
        save({u"anders"_s, u"nachher"_s});
        QCOMPARE(read(), (ListTexts{u"anders"_s, u"nachher"_s}));
        QCOMPARE(rowsOf(u"ME_LZ_AG_Notizen"_s).size(), 1);
        save({});
        QCOMPARE(read(), ListTexts{});
        QCOMPARE(rowsOf(u"ME_LZ_AG_Notizen"_s).size(), 1);
    }

    void aListWithoutTextsLeavesNoRow() {
        useEmptyDatabase();
        save({});
        QCOMPARE(rowsOf(u"ME_LZ_AG_Notizen"_s), QStringList());
    }

    void aTextThatSaysTheSameIsNotWrittenAgain() {
        useEmptyDatabase();
        const QString old = u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs17 Tür\\par }"_s;
        save({old, QString()});
        save({storedText(richTextFrom(old)), QString()});
        QCOMPARE(read().vorher, old);
        save({storedText(RichText(u"Türen"_s)), QString()});
        QCOMPARE(pageText(read().vorher), u"Türen"_s);
    }

    void anApostropheIsTakenInANewTextAndRefusedInAChange() {
        useEmptyDatabase();
        save({u"Opa's Liste"_s, QString()});
        QCOMPARE(read().vorher, u"Opa's Liste"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, save({u"Oma's Liste"_s, QString()}));
        QCOMPARE(read().vorher, u"Opa's Liste"_s);
        save({u"Opa's Liste"_s, QString()});
    }
};

KOLIBRI_TEST_MAIN(ListTextsTest)
#include "list_texts_test.moc"
