#pragma once

#include <QString>

namespace kolibri {

/// What a row of a list is. The codes are texts, and one that is no number tells the writer to skip the row.
inline const QString kCodeDaten = QStringLiteral("1");
/// Goes on with the pupil above.
inline const QString kCodeFortsetzung = QStringLiteral("2");
/// Contact rows of a pupil who has several: the first, those between, the last.
inline const QString kCodeKontaktErster = QStringLiteral("111");
inline const QString kCodeKontaktMitte = QStringLiteral("113");
inline const QString kCodeKontaktLetzter = QStringLiteral("112");
/// Beginning of a table, its sums, and its end.
inline const QString kCodeTabelle = QStringLiteral("21");
inline const QString kCodeSumme = QStringLiteral("22");
inline const QString kCodeTabelleEnde = QStringLiteral("29");
/// Beginning of a table behind which the sheet does not end.
inline const QString kCodeTabelleOhneUmbruch = QStringLiteral("23");
/// The same number in a report: a line of text above a table.
inline const QString kCodeTextzeile = QStringLiteral("23");
/// A pupil with whom a new sheet begins.
inline const QString kCodeNeuesBlatt = QStringLiteral("91");

/// The mark of a cell of the occupancy plan with more pupils than places.
inline const QString kMarkUeberbelegt = QStringLiteral("2");

/// True for a code that a writer acts on.
inline bool isRowCode(const QString& code) {
    bool isNumber = false;
    code.toInt(&isNumber);
    return isNumber;
}

/// True for a row that holds data: no beginning, sums or end of a table.
inline bool isDataCode(const QString& code) {
    return isRowCode(code) && code != kCodeTabelle && code != kCodeTabelleOhneUmbruch && code != kCodeSumme
           && code != kCodeTabelleEnde;
}

} // namespace kolibri
