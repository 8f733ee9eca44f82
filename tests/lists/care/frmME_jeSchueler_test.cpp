#include "core/widgets/application.h"
#include "lists/care/frmME_Individuell.h"
#include "lists/care/frmME_jeSchueler.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "support/driving.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kFrueh = u"13:00 - 14:00 ME1"_s;
const QString kSpaet = u"14:00 - 14:30 ME2"_s;

template <class T> FormWindow& form() {
    {
        const DbSession session(u"Test"_s);
        KlassenListenLaden();
    }
    auto& result = Form<T>();
    if (!shown(result))
        qFatal("the form is not active");
    return result;
}

QStringList headings() {
    return bodyLines().filter(u"<H1>"_s);
}

} // namespace

/// The two forms of the Mensa lists by pupil; they share the box "Mensa mit Zeitangabe".
class FrmMeJeSchuelerTest : public TestBase {
    Q_OBJECT

private:
    void useSchool() {
        useEmptyDatabase();
        Global().NameKurz.fill(u"Ungekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        for (const auto& klasse : {u"1a"_s, u"1b"_s, u"2a"_s})
            addRow(u"Klassen"_s, {{u"Klasse"_s, klasse}, {u"Tag"_s, u"MO"_s}});
        for (const auto& tag : {u"MO"_s, u"DI"_s})
            addOffering(u"GR1"_s, u"Mensa früh"_s, u"ME1"_s, tag, u"13:00 - 14:00"_s);
        addOffering(u"GR1"_s, u"Mensa früh"_s, u"ME2"_s, u"MO"_s, u"14:00 - 14:30"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}, {u"GR1_DI"_s, kFrueh}});
        addPupil(u"Bär"_s, u"Ben"_s, u"1b"_s, {{u"GR1_DI"_s, kFrueh}, {u"aktiv"_s, false}});
        addPupil(u"Cohn"_s, u"Can"_s, u"1a"_s);
        addPupil(u"Dorn"_s, u"Dana"_s, u"1a"_s, {{u"GR1_MO"_s, kSpaet}});
    }

