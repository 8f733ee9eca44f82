#include "core/frmStart.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/platform/places.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "maintenance/jet_process.h"
#include "maintenance/mdlVers111.h"
#include "support/fixtures.h"
#include "support/test_base.h"

#include <QAction>
#include <QJsonArray>
#include <QMenu>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QByteArray kHeading("ID;SCH_ID;GR;L_NAME;TAG;ZEIT;ZEIT_K_NAME;NOTIZ;WP_NOTIZ\r\n");

QString keyOf(const QJsonObject& offering) {
    return offering[u"Zeit"].toString() + u' ' + offering[u"K_Name"].toString();
}

/// The first row of a table that agrees with all given fields.
QJsonObject firstRow(const QJsonObject& school, const QString& table, const QMap<QString, QString>& fields) {
    for (const auto& value : school[table].toArray()) {
        const QJsonObject row = value.toObject();
        bool agrees = true;
        for (auto field = fields.begin(); field != fields.end(); ++field)
            agrees = agrees && row[field.key()].toString() == field.value();
        if (agrees)
            return row;
    }
    return {};
}

} // namespace

/// The repair of the links of files from before version 1.1.1.
class MdlVers111Test : public TestBase {
    Q_OBJECT

private:
    /// A file of the first data version, copied table by table and not yet repaired.
    void useOldSchool() {
        const QString file = scratch() + u"/alt.mdb"_s;
        writeFile(file, fixture(u"jet/uralt/KOLIBRI_Daten.mdb"_s));
        QProcess tool;
        tool.start(QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri-db"_s,
                   {kReadJetVerb, file, DatenbankDatei(home())});
        QVERIFY(tool.waitForFinished());
        QCOMPARE(tool.exitCode(), 0);
    }

    void repair() {
        const DbSession session(u"Reparatur"_s);
        repairLinks(Global().Conn, home());
    }

    QByteArray protocol() const { return fileContent(home() + u'/' + kRepairProtocol); }

    static void addOffering(const QString& table, const QString& day, const QString& time,
                            const QString& name) {
        Global()
            .Conn.AddNew(table)
            .Set(u"Tag"_s, day)
            .Set(u"Zeit"_s, time)
            .Set(u"K_Name"_s, name)
            .Set(u"L_Name"_s, name + u" lang"_s)
            .Update();
    }

    static void addNote(int pupil, const QString& offerings, const QString& longName) {
        Global()
            .Conn.AddNew(u"SCH_Notiz"_s)
            .Set(u"SCH_ID"_s, pupil)
            .Set(u"GR"_s, offerings)
            .Set(u"L_Name"_s, longName)
            .Set(u"Tag"_s, u"MO"_s)
            .Set(u"Zeit"_s, u"13:00 - 13:45"_s)
            .Set(u"Notiz"_s, u"eins\r\nzwei"_s)
            .Update();
    }

    static QStringList texts(const QString& table, const QString& field) {
        QStringList result;
        for (Recordset rs = Global().Conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext())
            result << (rs.IsNull(field) ? u"<null>"_s : rs.Text(field));
        return result;
    }

private Q_SLOTS:
    void anOldSchoolGetsItsKeys() {
        const QJsonObject school = jsonFixture(u"jet/uralt/expected.json"_s);
        useOldSchool();
        repair();
        const DbSession session(u"Vergleich"_s);
        auto& conn = Global().Conn;
        for (const auto& table : {u"GR1"_s, u"GR2"_s})
            for (Recordset rs = conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext())
                QCOMPARE(rs.Text(u"Zeit_K_Name"), rs.Text(u"Zeit") + u' ' + rs.Text(u"K_Name"));
        int changed = 0;
        const QJsonArray pupils = school[u"Stammdaten"].toArray();
        Recordset rs = conn.Open(u"SELECT * FROM Stammdaten"_s);
        QCOMPARE(rs.RecordCount(), pupils.size());
        for (const auto& pupil : pupils) {
            for (const auto& table : {u"GR1"_s, u"GR2"_s})
                for (int day = 0; day < kSchoolDays; ++day) {
                    const QString column = table + u'_' + TagCode(day);
                    const QString old = pupil[column].toString();
                    const QJsonObject offering =
                        firstRow(school, table, {{u"Tag"_s, TagCode(day)}, {u"Zeit"_s, old}});
                    QCOMPARE(rs.Text(column), offering.isEmpty() ? old : keyOf(offering));
                    changed += offering.isEmpty() ? 0 : 1;
                }
            rs.MoveNext();
        }
        QVERIFY(changed > 100);
    }

