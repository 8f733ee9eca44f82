#pragma once

#include <QString>

#include <vector>

namespace kolibri {

/// Something that the office does in a window: in a control, by its object name, it chooses or types a value.
/// In a list of rows an empty value is the first row; a button is pressed, whatever the value.
struct Filling {
    QString control;
    QString value = {};
};

/// What happens to a window at the end of a station.
enum class Leaving : quint8 {
    /// It is closed as it stands.
    Closed,
    /// OK is pressed, so that the stations behind find what was entered.
    Confirmed
};

/// A window that the walk opens, as the office opens it: by an entry of the menu.
struct Station {
    QString entry;
    std::vector<Filling> fillings = {};
    /// Name of the picture of the window; empty where it looks like one before.
    QString picture = {};
    /// Name of the picture and of the PDF of the list that the window leads to; empty when it leads to none.
    QString list = {};
    Leaving leaving = Leaving::Closed;
};

/// The stations of the walk in the order of a school year: the calendar, the pupils, the lists of the day.
const std::vector<Station>& stations();

} // namespace kolibri
