#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "lists/list_state.h"
#include "lists/notes/frmListeNotizen.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class FrmListeNotizenTest : public TestBase {
    Q_OBJECT

private:
    static FormWindow& form(const QString& mode) {
        auto& result = Form<frmListeNotizen>();
        result.Tag = mode;
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    void useSchool() {
        useEmptyDatabase();
        Global().KlassenListe = {u"1a"_s, u"1b"_s};
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 1}, {u"Zeit"_s, u"08:45 - 09:30"_s}});
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 2}, {u"Zeit"_s, u"08:00 - 08:45"_s}});
    }

    static QStringList entries(FormWindow& window, const QString& name) {
        const auto& box = control<QComboBox>(window, name);
        QStringList result;
        for (int i = 0; i < box.count(); ++i)
            result << box.itemText(i);
        return result;
    }

    static QStringList chosen(FormWindow& window) {
        QStringList result;
        for (const auto& name : {u"cmbKlasse"_s, u"cmbTag"_s, u"cmbME_LZ_AG"_s})
            result << control<QComboBox>(window, name).currentText();
        return result;
    }

    static void choose(FormWindow& window, const QStringList& texts) {
        const QStringList names{u"cmbKlasse"_s, u"cmbTag"_s, u"cmbME_LZ_AG"_s};
        for (int i = 0; i < names.size(); ++i)
            control<QComboBox>(window, names.at(i)).setCurrentText(texts.at(i));
    }

private Q_SLOTS:
    void theFormOffersClassesDaysAndKindsOfAssignments() {
        useSchool();
        auto& window = form(u"ME_LZ_AG"_s);
        QCOMPARE(window.windowTitle(), u"LISTE NOTIZEN"_s);
        QCOMPARE(control<QGroupBox>(window, u"frmAuswahl"_s).title(), u"AUSWAHL"_s);
        QCOMPARE(control<QLabel>(window, u"lblKlasse"_s).text().remove(u'&'), u"Klasse:"_s);
        QCOMPARE(control<QLabel>(window, u"lblTag"_s).text().remove(u'&'), u"Tag:"_s);
        QCOMPARE(control<QLabel>(window, u"lblME_LZ_AG"_s).text().remove(u'&'), u"ME/LZ/AG:"_s);
        QCOMPARE(entries(window, u"cmbKlasse"_s), QStringList({u"Alle"_s, u"1a"_s, u"1b"_s}));
        QCOMPARE(entries(window, u"cmbTag"_s),
                 QStringList({u"Alle"_s, u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s}));
        QCOMPARE(entries(window, u"cmbME_LZ_AG"_s),
                 QStringList({u"Alle"_s, u"Mensa"_s, u"Lernzeit"_s, u"Arbeitsgruppe"_s}));
        QCOMPARE(chosen(window), QStringList({u"Alle"_s, u"Alle"_s, u"Alle"_s}));
    }

    void forTheTagesplanItOffersTheTeachingUnits() {
        useSchool();
        auto& window = form(u"TP"_s);
        QCOMPARE(control<QLabel>(window, u"lblME_LZ_AG"_s).text().remove(u'&'), u"Unterrichtseinheit"_s);
        QCOMPARE(entries(window, u"cmbME_LZ_AG"_s),
                 QStringList({u"Alle"_s, u"08:00 - 08:45"_s, u"08:45 - 09:30"_s}));
        QVERIFY(!Global().Conn.IsOpen());
    }

    void okShowsTheListOfTheModeAndHidesTheForm() {
        useSchool();
        auto& window = form(u"ME_LZ_AG"_s);
        choose(window, {u"1b"_s, u"MI"_s, u"Lernzeit"_s});
        press(window);
        QVERIFY(window.isHidden());
        QCOMPARE(Liste().Notizen.cmbKlasse, u"1b"_s);
        QCOMPARE(Liste().Notizen.cmbTag, u"MI"_s);
        QCOMPARE(Liste().Notizen.cmbME_LZ_AG, u"Lernzeit"_s);
        press(form(u"TP"_s));
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>({41, 42}));
    }

    void theChoiceIsThereAgainWhenTheFormOpens() {
        useSchool();
        auto& window = form(u"ME_LZ_AG"_s);
        choose(window, {u"1b"_s, u"MI"_s, u"Lernzeit"_s});
        press(window);
        QCOMPARE(chosen(form(u"ME_LZ_AG"_s)), QStringList({u"1b"_s, u"MI"_s, u"Lernzeit"_s}));
        // The three places in the boxes are kept, not their texts: the other mode shows its own entries
        // there.
        form(u"ME_LZ_AG"_s).hide();
        QCOMPARE(chosen(form(u"TP"_s)), QStringList({u"1b"_s, u"MI"_s, u"08:45 - 09:30"_s}));
    }

    void aPlaceThatABoxNoLongerHasBecomesAlle() {
        useSchool();
        auto& window = form(u"ME_LZ_AG"_s);
        choose(window, {u"1b"_s, u"Alle"_s, u"Arbeitsgruppe"_s});
        press(window);
        Global().KlassenListe = {u"1a"_s};
        QCOMPARE(chosen(form(u"TP"_s)), QStringList({u"Alle"_s, u"Alle"_s, u"Alle"_s}));
    }

    void withoutOkTheChoiceIsForgotten() {
        useSchool();
        auto& window = form(u"ME_LZ_AG"_s);
        choose(window, {u"1b"_s, u"MI"_s, u"Lernzeit"_s});
        press(window, u"cmdBeenden"_s);
        QVERIFY(window.isHidden());
        QVERIFY(doorsOfTest.pages().empty());
        QCOMPARE(chosen(form(u"ME_LZ_AG"_s)), QStringList({u"Alle"_s, u"Alle"_s, u"Alle"_s}));
    }

    void enterPressesOkAndEscLeaves() {
        useSchool();
        auto& window = form(u"ME_LZ_AG"_s);
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>({41}));
        auto& again = form(u"ME_LZ_AG"_s);
        QCOMPARE(again.focusWidget(), &control<QWidget>(again, u"cmbKlasse"_s));
        QTest::keyClick(&again, Qt::Key_Escape);
        QVERIFY(again.isHidden());
        QCOMPARE(doorsOfTest.pages().size(), 1);
    }

    void theFormIsWideEnoughForTheLabelOfEitherMode() {
        useSchool();
        for (const auto& mode : {u"ME_LZ_AG"_s, u"TP"_s, u"ME_LZ_AG"_s}) {
            auto& window = form(mode);
            const auto& label = control<QLabel>(window, u"lblME_LZ_AG"_s);
            QVERIFY2(label.width() >= label.sizeHint().width(), qPrintable(mode));
            window.hide();
        }
    }

    void everyInputHasANameForAScreenReader() {
        useSchool();
        for (const auto& mode : {u"ME_LZ_AG"_s, u"TP"_s}) {
            auto& window = form(mode);
            for (const auto* box : window.findChildren<QComboBox*>())
                QVERIFY2(!box->accessibleName().isEmpty(), qPrintable(box->objectName()));
            window.hide();
        }
    }
};

KOLIBRI_TEST_MAIN(FrmListeNotizenTest)
#include "frmListeNotizen_test.moc"
