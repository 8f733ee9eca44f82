#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "core/widgets/rich_text_box.h"
#include "lists/groups/frmAG_Anzeigen.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "support/driving.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kChoir = u"14:00 - 15:00 CH"_s;
const QString kChoirMonday = u"Chor, MO, "_s + kChoir;
const QString kChoirFriday = u"Chor, FR, "_s + kChoir;
const QString kBallet = u"Ballett, DI, 15:00 - 16:00 BA"_s;

FormWindow& form() {
    {
        const DbSession session(u"Test"_s);
        KlassenListenLaden();
    }
    auto& result = Form<frmAG_Anzeigen>();
    if (!shown(result))
        qFatal("the form is not active");
    return result;
}

QString dateBox(int i) {
    return u"txtDatum(%1)"_s.arg(i);
}

QStringList dates(const QWidget& window) {
    QStringList result;
    for (int i = 0; i < kMeetings; ++i)
        result << textOf(window, dateBox(i));
    return result;
}

QListWidget& absence(const QWidget& window, int i) {
    return control<QListWidget>(window, u"lstNichtTeilnehmen(%1)"_s.arg(i));
}

/// The six attendance cells of a pupil on the page.
QStringList attendance(const QString& name) {
    const QStringList lines = bodyLines();
    const auto found =
        std::find_if(lines.begin(), lines.end(), [&](const QString& line) { return line.contains(name); });
    QStringList cells;
    for (qsizetype line = found - lines.begin() + 2; line < lines.size() && cells.size() < kMeetings; ++line)
        cells << lines[line].section(u'>', 1).section(u'<', 0, 0);
    return cells;
}

} // namespace

