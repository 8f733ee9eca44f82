#include "core/store/column_kind.h"
#include "core/store/connection.h"
#include "core/widgets/application.h"
#include "store_support.h"
#include "support/test_base.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

Q_DECLARE_METATYPE(kolibri::ColumnKind)

namespace {

using enum ColumnKind;

struct Accepted {
    const char* name;
    ColumnKind kind;
    QVariant written;
    QVariant stored;
    QString german;
};

QString letters(int count) {
    return QString(count, u'ä');
}

const std::vector<Accepted>& accepted() {
    static const std::vector<Accepted> cases{
        {"text", Text, u"Müller"_s, u"Müller"_s, u"Müller"_s},
        {"empty text", Text, u""_s, u""_s, u""_s},
        {"text without content", Text, QString(), u""_s, u""_s},
        {"text with blanks", Text, u" a "_s, u" a "_s, u" a "_s},
        {"text of 255", Text, letters(255), letters(255), letters(255)},
        {"text from number", Text, 7, u"7"_s, u"7"_s},
        {"text from fraction", Text, 12.5, u"12,5"_s, u"12,5"_s},
        {"text from true", Text, true, u"Wahr"_s, u"Wahr"_s},
        {"text from false", Text, false, u"Falsch"_s, u"Falsch"_s},
        {"text without value", Text, QVariant(), QVariant(), u""_s},
        {"long memo", Memo, letters(40000), letters(40000), letters(40000)},
        {"memo with lines", Memo, u"a\r\nb|c"_s, u"a\r\nb|c"_s, u"a\r\nb|c"_s},
        {"memo without value", Memo, QVariant(), QVariant(), u""_s},
        {"number", Long, 7, 7LL, u"7"_s},
        {"number as text", Long, u" 7 "_s, 7LL, u"7"_s},
        {"negative number", Long, u"-7"_s, -7LL, u"-7"_s},
        {"number with plus", Long, u"+7"_s, 7LL, u"7"_s},
        {"grouped number", Long, u"1.250"_s, 1250LL, u"1250"_s},
        {"largest number", Long, u"2147483647"_s, 2147483647LL, u"2147483647"_s},
        {"smallest number", Long, -2147483648LL, -2147483648LL, u"-2147483648"_s},
        {"half rounds to even down", Long, u"2,5"_s, 2LL, u"2"_s},
        {"half rounds to even up", Long, u"3,5"_s, 4LL, u"4"_s},
        {"negative half to even", Long, u"-2,5"_s, -2LL, u"-2"_s},
        {"above half rounds up", Long, 2.50001, 3LL, u"3"_s},
        {"largest after rounding", Long, u"2147483647,4"_s, 2147483647LL, u"2147483647"_s},
        {"true as number", Long, true, -1LL, u"-1"_s},
        {"number without value", Long, QVariant(), QVariant(), u""_s},
        {"key", AutoNumber, u"17"_s, 17LL, u"17"_s},
        {"key without value", AutoNumber, QVariant(), QVariant(), u""_s},
        {"true", Boolean, true, true, u"Wahr"_s},
        {"false", Boolean, false, false, u"Falsch"_s},
        {"Wahr", Boolean, u"Wahr"_s, true, u"Wahr"_s},
        {"wahr in small letters", Boolean, u"wahr"_s, true, u"Wahr"_s},
        {"True", Boolean, u"True"_s, true, u"Wahr"_s},
        {"Ja", Boolean, u"Ja"_s, true, u"Wahr"_s},
        {"Yes", Boolean, u"Yes"_s, true, u"Wahr"_s},
        {"Falsch", Boolean, u"Falsch"_s, false, u"Falsch"_s},
        {"FALSE", Boolean, u"FALSE"_s, false, u"Falsch"_s},
        {"Nein", Boolean, u"Nein"_s, false, u"Falsch"_s},
        {"No", Boolean, u"No"_s, false, u"Falsch"_s},
        {"one", Boolean, u"1"_s, true, u"Wahr"_s},
        {"minus one", Boolean, -1, true, u"Wahr"_s},
        {"any number", Boolean, u"0,5"_s, true, u"Wahr"_s},
        {"zero", Boolean, u"0"_s, false, u"Falsch"_s},
        {"no value is false", Boolean, QVariant(), false, u"Falsch"_s},
        {"money with comma", Currency, u"12,50"_s, 12.5, u"12,5"_s},
        {"money with groups", Currency, u"1.250,00"_s, 1250.0, u"1250"_s},
        {"money in millions", Currency, u"1.234.567,89"_s, 1234567.89, u"1234567,89"_s},
        {"money as number", Currency, 45, 45.0, u"45"_s},
        {"money as fraction", Currency, 12.5, 12.5, u"12,5"_s},
        {"money below zero", Currency, u"-0,05"_s, -0.05, u"-0,05"_s},
        {"money without whole part", Currency, u",5"_s, 0.5, u"0,5"_s},
        {"money with bare comma", Currency, u"5,"_s, 5.0, u"5"_s},
        {"money keeps four decimals", Currency, u"0,1234"_s, 0.1234, u"0,1234"_s},
        {"money rounds half to even down", Currency, u"0,00005"_s, 0.0, u"0"_s},
        {"money rounds half to even up", Currency, u"0,00015"_s, 0.0002, u"0,0002"_s},
        {"money has no minus zero", Currency, u"-0,00001"_s, 0.0, u"0"_s},
        {"money without value", Currency, QVariant(), QVariant(), u""_s},
        {"time", DateTime, u"08:05"_s, u"08:05"_s, u"08:05"_s},
        {"time with one digit", DateTime, u"8:05"_s, u"08:05"_s, u"08:05"_s},
        {"time with blanks", DateTime, u" 13:45 "_s, u"13:45"_s, u"13:45"_s},
        {"time with seconds", DateTime, u"13:45:30"_s, u"13:45"_s, u"13:45"_s},
        {"midnight", DateTime, u"00:00"_s, u"00:00"_s, u"00:00"_s},
        {"last minute", DateTime, u"23:59"_s, u"23:59"_s, u"23:59"_s},
        {"end of the day", DateTime, u"24:00"_s, u"24:00"_s, u"24:00"_s},
        {"time of the platform", DateTime, QTime(8, 5, 59), u"08:05"_s, u"08:05"_s},
        {"time without value", DateTime, QVariant(), QVariant(), u""_s},
    };
    return cases;
}

ColumnInfo columnOf(ColumnKind kind) {
    return {u"Feld"_s, kind};
}

} // namespace

