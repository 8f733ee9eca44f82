#pragma once

#include <QString>
#include <QVariant>

#include <optional>

namespace kolibri {

/// What a column holds. The office's files were first kept by an engine with these kinds, and the rules for
/// what a column takes are still those.
enum class ColumnKind {
    Text,       ///< up to 255 characters
    Memo,       ///< text of any length
    Long,       ///< whole number, 32 bits, signed
    AutoNumber, ///< whole number that the engine assigns when none is written
    Boolean,    ///< true or false, never null
    Currency,   ///< money with four decimals
    DateTime    ///< time of day, "hh:mm"
};

/// Longest content of a Text column, in UTF-16 units.
inline constexpr int kMaxTextLength = 255;

/// A column of a table.
struct ColumnInfo {
    QString name;
    ColumnKind kind = ColumnKind::Text;
};

/// The value as the column keeps it: text, qint64, double with at most four decimals, bool, or "hh:mm"; a
/// QVariant without a value stays null, but becomes false in a Boolean column. A text is never null. Text is
/// read as an office types it: "12,50", "1.250,00", "Wahr", "8:05".
/// @throws StoreError (Value) naming column and value when the column does not take it
QVariant toStored(const ColumnInfo& column, const QVariant& value, const QString& table);

/// The German text form of a stored value: "Wahr" or "Falsch", decimal comma, "hh:mm"; null gives an empty
/// text.
QString toGermanText(const QVariant& stored);

/// A German number: decimal comma, points only between groups of three digits, a sign in front; nothing else.
std::optional<double> germanNumber(QStringView text);

} // namespace kolibri
