#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

class mdlAllgemeinTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void openingTwiceGivesOneOpenConnection() {
        useEmptyDatabase();
        OpenDB();
        OpenDB();
        QVERIFY(Global().Conn.IsOpen());
        CloseDB();
        QVERIFY(!Global().Conn.IsOpen());
    }

    void closingAClosedConnectionDoesNothing() {
        CloseDB();
        CloseDB();
        QVERIFY(doorsOfTest.boxes().empty());
    }
};

KOLIBRI_TEST_MAIN(mdlAllgemeinTest)
#include "mdlAllgemein_test.moc"