    void anOldSchoolsNotesGetTheirKeysAndTheRestIsInTheProtocol() {
        const QJsonObject school = jsonFixture(u"jet/uralt/expected.json"_s);
        useOldSchool();
        repair();
        const DbSession session(u"Vergleich"_s);
        Recordset rs = Global().Conn.Open(u"SELECT * FROM SCH_Notiz"_s);
        QString key;
        QByteArray expected = kHeading;
        for (const auto& value : school[u"SCH_Notiz"].toArray()) {
            const QJsonObject note = value.toObject();
            const auto text = [&](const QString& field) { return note[field].toVariant().toString(); };
            const QJsonObject offering = firstRow(
                school, text(u"GR"_s),
                {{u"L_Name"_s, text(u"L_Name"_s)}, {u"Tag"_s, text(u"Tag"_s)}, {u"Zeit"_s, text(u"Zeit"_s)}});
            if (offering.isEmpty())
                expected += QStringList({text(u"ID"_s),
                                         text(u"SCH_ID"_s),
                                         text(u"GR"_s),
                                         text(u"L_Name"_s),
                                         text(u"Tag"_s),
                                         text(u"Zeit"_s),
                                         {},
                                         text(u"Notiz"_s),
                                         {}})
                                .join(u';')
                                .toLatin1()
                            + "\r\n";
            else
                key = keyOf(offering);
            QCOMPARE(rs.Text(u"Zeit_K_Name"), key);
            rs.MoveNext();
        }
        QVERIFY(rs.Eof());
        QCOMPARE(protocol(), expected);
        QVERIFY(expected.size() > kHeading.size());
    }

    void anOldSchoolsListTextsGetNamesAndKeys() {
        const QJsonObject school = jsonFixture(u"jet/uralt/expected.json"_s);
        useOldSchool();
        repair();
        const DbSession session(u"Vergleich"_s);
        Recordset rs = Global().Conn.Open(u"SELECT * FROM ME_LZ_AG_Notizen"_s);
        const QMap<QString, QString> tables{
            {u"Mensa"_s, u"GR1"_s}, {u"Lernzeit"_s, u"GR2"_s}, {u"Arbeitsgruppe"_s, u"GR3"_s}};
        for (const auto& value : school[u"ME_LZ_AG_Notizen"].toArray()) {
            const QJsonObject text = value.toObject();
            const bool group = text[u"Typ"].toString() == u"Arbeitsgruppe"_s;
            QMap<QString, QString> fields{{u"Zeit"_s, text[u"Zeit"].toString()}};
            if (group)
                for (const auto& field : {u"Tag"_s, u"L_Name"_s, u"K_Name"_s})
                    fields.insert(field, text[field].toString());
            const QJsonObject offering = firstRow(school, tables.value(text[u"Typ"].toString()), fields);
            QCOMPARE(rs.Text(u"Zeit_K_Name"), offering.isEmpty() ? QString() : keyOf(offering));
            QCOMPARE(rs.Text(u"K_Name"), (group ? text : offering)[u"K_Name"].toString());
            QCOMPARE(rs.Text(u"L_Name"), (group ? text : offering)[u"L_Name"].toString());
            rs.MoveNext();
        }
        QVERIFY(rs.Eof());
    }

    void theThirdSlotIsAdded() {
        useOldSchool();
        repair();
        const DbSession session(u"Vergleich"_s);
        for (int day = 0; day < kSchoolDays; ++day)
            QVERIFY(Global().Conn.HasColumn(u"Stammdaten"_s, u"GR5_"_s + TagCode(day)));
    }

