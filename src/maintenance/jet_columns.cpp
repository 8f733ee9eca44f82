#include "maintenance/jet_columns.h"

#include "core/store/schema.h"
#include "core/store/store_error.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

using enum ColumnKind;

/// The day that stands before a time of day alone.
const QDate kNoDay(1899, 12, 30);

QString dateText(const QDateTime& value) {
    if (value.time() == QTime(0, 0))
        return value.toString(u"dd.MM.yyyy"_s);
    if (value.date() == kNoDay)
        return value.toString(u"hh:mm:ss"_s);
    return value.toString(u"dd.MM.yyyy hh:mm:ss"_s);
}

/// A number with every digit that it has, and the German comma.
QString numberText(double number) {
    constexpr int kDigits = 15;
    QString text = QString::number(number, 'g', kDigits);
    if (text.toDouble() != number)
        text = QString::number(number, 'g', QLocale::FloatingPointShortest);
    return text.replace(u'.', u',');
}

/// A few offices' files hold the date of birth in the order of the computer; all lists show it in German.
QString birthDate(const QString& text) {
    static const QRegularExpression form(u"^(\\d{4})-(\\d\\d)-(\\d\\d)(?:[T ]00:00(?::00)?)?$"_s);
    const auto match = form.match(text);
    return match.hasMatch() ? match.captured(3) + u'.' + match.captured(2) + u'.' + match.captured(1) : text;
}

QString textOf(const ColumnInfo& column, const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return dateText(value.toDateTime());
    case QMetaType::Double:
        return numberText(value.toDouble());
    case QMetaType::QByteArray:
        return QString::fromLatin1(value.toByteArray().toHex());
    case QMetaType::QString:
        return column.name == u"SCH_Geb"_s ? birthDate(value.toString()) : value.toString();
    default:
        return toGermanText(value);
    }
}

/// A day without a time, or a time without a day and seconds, loses nothing as one of the two.
bool isTimeOfDay(const QDateTime& value) {
    return value.date() == kNoDay && value.time().second() == 0;
}

/// The column takes the value, and it is still the same afterwards.
bool keeps(const ColumnInfo& column, const QVariant& value) {
    QVariant stored;
    try {
        stored = toStored(column, takenValue(column, value), {});
    } catch (const StoreError&) {
        return false;
    }
    if (value.isNull())
        return column.kind != Boolean;
    if (value.typeId() == QMetaType::QDateTime && column.kind == DateTime)
        return isTimeOfDay(value.toDateTime());
    if (column.kind == Boolean)
        return value.typeId() == QMetaType::Bool || std::abs(value.toDouble()) <= 1.0;
    const bool isNumber = value.typeId() == QMetaType::Double || value.typeId() == QMetaType::LongLong;
    const bool staysNumber = column.kind == Long || column.kind == AutoNumber || column.kind == Currency;
    if (!isNumber || !staysNumber)
        return true;
    constexpr double kRounding = 1e-12;
    const double number = value.toDouble();
    return std::abs(stored.toDouble() - number) <= kRounding * std::max(1.0, std::abs(number));
}

bool keysAreUnique(const JetTable& table, std::size_t column) {
    QSet<qint64> seen;
    for (const auto& row : table.rows) {
        const QVariant& value = row.at(column);
        if (value.isNull() || seen.contains(value.toLongLong()))
            return false;
        seen.insert(value.toLongLong());
    }
    return true;
}

ColumnKind nearestKind(const JetColumn& column) {
    switch (column.type) {
    case JetType::Boolean:
        return Boolean;
    case JetType::Whole:
        return column.autoNumber ? AutoNumber : Long;
    case JetType::Money:
    case JetType::Floating:
        return Currency;
    case JetType::DateTime:
        return DateTime;
    case JetType::Text:
        return Text;
    case JetType::Memo:
    case JetType::Binary:
        break;
    }
    return Memo;
}

/// The column of the schema, found without regard to case.
const ColumnInfo* knownColumn(const QString& table, const QString& column) {
    const auto same = [](const QString& left, const QString& right) {
        return left.compare(right, Qt::CaseInsensitive) == 0;
    };
    for (const auto& known : schema())
        if (same(known.name, table))
            for (const auto& candidate : known.columns)
                if (same(candidate.info.name, column))
                    return &candidate.info;
    return nullptr;
}

/// The kinds that a column may take, the best first.
std::vector<ColumnInfo> candidates(const QString& table, const JetColumn& column) {
    const ColumnInfo* known = knownColumn(table, column.name);
    const QString name = known ? known->name : column.name;
    std::vector<ColumnInfo> result;
    if (known)
        result.push_back(*known);
    result.push_back({name, nearestKind(column)});
    if (column.type == JetType::Whole)
        result.push_back({name, Long});
    result.push_back({name, Memo});
    return result;
}

bool fits(const JetTable& table, std::size_t column, const ColumnInfo& candidate) {
    // The program reads the time of day of such a column and nothing else.
    if (candidate.kind == DateTime && table.columns.at(column).type == JetType::DateTime
        && knownColumn(table.name, candidate.name))
        return true;
    if (candidate.kind == AutoNumber && !keysAreUnique(table, column))
        return false;
    return std::all_of(table.rows.begin(), table.rows.end(), [&](const auto& row) {
        return row.at(column).isNull() ? candidate.kind != Boolean : keeps(candidate, row.at(column));
    });
}

} // namespace

QVariant takenValue(const ColumnInfo& column, const QVariant& value) {
    if (value.isNull())
        return {};
    if (column.kind == Text || column.kind == Memo)
        return textOf(column, value);
    if (value.typeId() == QMetaType::QDateTime)
        return column.kind == DateTime ? QVariant(value.toDateTime().time())
                                       : QVariant(dateText(value.toDateTime()));
    return value;
}

std::vector<ColumnInfo> columnsFor(const JetTable& table) {
    std::vector<ColumnInfo> result;
    bool hasKey = false;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        for (const auto& candidate : candidates(table.name, table.columns.at(i))) {
            const bool secondKey = candidate.kind == AutoNumber && hasKey;
            if (secondKey || !fits(table, i, candidate))
                continue;
            hasKey = hasKey || candidate.kind == AutoNumber;
            result.push_back(candidate);
            break;
        }
    }
    return result;
}

} // namespace kolibri
