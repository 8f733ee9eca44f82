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

const QString kFrueh = u"11:00 - 11:30 ME1"_s;
const QString kMittag = u"12:30 - 13:30 LZ1"_s;
const QString kMittagAG = u"13:00 - 14:00 AG1"_s;

void addClassDay(const QString& klasse, const QString& tag, const QStringList& zeiten) {
    const QStringList fields{u"Unterrichtsbeginn"_s, u"Unterrichtsende"_s, u"UnterrichtsbeginnNM"_s,
                             u"UnterrichtsendeNM"_s};
    FieldValues values{{u"Klasse"_s, klasse}, {u"Tag"_s, tag}, {u"Tag_Zahl"_s, TagZahl(tag)}};
    for (int i = 0; i < zeiten.size(); ++i)
        values.push_back({fields.at(i), zeiten.at(i)});
    addRow(u"Klassen"_s, values);
}

/// The five days of a class with the same teaching.
void addClass(const QString& klasse, const QStringList& zeiten) {
    for (int day = 0; day < kSchoolDays; ++day)
        addClassDay(klasse, TagCode(day), zeiten);
}

QStringList rows() {
    return gathered(kZeitueberschneidungen);
}

/// Rows of so many conflicts: five for each pupil, the last one has what is left.
void addConflicts(int number) {
    const DbSession session(u"Test"_s);
    Transaction transaction(Global().Conn);
    for (int left = number; left > 0; left -= kSchoolDays) {
        NewRow row = Global().Conn.AddNew(u"Stammdaten"_s);
        row.Set(u"aktiv"_s, true).Set(u"SCH_Name"_s, u"N%1"_s.arg(left));
        for (int day = 0; day < std::min<int>(left, kSchoolDays); ++day)
            row.Set(u"GR1_"_s + TagCode(day), kMittag).Set(u"GR2_"_s + TagCode(day), kMittagAG);
        row.Update();
    }
    transaction.Commit();
}

} // namespace

class OverlapReportTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void anEmptySchoolGivesThePageWithItsHeadingAndNoRow() {
        useEmptyDatabase();
        const QStringList body = produced(kZeitueberschneidungen);
        QCOMPARE(Liste().ZeilenAnzahl, 0);
        QCOMPARE(body.filter(u"<TR"_s).size(), 1);
        QVERIFY(body.contains(u"<h1>ZEITÜBERSCHNEIDUNGEN</h1>"_s));
    }

    void aSchoolWithoutConflictsGivesThePageWithItsHeadingAndNoRow() {
        useEmptyDatabase();
        addClass(u"1a"_s, {u"08:00"_s, u"11:00"_s});
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}, {u"GR2_MO"_s, kMittag}});
        QCOMPARE(produced(kZeitueberschneidungen).filter(u"<TR"_s).size(), 1);
    }

    void aRowShowsTheWholeDayOfThePupil() {
        useEmptyDatabase();
        addClass(u"1a"_s, {u"08:00"_s, u"12:00"_s, u"14:00"_s, u"15:30"_s});
        addClass(u"1b"_s, {u"08:00"_s, u"12:00"_s});
        addPupil(u"Adler"_s, u"Anna"_s, u"1a"_s,
                 {{u"GR1_DI"_s, kFrueh}, {u"GR2_DI"_s, kMittag}, {u"GR7_DI"_s, u"16:00 - 17:00 AG"_s}});
        addPupil(u"Adler"_s, u"Bert"_s, u"1b"_s, {{u"GR1_FR"_s, kFrueh}});
        QCOMPARE(rows(),
                 QStringList({u"1: Adler<br />Anna | 1a | DI | 08:00-12:00 14:00-15:30 | 11:00 - 11:30 ME1 | "
                              "12:30 - 13:30 LZ1 |  |  |  |  | 16:00 - 17:00 AG"_s,
                              u"1: Adler<br />Bert | 1b | FR | 08:00-12:00 | 11:00 - 11:30 ME1 |  |  |  |  | "
                              " | "_s}));
    }

    void conflictsOnThreeDaysAreThreeRows() {
        useEmptyDatabase();
        addClass(u"1a"_s, {u"08:00"_s, u"12:00"_s});
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s,
                 {{u"GR1_MO"_s, kFrueh}, {u"GR1_MI"_s, kFrueh}, {u"GR1_FR"_s, kFrueh}});
        rows();
        QCOMPARE(Liste().ZeilenAnzahl, 3);
        QCOMPARE(Liste().Daten(3, 2), u"MI"_s);
    }

    void twoAssignmentsThatShareAMinuteAreAConflictAndTouchingOnesAreNot() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"beide"_s, u"1a"_s, {{u"GR2_MO"_s, kMittag}, {u"GR5_MO"_s, kMittagAG}});
        addPupil(u"A"_s, u"berührt"_s, u"1a"_s,
                 {{u"GR2_MO"_s, kMittag}, {u"GR5_MO"_s, u"13:30 - 14:00 AG"_s}});
        addPupil(u"A"_s, u"andere Tage"_s, u"1a"_s, {{u"GR2_MO"_s, kMittag}, {u"GR5_DI"_s, kMittagAG}});
        addPupil(u"A"_s, u"zweimal dieselbe"_s, u"1a"_s,
                 {{u"GR3_DO"_s, kMittagAG}, {u"GR7_DO"_s, kMittagAG}});
        QStringList names;
        for (const auto& row : rows())
            names << row.section(u"<br />"_s, 1).section(u" |"_s, 0, 0);
        QCOMPARE(names, QStringList({u"beide"_s, u"zweimal dieselbe"_s}));
    }

    void aDeactivatedPupilIsNeverListedAndASchoolStarterIs() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"Weg"_s, u"1a"_s,
                 {{u"GR1_MO"_s, kMittag}, {u"GR2_MO"_s, kMittagAG}, {u"aktiv"_s, false}});
        addPupil(u"A"_s, u"Anfänger"_s, u"0a"_s, {{u"GR1_MO"_s, kMittag}, {u"GR2_MO"_s, kMittagAG}});
        rows();
        QCOMPARE(Liste().ZeilenAnzahl, 1);
        QCOMPARE(Liste().Daten(1, 1), u"A<br />Anfänger"_s);
    }

    void aPupilWhoseClassHasNoRowsIsTestedAgainstTheLastClassRead() {
        useEmptyDatabase();
        addClass(u"1a"_s, {u"08:00"_s, u"12:00"_s});
        addPupil(u"A"_s, u"Erste"_s, u"1a"_s);
        addPupil(u"A"_s, u"Ohne"_s, u"9z"_s, {{u"GR1_MO"_s, kFrueh}});
        QCOMPARE(rows(), QStringList({u"1: A<br />Ohne | 9z | FR | 08:00-12:00 | 11:00 - 11:30 ME1 |  |  |  |"
                                      "  |  | "_s}));
    }

    void beforeAnyClassIsReadThereIsNoTeachingAndNoDay() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"Ohne"_s, u"9z"_s, {{u"GR1_MO"_s, kMittag}, {u"GR2_MO"_s, kMittagAG}});
        rows();
        QCOMPARE(Liste().Daten(3, 1), QString());
        QCOMPARE(Liste().Daten(4, 1), u"-"_s);
    }

    void aDayThatAClassLacksKeepsTheDayBefore() {
        useEmptyDatabase();
        addClassDay(u"1a"_s, u"MO"_s, {u"08:00"_s, u"12:00"_s});
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_DI"_s, kFrueh}});
        rows();
        QCOMPARE(Liste().ZeilenAnzahl, 1);
        QCOMPARE(Liste().Daten(3, 1), u"MO"_s);
    }

    void aTimeThatIsNotSetIsMidnightAndNoTeaching() {
        useEmptyDatabase();
        addClassDay(u"1a"_s, u"MO"_s, {});
        addClassDay(u"1b"_s, u"MO"_s, {u"00:00"_s, u"12:00"_s});
        addPupil(u"A"_s, u"Frei"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}});
        addPupil(u"A"_s, u"bis zwölf"_s, u"1b"_s, {{u"GR1_MO"_s, kFrueh}});
        rows();
        QCOMPARE(Liste().ZeilenAnzahl, 1);
        QCOMPARE(Liste().Daten(4, 1), u"00:00-12:00"_s);
    }

    void aTextWithoutTimesHasThoseOfTheCellReadBeforeForItsGroup() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"Erste"_s, u"1a"_s, {{u"GR1_MO"_s, kMittag}});
        addPupil(u"A"_s, u"Ohne Zeit"_s, u"1a"_s,
                 {{u"GR1_MO"_s, u"nach Absprache"_s}, {u"GR2_MO"_s, kMittagAG}});
        // Of a text with half a time the half is taken.
        addPupil(u"A"_s, u"Halbe Zeit"_s, u"1a"_s,
                 {{u"GR1_MO"_s, u"12:00 bis Ende: offen"_s}, {u"GR2_MO"_s, u"12:00 - 12:20 LZ"_s}});
        QStringList names;
        for (const auto& row : rows())
            names << row.section(u"<br />"_s, 1).section(u" |"_s, 0, 0);
        QCOMPARE(names, QStringList({u"Ohne Zeit"_s, u"Halbe Zeit"_s}));
    }

    void aClassWithAnApostropheDoesNotEndTheReport() {
        useEmptyDatabase();
        addClass(u"1a"_s, {u"08:00"_s, u"12:00"_s});
        addPupil(u"A"_s, u"Erste"_s, u"1a"_s);
        addPupil(u"A"_s, u"Apostroph"_s, u"1'a"_s, {{u"GR1_MO"_s, kFrueh}});
        QCOMPARE(rows().size(), 1);
        QCOMPARE(Liste().Daten(2, 1), u"1'a"_s);
    }

    void ofTwoRowsOfAClassForOneDayTheFirstCounts() {
        useEmptyDatabase();
        addClassDay(u"1a"_s, u"MO"_s, {u"08:00"_s, u"12:00"_s});
        addClassDay(u"1A"_s, u"MO"_s, {u"08:00"_s, u"09:00"_s});
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}});
        QCOMPARE(rows().size(), 1);
    }

    void theSwitchOfThePupilFormHasNoEffect() {
        useEmptyDatabase();
        Global().UeberschneidungPruefen = false;
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_MO"_s, kMittag}, {u"GR2_MO"_s, kMittagAG}});
        QCOMPARE(rows().size(), 1);
    }

    void a999thConflictStillFitsAndTheNextEndsTheReport() {
        useEmptyDatabase();
        addConflicts(999);
        const QStringList body = produced(kZeitueberschneidungen);
        QCOMPARE(rowClasses(body).size(), 999);
        const QByteArray before = pageBytes();
        addConflicts(1);
        prepareList(kZeitueberschneidungen);
        QCOMPARE(Liste().ZeilenAnzahl, 1000);
        try {
            producePage();
            QFAIL("written");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.message(), u"Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"_s);
        }
        QCOMPARE(pageBytes(), before);
    }

    void thePage() {
        useEmptyDatabase();
        addClass(u"1a"_s, {u"08:00"_s, u"12:00"_s});
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s,
                 {{u"GR1_MO"_s, kFrueh}, {u"GR1_MI"_s, kFrueh}, {u"GR1_FR"_s, kFrueh}});
        const QStringList body = produced(kZeitueberschneidungen);
        const QStringList expected{u"<BODY>"_s,
                                   uR"(<div id="kopf_anschrift">)"_s,
                                   u"</div>"_s,
                                   uR"(<div id="kopf_mitte">)"_s,
                                   u"<h1>ZEITÜBERSCHNEIDUNGEN</h1>"_s,
                                   u"</div>"_s,
                                   u"<div id='box_table'>"_s,
                                   u"<div class='anmerkung_vorher'>"_s,
                                   u"Schüler/Schülerinnen mit Überschneidung von Zeiten"_s,
                                   u"</div>"_s,
                                   u"<div class='tabelle'>"_s,
                                   uR"(<TABLE class="Tpt">)"_s,
                                   uR"(<TR class="KopfZeile_ME_LZ_AG">)"_s,
                                   u"<TD WIDTH=54pt ALIGN=left>NAME</TD>"_s,
                                   u"<TD WIDTH=18pt ALIGN=center>KL</TD>"_s,
                                   u"<TD WIDTH=18pt ALIGN=center>TAG</TD>"_s,
                                   u"<TD WIDTH=54pt ALIGN=center>U</TD>"_s,
                                   u"<TD WIDTH=54pt ALIGN=center>ME</TD>"_s,
                                   u"<TD WIDTH=54pt ALIGN=center>LZ</TD>"_s,
                                   u"<TD WIDTH=54pt ALIGN=center>AG1</TD>"_s,
                                   u"<TD WIDTH=54pt ALIGN=center>AG2</TD>"_s,
                                   u"<TD WIDTH=54pt ALIGN=center>AG3</TD>"_s,
                                   u"<TD WIDTH=54pt ALIGN=center>AG4</TD>"_s,
                                   u"<TD WIDTH=54pt ALIGN=center>AG5</TD>"_s,
                                   u"</TR>"_s,
                                   uR"(<TR class="ME_LZ_AG_Daten1">)"_s,
                                   u"<TD WIDTH=54pt ALIGN=left>A<br />Kind</TD>"_s};
        QCOMPARE(body.first(expected.size()), expected);
        QCOMPARE(rowClasses(body),
                 QStringList({u"ME_LZ_AG_Daten1"_s, u"ME_LZ_AG_Daten2"_s, u"ME_LZ_AG_Daten1"_s}));
        // No row says that the table ends, and no page of the office has ever closed it.
        QVERIFY(!body.contains(u"</TABLE>"_s));
        QCOMPARE(body.last(5),
                 QStringList({u"</div>"_s, u"</div>"_s, u"</BODY>"_s, u"</HTML>"_s, QString()}));
    }

    void theSpreadsheetHeadsTheTeachingInFull() {
        useEmptyDatabase();
        rows();
        QCOMPARE(Liste().SpaltenText(4), u"U-ENDE"_s);
    }

    void theWriterKnowsHeadingRowsAndTheEndOfTheTable() {
        useEmptyDatabase();
        prepareList(kZeitueberschneidungen);
        auto& liste = Liste();
        liste.dimensionieren(11, 4);
        const QStringList codes{u"22"_s, u"1"_s, QString(), u"29"_s};
        for (int row = 1; row <= codes.size(); ++row)
            liste.ZeilenCode(row) = codes.at(row - 1);
        for (int column = 1; column <= 11; ++column)
            liste.Daten(column, 1) = u"K%1"_s.arg(column);
        liste.ZeilenAnzahl = 4;
        producePage();
        const QStringList body = bodyLines();
        QCOMPARE(rowClasses(body), QStringList({u"KopfZeile_ME_LZ_AG"_s, u"ME_LZ_AG_Daten1"_s}));
        QVERIFY(body.contains(u"<TD WIDTH=54pt ALIGN=center>K6</TD>"_s));
        QVERIFY(body.filter(u">K7<"_s).isEmpty());
        QCOMPARE(body.count(u"</TABLE>"_s), 1);
    }
};

KOLIBRI_TEST_MAIN(OverlapReportTest)
#include "overlap_report_test.moc"
