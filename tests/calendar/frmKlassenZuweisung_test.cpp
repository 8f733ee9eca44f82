#include "calendar/frmKlassenZuweisung.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/expected_state.h"
#include "support/test_base.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kQuestion = u"Wollen Sie die Daten wirklich übergeben?"_s;
const QString kDone = u"Die Daten wurden übergeben."_s;
const QString kMe1 = u"13:00 - 13:45 ME1"_s;
const QString kMe2 = u"12:00 - 12:45 ME2"_s;

} // namespace

class FrmKlassenZuweisungTest : public TestBase {
    Q_OBJECT

private:
    static FormWindow& openForm(const QString& mode) {
        auto& form = Form<frmKlassenZuweisung>();
        form.hide();
        form.Tag = mode;
        if (!shown(form))
            qFatal("the form is not active");
        return form;
    }

    static QComboBox& combo(FormWindow& form, const QString& name) { return control<QComboBox>(form, name); }
    static QStringList entries(FormWindow& form, const QString& name) { return entriesOf(combo(form, name)); }

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        for (const auto& day : {u"MO"_s, u"DI"_s})
            addRow(u"GR1"_s, {{u"Zeit"_s, u"13:00 - 13:45"_s}, {u"K_Name"_s, u"ME1"_s}, {u"Tag"_s, day}});
        addRow(u"GR1"_s, {{u"Zeit"_s, u"12:00 - 12:45"_s}, {u"K_Name"_s, u"ME2"_s}, {u"Tag"_s, u"DI"_s}});
        for (const auto& klasse : {u"3a"_s, u"1b"_s, u"3a"_s})
            addRow(u"Stammdaten"_s,
                   {{u"SCH_Name"_s, u"Kind"_s}, {u"Klasse"_s, klasse}, {u"GR1_DO"_s, u"bisher"_s}});
    }

    void eachModeSaysWhatItGives_data() {
        QTest::addColumn<QString>("hint");
        QTest::addColumn<QString>("frame");
        QTest::addColumn<QString>("title");
        QTest::newRow("Mensa") << u"Weisen Sie hier einer Klasse eine bestimmte Mensa-Einheit zu!\r\n"
                                  "Es werden nur Klassen mit Schülern/Schülerinnen aufgelistet."_s
                               << u"MENSA"_s << u"MENSA an Klasse zuordnen"_s;
        QTest::newRow("Lernzeit") << u"Weisen Sie hier einer Klasse eine bestimmte Lernzeiten-Einheit zu!"_s
                                  << u"LERNZEIT"_s << u"LERNZEIT an Klasse zuordnen"_s;
        // The frame lacks a letter, as it always has.
        QTest::newRow("Arbeitsgruppe")
            << u"Weisen Sie hier einer Klasse eine bestimmte Arbeitsgruppen-Einheit zu!"_s
            << u"ARBEITSGRUPE"_s << u"ARBEITSGRUPPE an Klasse zuordnen"_s;
    }

    void eachModeSaysWhatItGives() {
        QFETCH(const QString, hint);
        QFETCH(const QString, frame);
        QFETCH(const QString, title);
        const QString mode = QString::fromUtf8(QTest::currentDataTag());
        // The form was open in another mode.
        openForm(mode == u"Mensa"_s ? u"Lernzeit"_s : u"Mensa"_s);
        auto& form = openForm(mode);
        QCOMPARE(control<QLabel>(form, u"lblKlassenZuweisungText"_s).text(), hint);
        QCOMPARE(control<QGroupBox>(form, u"frmEinheit"_s).title(), frame);
        QCOMPARE(control<QGroupBox>(form, u"frmKlasse"_s).title(), u"KLASSE"_s);
        QCOMPARE(control<QPushButton>(form, u"comBeenden"_s).text(), u"BEENDEN"_s);
        const ExpectedState before;
        doorsOfTest.expect(kQuestion, kAnswerNo);
        press(form);
        QCOMPARE(doorsOfTest.boxes().back().title, title);
        QCOMPARE(doorsOfTest.boxes().back().code, 36);
        COMPARE_STATE(before);
    }

    void theBoxesAreFilledAndTheFirstDayIsChosen() {
        auto& form = openForm(u"Mensa"_s);
        QCOMPARE(entries(form, u"cmbKlasse"_s), QStringList({u"1b"_s, u"3a"_s}));
        QCOMPARE(combo(form, u"cmbKlasse"_s).currentIndex(), -1);
        QCOMPARE(entries(form, u"cmbEinheitTag"_s),
                 QStringList({u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s, u"SA"_s}));
        QCOMPARE(combo(form, u"cmbEinheitTag"_s).currentText(), u"MO"_s);
        QCOMPARE(entries(form, u"cmbEinheit"_s), QStringList{kMe1});
        QCOMPARE(combo(form, u"cmbEinheit"_s).currentText(), kMe1);
    }

    void anotherDayShowsItsOfferings() {
        auto& form = openForm(u"Mensa"_s);
        combo(form, u"cmbEinheitTag"_s).setCurrentText(u"DI"_s);
        QCOMPARE(entries(form, u"cmbEinheit"_s), QStringList({kMe1, kMe2}));
        QCOMPARE(combo(form, u"cmbEinheit"_s).currentText(), kMe1);
        combo(form, u"cmbEinheitTag"_s).setCurrentText(u"MI"_s);
        QCOMPARE(entries(form, u"cmbEinheit"_s), QStringList());
    }

    void yesGivesTheOfferingToTheClassAndSaysSo() {
        auto& form = openForm(u"Mensa"_s);
        combo(form, u"cmbEinheitTag"_s).setCurrentText(u"DI"_s);
        combo(form, u"cmbEinheit"_s).setCurrentText(kMe2);
        combo(form, u"cmbKlasse"_s).setCurrentText(u"3a"_s);
        ExpectedState expected;
        doorsOfTest.expect(kQuestion, kAnswerYes);
        doorsOfTest.expect(kDone);
        press(form);
        for (const int pupil : {1, 3})
            expected.change(u"Stammdaten"_s, pupil, {{u"GR1_DI"_s, kMe2}});
        COMPARE_STATE(expected);
        QCOMPARE(doorsOfTest.boxes().back().code, 0);
        QVERIFY(form.isVisible());
    }

    void aDayWithoutOfferingsEmptiesTheCellsOfTheClass() {
        auto& form = openForm(u"Mensa"_s);
        combo(form, u"cmbEinheitTag"_s).setCurrentText(u"DO"_s);
        combo(form, u"cmbKlasse"_s).setCurrentText(u"3a"_s);
        doorsOfTest.expect(kQuestion, kAnswerYes);
        doorsOfTest.expect(kDone);
        press(form);
        QCOMPARE(columnOf(u"Stammdaten"_s, u"GR1_DO"_s), QStringList({u""_s, u"bisher"_s, u""_s}));
    }

    /// Pupils have no cell for a Saturday; the store refuses it and nothing more is said.
    void aSaturdayEndsWithoutAMessage() {
        auto& form = openForm(u"Arbeitsgruppe"_s);
        combo(form, u"cmbEinheitTag"_s).setCurrentText(u"SA"_s);
        combo(form, u"cmbKlasse"_s).setCurrentText(u"3a"_s);
        const ExpectedState before;
        doorsOfTest.expect(kQuestion, kAnswerYes);
        press(form);
        COMPARE_STATE(before);
        QVERIFY(form.isVisible());
    }

    void theBoxesAreFilledAnewAtEachOpening() {
        combo(openForm(u"Mensa"_s), u"cmbKlasse"_s).setCurrentText(u"3a"_s);
        addRow(u"Stammdaten"_s, {{u"SCH_Name"_s, u"Kind"_s}, {u"Klasse"_s, u"2c"_s}});
        auto& form = openForm(u"Lernzeit"_s);
        QCOMPARE(entries(form, u"cmbKlasse"_s), QStringList({u"1b"_s, u"2c"_s, u"3a"_s}));
        QCOMPARE(combo(form, u"cmbKlasse"_s).currentIndex(), -1);
        QCOMPARE(entries(form, u"cmbEinheit"_s), QStringList());
    }

    void tabGoesThroughTheBoxesToTheButtons() {
        auto& form = openForm(u"Mensa"_s);
        QStringList order{form.focusWidget()->objectName()};
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
            order << form.focusWidget()->objectName();
        }
        QCOMPARE(order, QStringList({u"cmbEinheitTag"_s, u"cmbEinheit"_s, u"cmbKlasse"_s, u"cmdOK"_s,
                                     u"comBeenden"_s}));
    }
};

KOLIBRI_TEST_MAIN(FrmKlassenZuweisungTest)
#include "frmKlassenZuweisung_test.moc"
