#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kThird = u"09:55 - 10:40"_s;
const QString kFifth = u"11:40 - 12:25"_s;

void choose(const QString& letter, const QString& tag, const QString& grade = kAlleSchulstufen) {
    WochenplanOptions& options = Liste().Wochenplan;
    options.cmbKlasse = letter;
    options.cmbTag = tag;
    options.chk2Tage = tag.contains(u'/');
    options.cmbSchulstufe = grade;
    Global().NameKurz.fill(u"Ungekürzt"_s);
    Global().NameZuerst.fill(u"Vorname Nachname"_s);
}

void addClassText(int id, const QString& klasse, const QString& text) {
    addRow(u"WochenplanTexte"_s, {{u"ID"_s, id}, {u"Klasse"_s, klasse}, {u"TextVorher"_s, text}});
}

QStringList tables(const QStringList& body) {
    return body.filter(u"<TABLE"_s);
}

const QStringList kHeaderRows{u"<TR class=\"KopfZeile_Wochenplan\">"_s,
                              u"<TD ALIGN='center' COLSPAN=2> </TD>"_s,
                              u"<TD ALIGN='center' COLSPAN=2>MONTAG</TD>"_s,
                              u"</TR>"_s,
                              u"<TR class=\"KopfZeile_Wochenplan\">"_s,
                              u"<TD ALIGN='center'>NAME</TD>"_s,
                              u"<TD ALIGN='center'>KL</TD>"_s,
                              u"<TD ALIGN='center'>09:55 - 10:40</TD>"_s,
                              u"<TD ALIGN='center'>11:40 - 12:25</TD>"_s,
                              u"</TR>"_s};
const QStringList kEnd{u"</TABLE>"_s, u"</div>"_s, u"</div>"_s, u"</BODY>"_s, u"</HTML>"_s, QString()};

QStringList textBlock(const QString& text) {
    return {u"<DIV class=\"WP_Zusatztext\">"_s, text, u"</DIV>"_s};
}

QStringList begin(const QString& tableClass) {
    return {u"<BODY>"_s,
            u"<div id=\"kopf_mitte\">"_s,
            u"<h1>TAGESPLAN</h1>"_s,
            u"</div>"_s,
            u"<div id='box_table'>"_s,
            u"<div class='tabelle'>"_s,
            u"<TABLE class=\"%1\">"_s.arg(tableClass)};
}

QStringList pupil(const QString& stripe, const QString& name, const QString& klasse) {
    return {u"<TR class=\"Wochenplan_Daten%1\">"_s.arg(stripe),
            u"<TD WIDTH=187pt ALIGN=left>%1</TD>"_s.arg(name),
            u"<TD WIDTH=51pt ALIGN=center>%1</TD>"_s.arg(klasse),
            u"<TD WIDTH=136pt ALIGN=center> <br &> </TD>"_s,
            u"<TD WIDTH=136pt ALIGN=center> <br &> </TD>"_s,
            u"</TR>"_s};
}

} // namespace

class DayPlanWriteTest : public TestBase {
    Q_OBJECT

private:
    void usePlan() {
        useEmptyDatabase();
        addUnits({kThird, kFifth});
    }

private Q_SLOTS:
    void thePageHasNoAddressBlock() {
        usePlan();
        Global().SchuleOrganisation = u"OGS"_s;
        for (const auto& tag : {u"MO"_s, u"MO/DI"_s}) {
            choose(u"A"_s, tag);
            QVERIFY(produced(kTagesplan).filter(u"kopf_anschrift"_s).isEmpty());
        }
    }

    void theWholeBodyOfTwoClasses() {
        usePlan();
        addClassText(1, u"1A"_s, u"{\\rtf1\\ansi\\f0\\fs17 Sport!\\par }"_s);
        addClassText(2, u"2A"_s, u"Bücher mit"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s);
        addPupil(u"Bär"_s, u"Ben"_s, u"1a"_s);
        addPupil(u"Cohn"_s, u"Can"_s, u"2a"_s);
        choose(u"A"_s, u"MO"_s);
        const QStringList expected =
            begin(u"Wochenplan"_s) + textBlock(u"Sport!"_s) + kHeaderRows
            + pupil(u"1"_s, u"Anna Abel"_s, u"1a"_s) + pupil(u"2"_s, u"Ben Bär"_s, u"1a"_s)
            + QStringList{u"</TABLE>"_s} + QStringList{u"<TABLE class=\"Wochenplan_ohneSU\">"_s}
            + textBlock(u"Bücher mit"_s) + kHeaderRows + pupil(u"1"_s, u"Can Cohn"_s, u"2a"_s) + kEnd;
        QCOMPARE(produced(kTagesplan), expected);
    }