class FrmAgAnzeigenTest : public TestBase {
    Q_OBJECT

private:
    void useSchool() {
        useEmptyDatabase();
        Global().NameKurz.fill(u"Ungekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        for (const auto& klasse : {u"1a"_s, u"1b"_s, u"2a"_s})
            addRow(u"Klassen"_s, {{u"Klasse"_s, klasse}, {u"Tag"_s, u"MO"_s}});
        addGroup(u"Chor"_s, u"CH"_s, u"MO"_s, u"14:00 - 15:00"_s, {},
                 {{u"Betreuer"_s, u"Frau Lenz"_s}, {u"Ort"_s, u"Aula"_s}});
        addGroup(u"Chor"_s, u"CH"_s, u"FR"_s, u"14:00 - 15:00"_s, {}, {{u"Ort"_s, u"Musikraum"_s}});
        addGroup(u"Ballett"_s, u"BA"_s, u"DI"_s, u"15:00 - 16:00"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s, {{u"GR3_MO"_s, kChoir}, {u"GR5_MO"_s, kChoir}});
        addPupil(u"Bär"_s, u"Ben"_s, u"2a"_s, {{u"GR7_MO"_s, kChoir}});
        addPupil(u"Cohn"_s, u"Aaron"_s, u"1b"_s, {{u"GR4_MO"_s, kChoir}});
    }

    void addDates(int id, const QString& group, const QStringList& values) {
        FieldValues fields{{u"ID"_s, id}};
        if (!group.isEmpty())
            fields.push_back({u"AG"_s, group});
        for (int i = 0; i < values.size(); ++i)
            fields.push_back({u"Datum%1"_s.arg(i + 1), values[i]});
        addRow(u"Liste_AG"_s, fields);
    }

private Q_SLOTS:
    void theFormHasItsCaptionsAndEntries() {
        useSchool();
        auto& window = form();
        QCOMPARE(window.windowTitle(), u"LISTE ARBEITSGRUPPE"_s);
        QCOMPARE(control<QGroupBox>(window, u"frmMO1WO"_s).title(), u"DATUM MONTAG 1. WO"_s);
        QCOMPARE(control<QGroupBox>(window, u"frmNichtTeilnehmen"_s).title(), u"NICHT TEILNEHMEN"_s);
        QCOMPARE(control<QGroupBox>(window, u"frmSortierung"_s).title(), u"SORTIERUNG"_s);
        QCOMPARE(entriesOf(control<QComboBox>(window, u"cmbSortierung"_s)),
                 QStringList({u"Nachname"_s, u"Vorname"_s, u"Klasse"_s, u"Schulstufe"_s}));
        QCOMPARE(entriesOf(control<QComboBox>(window, u"cmbAG"_s)),
                 QStringList({kBallet, kChoirMonday, kChoirFriday}));
        QCOMPARE(control<QComboBox>(window, u"cmbAG"_s).currentIndex(), -1);
        QCOMPARE(absence(window, 5).count(), 3);
        QVERIFY(!window.findChild<QWidget*>(u"imgAuswahlToRight(5)"_s));
    }

    void theChosenGroupFillsItsFields() {
        useSchool();
        addRow(u"ME_LZ_AG_Notizen"_s, {{u"Typ"_s, u"Arbeitsgruppe"_s},
                                       {u"L_Name"_s, u"Chor"_s},
                                       {u"Anmerkung_V"_s, u"vorher"_s},
                                       {u"Anmerkung_N"_s, u"nachher"_s}});
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        QCOMPARE(textOf(window, u"txtBetreuer"_s), u"Frau Lenz"_s);
        QCOMPARE(textOf(window, u"txtOrt"_s), u"Aula"_s);
        QCOMPARE(textOf(window, u"txtTag"_s), u"MO"_s);
        QCOMPARE(textOf(window, u"txtZeit"_s), u"14:00 - 15:00"_s);
        QCOMPARE(textOf(window, u"txtK_Name"_s), u"CH"_s);
        QCOMPARE(textOf(window, u"txtZeit_K_Name"_s), kChoir);
        QCOMPARE(control<QTextEdit>(window, u"rtfVorher"_s).toPlainText(), u"vorher"_s);
        QCOMPARE(control<QTextEdit>(window, u"rtfNachher"_s).toPlainText(), u"nachher"_s);
        chooseEntry(window, u"cmbAG"_s, kChoirFriday);
        QCOMPARE(textOf(window, u"txtOrt"_s), u"Musikraum"_s);
        QCOMPARE(textOf(window, u"txtBetreuer"_s), QString());
        chooseEntry(window, u"cmbAG"_s, kBallet);
        QCOMPARE(control<QTextEdit>(window, u"rtfVorher"_s).toPlainText(), QString());
    }

    void theDatesAreThoseOfTheGroupElseThoseUsedLast() {
        useSchool();
        const QStringList last{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s};
        const QStringList own{u"a"_s, u"b"_s, QString(), QString(), QString(), QString()};
        addDates(1, {}, last);
        addDates(3, u"Chor"_s, own);
        auto& window = form();
        QCOMPARE(dates(window), last);
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        QCOMPARE(dates(window), own);
        chooseEntry(window, u"cmbAG"_s, kBallet);
        QCOMPARE(dates(window), last);
    }

    void theFirstMondayGivesTheDatesOfTheWeekday() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirFriday);
        type(window, u"txtMO1WO"_s, u"14.09.2026"_s);
        press(window, u"cmdOK_MO1WO"_s);
        QCOMPARE(dates(window), QStringList({u"18.09.2026"_s, u"25.09.2026"_s, u"02.10.2026"_s,
                                             u"09.10.2026"_s, u"16.10.2026"_s, u"23.10.2026"_s}));
        QCOMPARE(columnOf(u"Liste_AG"_s, u"ID"_s), QStringList{u"2"_s});
        QCOMPARE(columnOf(u"Liste_AG"_s, u"Datum1"_s), QStringList{u"14.09.2026"_s});
    }

    void theBoxOfTheFirstMondayTakesTheDatesFromTheKeptOne() {
        useSchool();
        addDates(2, {}, {u"14.09.2026"_s});
        addDates(3, u"Ballett"_s, {u"01.01.2027"_s});
        auto& window = form();
        press(window, u"chkMO1WO"_s);
        QCOMPARE(textOf(window, u"txtMO1WO"_s), u"14.09.2026"_s);
        chooseEntry(window, u"cmbAG"_s, kBallet);
        QCOMPARE(textOf(window, dateBox(0)), u"15.09.2026"_s);
        chooseEntry(window, u"cmbAG"_s, kChoirFriday);
        QCOMPARE(textOf(window, dateBox(5)), u"23.10.2026"_s);
        chooseEntry(window, u"cmbAG"_s, kBallet);
        press(window, u"chkMO1WO"_s);
        QCOMPARE(textOf(window, dateBox(0)), u"01.01.2027"_s);
    }

    void anEmptyMondayLeavesTheDatesAlone() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kBallet);
        type(window, dateBox(0), u"irgendwann"_s);
        press(window, u"cmdOK_MO1WO"_s);
        QCOMPARE(textOf(window, dateBox(0)), u"irgendwann"_s);
    }

    void aMondayThatIsNoDateIsToldAndNotKept() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kBallet);
        type(window, u"txtMO1WO"_s, u"Montag"_s);
        doorsOfTest.expectBeginning(u"Laufzeitfehler '13'"_s);
        press(window, u"cmdOK_MO1WO"_s);
        QVERIFY(rowsOf(u"Liste_AG"_s).isEmpty());
        QCOMPARE(textOf(window, u"txtMO1WO"_s), u"Montag"_s);
    }

    void absenceCanBeChosenOnlyForADateThatStands() {
        useSchool();
        auto& window = form();
        const auto enabled = [&](const QString& name, int i) {
            return control<QWidget>(window, u"%1(%2)"_s.arg(name).arg(i)).isEnabled();
        };
        QCOMPARE(control<QTimer>(window, u"Timer1"_s).interval(), 500);
        QVERIFY(control<QTimer>(window, u"Timer1"_s).isActive());
        for (const auto& name : {u"lstNichtTeilnehmen"_s, u"imgAuswahlAlle"_s, u"imgAuswahlKeine"_s})
            for (int i = 0; i < kMeetings; ++i)
                QVERIFY(!enabled(name, i));
        type(window, dateBox(1), u"21.09.2026"_s);
        type(window, dateBox(2), u"28.09.2026"_s);
        QTRY_VERIFY(enabled(u"lstNichtTeilnehmen"_s, 2));
        for (const auto& name : {u"lstNichtTeilnehmen"_s, u"imgAuswahlAlle"_s, u"imgAuswahlKeine"_s}) {
            QVERIFY(enabled(name, 1));
            QVERIFY(!enabled(name, 0));
            QVERIFY(!enabled(name, 3));
        }
        // The arrow needs both dates.
        QVERIFY(!enabled(u"imgAuswahlToRight"_s, 0));
        QVERIFY(enabled(u"imgAuswahlToRight"_s, 1));
        QVERIFY(!enabled(u"imgAuswahlToRight"_s, 2));
        type(window, dateBox(2), {});
        QTRY_VERIFY(!enabled(u"lstNichtTeilnehmen"_s, 2));
        QVERIFY(!enabled(u"imgAuswahlToRight"_s, 1));
        window.hide();
        QVERIFY(!control<QTimer>(window, u"Timer1"_s).isActive());
    }

    void theImagesChooseAllNoneAndTheNextDate() {
        useSchool();
        addDates(1, {}, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s});
        auto& window = form();
        press(window, u"imgAuswahlAlle(0)"_s);
        QCOMPARE(selectedOf(absence(window, 0)), QStringList({u"1a"_s, u"1b"_s, u"2a"_s}));
        press(window, u"imgAuswahlKeine(0)"_s);
        QVERIFY(selectedOf(absence(window, 0)).isEmpty());
        clickEntry(absence(window, 0), u"1b"_s);
        clickEntry(absence(window, 1), u"2a"_s);
        press(window, u"imgAuswahlToRight(0)"_s);
        QCOMPARE(selectedOf(absence(window, 1)), QStringList{u"1b"_s});
    }

    void aClassSelectedForDateThreePrintsDashesOnlyInThatColumn() {
        useSchool();
        addDates(1, {}, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s});
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        clickEntry(absence(window, 2), u"2a"_s);
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kListeArbeitsgruppe});
        QCOMPARE(attendance(u"Ben Bär"_s),
                 QStringList({QString(), QString(), u"------"_s, QString(), QString(), QString()}));
        QCOMPARE(attendance(u"Anna Abel"_s), QStringList(6, QString()));
    }

    void moreThanSixteenClassesOnADateOnlyTheFirstSixteenCount() {
        useSchool();
        for (char letter = 'a'; letter <= 'n'; ++letter)
            addRow(u"Klassen"_s, {{u"Klasse"_s, u"0"_s + QChar::fromLatin1(letter)}, {u"Tag"_s, u"MO"_s}});
        addDates(1, {}, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s});
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        press(window, u"imgAuswahlAlle(0)"_s);
        // Fourteen classes stand in front of 1a and 1b, which are the last that count.
        QCOMPARE(selectedOf(absence(window, 0)).indexOf(u"2a"_s), 16);
        press(window);
        QCOMPARE(attendance(u"Aaron Cohn"_s).first(), u"------"_s);
        QCOMPARE(attendance(u"Ben Bär"_s).first(), QString());
    }

    void aPupilWithTheGroupInTwoSlotsShowsOnce() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        press(window);
        QCOMPARE(bodyLines().filter(u"Anna Abel"_s).size(), 1);
        QVERIFY(bodyLines().contains(u"<TD width=60%><b>3<b/></TD>"_s));
        QVERIFY(bodyLines().contains(u"<h1>Chor</h1>"_s));
        QVERIFY(bodyLines().contains(u"<TD width=60%><b>MO 14:00 - 15:00<b/></TD>"_s));
    }

    void thePupilsFollowTheChosenOrder() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        chooseEntry(window, u"cmbSortierung"_s, u"Vorname"_s);
        press(window);
        const QString page = bodyLines().join(u'\n');
        QVERIFY(page.indexOf(u"Aaron Cohn"_s) < page.indexOf(u"Anna Abel"_s));
        QCOMPARE(control<QComboBox>(window, u"cmbSortierung"_s).currentText(), u"Vorname"_s);
    }

    void sixDatesArePrintedAndAnEmptyOneGivesAnEmptyHeading() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        type(window, dateBox(0), u"14.09.2026"_s);
        type(window, dateBox(1), u"Ausflug"_s);
        press(window);
        const QStringList lines = bodyLines();
        const qsizetype heading = lines.indexOf(u"<TD COLSPAN=2>&nbsp;</TD>"_s);
        QVERIFY(heading > 0);
        QStringList headings;
        for (int i = 1; i <= kMeetings; ++i)
            headings << lines[heading + i].section(u'>', 1).section(u'<', 0, 0);
        QCOMPARE(headings, QStringList({u"14.09.26"_s, u"Ausflug"_s, {}, {}, {}, {}}));
        QCOMPARE(lines[heading + 7], u"</TR>"_s);
    }

    void okKeepsTextsAndDates() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        type(window, dateBox(0), u"14.09.2026"_s);
        control<QTextEdit>(window, u"rtfVorher"_s).setPlainText(u"Noten mitbringen"_s);
        press(window);
        QVERIFY(bodyLines().contains(u"Noten mitbringen"_s));
        QCOMPARE(columnOf(u"Liste_AG"_s, u"ID"_s), QStringList({u"1"_s, u"3"_s}));
        QCOMPARE(columnOf(u"Liste_AG"_s, u"Datum1"_s), QStringList({u"14.09.2026"_s, u"14.09.2026"_s}));
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"L_Name"_s), QStringList{u"Chor"_s});
        chooseEntry(window, u"cmbAG"_s, kChoirFriday);
        QCOMPARE(control<QTextEdit>(window, u"rtfVorher"_s).toPlainText(), u"Noten mitbringen"_s);
    }

    void noGroupChosenGivesAnEmptyList() {
        useSchool();
        auto& window = form();
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kListeArbeitsgruppe});
        QVERIFY(bodyLines().contains(u"<h1></h1>"_s));
        QVERIFY(bodyLines().filter(u"ME_LZ_AG_Daten"_s).isEmpty());
        QVERIFY(rowsOf(u"ME_LZ_AG_Notizen"_s).isEmpty());
    }

    void theGroupOfTheLastListIsChosenAgainAndItsDatesStay() {
        useSchool();
        addDates(2, {}, {u"14.09.2026"_s});
        auto& window = form();
        press(window, u"chkMO1WO"_s);
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        type(window, dateBox(4), u"19.10.2026"_s);
        press(window);
        window.hide();
        form();
        QCOMPARE(control<QComboBox>(window, u"cmbAG"_s).currentText(), kChoirMonday);
        QCOMPARE(textOf(window, u"txtOrt"_s), u"Aula"_s);
        QCOMPARE(textOf(window, dateBox(4)), u"19.10.2026"_s);
    }

    void anApostropheInAChangedTextIsToldAndNothingElseIsKept() {
        useSchool();
        addRow(u"ME_LZ_AG_Notizen"_s,
               {{u"Typ"_s, u"Arbeitsgruppe"_s}, {u"L_Name"_s, u"Chor"_s}, {u"Anmerkung_V"_s, u"alt"_s}});
        auto& window = form();
        chooseEntry(window, u"cmbAG"_s, kChoirMonday);
        control<QTextEdit>(window, u"rtfVorher"_s).setPlainText(u"Geht's?"_s);
        doorsOfTest.expectBeginning(u"Listentexte speichern: Syntaxfehler"_s);
        press(window);
        QVERIFY(doorsOfTest.pages().empty());
        QVERIFY(rowsOf(u"Liste_AG"_s).isEmpty());
        QCOMPARE(control<QTextEdit>(window, u"rtfVorher"_s).toPlainText(), u"Geht's?"_s);
    }
};

KOLIBRI_TEST_MAIN(FrmAgAnzeigenTest)
#include "frmAG_Anzeigen_test.moc"