    void aSecondRunChangesNothing() {
        useOldSchool();
        repair();
        const auto once = wholeDatabase();
        repair();
        QCOMPARE(wholeDatabase(), once);
        // The notes have keys by now, also those that the first run could not place.
        QCOMPARE(protocol(), kHeading);
    }

    void ofTwoOfferingsAtOneTimeTheFirstWins() {
        useEmptyDatabase();
        const DbSession session(u"Reparatur"_s);
        auto& conn = Global().Conn;
        addOffering(u"GR1"_s, u"DI"_s, u"13:00 - 13:45"_s, u"ME9"_s);
        addOffering(u"GR1"_s, u"MO"_s, u"13:00 - 13:45"_s, u"ME1"_s);
        addOffering(u"GR1"_s, u"MO"_s, u"13:00 - 13:45"_s, u"ME2"_s);
        conn.AddNew(u"Stammdaten"_s)
            .Set(u"GR1_MO"_s, u"13:00 - 13:45"_s)
            .Set(u"GR1_DI"_s, u"12:00 - 12:30"_s)
            .Update();
        repairLinks(conn, home());
        QCOMPARE(texts(u"Stammdaten"_s, u"GR1_MO"_s), QStringList{u"13:00 - 13:45 ME1"_s});
        QCOMPARE(texts(u"Stammdaten"_s, u"GR1_DI"_s), QStringList{u"12:00 - 12:30"_s});
        QCOMPARE(texts(u"Stammdaten"_s, u"GR1_MI"_s), QStringList{u"<null>"_s});
    }

    void aListTextOfAnotherTypeTakesTheKeyOfTheOneBefore() {
        useEmptyDatabase();
        const DbSession session(u"Reparatur"_s);
        auto& conn = Global().Conn;
        addOffering(u"GR2"_s, u"MO"_s, u"14:00 - 15:00"_s, u"LZ1"_s);
        for (const auto& type : {u"Ausflug"_s, u"Lernzeit"_s, u"Ausflug"_s, u"Mensa"_s})
            conn.AddNew(u"ME_LZ_AG_Notizen"_s)
                .Set(u"Typ"_s, type)
                .Set(u"Zeit"_s, u"14:00 - 15:00"_s)
                .Set(u"L_Name"_s, u"alt"_s)
                .Update();
        repairLinks(conn, home());
        QCOMPARE(texts(u"ME_LZ_AG_Notizen"_s, u"Zeit_K_Name"_s),
                 QStringList({u""_s, u"14:00 - 15:00 LZ1"_s, u"14:00 - 15:00 LZ1"_s, u""_s}));
        // Without an offering of Mensa the names go too.
        QCOMPARE(texts(u"ME_LZ_AG_Notizen"_s, u"L_Name"_s),
                 QStringList({u"alt"_s, u"LZ1 lang"_s, u"alt"_s, u""_s}));
    }

    void aNoteWithoutAnOfferingTakesTheKeyOfTheNoteBefore() {
        useEmptyDatabase();
        const DbSession session(u"Reparatur"_s);
        auto& conn = Global().Conn;
        conn.AddNew(u"Stammdaten"_s).Set(u"ID"_s, 5).Update();
        addOffering(u"GR1"_s, u"MO"_s, u"13:00 - 13:45"_s, u"ME1"_s);
        addNote(5, u"GR1"_s, u"fehlt"_s);
        addNote(5, u"GR1"_s, u"ME1 lang"_s);
        addNote(5, u"GR9"_s, u"ME1 lang"_s);
        repairLinks(conn, home());
        QCOMPARE(texts(u"SCH_Notiz"_s, u"Zeit_K_Name"_s),
                 QStringList({u""_s, u"13:00 - 13:45 ME1"_s, u"13:00 - 13:45 ME1"_s}));
        QCOMPARE(protocol(), kHeading
                                 + "1;5;GR1;fehlt;MO;13:00 - 13:45;;eins\r\nzwei;\r\n"
                                   "3;5;GR9;ME1 lang;MO;13:00 - 13:45;;eins\r\nzwei;\r\n");
    }

