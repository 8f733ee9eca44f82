#include "core/store/column_kind.h"

#include "core/store/store_error.h"

#include <QRegularExpression>
#include <QTime>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

[[noreturn]] void refuse(const ColumnInfo& column, const QVariant& value, const QString& table,
                         const QString& expected) {
    constexpr int kShown = 60;
    QString shown = value.toString();
    if (shown.size() > kShown)
        shown = shown.left(kShown) + u"..."_s;
    throw StoreError(
        StoreError::Kind::Value,
        u"Der Wert \"%1\" passt nicht in das Feld \"%2\" (%3)."_s.arg(shown, column.name, expected), table);
}

bool isNumber(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

std::optional<double> numberOf(const QVariant& value) {
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? -1.0 : 0.0;
    if (isNumber(value))
        return value.toDouble();
    return germanNumber(value.toString().trimmed());
}

/// Half to even, as the old engine rounded whenever a fraction met a whole number.
double roundHalfEven(double number) {
    const double whole = std::floor(number);
    const double rest = number - whole;
    if (rest != 0.5)
        return std::floor(number + 0.5);
    return std::fmod(whole, 2.0) == 0.0 ? whole : whole + 1.0;
}

QVariant storedText(const ColumnInfo& column, const QVariant& value, const QString& table) {
    const QString text = value.typeId() == QMetaType::QString ? value.toString() : toGermanText(value);
    if (column.kind == ColumnKind::Text && text.size() > kMaxTextLength)
        refuse(column, value, table, u"höchstens %1 Zeichen"_s.arg(kMaxTextLength));
    return text.isNull() ? u""_s : text;
}

QVariant storedLong(const ColumnInfo& column, const QVariant& value, const QString& table) {
    const auto number = numberOf(value);
    if (!number || !std::isfinite(*number))
        refuse(column, value, table, u"eine ganze Zahl"_s);
    const double rounded = roundHalfEven(*number);
    if (rounded < std::numeric_limits<qint32>::min() || rounded > std::numeric_limits<qint32>::max())
        refuse(column, value, table, u"eine ganze Zahl"_s);
    return static_cast<qint64>(rounded);
}

QVariant storedCurrency(const ColumnInfo& column, const QVariant& value, const QString& table) {
    constexpr double kUnits = 10000.0;
    constexpr double kLargest = 922337203685477.0;
    const auto number = numberOf(value);
    if (!number || !std::isfinite(*number) || std::abs(*number) > kLargest)
        refuse(column, value, table, u"ein Geldbetrag"_s);
    // A decimal half is seldom exactly one in binary; what is one to the eighth decimal is taken for one.
    const double units = std::round(*number * kUnits * kUnits) / kUnits;
    constexpr double kNoNegativeZero = 0.0;
    return roundHalfEven(units) / kUnits + kNoNegativeZero;
}

QVariant storedBoolean(const ColumnInfo& column, const QVariant& value, const QString& table) {
    if (value.isNull())
        return false;
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    const QString word = value.toString().trimmed();
    for (const auto& yes : {u"Wahr"_s, u"True"_s, u"Ja"_s, u"Yes"_s})
        if (word.compare(yes, Qt::CaseInsensitive) == 0)
            return true;
    for (const auto& no : {u"Falsch"_s, u"False"_s, u"Nein"_s, u"No"_s})
        if (word.compare(no, Qt::CaseInsensitive) == 0)
            return false;
    const auto number = numberOf(value);
    if (!number)
        refuse(column, value, table, u"Wahr oder Falsch"_s);
    return *number != 0.0;
}

QVariant storedTime(const ColumnInfo& column, const QVariant& value, const QString& table) {
    if (value.typeId() == QMetaType::QTime && value.toTime().isValid())
        return value.toTime().toString(u"hh:mm"_s);
    // Seconds are taken, since other programs write them, and left out.
    static const QRegularExpression form(u"^(\\d{1,2}):([0-5]\\d)(?::[0-5]\\d)?$"_s);
    const auto match = form.match(value.toString().trimmed());
    const int hours = match.captured(1).toInt();
    const int minutes = match.captured(2).toInt();
    // "24:00" is how the office writes the end of the day, and it must come back as it was written.
    const bool endOfDay = hours == 24 && minutes == 0;
    if (!match.hasMatch() || (hours > 23 && !endOfDay))
        refuse(column, value, table, u"eine Uhrzeit hh:mm"_s);
    return u"%1:%2"_s.arg(hours, 2, 10, QChar(u'0')).arg(minutes, 2, 10, QChar(u'0'));
}

} // namespace

QVariant toStored(const ColumnInfo& column, const QVariant& value, const QString& table) {
    if (column.kind == ColumnKind::Boolean)
        return storedBoolean(column, value, table);
    if (value.isNull())
        return {};
    switch (column.kind) {
    case ColumnKind::Text:
    case ColumnKind::Memo:
        return storedText(column, value, table);
    case ColumnKind::Long:
    case ColumnKind::AutoNumber:
        return storedLong(column, value, table);
    case ColumnKind::Currency:
        return storedCurrency(column, value, table);
    case ColumnKind::DateTime:
        return storedTime(column, value, table);
    case ColumnKind::Boolean:
        break;
    }
    Q_UNREACHABLE();
}

QString toGermanText(const QVariant& stored) {
    if (stored.isNull())
        return {};
    if (stored.typeId() == QMetaType::Bool)
        return stored.toBool() ? u"Wahr"_s : u"Falsch"_s;
    if (stored.typeId() == QMetaType::Double) {
        QString text = QString::number(stored.toDouble(), 'f', 4);
        while (text.endsWith(u'0'))
            text.chop(1);
        if (text.endsWith(u'.'))
            text.chop(1);
        return text.replace(u'.', u',');
    }
    return stored.toString();
}

std::optional<double> germanNumber(QStringView text) {
    static const QRegularExpression form(u"^[+-]?(?=,?\\d)(\\d*|\\d{1,3}(\\.\\d{3})+)(,\\d*)?\\z"_s);
    if (!form.match(text).hasMatch())
        return std::nullopt;
    return text.toString().remove(u'.').replace(u',', u'.').toDouble();
}

} // namespace kolibri
