#include "core/runtime_error.h"
#include "core/settings_file.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace kolibri;

class SettingsFileTest : public kolibri::test::TestBase {
    Q_OBJECT

    QString write(const QByteArray& content) {
        QFile file(scratch() + u"/einstellungen.txt"_s);
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        return file.fileName();
    }

    static QByteArray contentOf(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private Q_SLOTS:
    void thereIsNoFolderWithoutAFile() {
        QVERIFY(!readDatabaseFolder(scratch() + u"/einstellungen.txt"_s).has_value());
    }

    void bothSignsBehindTheKeyAreRead_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("folder");
        QTest::newRow("semicolon") << QByteArray("Datenbankpfad;D:\\Daten\r\n") << u"D:\\Daten"_s;
        QTest::newRow("equals sign") << QByteArray("Datenbankpfad=D:\\Daten\r\n") << u"D:\\Daten"_s;
        QTest::newRow("last line wins") << QByteArray("Datenbankpfad;A\r\nDatenbankpfad=B\r\n") << u"B"_s;
        QTest::newRow("other lines are skipped")
            << QByteArray("Drucker;X\r\n Datenbankpfad;A\r\nDatenbankpfad;B\r\ndatenbankpfad;C") << u"B"_s;
        QTest::newRow("no path line") << QByteArray("Drucker;X\r\n") << QString();
        QTest::newRow("empty file") << QByteArray() << QString();
        QTest::newRow("umlaut") << QByteArray("Datenbankpfad;C:\\B\xFCro") << u"C:\\Büro"_s;
        QTest::newRow("line ends of another system") << QByteArray("Datenbankpfad;A\nX") << u"A"_s;
        QTest::newRow("old line ends") << QByteArray("X\rDatenbankpfad;A\rY") << u"A"_s;
        QTest::newRow("blanks belong to the path") << QByteArray("Datenbankpfad; A \r\n") << u" A "_s;
    }

    void bothSignsBehindTheKeyAreRead() {
        QFETCH(QByteArray, content);
        QFETCH(QString, folder);
        const auto read = readDatabaseFolder(write(content));
        QVERIFY(read.has_value());
        QCOMPARE(*read, folder);
    }

    void itIsWrittenWithASemicolonAndOneLine() {
        const QString file = write("Datenbankpfad=D:\\Daten\r\nDrucker;X\r\n");
        writeDatabaseFolder(file, *readDatabaseFolder(file));
        QCOMPARE(contentOf(file), QByteArray("Datenbankpfad;D:\\Daten\r\n"));
        writeDatabaseFolder(file, u"C:\\Büro"_s);
        QCOMPARE(contentOf(file), QByteArray("Datenbankpfad;C:\\B\xFCro\r\n"));
    }

    void aFolderOutsideTheCodePageIsNotLost() {
        const QString file = scratch() + u"/einstellungen.txt"_s;
        writeDatabaseFolder(file, u"/home/łucja"_s);
        QCOMPARE(*readDatabaseFolder(file), u"/home/łucja"_s);
    }

    void aFileThatCannotBeWrittenIsAnError() {
        QFile blocker(scratch() + u"/datei"_s);
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
                                 writeDatabaseFolder(blocker.fileName() + u"/einstellungen.txt"_s, u"A"_s));
    }

    void aFolderInThePlaceOfTheFileIsAnError() {
        QVERIFY(QDir(scratch()).mkdir(u"einstellungen.txt"_s));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, readDatabaseFolder(scratch() + u"/einstellungen.txt"_s));
    }
};

KOLIBRI_TEST_MAIN(SettingsFileTest)
#include "settings_file_test.moc"
