#include "calendar/offering_cascades.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "support/cascade_school.h"
#include "support/driving.h"
#include "support/expected_state.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kPupils = u"Stammdaten"_s;
const QString kNotes = u"SCH_Notiz"_s;
const QString kTexts = u"ME_LZ_AG_Notizen"_s;
const QString kPlaces = u"Parameter"_s;

constexpr auto kMensa = OfferingKind::Mensa;
constexpr auto kLernzeit = OfferingKind::Lernzeit;
constexpr auto kGroup = OfferingKind::Arbeitsgruppe;

using Boxes = std::map<OfferingBox, QString>;

/// What the user does on the form: clicks the row with this ID, types into boxes, presses the button.
void run(OfferingKind kind, OfferingAction action, int id, const Boxes& typed = {},
         const std::optional<QString>& unit = {}) {
    const DbSession session(u"Test"_s);
    Offering offering = ME_LZ_AG_DatensatzLesen(kind, id);
    const ClickedOffering clicked{id, offering.Zeit(), offering[kBoxTag], offering.Zeit_K_Name()};
    for (const auto& [box, text] : typed)
        offering[box] = text;
    if (unit)
        offering.UE_Zeit = *unit;
    ME_LZ_AG_Daten_ÄNDERN({kind, action}, offering, clicked);
}

void correct(OfferingKind kind, int id, const Boxes& typed, const std::optional<QString>& unit = {}) {
    run(kind, OfferingAction::Korrektur, id, typed, unit);
}

void remove(OfferingKind kind, int id) {
    run(kind, OfferingAction::Löschen, id);
}

const Boxes kFrom1315To14{{kBoxVon, u"13:15"_s}, {kBoxBis, u"14:00"_s}};
const QString kNewTime = u"13:15 - 14:00"_s;
const QString kNewMe1 = u"13:15 - 14:00 ME1"_s;
const FieldValues kNewMe1Values{{u"Zeit"_s, kNewTime}, {u"Zeit_K_Name"_s, kNewMe1}};
const FieldValues kNewMe1Row{{u"Zeit_von"_s, u"13:15"_s},
                             {u"Zeit_bis"_s, u"14:00"_s},
                             {u"Zeit"_s, kNewTime},
                             {u"Zeit_K_Name"_s, kNewMe1}};
const FieldValues kNewMe1Places{{u"Feld2"_s, kNewTime}, {u"Feld3"_s, kNewMe1}};

const QString kNewChor = u"15:00 - 15:30 CHOR"_s;
const Boxes kUntil1530{{kBoxBis, u"15:30"_s}};

/// The fields that a choir at 15:00 - 15:30 has in a text or note.
FieldValues newChorValues(const QString& tag) {
    return {{u"Tag"_s, tag}, {u"Zeit"_s, u"15:00 - 15:30"_s}, {u"Zeit_K_Name"_s, kNewChor}};
}

FieldValues joined(FieldValues values, const FieldValues& more) {
    values.insert(values.end(), more.begin(), more.end());
    return values;
}

} // namespace

class OfferingCascadesTest : public TestBase {
    Q_OBJECT

    void useCareSchool() {
        useEmptyDatabase();
        makeCareSchool();
    }
    void useGroupSchool() {
        useEmptyDatabase();
        makeGroupSchool();
    }

private Q_SLOTS:
    /// Two pupils have it on Mondays: their Monday cells change, and every note of theirs, on whatever
    /// offering. The texts and places of the short name follow for all days and both kinds.
    void aNewTimeOfAMensaChangesThePupilsOfItsDayAndAllTheirNotes() {
        useCareSchool();
        ExpectedState expected;
        correct(kMensa, 1, kFrom1315To14);
        for (const int pupil : {1, 2})
            expected.change(kPupils, pupil, {{u"GR1_MO"_s, kNewMe1}});
        for (const int note : {1, 2, 3})
            expected.change(kNotes, note, kNewMe1Values);
        for (const int text : {1, 2, 3})
            expected.change(kTexts, text, kNewMe1Values);
        expected.change(u"GR1"_s, 1, kNewMe1Row);
        for (const int places : {1, 2})
            expected.change(kPlaces, places, kNewMe1Places);
        COMPARE_STATE(expected);
    }

