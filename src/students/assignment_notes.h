#pragma once

#include <QString>

#include <optional>

namespace kolibri {

/// The assignment that a note hangs on, as the pupil form shows it at this moment.
struct NotizOrt {
    /// "GR1" to "GR7".
    QString Gruppe = {};
    /// Weekday code.
    QString NotizTag = {};
    /// The whole text of the group box, a Zeit_K_Name.
    QString Schluessel = {};

    bool operator==(const NotizOrt&) const = default;
};

/// Whether the pupil is known to take part on that day. The store decides, not the box: a time that is chosen
/// but not yet saved counts as no participation.
enum class NotizArt : quint8 {
    Zuweisung = 1, ///< the stored cell names an offering
    Wochenplan = 2 ///< it is empty
};

/// What the store holds of a note.
struct SchuelerNotiz {
    QString Notiz = {};
    /// Stands in the Tagesplan also when the pupil takes no part on that day.
    bool WP_Notiz = false;

    bool operator==(const SchuelerNotiz&) const = default;
};

/// The time in front of a Zeit_K_Name, "hh:mm - hh:mm".
QString ZeitTextVon(const QString& schluessel);
/// Heading of the note form.
QString NotizUeberschrift(NotizArt art, const NotizOrt& ort);
/// Caption of the box that brings a note into the Tagesplan: "Notiz Wochenplan, keine ME Teilnahme".
QString KeineTeilnahmeText(const QString& gruppe);

// The notes of the pupil AktuelleSchuelerID in the open database. An apostrophe in a key or in a changed text
// is refused by the store.

NotizArt NotizArtLesen(const NotizOrt& ort);
/// L_Name of the offering; empty when there is no such offering.
QString LangnameLesen(const NotizOrt& ort);
/// The note on an assignment; of several the first.
std::optional<SchuelerNotiz> NotizLesen(const NotizOrt& ort);

/// Adds a note, also one without text. A column that an old file lacks is passed over.
void NotizNeuSchreiben(const NotizOrt& ort, const QString& langname, const SchuelerNotiz& notiz);
/// Writes another text into the notes on an assignment; an empty text removes them. WP_Notiz stays.
void NotizAendern(const NotizOrt& ort, const QString& text);
/// Deletes the notes of the group on that day, whatever time they were written for: those on a time that the
/// box has not shown for long go too.
void NotizenLoeschen(const NotizOrt& ort);

} // namespace kolibri
