#pragma once

#include "core/mdlGlobal.h"

#include <array>

namespace kolibri {

/// The font sizes that can be chosen for lists.
inline constexpr int kSmallestFont = 8;
inline constexpr int kLargestFont = 22;
/// Heading, rows and sums of the lists, heading and rows of the Tagesplan.
inline constexpr int kFontSettings = 5;

/// Font of a kind of row in a list.
struct FontSetting {
    /// Points as text; empty when none is known.
    QString Grösse;
    bool Fett = false;
    bool Kursiv = false;
};

/// How a kind of list writes names.
struct NameSetting {
    QString NameKurz;
    QString NameZuerst;
};

struct FeeSetting {
    QString Bezeichnung;
    bool Aktiv = false;
};

/// What the school calls a contact field, and to which category it belongs.
struct ContactSetting {
    QString Bezeichnung;
    QString Kategorie;
};

/// The rows of the table Einstellungen that the settings dialog edits.
struct OfficeSettings {
    std::array<FontSetting, kFontSettings> Schriften;
    std::array<NameSetting, kNameFormats> Namen;
    std::array<FeeSetting, kBeitraege> Beiträge;
    bool Schwimmer = false;
    bool Baustein = false;
    bool Kennung = false;
    std::array<ContactSetting, kContactFields> Kontakte;
    bool Apostroph = false;
};

/// The shortenings and orders of a name, the standard first.
const QStringList& NameKurzListe();
const QStringList& NameZuerstListe();

/// Reads the settings from the open database. Where no name format is known it is the standard one.
OfficeSettings EinstellungenLesen(Connection& conn);
/// Writes the settings into the open database, all or nothing. A row that is missing stays missing, but for
/// that of the apostrophes. A font without a size keeps the one it has. From here on the connection takes
/// apostrophes or not, as the settings say.
/// @throws StoreError for a text that its column does not take; also with an apostrophe unless allowed
void EinstellungenSchreiben(Connection& conn, const OfficeSettings& settings);

/// True if the office has allowed apostrophes in texts; the database is open.
bool ApostropheErlaubt(Connection& conn);

} // namespace kolibri
