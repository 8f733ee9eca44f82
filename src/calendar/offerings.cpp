#include "calendar/offerings.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {

const std::array<QString, kOfferingBoxes> kOfferingFields{
    u"K_Name"_s, u"L_Name"_s, u"Tag"_s, u"Zeit_Von"_s, u"Zeit_Bis"_s, u"Betreuer"_s, u"Ort"_s};

OfferingMode offeringMode(QStringView tag) {
    OfferingMode mode;
    if (tag.startsWith(u"Lernzeit"))
        mode.kind = OfferingKind::Lernzeit;
    else if (tag.startsWith(u"Arbeitsgruppe"))
        mode.kind = OfferingKind::Arbeitsgruppe;
    if (tag.endsWith(u"Korrektur"))
        mode.action = OfferingAction::Korrektur;
    else if (tag.endsWith(u"Löschen"))
        mode.action = OfferingAction::Löschen;
    return mode;
}

const QStringList& offeringTables() {
    static const QStringList tables{u"GR1"_s, u"GR2"_s, u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s};
    return tables;
}

QStringList tablesOf(OfferingKind kind) {
    constexpr int kFirstWorkingGroups = 2;
    switch (kind) {
    case OfferingKind::Mensa:
        return offeringTables().first(1);
    case OfferingKind::Lernzeit:
        return offeringTables().sliced(1, 1);
    case OfferingKind::Arbeitsgruppe:
        break;
    }
    return offeringTables().sliced(kFirstWorkingGroups);
}

QString listTableOf(OfferingKind kind) {
    return tablesOf(kind).first();
}

QString Offering::Zeit() const {
    return boxes[kBoxVon] + u" - "_s + boxes[kBoxBis];
}

QString Offering::Zeit_K_Name() const {
    return Zeit() + u' ' + boxes[kBoxKName];
}

QStringList offeringColumns(OfferingKind kind) {
    QStringList columns{u"K_Name"_s, u"L_Name"_s, u"Tag"_s, u"Zeit_von"_s, u"Zeit_bis"_s, u"Zeit"_s};
    if (kind == OfferingKind::Arbeitsgruppe)
        columns << u"Betreuer"_s << u"Ort"_s << u"Anmerkung"_s;
    return columns << u"UE_Zeit"_s;
}

std::vector<OfferingRow> ME_LZ_AG_DatenEinlesen(OfferingKind kind) {
    std::vector<OfferingRow> rows;
    Recordset rs = Global().Conn.Open(u"SELECT * FROM %1 ORDER BY K_Name, ID"_s.arg(listTableOf(kind)));
    for (; !rs.Eof(); rs.MoveNext()) {
        OfferingRow row{rs.Number(u"ID"), {}};
        // An older file has no remarks of the working groups.
        for (const auto& column : offeringColumns(kind))
            row.cells << (rs.HasField(column) ? rs.Text(column) : QString());
        rows.push_back(row);
    }
    return rows;
}

Offering ME_LZ_AG_DatensatzLesen(OfferingKind kind, int id) {
    Offering offering;
    const Recordset rs = Global().Conn.Open(u"SELECT * FROM %1 WHERE ID = ?"_s.arg(listTableOf(kind)), {id});
    if (rs.Eof())
        return offering;
    const int boxes = kind == OfferingKind::Arbeitsgruppe ? kOfferingBoxes : kBoxBetreuer;
    for (int box = 0; box < boxes; ++box)
        offering.boxes[static_cast<std::size_t>(box)] =
            rs.Text(kOfferingFields[static_cast<std::size_t>(box)]);
    offering.UE_Zeit = rs.Text(u"UE_Zeit");
    return offering;
}

} // namespace kolibri
