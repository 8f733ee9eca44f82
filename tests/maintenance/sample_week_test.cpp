#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "maintenance/sample_school.h"
#include "support/test_base.h"

#include <QDir>
#include <QTest>
#include <QTime>

#include <array>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

constexpr int kSlots = 7;
const QStringList kDays{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};

Recordset rowsOf(const QString& tableAndCondition) {
    return Global().Conn.Open(u"SELECT * FROM "_s + tableAndCondition);
}

QString cellName(int slot, int day) {
    return u"GR%1_%2"_s.arg(slot).arg(kDays.at(day));
}

int minutes(const QString& text) {
    return QTime::fromString(text, u"hh:mm"_s).msecsSinceStartOfDay() / 60'000;
}

struct Span {
    int from;
    int to;
};

/// "13:00 - 13:45 ME1"
Span spanOf(const QString& key) {
    return {minutes(key.mid(0, 5)), minutes(key.mid(8, 5))};
}

/// The four teaching times of a class on a day, and whether there is such a row.
struct Teaching {
    bool known = false;
    Span morning{0, 0};
    Span afternoon{0, 0};
};

/// Class and day number to teaching times.
QMap<QPair<QString, int>, Teaching> teachingTimes() {
    QMap<QPair<QString, int>, Teaching> result;
    for (Recordset rs = rowsOf(u"Klassen"_s); !rs.Eof(); rs.MoveNext())
        result[{rs.Text(u"Klasse"), int(rs.Number(u"Tag_Zahl"))}] = {
            true,
            {minutes(rs.Text(u"Unterrichtsbeginn")), minutes(rs.Text(u"Unterrichtsende"))},
            {minutes(rs.Text(u"UnterrichtsbeginnNM")), minutes(rs.Text(u"UnterrichtsendeNM"))}};
    return result;
}

std::vector<Span> assignmentsOn(const Recordset& pupil, int day) {
    std::vector<Span> result;
    for (int slot = 1; slot <= kSlots; ++slot)
        if (const QString key = pupil.Text(cellName(slot, day)); !key.isEmpty())
            result.push_back(spanOf(key));
    return result;
}

bool anyPairOverlaps(const std::vector<Span>& spans) {
    for (std::size_t a = 0; a < spans.size(); ++a)
        for (std::size_t b = a + 1; b < spans.size(); ++b)
            if (spans[b].from < spans[a].to && spans[b].to > spans[a].from)
                return true;
    return false;
}

/// As the lamp of the pupil form turns red.
bool formSaysOverlap(const std::vector<Span>& spans, const Teaching& teaching) {
    for (const Span& span : spans)
        for (const Span& taught : {teaching.morning, teaching.afternoon})
            if (teaching.known && taught.from < span.to && taught.to > span.from)
                return true;
    return anyPairOverlaps(spans);
}

/// As the overlap report takes a day into its list.
bool reportSaysOverlap(const std::vector<Span>& spans, const Teaching& teaching) {
    const auto [begin, end] = teaching.morning;
    const auto [beginNM, endNM] = teaching.afternoon;
    for (const auto& [from, to] : spans) {
        if (begin > 0 && end > 0
            && ((from <= begin && to > begin) || (from <= begin && to >= end)
                || (from >= begin && to <= end)))
            return true;
        if (begin == 0 && end > 0 && from < end)
            return true;
        if (beginNM > 0 && endNM > 0
            && ((from <= beginNM && to > beginNM) || (from <= beginNM && to >= endNM)
                || (from >= beginNM && to <= endNM)))
            return true;
        if (begin == 0 && endNM > 0 && from < endNM && to >= endNM)
            return true;
        if (beginNM == 0 && endNM > 0 && from < endNM && to <= endNM)
            return true;
    }
    return anyPairOverlaps(spans);
}

} // namespace

/// The plan of the sample school's week, and where its pupils are in it.
class SampleWeekTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    static void addSizes() {
        QTest::addColumn<int>("pupils");
        for (const int pupils : {1, 17, 320, 1000})
            QTest::addRow("%d", pupils) << pupils;
    }

    /// Pupil and day pairs of active pupils on which both rules find an overlap, and the pairs on which they
    /// differ.
    static std::pair<int, int> countOverlaps() {
        const auto teaching = teachingTimes();
        int both = 0;
        int different = 0;
        Teaching lastRead;
        for (Recordset rs = rowsOf(u"Stammdaten WHERE aktiv"_s); !rs.Eof(); rs.MoveNext())
            for (int day = 0; day < kSchoolDays; ++day) {
                const Teaching own = teaching.value({rs.Text(u"Klasse"), day});
                // The report tests a pupil without class against the class it read last.
                if (own.known)
                    lastRead = own;
                const auto spans = assignmentsOn(rs, day);
                const bool form = formSaysOverlap(spans, own);
                const bool report = reportSaysOverlap(spans, lastRead);
                both += form && report ? 1 : 0;
                different += form != report ? 1 : 0;
            }
        return {both, different};
    }

