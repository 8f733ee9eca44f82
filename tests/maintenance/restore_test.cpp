#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/progress.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "core/windows1252.h"
#include "maintenance/backup.h"
#include "maintenance/restore.h"
#include "maintenance/safety_net.h"
#include "support/test_base.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kChooseFile = u"Wählen Sie im nächsten Schritt die Sicherungsdatei aus!"_s;
const QString kDone = u"Datenwiederherstellung wurde durchgeführt!"_s;

void restore(const QString& text) {
    const DbSession session(u"Daten wiederherstellen"_s);
    Progress progress({}, text.size());
    Transaction transaction(Global().Conn);
    restoreText(Global().Conn, text, progress);
    transaction.Commit();
}

/// Number of the run-time error that the restore of a text ends in; 0 when it gets through.
int errorOf(const QString& text) {
    try {
        restore(text);
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

QString backup() {
    const DbSession session(u"Datensicherung"_s);
    return backupText(Global().Conn);
}

QStringList column(const QString& table, const QString& field) {
    const DbSession session(u"Vergleich"_s);
    QStringList values;
    for (Recordset rs = Global().Conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext())
        values << (rs.IsNull(field) ? u"<null>"_s : rs.Text(field));
    return values;
}

/// The content of a database as a backup can tell it: an empty text is a null.
QMap<QString, QStringList> asFarAsTheFormatTells(QMap<QString, QStringList> content) {
    for (auto& rows : content)
        for (auto& row : rows) {
            row.replace(u"=; "_s, u"=<null>; "_s);
            if (row.endsWith(u'='))
                row += u"<null>"_s;
        }
    return content;
}

} // namespace

/// The reader of backup files: what it makes of lines that are right and of lines that are not.
class RestoreTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    QString writeFile(const QByteArray& content) {
        QFile file(scratch() + u"/Sicherung.txt"_s);
        [&] { QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size()); }();
        return file.fileName();
    }

    /// A few rows with what is difficult for the format.
    void fillDatabase() {
        useEmptyDatabase();
        const DbSession session(u"Schule"_s);
        auto& conn = Global().Conn;
        conn.AddNew(u"Stammdaten"_s)
            .Set(u"aktiv"_s, true)
            .Set(u"SCH_Name"_s, u"Äpfel-O'Neill"_s)
            .Set(u"Schulstufe"_s, 3)
            .Set(u"Beitrag_0"_s, u"18,05"_s)
            .Update();
        conn.AddNew(u"Stammdaten"_s).Set(u"ID"_s, 40).Set(u"SCH_Name"_s, u"Weiß"_s).Update();
        for (const auto& note : {u"eine Zeile"_s, u"erste\r\n\r\ndritte"_s, u"nur\nVorschub"_s, u""_s})
            conn.AddNew(u"SCH_Notiz"_s).Set(u"SCH_ID"_s, 40).Set(u"Notiz"_s, note).Update();
        for (const auto& day : {u"MO"_s, u"DI"_s})
            conn.AddNew(u"Klassen"_s)
                .Set(u"Klasse"_s, u"3a"_s)
                .Set(u"Tag"_s, day)
                .Set(u"Unterrichtsbeginn"_s, u"07:50"_s)
                .Update();
    }

