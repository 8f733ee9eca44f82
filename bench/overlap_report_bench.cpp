// Time of the report of overlaps over the whole school. Beyond 999 rows the page is not written any more, so
// the gathering is timed alone.

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "maintenance/sample_school.h"
#include "support/measure.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <ctime>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::bench;

namespace {

constexpr int kRounds = 9;

/// Puts an assignment into teaching for every pupil who eats, so that the report is long.
void letTimesOverlap() {
    const DbSession session(u"Messung"_s);
    for (int day = 0; day < kSchoolDays; ++day)
        Global().Conn.Execute(
            u"UPDATE Stammdaten SET GR2_%1 = '08:30 - 09:30 LZ' WHERE GR1_%1 <> ''"_s.arg(TagCode(day)));
}

void measure(Table& table, int pupils, bool overlapping) {
    const QTemporaryDir folder;
    qputenv("KOLIBRI_HOME", folder.path().toLocal8Bit());
    QDir(folder.path()).mkdir(u"ProgramData"_s);
    createSampleSchool(folder.path(), {.pupils = pupils});
    Global().DB_Pfad = folder.path();
    if (overlapping)
        letTimesOverlap();
    const qint64 before = Global().Conn.StatementCount();
    const std::clock_t start = std::clock();
    const Timing gathering = timed(kRounds, [] { prepareList(kZeitueberschneidungen); });
    // What the processor worked for it: on a machine that is busy otherwise the clock on the wall says less.
    const double worked = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / kRounds;
    const qint64 statements = (Global().Conn.StatementCount() - before) / kRounds;
    const int rows = Liste().ZeilenAnzahl;
    const bool fits = rows <= kMaxZeilenCodes;
    table.add({overlapping ? u"many overlaps"_s : u"as it is"_s, QString::number(pupils),
               QString::number(rows), QString::number(statements), figure(gathering.median, 1),
               figure(gathering.quickest, 1), figure(gathering.median * 1000 / pupils, 1),
               figure(worked * 1000 / pupils, 1),
               fits ? figure(timed(kRounds, producePage).median, 1) : u"-"_s});
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    doors().clock = std::make_unique<SystemClock>();
    Table table(u"Report of overlaps (median of 9; target: gathering under 30 ms for 1,000 pupils)"_s,
                {u"school"_s, u"pupils"_s, u"rows"_s, u"statements"_s, u"gathering ms"_s, u"quickest"_s,
                 u"ms per 1,000"_s, u"processor ms per 1,000"_s, u"writing ms"_s});
    for (const bool overlapping : {false, true})
        for (const int pupils : {1000, 10'000})
            measure(table, pupils, overlapping);
    table.print();
    return 0;
}
