#include "core/next_id.h"
#include "core/row_id.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class RowIdTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void textAndKeyOfARow() {
        QCOMPARE(ItemText(7), u"00007"_s);
        QCOMPARE(ItemKey(7), u"A0007"_s);
        QCOMPARE(ItemText(32767), u"32767"_s);
        QCOMPARE(ItemKey(32767), u"A32767"_s);
        QCOMPARE(RowIdOf(u"00042"_s), qint16(42));
        QCOMPARE(RowIdOf(u"Keine Zeile"_s), qint16(0));
    }

    void aKeyAbove16BitsOverflows() {
        QCOMPARE(RowIdOf(u"32767"_s), qint16(32767));
        try {
            RowIdOf(u"32768"_s);
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.message(), u"Laufzeitfehler '6': Überlauf"_s);
        }
    }

    void theFirstRowOfATableGets0AndTheNextOneMoreThanTheLargest() {
        useEmptyDatabase();
        const auto next = [] {
            const DbSession session(u"Test"_s);
            return NextId(Global().Conn, u"Bausteine"_s);
        };
        QCOMPARE(next(), 0);
        addRow(u"Bausteine"_s, {{u"ID"_s, 7}});
        addRow(u"Bausteine"_s, {{u"ID"_s, 3}});
        QCOMPARE(next(), 8);
    }

    void aRowWithoutAKeyCountsAsNone() {
        useEmptyDatabase();
        addRow(u"Bausteine"_s, {{u"Bausteine"_s, u"ohne Nummer"_s}});
        const DbSession session(u"Test"_s);
        QCOMPARE(NextId(Global().Conn, u"Bausteine"_s), 0);
    }
};

KOLIBRI_TEST_MAIN(RowIdTest)
#include "row_id_test.moc"
