#include "core/widgets/application.h"
#include "core/widgets/rich_text_box.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QLabel>
#include <QMimeData>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// A box whose paste can be driven without the clipboard of the machine.
class PastingBox : public RichTextBox {
public:
    PastingBox() : RichTextBox(u"rtfText"_s) {}
    void pasteFrom(const QMimeData& source) { insertFromMimeData(&source); }
};

QToolButton& markButton(const QWidget& window, const QString& words) {
    for (auto* button : window.findChildren<QToolButton*>())
        if (button->accessibleName() == words)
            return *button;
    qFatal("no button %s", qPrintable(words));
}

} // namespace

class RichTextBoxTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theTextThatIsShownComesBack() {
        RichTextBox box(u"rtfText"_s);
        RichText text(u"Bitte "_s);
        text.append(u"leise"_s, {.bold = true});
        text.append(u"\nDanke"_s, {.italic = true, .underline = true});
        box.setRichText(text);
        QCOMPARE(box.richText(), text);
        box.setRichText({});
        QVERIFY(box.richText().isEmpty());
    }

    void onlyTheUserTouchesTheText() {
        RichTextBox box(u"rtfText"_s);
        QVERIFY(shown(box));
        box.setRichText(RichText(u"alt"_s));
        QVERIFY(!box.isTouched());
        keys(box, u"neu "_s);
        QVERIFY(box.isTouched());
        box.setRichText(RichText(u"alt"_s));
        QVERIFY(!box.isTouched());
    }

    void theKeysAndButtonsMarkWhatIsTyped() {
        RichTextBox* box = new RichTextBox(u"rtfText"_s);
        const std::unique_ptr<QWidget> window(captioned(u"&Text:"_s, *box));
        QVERIFY(shown(*window));
        box->setFocus();
        QTest::keyClick(box, Qt::Key_B, Qt::ControlModifier);
        keys(*box, u"fett"_s);
        QVERIFY(markButton(*window, u"Fett"_s).isChecked());
        QTest::keyClick(box, Qt::Key_B, Qt::ControlModifier);
        QTest::mouseClick(&markButton(*window, u"Kursiv"_s), Qt::LeftButton);
        keys(*box, u"kursiv"_s);
        QTest::mouseClick(&markButton(*window, u"Kursiv"_s), Qt::LeftButton);
        QTest::mouseClick(&markButton(*window, u"Unterstrichen"_s), Qt::LeftButton);
        keys(*box, u"Strich"_s);
        RichText expected;
        expected.append(u"fett"_s, {.bold = true});
        expected.append(u"kursiv"_s, {.italic = true});
        expected.append(u"Strich"_s, {.underline = true});
        QCOMPARE(box->richText(), expected);
        QCOMPARE(window->findChild<QLabel*>()->buddy(), box);
    }

    void ofPastedTextOnlyTheMarksAreTaken() {
        PastingBox box;
        QMimeData foreign;
        foreign.setHtml(u"<p style='color:red;font-size:40pt'>groß <b>fett</b></p><img src='x.png'>"_s);
        box.pasteFrom(foreign);
        const auto runs = box.richText().runs();
        QCOMPARE(runs.at(0).text, u"groß "_s);
        QVERIFY(runs.at(1).style.bold);
        QVERIFY(!box.toHtml().contains(u"40pt"_s));
        QVERIFY(!box.toHtml().contains(u"x.png"_s));
        QMimeData plain;
        plain.setText(u"schlicht"_s);
        box.selectAll();
        box.pasteFrom(plain);
        QCOMPARE(box.toPlainText(), u"schlicht"_s);
    }

    void tabLeavesTheBox() { QVERIFY(RichTextBox(u"rtfText"_s).tabChangesFocus()); }
};

KOLIBRI_TEST_MAIN(RichTextBoxTest)
#include "rich_text_box_test.moc"
