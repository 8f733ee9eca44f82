#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/care/care_list.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kZeit = u"13:00 - 13:45"_s;
const QString kMensa = u"13:00 - 13:45 ME1"_s;

void choose(CareVariant variant, const QString& klasse = {}) {
    Global().ListenUnterArt = variant;
    CareOptions& options = Liste().MensaLernzeit;
    options.cmbKlasse = klasse;
    options.cmbME_LZ = u"Mensa früh"_s;
    options.txtZeit = kZeit;
    options.txtZeit_K_Name = kMensa;
}

void useNames() {
    Global().NameKurz.fill(u"Ungekürzt"_s);
    Global().NameZuerst.fill(u"Vorname Nachname"_s);
}

/// An active pupil with the Mensa on these days ("MO DI").
void addEater(const QString& first, const QString& klasse, const QString& days,
              const QString& gr = u"GR1"_s) {
    FieldValues cells;
    for (const auto& day : days.split(u' ', Qt::SkipEmptyParts))
        cells.push_back({gr + u'_' + day, kMensa});
    addPupil(u"N"_s, first, klasse, cells);
}

} // namespace

class CareGatherTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void eachWeekdayHasItsPupilsBelowEachOther() {
        useEmptyDatabase();
        useNames();
        addEater(u"Berta"_s, u"2a"_s, u"MO DI"_s);
        addEater(u"Anna"_s, u"2a"_s, u"MO FR"_s);
        addEater(u"Cem"_s, u"2a"_s, u"DO"_s);
        addEater(u"Fremd"_s, u"2b"_s, u"MO"_s);
        choose(kEineKlasse, u"2a"_s);
        QCOMPARE(
            gathered(kListeMensa),
            QStringList({u"21: 13:00 - 13:45 - Mensa früh |  |  |  |  |  |  |  |  | "_s,
                         u"1: Anna N |  | Berta N |  |  |  | Cem N |  | Anna N | "_s,
                         u"1: Berta N |  |  |  |  |  |  |  |  | "_s,
                         u"22: 2 |  | 1 |  | 0 |  | 1 |  | 1 | "_s, u"29:  |  |  |  |  |  |  |  |  | "_s}));
    }

    void noPupilOnFridayAnywhereLeavesFourPairsOfColumns() {
        useEmptyDatabase();
        useNames();
        addEater(u"Anna"_s, u"2a"_s, u"MO DO"_s);
        choose(kEineKlasse, u"2a"_s);
        Liste().FreitagBelegt = true;
        QCOMPARE(gathered(kListeMensa).value(1), u"1: Anna N |  |  |  |  |  | Anna N | "_s);
        QVERIFY(!Liste().FreitagBelegt);
        QCOMPARE(Liste().SpaltenAnzahl, 8);
    }

    void anyPupilOnFridaysGivesTheColumnEvenToAnotherClass() {
        useEmptyDatabase();
        addEater(u"Fremd"_s, u"3b"_s, u"FR"_s);
        choose(kEineKlasse, u"2a"_s);
        gathered(kListeMensa);
        QVERIFY(Liste().FreitagBelegt);
        QCOMPARE(Liste().SpaltenAnzahl, 10);
        gathered(kListeLernzeit);
        QVERIFY(!Liste().FreitagBelegt);
    }

    void groupedClassesAreSortedByGradeAndFirstName() {
        useEmptyDatabase();
        useNames();
        addEater(u"Zoe"_s, u"1a"_s, u"MO"_s);
        addEater(u"Ärmin"_s, u"3a"_s, u"MO"_s);
        addEater(u"Bea"_s, u"3a"_s, u"MO"_s);
        addEater(u"Fremd"_s, u"3b"_s, u"MO"_s);
        choose(kKlassenGruppiert, u"A"_s);
        QStringList names;
        for (const auto& row : gathered(kListeMensa).mid(1, 3))
            names << row.section(u" | "_s, 0, 0);
        QCOMPARE(names, QStringList({u"1: Zoe N"_s, u"1: Ärmin N"_s, u"1: Bea N"_s}));
        QCOMPARE(Liste().Daten(1, 5), u"3"_s);
    }

    // The store knows no case, so a key that an older version wrote in small letters is the same.
    void aKeyInSmallLettersIsTheSame() {
        useEmptyDatabase();
        useNames();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, u"13:00 - 13:45 me1"_s}});
        choose(kEineKlasse, u"2A"_s);
        QCOMPARE(gathered(kListeMensa).filter(u"Anna N"_s).size(), 1);
    }

    void onlyActivePupilsStandInTheList() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"A"_s, u"2a"_s, {{u"GR1_MO"_s, kMensa}, {u"aktiv"_s, false}});
        choose(kEineKlasse, u"2a"_s);
        QCOMPARE(gathered(kListeMensa).size(), 3);
    }

    void theFirstNoteOfTheAssignmentStandsBesideTheName() {
        useEmptyDatabase();
        useNames();
        addEater(u"Anna"_s, u"2a"_s, u"MO DI"_s);
        addAssignmentNote(1, u"GR2"_s, u"MO"_s, u"x"_s, kZeit, u"ME1"_s, u"andere Gruppe"_s);
        addAssignmentNote(1, u"GR1"_s, u"DI"_s, u"x"_s, kZeit, u"ME1"_s, u"dienstags"_s);
        addAssignmentNote(1, u"GR1"_s, u"MO"_s, u"x"_s, kZeit, u"ME2"_s, u"andere Zeit"_s);
        addAssignmentNote(1, u"GR1"_s, u"MO"_s, u"x"_s, kZeit, u"ME1"_s, u"erste"_s);
        addAssignmentNote(1, u"GR1"_s, u"MO"_s, u"x"_s, kZeit, u"ME1"_s, u"zweite"_s);
        addAssignmentNote(2, u"GR1"_s, u"MO"_s, u"x"_s, kZeit, u"ME1"_s, u"anderes Kind"_s);
        choose(kEineKlasse, u"2a"_s);
        QCOMPARE(gathered(kListeMensa).value(1), u"1: Anna N | erste | Anna N | dienstags |  |  |  | "_s);
    }

    void lernzeitListsReadTheirOwnGroup() {
        useEmptyDatabase();
        useNames();
        addEater(u"Anna"_s, u"2a"_s, u"MO"_s);
        addEater(u"Lea"_s, u"2a"_s, u"MO FR"_s, u"GR2"_s);
        addAssignmentNote(2, u"GR2"_s, u"MO"_s, u"x"_s, kZeit, u"ME1"_s, u"leise"_s);
        choose(kEineKlasse, u"2a"_s);
        QCOMPARE(gathered(kListeLernzeit).value(1), u"1: Lea N | leise |  |  |  |  |  |  | Lea N | "_s);
    }

    void eachMarkedUnitHasItsTable() {
        useEmptyDatabase();
        useNames();
        addEater(u"Berta"_s, u"4b"_s, u"MO"_s);
        addEater(u"Anna"_s, u"4b"_s, u"MO"_s);
        addEater(u"Zoe"_s, u"1c"_s, u"MO"_s);
        choose(kEinheiten);
        Liste().MensaLernzeit.lstME_LZ = {careEntry(u"Mensa früh"_s, kMensa),
                                          careEntry(u"Mensa spät"_s, u"14:00 - 14:30 ME2"_s)};
        const QStringList rows = gathered(kListeMensa);
        QStringList firstCells;
        for (const auto& row : rows)
            firstCells << row.section(u" | "_s, 0, 0).trimmed();
        QCOMPARE(firstCells, QStringList({u"21: Mensa früh:  13:00 - 13:45 ME1"_s, u"1: Zoe N"_s,
                                          u"1: Anna N"_s, u"1: Berta N"_s, u"22: 3"_s, u"29:"_s,
                                          u"21: Mensa spät:  14:00 - 14:30 ME2"_s, u"22: 0"_s, u"29:"_s}));
    }

    void withoutAnOfferingNobodyIsListed() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"A"_s, u"2a"_s, {{u"GR1_MO"_s, u""_s}});
        choose(kEineKlasse, u"2a"_s);
        Liste().MensaLernzeit.txtZeit_K_Name.clear();
        QCOMPARE(gathered(kListeMensa).size(), 3);
    }

    void aKeyWithAnApostropheIsRefused() {
        useEmptyDatabase();
        choose(kEineKlasse, u"2a"_s);
        Liste().MensaLernzeit.txtZeit_K_Name = u"13:00 - 13:45 Opa's"_s;
        QVERIFY_THROWS_EXCEPTION(StoreError, prepareList(kListeMensa));
    }

    void theListHoldsNineHundredNinetyNineRows() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Transaction transaction(Global().Conn);
            for (int i = 0; i < 996; ++i)
                Global()
                    .Conn.AddNew(u"Stammdaten"_s)
                    .Set(u"aktiv"_s, true)
                    .Set(u"Klasse"_s, u"2a"_s)
                    .Set(u"GR1_MO"_s, kMensa)
                    .Update();
            transaction.Commit();
        }
        choose(kEineKlasse, u"2a"_s);
        prepareList(kListeMensa);
        QCOMPARE(Liste().ZeilenAnzahl, 999);
        addEater(u"Anna"_s, u"2a"_s, u"MO"_s);
        try {
            prepareList(kListeMensa);
            QFAIL("a thousandth row was taken");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), 9);
        }
    }
};

KOLIBRI_TEST_MAIN(CareGatherTest)
#include "care_gather_test.moc"