private Q_SLOTS:
    void backupThenRestoreGivesEveryTableBack() {
        fillDatabase();
        const auto before = test::wholeDatabase();
        const QString text = backup();
        QVERIFY(QFile::remove(DatenbankDatei(home())));
        useEmptyDatabase();
        restore(text);
        QCOMPARE(asFarAsTheFormatTells(test::wholeDatabase()), asFarAsTheFormatTells(before));
        QCOMPARE(backup(), text);
    }

    void theSampleSchoolComesBackTableForTable() {
        useSampleSchool();
        auto before = test::wholeDatabase();
        const QByteArray bytes = toTextFile(backup());
        QVERIFY(QFile::remove(DatenbankDatei(home())));
        useEmptyDatabase();
        restore(fromTextFile(bytes));
        auto after = test::wholeDatabase();
        QCOMPARE(after.keys(), before.keys());
        // The one value that does not come back: a morning that has no beginning begins at 00:00.
        for (auto& row : before[u"Klassen"_s])
            row.replace(u"Unterrichtsbeginn=<null>"_s, u"Unterrichtsbeginn=00:00"_s);
        before = asFarAsTheFormatTells(before);
        after = asFarAsTheFormatTells(after);
        for (const auto& table : before.keys())
            QCOMPARE(after.value(table), before.value(table));
    }

    void lettersOutsideTheCodePageComeBack() {
        useEmptyDatabase();
        {
            const DbSession session(u"Schule"_s);
            Global().Conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"Kovačić Łuş"_s).Update();
        }
        doorsOfTest.answerPath(writeFile(toTextFile(backup())));
        restore(u"<tbl>Stammdaten</tbl>"_s);
        doorsOfTest.expect(kChooseFile);
        doorsOfTest.expect(kDone);
        DatenWiederherstellen();
        QCOMPARE(column(u"Stammdaten"_s, u"SCH_Name"_s), QStringList{u"Kovačić Łuş"_s});
    }

    void aNoteWithLineBreaksComesBackWithNoneBehindTheLast() {
        useEmptyDatabase();
        restore(u"<tbl>SCH_Notiz</tbl>\r\n<col>ID|Notiz</col>\r\n<dat>1|eins\rzwei\r\n\r\nvier</dat>\r\n"_s);
        QCOMPARE(column(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u"eins\r\nzwei\r\n\r\nvier"_s});
    }

    void aLineFeedAloneBelongsToTheValue() {
        useEmptyDatabase();
        restore(u"<tbl>SCH_Notiz</tbl>\r\n<col>ID|Notiz</col>\r\n<dat>1|a\nb</dat>"_s);
        QCOMPARE(column(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u"a\nb"_s});
    }

    void linesMayEndWithACarriageReturnAlone() {
        useEmptyDatabase();
        restore(u"<tbl>GR6</tbl>\r<col>ID|K_Name</col>\r<dat>1|AG</dat>\r"_s);
        QCOMPARE(column(u"GR6"_s, u"K_Name"_s), QStringList{u"AG"_s});
    }

    void aMemoLineThatBeginsWithATagIsTakenAsThatTag() {
        fillDatabase();
        restore(u"<tbl>SCH_Notiz</tbl>\r\n<col>ID|SCH_ID|Notiz</col>\r\n<dat>1|7|davor\r\n"
                "<tbl>WP_Notiz</tbl>\r\nEnde</dat>\r\n"_s);
        QCOMPARE(column(u"SCH_Notiz"_s, u"ID"_s), QStringList());
        QCOMPARE(column(u"WP_Notiz"_s, u"Notiz"_s), QStringList{u"davor\r\nEnde"_s});
        QCOMPARE(errorOf(u"<tbl>SCH_Notiz</tbl>\r\n<col>ID|Notiz</col>\r\n<dat>1|davor\r\n<col>x|y\r\n"_s),
                 5);
        restore(u"<tbl>SCH_Notiz</tbl>\r\n<col>ID|Notiz</col>\r\n<dat>1|verloren\r\n<dat>2|da</dat>\r\n"_s);
        QCOMPARE(column(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u"da"_s});
    }

    void aValueWithASeparatorSplitsTheRow() {
        useEmptyDatabase();
        restore(u"<tbl>GR6</tbl>\r\n<col>K_Name|L_Name|Ort</col>\r\n<dat>AG|a|b</dat>\r\n"_s);
        QCOMPARE(column(u"GR6"_s, u"L_Name"_s), QStringList{u"a"_s});
        QCOMPARE(errorOf(u"<tbl>GR6</tbl>\r\n<col>K_Name|L_Name</col>\r\n<dat>AG|a|b</dat>\r\n"_s), 9);
    }

    void aRowWhoseLastLineIsMissingAtTheEndIsDropped() {
        useEmptyDatabase();
        restore(u"<tbl>GR6</tbl>\r\n<col>ID|K_Name</col>\r\n<dat>1|AG</dat>\r\n<dat>2|halb\r\nweiter"_s);
        QCOMPARE(column(u"GR6"_s, u"ID"_s), QStringList{u"1"_s});
    }

    void aRowWithFewerFieldsKeepsTheLaterFieldsOfTheRowBeforeIt() {
        useEmptyDatabase();
        restore(u"<tbl>GR6</tbl>\r\n<col>ID|K_Name|Ort</col>\r\n<dat>1|AG|Halle</dat>\r\n<dat>2|BG</dat>\r\n"
                "<dat></dat>\r\n"_s);
        QCOMPARE(column(u"GR6"_s, u"Ort"_s), QStringList({u"Halle"_s, u"Halle"_s, u"Halle"_s}));
        QCOMPARE(column(u"GR6"_s, u"K_Name"_s), QStringList({u"AG"_s, u"BG"_s, u"BG"_s}));
    }

    void theValuesAreEmptiedAtEachListOfColumns() {
        useEmptyDatabase();
        restore(u"<tbl>GR6</tbl>\r\n<col>ID|K_Name</col>\r\n<dat>1|AG</dat>\r\n"
                "<tbl>GR7</tbl>\r\n<col>ID|K_Name</col>\r\n<dat>2</dat>\r\n"_s);
        QCOMPARE(column(u"GR7"_s, u"K_Name"_s), QStringList{u"<null>"_s});
    }

    void aRowBeforeAnyListOfColumnsFailsAtTheBound() {
        useEmptyDatabase();
        QCOMPARE(errorOf(u"<tbl>GR6</tbl>\r\n<dat>1|AG</dat>\r\n"_s), 9);
    }

    void tooManyFieldsFailForAnUnknownTableToo() {
        useEmptyDatabase();
        QCOMPARE(errorOf(u"<tbl>Fremd</tbl>\r\n<col>a|b</col>\r\n<dat>1|2|3</dat>\r\n"_s), 9);
    }

    void moreThanAThousandColumnsFailAtTheBound() {
        useEmptyDatabase();
        const QString names = QStringList(kMostBackupColumns, u"x"_s).join(u'|');
        QCOMPARE(errorOf(u"<col>"_s + names + u"</col>"_s), 0);
        QCOMPARE(errorOf(u"<col>"_s + names + u"|x</col>"_s), 9);
    }

    void aTagThatIsCutOffFails() {
        useEmptyDatabase();
        QCOMPARE(errorOf(u"<tbl>Kl"_s), 5);
        QCOMPARE(errorOf(u"<tbl>GR6</tbl>\r\n<col>ID|K_N"_s), 5);
    }

    void aTableNameThatIsCutOffIsUnknown() {
        fillDatabase();
        const auto before = test::wholeDatabase();
        restore(u"<tbl>Stammdaten</t\r\n<col>ID|SCH_Name</col>\r\n<dat>1|Neu</dat>\r\n"_s);
        QCOMPARE(test::wholeDatabase(), before);
    }

    void namesOfTablesAreComparedExactly() {
        fillDatabase();
        const auto before = test::wholeDatabase();
        restore(u"<tbl>stammdaten</tbl>\r\n<col>ID|SCH_Name</col>\r\n<dat>1|Neu</dat>\r\n"_s);
        QCOMPARE(test::wholeDatabase(), before);
    }

    void tablesThatAreNotInTheFileKeepTheirRows() {
        fillDatabase();
        auto expected = test::wholeDatabase();
        expected[u"SCH_Notiz"_s].clear();
        restore(u"<tbl>SCH_Notiz</tbl>\r\n<col>ID|Notiz</col>\r\n"_s);
        QCOMPARE(test::wholeDatabase(), expected);
    }

    void tablesThatTheDatabaseLacksArePassedOverWithAllTheirRows() {
        fillDatabase();
        const auto before = test::wholeDatabase();
        restore(u"<tbl>Fremd</tbl>\r\n<col>a|b</col>\r\n<dat>1|2</dat>\r\n<dat>1|zwei\r\nZeilen</dat>\r\n"_s);
        QCOMPARE(test::wholeDatabase(), before);
    }

    void aTableIsEmptiedEvenIfNoRowFollows() {
        fillDatabase();
        restore(u"<tbl>Stammdaten</tbl>"_s);
        QCOMPARE(column(u"Stammdaten"_s, u"ID"_s), QStringList());
    }

    void aTableOfOneColumnIsEmptiedAndNotFilled() {
        fillDatabase();
        restore(u"<tbl>GR6</tbl>\r\n<col>ID</col>\r\n<dat>1</dat>\r\n"_s);
        QCOMPARE(column(u"GR6"_s, u"ID"_s), QStringList());
    }

    void keysComeBackAsTheyWere() {
        useEmptyDatabase();
        restore(
            u"<tbl>Stammdaten</tbl>\r\n<col>ID|SCH_Name</col>\r\n<dat>90|B</dat>\r\n<dat>7|A</dat>\r\n"_s);
        QCOMPARE(column(u"Stammdaten"_s, u"ID"_s), QStringList({u"7"_s, u"90"_s}));
    }

    void anEmptyUnterrichtsbeginnAloneBecomesMidnight() {
        useEmptyDatabase();
        restore(u"<tbl>Klassen</tbl>\r\n<col>ID|Unterrichtsbeginn|Unterrichtsende|UnterrichtsbeginnNM</col>"
                "\r\n<dat>1|||</dat>\r\n<dat>2|07:50:00|24:00:00|13:00</dat>\r\n"_s);
        QCOMPARE(column(u"Klassen"_s, u"Unterrichtsbeginn"_s), QStringList({u"00:00"_s, u"07:50"_s}));
        QCOMPARE(column(u"Klassen"_s, u"Unterrichtsende"_s), QStringList({u"<null>"_s, u"24:00"_s}));
        QCOMPARE(column(u"Klassen"_s, u"UnterrichtsbeginnNM"_s), QStringList({u"<null>"_s, u"13:00"_s}));
    }

    void booleanWordsAreTakenInEveryColumn() {
        useEmptyDatabase();
        restore(u"<tbl>Stammdaten</tbl>\r\n<col>ID|aktiv|Neu|NichtOG|SCH_Name|SCH_Vorname</col>\r\n"
                "<dat>1|Wahr|False||Wahr|Falsch</dat>\r\n<dat>2|True|Falsch|Wahr|wahr|True</dat>\r\n"_s);
        QCOMPARE(column(u"Stammdaten"_s, u"aktiv"_s), QStringList({u"Wahr"_s, u"Wahr"_s}));
        QCOMPARE(column(u"Stammdaten"_s, u"Neu"_s), QStringList({u"Falsch"_s, u"Falsch"_s}));
        QCOMPARE(column(u"Stammdaten"_s, u"NichtOG"_s), QStringList({u"Falsch"_s, u"Wahr"_s}));
        QCOMPARE(column(u"Stammdaten"_s, u"SCH_Name"_s), QStringList({u"True"_s, u"wahr"_s}));
        QCOMPARE(column(u"Stammdaten"_s, u"SCH_Vorname"_s), QStringList({u"False"_s, u"True"_s}));
    }

    void aColumnThatTheTableLacksFailsOnlyWhenItHasAValue() {
        useEmptyDatabase();
        restore(u"<tbl>GR6</tbl>\r\n<col>ID|Fremd|Ort</col>\r\n<dat>1||Halle</dat>\r\n"_s);
        QCOMPARE(column(u"GR6"_s, u"Ort"_s), QStringList{u"Halle"_s});
        QVERIFY_THROWS_EXCEPTION(
            StoreError, restore(u"<tbl>GR6</tbl>\r\n<col>ID|Fremd|Ort</col>\r\n<dat>1|x|Halle</dat>\r\n"_s));
    }

    void aFailureHalfWayLeavesWhatIsDoneAndNamesTheSafetyCopy() {
        fillDatabase();
        const auto before = test::wholeDatabase();
        doorsOfTest.answerPath(writeFile(
            "<tbl>SCH_Notiz</tbl>\r\n<col>ID|Notiz</col>\r\n<dat>1|neu</dat>\r\n<tbl>Klassen</tbl>\r\n"
            "<col>ID|Tag_Zahl</col>\r\n<dat>5|1</dat>\r\n<dat>6|eins</dat>\r\n<tbl>Stammdaten</tbl>\r\n"));
        doorsOfTest.expect(kChooseFile);
        const QString copy = home() + u"/KOLIBRI_Daten-Sicherheitskopie-20261120-093000.mdb"_s;
        try {
            DatenWiederherstellen();
            QFAIL("no error");
        } catch (const StoreError& error) {
            QCOMPARE(error.note(),
                     u"Der Stand vor diesem Vorgang liegt in der Sicherheitskopie %1."_s.arg(copy));
        }
        const auto after = test::wholeDatabase();
        QCOMPARE(column(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u"neu"_s});
        QCOMPARE(column(u"Klassen"_s, u"ID"_s), QStringList{u"5"_s});
        QCOMPARE(after[u"Stammdaten"_s], before[u"Stammdaten"_s]);
        QVERIFY(QFile::remove(DatenbankDatei(home())) && QFile::copy(copy, DatenbankDatei(home())));
        QCOMPARE(test::wholeDatabase(), before);
    }

    void theMenuEntryAsksForTheFileAndNothingElse() {
        fillDatabase();
        doorsOfTest.answerPath(writeFile("<tbl>Stammdaten</tbl>\r\n"));
        doorsOfTest.expect(kChooseFile);
        doorsOfTest.expect(kDone);
        DatenWiederherstellen();
        QCOMPARE(doorsOfTest.dialogs(), QStringList{u"Textdatei öffnen"_s});
        QCOMPARE(column(u"Stammdaten"_s, u"ID"_s), QStringList());
    }

    void withoutAFileNothingHappens() {
        fillDatabase();
        const auto before = test::wholeDatabase();
        doorsOfTest.expect(kChooseFile);
        DatenWiederherstellen();
        QCOMPARE(test::wholeDatabase(), before);
        QCOMPARE(QDir(home()).entryList({u"*Sicherheitskopie*"_s}), QStringList());
    }

    void aFileThatCannotBeReadChangesNothing() {
        fillDatabase();
        const auto before = test::wholeDatabase();
        doorsOfTest.answerPath(scratch() + u"/fehlt.txt"_s);
        doorsOfTest.expect(kChooseFile);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, DatenWiederherstellen());
        QCOMPARE(test::wholeDatabase(), before);
    }

    /// Two hundred files that were cut, mixed up or overwritten: each is restored or refused in words, and
    /// the database stays sound.
    void mutatedFilesNeverCrash() {
        fillDatabase();
        const QByteArray sound = toTextFile(backup());
        const QString original = scratch() + u"/original.mdb"_s;
        QVERIFY(QFile::copy(DatenbankDatei(home()), original));
        int restored = 0;
        int refused = 0;
        for (quint32 seed = 1; seed <= 200; ++seed) {
            QFile::remove(DatenbankDatei(home()));
            QVERIFY(QFile::copy(original, DatenbankDatei(home())));
            const QString text = fromTextFile(mutated(sound, seed));
            const DbSession session(u"Daten wiederherstellen"_s);
            Progress progress({}, text.size());
            try {
                withSafetyCopy(Global().Conn, [&] { restoreText(Global().Conn, text, progress); });
                ++restored;
            } catch (const StoreError&) {
                ++refused;
            } catch (const RuntimeError&) {
                ++refused;
            }
            QVERIFY2(Global().Conn.IntegrityProblems().isEmpty(), qPrintable(QString::number(seed)));
        }
        QCOMPARE(restored + refused, 200);
        QVERIFY(restored > 10);
        QVERIFY(refused > 10);
    }

private:
    static QByteArray mutated(const QByteArray& sound, quint32 seed) {
        QRandomGenerator random(seed);
        QByteArray bytes = sound;
        const auto place = [&] { return random.bounded(static_cast<int>(bytes.size())); };
        auto lines = bytes.split('\n');
        const auto line = [&] { return random.bounded(static_cast<int>(lines.size())); };
        const QList<QByteArray> tags{"<tbl>", "<col>", "<dat>", "</dat>", "</col>", "|", "\r", "\r\n"};
        switch (seed % 5) {
        case 0:
            return bytes.first(place());
        case 1:
            for (int i = 0; i < 8; ++i)
                bytes.insert(place(), tags.at(random.bounded(static_cast<int>(tags.size()))));
            return bytes;
        case 2:
            for (int i = 0; i < 10; ++i)
                lines.swapItemsAt(line(), line());
            return lines.join('\n');
        case 3:
            for (int i = 0; i < 60; ++i)
                bytes[place()] = static_cast<char>(random.bounded(256));
            return bytes;
        default:
            return bytes.sliced(place());
        }
    }
};

KOLIBRI_TEST_MAIN(RestoreTest)
#include "restore_test.moc"
