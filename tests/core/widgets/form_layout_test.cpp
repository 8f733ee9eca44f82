#include "core/widgets/application.h"
#include "core/widgets/form_layout.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

class FormLayoutTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aFormBeginsAsWideAsItsContentAsksForAndSoManyLinesHigh() {
        QWidget form;
        auto* column = new QVBoxLayout(&form);
        column->addWidget(new QLabel(u"Eine kurze Zeile"_s));
        setFirstSize(form, 12);
        QCOMPARE(form.width(), form.sizeHint().width());
        QCOMPARE(form.height(), 12 * form.fontMetrics().lineSpacing());
    }

    void aFormIsNeverLargerThanTheScreenWithRoomForItsEdges() {
        QWidget form;
        auto* column = new QVBoxLayout(&form);
        column->addWidget(new QLabel(QString(5000, u'x')));
        setFirstSize(form, 500);
        const QSize screen = form.screen()->availableSize();
        QVERIFY(form.width() < screen.width() && form.height() < screen.height());
    }

    void aFieldAreaAsksForAllItsFieldsAndIsNoStopOfTheKeyboard() {
        auto* fields = new QWidget;
        auto* line = new QHBoxLayout(fields);
        for (int i = 0; i < 12; ++i)
            line->addWidget(new QLineEdit);
        const std::unique_ptr<QScrollArea> area(fieldArea(fields));
        QVERIFY(area->sizeHint().width() > fields->sizeHint().width());
        QCOMPARE(area->focusPolicy(), Qt::NoFocus);
    }

    void aLabelLeadsToItsInputAndALineCanBeHidden() {
        FieldFrame frame(u"ZEIT"_s);
        auto* input = new QLineEdit;
        const QLabel* label = frame.addLine(u"&Beginn"_s, input, u"hh:mm"_s);
        QCOMPARE(label->buddy(), input);
        frame.show();
        QVERIFY(input->isVisible());
        frame.setLineVisible(input, false);
        QVERIFY(!input->isVisible() && !label->isVisible());
    }
};

KOLIBRI_TEST_MAIN(FormLayoutTest)
#include "form_layout_test.moc"
