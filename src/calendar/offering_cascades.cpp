#include "calendar/offering_cascades.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kPupils = u"Stammdaten"_s;
const QString kListTexts = u"ME_LZ_AG_Notizen"_s;
const QString kCapacity = u"Parameter"_s;
const QString kNotes = u"SCH_Notiz"_s;
const QString kGroup = u"Arbeitsgruppe"_s;
const QString kOfId = u"ID = ?"_s;

/// The cell of a pupil for a table and a day: "GR1_MO".
QString pupilColumn(const QString& table, const QString& day) {
    return table + u'_' + day;
}

/// Keys of the pupils who hold the offering in this cell. There is none for a Saturday, nor for whatever else
/// a file may have as a day.
std::vector<qint64> pupilsWith(const QString& column, const QString& key) {
    auto& conn = Global().Conn;
    if (!conn.HasColumn(kPupils, column)) {
        StoreError error(StoreError::Kind::Programming,
                         u"Das Feld \"%1\" gibt es in der Tabelle \"%2\" nicht."_s.arg(column, kPupils),
                         kPupils);
        error.setPurpose(conn.Purpose());
        throw error;
    }
    Recordset rs = conn.Open(u"SELECT ID FROM Stammdaten WHERE %1 = ?"_s.arg(column), {key});
    if (rs.RecordCount() > kMostPupilsOfACascade)
        throw RuntimeError::outOfRange(
            u"%1: %2 Kinder, höchstens %3"_s.arg(key).arg(rs.RecordCount()).arg(kMostPupilsOfACascade));
    std::vector<qint64> pupils;
    for (; !rs.Eof(); rs.MoveNext())
        pupils.push_back(rs.Number(u"ID"));
    return pupils;
}

void setCells(const std::vector<qint64>& pupils, const QString& column, const QString& key) {
    for (const qint64 pupil : pupils)
        Global().Conn.Change(kPupils, {{column, key}}, kOfId, {pupil});
}

/// Takes the pupils of one slot of a working group from their old cell to the new one.
void moveSlot(const QString& table, const Offering& neu, const ClickedOffering& alt) {
    const QString column = pupilColumn(table, alt.Tag_alt);
    const auto pupils = pupilsWith(column, alt.Zeit_alt + u' ' + neu[kBoxKName]);
    setCells(pupils, column, u""_s);
    setCells(pupils, pupilColumn(table, neu[kBoxTag]), neu.Zeit_K_Name());
}

FieldValues groupValues(const Offering& offering) {
    FieldValues values;
    for (std::size_t box = 0; box < kOfferingFields.size(); ++box)
        values.push_back({kOfferingFields[box], offering.boxes[box]});
    values.push_back({u"Zeit"_s, offering.Zeit()});
    values.push_back({u"Zeit_K_Name"_s, offering.Zeit_K_Name()});
    values.push_back({u"UE_Zeit"_s, offering.UE_Zeit});
    return values;
}

} // namespace

void ME_LZ_Daten_KORREKTUR(OfferingKind kind, const Offering& neu, const ClickedOffering& alt) {
    auto& conn = Global().Conn;
    const QString table = listTableOf(kind);
    const QString column = pupilColumn(table, neu[kBoxTag]);
    const QString zeit = neu.Zeit();
    const QString key = neu.Zeit_K_Name();
    const FieldValues newTime{{u"Zeit"_s, zeit}, {u"Zeit_K_Name"_s, key}};
    Transaction transaction(conn);
    for (const qint64 pupil : pupilsWith(column, alt.Zeit_K_Name_alt)) {
        conn.Change(kPupils, {{column, key}}, kOfId, {pupil});
        conn.Change(kNotes, newTime, u"SCH_ID = ?"_s, {pupil});
    }
    conn.Change(kListTexts, newTime, u"K_Name = ?"_s, {neu[kBoxKName]});
    conn.Change(table,
                {{u"Zeit_von"_s, neu[kBoxVon]},
                 {u"Zeit_bis"_s, neu[kBoxBis]},
                 {u"Zeit"_s, zeit},
                 {u"UE_Zeit"_s, neu.UE_Zeit},
                 {u"Zeit_K_Name"_s, key}},
                kOfId, {alt.id});
    conn.Change(kCapacity, {{u"Feld2"_s, zeit}, {u"Feld3"_s, key}}, u"Bezeichnung = ?"_s, {neu[kBoxKName]});
    transaction.Commit();
}

