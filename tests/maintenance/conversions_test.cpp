#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "support/fixtures.h"
#include "support/old_database.h"
#include "support/test_base.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kStamp = u"20261120-0930"_s;
const QString kHeading = u"ID, SCH_ID, GR, L_Name, Tag, Tag_Zahl, Zeit, Zeit_K_Name, Notiz\r\n"_s;

void addNote(qint64 pupil, const QString& slot, const QString& key, const QString& text) {
    Global()
        .Conn.AddNew(u"SCH_Notiz"_s)
        .Set(u"SCH_ID"_s, pupil)
        .Set(u"GR"_s, slot)
        .Set(u"L_Name"_s, u"Mensa"_s)
        .Set(u"Tag"_s, u"MO"_s)
        .Set(u"Tag_Zahl"_s, 0)
        .Set(u"Zeit"_s, key.left(13))
        .Set(u"Zeit_K_Name"_s, key)
        .Set(u"Notiz"_s, text)
        .Update();
}

qint64 addPupil(const FieldValues& values) {
    NewRow row = Global().Conn.AddNew(u"Stammdaten"_s);
    for (const auto& [field, value] : values)
        row.Set(field, value);
    return row.Update();
}

void addOffering(const QString& table, const QString& key, const QString& unit) {
    Global()
        .Conn.AddNew(table)
        .Set(u"Tag"_s, u"MO"_s)
        .Set(u"Zeit_K_Name"_s, key)
        .Set(u"UE_Zeit"_s, unit)
        .Update();
}

} // namespace

/// What the five conversions make of the rows of an older file, seen from the start of the program.
class ConversionsTest : public OldDatabaseTest {
    Q_OBJECT

    QStringList logs() const { return QDir(home()).entryList({u"DB_Konvert_*"_s}, QDir::Files); }

