#include "core/list_texts.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/rich_text.h"
#include "core/widgets/application.h"
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
    void aBoxWithoutTextIsStoredAsNothing() {
        QCOMPARE(storedText(RichText()), QString());
        QVERIFY(isRtf(storedText(RichText(u"Tür"_s))));
        QCOMPARE(richTextFrom(storedText(RichText(u"Tür"_s))), RichText(u"Tür"_s));
    }

    void aTypedEscapeOfAGermanLetterBecomesTheLetter() {
        QCOMPARE(richTextFrom(storedText(RichText(u"T'fcr, Stra'dfe, Oma's"_s))).plain(),
                 u"Tür, Straße, Oma's"_s);
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
        QCOMPARE(richTextFrom(read().vorher).plain(), u"Türen"_s);
    }

    void anApostropheIsTakenInANewTextAndRefusedInAChange() {
        useEmptyDatabase();
        save({u"Opa's Liste"_s, QString()});
        QCOMPARE(read().vorher, u"Opa's Liste"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, save({u"Oma's Liste"_s, QString()}));
        QCOMPARE(read().vorher, u"Opa's Liste"_s);
        save({u"Opa's Liste"_s, QString()});
    }

    void writingAlwaysLeavesTheRowAsGiven() {
        useEmptyDatabase();
        const auto write = [](const ListTexts& texts) {
            const DbSession session(u"Test"_s);
            writeListTexts(kRows, kNewRow, texts);
        };
        write({});
        QCOMPARE(rowsOf(u"ME_LZ_AG_Notizen"_s).size(), 1);
        const QString old = u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs17 leise\\par }"_s;
        write({old, QString()});
        write({storedText(richTextFrom(old)), QString()});
        QCOMPARE(read(), (ListTexts{u"{\\rtf1 leise}"_s, QString()}));
        QCOMPARE(rowsOf(u"ME_LZ_AG_Notizen"_s).size(), 1);
    }
};

KOLIBRI_TEST_MAIN(ListTextsTest)
#include "list_texts_test.moc"
