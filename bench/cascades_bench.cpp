// How long the office waits when it corrects or deletes an offering that most pupils hold.

#include "calendar/offering_cascades.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "maintenance/sample_school.h"
#include "support/measure.h"

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::bench;

namespace {

constexpr int kPupils = 1000;
constexpr int kHolders = 900;
constexpr int kRounds = 15;

struct Case {
    QString name;
    OfferingKind kind;
    /// What each round types in turn, so that every round has something to change.
    OfferingBox box;
    std::array<QString, 2> texts;
};

/// Gives so many pupils the first row of the kind on its day, and nobody else.
qint64 giveToMost(OfferingKind kind) {
    auto& conn = Global().Conn;
    const QString table = listTableOf(kind);
    const Recordset rs = conn.Open(u"SELECT ID, Tag, Zeit_K_Name FROM %1 ORDER BY ID"_s.arg(table));
    const QString column = table + u'_' + rs.Text(u"Tag");
    conn.Change(u"Stammdaten"_s, {{column, u""_s}});
    conn.Change(u"Stammdaten"_s, {{column, rs.Text(u"Zeit_K_Name")}}, u"ID <= ?"_s, {kHolders});
    return rs.Number(u"ID");
}

ClickedOffering clicked(const Offering& offering, int id) {
    return {id, offering.Zeit(), offering[kBoxTag], offering.Zeit_K_Name()};
}

void measureCorrections(Table& table) {
    const std::array<QString, 2> ends{u"16:05"_s, u"16:10"_s};
    for (const Case& each :
         {Case{u"Mensa, another time"_s, OfferingKind::Mensa, kBoxBis, ends},
          Case{u"group, another time"_s, OfferingKind::Arbeitsgruppe, kBoxBis, ends},
          Case{u"group, another day"_s, OfferingKind::Arbeitsgruppe, kBoxTag, {u"DO"_s, u"MI"_s}}}) {
        int id = 0;
        {
            const DbSession session(u"Bench"_s);
            id = static_cast<int>(giveToMost(each.kind));
        }
        int round = 0;
        const Timing time = timed(kRounds, [&] {
            const DbSession session(u"Bench"_s);
            Offering offering = ME_LZ_AG_DatensatzLesen(each.kind, id);
            const ClickedOffering before = clicked(offering, id);
            offering[each.box] = each.texts.at(static_cast<std::size_t>(++round % 2));
            ME_LZ_AG_Daten_ÄNDERN({each.kind, OfferingAction::Korrektur}, offering, before);
        });
        table.add({u"correct: "_s + each.name, figure(time.median), figure(time.quickest)});
    }
}

/// A deletion can be measured only once for each school.
void measureDeletions(Table& table, const QString& file) {
    for (const OfferingKind kind : {OfferingKind::Mensa, OfferingKind::Arbeitsgruppe}) {
        const QTemporaryDir folder;
        Global().DB_Pfad = folder.path();
        QFile::copy(file, DatenbankDatei(folder.path()));
        int id = 0;
        {
            const DbSession session(u"Bench"_s);
            id = static_cast<int>(giveToMost(kind));
        }
        const Timing time = timed(1, [&] {
            const DbSession session(u"Bench"_s);
            const Offering offering = ME_LZ_AG_DatensatzLesen(kind, id);
            ME_LZ_AG_Daten_ÄNDERN({kind, OfferingAction::Löschen}, offering, clicked(offering, id));
        });
        table.add({kind == OfferingKind::Mensa ? u"delete: Mensa"_s : u"delete: group"_s, figure(time.median),
                   figure(time.quickest)});
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString file = createSampleSchool(folder.path(), {.pupils = kPupils});
    Global().DB_Pfad = folder.path();
    qint64 notes = 0;
    {
        const DbSession session(u"Bench"_s);
        notes = Global().Conn.Open(u"SELECT ID FROM SCH_Notiz"_s).RecordCount();
    }
    Table table(
        u"An offering of %1 among %2 pupils, %3 notes (%4 times, deletions once; target below 200 ms)"_s
            .arg(kHolders)
            .arg(kPupils)
            .arg(notes)
            .arg(kRounds),
        {u"work"_s, u"median ms"_s, u"quickest"_s});
    measureDeletions(table, file);
    Global().DB_Pfad = folder.path();
    measureCorrections(table);
    table.print();
    return 0;
}
