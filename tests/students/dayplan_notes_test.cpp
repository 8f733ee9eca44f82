#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "students/dayplan_notes.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

/// The notes of the Tagesplan in the store.
class DayplanNotesTest : public kolibri::test::TestBase {
    Q_OBJECT

    static QStringList rows() { return test::tableRows(Global().Conn, u"WP_Notiz"_s); }

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        Global().AktuelleSchuelerID = 5;
        OpenDB();
    }
    void cleanup() {
        CloseDB();
        TestBase::cleanup();
    }

    void theKeysBeginWithOne() {
        QVERIFY(NotizEinfuegen({{u"08:00 - 08:45"_s, u"MO"_s}, u"a"_s}));
        QVERIFY(NotizEinfuegen({{u"08:00 - 08:45"_s, u"FR"_s}, u"b"_s}));
        QCOMPARE(rows(), (QStringList{u"ID=1; SCH_ID=5; UE=08:00 - 08:45; Tag=MO; Tag_Zahl=0; Notiz=a"_s,
                                      u"ID=2; SCH_ID=5; UE=08:00 - 08:45; Tag=FR; Tag_Zahl=4; Notiz=b"_s}));
    }

    void aDayThatIsNoneCountsAsMonday() {
        QVERIFY(NotizEinfuegen({{u"08:00 - 08:45"_s, u"SA"_s}, u"a"_s}));
        QCOMPARE(rows(), QStringList{u"ID=1; SCH_ID=5; UE=08:00 - 08:45; Tag=SA; Tag_Zahl=0; Notiz=a"_s});
    }

    void aPlaceHoldsOneNoteOfEachPupil() {
        const TagesplanNotiz note{{u"08:00 - 08:45"_s, u"MO"_s}, u"a"_s};
        QVERIFY(NotizEinfuegen(note));
        QVERIFY(!NotizEinfuegen(note));
        QCOMPARE(rows().size(), 1);
        Global().AktuelleSchuelerID = 6;
        QVERIFY(NotizEinfuegen(note));
        QCOMPARE(rows().size(), 2);
    }

    void readingFindsThePlaceOrNothing() {
        QVERIFY(!ErsteTagesplanNotizLesen());
        const TagesplanNotiz first{{u"08:50 - 09:35"_s, u"DI"_s}, u"erste"_s};
        const TagesplanNotiz second{{u"08:00 - 08:45"_s, u"MO"_s}, u"zweite"_s};
        QVERIFY(NotizEinfuegen(first) && NotizEinfuegen(second));
        QCOMPARE(*ErsteTagesplanNotizLesen(), first);
        QCOMPARE(TagesplanNotizLesen(second.ort), u"zweite"_s);
        QCOMPARE(TagesplanNotizLesen({u"08:00 - 08:45"_s, u"DI"_s}), QString());
    }

    void correctingAndDeletingSayWhetherThereWasANote() {
        const TagesplanOrt ort{u"08:00 - 08:45"_s, u"MO"_s};
        QVERIFY(!NotizKorrigieren({ort, u"x"_s}));
        NotizLoeschen(ort);
        QVERIFY(NotizEinfuegen({ort, u"a"_s}));
        QVERIFY(NotizKorrigieren({ort, u"x"_s}));
        QCOMPARE(TagesplanNotizLesen(ort), u"x"_s);
        NotizLoeschen(ort);
        QCOMPARE(rows(), QStringList());
    }
};

QTEST_GUILESS_MAIN(DayplanNotesTest)
#include "dayplan_notes_test.moc"