    void noPupilSelectedGivesTheFirstTableWithoutData() {
        usePlan();
        choose(u"A"_s, u"MO"_s);
        QCOMPARE(produced(kTagesplan), begin(u"Wochenplan"_s) + textBlock({}) + kHeaderRows + kEnd);
    }

    void oneGradeBeginsWithoutAPageBreak() {
        usePlan();
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s);
        choose(u"A"_s, u"MO"_s, u"2"_s);
        QCOMPARE(tables(produced(kTagesplan)), QStringList{u"<TABLE class=\"Wochenplan_ohneSU\">"_s});
    }

    void theTablesOfAFullPlanEndTheirSheetsButForTheLast() {
        usePlan();
        for (const auto& klasse : {u"1a"_s, u"2a"_s, u"3a"_s})
            addPupil(u"Abel"_s, u"Anna"_s, klasse);
        choose(u"A"_s, u"MO"_s);
        const QStringList body = produced(kTagesplan);
        QCOMPARE(tables(body),
                 QStringList({u"<TABLE class=\"Wochenplan\">"_s, u"<TABLE class=\"Wochenplan\">"_s,
                              u"<TABLE class=\"Wochenplan_ohneSU\">"_s}));
        QCOMPARE(body.count(u"</TABLE>"_s), 3);
    }

    void twoDaysHaveBothHeadings() {
        usePlan();
        choose(u"A"_s, u"MI/DO"_s);
        const QStringList body = produced(kTagesplan);
        QCOMPARE(body.filter(u"COLSPAN=2>"_s).mid(1),
                 QStringList({u"<TD ALIGN='center' COLSPAN=2>MITTWOCH</TD>"_s,
                              u"<TD ALIGN='center' COLSPAN=2>DONNERSTAG</TD>"_s}));
        QCOMPARE(body.count(u"<TD ALIGN='center'>09:55 - 10:40</TD>"_s), 2);
    }

    void fridayWithTwoDaysHasAnEmptySecondHeading() {
        usePlan();
        choose(u"A"_s, u"FR"_s);
        Liste().Wochenplan.chk2Tage = true;
        QCOMPARE(produced(kTagesplan).filter(u"COLSPAN=2>"_s).mid(1),
                 QStringList({u"<TD ALIGN='center' COLSPAN=2>FREITAG</TD>"_s,
                              u"<TD ALIGN='center' COLSPAN=2></TD>"_s}));
    }

    void withoutUnitsTheDaySpansNothing() {
        useEmptyDatabase();
        choose(u"A"_s, u"MO"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s);
        const QStringList body = produced(kTagesplan);
        QVERIFY(body.contains(u"<TD ALIGN='center' COLSPAN=0>MONTAG</TD>"_s));
        QVERIFY(body.filter(u"Anna Abel"_s).size() == 1);
    }

    void aRowThatForcesANewSheetHasItsOwnClass() {
        usePlan();
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s);
        addPupil(u"Bär"_s, u"Ben"_s, u"1a"_s);
        addPupil(u"Cohn"_s, u"Can"_s, u"1a"_s);
        choose(u"A"_s, u"MO"_s);
        prepareList(kTagesplan);
        Liste().ZeilenCode(1) = u"91"_s;
        Liste().ZeilenCode(2) = u"x"_s;
        producePage();
        const QStringList body = bodyLines();
        QCOMPARE(rowClasses(body),
                 QStringList({u"KopfZeile_Wochenplan"_s, u"Seitenumbruch_vorher"_s, u"Wochenplan_Daten1"_s}));
        QVERIFY(body.filter(u"Ben Bär"_s).isEmpty());
    }
};

KOLIBRI_TEST_MAIN(DayPlanWriteTest)
#include "day_plan_write_test.moc"
