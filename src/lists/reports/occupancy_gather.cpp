#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "lists/list_numbers.h"
#include "lists/reports/report_counts.h"
#include "lists/reports/report_rows.h"
#include "lists/reports/reports.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Name and time of an offering stand before the columns of its places.
constexpr int kColumnsBefore = 2;
constexpr int kFirstPlaceField = 4;
const QString kBlank = u" "_s;

int placesOf(const OccupancyOffering& offering, const QString& text) {
    bool isNumber = false;
    const int places = text.toInt(&isNumber);
    if (!isNumber)
        throw RuntimeError::typeMismatch(u"%1: %2 Plätze"_s.arg(offering.Bezeichnung, text));
    return places;
}

std::vector<OccupancyOffering> readPlaces(const QString& kind) {
    std::vector<OccupancyOffering> offerings;
    Recordset rs =
        Global().Conn.Open(u"SELECT * FROM Parameter WHERE Feld1 = ? ORDER BY Bezeichnung"_s, {kind});
    for (; !rs.Eof(); rs.MoveNext()) {
        OccupancyOffering offering{rs.Text(u"Bezeichnung"), rs.Text(u"Feld2"), rs.Text(u"Feld3")};
        for (std::size_t column = 0; column < kPlanColumns; ++column) {
            const QString text = rs.Text(u"Feld%1"_s.arg(kFirstPlaceField + static_cast<int>(column)));
            offering.PlaetzeText[column] = text.isEmpty() ? u"0"_s : text;
            offering.Plaetze[column] = placesOf(offering, offering.PlaetzeText[column]);
        }
        offerings.push_back(offering);
    }
    return offerings;
}

QStringList placesRow(const OccupancyOffering& offering) {
    QStringList cells{offering.Bezeichnung, offering.Zeit};
    for (const auto& places : offering.PlaetzeText)
        cells << places;
    return cells;
}

void addDay(ListState& liste, ReportRows& rows, const OccupancyPlan& plan, int day) {
    rows.add(kCodeTextzeile, {dayNames().at(static_cast<std::size_t>(day))});
    rows.add(kCodeTabelle, {kBlank});
    for (std::size_t i = 0; i < plan.Angebote.size(); ++i) {
        QStringList cells{plan.Angebote[i].Bezeichnung, plan.Angebote[i].Zeit};
        for (int column = 0; column < kPlanColumns; ++column)
            cells << QString::number(plan.taken(i, day, column));
        const int row = rows.add(kCodeDaten, cells);
        for (int column = 0; column < kPlanColumns; ++column)
            if (plan.overfull(i, day, column))
                liste.BelegungMark(kColumnsBefore + column + 1, row) = kMarkUeberbelegt;
    }
    rows.add(kCodeTabelleEnde);
}

/// Rows of the whole plan: a line of text, the beginning and the end around each of its six tables.
int rowsNeeded(const std::vector<OccupancyOffering>& offerings) {
    constexpr int kTables = 1 + kSchoolDays;
    constexpr int kRowsAround = 3;
    return kTables * (static_cast<int>(offerings.size()) + kRowsAround);
}

} // namespace

void Belegung_Sammeln() {
    auto& liste = Liste();
    const bool mensa = Global().ListenArt == kMensaBelegung;
    OccupancyPlan& plan = liste.Belegung;
    plan = {};
    ReportRows rows(liste, kColumnsBefore + kPlanColumns);
    plan.Angebote = readPlaces(mensa ? u"ME"_s : u"LZ"_s);
    if (plan.Angebote.empty()) {
        MsgBox(u"Geben Sie die Anzahl der maximal möglichen Plätze ein!"_s);
        return;
    }
    checkListBound(rowsNeeded(plan.Angebote), kMaxZeilenCodes, u"ZeilenCode");
    QStringList keys;
    for (const auto& offering : plan.Angebote)
        keys << offering.Zeit_K_Name;
    plan.Belegt = countByLetter(mensa ? u"GR1"_s : u"GR2"_s, keys);
    rows.add(kCodeTextzeile, {u"Maximale Plätze, Stand: "_s + liste.ListenDatum.toString(u"dd.MM.yyyy"_s)});
    rows.add(kCodeTabelle, {kBlank});
    for (const auto& offering : plan.Angebote)
        rows.add(kCodeDaten, placesRow(offering));
    rows.add(kCodeTabelleEnde);
    for (int day = 0; day < kSchoolDays; ++day)
        addDay(liste, rows, plan, day);
}

} // namespace kolibri
