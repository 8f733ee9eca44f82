// The one statement of a report beside a query for each cell, as the reports once counted, on a school with
// everything that files hold: the figures must be exactly the same.

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/reports/report_counts.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kFrueh = u"13:00 - 14:00 ME1"_s;
const QString kSpaet = u"14:00 - 15:00 ME2"_s;
/// At the same time as the first.
const QString kZugleich = u"13:00 - 14:00 ME3"_s;
const QString kChor = u"15:00 - 16:00 CH"_s;

int records(const QString& condition, const QVariantList& values) {
    return Global().Conn.Open(u"SELECT * FROM Stammdaten WHERE "_s + condition, values).RecordCount();
}

std::vector<WeekCounts> offeringsCellByCell(const QString& gr, const QStringList& keys, bool withStarters) {
    std::vector<WeekCounts> result;
    for (const auto& key : keys) {
        WeekCounts week{};
        for (int day = 0; day < kSchoolDays; ++day)
            week[static_cast<std::size_t>(day)] =
                records(u"%1_%2 = ?%3 AND aktiv = True"_s.arg(
                            gr, TagCode(day), withStarters ? QString() : u" AND Schulstufe > 0"_s),
                        {key});
        result.push_back(week);
    }
    return result;
}

std::vector<ClassCounts> classesCellByCell(const QString& gr, const QStringList& keys, bool withStarters) {
    std::vector<ClassCounts> result;
    Recordset rs = Global().Conn.Open(u"SELECT DISTINCT Klasse FROM Stammdaten%1 ORDER BY Klasse"_s.arg(
        withStarters ? QString() : u" WHERE Schulstufe > 0"_s));
    for (; !rs.Eof(); rs.MoveNext()) {
        ClassCounts klasse{rs.Text(0), {}};
        for (const auto& key : keys) {
            WeekCounts week{};
            for (int day = 0; day < kSchoolDays; ++day)
                week[static_cast<std::size_t>(day)] =
                    records(u"%1_%2 = ? AND Klasse = ? AND aktiv = True"_s.arg(gr, TagCode(day)),
                            {key, klasse.klasse});
            klasse.offerings.push_back(week);
        }
        result.push_back(klasse);
    }
    return result;
}

std::vector<PlanWeek> lettersCellByCell(const QString& gr, const QStringList& keys) {
    std::vector<PlanWeek> result;
    for (const auto& key : keys) {
        PlanWeek week{};
        for (int day = 0; day < kSchoolDays; ++day) {
            PlanCounts& counts = week[static_cast<std::size_t>(day)];
            for (std::size_t letter = 0; letter < kPlanLetters; ++letter) {
                counts[letter] = records(
                    u"aktiv = true AND Kl_Nr = ? AND %1_%2 = ? AND Schulstufe > 0"_s.arg(gr, TagCode(day)),
                    {QString(QChar(u'a' + static_cast<char16_t>(letter))), key});
                counts[kPlanLetters] += counts[letter];
            }
        }
        result.push_back(week);
    }
    return result;
}

std::vector<int> groupsCellByCell(const std::vector<GroupMeeting>& meetings) {
    std::vector<int> result;
    for (const auto& meeting : meetings) {
        int sum = 0;
        for (int slot = 3; slot <= 7; ++slot)
            sum += records(u"GR%1_%2 = ? AND Stammdaten.aktiv = true"_s.arg(slot).arg(meeting.tag),
                           {meeting.zeitKName});
        result.push_back(sum);
    }
    return result;
}

QStringList shown(const std::vector<ClassCounts>& classes) {
    QStringList lines;
    for (const auto& klasse : classes) {
        QString line = klasse.klasse.toLower() + u':';
        for (const auto& week : klasse.offerings)
            for (const int count : week)
                line += u' ' + QString::number(count);
        lines << line;
    }
    return lines;
}

} // namespace

