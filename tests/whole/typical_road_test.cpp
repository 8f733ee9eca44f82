#include "core/widgets/application.h"
#include "support/program.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

/// A day in the office, on the built program from outside.
class TypicalRoadTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void anEmptyOfferingIsRefusedAndTheProgramEndsWell() {
        useSampleSchool(40);
        Program program(home());
        program.waitForWindow(u"frmStart"_s);
        program.trigger(u"mnuMensaNeu"_s);
        program.waitForWindow(u"frmME_LZ_AG"_s);
        program.click(u"cmdOK"_s);
        program.waitForBox(u"Bitte die gekennzeichneten"_s);
        program.answer(u"OK"_s);
        program.click(u"cmdBeenden"_s);
        program.waitForWindow(u"frmStart"_s);
        program.trigger(u"mnuBeenden"_s);
        QVERIFY(program.waitForEnd());
    }
};

KOLIBRI_TEST_MAIN(TypicalRoadTest)
#include "typical_road_test.moc"