private Q_SLOTS:
    void onlyTheToldOverlapsAreThere_data() {
        QTest::addColumn<int>("pupils");
        QTest::addColumn<quint32>("seed");
        QTest::addColumn<int>("overlaps");
        for (const auto& [pupils, overlaps] :
             {std::pair(1, 0), {17, 0}, {39, 0}, {40, 1}, {80, 2}, {320, 8}, {1000, 8}})
            for (const quint32 seed : {1, 2, 3, 4})
                QTest::addRow("%d pupils, seed %u", pupils, seed) << pupils << seed << overlaps;
    }
    void onlyTheToldOverlapsAreThere() {
        QFETCH(int, pupils);
        QFETCH(quint32, seed);
        QFETCH(int, overlaps);
        createSampleSchool(home(), {.pupils = pupils, .seed = seed});
        const DbSession session(u"Test"_s);
        QCOMPARE(sampleOverlaps(pupils), overlaps);
        const auto [both, different] = countOverlaps();
        QCOMPARE(both, overlaps);
        QCOMPARE(different, 0);
    }

    void theOverlapCountSeesAnOverlap() {
        // The count above would be worth nothing if it could not tell one from none.
        useSampleSchool(17);
        const DbSession session(u"Test"_s);
        QCOMPARE(countOverlaps().first, 0);
        const qint64 id = rowsOf(u"Stammdaten WHERE aktiv AND Schulstufe > 0"_s).Number(u"ID");
        Global().Conn.Change(u"Stammdaten"_s,
                             {{u"GR3_MO"_s, u"16:00 - 17:00 X"_s},
                              {u"GR5_MO"_s, u"16:59 - 17:30 Y"_s},
                              {u"GR4_DI"_s, u"08:00 - 08:30 X"_s}},
                             u"ID = ?"_s, {id});
        QCOMPARE(countOverlaps().first, 2);
    }

    void everyCellNamesAnOfferingOfItsTableAndDay_data() { addSizes(); }
    void everyCellNamesAnOfferingOfItsTableAndDay() {
        QFETCH(int, pupils);
        useSampleSchool(pupils);
        const DbSession session(u"Test"_s);
        int cells = 0;
        for (int slot = 1; slot <= kSlots; ++slot)
            for (int day = 0; day < kSchoolDays; ++day) {
                const QString cell = cellName(slot, day);
                QCOMPARE(rowsOf(u"Stammdaten WHERE %1 IS NULL OR (%1 <> '' AND %1 NOT IN (SELECT Zeit_K_Name "
                                "FROM GR%2 WHERE Tag = '%3'))"_s.arg(cell)
                                    .arg(slot)
                                    .arg(kDays.at(day)))
                             .RecordCount(),
                         0);
                cells += rowsOf(u"Stammdaten WHERE %1 <> ''"_s.arg(cell)).RecordCount();
            }
        QVERIFY2(cells >= pupils, qPrintable(QString::number(cells)));
    }

    void theKeysOfTheOfferingsAreConsistent() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        for (int slot = 1; slot <= kSlots; ++slot) {
            QSet<QString> seen;
            for (Recordset rs = rowsOf(u"GR%1"_s.arg(slot)); !rs.Eof(); rs.MoveNext()) {
                QCOMPARE(rs.Text(u"Zeit"), rs.Text(u"Zeit_von") + u" - "_s + rs.Text(u"Zeit_bis"));
                QCOMPARE(rs.Text(u"Zeit_K_Name"), rs.Text(u"Zeit") + u' ' + rs.Text(u"K_Name"));
                QVERIFY(rs.Text(u"Zeit_von") < rs.Text(u"Zeit_bis"));
                QVERIFY(rs.Text(u"K_Name").size() <= 5);
                QVERIFY(kDays.contains(rs.Text(u"Tag")));
                const QString unit = rs.Text(u"UE_Zeit");
                QVERIFY(unit.isEmpty()
                        || rowsOf(u"Unterrichtseinheiten WHERE Zeit = '%1'"_s.arg(unit)).RecordCount() == 1);
                const QString place = rs.Text(u"Tag") + rs.Text(u"Zeit_K_Name");
                QVERIFY2(!seen.contains(place), qPrintable(place));
                seen << place;
            }
            // The reports have room for nine.
            QVERIFY(slot > 2
                    || Global().Conn.Open(u"SELECT DISTINCT Zeit_K_Name FROM GR%1"_s.arg(slot)).RecordCount()
                           <= 9);
        }
    }

    void theFiveTablesOfTheArbeitsgruppenAreEqual() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        const QString columns =
            u"ID, NR, K_Name, L_Name, Tag, Zeit_von, Zeit_bis, Zeit, Zeit_K_Name, Betreuer, "
            "Ort, Anmerkung_V, Anmerkung_N, UE_Zeit"_s;
        const auto content = [&](int slot) {
            QStringList lines;
            for (Recordset rs = Global().Conn.Open(u"SELECT %1 FROM GR%2"_s.arg(columns).arg(slot));
                 !rs.Eof(); rs.MoveNext()) {
                QStringList cells;
                for (int field = 0; field < rs.FieldCount(); ++field)
                    cells << rs.Text(field);
                lines << cells.join(u'|');
            }
            return lines;
        };
        QCOMPARE(content(3).size(), 18);
        for (int slot = 4; slot <= kSlots; ++slot)
            QCOMPARE(content(slot), content(3));
    }

    void everyClassHasFiveDays() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        Recordset rs = rowsOf(u"Klassen"_s);
        QCOMPARE(rs.RecordCount(), 14 * 5);
        int afternoons = 0;
        int withoutBegin = 0;
        for (int row = 0; !rs.Eof(); rs.MoveNext(), ++row) {
            QCOMPARE(int(rs.Number(u"Tag_Zahl")), row % 5);
            QCOMPARE(rs.Text(u"Tag"), kDays.at(row % 5));
            QCOMPARE(rs.Text(u"Schulstufe") + rs.Text(u"KlassenNR"), rs.Text(u"Klasse"));
            QVERIFY(rs.Text(u"Unterrichtsende") > u"11:00"_s);
            withoutBegin += rs.Text(u"Unterrichtsbeginn") == u"00:00"_s ? 1 : 0;
            if (rs.Text(u"UnterrichtsendeNM") == u"00:00"_s)
                continue;
            ++afternoons;
            QVERIFY(rs.Text(u"UnterrichtsbeginnNM") >= rs.Text(u"Unterrichtsende"));
            QVERIFY(rs.Text(u"UnterrichtsbeginnNM") < rs.Text(u"UnterrichtsendeNM"));
        }
        QCOMPARE(afternoons, 4);
        QCOMPARE(withoutBegin, 5);
    }

    void theTeachingUnitsAreNumberedByTime() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        int number = 0;
        bool inOrderOfEntry = true;
        for (Recordset rs = rowsOf(u"Unterrichtseinheiten ORDER BY Zeit"_s); !rs.Eof(); rs.MoveNext()) {
            inOrderOfEntry = inOrderOfEntry && rs.Number(u"ID") == number;
            QCOMPARE(int(rs.Number(u"Sort_NR")), ++number);
        }
        QVERIFY(!inOrderOfEntry);
    }

    void pupilsOutsideTheCareHaveNoMensaAndNoLernzeit() {
        useSampleSchool(1000);
        const DbSession session(u"Test"_s);
        QStringList conditions;
        for (int slot = 1; slot <= 2; ++slot)
            for (int day = 0; day < kSchoolDays; ++day)
                conditions << cellName(slot, day) + u" <> ''"_s;
        QVERIFY(rowsOf(u"Stammdaten WHERE NichtOG"_s).RecordCount() > 10);
        QCOMPARE(rowsOf(u"Stammdaten WHERE NichtOG AND (%1)"_s.arg(conditions.join(u" OR "_s))).RecordCount(),
                 0);
        QCOMPARE(rowsOf(u"Stammdaten WHERE NichtOG AND Baustein <> ''"_s).RecordCount(), 0);
    }
};

KOLIBRI_TEST_MAIN(SampleWeekTest)
#include "sample_week_test.moc"
