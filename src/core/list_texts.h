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

/// What the store keeps of a text box: its markup, or nothing when the box is empty. Escapes of German
/// letters that somebody typed or pasted in become the letters.
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
/// Puts the texts into these rows; without a row one is added with `newRow` besides.
/// @throws StoreError for a text with an apostrophe that is to replace another, but not for a new row
void writeListTexts(const ListTextRows& rows, const FieldValues& newRow, const ListTexts& texts);
/// The same for a list that is being printed, unless the rows say the same already: nothing is written then,
/// and a list without texts needs no row.
void saveListTexts(const ListTextRows& rows, const FieldValues& newRow, const ListTexts& texts);

} // namespace kolibri
