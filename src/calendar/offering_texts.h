#pragma once

#include "calendar/offerings.h"
#include "core/list_texts.h"

namespace kolibri {

// The texts before and after the lists of a Mensa or Lernzeit, one pair for each class letter and time, and
// of a working group, one pair for all its days. The database is open.

/// "Mensa", "Lernzeit" or "Arbeitsgruppe": what a text says it belongs to.
QString offeringTyp(OfferingKind kind);

/// The class letters "A" to "D".
const QStringList& Klassen_einlesen();
/// Long names of a Mensa or Lernzeit, by time; one with two times stands twice.
QStringList Zeiten_Einlesen(OfferingKind kind);
inline QStringList Zeiten_GR1_Einlesen() {
    return Zeiten_Einlesen(OfferingKind::Mensa);
}
inline QStringList Zeiten_GR2_Einlesen() {
    return Zeiten_Einlesen(OfferingKind::Lernzeit);
}
/// Long names of the working groups; one on two days stands twice.
QStringList AGs_Einlesen();

/// The list that a text belongs to: the class letter (none for a working group), and the first row of the
/// offering with this long name.
struct TextOffering {
    OfferingKind kind = OfferingKind::Mensa;
    QString Klasse = {};
    QString L_Name = {};
    QString K_Name = {};
    QString Tag = {};
    QString Zeit = {};
    QString Zeit_K_Name = {};
    QString Betreuer = {};
    QString Ort = {};
};

/// Fills in the offering from its long name; everything but that is empty when there is no such row.
TextOffering Angebot_Einlesen(OfferingKind kind, const QString& L_Name);

/// The stored texts of a list.
ListTexts Text_Einlesen(const TextOffering& offering);
/// Stores the texts of a list, in a row of its own where there is none. Nothing asks whether an offering was
/// chosen: without one the row has empty keys.
/// @throws StoreError for a text with an apostrophe that is to replace another
void Text_Speichern(const TextOffering& offering, const ListTexts& texts);

} // namespace kolibri
