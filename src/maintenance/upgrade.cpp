#include "maintenance/upgrade.h"

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/store/safety_copy.h"
#include "maintenance/conversions.h"
#include "maintenance/schema_pass.h"
#include "maintenance/stepwise.h"

#include <QDateTime>
#include <QDir>

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

} // namespace

void bringUpToDate() {
    const DbSession session(u"Datenbank auf den neuesten Stand bringen"_s);
    auto& conn = Global().Conn;
    QString copy;
    try {
        runSchemaPass(conn, [&] { copy = makeSafetyCopy(conn, doors().clock->now()); });
        for (const auto& conversion : kConversions)
            if (Global().*conversion.flag)
                runKeepingWhatIsDone(conn, conversion.run);
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
    for (Recordset rs = conn.Open(u"SELECT * FROM GR3"_s); !rs.Eof(); rs.MoveNext())
        for (const auto& table : {u"GR6"_s, u"GR7"_s}) {
            NewRow row = conn.AddNew(table);
            for (const auto& field : {u"ID"_s, u"NR"_s, u"K_Name"_s, u"L_Name"_s, u"Tag"_s, u"Zeit_von"_s,
                                      u"Zeit_bis"_s, u"Zeit"_s, u"Zeit_K_Name"_s, u"Betreuer"_s, u"Ort"_s,
                                      u"Anmerkung_V"_s, u"Anmerkung_N"_s, u"UE_Zeit"_s})
                row.Set(field, rs.Value(field));
            row.Update();
        }
    transaction.Commit();
}

} // namespace kolibri
