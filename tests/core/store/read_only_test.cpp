// A file or folder in which the office may not write. Permissions do not bind the administrator, so the work
// is done by another process, which lays the administrator's rights down first.

#include "core/mdlAllgemein.h"
#include "core/store/connection.h"
#include "core/widgets/application.h"
#include "plain_sqlite.h"
#include "store_support.h"
#include "support/probe.h"
#include "support/test_base.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

constexpr auto kReadFile = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
constexpr auto kWriteFile = kReadFile | QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
constexpr auto kEnterFolder = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
constexpr auto kReadFolder = kReadFile | kEnterFolder;
constexpr auto kWriteFolder = kWriteFile | kEnterFolder;

} // namespace

class read_onlyTest : public TestBase {
    Q_OBJECT

    /// Command that runs a program without the right to pass over permissions; empty when not needed.
    QStringList m_asAnyone;

    QString folder() const { return scratch() + u"/netz"_s; }
    QString file() const { return folder() + u"/KOLIBRI_Daten.mdb"_s; }

    void makeSchool() {
        useEmptyDatabase();
        QVERIFY(QDir().mkdir(folder()));
        QVERIFY(QFile::rename(DatenbankDatei(home()), file()));
        Connection conn;
        conn.OpenFile(file());
        conn.AddNew(u"Bausteine"_s).Set(u"Bausteine"_s, u"Frühbetreuung"_s).Update();
    }

    void permit(QFile::Permissions ofFolder, QFile::Permissions ofFile) {
        QVERIFY(QFile::setPermissions(home(), kWriteFolder));
        QVERIFY(QFile::setPermissions(scratch(), kReadFolder));
        QVERIFY(QFile::setPermissions(file(), ofFile));
        QVERIFY(QFile::setPermissions(folder(), ofFolder));
    }

    QString saidBy(const QStringList& order) { return Probe(order, m_asAnyone).line(); }
    QString changeSays() { return saidBy({u"change"_s, file(), u"0"_s, u"Spätbetreuung"_s}); }
    QString readSays() { return saidBy({u"read"_s, file(), u"0"_s}); }

    static QString refusal(StoreError::Kind kind, const QString& words) {
        return u"error %1 %2"_s.arg(static_cast<int>(kind)).arg(words);
    }
    static QString readOnlyRefusal() {
        return refusal(StoreError::Kind::ReadOnly,
                       u"In die Datenbank kann nicht geschrieben werden. Bitte "
                       "prüfen Sie, ob Sie in ihrem Ordner Dateien ändern dürfen."_s);
    }

private Q_SLOTS:
    void initTestCase() {
        QTemporaryDir folderOfTest;
        const QString closed = folderOfTest.filePath(u"zu"_s);
        QVERIFY(QDir().mkdir(closed));
        QVERIFY(QFile::setPermissions(folderOfTest.path(), kReadFolder));
        QVERIFY(QFile::setPermissions(closed, kReadFolder));
        QFile attempt(closed + u"/datei"_s);
        const bool permissionsBind = !attempt.open(QIODevice::WriteOnly);
        attempt.remove();
        QVERIFY(QFile::setPermissions(closed, kWriteFolder));
        QVERIFY(QFile::setPermissions(folderOfTest.path(), kWriteFolder));
        if (permissionsBind)
            return;
        if (QStandardPaths::findExecutable(u"setpriv"_s).isEmpty())
            QSKIP("permissions do not bind this user, and setpriv is not there to become another one");
        m_asAnyone = QStringList{u"setpriv"_s, u"--reuid=65534"_s, u"--regid=65534"_s, u"--clear-groups"_s};
        if (!Probe(QStringList(), m_asAnyone).line().startsWith(u"verbs:"_s))
            QSKIP(
                "permissions do not bind this user, and another one cannot reach the programs of this build");
    }

    void cleanup() {
        if (QDir(folder()).exists())
            QFile::setPermissions(folder(), kWriteFolder);
        QFile::setPermissions(scratch(), kWriteFolder);
        TestBase::cleanup();
    }

    void aFileThatCannotBeWrittenIsReadAndTheWriterIsTold_data() {
        QTest::addColumn<int>("ofFolder");
        QTest::addColumn<int>("ofFile");
        const auto row = [](const char* name, QFile::Permissions ofFolder, QFile::Permissions ofFile) {
            QTest::newRow(name) << static_cast<int>(ofFolder) << static_cast<int>(ofFile);
        };
        row("folder and file", kReadFolder, kReadFile);
        row("folder", kReadFolder, kWriteFile);
        row("file", kWriteFolder, kReadFile);
    }