    /// A Lernzeit with the short name of a Mensa moves the Mensa's texts and places as well.
    void equalShortNamesOfAMensaAndALernzeitMoveTextsAndPlacesOfBoth() {
        useCareSchool();
        ExpectedState expected;
        correct(kLernzeit, 1, kFrom1315To14);
        expected.change(kPupils, 1, {{u"GR2_MO"_s, kNewMe1}});
        for (const int note : {1, 2})
            expected.change(kNotes, note, kNewMe1Values);
        for (const int text : {1, 2, 3})
            expected.change(kTexts, text, kNewMe1Values);
        expected.change(u"GR2"_s, 1, kNewMe1Row);
        for (const int places : {1, 2})
            expected.change(kPlaces, places, kNewMe1Places);
        COMPARE_STATE(expected);
    }

    /// All five steps run with unchanged keys. The notes of its pupils on other offerings take its time, and
    /// so do the text and the places of the Lernzeit with the same short name.
    void aNewTeachingUnitAloneRunsTheWholeWalk() {
        useCareSchool();
        ExpectedState expected;
        correct(kMensa, 1, {}, u"14:00 - 15:00"_s);
        const FieldValues values{{u"Zeit"_s, kOldTime}, {u"Zeit_K_Name"_s, kMe1}};
        for (const int note : {2, 3})
            expected.change(kNotes, note, values);
        expected.change(kTexts, 3, values);
        expected.change(u"GR1"_s, 1, {{u"UE_Zeit"_s, u"14:00 - 15:00"_s}});
        expected.change(kPlaces, 2, {{u"Feld2"_s, kOldTime}, {u"Feld3"_s, kMe1}});
        COMPARE_STATE(expected);
    }

    void anEmptyTeachingUnitIsStoredAsSuch() {
        useCareSchool();
        ExpectedState expected;
        correct(kMensa, 3, {}, u""_s);
        expected.change(u"GR1"_s, 3, {{u"UE_Zeit"_s, u""_s}});
        COMPARE_STATE(expected);
    }

    /// Tuesday's row and pupils stay, but texts, places and notes of the key know no day.
    void deletingOneDayOfAMensaTakesTextsPlacesAndNotesOfAllDays() {
        useCareSchool();
        ExpectedState expected;
        remove(kMensa, 1);
        for (const int pupil : {1, 2})
            expected.change(kPupils, pupil, {{u"GR1_MO"_s, u""_s}});
        expected.remove(u"GR1"_s, {1}).remove(kTexts, {1, 2}).remove(kPlaces, {1}).remove(kNotes, {1, 4});
        COMPARE_STATE(expected);
    }

    void deletingTheOnlyRowOfAMensaTakesItsPlacesToo() {
        useCareSchool();
        ExpectedState expected;
        remove(kMensa, 3);
        expected.change(kPupils, 4, {{u"GR1_MO"_s, u""_s}});
        expected.remove(u"GR1"_s, {3}).remove(kTexts, {4}).remove(kPlaces, {3}).remove(kNotes, {5});
        COMPARE_STATE(expected);
    }

