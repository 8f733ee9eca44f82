#include "core/store/store_error.h"
#include "core/widgets/application.h"
#include "maintenance/spreadsheet.h"
#include "support/fixtures.h"
#include "support/test_base.h"

#include <QJsonArray>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kTool = QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri-db"_s;

QStringList texts(const QJsonValue& array) {
    QStringList result;
    for (const auto& value : array.toArray())
        result << value.toString();
    return result;
}

} // namespace

/// Reading spreadsheets by the built tool, as the program does.
class SpreadsheetTest : public TestBase {
    Q_OBJECT

private:
    QString file(const QString& name, const QByteArray& content) {
        const QString path = scratch() + u'/' + name;
        writeFile(path, content);
        return path;
    }
    QString file(const QString& name) { return file(name, fixture(u"xls/"_s + name)); }

    /// The words with which a file is refused; empty when it is read.
    static QString refusal(const QString& path) {
        try {
            readSpreadsheetInOwnProcess(kTool, path);
        } catch (const StoreError& error) {
            return error.message();
        }
        return {};
    }

private Q_SLOTS:
    void everyCellComesInAsItIs_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("as the maker writes it") << u"schueler.xls"_s;
        QTest::newRow("as another program writes it") << u"schueler_libreoffice.xls"_s;
    }

    void everyCellComesInAsItIs() {
        QFETCH(QString, name);
        const QJsonObject expected = jsonFixture(u"xls/expected.json"_s)[name].toObject();
        const Spreadsheet sheet = readSpreadsheetInOwnProcess(kTool, file(name));
        QCOMPARE(sheet.name, expected[u"sheet"].toString());
        QCOMPARE(sheet.columns, texts(expected[u"columns"]));
        const QJsonArray rows = expected[u"rows"].toArray();
        QCOMPARE(sheet.rows.size(), static_cast<std::size_t>(rows.size()));
        const QJsonObject kinds = expected[u"kinds"].toObject();
        for (qsizetype i = 0; i < rows.size(); ++i) {
            const QJsonArray cells = rows.at(i).toArray();
            const QStringList& row = sheet.rows.at(static_cast<std::size_t>(i));
            QCOMPARE(row.size(), cells.size());
            for (qsizetype column = 0; column < cells.size(); ++column) {
                QString wanted = cells.at(column).toString();
                if (kinds[sheet.columns.at(column)].toString() == u"number"_s)
                    wanted.replace(u'.', u',');
                QCOMPARE(row.at(column), wanted);
                QCOMPARE(row.at(column).isNull(), cells.at(column).isNull());
            }
        }
    }

    void numbersAreGermanAndBare_data() {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("text");
        QTest::newRow("whole") << 36.0 << u"36"_s;
        QTest::newRow("cents") << 0.4 << u"0,4"_s;
        QTest::newRow("negative") << -12.5 << u"-12,5"_s;
        QTest::newRow("telephone") << 491713920082.0 << u"491713920082"_s;
        QTest::newRow("sum of tenths") << 0.1 + 0.2 << u"0,3"_s;
    }

    void numbersAreGermanAndBare() {
        QFETCH(double, number);
        QFETCH(QString, text);
        QCOMPARE(numberCell(number), text);
    }

    void datesAreGerman() {
        QCOMPARE(dateCell(u"2018-03-04"_s), u"04.03.2018"_s);
        QCOMPARE(dateCell(u"2018-03-04 00:00:00"_s), u"04.03.2018"_s);
        QCOMPARE(dateCell(u"2018-03-04 13:05:00"_s), u"04.03.2018 13:05:00"_s);
    }

    void aTextFileUnderTheWrongEndingIsRefused() {
        QVERIFY(refusal(file(u"kein_excel.xls"_s)).contains(u"ist keine Excel-Tabelle (Excel 97-2003)."_s));
    }

    void theNewerFormatIsRefused() {
        QVERIFY(refusal(file(u"schueler.xlsx"_s)).contains(u"liegt in einem neueren Format vor."_s));
    }

    void aSheetWithoutRowsIsRefused() {
        QVERIFY(refusal(file(u"leer.xls"_s)).contains(u"enthält unter der Kopfzeile keine Zeilen."_s));
    }

    void anEmptyFileIsRefused() { QVERIFY(refusal(file(u"x.xls"_s, {})).contains(u"ist leer."_s)); }

    void aFileThatIsNotThereIsRefused() {
        QVERIFY(refusal(scratch() + u"/fehlt.xls"_s).contains(u"kann nicht gelesen werden. Ist sie noch"_s));
    }

    void aFileThatIsCutOffIsRefused() {
        const QByteArray whole = fixture(u"xls/schueler.xls"_s);
        for (const qsizetype size : {qsizetype(100), qsizetype(600), whole.size() / 2})
            QVERIFY(refusal(file(u"x.xls"_s, whole.first(size))).contains(u"ist beschädigt"_s));
    }

    void damagedFilesNeverCrash() {
        constexpr int kFiles = 60;
        const QByteArray whole = fixture(u"xls/schueler.xls"_s);
        int refused = 0;
        for (quint32 seed = 0; seed < kFiles; ++seed) {
            QRandomGenerator random(seed);
            QByteArray content = whole;
            for (int times = 1 << random.bounded(9); times > 0; --times) {
                const int end = static_cast<int>(random.bounded(2) == 0 ? 3000 : content.size());
                content[random.bounded(end)] = static_cast<char>(random.bounded(256));
            }
            refused += refusal(file(u"x.xls"_s, content)).isEmpty() ? 0 : 1;
        }
        QVERIFY(refused > 0);
    }

    void aCrashOfTheReaderIsToldInWords() {
        const QString tool = scratch() + u"/absturz"_s;
        writeFile(tool, "#!/bin/sh\nkill -SEGV $$\n");
        QVERIFY(QFile::setPermissions(tool, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QVERIFY_THROWS_EXCEPTION(StoreError, readSpreadsheetInOwnProcess(tool, file(u"schueler.xls"_s)));
    }
};

KOLIBRI_TEST_MAIN(SpreadsheetTest)
#include "spreadsheet_test.moc"
