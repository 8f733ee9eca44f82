#include "core/widgets/application.h"
#include "students/edit_guard.h"
#include "students/frmSCH_Notiz.h"
#include "support/pupil_form.h"

#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

/// The pupil form in its modes, its preparation, and the record it shows.
class FrmSchuelerInTest : public PupilFormTest {
    Q_OBJECT

    static bool isOn(frmSchülerIn& form, const QString& name) {
        return control<QCheckBox>(form, name).isChecked();
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        startWithSmallSchool();
    }

    void theModes_data() {
        QTest::addColumn<bool mdlGlobal::*>("mode");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<bool>("lamps");
        QTest::addColumn<bool>("neu");
        QTest::addColumn<bool>("focusOnName");
        QTest::addColumn<int>("entries");
        QTest::newRow("new") << &mdlGlobal::ModusSchuelerNeu << u"NEU"_s << true << true << true << 3;
        QTest::newRow("correct") << &mdlGlobal::ModusSchuelerKorrektur << u"KORREKTUR"_s << true << false
                                 << false << 3;
        QTest::newRow("delete") << &mdlGlobal::ModusSchuelerLoeschen << u"LÖSCHEN"_s << false << false
                                << false << 0;
        QTest::newRow("activate") << &mdlGlobal::ModusSchuelerAktivieren << u"AKTIVIEREN"_s << false << false
                                  << false << 0;
        QTest::newRow("starter new") << &mdlGlobal::ModusSchulanfaengerNeu << u"NEU"_s << true << true << true
                                     << 3;
        QTest::newRow("starter correct")
            << &mdlGlobal::ModusSchulanfaengerKorrektur << u"KORREKTUR"_s << true << false << true << 3;
        QTest::newRow("starter delete")
            << &mdlGlobal::ModusSchulanfaengerLoeschen << u"LÖSCHEN"_s << false << false << true << 3;
    }
    void theModes() {
        QFETCH(bool mdlGlobal::*const, mode);
        QFETCH(const QString, caption);
        QFETCH(const bool, lamps);
        QFETCH(const bool, neu);
        QFETCH(const bool, focusOnName);
        QFETCH(const int, entries);
        auto& form = open(mode);
        QCOMPARE(control<QPushButton>(form, u"cmdOK"_s).text(), caption);
        QVERIFY(control<QLabel>(form, u"lblModus"_s).text().endsWith(caption));
        QCOMPARE(control<QWidget>(form, u"frmAmpel"_s).isVisible(), lamps);
        QCOMPARE(isOn(form, u"chkNeu"_s), neu);
        QCOMPARE(control<QWidget>(form, u"txtSCH(0)"_s).hasFocus(), focusOnName);
        QCOMPARE(box(form, 1, 0).count(), entries);
        for (const auto& name : {u"cmdOK"_s, u"cmdBeenden"_s, u"imgPrinter"_s})
            QVERIFY(control<QWidget>(form, name).isEnabled());
    }

    void chkNeuMayBeClearedAfterThePreparation() {
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        check(form, u"chkNeu"_s);
        QVERIFY(!isOn(form, u"chkNeu"_s));
    }

    void theAdditionalFieldsRestWhereTheSchoolDoesNotUseThem() {
        Global().ZusatzBaustein = true;
        auto& form = openToCorrect();
        for (const auto& [name, used] : {std::pair{u"Schwimmer"_s, false}, std::pair{u"Kennung"_s, false},
                                         std::pair{u"Baustein"_s, true}}) {
            const QString stem = name == u"Schwimmer"_s  ? u"chk"_s
                                 : name == u"Baustein"_s ? u"cmb"_s
                                                         : u"txt"_s;
            QCOMPARE(control<QWidget>(form, stem + name).isEnabled(), used);
            QCOMPARE(control<QLabel>(form, u"lbl"_s + name).isEnabled(), used);
        }
    }

