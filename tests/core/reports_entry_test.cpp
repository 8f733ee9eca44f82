#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/reports_entry.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kQuestion =
    u"Soll die Ausgabe mit eventuell vorhandenen Schulanfängern\n(Klasse = 0) erfolgen?"_s;
const QString kFourClasses = u"Es werden nur die Klassen 'A bis D' dargestellt!"_s;
const QString kEnterMensa =
    u"Geben Sie zuerst unter BEARBEITEN -> MENSA -> BELEGUNGSPLAN die Anzahl der maximal möglichen Plätze ein!"_s;
const QString kEnterLernzeit =
    u"Geben Sie zuerst unter BEARBEITEN -> LERNZEIT -> BELEGUNGSPLAN die Anzahl der maximal möglichen Plätze ein!"_s;

} // namespace

class ReportsEntryTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    void addPlaces(const QString& kind) {
        const DbSession session(u"Test"_s);
        Global().Conn.AddNew(u"Parameter"_s).Set(u"Feld1"_s, kind).Update();
    }

private Q_SLOTS:
    void theQuestionHasNoAsItsDefaultAndOneTitleForAllReports() {
        doorsOfTest.expect(kQuestion, kAnswerYes);
        askForSchoolStarters();
        QCOMPARE(doorsOfTest.boxes().front().code, 292);
        QCOMPARE(doorsOfTest.boxes().front().title, u"Bericht Mensa"_s);
        QCOMPARE(Global().MsgBoxKnoepfe, u"292"_s);
    }

    void theAnswerIsKeptUntilTheNextQuestion() {
        doorsOfTest.expect(kQuestion, kAnswerYes);
        askForSchoolStarters();
        QVERIFY(Global().MitSchulanfaengern);
        QCOMPARE(Global().MsgBoxAntwort, 6);
        doorsOfTest.expect(kQuestion, kAnswerNo);
        askForSchoolStarters();
        QVERIFY(!Global().MitSchulanfaengern);
        QCOMPARE(Global().MsgBoxAntwort, 7);
    }

    void withoutPlacesTheOfficeIsToldWhereToEnterThem() {
        useEmptyDatabase();
        doorsOfTest.expect(kFourClasses);
        doorsOfTest.expect(kEnterMensa);
        QVERIFY(!occupancyCanBeShown(u"ME"_s));
        doorsOfTest.expect(kFourClasses);
        doorsOfTest.expect(kEnterLernzeit);
        QVERIFY(!occupancyCanBeShown(u"LZ"_s));
        QVERIFY(!Global().Conn.IsOpen());
    }

    void placesOfTheOtherKindDoNotCount() {
        useEmptyDatabase();
        addPlaces(u"ME"_s);
        doorsOfTest.expect(kFourClasses);
        QVERIFY(occupancyCanBeShown(u"ME"_s));
        doorsOfTest.expect(kFourClasses);
        doorsOfTest.expect(kEnterLernzeit);
        QVERIFY(!occupancyCanBeShown(u"LZ"_s));
    }

    void theFirstBoxComesBeforeTheDatabaseIsAsked() {
        doorsOfTest.expect(kFourClasses);
        QVERIFY_THROWS_EXCEPTION(StoreError, occupancyCanBeShown(u"ME"_s));
    }
};

KOLIBRI_TEST_MAIN(ReportsEntryTest)
#include "reports_entry_test.moc"
