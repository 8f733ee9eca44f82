#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/groups/group_list.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kChoir = u"14:00 - 15:00 CH"_s;

QStringList names() {
    QStringList result;
    for (const auto& row : gathered(kListeArbeitsgruppe))
        if (row.startsWith(u"1: "_s))
            result << row.mid(3).section(u" | "_s, 0, 0);
    return result;
}

int failure() {
    try {
        prepareList(kListeArbeitsgruppe);
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

class GroupListTest : public TestBase {
    Q_OBJECT

private:
    void useChoir() {
        useEmptyDatabase();
        Global().NameKurz.fill(u"Ungekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        GroupOptions& options = Liste().Arbeitsgruppe;
        options.cmbAG = u"Chor"_s;
        options.txtTag = u"MO"_s;
        options.txtZeit = u"14:00 - 15:00"_s;
        options.txtK_Name = u"CH"_s;
        options.txtZeit_K_Name = kChoir;
    }

private Q_SLOTS:
    void thePupilsOfAllFiveSlotsStandInTheList() {
        useChoir();
        for (int slot = 3; slot <= 7; ++slot)
            addPupil(u"N"_s, u"S%1"_s.arg(slot), u"2a"_s, {{u"GR%1_MO"_s.arg(slot), kChoir}});
        addPupil(u"N"_s, u"anderer Tag"_s, u"2a"_s, {{u"GR3_DI"_s, kChoir}});
        addPupil(u"N"_s, u"Mensa"_s, u"2a"_s, {{u"GR1_MO"_s, kChoir}});
        addPupil(u"N"_s, u"weg"_s, u"2a"_s, {{u"GR3_MO"_s, kChoir}, {u"aktiv"_s, false}});
        QCOMPARE(names(), QStringList({u"S3 N"_s, u"S4 N"_s, u"S5 N"_s, u"S6 N"_s, u"S7 N"_s}));
        QCOMPARE(Liste().AnzahlAG, 5);
        QCOMPARE(Liste().ZeilenCode(1), u"21"_s);
        QCOMPARE(Liste().Daten(1, 1), u" "_s);
        QCOMPARE(Liste().ZeilenCode(Liste().ZeilenAnzahl), u"29"_s);
    }

    void aPupilWithTheGroupInTwoSlotsShowsOnce() {
        useChoir();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR3_MO"_s, kChoir}, {u"GR6_MO"_s, kChoir}});
        QCOMPARE(names(), QStringList{u"Anna N"_s});
    }

    void theOrderFollowsTheChosenWord_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("family") << u"Nachname"_s
                                << QStringList{u"B A"_s, u"D A"_s, u"A B"_s, u"C C"_s, u"E Y"_s, u"E Z"_s};
        QTest::newRow("first") << u"Vorname"_s
                               << QStringList{u"A B"_s, u"B A"_s, u"C C"_s, u"D A"_s, u"E Y"_s, u"E Z"_s};
        QTest::newRow("class") << u"Klasse"_s
                               << QStringList{u"C C"_s, u"B A"_s, u"A B"_s, u"D A"_s, u"E Y"_s, u"E Z"_s};
        QTest::newRow("grade") << u"Schulstufe"_s
                               << QStringList{u"C C"_s, u"D A"_s, u"B A"_s, u"A B"_s, u"E Y"_s, u"E Z"_s};
    }
    void theOrderFollowsTheChosenWord() {
        QFETCH(const QString, word);
        useChoir();
        const FieldValues choir{{u"GR3_MO"_s, kChoir}};
        addPupil(u"B"_s, u"A"_s, u"3a"_s, choir);
        addPupil(u"A"_s, u"B"_s, u"3a"_s, choir);
        addPupil(u"C"_s, u"C"_s, u"1a"_s, choir);
        addPupil(u"A"_s, u"D"_s, u"1b"_s, choir);
        // Equal but for the family name, which decides in every order.
        addPupil(u"Z"_s, u"E"_s, u"4b"_s, choir);
        addPupil(u"Y"_s, u"E"_s, u"4b"_s, choir);
        Liste().Arbeitsgruppe.cmbSortierung = word;
        QTEST(names(), "expected");
    }

    void theNoteOfTheMeetingStandsBelowTheName() {
        useChoir();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR5_MO"_s, kChoir}});
        const auto note = [](const QString& tag, const QString& name, const QString& zeit,
                             const QString& text) {
            addAssignmentNote(1, u"GR5"_s, tag, name, zeit, u"CH"_s, text);
        };
        note(u"DI"_s, u"Chor"_s, u"14:00 - 15:00"_s, u"anderer Tag"_s);
        note(u"MO"_s, u"Tanz"_s, u"14:00 - 15:00"_s, u"andere Gruppe"_s);
        note(u"MO"_s, u"Chor"_s, u"15:00 - 16:00"_s, u"andere Zeit"_s);
        note(u"MO"_s, u"Chor"_s, u"14:00 - 15:00"_s, u"geht um drei"_s);
        note(u"MO"_s, u"Chor"_s, u"14:00 - 15:00"_s, u"zweite"_s);
        QCOMPARE(names(), QStringList{u"Anna N<br /><i>geht um drei</i>"_s});
    }

    void aClassThatStaysAwayOnDateThreePrintsDashesOnlyInThatColumn() {
        useChoir();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR3_MO"_s, kChoir}});
        addPupil(u"N"_s, u"Berta"_s, u"3b"_s, {{u"GR3_MO"_s, kChoir}});
        Liste().Arbeitsgruppe.lstNichtTeilnehmen[2] = {u"1a"_s, u"2a"_s};
        QCOMPARE(gathered(kListeArbeitsgruppe).mid(1, 2),
                 QStringList(
                     {u"1: Anna N | 2a |  |  | ------ |  |  | "_s, u"1: Berta N | 3b |  |  |  |  |  | "_s}));
    }

    void moreThanSixteenClassesOnADateOnlyTheFirstSixteenCount() {
        useChoir();
        addPupil(u"N"_s, u"P16"_s, u"16a"_s, {{u"GR3_MO"_s, kChoir}});
        addPupil(u"N"_s, u"P17"_s, u"17a"_s, {{u"GR3_MO"_s, kChoir}});
        for (int i = 1; i <= 17; ++i)
            Liste().Arbeitsgruppe.lstNichtTeilnehmen[0] << u"%1a"_s.arg(i);
        QCOMPARE(gathered(kListeArbeitsgruppe).mid(1, 2),
                 QStringList(
                     {u"1: P16 N | 16a | ------ |  |  |  |  | "_s, u"1: P17 N | 17a |  |  |  |  |  | "_s}));
    }

    void aDateHasRoomForNinetyNineClasses() {
        useChoir();
        for (int i = 1; i <= 99; ++i)
            Liste().Arbeitsgruppe.lstNichtTeilnehmen[5] << u"%1a"_s.arg(i);
        QCOMPARE(failure(), 0);
        Liste().Arbeitsgruppe.lstNichtTeilnehmen[5] << u"1b"_s;
        QCOMPARE(failure(), 9);
    }

    void aPupilWithoutAClassLetterIsNeverAway() {
        useChoir();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR3_MO"_s, kChoir}, {u"Kl_Nr"_s, u""_s}});
        Liste().Arbeitsgruppe.lstNichtTeilnehmen[0] = {u"2a"_s};
        QCOMPARE(gathered(kListeArbeitsgruppe).value(1), u"1: Anna N | 2a |  |  |  |  |  | "_s);
    }

    void noGroupChosenGivesAnEmptyList() {
        useChoir();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR3_MO"_s, u""_s}});
        Liste().Arbeitsgruppe = {};
        const QStringList body = produced(kListeArbeitsgruppe);
        QCOMPARE(Liste().ZeilenAnzahl, 2);
        QCOMPARE(Liste().AnzahlAG, 0);
        QVERIFY(body.contains(u"<TD width=60%><b>0<b/></TD>"_s));
    }

    void theListHoldsNineHundredNinetyNineRows() {
        useChoir();
        {
            const DbSession session(u"Test"_s);
            Transaction transaction(Global().Conn);
            for (int i = 0; i < 997; ++i)
                Global().Conn.AddNew(u"Stammdaten"_s).Set(u"aktiv"_s, true).Set(u"GR3_MO"_s, kChoir).Update();
            transaction.Commit();
        }
        QCOMPARE(failure(), 0);
        QCOMPARE(Liste().ZeilenAnzahl, 999);
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR3_MO"_s, kChoir}});
        QCOMPARE(failure(), 9);
    }

    void theWholeBody() {
        useChoir();
        GroupOptions& options = Liste().Arbeitsgruppe;
        options.txtBetreuer = u"Frau Lenz"_s;
        options.txtOrt = u"Aula"_s;
        options.txtDatum = {u"14.09.2026"_s, u"21.09.2026"_s, u"Ferien"_s};
        options.texte = {u"{\\rtf1 Noten \\i mitbringen}"_s, QString()};
        options.lstNichtTeilnehmen[1] = {u"2a"_s};
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR3_MO"_s, kChoir}});
        const auto headLine = [](const QString& label, const QString& value) {
            return QStringList{u"<TR class=\"ArbeitsgruppeKopf\">"_s,
                               u"<TD width=10%>"_s + label + u"</TD>"_s,
                               u"<TD width=60%><b>"_s + value + u"<b/></TD>"_s, u"</TR>"_s};
        };
        const auto meeting = [](const QString& text) {
            return u"<TD WIDTH=38pt ALIGN=left>"_s + text + u"</TD>"_s;
        };
        QStringList expected{u"<BODY>"_s,
                             u"<div id=\"kopf_anschrift\">"_s,
                             u"</div>"_s,
                             u"<div id=\"kopf_mitte\">"_s,
                             u"<h1>Chor</h1>"_s,
                             u"</div>"_s,
                             u"<div id='box_table'>"_s,
                             u"<TABLE class=\"AG\">"_s};
        expected << headLine(u"Betreuung:"_s, u"Frau Lenz"_s) << headLine(u"Ort:"_s, u"Aula"_s)
                 << headLine(u"Tag / Zeit:"_s, u"MO 14:00 - 15:00"_s) << headLine(u"Anzahl:"_s, u"1"_s);
        expected << u"</TABLE>"_s << u"<div class='anmerkung_vorher'>"_s << u"Noten <i>mitbringen</i>"_s
                 << u"</div>"_s << u"<TABLE class=\"Tpt\">"_s << u"<TR class=\"KopfZeile_ME_LZ_AG\">"_s
                 << u"<TD WIDTH=190pt ALIGN=left>NAME</TD>"_s << u"<TD WIDTH=95pt ALIGN=left>KLASSE</TD>"_s
                 << u"<TD COLSPAN=6>ANWESENHEIT</TD>"_s << u"</TR>"_s
                 << u"<TR class=\"KopfZeile_ME_LZ_AG\">"_s << u"<TD COLSPAN=2>&nbsp;</TD>"_s
                 << meeting(u"14.09.26"_s) << meeting(u"21.09.26"_s) << meeting(u"Ferien"_s) << meeting({})
                 << meeting({}) << meeting({}) << u"</TR>"_s << u"<TR class=\"ME_LZ_AG_Daten1\">"_s
                 << u"<TD WIDTH=190pt ALIGN=center><b>Anna N</b></TD>"_s
                 << u"<TD WIDTH=95pt ALIGN=left>2a</TD>"_s << meeting({}) << meeting(u"------"_s)
                 << meeting({}) << meeting({}) << meeting({}) << meeting({}) << u"</TR>"_s << u"</TABLE>"_s
                 << u"<div class='anmerkung_nachher'>"_s << QString() << u"</div>"_s << u"</div>"_s
                 << u"</BODY>"_s << u"</HTML>"_s << QString();
        QCOMPARE(produced(kListeArbeitsgruppe), expected);
    }

    void theStripesAlternate() {
        useChoir();
        for (const auto& name : {u"A"_s, u"B"_s, u"C"_s})
            addPupil(name, name, u"2a"_s, {{u"GR3_MO"_s, kChoir}});
        QCOMPARE(rowClasses(produced(kListeArbeitsgruppe)).filter(u"Daten"_s),
                 QStringList({u"ME_LZ_AG_Daten1"_s, u"ME_LZ_AG_Daten2"_s, u"ME_LZ_AG_Daten1"_s}));
    }
};

KOLIBRI_TEST_MAIN(GroupListTest)
#include "group_list_test.moc"
