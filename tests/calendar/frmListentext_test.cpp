// The entries of the menu that open the form are hidden, so it is reached through them here.

#include "calendar/frmListentext.h"
#include "core/frmStart.h"
#include "core/rich_text.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "lists/list_texts.h"
#include "support/driving.h"
#include "support/expected_state.h"
#include "support/test_base.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTextEdit>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kTexts = u"ME_LZ_AG_Notizen"_s;
const QString kOldBox = u"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\f0\\fs17 T\\ür {\\b zu}!\\par }"_s;

QString rtf(int i) {
    return u"rtfListentext(%1)"_s.arg(i);
}
QString group(int i) {
    return u"txtText(%1)"_s.arg(i);
}

} // namespace

class FrmListentextTest : public TestBase {
    Q_OBJECT

private:
    static void addTime(const QString& table, const QString& name, const QString& tag, const QString& zeit) {
        addRow(table, {{u"L_Name"_s, u"Lang "_s + name},
                       {u"K_Name"_s, name},
                       {u"Tag"_s, tag},
                       {u"Zeit"_s, zeit},
                       {u"Zeit_K_Name"_s, zeit + u' ' + name},
                       {u"Betreuer"_s, u"Frau Weiß"_s},
                       {u"Ort"_s, u"Aula"_s}});
    }

    /// Opens the form by its menu entry.
    static FormWindow& openForm(const QString& kind) {
        auto& form = Form<frmListentext>();
        form.hide();
        auto& start = Form<frmStart>();
        start.setState(StartState::Ready);
        auto* entry = start.findChild<QAction*>(u"mnuListentext"_s + kind);
        if (!entry)
            qFatal("no menu entry");
        entry->trigger();
        if (!form.isVisible() || !shown(form))
            qFatal("the form is not active");
        return form;
    }

    static QComboBox& combo(FormWindow& form, const QString& name) { return control<QComboBox>(form, name); }
    static QStringList entries(FormWindow& form, const QString& name) { return entriesOf(combo(form, name)); }
    static QTextEdit& text(FormWindow& form, int i) { return control<QTextEdit>(form, rtf(i)); }
    static QStringList texts(FormWindow& form) {
        return {text(form, 0).toPlainText(), text(form, 1).toPlainText()};
    }
    static void write(FormWindow& form, int i, const QString& content) {
        text(form, i).selectAll();
        text(form, i).setFocus();
        keys(text(form, i), content);
    }
    /// The stored texts as a list shows them.
    static QStringList pages(const QString& column) {
        QStringList result;
        for (const auto& stored : columnOf(kTexts, column))
            result << pageText(stored);
        return result;
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        for (const auto& table : {u"GR1"_s, u"GR2"_s}) {
            addTime(table, u"Z2"_s, u"MO"_s, u"13:00 - 13:45"_s);
            addTime(table, u"Z1"_s, u"MO"_s, u"12:00 - 12:45"_s);
        }
        addTime(u"GR3"_s, u"TANZ"_s, u"DI"_s, u"15:00 - 16:00"_s);
        addTime(u"GR3"_s, u"CHOR"_s, u"MO"_s, u"15:00 - 16:00"_s);
        addRow(kTexts, {{u"Typ"_s, u"Mensa"_s},
                        {u"Klasse"_s, u"A"_s},
                        {u"Zeit"_s, u"12:00 - 12:45"_s},
                        {u"Zeit_K_Name"_s, u"12:00 - 12:45 Z1"_s},
                        {u"Anmerkung_V"_s, kOldBox},
                        {u"Anmerkung_N"_s, u"schlicht"_s}});
        addRow(
            kTexts,
            {{u"Typ"_s, u"Arbeitsgruppe"_s}, {u"L_Name"_s, u"Lang CHOR"_s}, {u"Anmerkung_N"_s, u"Noten"_s}});
    }

