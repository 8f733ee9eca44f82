#pragma once

#include <QStringList>

#include <optional>

namespace kolibri {

/// Where a note of the Tagesplan stands: a teaching unit (its Zeit) on a weekday.
struct TagesplanOrt {
    QString UE = {};
    QString Tag = {};

    bool operator==(const TagesplanOrt&) const = default;
};

struct TagesplanNotiz {
    TagesplanOrt ort;
    QString Notiz = {};

    bool operator==(const TagesplanNotiz&) const = default;
};

// Notes that stand in the Tagesplan for the pupil AktuelleSchuelerID with no offering behind them. The
// database is open.

/// The teaching units by their time.
QStringList UnterrichtseinheitenLesen();
/// The pupil's first note, by which the user begins; no value when there is none.
std::optional<TagesplanNotiz> ErsteTagesplanNotizLesen();
/// The pupil's note for a unit and day; empty when there is none.
QString TagesplanNotizLesen(const TagesplanOrt& ort);

/// Adds a note, also one without text. False when the pupil has one there already: nothing is written then.
bool NotizEinfuegen(const TagesplanNotiz& notiz);
/// Writes another text, also an empty one. False when there is no note to correct. @throws StoreError, also
/// for an apostrophe in the text
bool NotizKorrigieren(const TagesplanNotiz& notiz);
/// Deletes the note, if there is one.
void NotizLoeschen(const TagesplanOrt& ort);

} // namespace kolibri