    void theContactLabelsAreReadAtEachPreparation() {
        auto& form = openToCorrect();
        QCOMPARE(control<QLabel>(form, u"lblGV1(6)"_s).text(), u"Mobil"_s);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"Einstellungen"_s, {{u"Bezeichnung"_s, u"Handy"_s}},
                                 u"Feld = ? AND Nummer = 6"_s, {u"Kontakt"_s});
        }
        openToCorrect();
        QCOMPARE(control<QLabel>(form, u"lblGV1(6)"_s).text(), u"Handy"_s);
    }

    void theFeesInUseAreShownUnderTheirNames() {
        auto& form = openToCorrect();
        for (int i = 0; i < 7; ++i) {
            const bool used = i < 2;
            QCOMPARE(control<QWidget>(form, u"txtBeitrag(%1)"_s.arg(i)).isHidden(), !used);
            QCOMPARE(control<QWidget>(form, u"lblBeitrag(%1)"_s.arg(i)).isHidden(), !used);
        }
        QCOMPARE(control<QLabel>(form, u"lblBeitrag(1)"_s).text(), u"Betreuungsbeitrag"_s);
        QVERIFY(!control<QWidget>(form, u"txtBeitrag(7)"_s).isHidden());
    }

    void selectingARowShowsTheWholeRecord() {
        FieldValues values{{u"SCH_Geb"_s, u" 01.02.2015 "_s},
                           {u"Neu"_s, true},
                           {u"NichtOG"_s, false},
                           {u"Schwimmer"_s, u"JA"_s},
                           {u"Kennung"_s, u"K7"_s},
                           {u"Beitrag_0"_s, 12.5},
                           {u"Beitrag_7"_s, 999.99},
                           {u"GR1_MO"_s, u"12:00 - 12:45 ME1"_s},
                           {u"GR7_DI"_s, u"14:00 - 15:00 Chor"_s},
                           {u"PLZ2"_s, u" 01234 "_s},
                           {u"Verwandt3"_s, u"Oma"_s},
                           {u"NotfallRN"_s, u"112"_s},
                           {u"Anmerkung"_s, u"Nüsse"_s}};
        change(2, values);
        auto& form = openToCorrect();
        choose(form, 2);
        const QMap<QString, QString> expected{
            {u"txtSCH(0)"_s, u"Müller"_s},     {u"txtSCH(1)"_s, u"Berta"_s},
            {u"txtSCH(2)"_s, u"01.02.2015"_s}, {u"txtSCH(3)"_s, u"3a"_s},
            {u"txtKennung"_s, u"K7"_s},        {u"txtBeitrag(0)"_s, u"12,50"_s},
            {u"txtBeitrag(1)"_s, QString()},   {u"txtBeitrag(7)"_s, u"999,99"_s},
            {u"txtGV2(3)"_s, u"01234"_s},      {u"txtGV3(9)"_s, u"Oma"_s},
            {u"txtNotfallRN"_s, u"112"_s},     {u"txtU_Beginn(0)"_s, u"08:00"_s},
            {u"txtU_Ende(4)"_s, u"12:00"_s},   {u"txtU_BeginnNM(0)"_s, QString()}};
        for (auto field = expected.begin(); field != expected.end(); ++field)
            QCOMPARE(field.key() + u'=' + textOf(form, field.key()), field.key() + u'=' + field.value());
        QVERIFY(isOn(form, u"chkNeu"_s));
        QVERIFY(isOn(form, u"chkSchwimmer"_s));
        QVERIFY(!isOn(form, u"chkNichtOG"_s));
        QCOMPARE(box(form, 1, 0).currentText(), u"12:00 - 12:45 ME1"_s);
        QCOMPARE(box(form, 7, 1).currentText(), u"14:00 - 15:00 Chor"_s);
        QCOMPARE(box(form, 1, 1).currentText(), QString());
        QCOMPARE(control<QTextEdit>(form, u"rtfAnmerkung"_s).toPlainText(), u"Nüsse"_s);
        QCOMPARE(Global().AktuelleSchuelerID, 2);
    }

    void selectingReadsTheKeyboardToo() {
        auto& form = openToCorrect();
        auto& list = listOf(form);
        choose(form, 1);
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Müller"_s);
    }

    void aColumnMissingFromAnOldFileLeavesItsControlEmpty() {
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Execute(u"ALTER TABLE Stammdaten DROP COLUMN Kennung"_s);
        }
        auto& form = openToCorrect();
        choose(form, 2);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Müller"_s);
        QCOMPARE(textOf(form, u"txtKennung"_s), QString());
    }

    void nichtOgRestsMensaAndLernzeit() {
        change(2, {{u"NichtOG"_s, true}});
        auto& form = openToCorrect();
        choose(form, 2);
        QVERIFY(!control<QWidget>(form, u"frmGR1"_s).isEnabled());
        QVERIFY(!control<QWidget>(form, u"frmGR2"_s).isEnabled());
        QVERIFY(control<QWidget>(form, u"frmGR3"_s).isEnabled());
        choose(form, 1);
        QVERIFY(control<QWidget>(form, u"frmGR1"_s).isEnabled());
    }

    void theAfternoonTimesOfTheRecordBeforeStayUntilTheNextRead() {
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"Klassen"_s, {{u"UnterrichtsbeginnNM"_s, u"13:30"_s}}, u"Klasse = ?"_s,
                                 {u"3a"_s});
        }
        auto& form = openToCorrect();
        choose(form, 2);
        QCOMPARE(textOf(form, u"txtU_BeginnNM(0)"_s), u"13:30"_s);
        press(form);
        QCOMPARE(textOf(form, u"txtU_Beginn(0)"_s), QString());
        QCOMPARE(textOf(form, u"txtU_BeginnNM(0)"_s), u"13:30"_s);
        choose(form, 3);
        QCOMPARE(textOf(form, u"txtU_BeginnNM(0)"_s), QString());
    }

    void leavingTheClassFetchesTheEndOfTheMorningAlone() {
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        type(form, u"txtSCH(3)"_s, u"3a"_s);
        QTest::keyClick(&control<QWidget>(form, u"txtSCH(3)"_s), Qt::Key_Tab);
        QCOMPARE(textOf(form, u"txtU_Ende(0)"_s), u"12:00"_s);
        QCOMPARE(textOf(form, u"txtU_Beginn(0)"_s), QString());
        type(form, u"txtSCH(3)"_s, u"3A"_s);
        QTest::keyClick(&control<QWidget>(form, u"txtSCH(3)"_s), Qt::Key_Tab);
        QCOMPARE(textOf(form, u"txtU_Ende(0)"_s), u"12:00"_s);
    }

    void gettingTheFocusSelectsTheWholeText() {
        auto& form = openToCorrect();
        choose(form, 2);
        for (const auto& name : {u"txtSCH(0)"_s, u"txtSCH(3)"_s}) {
            auto& field = control<QLineEdit>(form, name);
            field.setFocus();
            QCOMPARE(field.selectedText(), field.text());
        }
    }

    void whatWasTypedStaysWhenTheUserComesBackFromAnotherProgram() {
        auto& form = openToCorrect();
        choose(form, 2);
        type(form, u"txtSCH(1)"_s, u"Neu getippt"_s);
        QWidget other;
        QVERIFY(shown(other));
        QVERIFY(shown(form));
        QCOMPARE(textOf(form, u"txtSCH(1)"_s), u"Neu getippt"_s);
    }

    void comingBackFromAWindowReadsTheRecordAgain() {
        auto& form = openToCorrect();
        change(3, {{u"GR1_MO"_s, u"12:00 - 12:45 ME1"_s}});
        SortierenListView(1, listOf(form), SortKind::Text);
        SortierenListView(1, listOf(form), SortKind::Text);
        choose(form, 3);
        press(form, u"N_GR1(0)"_s);
        QCOMPARE(Global().MarkierteZeile, 1);
        QCOMPARE(Global().NotizTag, u"MO"_s);
        QVERIFY(!Global().NotizBearbeiten);
        type(form, u"txtSCH(1)"_s, u"nicht gespeichert"_s);
        Form<frmSCH_Notiz>().hide();
        // The list is in its own order again, and the record is still the one that was on the screen.
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Zander"_s);
        QCOMPARE(textOf(form, u"txtSCH(1)"_s), u"Carl"_s);
        QCOMPARE(Global().MarkierteZeile, 3);
    }

    void aMarkedRowIsReadInTheNextModeButNotForANewPupil() {
        Global().MarkierteZeile = 2;
        auto& form = open(&mdlGlobal::ModusSchuelerLoeschen);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Müller"_s);
        open(&mdlGlobal::ModusSchuelerNeu);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), QString());
        Global().MarkierteZeile = 99;
        openToCorrect();
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), QString());
    }

    void thePlaceholderRowIsNotTakenForARowToComeBackTo() {
        change(4, {{u"aktiv"_s, true}});
        open(&mdlGlobal::ModusSchuelerAktivieren);
        QCOMPARE(Global().MarkierteZeile, 0);
        auto& form = openToCorrect();
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), QString());
    }

    void thePrinterNeedsARecord() {
        int printed = 0;
        schuelerFormZiele().drucken = [&] { ++printed; };
        auto& form = openToCorrect();
        doorsOfTest.expect(u"Es wurde kein Schüler, keine Schülerin ausgewählt!"_s);
        press(form, u"imgPrinter"_s);
        QCOMPARE(printed, 0);
        choose(form, 2);
        press(form, u"imgPrinter"_s);
        QCOMPARE(printed, 1);
    }

    void afterThePageTheListIsReadAgainAndTheRecordIsStillShown() {
        FormWindow page(u"frmTest"_s);
        schuelerFormZiele().drucken = [&] { page.ShowOver(QApplication::activeWindow()); };
        auto& form = openToCorrect();
        choose(form, 2);
        press(form, u"imgPrinter"_s);
        // Another workstation gives a name while the page is looked at.
        change(1, {{u"SCH_Name"_s, u"Zzz"_s}});
        page.hide();
        QCOMPARE(cellsOf(listOf(form), 1), (QStringList{u"Müller"_s, u"Zander"_s, u"Zzz"_s}));
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Müller"_s);
        QCOMPARE(Global().MarkierteZeile, 1);
    }

    void aKeyAbove16BitsEndsInTheOverflowBox() {
        change(3, {{u"ID"_s, 40000}});
        auto& form = openToCorrect();
        doorsOfTest.expect(u"Laufzeitfehler '6': Überlauf"_s);
        choose(form, 40000);
        QCOMPARE(Global().AktuelleSchuelerID, 0);
    }

    void everyInputHasANameForTheReader() {
        auto& form = openToCorrect();
        for (auto* widget : form.findChildren<QWidget*>()) {
            const bool input = qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget)
                               || qobject_cast<QAbstractButton*>(widget) || qobject_cast<QTextEdit*>(widget);
            if (!input || widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_"_s)
                || widget->objectName() == u"ScrollLeftButton"_s
                || widget->objectName() == u"ScrollRightButton"_s)
                continue;
            bool labelled = !widget->accessibleName().isEmpty();
            if (const auto* button = qobject_cast<QAbstractButton*>(widget))
                labelled |= !button->text().isEmpty();
            for (const auto* label : form.findChildren<QLabel*>())
                labelled |= label->buddy() == widget;
            QVERIFY2(labelled, qPrintable(widget->objectName()));
        }
    }

    void everyInputIsReachedByTab() {
        Global().ZusatzSchwimmer = Global().ZusatzBaustein = Global().ZusatzKennung = true;
        change(2, {{u"GR1_MO"_s, u"12:00 - 12:45 ME1"_s}});
        auto& form = openToCorrect();
        choose(form, 2);
        QSet<QString> reached;
        for (int i = 0; i < 120; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            reached << QApplication::focusWidget()->objectName();
        }
        for (const auto& name :
             {u"lvwStammdaten"_s, u"txtSCH(0)"_s, u"txtSCH(3)"_s, u"chkNichtOG"_s, u"cmbBaustein"_s,
              u"chkZÜ"_s, u"chkÜ_Nein(4)"_s, u"cmbGR1(0)"_s, u"N_GR1(0)"_s, u"cmbGR7(4)"_s, u"cmdOK"_s,
              u"cmdBeenden"_s, u"imgPrinter"_s, u"Image1"_s})
            QVERIFY2(reached.contains(name), qPrintable(name));
    }

    void inASmallWindowTheWeekScrollsInsteadOfBeingSqueezed() {
        auto& form = openToCorrect();
        form.resize(form.minimumSizeHint());
        QCoreApplication::processEvents();
        for (int tag = 0; tag < kSchoolDays; ++tag) {
            QVERIFY(box(form, 1, tag).width() >= box(form, 1, tag).minimumSizeHint().width());
            QCOMPARE(box(form, 7, tag).width(), box(form, 1, tag).width());
        }
        // On a screen of the usual kind at twice the size all five days are in sight.
        form.resize(1920 / 2, 1080 / 2);
        QCoreApplication::processEvents();
        const QWidget& last = box(form, 1, kSchoolDays - 1);
        QVERIFY(last.visibleRegion().boundingRect() == last.rect());
    }

    void theRecordStaysInSightInASmallWindow() {
        auto& form = openToCorrect();
        form.resize(form.minimumSizeHint());
        QVERIFY(form.width() <= 1366 / 2);
        QVERIFY(form.height() <= 768 / 2);
        for (const auto& name : {u"lvwStammdaten"_s, u"txtSCH(0)"_s, u"txtSCH(3)"_s, u"lblModus"_s,
                                 u"lblAmpel(4)"_s, u"cmdOK"_s}) {
            auto& widget = control<QWidget>(form, name);
            QVERIFY2(widget.isVisible()
                         && form.rect().contains(QRect(widget.mapTo(&form, QPoint()), widget.size())),
                     qPrintable(name));
        }
    }
};

KOLIBRI_TEST_MAIN(FrmSchuelerInTest)
#include "frmSchuelerIn_test.moc"
