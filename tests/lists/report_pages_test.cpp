// Whole pages of the reports and of the note lists beside the expected ones, and of the overlaps of a small
// school with some. A page that has changed on purpose is written anew with KOLIBRI_UPDATE_EXPECTED=1 and
// read before it is kept.

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// Small enough to be read through, large enough for every kind of row.
constexpr int kPupils = 40;

/// A Lernzeit that begins before the lunch is over, for every pupil who has both on Mondays.
void letTimesOverlap() {
    const DbSession session(u"Test"_s);
    Global().Conn.Execute(u"UPDATE Stammdaten SET GR2_MO = '11:00 - 12:50 LZ9' WHERE GR1_MO <> ''"_s);
}

} // namespace

class ReportPagesTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void thePagesAreTheExpectedOnes_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<bool>("withStarters");
        const auto row = [](const char* file, int listenArt, bool withStarters = false) {
            QTest::newRow(file) << listenArt << withStarters;
        };
        row("bericht_mensa_gesamt", kMensaGesamt);
        row("bericht_mensa_gesamt_mit_schulanfaengern", kMensaGesamt, true);
        row("bericht_mensa_je_klasse", kMensaJeKlasse);
        row("belegung_mensa", kMensaBelegung);
        row("bericht_lernzeit_gesamt", kLernzeitGesamt);
        row("bericht_lernzeit_je_klasse", kLernzeitJeKlasse, true);
        row("belegung_lernzeit", kLernzeitBelegung);
        row("bericht_arbeitsgruppen", kArbeitsgruppenGesamt);
        row("notizen_zuweisungen", kNotizenZuweisungen);
        row("notizen_tagesplan", kNotizenTagesplan);
    }

    void thePagesAreTheExpectedOnes() {
        QFETCH(const int, listenArt);
        QFETCH(const bool, withStarters);
        useSampleSchool(kPupils);
        compare(static_cast<quint8>(listenArt), withStarters);
    }

    void thePageOfOverlapsIsTheExpectedOne_data() {
        QTest::addColumn<bool>("overlapping");
        QTest::newRow("zeitueberschneidungen") << true;
        QTest::newRow("zeitueberschneidungen_keine") << false;
    }

    void thePageOfOverlapsIsTheExpectedOne() {
        QFETCH(const bool, overlapping);
        useSampleSchool(kPupils);
        if (overlapping)
            letTimesOverlap();
        compare(kZeitueberschneidungen, false);
    }

private:
    static void compare(quint8 listenArt, bool withStarters) {
        auto& global = Global();
        global.SchuleOrganisation = u"OGS Müllerstraße"_s;
        global.SchuleStrasse = u"Müllerstraße 12"_s;
        global.SchulePLZOrt = u"52062 Aachen"_s;
        global.MitSchulanfaengern = withStarters;
        global.ListenArt = listenArt;
        FreitagBelegt_Pruefen();
        prepareList(listenArt);
        producePage();
        compareWithExpected(pageBytes(),
                            u"seite_"_s + QString::fromLatin1(QTest::currentDataTag()) + u".html"_s);
    }
};

KOLIBRI_TEST_MAIN(ReportPagesTest)
#include "report_pages_test.moc"
