#pragma once

#include <QString>

#include <array>

namespace kolibri {

/// The groups of text on a page that have a font of their own.
enum FontGroup : quint8 {
    kFontKopfZeile = 0,
    kFontZeile = 1,
    kFontSummenZeile = 2,
    kFontWochenplanKopfZeile = 3,
    kFontWochenplanZeile = 4
};
inline constexpr int kFontGroups = 5;
inline constexpr int kTagKoepfe = 8;

/// What the writers of all lists share, filled once for each page.
struct PageValues {
    /// Width of the tables in points.
    int TabellenBreite = 0;
    /// Size in pixels, "bold" or "normal", "italic" or "normal", by FontGroup.
    std::array<quint8, kFontGroups> FontGroesse{};
    std::array<QString, kFontGroups> FontGewicht;
    std::array<QString, kFontGroups> FontStil;
    /// Headings of the days on the Tagesplan.
    std::array<QString, kTagKoepfe> TagKopf;
    /// Number of teaching units, which are the columns of the Tagesplan.
    quint8 AnzahlUE = 0;
};

/// Reads the fonts of the five groups from the settings.
/// @throws StoreError when a row or its size is missing, RuntimeError 6 for a size above 255 and 13 for
/// one that is no number
void loadFonts(PageValues& values);
/// Sets the headings of the days from the chosen day or pair of days ("MO", "MI/DO"), all empty for any other
/// text.
void setTagKopf(PageValues& values, QStringView cmbTag);
/// Counts the teaching units. @throws RuntimeError 6 when there are more than 255
void countTeachingUnits(PageValues& values);

} // namespace kolibri