void AG_Daten_KORREKTUR(const Offering& neu, const ClickedOffering& alt) {
    auto& conn = Global().Conn;
    const QString zeit = neu.Zeit();
    const QString tag = neu[kBoxTag];
    Transaction transaction(conn);
    if (zeit != alt.Zeit_alt || tag != alt.Tag_alt)
        for (const auto& table : tablesOf(OfferingKind::Arbeitsgruppe))
            moveSlot(table, neu, alt);
    for (const auto& table : tablesOf(OfferingKind::Arbeitsgruppe))
        conn.Change(table, groupValues(neu), kOfId, {alt.id});
    conn.Change(kListTexts,
                {{u"Tag"_s, tag},
                 {u"Zeit"_s, zeit},
                 {u"Zeit_K_Name"_s, neu.Zeit_K_Name()},
                 {u"Betreuer"_s, neu[kBoxBetreuer]},
                 {u"Ort"_s, neu[kBoxOrt]}},
                u"L_Name = ? AND Typ = ?"_s, {neu[kBoxLName], kGroup});
    // Notes of the later slots have always kept their old day and time, and those of a Mensa or Lernzeit with
    // the same long name go along.
    conn.Change(kNotes,
                {{u"Tag"_s, tag},
                 {u"Zeit"_s, zeit},
                 {u"Zeit_K_Name"_s, neu.Zeit_K_Name()},
                 {u"Tag_Zahl"_s, TagZahl(tag)}},
                u"L_Name = ? AND (GR = 'GR1' OR GR = 'GR2' OR GR = 'GR3')"_s, {neu[kBoxLName]});
    transaction.Commit();
}

void ME_LZ_Daten_LÖSCHEN(OfferingKind kind, const Offering& offering, const ClickedOffering& alt) {
    auto& conn = Global().Conn;
    const QString table = listTableOf(kind);
    const QString column = pupilColumn(table, offering[kBoxTag]);
    const QString key = offering.Zeit_K_Name();
    Transaction transaction(conn);
    conn.Change(kPupils, {{column, u""_s}}, column + u" = ?"_s, {key});
    conn.Delete(table, kOfId, {alt.id});
    conn.Delete(kListTexts, u"Zeit_K_Name = ?"_s, {key});
    conn.Delete(kCapacity, u"Feld3 = ?"_s, {key});
    conn.Delete(kNotes, u"Zeit_K_Name = ? AND GR = ?"_s, {key, table});
    transaction.Commit();
}

void AG_Daten_LÖSCHEN(const Offering& offering, const ClickedOffering& alt) {
    auto& conn = Global().Conn;
    const QString key = alt.Zeit_alt + u' ' + offering[kBoxKName];
    const QStringList tables = tablesOf(OfferingKind::Arbeitsgruppe);
    const QString ofDay = u"L_Name = ? AND Tag = ? AND Zeit = ?"_s;
    const QVariantList day{offering[kBoxLName], offering[kBoxTag], alt.Zeit_alt};
    Transaction transaction(conn);
    for (const auto& table : tables) {
        const QString column = pupilColumn(table, offering[kBoxTag]);
        setCells(pupilsWith(column, key), column, u""_s);
    }
    for (const auto& table : tables)
        if (table == tables.first())
            conn.Delete(table, kOfId, {alt.id});
        else
            conn.Delete(table, ofDay, day);
    conn.Delete(kListTexts, u"Typ = ? AND "_s + ofDay, QVariantList{kGroup} + day);
    conn.Delete(kNotes, ofDay, day);
    transaction.Commit();
}

void ME_LZ_AG_Daten_ÄNDERN(const OfferingMode& mode, const Offering& offering, const ClickedOffering& alt) {
    const bool deletes = mode.action == OfferingAction::Löschen;
    if (mode.kind == OfferingKind::Arbeitsgruppe) {
        const auto change = deletes ? AG_Daten_LÖSCHEN : AG_Daten_KORREKTUR;
        change(offering, alt);
    } else {
        const auto change = deletes ? ME_LZ_Daten_LÖSCHEN : ME_LZ_Daten_KORREKTUR;
        change(mode.kind, offering, alt);
    }
}

} // namespace kolibri