class column_kindTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aColumnTakesItsValues_data() {
        QTest::addColumn<int>("index");
        for (std::size_t i = 0; i < accepted().size(); ++i)
            QTest::newRow(accepted()[i].name) << static_cast<int>(i);
    }

    void aColumnTakesItsValues() {
        QFETCH(int, index);
        const Accepted& example = accepted().at(static_cast<std::size_t>(index));
        const QVariant stored = toStored(columnOf(example.kind), example.written, u"Tabelle"_s);
        QCOMPARE(stored.typeId(), example.stored.typeId());
        QCOMPARE(stored, example.stored);
        QCOMPARE(toGermanText(stored), example.german);
        if (stored.typeId() == QMetaType::Double)
            QCOMPARE(std::signbit(stored.toDouble()), std::signbit(example.stored.toDouble()));
    }

    /// Written into a real file and read again by another opening, a value is what it was.
    void aValueComesBackFromAFile() {
        const QString file = scratch() + u"/werte.mdb"_s;
        Connection conn;
        conn.CreateFile(file);
        std::vector<ColumnInfo> columns;
        for (std::size_t i = 0; i < accepted().size(); ++i)
            columns.push_back(
                {u"Feld%1"_s.arg(i), accepted()[i].kind == AutoNumber ? Long : accepted()[i].kind});
        conn.CreateTable(u"Werte"_s, columns);
        NewRow row = conn.AddNew(u"Werte"_s);
        FieldValues changes;
        for (std::size_t i = 0; i < accepted().size(); ++i) {
            row.Set(u"Feld%1"_s.arg(i), accepted()[i].written);
            changes.push_back({u"Feld%1"_s.arg(i), accepted()[i].written});
        }
        row.Update();
        conn.AddNew(u"Werte"_s).Update();
        QCOMPARE(conn.Change(u"Werte"_s, changes, u"Feld0 IS NULL"_s), 1);
        conn.OpenFile(file);
        Recordset rs = conn.Open(u"SELECT * FROM Werte"_s);
        QCOMPARE(rs.RecordCount(), 2);
        for (; !rs.Eof(); rs.MoveNext()) {
            for (std::size_t i = 0; i < accepted().size(); ++i) {
                const QVariant value = rs.Value(u"Feld%1"_s.arg(i));
                QVERIFY2(value.typeId() == accepted()[i].stored.typeId(), accepted()[i].name);
                QVERIFY2(value == accepted()[i].stored, accepted()[i].name);
                QCOMPARE(rs.Text(u"Feld%1"_s.arg(i)), accepted()[i].german);
            }
        }
    }

    void aColumnRefusesOtherValues_data() {
        QTest::addColumn<ColumnKind>("kind");
        QTest::addColumn<QVariant>("value");
        const auto refused = [](const char* name, ColumnKind kind, const QVariant& value) {
            QTest::newRow(name) << kind << value;
        };
        refused("text of 256", Text, letters(256));
        refused("empty number", Long, u""_s);
        refused("blank number", Long, u" "_s);
        refused("word as number", Long, u"abc"_s);
        refused("number with decimal point", Long, u"12.5"_s);
        refused("number too large", Long, u"2147483648"_s);
        refused("number too large after rounding", Long, u"2147483647,5"_s);
        refused("number too small", Long, -2147483649LL);
        refused("infinite number", Long, std::numeric_limits<double>::infinity());
        refused("no number", Long, std::numeric_limits<double>::quiet_NaN());
        refused("number with exponent", Long, u"1e3"_s);
        refused("hexadecimal number", Long, u"0x10"_s);
        refused("number with two signs", Long, u"--1"_s);
        refused("key as word", AutoNumber, u"neu"_s);
        refused("empty Boolean", Boolean, u""_s);
        refused("word as Boolean", Boolean, u"vielleicht"_s);
        refused("empty money", Currency, u""_s);
        refused("money with point", Currency, u"12.50"_s);
        refused("money with short group", Currency, u"1.25,00"_s);
        refused("money with long group", Currency, u"1234.567"_s);
        refused("money with leading point", Currency, u".500"_s);
        refused("money with two commas", Currency, u"1,2,3"_s);
        refused("money with point behind comma", Currency, u"1,000.5"_s);
        refused("word as money", Currency, u"abc"_s);
        refused("money with exponent", Currency, u"1e9"_s);
        refused("comma alone", Currency, u","_s);
        refused("sign alone", Currency, u"-"_s);
        refused("money with line end", Currency, u"1\n2"_s);
        refused("too much money", Currency, u"999999999999999"_s);
        refused("infinite money", Currency, std::numeric_limits<double>::infinity());
        refused("empty time", DateTime, u""_s);
        refused("minute behind the end of the day", DateTime, u"24:01"_s);
        refused("hour 25", DateTime, u"25:00"_s);
        refused("minute 60", DateTime, u"08:60"_s);
        refused("second 60", DateTime, u"08:00:60"_s);
        refused("minutes with one digit", DateTime, u"8:5"_s);
        refused("time without colon", DateTime, u"0805"_s);
        refused("time range", DateTime, u"08:15 - 09:45"_s);
        refused("word as time", DateTime, u"morgens"_s);
        refused("invalid time of the platform", DateTime, QTime());
    }

    void aColumnRefusesOtherValues() {
        QFETCH(ColumnKind, kind);
        QFETCH(QVariant, value);
        const auto error = errorOf([&] { toStored(columnOf(kind), value, u"Stammdaten"_s); });
        QVERIFY(error);
        QCOMPARE(error->kind(), StoreError::Kind::Value);
        QVERIFY(error->message().contains(u"\"Feld\""_s));
        QCOMPARE(error->details(), u"Tabelle: Stammdaten"_s);
    }

    void theMessageNamesValueFieldAndWhatIsExpected() {
        const auto error = errorOf([] { toStored({u"Beitrag_0"_s, Currency}, u"zwölf"_s, u"Stammdaten"_s); });
        QVERIFY(error);
        QCOMPARE(error->message(),
                 u"Der Wert \"zwölf\" passt nicht in das Feld \"Beitrag_0\" (ein Geldbetrag)."_s);
    }

    void aLongValueIsShortenedInTheMessage() {
        const auto error = errorOf([] { toStored({u"Ort"_s, Text}, letters(300), {}); });
        QVERIFY(error);
        QVERIFY(error->message().contains(letters(60) + u"..."_s));
        QVERIFY(!error->message().contains(letters(61)));
    }
};

KOLIBRI_TEST_MAIN(column_kindTest)
#include "column_kind_test.moc"
