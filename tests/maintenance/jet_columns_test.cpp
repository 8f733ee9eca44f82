#include "core/widgets/application.h"
#include "maintenance/jet_columns.h"
#include "support/test_base.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

QVariant at(const QString& text) {
    return QDateTime::fromString(text + u'Z', Qt::ISODate);
}

/// The column in which the values of one old column are kept.
ColumnInfo kept(const QString& table, const JetColumn& column, const std::vector<QVariant>& values) {
    JetTable old{table, {column}, {}, 0};
    for (const auto& value : values)
        old.rows.push_back({value});
    return columnsFor(old).at(0);
}

ColumnKind kindOf(const JetColumn& column, const std::vector<QVariant>& values) {
    return kept(u"Fremd"_s, column, values).kind;
}

} // namespace

Q_DECLARE_METATYPE(kolibri::ColumnKind)

/// Which kind a column of an old file takes in the office's database, so that no value is lost.
class JetColumnsTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aKnownColumnBearsTheNameAndKindOfTheSchema() {
        const ColumnInfo size = kept(u"einstellungen"_s, {u"GRÖSSE"_s, JetType::Whole}, {qint64(10)});
        QCOMPARE(size.name, u"Grösse"_s);
        QCOMPARE(size.kind, ColumnKind::Long);
        QCOMPARE(kept(u"Stammdaten"_s, {u"PLZ"_s, JetType::Whole}, {qint64(2826)}).kind, ColumnKind::Text);
        QCOMPARE(
            kept(u"Stammdaten"_s, {u"SCH_Geb"_s, JetType::DateTime}, {at(u"2005-03-17T00:00:00"_s)}).kind,
            ColumnKind::Text);
        QCOMPARE(kept(u"Stammdaten"_s, {u"MI_Beitrag"_s, JetType::Floating}, {18.05, QVariant()}).kind,
                 ColumnKind::Currency);
        QCOMPARE(kept(u"GR6"_s, {u"ID"_s, JetType::Whole, true}, {qint64(1)}).kind, ColumnKind::Long);
    }

    void aKnownColumnGivesWayWhereItWouldLoseAValue() {
        QCOMPARE(kept(u"Stammdaten"_s, {u"Anmerkung"_s, JetType::Memo}, {QString(256, u'x')}).kind,
                 ColumnKind::Memo);
        QCOMPARE(kept(u"Stammdaten"_s, {u"Schulstufe"_s, JetType::Text}, {u"3"_s, u"drei"_s}).kind,
                 ColumnKind::Text);
        QCOMPARE(kept(u"Klassen"_s, {u"ID"_s, JetType::Whole, true}, {qint64(1), qint64(1)}).kind,
                 ColumnKind::Long);
        QCOMPARE(kept(u"Stammdaten"_s, {u"MI_Beitrag"_s, JetType::Floating}, {1.0 / 3.0}).kind,
                 ColumnKind::Memo);
    }

    void aTimeOfTheScheduleStaysATimeWhateverItsDay() {
        const ColumnInfo column =
            kept(u"GR1"_s, {u"Zeit_Von"_s, JetType::DateTime}, {at(u"2004-06-05T13:00:00"_s)});
        QCOMPARE(column.name, u"Zeit_von"_s);
        QCOMPARE(column.kind, ColumnKind::DateTime);
        QCOMPARE(toStored(column, takenValue(column, at(u"2004-06-05T13:00:00"_s)), {}),
                 QVariant(u"13:00"_s));
    }

    void anUnknownColumnTakesTheNearestKind_data() {
        QTest::addColumn<JetType>("type");
        QTest::addColumn<QVariantList>("values");
        QTest::addColumn<ColumnKind>("kind");
        using enum JetType;
        QTest::newRow("boolean") << Boolean << QVariantList{true, false} << ColumnKind::Boolean;
        QTest::newRow("whole") << Whole << QVariantList{qint64(-5), QVariant()} << ColumnKind::Long;
        QTest::newRow("money") << Money << QVariantList{12.3456, 0.0} << ColumnKind::Currency;
        QTest::newRow("floating") << Floating << QVariantList{12.5, -3.0} << ColumnKind::Currency;
        QTest::newRow("fine floating") << Floating << QVariantList{12.34567} << ColumnKind::Memo;
        QTest::newRow("huge floating") << Floating << QVariantList{1e300} << ColumnKind::Memo;
        QTest::newRow("time") << DateTime << QVariantList{at(u"1899-12-30T07:50:00"_s)}
                              << ColumnKind::DateTime;
        QTest::newRow("time with seconds")
            << DateTime << QVariantList{at(u"1899-12-30T07:50:30"_s)} << ColumnKind::Memo;
        QTest::newRow("day") << DateTime << QVariantList{at(u"2005-03-17T00:00:00"_s)} << ColumnKind::Memo;
        QTest::newRow("text") << Text << QVariantList{u"x"_s, QVariant()} << ColumnKind::Text;
        QTest::newRow("memo") << Memo << QVariantList{u"x"_s} << ColumnKind::Memo;
        QTest::newRow("bytes") << Binary << QVariantList{QByteArray("\x01\xff")} << ColumnKind::Memo;
        QTest::newRow("nothing") << DateTime << QVariantList{} << ColumnKind::DateTime;
    }

    void anUnknownColumnTakesTheNearestKind() {
        QFETCH(JetType, type);
        QFETCH(QVariantList, values);
        QFETCH(ColumnKind, kind);
        QCOMPARE(kindOf({u"x"_s, type}, {values.begin(), values.end()}), kind);
    }

    void aTableHasOneKey() {
        JetTable table{u"Fremd"_s,
                       {{u"a"_s, JetType::Whole, true}, {u"b"_s, JetType::Whole, true}},
                       {{qint64(1), qint64(2)}},
                       2};
        QCOMPARE(columnsFor(table).at(0).kind, ColumnKind::AutoNumber);
        QCOMPARE(columnsFor(table).at(1).kind, ColumnKind::Long);
    }

    void valuesBecomeGermanTexts_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("day") << at(u"2005-03-17T00:00:00"_s) << u"17.03.2005"_s;
        QTest::newRow("moment") << at(u"2005-03-17T18:30:05"_s) << u"17.03.2005 18:30:05"_s;
        QTest::newRow("time") << at(u"1899-12-30T18:30:05"_s) << u"18:30:05"_s;
        QTest::newRow("whole") << QVariant(qint64(2826)) << u"2826"_s;
        QTest::newRow("fraction") << QVariant(0.1) << u"0,1"_s;
        QTest::newRow("third") << QVariant(1.0 / 3.0) << u"0,3333333333333333"_s;
        QTest::newRow("yes") << QVariant(true) << u"Wahr"_s;
        QTest::newRow("bytes") << QVariant(QByteArray("\x01\xff")) << u"01ff"_s;
        QTest::newRow("text") << QVariant(u"2005-03-17"_s) << u"2005-03-17"_s;
    }

    void valuesBecomeGermanTexts() {
        QFETCH(QVariant, value);
        QFETCH(QString, text);
        QCOMPARE(takenValue({u"x"_s, ColumnKind::Memo}, value), QVariant(text));
    }

    void aDateOfBirthBecomesGermanWhateverItsForm() {
        const ColumnInfo birth{u"SCH_Geb"_s, ColumnKind::Text};
        for (const QVariant& value : {at(u"2005-03-17T00:00:00"_s), QVariant(u"2005-03-17"_s),
                                      QVariant(u"2005-03-17T00:00:00"_s), QVariant(u"17.03.2005"_s)})
            QCOMPARE(takenValue(birth, value), QVariant(u"17.03.2005"_s));
        QCOMPARE(takenValue(birth, u"März 2005"_s), QVariant(u"März 2005"_s));
        QVERIFY(takenValue(birth, QVariant()).isNull());
    }
};

KOLIBRI_TEST_MAIN(JetColumnsTest)
#include "jet_columns_test.moc"
