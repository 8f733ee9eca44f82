#include "maintenance/upgrade.h"

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/progress.h"
#include "core/store/safety_copy.h"
#include "maintenance/conversions.h"
#include "maintenance/schema_pass.h"
#include "maintenance/stepwise.h"

#include <QDateTime>
#include <QDir>

#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

struct Conversion {
    bool mdlGlobal::*flag;
    void (*run)(Connection& conn);
};

constexpr Conversion kConversions[] = {{&mdlGlobal::UpgradeNotizen, convertNotes},
                                       {&mdlGlobal::UpgradeKontakte, convertContacts},
                                       {&mdlGlobal::UpgradeAG_Slots, addSlotCells},
                                       {&mdlGlobal::UpgradeBeitraege, convertFees},
                                       {&mdlGlobal::UpgradeKategorien, convertCategories}};

/// Fills a late slot from the first one. Where only the other of the two was missing it holds its offerings
/// already.
void copyOfferings(Connection& conn, const QString& table) {
    if (!conn.Open(u"SELECT ID FROM "_s + table).Eof())
        return;
    for (Recordset rs = conn.Open(u"SELECT * FROM GR3"_s); !rs.Eof(); rs.MoveNext()) {
        NewRow row = conn.AddNew(table);
        for (const auto& field :
             {u"ID"_s, u"NR"_s, u"K_Name"_s, u"L_Name"_s, u"Tag"_s, u"Zeit_von"_s, u"Zeit_bis"_s, u"Zeit"_s,
              u"Zeit_K_Name"_s, u"Betreuer"_s, u"Ort"_s, u"Anmerkung_V"_s, u"Anmerkung_N"_s, u"UE_Zeit"_s})
            row.Set(field, rs.Value(field));
        row.Update();
    }
}

} // namespace

void bringUpToDate() {
    const DbSession session(u"Datenbank auf den neuesten Stand bringen"_s);
    auto& conn = Global().Conn;
    QString copy;
    // At an ordinary start nothing is shown, as there is nothing to wait for.
    std::optional<Progress> progress;
    try {
        runSchemaPass(conn, [&] {
            progress.emplace(u"Die Datenbank wird auf den neuesten Stand gebracht..."_s,
                             std::ssize(kConversions));
            copy = makeSafetyCopy(conn, doors().clock->now());
        });
        qint64 done = 0;
        for (const auto& conversion : kConversions) {
            if (Global().*conversion.flag)
                runKeepingWhatIsDone(conn, conversion.run);
            if (progress)
                progress->Reach(++done);
        }
    } catch (OfficeError& error) {
        if (!copy.isEmpty())
            error.addNote(u"Der Stand vor der Umstellung liegt in der Sicherheitskopie %1."_s.arg(
                QDir::toNativeSeparators(copy)));
        throw;
    }
}

void fillNewSlots() {
    if (!Global().UpgradeAG_Slots)
        return;
    const DbSession session(u"Arbeitsgruppen in die neuen Plätze übernehmen"_s);
    auto& conn = Global().Conn;
    Transaction transaction(conn);
    for (const auto& table : {u"GR6"_s, u"GR7"_s})
        copyOfferings(conn, table);
    transaction.Commit();
}

} // namespace kolibri
