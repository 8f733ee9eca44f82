#include "core/rich_text.h"
#include "core/widgets/application.h"
#include "lists/list_texts.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class PageTextTest : public TestBase {
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

    void whatABoxStoresComesOutOnThePage() {
        QCOMPARE(pageText(storedText(RichText(u"Tür zu!\nDanke."_s))), u"Tür zu!<br />Danke."_s);
    }
};

KOLIBRI_TEST_MAIN(PageTextTest)
#include "list_texts_test.moc"
