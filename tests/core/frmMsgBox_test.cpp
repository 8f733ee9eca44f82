#include "core/frmMsgBox.h"
#include "core/widgets/application.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class FrmMsgBoxTest : public TestBase {
    Q_OBJECT

private:
    static FormWindow& box(const QString& text) {
        auto& form = Form<frmMsgBox>();
        form.zeigen(u"Unterrichtszeiten"_s, text);
        if (!QTest::qWaitForWindowActive(&form))
            qFatal("the box is not active");
        return form;
    }

    /// So many lines of text, parted as the texts of the program part them.
    static QString lines(int count) { return QStringList(count, u"Eine Zeile"_s).join(u"\r\n"_s); }

private Q_SLOTS:
    void showsTitleAndTextAndGoesWithEnter() {
        auto& form = box(u"Eine Erläuterung"_s);
        QCOMPARE(form.windowTitle(), u"Unterrichtszeiten"_s);
        QCOMPARE(control<QLabel>(form, u"lblText"_s).text(), u"Eine Erläuterung"_s);
        QTest::keyClick(&form, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    }

    void aTextThatFillsMostOfTheScreenIsNotCutOff() {
        const int room = roomOnScreen(Form<frmMsgBox>()).height();
        const int line = Form<frmMsgBox>().fontMetrics().lineSpacing();
        const auto& label = control<QLabel>(box(lines(room * 4 / 5 / line)), u"lblText"_s);
        QVERIFY(label.height() >= label.heightForWidth(label.width()));
    }

    void aShortTextAfterALongOneGetsASmallBoxAgain() {
        const int high = box(lines(20)).height();
        Form<frmMsgBox>().hide();
        QVERIFY(box(lines(2)).height() < high);
    }
};

KOLIBRI_TEST_MAIN(FrmMsgBoxTest)
#include "frmMsgBox_test.moc"
