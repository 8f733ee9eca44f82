#include "core/store/store_error.h"
#include "core/widgets/application.h"
#include "maintenance/jet_file.h"
#include "support/fixtures.h"
#include "support/test_base.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

/// What is read from a sound file of an older program version.
class JetFileTest : public TestBase {
    Q_OBJECT

private:
    QString file(const QString& name) {
        const QString path = scratch() + u"/alt.mdb"_s;
        writeFile(path, fixture(u"jet/%1/KOLIBRI_Daten.mdb"_s.arg(name)));
        return path;
    }

    static QVariant cell(const JetTable& table, const QString& column, const QVariant& key) {
        for (const auto& row : table.rows)
            for (std::size_t i = 0; i < table.columns.size(); ++i)
                if (table.columns[i].name == column && row.front() == key)
                    return row[i];
        return u"<fehlt>"_s;
    }

private Q_SLOTS:
    void textIsReadInItsForms_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("two bytes a letter") << QByteArray("M\0\xfc\0\x0d\x01", 6) << u"Müč"_s;
        QTest::newRow("one byte a letter") << QByteArray("\xff\xfeM\xfcller") << u"Müller"_s;
        QTest::newRow("stretches of both")
            << QByteArray("\xff\xfeKova\0\x0d\x01i\0\x07\x01\0!", 15) << u"Kovačić!"_s;
        QTest::newRow("empty") << QByteArray() << u""_s;
        QTest::newRow("marked and empty") << QByteArray("\xff\xfe") << u""_s;
        QTest::newRow("half a letter at the end") << QByteArray("A\0B", 3) << u"AB"_s;
        QTest::newRow("half a letter in a stretch") << QByteArray("\xff\xfe\0A", 4) << u"A"_s;
    }

    void textIsReadInItsForms() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(jetText(bytes, true), text);
        QVERIFY(!jetText(bytes, true).isNull());
    }

    void textOfTheOlderFormatIsWindows1252() {
        QCOMPARE(jetText("Gr\xfc\xdf"
                         "e \x80",
                         false),
                 u"Grüße €"_s);
        QVERIFY(!jetText({}, false).isNull());
    }

    void datesAndTimesAreExactToTheSecond_data() {
        QTest::addColumn<double>("days");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << 0.0 << u"1899-12-30T00:00:00Z"_s;
        QTest::newRow("one o'clock") << 13.0 / 24.0 << u"1899-12-30T13:00:00Z"_s;
        QTest::newRow("just before") << 0.5416666666 << u"1899-12-30T13:00:00Z"_s;
        QTest::newRow("a day") << 38428.0 << u"2005-03-17T00:00:00Z"_s;
        QTest::newRow("a day with a time") << 38428.75 << u"2005-03-17T18:00:00Z"_s;
        QTest::newRow("the end of a day") << 38428.9999999 << u"2005-03-18T00:00:00Z"_s;
        // The point divides in a negative number too: a quarter of the day, not three quarters of the one
        // before.
        QTest::newRow("before 1899") << -1.25 << u"1899-12-29T06:00:00Z"_s;
    }

    void datesAndTimesAreExactToTheSecond() {
        QFETCH(double, days);
        QFETCH(QString, text);
        QCOMPARE(jetDateTime(days).toString(Qt::ISODate), text);
    }

    void theTablesOfTheOfficeAreListedAlone() {
        JetFile jet(file(u"alt"_s));
        QCOMPARE(jet.tables(),
                 QStringList({u"Einstellungen"_s, u"Klassen"_s, u"GR1"_s, u"GR2"_s, u"GR3"_s, u"GR4"_s,
                              u"GR5"_s, u"Stammdaten"_s, u"SCH_Notiz"_s, u"ME_LZ_AG_Notizen"_s}));
    }

    void nullAndEmptyAreToldApart() {
        const JetTable table = JetFile(file(u"neu"_s)).read(u"Einstellungen"_s, [] {});
        QCOMPARE(cell(table, u"BeitragBezeichnung"_s, u"Beitrag_5"_s), QVariant(u""_s));
        QVERIFY(cell(table, u"BeitragBezeichnung"_s, u"Beitrag_6"_s).isNull());
    }

    void aMemoOverSeveralPagesIsWhole() {
        const JetTable table = JetFile(file(u"neu"_s)).read(u"SCH_Notiz"_s, [] {});
        QCOMPARE(cell(table, u"Notiz"_s, 137).toString().size(), 3000);
        QCOMPARE(cell(table, u"Notiz"_s, 138), QVariant(u""_s));
    }

    void theLastKeyGivenIsKnown() {
        int rows = 0;
        JetFile jet(file(u"neu"_s));
        const JetTable table = jet.read(u"Stammdaten"_s, [&] { ++rows; });
        QCOMPARE(rows, 320);
        QCOMPARE(jet.rowsOf(u"Stammdaten"_s), 320);
        QCOMPARE(table.lastAutoNumber, 343);
        QVERIFY(table.columns.front().autoNumber);
    }

    void aTableThatIsNotThereIsDamage() {
        JetFile jet(file(u"alt"_s));
        QVERIFY_THROWS_EXCEPTION(StoreError, jet.read(u"Bausteine"_s, [] {}));
    }
};

KOLIBRI_TEST_MAIN(JetFileTest)
#include "jet_file_test.moc"