    QString log(const QString& kind) const {
        return QString::fromLatin1(
            fileContent(home() + u"/DB_Konvert_"_s + kind + u'_' + kStamp + u".txt"_s));
    }

private Q_SLOTS:
    void notesAreSplitByTheCellOfTheirPupil() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            addOffering(u"GR1"_s, u"13:00 - 13:45 ME1"_s, u"13:00 - 13:45"_s);
            addOffering(u"GR2"_s, u"14:00 - 15:00 LZ1"_s, u"14:00 - 14:45"_s);
            const qint64 id = addPupil({{u"GR1_MO"_s, u"13:00 - 13:45 ME1"_s}, {u"GR2_MO"_s, QString()}});
            addNote(id, u"GR1"_s, u"13:00 - 13:45 ME1"_s, u"bleibt"_s);
            addNote(id, u"GR1"_s, u"12:00 - 12:45 ME2"_s, u"veraltet"_s);
            addNote(id, u"GR2"_s, u"14:00 - 15:00 LZ1"_s, u"Tagesplan"_s);
            addNote(id, u"GR2"_s, u"15:00 - 16:00 LZ9"_s, u"ohne Angebot"_s);
            dropTable(conn, u"WP_Notiz"_s);
        });
        start();
        QCOMPARE(log(u"OK"_s), kHeading + u"1;1,GR1,Mensa,MO,0,13:00 - 13:45,13:00 - 13:45 ME1,bleibt\r\n"_s);
        QCOMPARE(log(u"Fehler"_s),
                 kHeading + u"2;1,GR1,Mensa,MO,0,12:00 - 12:45,12:00 - 12:45 ME2,veraltet\r\n"_s);
        QCOMPARE(log(u"WP"_s),
                 kHeading + u"3;1,GR2,Mensa,MO,0,14:00 - 15:00,14:00 - 15:00 LZ1,Tagesplan\r\n"_s
                     + u"4;1,GR2,Mensa,MO,0,15:00 - 16:00,15:00 - 16:00 LZ9,ohne Angebot\r\n"_s);
        inDatabase([](Connection& conn) {
            const Recordset kept = conn.Open(u"SELECT * FROM SCH_Notiz"_s);
            QCOMPARE(kept.RecordCount(), 1);
            QCOMPARE(kept.Number(u"ID"), 1);
            // The last note has no offering and takes the unit of the note before it.
            QCOMPARE(
                tableRows(conn, u"WP_Notiz"_s),
                (QStringList{u"ID=1; SCH_ID=1; UE=14:00 - 14:45; Tag=MO; Tag_Zahl=0; Notiz=Tagesplan"_s,
                             u"ID=2; SCH_ID=1; UE=14:00 - 14:45; Tag=MO; Tag_Zahl=0; Notiz=ohne Angebot"_s}));
        });
    }

    void aNoteWhosePupilHasBeenDeletedEndsTheConversionAndTheSafetyCopyIsNamed() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            const qint64 id = addPupil({{u"GR1_MO"_s, u"13:00 - 13:45 ME1"_s}});
            addNote(id, u"GR1"_s, u"12:00 - 12:45 ME2"_s, u"veraltet"_s);
            addNote(99, u"GR1"_s, u"13:00 - 13:45 ME1"_s, u"Waise"_s);
            dropTable(conn, u"WP_Notiz"_s);
        });
        try {
            start();
            QFAIL("the conversion went on without the pupil");
        } catch (const OfficeError& error) {
            QCOMPARE(error.note(), u"Der Stand vor der Umstellung liegt in der Sicherheitskopie %1."_s.arg(
                                       QDir::toNativeSeparators(home() + u'/' + safetyCopies().value(0))));
        }
        QCOMPARE(safetyCopies().size(), 1);
        // What was done stays done, and the next start does not repeat the conversion.
        inDatabase([](Connection& conn) { QCOMPARE(tableRows(conn, u"SCH_Notiz"_s).size(), 1); });
        start();
        QVERIFY(!Global().UpgradeNotizen);
    }

    void aFileWithoutTagesplanNotesAndWithoutNotesGetsTheTableAndNoLogFiles() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) { dropTable(conn, u"WP_Notiz"_s); });
        start();
        inDatabase([](Connection& conn) { QVERIFY(conn.HasTable(u"WP_Notiz"_s)); });
        QCOMPARE(logs(), QStringList());
    }

    void aNoteOfASlotThatDoesNotExistEndsTheConversion() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            addPupil({{u"SCH_Name"_s, u"Abel"_s}});
            addNote(1, u"GR9"_s, u"13:00 - 13:45 ME1"_s, u"verirrt"_s);
            dropTable(conn, u"WP_Notiz"_s);
        });
        QVERIFY_THROWS_EXCEPTION(StoreError, start());
        inDatabase([](Connection& conn) { QCOMPARE(tableRows(conn, u"SCH_Notiz"_s).size(), 1); });
    }

    void aLogThatCannotBeWrittenEndsTheConversionBeforeAnyNoteIsTouched() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            addPupil({{u"SCH_Name"_s, u"Abel"_s}});
            addNote(1, u"GR1"_s, u"13:00 - 13:45 ME1"_s, u"bleibt"_s);
            dropTable(conn, u"WP_Notiz"_s);
        });
        QVERIFY(QDir(home()).mkdir(u"DB_Konvert_WP_"_s + kStamp + u".txt"_s));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, start());
        inDatabase([](Connection& conn) { QCOMPARE(tableRows(conn, u"SCH_Notiz"_s).size(), 1); });
    }

    void theLateSlotsEqualTheFirstAfterTheFirstStartAndThePupilsCellsAreEmpty() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            addPupil({{u"GR3_MO"_s, u"15:00 - 16:00 CHOR"_s}});
            addOffering(u"GR3"_s, u"15:00 - 16:00 CHOR"_s, u"15:00 - 16:00"_s);
            addOffering(u"GR3"_s, u"15:00 - 16:00 TANZ"_s, QString());
            conn.Delete(u"GR3"_s, u"ID = ?"_s, {1});
            addOffering(u"GR3"_s, u"16:00 - 17:00 CHOR"_s, u"15:00 - 16:00"_s);
            makeFirstVersion(conn);
        });
        start();
        inDatabase([](Connection& conn) {
            QStringList slots = tableRows(conn, u"GR3"_s);
            slots.replaceInStrings(QRegularExpression(u"Anmerkung=[^;]*; "_s), QString());
            QCOMPARE(slots.size(), 2);
            QCOMPARE(tableRows(conn, u"GR6"_s), slots);
            QCOMPARE(tableRows(conn, u"GR7"_s), slots);
            const Recordset pupil = conn.Open(u"SELECT GR6_MO, GR7_FR FROM Stammdaten"_s);
            QVERIFY(pupil.Text(u"GR6_MO").isEmpty() && pupil.Text(u"GR7_FR").isEmpty());
        });
    }

    void aLateSlotThatIsMissingAloneIsFilledAndTheOtherNotDoubled_data() {
        QTest::addColumn<QString>("missing");
        QTest::newRow("GR6") << u"GR6"_s;
        QTest::newRow("GR7") << u"GR7"_s;
    }

    void aLateSlotThatIsMissingAloneIsFilledAndTheOtherNotDoubled() {
        QFETCH(QString, missing);
        useEmptyDatabase();
        inDatabase([&](Connection& conn) {
            addOffering(u"GR3"_s, u"15:00 - 16:00 CHOR"_s, QString());
            for (const auto& table : {u"GR6"_s, u"GR7"_s})
                conn.AddNew(table)
                    .Set(u"ID"_s, 1)
                    .Set(u"Tag"_s, u"MO"_s)
                    .Set(u"Zeit_K_Name"_s, u"15:00 - 16:00 CHOR"_s)
                    .Update();
            dropTable(conn, missing);
        });
        start();
        inDatabase([](Connection& conn) {
            for (const auto& table : {u"GR6"_s, u"GR7"_s}) {
                const Recordset rs = conn.Open(u"SELECT * FROM "_s + table);
                QCOMPARE(rs.RecordCount(), 1);
                QCOMPARE(rs.Text(u"Zeit_K_Name"), u"15:00 - 16:00 CHOR"_s);
            }
        });
    }

    void theFathersNumbersGoToTheSecondContact() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            addPupil({{u"GV_Name"_s, u"Groß"_s},
                      {u"GV_Vorname"_s, u"Eva"_s},
                      {u"Strasse"_s, u"Weg 1"_s},
                      {u"PLZ"_s, u"02826"_s},
                      {u"Ort"_s, u"Görlitz"_s},
                      {u"Tel_privat"_s, u"1"_s},
                      {u"Tel_dienst_Mutter"_s, u"2"_s},
                      {u"Tel_dienst_Vater"_s, u"3"_s},
                      {u"Handy_Mutter"_s, u"4"_s},
                      {u"Handy_Vater"_s, u"5"_s}});
            dropColumn(conn, u"Stammdaten"_s, u"GV_Name1"_s);
        });
        start();
        inDatabase([](Connection& conn) {
            const Recordset rs = conn.Open(u"SELECT * FROM Stammdaten"_s);
            QStringList values;
            for (const auto& field : {u"GV_Name1"_s, u"GV_Vorname1"_s, u"Strasse1"_s, u"PLZ1"_s, u"Ort1"_s,
                                      u"Tel_privat1"_s, u"Tel_Dienst1"_s, u"Mobil1"_s, u"GV_Name2"_s,
                                      u"Tel_Dienst2"_s, u"Mobil2"_s, u"GV_Name"_s, u"Handy_Vater"_s})
                values << rs.Text(field);
            QCOMPARE(values, (QStringList{u"Groß"_s, u"Eva"_s, u"Weg 1"_s, u"02826"_s, u"Görlitz"_s, u"1"_s,
                                          u"2"_s, u"4"_s, QString(), u"3"_s, u"5"_s, u"Groß"_s, u"5"_s}));
        });
    }

    void anApostropheInAContactStopsTheConversionAtThatPupil() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            for (const auto& name : {u"Abel"_s, u"O'Neill"_s, u"Zobel"_s})
                addPupil({{u"GV_Name"_s, name}});
            dropColumn(conn, u"Stammdaten"_s, u"GV_Name1"_s);
        });
        QVERIFY_THROWS_EXCEPTION(StoreError, start());
        inDatabase([](Connection& conn) {
            QStringList names;
            for (Recordset rs = conn.Open(u"SELECT GV_Name1 FROM Stammdaten ORDER BY ID"_s); !rs.Eof();
                 rs.MoveNext())
                names << rs.Text(u"GV_Name1");
            QCOMPARE(names, (QStringList{u"Abel"_s, QString(), QString()}));
        });
        start();
        QVERIFY(!Global().UpgradeKontakte);
    }

    void theOfficeCanHaveAllowedApostrophesBeforeAConversion() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            conn.AddNew(u"Einstellungen"_s).Set(u"Feld"_s, u"Apostroph"_s).Set(u"Grösse"_s, 1).Update();
            addPupil({{u"GV_Name"_s, u"O'Neill"_s}});
            dropColumn(conn, u"Stammdaten"_s, u"GV_Name1"_s);
        });
        start();
        inDatabase([](Connection& conn) {
            QCOMPARE(conn.Open(u"SELECT GV_Name1 FROM Stammdaten"_s).Text(0), u"O'Neill"_s);
        });
    }

    void feesLoseTheirCentsHalfToTheEvenEuro_data() {
        QTest::addColumn<QVariant>("member");
        QTest::addColumn<QVariant>("care");
        QTest::addColumn<QString>("wanted");
        QTest::newRow("whole") << QVariant(36) << QVariant(60) << u"36 60 96"_s;
        QTest::newRow("half") << QVariant(12.5) << QVariant(13.5) << u"12 14 26"_s;
        QTest::newRow("cents") << QVariant(0.4) << QVariant(45.51) << u"0 46 46"_s;
        QTest::newRow("none") << QVariant() << QVariant(0) << u"0 0 0"_s;
        QTest::newRow("negative") << QVariant(-5) << QVariant(110.75) << u"0 111 111"_s;
    }

    void feesLoseTheirCentsHalfToTheEvenEuro() {
        QFETCH(QVariant, member);
        QFETCH(QVariant, care);
        QFETCH(QString, wanted);
        useEmptyDatabase();
        inDatabase([&](Connection& conn) {
            addPupil({{u"MI_Beitrag"_s, member}, {u"BT_Beitrag"_s, care}});
            dropColumn(conn, u"Stammdaten"_s, u"Beitrag_0"_s);
        });
        start();
        inDatabase([&](Connection& conn) {
            const Recordset rs = conn.Open(u"SELECT * FROM Stammdaten"_s);
            QCOMPARE(rs.Text(u"Beitrag_0") + u' ' + rs.Text(u"Beitrag_1") + u' ' + rs.Text(u"Beitrag_7"),
                     wanted);
            // The rows of labels are there already and are not doubled.
            QCOMPARE(conn.Open(u"SELECT Feld FROM Einstellungen WHERE Feld = 'Beitrag_0'"_s).RecordCount(),
                     1);
        });
    }

    void aTableOfCategoriesThatIsMissingAloneLeavesTheRowsOfTheOffice() {
        useEmptyDatabase();
        QStringList settings;
        inDatabase([&](Connection& conn) {
            conn.Change(u"Einstellungen"_s, {{u"KategorieKontakte"_s, u""_s}},
                        u"Feld = 'Kontakt' AND Nummer = 6"_s);
            settings = tableRows(conn, u"Einstellungen"_s);
            dropTable(conn, u"KategorieKontakte"_s);
        });
        start();
        inDatabase([&](Connection& conn) { QCOMPARE(tableRows(conn, u"Einstellungen"_s), settings); });
    }

    // What the office called the fields of the first contact person is what the new rows are called.
    void theContactFieldsTakeTheLabelsOfTheFirstContactPerson() {
        useEmptyDatabase();
        inDatabase([&](Connection& conn) {
            conn.Change(u"Einstellungen"_s, {{u"Bezeichnung"_s, u"Handy"_s}},
                        u"Feld = 'GV1' AND Nummer = 6"_s);
            conn.Change(u"Einstellungen"_s, {{u"Bezeichnung"_s, u"falsch"_s}},
                        u"Feld = 'GV2' AND Nummer = 6"_s);
            conn.Delete(u"Einstellungen"_s, u"Feld = 'Kontakt'"_s);
            dropColumn(conn, u"Einstellungen"_s, u"KategorieKontakte"_s);
            dropTable(conn, u"KategorieKontakte"_s);
        });
        start();
        inDatabase([&](Connection& conn) {
            const Recordset rs =
                conn.Open(u"SELECT * FROM Einstellungen WHERE Feld = 'Kontakt' AND Nummer = 6"_s);
            QCOMPARE(rs.RecordCount(), 1);
            QCOMPARE(rs.Text(u"Bezeichnung") + u' ' + rs.Text(u"KategorieKontakte"), u"Handy Telefon"_s);
        });
    }
};

KOLIBRI_TEST_MAIN(ConversionsTest)
#include "conversions_test.moc"
