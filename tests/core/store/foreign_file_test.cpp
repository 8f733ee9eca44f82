// What the store does with a file that it should rather not touch.

#include "core/store/connection.h"
#include "core/widgets/application.h"
#include "maintenance/new_database.h"
#include "plain_sqlite.h"
#include "store_support.h"
#include "support/test_base.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class foreign_fileTest : public TestBase {
    Q_OBJECT

    QString file() const { return scratch() + u"/KOLIBRI_Daten.mdb"_s; }

    /// The content of a real database of some pages.
    static const QByteArray& soundContent() {
        static const QByteArray content = [] {
            const QTemporaryDir folder;
            return contentOf(createDatabase(folder.path()));
        }();
        return content;
    }

    /// The file is refused at its opening, and neither it nor its folder is changed.
    void verifyRefused(StoreError::Kind kind, const QString& words) {
        const QByteArray before = contentOf(file());
        Connection conn;
        const auto error = errorOf([&] { conn.OpenFile(file()); });
        QVERIFY(error);
        QVERIFY2(error->kind() == kind, qPrintable(error->message()));
        QVERIFY2(error->message().contains(words), qPrintable(error->message()));
        QVERIFY2(error->message().contains(file()), qPrintable(error->message()));
        QVERIFY(!conn.IsOpen());
        QCOMPARE(contentOf(file()), before);
        QCOMPARE(filesIn(scratch()), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }

private Q_SLOTS:
    void aTruncatedFileIsRefusedAndNotTouched_data() {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("recognised");
        const int size = static_cast<int>(soundContent().size());
        constexpr int kPage = 4096;
        QVERIFY(size > 10 * kPage);
        QTest::newRow("nothing left") << 0 << false;
        QTest::newRow("one byte") << 1 << false;
        QTest::newRow("15 bytes") << 15 << false;
        QTest::newRow("16 bytes") << 16 << true;
        QTest::newRow("50 bytes") << 50 << true;
        QTest::newRow("99 bytes") << 99 << true;
        QTest::newRow("100 bytes") << 100 << true;
        QTest::newRow("first page") << kPage << true;
        QTest::newRow("half") << size / 2 << true;
        QTest::newRow("half in whole pages") << size / 2 / kPage * kPage << true;
        QTest::newRow("one page less") << size - kPage << true;
        QTest::newRow("one byte less") << size - 1 << true;
    }

    void aTruncatedFileIsRefusedAndNotTouched() {
        QFETCH(int, length);
        QFETCH(bool, recognised);
        writeContent(file(), soundContent().first(length));
        if (recognised)
            verifyRefused(StoreError::Kind::Damaged, u"ist unvollständig; ihr Ende fehlt."_s);
        else
            verifyRefused(StoreError::Kind::Foreign, u"ist keine Datenbank dieses Programms."_s);
    }

    void aWholeFileIsOpened() {
        const QByteArray content = soundContent();
        writeContent(file(), content);
        Connection conn;
        conn.OpenFile(file());
        QVERIFY(conn.HasTable(u"Stammdaten"_s));
        conn.Close();
        QCOMPARE(contentOf(file()), content);
    }

    /// A file may be longer than it says, after another program filled it up.
    void bytesBehindTheEndDoNoHarm() {
        writeContent(file(), soundContent() + QByteArray(100, 'x'));
        Connection conn;
        conn.OpenFile(file());
        QCOMPARE(conn.IntegrityProblems(), QStringList());
    }

    void aForeignFileIsRefusedAndNotTouched_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("letter") << QByteArray("Liebe Eltern,\r\n");
        QTest::newRow("long letter") << QByteArray(50000, 'a');
        QTest::newRow("old engine") << QByteArray("\x00\x01\x00\x00Standard Jet DB\x00\x01\x00", 22)
                                           + QByteArray(4000, '\x00');
        QTest::newRow("zeros") << QByteArray(8192, '\x00');
        QTest::newRow("packed") << QByteArray("PK\x03\x04") + QByteArray(200, '\x01');
        QTest::newRow("page") << QByteArray("<!DOCTYPE html><html><body></body></html>");
        QTest::newRow("other version") << QByteArray("SQLite format 2\0", 16) + QByteArray(2000, '\x00');
    }

    void aForeignFileIsRefusedAndNotTouched() {
        QFETCH(QByteArray, content);
        writeContent(file(), content);
        verifyRefused(StoreError::Kind::Foreign, u"ist keine Datenbank dieses Programms."_s);
    }

    void aFolderInPlaceOfTheFileIsRefused() {
        QVERIFY(QDir().mkdir(file()));
        Connection conn;
        EXPECT_STORE_ERROR(Missing, conn.OpenFile(file()));
        EXPECT_STORE_ERROR(KeyTaken, conn.CreateFile(file()));
        QVERIFY(QFileInfo(file()).isDir());
        QVERIFY(filesIn(file()).isEmpty());
    }

    void aHeaderWithoutADatabaseBehindItIsRefusedAndNotTouched() {
        QByteArray content = soundContent();
        content.replace(100, 4000, QByteArray(4000, '\x55'));
        writeContent(file(), content);
        Connection conn;
        EXPECT_STORE_ERROR(Damaged, conn.OpenFile(file()));
        QCOMPARE(contentOf(file()), content);
        QCOMPARE(filesIn(scratch()), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }

    void anImpossiblePageSizeIsRefusedAndNotTouched() {
        QByteArray content = soundContent();
        content.replace(16, 2, QByteArray("\x00\x03", 2));
        writeContent(file(), content);
        Connection conn;
        EXPECT_STORE_ERROR(Foreign, conn.OpenFile(file()));
        QCOMPARE(contentOf(file()), content);
    }

    /// When the header does not vouch for the length, the missing end is found at the reading.
    void aMissingEndIsFoundAtTheLatestWhenItIsRead() {
        QByteArray content = soundContent();
        content[95] = static_cast<char>(content.at(95) + 1);
        content.truncate(content.size() / 2);
        writeContent(file(), content);
        Connection conn;
        EXPECT_STORE_ERROR(Damaged, conn.OpenFile(file());
                           for (const auto& table
                                : conn.Tables()) conn.Open(u"SELECT * FROM "_s + table));
        conn.Close();
        QCOMPARE(contentOf(file()), content);
        QCOMPARE(filesIn(scratch()), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }

    void aDamagedPageIsToldByTheIntegrityCheck() {
        QByteArray content = soundContent();
        content.replace(content.size() - 4096, 4096, QByteArray(4096, '\x55'));
        writeContent(file(), content);
        Connection conn;
        conn.OpenFile(file());
        QVERIFY(!conn.IntegrityProblems().isEmpty());
        conn.Close();
        QCOMPARE(contentOf(file()), content);
    }

    void aFileInWriteAheadModeIsTurnedBack() {
        writeContent(file(), soundContent());
        QCOMPARE(plainRows(file(), u"PRAGMA journal_mode=WAL"_s), QStringList{u"wal"_s});
        QVERIFY(plainRows(file(), u"INSERT INTO Bausteine VALUES (1, 'Frühbetreuung')"_s).isEmpty());
        Connection conn;
        conn.OpenFile(file());
        QCOMPARE(conn.Open(u"PRAGMA journal_mode"_s).Text(0), u"delete"_s);
        QCOMPARE(conn.Open(u"SELECT Bausteine FROM Bausteine"_s).Text(0), u"Frühbetreuung"_s);
        conn.Close();
        QCOMPARE(filesIn(scratch()), QStringList{u"KOLIBRI_Daten.mdb"_s});
        QCOMPARE(plainRows(file(), u"PRAGMA journal_mode"_s), QStringList{u"delete"_s});
    }

    /// The other tool died before it had carried its log over into the file.
    void rowsInALeftWriteAheadLogAreNotLost() {
        const QString original = scratch() + u"/original.mdb"_s;
        writeContent(original, soundContent());
        {
            PlainSqlite tool(original);
            tool.rows(u"PRAGMA journal_mode=WAL"_s);
            tool.rows(u"INSERT INTO Bausteine VALUES (1, 'Frühbetreuung')"_s);
            QVERIFY(QFile::copy(original, file()));
            QVERIFY(QFile::copy(original + u"-wal"_s, file() + u"-wal"_s));
        }
        QVERIFY(QFile::remove(original));
        Connection conn;
        conn.OpenFile(file());
        QCOMPARE(conn.Open(u"SELECT Bausteine FROM Bausteine"_s).Text(0), u"Frühbetreuung"_s);
        conn.Close();
        QCOMPARE(filesIn(scratch()), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }

    void aFileThatAnotherToolHoldsInWriteAheadModeIsBusy() {
        writeContent(file(), soundContent());
        PlainSqlite tool(file());
        tool.rows(u"PRAGMA journal_mode=WAL"_s);
        tool.rows(u"BEGIN; SELECT * FROM Bausteine"_s);
        Connection conn;
        conn.SetBusyWait(0);
        EXPECT_STORE_ERROR(Busy, conn.OpenFile(file()));
        QVERIFY(!conn.IsOpen());
        tool.rows(u"COMMIT"_s);
    }
};

KOLIBRI_TEST_MAIN(foreign_fileTest)
#include "foreign_file_test.moc"