    void aFileThatCannotBeWrittenIsReadAndTheWriterIsTold() {
        QFETCH(int, ofFolder);
        QFETCH(int, ofFile);
        makeSchool();
        const QByteArray content = contentOf(file());
        permit(QFile::Permissions(ofFolder), QFile::Permissions(ofFile));
        QCOMPARE(readSays(), u"1 rows"_s);
        QCOMPARE(changeSays(), readOnlyRefusal());
        QCOMPARE(contentOf(file()), content);
        QCOMPARE(filesIn(folder()), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }

    /// So that the refusals of this test are not those of any user at all.
    void withAllRightsTheSameChangeGetsThrough() {
        makeSchool();
        permit(kWriteFolder, kWriteFile);
        QCOMPARE(changeSays(), u"1 rows"_s);
        Connection conn;
        conn.OpenFile(file());
        QCOMPARE(conn.Open(u"SELECT Bausteine FROM Bausteine"_s).Text(0), u"Spätbetreuung"_s);
    }

    void aFileThatCannotBeReadIsTold() {
        makeSchool();
        permit(kReadFolder, {});
        QCOMPARE(readSays(), refusal(StoreError::Kind::Missing,
                                     u"Die Datenbank %1 kann nicht geöffnet werden."_s.arg(file())));
    }

    void aFolderThatCannotBeEnteredIsTold() {
        makeSchool();
        permit({}, kWriteFile);
        QCOMPARE(readSays(),
                 refusal(StoreError::Kind::Missing, u"Die Datenbank %1 wurde nicht gefunden."_s.arg(file())));
    }

    void aSafetyCopyThatCannotBeWrittenIsToldAndLeavesNoFile() {
        makeSchool();
        permit(kReadFolder, kWriteFile);
        const QString said = saidBy({u"copy"_s, file(), u"0"_s});
        QVERIFY2(said.startsWith(
                     refusal(StoreError::Kind::ReadOnly,
                             u"Die Sicherheitskopie %1/KOLIBRI_Daten-Sicherheitskopie-"_s.arg(folder()))),
                 qPrintable(said));
        QVERIFY2(said.endsWith(u" kann nicht geschrieben werden."_s), qPrintable(said));
        QCOMPARE(filesIn(folder()), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }

    /// The old state can only be brought back by somebody who may write; until then nobody is shown half a
    /// cascade.
    void anUnfinishedCascadeIsNotReadWhereItCannotBeTakenBack() {
        makeSchool();
        {
            Connection conn;
            conn.OpenFile(file());
            Transaction transaction(conn);
            for (int i = 0; i < 300; ++i)
                conn.AddNew(u"Stammdaten"_s).Set(u"GR1_MO"_s, QString(150, u'a')).Update();
            transaction.Commit();
        }
        Probe writer({u"cascade"_s, file(), u"0"_s, u"pupils"_s});
        QCOMPARE(writer.line(), u"pupils"_s);
        writer.kill();
        const QByteArray content = contentOf(file());
        QVERIFY(QFile::setPermissions(file() + u"-journal"_s, kReadFile));
        permit(kReadFolder, kReadFile);
        QCOMPARE(readSays(), readOnlyRefusal());
        QCOMPARE(contentOf(file()), content);
        permit(kWriteFolder, kWriteFile);
        QVERIFY(QFile::setPermissions(file() + u"-journal"_s, kWriteFile));
        QCOMPARE(readSays(), u"1 rows"_s);
        QVERIFY(contentOf(file()) != content);
        QCOMPARE(filesIn(folder()), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }

    void aFileInWriteAheadModeThatCannotBeTurnedBackIsRefused() {
        makeSchool();
        QCOMPARE(plainRows(file(), u"PRAGMA journal_mode=WAL"_s), QStringList{u"wal"_s});
        const QByteArray content = contentOf(file());
        permit(kReadFolder, kReadFile);
        QCOMPARE(readSays(), readOnlyRefusal());
        QCOMPARE(contentOf(file()), content);
        QCOMPARE(filesIn(folder()), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }
};

KOLIBRI_TEST_MAIN(read_onlyTest)
#include "read_only_test.moc"
