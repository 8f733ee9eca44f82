// Texts with an apostrophe where the office has allowed them: they are texts like any other, whatever they
// look like to a database.

#include "calendar/modules.h"
#include "core/startup.h"
#include "core/widgets/application.h"
#include "students/student_store.h"
#include "support/pupil_form.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kHostile = u"x' OR '1'='1"_s;

} // namespace

class ApostropheTest : public PupilFormTest {
    Q_OBJECT

private:
    void allow(int size) {
        addRow(u"Einstellungen"_s, {{u"Feld"_s, u"Apostroph"_s}, {u"Grösse"_s, size}});
        startUp(scratch());
        Global().ComputerName = u"TEST-PC"_s;
    }

    static void saveName(frmSchülerIn& form, const QString& name) {
        type(form, u"txtSCH(0)"_s, name);
        press(form);
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        startWithSmallSchool();
    }

    void aPupilCalledONeillCanBeEnteredAndCorrected() {
        allow(1);
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        type(form, u"txtSCH(1)"_s, u"D'Arcy"_s);
        type(form, u"txtSCH(3)"_s, u"3a"_s);
        saveName(form, u"O'Neill"_s);
        QCOMPARE(stored(6, u"SCH_Name"_s), u"O'Neill"_s);
        auto& again = openToCorrect();
        choose(again, 6);
        QCOMPARE(textOf(again, u"txtSCH(0)"_s), u"O'Neill"_s);
        type(again, u"txtSCH(2)"_s, u"01.02.2016"_s);
        press(again);
        QCOMPARE(stored(6, u"SCH_Geb"_s), u"01.02.2016"_s);
        QCOMPARE(stored(6, u"SCH_Vorname"_s), u"D'Arcy"_s);
        choose(again, 6);
        saveName(again, u"O'Neil"_s);
        QCOMPARE(stored(6, u"SCH_Name"_s), u"O'Neil"_s);
    }

    void hostileTextIsStoredAsThatTextAndNothingElse() {
        allow(1);
        const auto before = wholeDatabase();
        auto& form = openToCorrect();
        choose(form, 2);
        saveName(form, kHostile);
        QCOMPARE(stored(2, u"SCH_Name"_s), kHostile);
        const auto after = wholeDatabase();
        QCOMPARE(changedTables(before, after), QStringList{u"Stammdaten"_s});
        for (const int row : {0, 2, 3, 4})
            QCOMPARE(after[u"Stammdaten"_s].at(row), before[u"Stammdaten"_s].at(row));
    }

    void everyTextOfAPupilMayBeHostile() {
        allow(1);
        const auto before = wholeDatabase();
        SchuelerDatensatz record;
        record.SCH = {kHostile, kHostile, QString(), u"3a"_s};
        record.Baustein = record.Kennung = record.NotfallRN = record.Anmerkung = kHostile;
        record.Beitrag.fill(u"0"_s);
        for (auto& contact : record.GV)
            contact.fill(kHostile);
        for (auto& group : record.GR)
            group.fill(kHostile);
        {
            const DbSession session(u"Test"_s);
            Global().AktuelleSchuelerID = 3;
            SchuelerAendern(record);
        }
        for (const auto& column : {u"SCH_Vorname"_s, u"Kennung"_s, u"GV_Name3"_s, u"E_Mail1"_s, u"GR7_FR"_s,
                                   u"Anmerkung"_s, u"NotfallRN"_s})
            QCOMPARE(stored(3, column), kHostile);
        const auto after = wholeDatabase();
        QCOMPARE(changedTables(before, after), QStringList{u"Stammdaten"_s});
        for (const int row : {0, 1, 3, 4})
            QCOMPARE(after[u"Stammdaten"_s].at(row), before[u"Stammdaten"_s].at(row));
    }

    void aHostileConditionFindsItsOwnRowsOnly() {
        allow(1);
        const DbSession session(u"Test"_s);
        auto& conn = Global().Conn;
        const qint64 first = Bausteine_Daten_Neu(u"Lang"_s);
        const qint64 second = Bausteine_Daten_Neu(kHostile);
        conn.Change(u"Stammdaten"_s, {{u"Baustein"_s, u"Lang"_s}}, u"ID <= ?"_s, {2});
        conn.Change(u"Stammdaten"_s, {{u"Baustein"_s, kHostile}}, u"ID > ?"_s, {2});
        Bausteine_Daten_Korrektur(static_cast<int>(second), u"Oma's"_s, kHostile);
        QCOMPARE(Baustein_Text(static_cast<int>(first)), u"Lang"_s);
        QCOMPARE(conn.Open(u"SELECT ID FROM Stammdaten WHERE Baustein = ?"_s, {u"Oma's"_s}).RecordCount(), 3);
        Bausteine_Daten_Löschen(static_cast<int>(second), kHostile);
        QCOMPARE(conn.Open(u"SELECT ID FROM Stammdaten WHERE Baustein = ?"_s, {u"Lang"_s}).RecordCount(), 2);
    }

    void withoutThePermissionTheStoreRefuses_data() {
        QTest::addColumn<int>("size");
        QTest::newRow("off") << 0;
        QTest::newRow("never set") << -1;
    }

    void withoutThePermissionTheStoreRefuses() {
        QFETCH(int, size);
        if (size >= 0)
            allow(size);
        else
            startUp(scratch());
        Global().ComputerName = u"TEST-PC"_s;
        const auto before = wholeDatabase();
        const DbSession session(u"Test"_s);
        Global().AktuelleSchuelerID = 3;
        SchuelerDatensatz record;
        record.SCH = {u"O'Neill"_s, u"Carl"_s, QString(), u"4b"_s};
        record.Beitrag.fill(u"0"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, SchuelerAendern(record));
        QCOMPARE(tableRows(Global().Conn, u"Stammdaten"_s), before[u"Stammdaten"_s]);
    }
};

KOLIBRI_TEST_MAIN(ApostropheTest)
#include "apostrophe_test.moc"