private Q_SLOTS:
    void theFormHasItsCaptionsAndTheClassesInCapitals() {
        useSchool();
        auto& window = form<frmME_jeSchüler>();
        QCOMPARE(window.windowTitle(), u"MENSA je Schüler"_s);
        QStringList titles;
        for (const auto* frame : window.findChildren<QGroupBox*>())
            titles << frame->title();
        QVERIFY(titles.contains(u"KLASSEN AUSWÄHLEN"_s));
        QCOMPARE(control<QCheckBox>(window, u"chkKlassen_Y_N"_s).text().remove(u'&'),
                 u"Aktivieren/Deaktivieren"_s);
        QCOMPARE(control<QCheckBox>(window, u"chkMensaMitZeit"_s).text().remove(u'&'),
                 u"Mensa mit Zeitangabe"_s);
        QCOMPARE(control<QPushButton>(window, u"cmdBeenden"_s).text(), u"BEENDEN"_s);
        auto& classes = control<QListWidget>(window, u"lstKlassen"_s);
        press(window, u"chkKlassen_Y_N"_s);
        QCOMPARE(selectedOf(classes), QStringList({u"1A"_s, u"1B"_s, u"2A"_s}));
        press(window, u"chkKlassen_Y_N"_s);
        QVERIFY(selectedOf(classes).isEmpty());
    }

    void noClassSelectedGivesTheMessageAndNoList() {
        useSchool();
        auto& window = form<frmME_jeSchüler>();
        doorsOfTest.expect(u"Keine Klasse gewählt!"_s);
        press(window);
        QVERIFY(doorsOfTest.pages().empty());
        QVERIFY(window.isVisible());
    }

    void theChosenClassesStandOnThePageInTheirOrder() {
        useSchool();
        auto& window = form<frmME_jeSchüler>();
        auto& classes = control<QListWidget>(window, u"lstKlassen"_s);
        clickEntry(classes, u"1B"_s);
        clickEntry(classes, u"1A"_s);
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kMensaJeSchueler});
        QCOMPARE(headings(),
                 QStringList({u"<H1>MENSA - KLASSE: 1A</H1><br>"_s, u"<H1>MENSA - KLASSE: 1B</H1><br>"_s}));
        QVERIFY(bodyLines().filter(u"Can Cohn"_s).isEmpty());
        // Who is deactivated still eats until somebody empties the cell.
        QCOMPARE(bodyLines().filter(u"Ben Bär"_s).size(), 1);
        QCOMPARE(selectedOf(classes), QStringList({u"1A"_s, u"1B"_s}));
    }

    void theFridayColumnFollowsTheSchool() {
        useSchool();
        auto& window = form<frmME_jeSchüler>();
        press(window, u"chkKlassen_Y_N"_s);
        press(window);
        QVERIFY(bodyLines().filter(u">FR</TD>"_s).isEmpty());
        addPupil(u"Ernst"_s, u"Eda"_s, u"9z"_s, {{u"GR1_FR"_s, kFrueh}});
        press(window);
        QCOMPARE(bodyLines().filter(u">FR</TD>"_s).size(), 3);
    }

    void sixtyClassesFitOnAPageAndNoMore() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Transaction transaction(Global().Conn);
            for (int grade = 1; grade <= 60; ++grade)
                Global().Conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, u"%1a"_s.arg(grade)).Update();
            transaction.Commit();
        }
        auto& window = form<frmME_jeSchüler>();
        press(window, u"chkKlassen_Y_N"_s);
        press(window);
        QCOMPARE(headings().size(), 60);
        window.hide();
        addRow(u"Klassen"_s, {{u"Klasse"_s, u"61a"_s}});
        form<frmME_jeSchüler>();
        press(window, u"chkKlassen_Y_N"_s);
        press(window, u"chkKlassen_Y_N"_s);
        doorsOfTest.expectBeginning(u"Laufzeitfehler '9'"_s);
        press(window);
        QCOMPARE(doorsOfTest.pages().size(), std::size_t(1));
        // The page of before stands untouched.
        QCOMPARE(headings().size(), 60);
    }

    void withTimeACellShowsTheTimeAboveTheName() {
        useSchool();
        auto& window = form<frmME_jeSchüler>();
        press(window, u"chkKlassen_Y_N"_s);
        press(window, u"chkMensaMitZeit"_s);
        press(window);
        QCOMPARE(bodyLines().filter(u">13:00-14:00<br /> ME1</TD>"_s).size(), 3);
    }

    void theChoiceOfOneMensaHasItsCaptions() {
        useSchool();
        auto& window = form<frmME_Individuell>();
        QCOMPARE(window.windowTitle(), u"MENSA INDIVIDUELL"_s);
        QStringList titles;
        for (const auto* frame : window.findChildren<QGroupBox*>())
            titles << frame->title();
        titles.sort();
        QCOMPARE(titles, QStringList({u"KLASSE"_s, u"MENSA"_s, u"TAG"_s}));
        QStringList days;
        for (int i = 0; i <= 5; ++i)
            days << control<QRadioButton>(window, u"optTag(%1)"_s.arg(i)).text().remove(u'&');
        QCOMPARE(days, QStringList({u"MONTAG"_s, u"DIENSTAG"_s, u"MITTWOCH"_s, u"DONNERSTAG"_s, u"FREITAG"_s,
                                    u"MONTAG - FREITAG"_s}));
        // A long name with two times stands there twice.
        QCOMPARE(entriesOf(control<QComboBox>(window, u"cmbMensa"_s)),
                 QStringList({u"Mensa früh"_s, u"Mensa früh"_s}));
        QCOMPARE(control<QListWidget>(window, u"lstKlassen"_s).item(2)->text(), u"2A"_s);
    }

    void theWeekOfOneMensa() {
        useSchool();
        auto& window = form<frmME_Individuell>();
        auto& classes = control<QListWidget>(window, u"lstKlassen"_s);
        clickEntry(classes, u"1A"_s);
        clickEntry(classes, u"1B"_s);
        control<QRadioButton>(window, u"optTag(5)"_s).click();
        control<QComboBox>(window, u"cmbMensa"_s).setCurrentIndex(1);
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kMensaWoche});
        QCOMPARE(headings(), QStringList{u"<H1>MENSA FRÜH</H1><br>"_s});
        QVERIFY(!bodyLines().filter(u"Anna Abel"_s).isEmpty());
        QVERIFY(!bodyLines().filter(u"Ben Bär"_s).isEmpty());
        // Only the first time of the name is listed, also where the second was chosen.
        QVERIFY(bodyLines().filter(u"Dana Dorn"_s).isEmpty());
        QCOMPARE(control<QComboBox>(window, u"cmbMensa"_s).currentIndex(), 1);
    }

    void oneMensaOnOneDay() {
        useSchool();
        auto& window = form<frmME_Individuell>();
        auto& classes = control<QListWidget>(window, u"lstKlassen"_s);
        clickEntry(classes, u"1A"_s);
        clickEntry(classes, u"1B"_s);
        control<QRadioButton>(window, u"optTag(1)"_s).click();
        control<QComboBox>(window, u"cmbMensa"_s).setCurrentIndex(0);
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kMensaTag});
        QCOMPARE(headings(), QStringList{u"<H1>MENSA FRÜH - DI</H1><br>"_s});
        QCOMPARE(bodyLines().filter(u">ME1</TD>"_s).size(), 2);
    }

    void withoutAMensaTheOfficeIsTold() {
        useSchool();
        auto& window = form<frmME_Individuell>();
        doorsOfTest.expect(u"Kein Kurzname für die Mensa gefunden!"_s);
        press(window);
        QVERIFY(headings().isEmpty());
    }

    void withoutAClassTheListIsEmpty() {
        useSchool();
        auto& window = form<frmME_Individuell>();
        control<QComboBox>(window, u"cmbMensa"_s).setCurrentIndex(0);
        press(window);
        QCOMPARE(headings(), QStringList{u"<H1>MENSA FRÜH - MO</H1><br>"_s});
        QVERIFY(bodyLines().filter(u"Liste_MensaJeSchülerM"_s).isEmpty());
    }

    // The box stands in the other form only; its state counts even if no list was made there.
    void theTimesFollowTheBoxOfTheOtherForm() {
        useSchool();
        auto& window = form<frmME_Individuell>();
        clickEntry(control<QListWidget>(window, u"lstKlassen"_s), u"1A"_s);
        control<QComboBox>(window, u"cmbMensa"_s).setCurrentIndex(0);
        press(window);
        QCOMPARE(bodyLines().filter(u">ME1</TD>"_s).size(), 1);
        window.hide();
        auto& other = form<frmME_jeSchüler>();
        press(other, u"chkMensaMitZeit"_s);
        other.hide();
        press(form<frmME_Individuell>());
        QCOMPARE(bodyLines().filter(u">13:00-14:00<br /> ME1</TD>"_s).size(), 1);
    }
};

KOLIBRI_TEST_MAIN(FrmMeJeSchuelerTest)
#include "frmME_jeSchueler_test.moc"
