#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "lists/pupil_list_gather.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

void filterBy(PupilFilter filter, const QString& text) {
    Liste().Dialog.optFiltern = filter;
    Liste().Dialog.cmbFiltern.at(static_cast<std::size_t>(filter)) = text;
}

} // namespace

class PupilListGatherTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theNameListHoldsActivePupilsOfTheCare() {
        useEmptyDatabase();
        addPupil(u"Arx"_s, u"Zoe"_s, u"2a"_s);
        addPupil(u"Deaktiviert"_s, u"Max"_s, u"2a"_s, {{u"aktiv"_s, false}});
        addPupil(u"Nicht"_s, u"Max"_s, u"2a"_s, {{u"NichtOG"_s, true}});
        addPupil(u"Anfang"_s, u"Max"_s, u"0a"_s);
        addPupil(u"Ärmel"_s, u"Ada"_s, u"1b"_s);
        QCOMPARE(gathered(kNamensliste), QStringList({u"1: 1 | Ärmel Ada"_s, u"1: 2 | Arx Zoe"_s}));
        QVERIFY(!Global().Conn.IsOpen());
    }

    void theListsAreSortedByTheChosenKeys() {
        useEmptyDatabase();
        addPupil(u"Berg"_s, u"Zoe"_s, u"2a"_s);
        addPupil(u"Berg"_s, u"Ada"_s, u"3a"_s);
        addPupil(u"Amsel"_s, u"Ada"_s, u"4a"_s);
        auto& options = Liste().Dialog;
        options.cmbSortieren = {u"Vorname"_s, u"Nachname"_s};
        options.optEbene = 2;
        QCOMPARE(gathered(kErweiterteListe),
                 QStringList({u"1: 1 | Amsel | Ada"_s, u"1: 2 | Berg | Ada"_s, u"1: 3 | Berg | Zoe"_s}));
        options.cmbSortieren = {u"Klasse"_s, u"Nachname"_s};
        options.optEbene = 1;
        QCOMPARE(gathered(kErweiterteListe).first(), u"1: 1 | Berg | Zoe"_s);
    }

    void twoLevelsWithoutASecondKeyKeepTheFirst() {
        useEmptyDatabase();
        addPupil(u"Berg"_s, u"Ada"_s, u"3a"_s);
        addPupil(u"Amsel"_s, u"Zoe"_s, u"4a"_s);
        Liste().Dialog.optEbene = 2;
        Liste().Dialog.cmbSortieren = {u"Nachname"_s, QString()};
        QCOMPARE(gathered(kNamensliste), QStringList({u"1: 1 | Amsel Zoe"_s, u"1: 2 | Berg Ada"_s}));
    }

    void theFiltersNarrowTheList_data() {
        QTest::addColumn<int>("filter");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("class") << 0 << u"2a"_s << u"A2a"_s;
        QTest::newRow("grade") << 1 << u"2"_s << u"A2a B2b"_s;
        QTest::newRow("letter") << 2 << u"a"_s << u"A2a C3a"_s;
        QTest::newRow("everything of a class") << 0 << kAllesAuswaehlen << u"A2a B2b C3a"_s;
        QTest::newRow("everything of a grade") << 1 << kAllesAuswaehlen << u"A2a B2b C3a"_s;
        QTest::newRow("everything of a letter") << 2 << kAllesAuswaehlen << u"A2a B2b C3a"_s;
        QTest::newRow("nobody") << 0 << u"9z"_s << QString();
        // Filtered by grade or letter the list no longer asks whether a pupil goes to school yet.
        QTest::newRow("grade of the starters") << 1 << u"0"_s << u"S0b"_s;
        QTest::newRow("letter with starters") << 2 << u"b"_s << u"B2b S0b"_s;
        QTest::newRow("class of the starters") << 0 << u"0b"_s << QString();
    }

    void theFiltersNarrowTheList() {
        QFETCH(const int, filter);
        QFETCH(const QString, text);
        QFETCH(const QString, expected);
        useEmptyDatabase();
        addPupil(u"A2a"_s, QString(), u"2a"_s);
        addPupil(u"B2b"_s, QString(), u"2b"_s);
        addPupil(u"C3a"_s, QString(), u"3a"_s);
        addPupil(u"S0b"_s, QString(), u"0b"_s);
        addPupil(u"Aus"_s, QString(), u"2a"_s, {{u"aktiv"_s, false}});
        addPupil(u"Nicht"_s, QString(), u"2a"_s, {{u"NichtOG"_s, true}});
        filterBy(static_cast<PupilFilter>(filter), text);
        gathered(kErweiterteListe);
        QStringList names;
        for (int row = 1; row <= Liste().ZeilenAnzahl; ++row)
            names << Liste().Daten(2, row);
        QCOMPARE(names.join(u' '), expected);
    }

    void aClassNameWithAQuoteIsRefusedByTheStore() {
        useEmptyDatabase();
        filterBy(PupilFilter::Klasse, u"2'a"_s);
        try {
            gathered(kNamensliste);
            QFAIL("no error");
        } catch (const StoreError& error) {
            QCOMPARE(error.kind(), StoreError::Kind::Syntax);
        }
        QVERIFY(!Global().Conn.IsOpen());
    }

    void startersWithOneLevelIncludeThoseWithoutCare() {
        useEmptyDatabase();
        addPupil(u"Mit"_s, u"Ada"_s, u"0a"_s);
        addPupil(u"Ohne"_s, u"Ben"_s, u"0a"_s, {{u"NichtOG"_s, true}});
        addPupil(u"Aus"_s, u"Cem"_s, u"0a"_s, {{u"aktiv"_s, false}});
        addPupil(u"Schule"_s, u"Dora"_s, u"1a"_s);
        QCOMPARE(gathered(kSchulanfaenger), QStringList({u"1: Mit Ada"_s, u"1: Ohne Ben"_s}));
        Liste().Dialog.optEbene = 2;
        QCOMPARE(gathered(kSchulanfaenger), QStringList({u"1: Mit Ada"_s}));
    }

    void startersKnowNoFilter() {
        useEmptyDatabase();
        addPupil(u"Mit"_s, u"Ada"_s, u"0a"_s);
        filterBy(PupilFilter::Klasse, u"3a"_s);
        QCOMPARE(gathered(kSchulanfaenger), QStringList({u"1: Mit Ada"_s}));
    }

    void newPupilsListDeactivatedPupilsToo() {
        useEmptyDatabase();
        addPupil(u"Neu"_s, u"Zoe"_s, u"2a"_s, {{u"Neu"_s, true}});
        addPupil(u"Neu"_s, u"Aus"_s, u"2a"_s, {{u"Neu"_s, true}, {u"aktiv"_s, false}});
        addPupil(u"Neu"_s, u"Ohne"_s, u"1a"_s, {{u"Neu"_s, true}, {u"NichtOG"_s, true}});
        addPupil(u"Neu"_s, u"Anfang"_s, u"0a"_s, {{u"Neu"_s, true}});
        addPupil(u"Alt"_s, u"Alt"_s, u"1a"_s);
        QCOMPARE(gathered(kNeueSchueler),
                 QStringList({u"1: Neu Ohne | 1a"_s, u"1: Neu Aus | 2a"_s, u"1: Neu Zoe | 2a"_s}));
    }

    void pupilsWithoutCareListDeactivatedPupilsToo() {
        useEmptyDatabase();
        addPupil(u"Ohne"_s, u"Zoe"_s, u"2a"_s, {{u"NichtOG"_s, true}});
        addPupil(u"Ohne"_s, u"Aus"_s, u"2a"_s, {{u"NichtOG"_s, true}, {u"aktiv"_s, false}});
        addPupil(u"Ohne"_s, u"Anfang"_s, u"0a"_s, {{u"NichtOG"_s, true}});
        addPupil(u"Mit"_s, u"Mit"_s, u"1a"_s);
        QCOMPARE(gathered(kNichtOgSchueler), QStringList({u"1: Ohne Aus | 2a"_s, u"1: Ohne Zoe | 2a"_s}));
    }

    void aSchoolOfMoreThan999RowsFits() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Transaction transaction(Global().Conn);
            for (int i = 0; i < 1001; ++i)
                Global()
                    .Conn.AddNew(u"Stammdaten"_s)
                    .Set(u"aktiv"_s, true)
                    .Set(u"Schulstufe"_s, 1)
                    .Set(u"SCH_Name"_s, u"N%1"_s.arg(i, 4, 10, QChar(u'0')))
                    .Update();
            transaction.Commit();
        }
        QCOMPARE(gathered(kErweiterteListe).size(), 1001);
        QCOMPARE(Liste().Daten(2, 1001), u"N1000"_s);
    }

    void theListsWithoutOptionsClearTheCheckBoxes_data() {
        QTest::addColumn<int>("listenArt");
        QTest::newRow("new") << int(kNeueSchueler);
        QTest::newRow("without care") << int(kNichtOgSchueler);
    }
    void theListsWithoutOptionsClearTheCheckBoxes() {
        QFETCH(const int, listenArt);
        useEmptyDatabase();
        addPupil(u"A"_s, u"A"_s, u"2a"_s, {{u"Neu"_s, true}, {u"NichtOG"_s, true}, {u"Kennung"_s, u"K"_s}});
        auto& options = Liste().Dialog;
        chooseContacts(u"Name"_s);
        options.chkKennung = options.chkBaustein = options.chkSchwimmer = options.chkKlasse = true;
        options.chkGebDatum = options.chkBeiträge = true;
        QCOMPARE(gathered(static_cast<quint8>(listenArt)), QStringList{u"1: A A | 2a"_s});
        QVERIFY(!options.chkKennung && !options.chkKontakteNeu && !options.chkBeiträge);
    }

    void preparingAListKeepsTheDay() {
        useEmptyDatabase();
        doorsOfTest.setNow(QDateTime(QDate(2027, 1, 8), QTime(7, 0)));
        prepareList(kNamensliste);
        QCOMPARE(Liste().ListenDatum, QDate(2027, 1, 8));
        QCOMPARE(Global().ListenArt, quint8(kNamensliste));
    }
};

KOLIBRI_TEST_MAIN(PupilListGatherTest)
#include "pupil_list_gather_test.moc"
