#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "lists/row_codes.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kZeit = u"13:00 - 14:00"_s;

/// Places of an offering, from class a to the total; a null is not entered.
void addPlaces(const QString& kind, const QString& name, const QVariantList& places) {
    FieldValues values{
        {u"Bezeichnung"_s, name}, {u"Feld1"_s, kind}, {u"Feld2"_s, kZeit}, {u"Feld3"_s, kZeit + u' ' + name}};
    for (int i = 0; i < places.size(); ++i)
        values.push_back({u"Feld%1"_s.arg(4 + i), places.at(i)});
    addRow(u"Parameter"_s, values);
}

void addEaters(int number, const QString& klasse, const QString& name, const FieldValues& besides = {}) {
    for (int i = 0; i < number; ++i)
        addPupil(u"A"_s, u"Kind %1"_s.arg(i), klasse,
                 joined({{{u"GR1_MO"_s, kZeit + u' ' + name}}, besides}));
}

/// The row of the first offering on Monday.
int mondayRow() {
    const auto& liste = Liste();
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row)
        if (liste.Daten(1, row) == u"Montag")
            return row + 2;
    return 0;
}

QStringList monday(int offering = 0) {
    QStringList cells;
    for (int column = 1; column <= 7; ++column) {
        const bool marked = Liste().BelegungMark(column, mondayRow() + offering) == kMarkUeberbelegt;
        cells << Liste().Daten(column, mondayRow() + offering) + (marked ? u"!"_s : QString());
    }
    return cells;
}

} // namespace

class OccupancyTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void thePlanShowsThePlacesAndThenEachDay() {
        useEmptyDatabase();
        addPlaces(u"ME"_s, u"ME2"_s, {u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"26"_s});
        addPlaces(u"ME"_s, u"ME1"_s, {QVariant(), u""_s, u"3"_s, QVariant(), QVariant()});
        addPlaces(u"LZ"_s, u"LZ1"_s, {u"1"_s, u"1"_s, u"1"_s, u"1"_s, u"4"_s});
        addEaters(2, u"1b"_s, u"ME2"_s);
        addEaters(1, u"4c"_s, u"ME2"_s);
        produced(kMensaBelegung);
        const QStringList rows = listRows();
        QCOMPARE(
            rows.first(5),
            QStringList({u"23: Maximale Plätze, Stand: 20.11.2026 |  |  |  |  |  | "_s,
                         u"21:   |  |  |  |  |  | "_s, u"1: ME1 | 13:00 - 14:00 | 0 | 0 | 3 | 0 | 0"_s,
                         u"1: ME2 | 13:00 - 14:00 | 5 | 6 | 7 | 8 | 26"_s, u"29:  |  |  |  |  |  | "_s}));
        QCOMPARE(rows.sliced(5, 6),
                 QStringList({u"23: Montag |  |  |  |  |  | "_s, u"21:   |  |  |  |  |  | "_s,
                              u"1: ME1 | 13:00 - 14:00 | 0 | 0 | 0 | 0 | 0"_s,
                              u"1: ME2 | 13:00 - 14:00 | 0 | 2 | 1 | 0 | 3"_s, u"29:  |  |  |  |  |  | "_s,
                              u"23: Dienstag |  |  |  |  |  | "_s}));
        QCOMPARE(rows.filter(u"23: "_s).size(), 6);
        QCOMPARE(rows.size(), 30);
        produced(kLernzeitBelegung);
        QCOMPARE(listRows().at(2), u"1: LZ1 | 13:00 - 14:00 | 1 | 1 | 1 | 1 | 4"_s);
    }

    void sixPupilsOnFivePlacesGiveARedBoldCellAndFiveDoNot() {
        useEmptyDatabase();
        addPlaces(u"ME"_s, u"ME1"_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"20"_s});
        addEaters(6, u"1a"_s, u"ME1"_s);
        addEaters(5, u"2b"_s, u"ME1"_s);
        const QStringList body = produced(kMensaBelegung);
        QCOMPARE(monday(), QStringList({u"ME1"_s, kZeit, u"6!"_s, u"5"_s, u"0"_s, u"0"_s, u"11"_s}));
        QCOMPARE(
            body.filter(u"BelegungToMax"_s),
            QStringList(
                {uR"(<TD class="BelegungToMax" WIDTH=60pt ALIGN=center style="font-weight: bold">6</TD>)"_s}));
        const QString sheet = QString::fromLatin1(pageBytes());
        QVERIFY(sheet.contains(u"TD.BelegungToMax { font-weight: bold; color: red; }"_s));
    }

    void theSumIsMarkedByItsOwnMaximum() {
        useEmptyDatabase();
        addPlaces(u"ME"_s, u"ME1"_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"3"_s});
        addEaters(2, u"1a"_s, u"ME1"_s);
        addEaters(2, u"1d"_s, u"ME1"_s);
        produced(kMensaBelegung);
        QCOMPARE(monday(), QStringList({u"ME1"_s, kZeit, u"2"_s, u"0"_s, u"0"_s, u"2"_s, u"4!"_s}));
    }

    void aMaximumLeftAtZeroMarksEveryPupil() {
        useEmptyDatabase();
        addPlaces(u"ME"_s, u"ME1"_s, {QVariant(), u""_s, u"0"_s, QVariant(), QVariant()});
        addEaters(1, u"1a"_s, u"ME1"_s);
        produced(kMensaBelegung);
        QCOMPARE(monday(), QStringList({u"ME1"_s, kZeit, u"1!"_s, u"0"_s, u"0"_s, u"0"_s, u"1!"_s}));
    }

    void aClassLetterBeyondDIsNoPartOfAnyCount() {
        useEmptyDatabase();
        addPlaces(u"ME"_s, u"ME1"_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"20"_s});
        addEaters(3, u"2e"_s, u"ME1"_s);
        addEaters(1, u"10a"_s, u"ME1"_s, {{u"Schulstufe"_s, 10}, {u"Kl_Nr"_s, u"a"_s}});
        produced(kMensaBelegung);
        QCOMPARE(monday(), QStringList({u"ME1"_s, kZeit, u"1"_s, u"0"_s, u"0"_s, u"0"_s, u"1"_s}));
    }

    void schoolStartersAndDeactivatedPupilsTakeNoPlace() {
        useEmptyDatabase();
        addPlaces(u"ME"_s, u"ME1"_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"20"_s});
        addEaters(3, u"0a"_s, u"ME1"_s);
        addEaters(3, u"1a"_s, u"ME1"_s, {{u"aktiv"_s, false}});
        Global().MitSchulanfaengern = true;
        produced(kMensaBelegung);
        QCOMPARE(monday(), QStringList({u"ME1"_s, kZeit, u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
    }

    void aRowThatNobodyHasSavedYetIsPartOfThePlan() {
        useEmptyDatabase();
        addRow(u"Parameter"_s, {{u"Bezeichnung"_s, u"Neu"_s},
                                {u"Feld1"_s, u"ME"_s},
                                {u"Feld2"_s, kZeit},
                                {u"Feld3"_s, kZeit + u" Neu"_s}});
        produced(kMensaBelegung);
        QCOMPARE(listRows().at(2), u"1: Neu | 13:00 - 14:00 | 0 | 0 | 0 | 0 | 0"_s);
    }

    void withoutPlacesTheOfficeIsToldAndThereIsNoTable() {
        useEmptyDatabase();
        for (const quint8 listenArt : {kMensaBelegung, kLernzeitBelegung}) {
            doorsOfTest.expect(u"Geben Sie die Anzahl der maximal möglichen Plätze ein!"_s);
            const QStringList body = produced(listenArt);
            QCOMPARE(Liste().ZeilenAnzahl, 0);
            QVERIFY(body.filter(u"<TABLE"_s).isEmpty());
            QCOMPARE(body.filter(u"BELEGUNGSPLAN"_s).size(), 1);
        }
        QCOMPARE(doorsOfTest.boxes().front().title, u"Kolibri"_s);
        QCOMPARE(doorsOfTest.boxes().front().code, 0);
    }

    void placesThatAreNoNumberEndThePlan() {
        useEmptyDatabase();
        addPlaces(u"ME"_s, u"ME1"_s, {u"viele"_s});
        try {
            produced(kMensaBelegung);
            QFAIL("written");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), 13);
            QVERIFY(error.details().contains(u"ME1: viele"_s));
        }
    }

    void thePlanHasRoomFor163Offerings() {
        useEmptyDatabase();
        for (int i = 0; i < 163; ++i)
            addPlaces(u"ME"_s, u"ME%1"_s.arg(i), {u"1"_s});
        produced(kMensaBelegung);
        QCOMPARE(Liste().ZeilenAnzahl, 996);
        addPlaces(u"ME"_s, u"noch eine"_s, {u"1"_s});
        try {
            produced(kMensaBelegung);
            QFAIL("written");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), 9);
        }
    }

    void marksOfThePlanBeforeAreGone() {
        useEmptyDatabase();
        addPlaces(u"ME"_s, u"ME1"_s, {u"0"_s});
        addPlaces(u"LZ"_s, u"LZ1"_s, {u"0"_s});
        addEaters(1, u"1a"_s, u"ME1"_s);
        QVERIFY(!produced(kMensaBelegung).filter(u"BelegungToMax"_s).isEmpty());
        QVERIFY(produced(kLernzeitBelegung).filter(u"BelegungToMax"_s).isEmpty());
    }

    void thePageOfThePlan() {
        useEmptyDatabase();
        addPlaces(u"LZ"_s, u"LZ1"_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"20"_s});
        addPlaces(u"LZ"_s, u"LZ2"_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"20"_s});
        const QStringList body = produced(kLernzeitBelegung);
        const QStringList expected{u"<BODY>"_s,
                                   uR"(<div id="kopf_anschrift">)"_s,
                                   u"</div>"_s,
                                   uR"(<div id="kopf_mitte">)"_s,
                                   u"<h1>LERNZEIT BELEGUNGSPLAN</h1>"_s,
                                   u"</div>"_s,
                                   u"<div id='box_table'>"_s,
                                   u"<div class='UE1_vorher'><b>"_s,
                                   u"Maximale Plätze, Stand: 20.11.2026"_s,
                                   u"</b></div>"_s,
                                   uR"(<TABLE class="Belegungen">)"_s,
                                   uR"(<TR class="KopfZeile_ME_LZ_AG">)"_s,
                                   u"<TD WIDTH=120pt ALIGN=center>LERNZEIT</TD>"_s,
                                   u"<TD WIDTH=120pt ALIGN=center>ZEIT</TD>"_s,
                                   u"<TD WIDTH=60pt ALIGN=center>A</TD>"_s,
                                   u"<TD WIDTH=60pt ALIGN=center>B</TD>"_s,
                                   u"<TD WIDTH=60pt ALIGN=center>C</TD>"_s,
                                   u"<TD WIDTH=60pt ALIGN=center>D</TD>"_s,
                                   u"<TD WIDTH=60pt ALIGN=center>GES</TD>"_s,
                                   u"</TR>"_s,
                                   uR"(<TR class="ME_LZ_AG_Daten1">)"_s};
        QCOMPARE(body.first(expected.size()), expected);
        // No shades in this plan: the marked cells have to catch the eye.
        QVERIFY(body.filter(u"ME_LZ_AG_Daten2"_s).isEmpty());
        QCOMPARE(body.filter(u"ME_LZ_AG_Daten1"_s).size(), 12);
        QCOMPARE(body.count(u"</TABLE>"_s), 6);
        QCOMPARE(body.last(4), QStringList({u"</div>"_s, u"</BODY>"_s, u"</HTML>"_s, QString()}));
    }
};

KOLIBRI_TEST_MAIN(OccupancyTest)
#include "occupancy_test.moc"
