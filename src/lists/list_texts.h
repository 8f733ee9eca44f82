#pragma once

#include "core/store/connection.h"

#include <QString>

namespace kolibri {

class RichText;

/// The texts that the office puts before and after the tables of a list, as the store keeps them.
struct ListTexts {
    QString vorher;
    QString nachher;

    bool isEmpty() const { return vorher.isEmpty() && nachher.isEmpty(); }
    bool operator==(const ListTexts&) const = default;
};

/// What a stored text looks like on a page: bold, italic and underlined stretches and line breaks, no control
/// words. Nothing is escaped, as nowhere on a page.
QString pageText(const RichText& text);
QString pageText(const QString& stored);
/// What the store keeps of a text box: its markup, or nothing when the box is empty.
QString storedText(const RichText& text);

/// The rows of the open store that hold the texts of one list.
struct ListTextRows {
    QString condition;
    QVariantList values;
    /// Which of several rows counts.
    QString order = QStringLiteral("ID");
};

/// The texts in the first of these rows; empty ones when there is none.
ListTexts readListTexts(const ListTextRows& rows);
/// Puts the texts into these rows, unless they say the same already. Without a row one is added with `newRow`
/// besides; a list without texts needs none.
/// @throws StoreError for a text with an apostrophe that is to replace another, but not for a new row
void saveListTexts(const ListTextRows& rows, const FieldValues& newRow, const ListTexts& texts);

} // namespace kolibri