class ReportCountsTest : public TestBase {
    Q_OBJECT

private:
    static void addOddPupils() {
        addPupil(u"A"_s, u"1"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}, {u"GR1_FR"_s, kFrueh}});
        addPupil(u"A"_s, u"2"_s, u"1A"_s, {{u"GR1_MO"_s, kFrueh.toLower()}, {u"Kl_Nr"_s, u"A"_s}});
        addPupil(u"A"_s, u"3"_s, u"1b"_s, {{u"GR1_MO"_s, kZugleich}, {u"GR1_DI"_s, kSpaet}});
        addPupil(u"A"_s, u"weg"_s, u"1b"_s, {{u"GR1_MO"_s, kFrueh}, {u"aktiv"_s, false}});
        addPupil(u"A"_s, u"allein weg"_s, u"4c"_s, {{u"GR1_DO"_s, kFrueh}, {u"aktiv"_s, false}});
        addPupil(u"A"_s, u"weit hinten"_s, u"2e"_s, {{u"GR1_MO"_s, kFrueh}});
        addPupil(u"A"_s, u"Anfänger"_s, u"0a"_s, {{u"GR1_MO"_s, kFrueh}});
        addPupil(u"A"_s, u"Anfänger in einer Klasse"_s, u"1b"_s,
                 {{u"GR1_MO"_s, kFrueh}, {u"Schulstufe"_s, 0}});
        addPupil(u"A"_s, u"ohne Klasse"_s, u""_s, {{u"GR1_MO"_s, kFrueh}, {u"Schulstufe"_s, 0}});
        addPupil(u"A"_s, u"ohne alles"_s, u"1a"_s,
                 {{u"Klasse"_s, QVariant()}, {u"Kl_Nr"_s, QVariant()}, {u"GR1_MO"_s, kFrueh}});
        addPupil(u"A"_s, u"ohne Stufe"_s, u"3d"_s, {{u"Schulstufe"_s, QVariant()}, {u"GR1_MO"_s, kFrueh}});
        addPupil(u"A"_s, u"leere Zelle"_s, u"3d"_s, {{u"GR1_MO"_s, u""_s}});
        addPupil(u"A"_s, u"keine Zelle"_s, u"3d"_s, {{u"GR1_MO"_s, QVariant()}});
        addPupil(u"A"_s, u"Leerzeichen"_s, u"3d"_s, {{u"GR1_MO"_s, kFrueh + u' '}});
        addPupil(u"A"_s, u"Chor"_s, u"3d"_s,
                 {{u"GR3_MO"_s, kChor}, {u"GR7_MO"_s, kChor}, {u"GR4_DI"_s, kChor}, {u"GR1_MI"_s, kChor}});
        addPupil(u"A"_s, u"Chor weg"_s, u"3d"_s, {{u"GR3_MO"_s, kChor}, {u"aktiv"_s, false}});
        addPupil(u"A"_s, u"Chor Anfänger"_s, u"0c"_s, {{u"GR6_MO"_s, kChor}});
    }

    static QStringList keys() { return {kFrueh, kSpaet, kZugleich, QString(), u"gibt es nicht"_s}; }

    static std::vector<GroupMeeting> meetings() {
        return {
            {u"MO"_s, kChor}, {u"DI"_s, kChor}, {u"FR"_s, kChor}, {u"MO"_s, kFrueh}, {u"MO"_s, QString()}};
    }

    static void compareBothWays(const QString& gr, const QStringList& offerings) {
        const DbSession session(u"Test"_s);
        for (const bool withStarters : {false, true}) {
            QCOMPARE(countOfferings(gr, offerings, withStarters),
                     offeringsCellByCell(gr, offerings, withStarters));
            QCOMPARE(shown(countByClass(gr, offerings, withStarters)),
                     shown(classesCellByCell(gr, offerings, withStarters)));
        }
        QCOMPARE(countByLetter(gr, offerings), lettersCellByCell(gr, offerings));
    }

    static QStringList keysOf(const QString& gr) {
        const DbSession session(u"Test"_s);
        QStringList result;
        Recordset rs = Global().Conn.Open(u"SELECT DISTINCT Zeit_K_Name FROM "_s + gr);
        for (; !rs.Eof(); rs.MoveNext())
            result << rs.Text(0);
        return result;
    }

