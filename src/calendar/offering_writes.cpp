#include "calendar/offering_writes.h"

#include "core/mdlGlobal.h"
#include "core/row_id.h"

#include <QHash>

#include <optional>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

NewRow offeringRow(const QString& table, OfferingKind kind, const Offering& offering, const QString& day) {
    NewRow row = Global().Conn.AddNew(table);
    const int boxes = kind == OfferingKind::Arbeitsgruppe ? kOfferingBoxes : kBoxBetreuer;
    for (int box = 0; box < boxes; ++box) {
        const auto i = static_cast<std::size_t>(box);
        row.SetIfPossible(kOfferingFields[i], box == kBoxTag ? day : offering.boxes[i]);
    }
    row.SetIfPossible(u"Zeit"_s, offering.Zeit());
    row.SetIfPossible(u"Zeit_K_Name"_s, offering.Zeit_K_Name());
    row.SetIfPossible(u"UE_Zeit"_s, offering.UE_Zeit);
    return row;
}

/// Adds the row of a working group to one of the later slots under the key that it has in the first.
void addUnderKey(const QString& table, const Offering& offering, const QString& day, qint16 id) {
    try {
        offeringRow(table, OfferingKind::Arbeitsgruppe, offering, day).Set(u"ID"_s, id).Update();
    } catch (const StoreError& error) {
        if (error.kind() != StoreError::Kind::KeyTaken)
            throw;
        offeringRow(table, OfferingKind::Arbeitsgruppe, offering, day).Update();
    }
}

} // namespace

qint64 ME_LZ_Daten_NEU(OfferingKind kind, const Offering& offering) {
    Transaction transaction(Global().Conn);
    qint64 firstKey = 0;
    for (const auto& day : offering.tage) {
        const qint64 key = offeringRow(listTableOf(kind), kind, offering, day).Update();
        firstKey = firstKey == 0 ? key : firstKey;
    }
    transaction.Commit();
    return firstKey;
}

qint64 AG_Daten_NEU(const Offering& offering) {
    auto& conn = Global().Conn;
    const QString first = listTableOf(OfferingKind::Arbeitsgruppe);
    Transaction transaction(conn);
    QHash<QString, qint16> keys;
    qint64 firstKey = 0;
    for (const auto& day : offering.tage) {
        const qint64 key = offeringRow(first, OfferingKind::Arbeitsgruppe, offering, day).Update();
        firstKey = firstKey == 0 ? key : firstKey;
        const Recordset rs = conn.Open(u"SELECT * FROM %1 WHERE L_Name = ? AND Tag = ?"_s.arg(first),
                                       {offering[kBoxLName], day});
        keys.insert(day, rs.Eof() ? qint16(0) : RowId(rs.Number(u"ID")));
    }
    for (const auto& table : tablesOf(OfferingKind::Arbeitsgruppe))
        if (table != first)
            for (const auto& day : offering.tage)
                addUnderKey(table, offering, day, keys.value(day));
    transaction.Commit();
    return firstKey;
}

void Tabelle_Parameter_Daten_NEU(OfferingKind kind, const Offering& offering) {
    Global()
        .Conn.AddNew(u"Parameter"_s)
        .SetIfPossible(u"Bezeichnung"_s, offering[kBoxKName])
        .SetIfPossible(u"Feld1"_s, kind == OfferingKind::Mensa ? u"ME"_s : u"LZ"_s)
        .SetIfPossible(u"Feld2"_s, offering.Zeit())
        .SetIfPossible(u"Feld3"_s, offering.Zeit_K_Name())
        .Update();
}

qint64 ME_LZ_AG_Daten_NEU(OfferingKind kind, const Offering& offering) {
    if (kind == OfferingKind::Arbeitsgruppe)
        return AG_Daten_NEU(offering);
    Transaction transaction(Global().Conn);
    const qint64 firstKey = ME_LZ_Daten_NEU(kind, offering);
    Tabelle_Parameter_Daten_NEU(kind, offering);
    transaction.Commit();
    return firstKey;
}

} // namespace kolibri
