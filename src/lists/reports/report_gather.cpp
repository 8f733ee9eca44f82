#include "core/mdlGlobal.h"
#include "lists/list_numbers.h"
#include "lists/reports/report_counts.h"
#include "lists/reports/report_rows.h"
#include "lists/reports/reports.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// What the heading row of a table holds in the place of a cell: the writer has the headings.
const QString kBlank = u" "_s;
constexpr int kWeekColumns = 1 + kSchoolDays;
constexpr int kGroupColumns = 4;

/// Times and keys of the offerings, side by side. Two offerings at one time are two rows that look alike.
struct Offerings {
    QStringList zeiten;
    QStringList keys;
};

QString offeringTable(quint8 listenArt) {
    return listenArt == kMensaGesamt || listenArt == kMensaJeKlasse ? u"GR1"_s : u"GR2"_s;
}

Offerings readOfferings(const QString& gr) {
    Offerings offerings;
    Recordset rs = Global().Conn.Open(u"SELECT DISTINCT Zeit, Zeit_K_Name FROM "_s + gr);
    for (; !rs.Eof(); rs.MoveNext()) {
        offerings.zeiten << rs.Text(0);
        offerings.keys << rs.Text(1);
        checkListBound(static_cast<int>(offerings.keys.size()), kReportOfferings, u"Angebote");
    }
    return offerings;
}

QStringList weekRow(const QString& first, const WeekCounts& counts) {
    QStringList cells{first};
    for (const int count : counts)
        cells << QString::number(count);
    return cells;
}

/// Rows of one table, and their sums below them.
class WeekTable {
public:
    explicit WeekTable(ReportRows& rows) : m_rows(rows) { m_rows.add(kCodeTabelle, {kBlank}); }

    void add(const QString& first, const WeekCounts& counts) {
        m_rows.add(kCodeDaten, weekRow(first, counts));
        for (std::size_t day = 0; day < counts.size(); ++day)
            m_sums[day] += counts[day];
    }
    void end() {
        m_rows.add(kCodeSumme, weekRow(u"Summe"_s, m_sums));
        m_rows.add(kCodeTabelleEnde);
    }

private:
    ReportRows& m_rows;
    WeekCounts m_sums{};
};

} // namespace

void BerichtGesamt_Sammeln() {
    const QString gr = offeringTable(Global().ListenArt);
    const Offerings offerings = readOfferings(gr);
    const auto counts = countOfferings(gr, offerings.keys, Global().MitSchulanfaengern);
    ReportRows rows(Liste(), kWeekColumns);
    WeekTable table(rows);
    for (std::size_t i = 0; i < counts.size(); ++i)
        table.add(offerings.zeiten.at(static_cast<qsizetype>(i)), counts[i]);
    table.end();
}

void BerichtJeKlasse_Sammeln() {
    const QString gr = offeringTable(Global().ListenArt);
    const Offerings offerings = readOfferings(gr);
    const auto classes = countByClass(gr, offerings.keys, Global().MitSchulanfaengern);
    if (!classes.empty())
        checkListBound(static_cast<int>(classes.size()), kReportClasses, u"Klassen");
    ReportRows rows(Liste(), kWeekColumns);
    for (qsizetype i = 0; i < offerings.keys.size(); ++i) {
        rows.add(kCodeTextzeile, {u"ZEIT: "_s + offerings.zeiten.at(i)});
        WeekTable table(rows);
        for (const auto& klasse : classes)
            table.add(klasse.klasse, klasse.offerings.at(static_cast<std::size_t>(i)));
        table.end();
    }
}

void BerichtArbeitsgruppen_Sammeln() {
    ReportRows rows(Liste(), kGroupColumns);
    Recordset rs = Global().Conn.Open(u"SELECT * FROM GR3 ORDER BY L_Name, ID"_s);
    rows.add(kCodeTabelle, {kBlank});
    std::vector<GroupMeeting> meetings;
    int firstRow = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        meetings.push_back({rs.Text(u"Tag"), rs.Text(u"Zeit_K_Name")});
        const int row = rows.add(kCodeDaten, {rs.Text(u"L_Name"), rs.Text(u"Tag"), rs.Text(u"Zeit")});
        firstRow = firstRow == 0 ? row : firstRow;
    }
    rows.add(kCodeTabelleEnde);
    // Only now that all rows have found their place: a statement for thousands would not fit either.
    for (const int count : countGroups(meetings))
        Liste().Daten(kGroupColumns, firstRow++) = QString::number(count);
}

} // namespace kolibri