private Q_SLOTS:
    void anOddSchoolCountsTheSameInOneStatementAndCellByCell() {
        useEmptyDatabase();
        addOddPupils();
        compareBothWays(u"GR1"_s, keys());
        compareBothWays(u"GR2"_s, keys());
        const DbSession session(u"Test"_s);
        QCOMPARE(countGroups(meetings()), groupsCellByCell(meetings()));
    }

    void theSampleSchoolCountsTheSameInOneStatementAndCellByCell() {
        useSampleSchool();
        for (const auto& gr : {u"GR1"_s, u"GR2"_s})
            compareBothWays(gr, keysOf(gr));
        std::vector<GroupMeeting> all;
        const DbSession session(u"Test"_s);
        Recordset rs = Global().Conn.Open(u"SELECT * FROM GR3"_s);
        for (; !rs.Eof(); rs.MoveNext())
            all.push_back({rs.Text(u"Tag"), rs.Text(u"Zeit_K_Name")});
        QVERIFY(all.size() > 5);
        QCOMPARE(countGroups(all), groupsCellByCell(all));
    }

    void theOddSchoolIsCountedAsTheOfficeCounts() {
        useEmptyDatabase();
        addOddPupils();
        const DbSession session(u"Test"_s);
        // Monday early: 1a twice, 2e, one without any class; nobody deactivated, no other spelling of blanks.
        QCOMPARE(countOfferings(u"GR1"_s, {kFrueh}, false).front(), (WeekCounts{4, 0, 0, 0, 1}));
        // Besides: both school starters, the one without a class and the one without a grade.
        QCOMPARE(countOfferings(u"GR1"_s, {kFrueh}, true).front(), (WeekCounts{8, 0, 0, 0, 1}));
        QCOMPARE(countGroups(meetings()), (std::vector<int>{3, 1, 0, 0, 0}));
    }

    void eachReportIsOneStatement() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        const auto statements = [](auto count) {
            const qint64 before = Global().Conn.StatementCount();
            count();
            return Global().Conn.StatementCount() - before;
        };
        QCOMPARE(statements([] { countOfferings(u"GR1"_s, keys(), true); }), 1);
        QCOMPARE(statements([] { countByClass(u"GR1"_s, keys(), false); }), 1);
        QCOMPARE(statements([] { countByLetter(u"GR1"_s, keys()); }), 1);
        QCOMPARE(statements([] { countGroups(meetings()); }), 1);
    }

    void anOfferingWithAnApostropheIsRefusedAsEverywhere() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        const QStringList refused{u"13:00 - 14:00 Tom's"_s};
        QVERIFY_THROWS_EXCEPTION(StoreError, countOfferings(u"GR1"_s, refused, true));
        QVERIFY_THROWS_EXCEPTION(StoreError, countByClass(u"GR1"_s, refused, true));
        QVERIFY_THROWS_EXCEPTION(StoreError, countByLetter(u"GR1"_s, refused));
        QVERIFY_THROWS_EXCEPTION(StoreError, countGroups({{u"MO"_s, refused.front()}}));
    }

    void anArbeitsgruppeOnNoSchoolDayIsNamedInTheError() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        try {
            countGroups({{u"SA"_s, kChor}});
            QFAIL("counted");
        } catch (const StoreError& error) {
            QVERIFY(error.message().contains(kChor));
            QVERIFY(error.message().contains(u"SA"_s));
        }
    }
};

KOLIBRI_TEST_MAIN(ReportCountsTest)
#include "report_counts_test.moc"
