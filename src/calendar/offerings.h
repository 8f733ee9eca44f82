#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace kolibri {

/// The three kinds of care that the office offers.
enum class OfferingKind { Mensa, Lernzeit, Arbeitsgruppe };
enum class OfferingAction { Neu, Korrektur, Löschen };

/// A mode of the offering form.
struct OfferingMode {
    OfferingKind kind = OfferingKind::Mensa;
    OfferingAction action = OfferingAction::Neu;
};
/// The mode in a form's tag such as "MensaNeu" or "ArbeitsgruppeLöschen": the kind is its beginning, the
/// action its end.
OfferingMode offeringMode(QStringView tag);

/// GR1 to GR7.
const QStringList& offeringTables();
/// The tables that hold the rows of a kind: one for Mensa and Lernzeit; the five slots of a pupil's day for
/// working groups, each with a copy of the whole list.
QStringList tablesOf(OfferingKind kind);
/// The table whose rows the office sees and chooses from.
QString listTableOf(OfferingKind kind);

/// The text boxes of the offering form.
enum OfferingBox { kBoxKName, kBoxLName, kBoxTag, kBoxVon, kBoxBis, kBoxBetreuer, kBoxOrt };
inline constexpr int kOfferingBoxes = 7;
/// Their columns in the tables, by box.
extern const std::array<QString, kOfferingBoxes> kOfferingFields;

/// What stands in the offering form.
struct Offering {
    std::array<QString, kOfferingBoxes> boxes;
    /// Zeit of the teaching unit; empty for none.
    QString UE_Zeit;
    /// Weekday codes chosen in the list, for new rows.
    QStringList tage;

    const QString& operator[](OfferingBox box) const { return boxes[box]; }
    QString& operator[](OfferingBox box) { return boxes[box]; }
    /// "hh:mm - hh:mm"
    QString Zeit() const;
    /// The key by which pupils and list texts hold the offering: "13:00 - 14:00 ME1".
    QString Zeit_K_Name() const;
};

/// A row of an offering table as the list shows it; the cells by offeringColumns().
struct OfferingRow {
    qint64 ID = 0;
    QStringList cells;
};
/// Columns that the list of a kind shows behind the ID.
QStringList offeringColumns(OfferingKind kind);

/// The rows of a kind by short name and ID. The database is open.
std::vector<OfferingRow> ME_LZ_AG_DatenEinlesen(OfferingKind kind);
inline std::vector<OfferingRow> ME_DatenEinlesen() {
    return ME_LZ_AG_DatenEinlesen(OfferingKind::Mensa);
}
inline std::vector<OfferingRow> LZ_DatenEinlesen() {
    return ME_LZ_AG_DatenEinlesen(OfferingKind::Lernzeit);
}
inline std::vector<OfferingRow> AG_DatenEinlesen() {
    return ME_LZ_AG_DatenEinlesen(OfferingKind::Arbeitsgruppe);
}

/// One row by its key; empty boxes where it has no value or is no longer there. The database is open.
Offering ME_LZ_AG_DatensatzLesen(OfferingKind kind, int id);

} // namespace kolibri