    /// Notes of a Mensa with the same key would stay: those of a Lernzeit bear "GR2".
    void deletingALernzeitTakesOnlyNotesOnLernzeiten() {
        useCareSchool();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(kNotes, {{u"Zeit_K_Name"_s, kLzMe1}}, u"ID = 1"_s);
        }
        ExpectedState expected;
        remove(kLernzeit, 1);
        expected.change(kPupils, 1, {{u"GR2_MO"_s, u""_s}});
        expected.remove(u"GR2"_s, {1}).remove(kTexts, {3}).remove(kPlaces, {2}).remove(kNotes, {3});
        COMPARE_STATE(expected);
    }

    /// Texts and notes are found by the long name, so those of all days take the new time and the day of the
    /// corrected row. Notes of the slots behind the first stay, those of a Mensa of that name do not.
    void aNewTimeOfAGroupMovesItsPupilsWithinTheirSlots() {
        useGroupSchool();
        ExpectedState expected;
        correct(kGroup, 1, kUntil1530);
        expected.change(kPupils, 1, {{u"GR3_MO"_s, kNewChor}, {u"GR7_MO"_s, kNewChor}});
        expected.change(kPupils, 2, {{u"GR4_MO"_s, kNewChor}});
        for (const auto& table : tablesOf(kGroup))
            expected.change(table, 1,
                            {{u"Zeit_bis"_s, u"15:30"_s},
                             {u"Zeit"_s, u"15:00 - 15:30"_s},
                             {u"Zeit_K_Name"_s, kNewChor},
                             {u"Betreuer"_s, u""_s},
                             {u"Ort"_s, u""_s}});
        for (const int text : {1, 2})
            expected.change(kTexts, text,
                            joined(newChorValues(u"MO"_s), {{u"Betreuer"_s, u""_s}, {u"Ort"_s, u""_s}}));
        for (const int note : {1, 4, 6})
            expected.change(kNotes, note, joined(newChorValues(u"MO"_s), {{u"Tag_Zahl"_s, 0}}));
        COMPARE_STATE(expected);
    }

    /// Pupil 1 has the dance on Tuesdays in the same slot and loses it without a question.
    void anotherDayOfAGroupMovesEachCellWithinItsSlotAndOverwritesWhatStandsThere() {
        useGroupSchool();
        ExpectedState expected;
        correct(kGroup, 1, {{kBoxTag, u"DI"_s}});
        expected.change(
            kPupils, 1,
            {{u"GR3_MO"_s, u""_s}, {u"GR3_DI"_s, kChor}, {u"GR7_MO"_s, u""_s}, {u"GR7_DI"_s, kChor}});
        expected.change(kPupils, 2, {{u"GR4_MO"_s, u""_s}, {u"GR4_DI"_s, kChor}});
        for (const auto& table : tablesOf(kGroup))
            expected.change(table, 1, {{u"Tag"_s, u"DI"_s}, {u"Betreuer"_s, u""_s}, {u"Ort"_s, u""_s}});
        for (const int text : {1, 2})
            expected.change(kTexts, text, {{u"Tag"_s, u"DI"_s}, {u"Betreuer"_s, u""_s}, {u"Ort"_s, u""_s}});
        for (const int note : {1, 4, 6})
            expected.change(kNotes, note,
                            {{u"Tag"_s, u"DI"_s},
                             {u"Tag_Zahl"_s, 1},
                             {u"Zeit"_s, u"15:00 - 16:00"_s},
                             {u"Zeit_K_Name"_s, kChor}});
        COMPARE_STATE(expected);
    }

    void anotherPlaceOfAGroupLeavesThePupilsAlone() {
        useGroupSchool();
        ExpectedState expected;
        correct(kGroup, 3, {{kBoxBetreuer, u"Frau Weiß"_s}, {kBoxOrt, u"Aula"_s}});
        const FieldValues people{{u"Betreuer"_s, u"Frau Weiß"_s}, {u"Ort"_s, u"Aula"_s}};
        for (const auto& table : tablesOf(kGroup))
            expected.change(table, 3, people);
        expected.change(kTexts, 4, people);
        COMPARE_STATE(expected);
    }

    /// The rows behind the first slot are found by the key of the row in the first. Where the tables number
    /// apart, another group's row bears it and is overwritten, and the group's own stays.
    void aKeyThatDiffersBetweenTheSlotsHitsTheRowThatBearsIt() {
        useGroupSchool();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"GR4"_s, {{u"ID"_s, 9}}, u"ID = 3"_s);
            Global().Conn.Change(u"GR4"_s, {{u"ID"_s, 3}}, u"ID = 1"_s);
            Global().Conn.Change(u"GR6"_s, {{u"ID"_s, 40}}, u"ID = 3"_s);
        }
        ExpectedState expected;
        correct(kGroup, 3, {{kBoxOrt, u"Aula"_s}});
        for (const auto& table : {u"GR3"_s, u"GR5"_s, u"GR7"_s})
            expected.change(table, 3, {{u"Betreuer"_s, u""_s}, {u"Ort"_s, u"Aula"_s}});
        // In the table's order the row with the key 3 stands behind the one with the key 2.
        expected.change(u"GR4"_s, 2,
                        {{u"K_Name"_s, u"TANZ"_s},
                         {u"L_Name"_s, u"Tanz"_s},
                         {u"Zeit_K_Name"_s, kTanz},
                         {u"Betreuer"_s, u""_s},
                         {u"Ort"_s, u"Aula"_s}});
        expected.change(kTexts, 4, {{u"Betreuer"_s, u""_s}, {u"Ort"_s, u"Aula"_s}});
        COMPARE_STATE(expected);
    }

    void aGroupMovesToSaturdayAsLongAsNoPupilHasIt() {
        useGroupSchool();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(kPupils, {{u"GR3_MO"_s, u""_s}}, u"ID = 4"_s);
        }
        ExpectedState expected;
        correct(kGroup, 3, {{kBoxTag, u"SA"_s}});
        const FieldValues saturday{{u"Tag"_s, u"SA"_s}, {u"Betreuer"_s, u""_s}, {u"Ort"_s, u""_s}};
        for (const auto& table : tablesOf(kGroup))
            expected.change(table, 3, saturday);
        expected.change(kTexts, 4, saturday);
        // A day that is no school day counts as the first.
        expected.change(kNotes, 5, {{u"Tag"_s, u"SA"_s}, {u"Tag_Zahl"_s, 0}});
        COMPARE_STATE(expected);
    }

    void aGroupWithAPupilDoesNotMoveToSaturdayAndAllStaysAsItWas() {
        useGroupSchool();
        const ExpectedState expected;
        QVERIFY_THROWS_EXCEPTION(StoreError, correct(kGroup, 3, {{kBoxTag, u"SA"_s}}));
        COMPARE_STATE(expected);
    }

    /// An older file may hold anything as a day; it must not become a part of a statement.
    void aRowWhoseDayIsNoWordIsRefused() {
        useGroupSchool();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"GR3"_s, {{u"Tag"_s, u"MO IS NOT NULL OR GR3_MO"_s}}, u"ID = 3"_s);
        }
        const ExpectedState expected;
        QVERIFY_THROWS_EXCEPTION(StoreError, correct(kGroup, 3, {{kBoxTag, u"DI"_s}}));
        QVERIFY_THROWS_EXCEPTION(StoreError, remove(kGroup, 3));
        COMPARE_STATE(expected);
    }

    /// The rows behind the first slot go by name, day and time, and so do text and notes, those of a Mensa of
    /// that name among them.
    void deletingOneDayOfAGroupLeavesTheOther() {
        useGroupSchool();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"GR5"_s, {{u"ID"_s, 30}}, u"ID = 1"_s);
            Global().Conn.Change(kNotes, {{u"Zeit"_s, u"15:00 - 16:00"_s}}, u"ID = 6"_s);
        }
        ExpectedState expected;
        remove(kGroup, 1);
        expected.change(kPupils, 1, {{u"GR3_MO"_s, u""_s}, {u"GR7_MO"_s, u""_s}});
        expected.change(kPupils, 2, {{u"GR4_MO"_s, u""_s}});
        for (const auto& table : {u"GR3"_s, u"GR4"_s, u"GR6"_s, u"GR7"_s})
            expected.remove(table, {1});
        expected.remove(u"GR5"_s, {3});
        expected.remove(kTexts, {1}).remove(kNotes, {1, 2, 3, 6});
        COMPARE_STATE(expected);
    }

    /// With time and day as they were no pupil is looked for: neither their number nor a day without a column
    /// of its own keeps the office from writing down another room.
    void anotherPlaceAsksForNoPupil() {
        useGroupSchool();
        addPupils(1000, u"GR3_MO"_s, kTanz);
        correct(kGroup, 3, {{kBoxOrt, u"Aula"_s}});
        QCOMPARE(columnOf(u"GR7"_s, u"Ort"_s).at(2), u"Aula"_s);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"GR3"_s, {{u"Tag"_s, u"SA"_s}}, u"ID = 3"_s);
        }
        correct(kGroup, 3, {{kBoxOrt, u"Turnhalle"_s}});
        QCOMPARE(columnOf(u"GR7"_s, u"Ort"_s).at(2), u"Turnhalle"_s);
    }

    /// Texts and places go by the key alone, whatever kind of offering they were written for.
    void deletingAMensaTakesTextsAndPlacesOfItsKeyOfEveryKind() {
        useCareSchool();
        addRow(kTexts, {{u"Typ"_s, u"Lernzeit"_s},
                        {u"K_Name"_s, u"ANDER"_s},
                        {u"Tag"_s, u"FR"_s},
                        {u"Zeit_K_Name"_s, kMe1}});
        addRow(kPlaces, {{u"Bezeichnung"_s, u"ANDER"_s}, {u"Feld1"_s, u"LZ"_s}, {u"Feld3"_s, kMe1}});
        remove(kMensa, 1);
        QVERIFY(!columnOf(kTexts, u"Zeit_K_Name"_s).contains(kMe1));
        QVERIFY(!columnOf(kPlaces, u"Feld3"_s).contains(kMe1));
    }

    /// Another time of the same group on the same day stays, and so does a Mensa's text of its name and time.
    void deletingAGroupTakesOnlyItsOwnTimeAndItsOwnTexts() {
        useGroupSchool();
        const QString longName = columnOf(u"GR3"_s, u"L_Name"_s).first();
        const QString late = u"16:00 - 17:00"_s;
        const QString lateKey = late + u" CHOR"_s;
        const FieldValues named{{u"L_Name"_s, longName}, {u"Tag"_s, u"MO"_s}};
        const FieldValues ofLate = joined(named, {{u"Zeit"_s, late}, {u"Zeit_K_Name"_s, lateKey}});
        addRow(u"GR4"_s, joined(ofLate, {{u"K_Name"_s, u"CHOR"_s}}));
        addRow(kTexts, joined(ofLate, {{u"Typ"_s, u"Arbeitsgruppe"_s}}));
        addRow(kTexts, joined(named, {{u"Typ"_s, u"Mensa"_s}, {u"Zeit"_s, u"15:00 - 16:00"_s}}));
        addRow(kNotes, joined(ofLate, {{u"SCH_ID"_s, 2}, {u"GR"_s, u"GR4"_s}}));
        remove(kGroup, 1);
        QCOMPARE(columnOf(u"GR4"_s, u"Zeit_K_Name"_s).count(lateKey), 1);
        QCOMPARE(columnOf(kTexts, u"Zeit_K_Name"_s).count(lateKey), 1);
        QCOMPARE(columnOf(kTexts, u"Typ"_s).last(), u"Mensa"_s);
        QCOMPARE(columnOf(kNotes, u"Zeit_K_Name"_s).count(lateKey), 1);
    }

    /// The key of a row may have been written by hand; pupils are found by time and short name all the same.
    void aGroupIsFoundByTimeAndShortName() {
        useGroupSchool();
        const DbSession session(u"Test"_s);
        Offering offering = ME_LZ_AG_DatensatzLesen(kGroup, 3);
        const ClickedOffering clicked{3, offering.Zeit(), offering[kBoxTag], u"anders"_s};
        offering[kBoxBis] = u"15:30"_s;
        AG_Daten_KORREKTUR(offering, clicked);
        const Recordset rs = Global().Conn.Open(u"SELECT GR3_MO FROM Stammdaten WHERE ID = 4"_s);
        QCOMPARE(rs.Text(0), u"15:00 - 15:30 TANZ"_s);
    }

    void aMensaIsDeletedByTheKeyInTheBoxes() {
        useCareSchool();
        const DbSession session(u"Test"_s);
        const Offering offering = ME_LZ_AG_DatensatzLesen(kMensa, 3);
        ME_Daten_LÖSCHEN(offering, {3, offering.Zeit(), offering[kBoxTag], u"anders"_s});
        const Recordset rs = Global().Conn.Open(u"SELECT GR1_MO FROM Stammdaten WHERE ID = 4"_s);
        QCOMPARE(rs.Text(0), QString());
    }

    void aWalkHoldsUpTo999Pupils_data() {
        QTest::addColumn<bool>("group");
        QTest::addColumn<bool>("deletes");
        QTest::newRow("correcting a Mensa") << false << false;
        QTest::newRow("correcting a group") << true << false;
        QTest::newRow("deleting a group") << true << true;
    }

    void aWalkHoldsUpTo999Pupils() {
        QFETCH(bool, group);
        QFETCH(bool, deletes);
        useEmptyDatabase();
        group ? makeGroupSchool() : makeCareSchool();
        const OfferingKind kind = group ? kGroup : kMensa;
        const QString column = group ? u"GR3_MO"_s : u"GR1_MO"_s;
        const QString key = group ? kTanz : kMe2;
        addPupils(999, column, key);
        const auto work = [&] {
            run(kind, deletes ? OfferingAction::Löschen : OfferingAction::Korrektur, 3,
                deletes ? Boxes{} : kFrom1315To14);
        };
        // With the one who was there before they are 1,000.
        const ExpectedState before;
        QVERIFY_THROWS_EXCEPTION(RuntimeError, work());
        COMPARE_STATE(before);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(kPupils, u"ID = 4"_s);
        }
        work();
        const QString left = deletes ? u""_s : u"13:15 - 14:00 "_s + key.section(u' ', -1);
        QCOMPARE(columnOf(kPupils, column).count(left), 999);
        QCOMPARE(columnOf(kPupils, column).count(key), 0);
    }

    /// A Mensa's pupils are emptied by one statement, however many they are.
    void deletingAMensaHoldsAnyNumberOfPupils() {
        useCareSchool();
        addPupils(1000, u"GR1_MO"_s, kMe2);
        remove(kMensa, 3);
        QCOMPARE(columnOf(kPupils, u"GR1_MO"_s).count(u""_s), 1001);
    }

    /// A pupil whom another workstation has open is changed like any other, and stays open there.
    void aPupilOpenElsewhereIsChangedUnderneath() {
        useCareSchool();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(kPupils,
                                 {{u"ZeitStempel"_s, u"20.11.2026 09:29:00"_s}, {u"PC_Name"_s, u"PC-2"_s}},
                                 u"ID = 4"_s);
        }
        ExpectedState expected;
        remove(kMensa, 3);
        expected.change(kPupils, 4, {{u"GR1_MO"_s, u""_s}});
        expected.remove(u"GR1"_s, {3}).remove(kTexts, {4}).remove(kPlaces, {3}).remove(kNotes, {5});
        COMPARE_STATE(expected);
    }

    void anApostropheIsRefusedAndAllStaysAsItWas() {
        useGroupSchool();
        const ExpectedState expected;
        QVERIFY_THROWS_EXCEPTION(StoreError,
                                 correct(kGroup, 1, {{kBoxBis, u"15:30"_s}, {kBoxOrt, u"Oma's Küche"_s}}));
        COMPARE_STATE(expected);
    }

private:
    static void addPupils(int count, const QString& column, const QString& key) {
        const DbSession session(u"Test"_s);
        Transaction transaction(Global().Conn);
        for (int i = 0; i < count; ++i)
            Global()
                .Conn.AddNew(kPupils)
                .Set(u"SCH_Name"_s, u"Kind"_s)
                .Set(u"Klasse"_s, u"3a"_s)
                .Set(column, key)
                .Update();
        transaction.Commit();
    }
};

KOLIBRI_TEST_MAIN(OfferingCascadesTest)
#include "offering_cascades_test.moc"