    void eachKindShowsItsFrame_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("label");
        QTest::newRow("Mensa") << u"MENSA"_s << u"ME:"_s;
        QTest::newRow("Lernzeit") << u"LERNZEIT"_s << u"LZ:"_s;
        QTest::newRow("Arbeitsgruppe") << u"ARBEITSGRUPPE"_s << QString();
    }

    void eachKindShowsItsFrame() {
        QFETCH(const QString, caption);
        QFETCH(const QString, label);
        const QString kind = QString::fromUtf8(QTest::currentDataTag());
        const bool isGroup = kind == u"Arbeitsgruppe"_s;
        openForm(isGroup ? u"Mensa"_s : u"Arbeitsgruppe"_s);
        auto& form = openForm(kind);
        QCOMPARE(form.windowTitle(), u"Listentexte"_s);
        auto& used = control<QGroupBox>(form, isGroup ? u"frmAuswahl(1)"_s : u"frmAuswahl(0)"_s);
        auto& other = control<QGroupBox>(form, isGroup ? u"frmAuswahl(0)"_s : u"frmAuswahl(1)"_s);
        QVERIFY(used.isVisible() && !other.isVisible());
        QCOMPARE(used.title(), caption);
        QStringList labels;
        for (const auto* each : form.findChildren<QLabel*>())
            if (each->isVisible() && each->buddy())
                labels << each->text().remove(u'&');
        QStringList expected{u"Klasse:"_s, label, u"Zeit:"_s};
        if (isGroup)
            expected = {u"Langname:"_s, u"Kurzname:"_s, u"Tag:"_s, u"Zeit:"_s, u"BetreuerIn:"_s, u"Ort:"_s};
        expected << u"Text vorher:"_s << u"Text nachher:"_s;
        labels.sort();
        expected.sort();
        QCOMPARE(labels, expected);
        for (const auto& carrier : {u"txtZeit_K_Name"_s, u"txtK_Name"_s})
            QVERIFY(!control<QWidget>(form, carrier).isVisible());
    }

    void theBoxesAreFilledWithNothingChosen() {
        auto& form = openForm(u"Mensa"_s);
        QCOMPARE(entries(form, u"cmbKlasse"_s), QStringList({u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
        QCOMPARE(entries(form, u"cmbME_LZ"_s), QStringList({u"Lang Z1"_s, u"Lang Z2"_s}));
        for (const auto& name : {u"cmbKlasse"_s, u"cmbME_LZ"_s})
            QCOMPARE(combo(form, name).currentIndex(), -1);
        auto& groups = openForm(u"Arbeitsgruppe"_s);
        QCOMPARE(entries(groups, u"cmbText"_s), QStringList({u"Lang CHOR"_s, u"Lang TANZ"_s}));
        QCOMPARE(combo(groups, u"cmbText"_s).currentIndex(), -1);
    }

    void anOfferingShowsItsTimeAndTheTextOfTheLetter() {
        auto& form = openForm(u"Mensa"_s);
        combo(form, u"cmbKlasse"_s).setCurrentText(u"A"_s);
        combo(form, u"cmbME_LZ"_s).setCurrentText(u"Lang Z1"_s);
        QCOMPARE(textOf(form, u"txtZeit"_s), u"12:00 - 12:45"_s);
        QCOMPARE(textOf(form, u"txtZeit_K_Name"_s), u"12:00 - 12:45 Z1"_s);
        QCOMPARE(textOf(form, u"txtK_Name"_s), u"Z1"_s);
        QCOMPARE(texts(form), QStringList({u"Tür zu!"_s, u"schlicht"_s}));
        combo(form, u"cmbME_LZ"_s).setCurrentText(u"Lang Z2"_s);
        QCOMPARE(textOf(form, u"txtZeit"_s), u"13:00 - 13:45"_s);
        QCOMPARE(texts(form), QStringList({u""_s, u""_s}));
    }

    void anotherLetterShowsItsTextOrEmptiesTheBoxes() {
        auto& form = openForm(u"Mensa"_s);
        combo(form, u"cmbME_LZ"_s).setCurrentText(u"Lang Z1"_s);
        QCOMPARE(texts(form), QStringList({u""_s, u""_s}));
        combo(form, u"cmbKlasse"_s).setCurrentText(u"A"_s);
        QCOMPARE(texts(form), QStringList({u"Tür zu!"_s, u"schlicht"_s}));
        combo(form, u"cmbKlasse"_s).setCurrentText(u"B"_s);
        QCOMPARE(texts(form), QStringList({u""_s, u""_s}));
        // The text of a Mensa is none of the Lernzeit of that name and time.
        auto& lernzeit = openForm(u"Lernzeit"_s);
        combo(lernzeit, u"cmbKlasse"_s).setCurrentText(u"A"_s);
        combo(lernzeit, u"cmbME_LZ"_s).setCurrentText(u"Lang Z1"_s);
        QCOMPARE(textOf(lernzeit, u"txtZeit"_s), u"12:00 - 12:45"_s);
        QCOMPARE(texts(lernzeit), QStringList({u""_s, u""_s}));
    }

    void aGroupShowsItsFieldsAndText() {
        auto& form = openForm(u"Arbeitsgruppe"_s);
        combo(form, u"cmbText"_s).setCurrentText(u"Lang CHOR"_s);
        QStringList fields;
        for (int i = 0; i < 5; ++i) {
            fields << textOf(form, group(i));
            QVERIFY(control<QLineEdit>(form, group(i)).isReadOnly());
        }
        QCOMPARE(fields, QStringList({u"CHOR"_s, u"MO"_s, u"15:00 - 16:00"_s, u"Frau Weiß"_s, u"Aula"_s}));
        QCOMPARE(texts(form), QStringList({u""_s, u"Noten"_s}));
        combo(form, u"cmbText"_s).setCurrentText(u"Lang TANZ"_s);
        QCOMPARE(textOf(form, group(1)), u"DI"_s);
        QCOMPARE(texts(form), QStringList({u""_s, u""_s}));
    }

    void theFirstSaveAddsARowAndTheNextChangesIt() {
        auto& form = openForm(u"Lernzeit"_s);
        combo(form, u"cmbKlasse"_s).setCurrentText(u"C"_s);
        combo(form, u"cmbME_LZ"_s).setCurrentText(u"Lang Z2"_s);
        write(form, 0, u"Bitte leise, Türe zu"_s);
        press(form);
        QVERIFY(!form.isVisible());
        QCOMPARE(pages(u"Anmerkung_V"_s).value(2), u"Bitte leise, Türe zu"_s);
        const QString row = rowsOf(kTexts).value(2);
        QVERIFY(row.contains(u"Typ=Lernzeit; Klasse=C; Tag=<null>; Zeit=13:00 - 13:45; K_Name=Z2; "
                             "L_Name=Lang Z2; Zeit_K_Name=13:00 - 13:45 Z2"_s));
        auto& again = openForm(u"Lernzeit"_s);
        combo(again, u"cmbKlasse"_s).setCurrentText(u"C"_s);
        combo(again, u"cmbME_LZ"_s).setCurrentText(u"Lang Z2"_s);
        QCOMPARE(texts(again), QStringList({u"Bitte leise, Türe zu"_s, u""_s}));
        write(again, 1, u"Danke"_s);
        press(again);
        QCOMPARE(pages(u"Anmerkung_N"_s), QStringList({u"schlicht"_s, u"Noten"_s, u"Danke"_s}));
        QCOMPARE(pages(u"Anmerkung_V"_s).value(2), u"Bitte leise, Türe zu"_s);
    }

    void aGroupsTextIsChangedForAllItsDays() {
        addTime(u"GR3"_s, u"CHOR"_s, u"FR"_s, u"14:00 - 15:00"_s);
        auto& form = openForm(u"Arbeitsgruppe"_s);
        combo(form, u"cmbText"_s).setCurrentIndex(1);
        write(form, 0, u"Singen"_s);
        press(form);
        QCOMPARE(rowsOf(kTexts).size(), 2);
        QCOMPARE(pages(u"Anmerkung_V"_s).value(1), u"Singen"_s);
        QCOMPARE(pages(u"Anmerkung_N"_s).value(1), u"Noten"_s);
    }

    void aNewGroupTextHasTheFieldsOfTheFirstRow() {
        auto& form = openForm(u"Arbeitsgruppe"_s);
        combo(form, u"cmbText"_s).setCurrentText(u"Lang TANZ"_s);
        write(form, 0, u"Schuhe"_s);
        press(form);
        QVERIFY(rowsOf(kTexts).value(2).contains(
            u"Typ=Arbeitsgruppe; Klasse=<null>; Tag=DI; Zeit=15:00 - 16:00; K_Name=TANZ; L_Name=Lang TANZ; "
            "Zeit_K_Name=15:00 - 16:00 TANZ; Betreuer=Frau Weiß; Ort=Aula"_s));
    }

    /// Bold text of an older box and of this one come out as such, without a control word.
    void whatIsShownAndSavedAgainPrintsTheSame() {
        auto& form = openForm(u"Mensa"_s);
        combo(form, u"cmbKlasse"_s).setCurrentText(u"A"_s);
        combo(form, u"cmbME_LZ"_s).setCurrentText(u"Lang Z1"_s);
        press(form);
        QCOMPARE(pages(u"Anmerkung_V"_s).first(), u"Tür <b>zu</b>!"_s);
        QCOMPARE(pages(u"Anmerkung_N"_s).first(), u"schlicht"_s);
    }

    /// Nothing asks whether an offering was chosen, and nothing of the last opening is left over.
    void withoutAChoiceARowWithEmptyKeysIsWritten() {
        auto& first = openForm(u"Mensa"_s);
        combo(first, u"cmbKlasse"_s).setCurrentText(u"A"_s);
        combo(first, u"cmbME_LZ"_s).setCurrentText(u"Lang Z1"_s);
        auto& form = openForm(u"Mensa"_s);
        QCOMPARE(texts(form), QStringList({u""_s, u""_s}));
        write(form, 0, u"verloren"_s);
        press(form);
        QVERIFY(rowsOf(kTexts).value(2).contains(
            u"Typ=Mensa; Klasse=; Tag=<null>; Zeit=; K_Name=; L_Name=; Zeit_K_Name=;"_s));
        auto& groups = openForm(u"Arbeitsgruppe"_s);
        press(groups);
        QVERIFY(rowsOf(kTexts).value(3).contains(u"Tag=; Zeit=; K_Name=; L_Name=; Zeit_K_Name= ;"_s));
    }

    void anApostropheInAChangedTextEndsInTheErrorBox() {
        auto& form = openForm(u"Arbeitsgruppe"_s);
        combo(form, u"cmbText"_s).setCurrentText(u"Lang CHOR"_s);
        write(form, 0, u"Oma's Lied"_s);
        const ExpectedState before;
        doorsOfTest.expectBeginning(u"Listentext speichern: "_s);
        press(form);
        QVERIFY(form.isVisible());
        QCOMPARE(texts(form).first(), u"Oma's Lied"_s);
        COMPARE_STATE(before);
    }

    void beendenClosesWithoutSaving() {
        auto& form = openForm(u"Arbeitsgruppe"_s);
        combo(form, u"cmbText"_s).setCurrentText(u"Lang CHOR"_s);
        write(form, 0, u"doch nicht"_s);
        const ExpectedState before;
        press(form, u"cmdBeenden"_s);
        QVERIFY(!form.isVisible());
        COMPARE_STATE(before);
    }
};

KOLIBRI_TEST_MAIN(FrmListentextTest)
#include "frmListentext_test.moc"