    void notesBeforeTheFirstAndBehindTheLastPupilGo() {
        useEmptyDatabase();
        const DbSession session(u"Reparatur"_s);
        auto& conn = Global().Conn;
        for (const int id : {5, 9})
            conn.AddNew(u"Stammdaten"_s).Set(u"ID"_s, id).Update();
        for (const int pupil : {4, 5, 7, 9, 10})
            addNote(pupil, u"GR1"_s, u"x"_s);
        repairLinks(conn, home());
        QCOMPARE(texts(u"SCH_Notiz"_s, u"SCH_ID"_s), QStringList({u"5"_s, u"7"_s, u"9"_s}));
    }

    void withoutPupilsNoNoteGoes() {
        useEmptyDatabase();
        const DbSession session(u"Reparatur"_s);
        addNote(4, u"GR1"_s, u"x"_s);
        repairLinks(Global().Conn, home());
        QCOMPARE(texts(u"SCH_Notiz"_s, u"SCH_ID"_s), QStringList{u"4"_s});
    }

    void anApostropheEndsTheRepairAndTheStepsBeforeStay() {
        useEmptyDatabase();
        const DbSession session(u"Reparatur"_s);
        auto& conn = Global().Conn;
        addOffering(u"GR1"_s, u"MO"_s, u"13:00 - 13:45"_s, u"ME1"_s);
        conn.AddNew(u"Stammdaten"_s).Set(u"GR1_MO"_s, u"Papa's Platz"_s).Update();
        QVERIFY_THROWS_EXCEPTION(StoreError, repairLinks(conn, home()));
        QCOMPARE(texts(u"GR1"_s, u"Zeit_K_Name"_s), QStringList{u"13:00 - 13:45 ME1"_s});
        conn.AllowApostrophes(true);
        repairLinks(conn, home());
        QCOMPARE(texts(u"Stammdaten"_s, u"GR1_MO"_s), QStringList{u"Papa's Platz"_s});
        conn.AllowApostrophes(false);
    }

    void aProtocolThatCannotBeWrittenIsTheRunTimeError() {
        useEmptyDatabase();
        const DbSession session(u"Reparatur"_s);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, repairLinks(Global().Conn, home() + u"/fehlt"_s));
    }

    void theHiddenMenuEntryRepairsAfterASafetyCopyAndSaysNothing() {
        useOldSchool();
        const auto before = wholeDatabase();
        auto* entry = Form<frmStart>().findChild<QAction*>(u"mnuAdminDatenbankAktualsieren"_s);
        QVERIFY(!entry->isVisible() || !Form<frmStart>().findChild<QMenu*>(u"frmAdmin"_s)->isVisible());
        entry->trigger();
        QCOMPARE(doorsOfTest.boxes().size(), 0);
        QVERIFY(fileContent(baseFolder() + u'/' + kRepairProtocol).startsWith(kHeading));
        QVERIFY(wholeDatabase() != before);
        QVERIFY(QFile::remove(DatenbankDatei(home())));
        QVERIFY(QFile::rename(home() + u"/KOLIBRI_Daten-Sicherheitskopie-20261120-093000.mdb"_s,
                              DatenbankDatei(home())));
        QCOMPARE(wholeDatabase(), before);
    }

    void aFailureOfTheMenuEntryNamesTheSafetyCopy() {
        useEmptyDatabase();
        {
            const DbSession session(u"Testdaten"_s);
            Global().Conn.AddNew(u"Stammdaten"_s).Set(u"GR1_MO"_s, u"Papa's Platz"_s).Update();
        }
        try {
            DatenbankAktualisieren();
            QFAIL("no error");
        } catch (const StoreError& error) {
            QVERIFY2(error.note().contains(u"KOLIBRI_Daten-Sicherheitskopie-20261120-093000.mdb"_s),
                     qPrintable(error.note()));
        }
    }
};

KOLIBRI_TEST_MAIN(MdlVers111Test)
#include "mdlVers111_test.moc"
