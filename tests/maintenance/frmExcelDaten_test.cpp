#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "maintenance/frmExcelDaten.h"
#include "maintenance/frmExcelInfo.h"
#include "support/test_base.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const Spreadsheet kSheet{u"Schüler"_s, {u"Nachname"_s, u"Klasse"_s}, {{u"Weiß"_s, u"1a"_s}}};

} // namespace

/// The form that assigns the columns of a spreadsheet, and the one that says what the sheet must be like.
class FrmExcelDatenTest : public TestBase {
    Q_OBJECT

private:
    frmExcelDaten& shown() {
        auto& form = Form<frmExcelDaten>();
        form.SetSheet(kSheet);
        form.ShowOver(nullptr);
        return form;
    }

    static QComboBox* box(frmExcelDaten& form, int index) {
        return form.findChild<QComboBox*>(u"cmbDatenExcel(%1)"_s.arg(index));
    }

    static QStringList names() {
        const DbSession session(u"Vergleich"_s);
        QStringList result;
        for (Recordset rs = Global().Conn.Open(u"SELECT * FROM Stammdaten"_s); !rs.Eof(); rs.MoveNext())
            result << rs.Text(u"SCH_Name");
        return result;
    }

private Q_SLOTS:
    void everyFieldHasABoxWithAnEmptyEntryAndTheColumns() {
        auto& form = shown();
        QCOMPARE(form.findChildren<QComboBox*>().size(), 36);
        for (const auto& field : excelFields()) {
            QComboBox* combo = box(form, field.index);
            QVERIFY2(combo, qPrintable(field.column));
            QVERIFY(!combo->isEditable());
            QCOMPARE(combo->count(), 3);
            QCOMPARE(combo->currentText(), QString());
            QCOMPARE(combo->itemText(2), u"Klasse"_s);
            QVERIFY(!combo->accessibleName().isEmpty());
        }
        QVERIFY(form.findChild<QRadioButton*>(u"optÜberschreibenNein"_s)->isChecked());
        QVERIFY(form.findChild<QPushButton*>(u"cmdOK"_s)->isDefault());
        QCOMPARE(form.findChild<QPushButton*>(u"cmdBeenden"_s)->text(), u"BEENDEN"_s);
    }

    void okImportsAndTheFormGoesAway() {
        useEmptyDatabase();
        auto& form = shown();
        box(form, 0)->setCurrentText(u"Nachname"_s);
        doorsOfTest.expect(u"Wollen Sie die Excel-Daten wirklich an die vorhandenen Daten anfügen?"_s,
                           kAnswerYes);
        doorsOfTest.expect(u"Die Daten wurden übergeben!"_s);
        QTest::keyClick(&form, Qt::Key_Return);
        QVERIFY(form.isHidden());
        QCOMPARE(names(), QStringList{u"Weiß"_s});
    }

    void onNoTheFormStaysWithWhatWasChosen() {
        useEmptyDatabase();
        auto& form = shown();
        box(form, 0)->setCurrentText(u"Nachname"_s);
        form.findChild<QRadioButton*>(u"optÜberschreibenJA"_s)->click();
        doorsOfTest.expect(u"Wollen Sie vorhandene Daten wirklich überschreiben?"_s, kAnswerNo);
        form.findChild<QPushButton*>(u"cmdOK"_s)->click();
        QVERIFY(form.isVisible());
        QCOMPARE(box(form, 0)->currentText(), u"Nachname"_s);
        QCOMPARE(names(), QStringList());
    }

    void theNextSheetBeginsAnew() {
        auto& form = shown();
        box(form, 309)->setCurrentText(u"Klasse"_s);
        form.findChild<QRadioButton*>(u"optÜberschreibenJA"_s)->click();
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(form.isHidden());
        shown();
        QCOMPARE(box(form, 309)->currentText(), QString());
        QCOMPARE(box(form, 309)->count(), 3);
        QVERIFY(form.findChild<QRadioButton*>(u"optÜberschreibenNein"_s)->isChecked());
    }

    void theFormFitsASmallScreen() {
        auto& form = shown();
        QVERIFY2(form.minimumSizeHint().height() < 700 && form.minimumSizeHint().width() < 1366,
                 qPrintable(
                     u"%1 x %2"_s.arg(form.minimumSizeHint().width()).arg(form.minimumSizeHint().height())));
    }

    void theConditionsStandEachOnALineOfItsOwn() {
        auto& form = Form<frmExcelInfo>();
        form.ShowOver(nullptr);
        QCOMPARE(form.windowTitle(), u"Bedingungen für den Import von Excel Daten:"_s);
        QCOMPARE(form.findChild<QLabel*>(u"lblBedingungen"_s)->text().split(u'\n'),
                 QStringList({u"1. Die Excel Datei muss mit der Endung .xls (Excel 2003) vorliegen"_s,
                              u"2. Die Datei darf nur eine Tabelle enthalten."_s,
                              u"3. Die Tabelle darf nur eine Kopfzeile enthalten."_s}));
        form.findChild<QPushButton*>(u"cmdBeenden"_s)->click();
        QVERIFY(form.isHidden());
    }
};

KOLIBRI_TEST_MAIN(FrmExcelDatenTest)
#include "frmExcelDaten_test.moc"
