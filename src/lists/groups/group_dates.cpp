#include "lists/groups/group_dates.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"

#include <QDate>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"Liste_AG"_s;
constexpr int kDaysInWeek = 7;

/// What the rows of the table are, by their ID.
enum DateRow { kLastUsed = 1, kFirstWeek = 2, kOneGroup = 3 };

/// The rows in question; a group is told by its name.
struct DateRows {
    DateRow id;
    QString group = {};

    QString condition() const { return id == kOneGroup ? u"ID = ? AND AG = ?"_s : u"ID = ?"_s; }
    QVariantList values() const {
        return id == kOneGroup ? QVariantList{int(id), group} : QVariantList{int(id)};
    }
};

QString dateField(std::size_t number) {
    return u"Datum%1"_s.arg(number + 1);
}

Recordset openRows(const DateRows& rows) {
    return Global().Conn.Open(u"SELECT * FROM Liste_AG WHERE "_s + rows.condition(), rows.values());
}

std::optional<GroupDates> readDates(const DateRows& rows) {
    const Recordset rs = openRows(rows);
    if (rs.Eof())
        return std::nullopt;
    GroupDates dates;
    for (std::size_t i = 0; i < dates.size(); ++i)
        dates[i] = rs.Text(dateField(i));
    return dates;
}

void save(const DateRows& rows, const FieldValues& fields) {
    auto& conn = Global().Conn;
    if (!openRows(rows).Eof()) {
        conn.Change(kTable, fields, rows.condition(), rows.values());
        return;
    }
    NewRow row = conn.AddNew(kTable);
    row.Set(u"ID"_s, int(rows.id));
    if (rows.id == kOneGroup)
        row.Set(u"AG"_s, rows.group);
    for (const auto& [field, value] : fields)
        row.Set(field, value);
    row.Update();
}

} // namespace

std::optional<GroupDates> datesFromMonday(const QString& montag, const QString& tag) {
    if (montag.isEmpty())
        return std::nullopt;
    const QDate monday = DeutschesDatum(montag);
    if (!monday.isValid())
        throw RuntimeError::typeMismatch(u"Datum Montag 1. Woche: %1"_s.arg(montag));
    GroupDates dates;
    for (int i = 0; i < kMeetings; ++i)
        dates[static_cast<std::size_t>(i)] =
            monday.addDays(TagZahl(tag) + i * kDaysInWeek).toString(u"dd.MM.yyyy"_s);
    return dates;
}

QString dateHeading(const QString& datum) {
    const QDate date = DeutschesDatum(datum);
    return date.isValid() ? date.toString(u"dd.MM.yy"_s) : datum;
}

QString readFirstMonday() {
    const Recordset rs = openRows({kFirstWeek});
    return rs.Eof() ? QString() : rs.Text(dateField(0));
}

void saveFirstMonday(const QString& montag) {
    save({kFirstWeek}, {{dateField(0), montag}});
}

GroupDates readLastDates() {
    return readDates({kLastUsed}).value_or(GroupDates{});
}

std::optional<GroupDates> readDatesOf(const QString& langname) {
    return readDates({kOneGroup, langname});
}

void saveDates(const GroupDates& dates, const QString& langname) {
    FieldValues fields;
    for (std::size_t i = 0; i < dates.size(); ++i)
        fields.push_back({dateField(i), dates[i]});
    Transaction transaction(Global().Conn);
    save({kLastUsed}, fields);
    if (!langname.isEmpty())
        save({kOneGroup, langname}, fields);
    transaction.Commit();
}

} // namespace kolibri
