#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/reports/report_entry.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kQuestion =
    u"Soll die Ausgabe mit eventuell vorhandenen Schulanfängern\n(Klasse = 0) erfolgen?"_s;
const QString kFourClasses = u"Es werden nur die Klassen 'A bis D' dargestellt!"_s;
const QString kFrueh = u"13:00 - 14:00 ME1"_s;

} // namespace

class ReportEntryTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aReportAsksAndShowsWhatTheAnswerSays() {
        useEmptyDatabase();
        addOffering(u"GR1"_s, u"Mensa"_s, u"ME1"_s, u"MO"_s, u"13:00 - 14:00"_s);
        addPupil(u"A"_s, u"Anfänger"_s, u"0a"_s, {{u"GR1_FR"_s, kFrueh}});
        doorsOfTest.expect(kQuestion, kAnswerYes);
        Bericht_Zeigen(kMensaGesamt);
        QCOMPARE(listRows().at(1), u"1: 13:00 - 14:00 | 0 | 0 | 0 | 0 | 1"_s);
        doorsOfTest.expect(kQuestion, kAnswerNo);
        Bericht_Zeigen(kMensaGesamt);
        QCOMPARE(listRows().at(1), u"1: 13:00 - 14:00 | 0 | 0 | 0 | 0 | 0"_s);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>({11, 11}));
    }

    void allFourReportsAskUnderTheTitleOfTheFirst() {
        useEmptyDatabase();
        const std::vector<quint8> reports{kMensaGesamt, kMensaJeKlasse, kLernzeitGesamt, kLernzeitJeKlasse};
        for (const quint8 listenArt : reports) {
            doorsOfTest.expect(kQuestion, kAnswerNo);
            Bericht_Zeigen(listenArt);
        }
        for (const auto& box : doorsOfTest.boxes()) {
            QCOMPARE(box.title, u"Bericht Mensa"_s);
            QCOMPARE(box.code, 292);
        }
        QCOMPARE(doorsOfTest.pages(), reports);
    }

    void theFridayColumnIsDecidedAnewForEachReport() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"Weg"_s, u"1a"_s, {{u"GR2_FR"_s, kFrueh}, {u"aktiv"_s, false}});
        doorsOfTest.expect(kQuestion, kAnswerNo);
        Bericht_Zeigen(kLernzeitGesamt);
        QCOMPARE(Liste().SpaltenAnzahl, 6);
        doorsOfTest.expect(kQuestion, kAnswerNo);
        Bericht_Zeigen(kMensaGesamt);
        QCOMPARE(Liste().SpaltenAnzahl, 5);
    }

    void withoutPlacesNoPlanIsProduced() {
        useEmptyDatabase();
        doorsOfTest.expect(kFourClasses);
        doorsOfTest.expectBeginning(u"Geben Sie zuerst unter BEARBEITEN -> MENSA"_s);
        Belegung_Zeigen(kMensaBelegung);
        QVERIFY(doorsOfTest.pages().empty());
    }

    void thePlanIsShownBehindItsBox() {
        useEmptyDatabase();
        addRow(u"Parameter"_s, {{u"Bezeichnung"_s, u"LZ1"_s}, {u"Feld1"_s, u"LZ"_s}});
        doorsOfTest.expect(kFourClasses);
        Belegung_Zeigen(kLernzeitBelegung);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>({23}));
    }
};

KOLIBRI_TEST_MAIN(ReportEntryTest)
#include "report_entry_test.moc"
