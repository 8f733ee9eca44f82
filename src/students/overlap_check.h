#pragma once

#include "students/assignments.h"

#include <QString>

#include <array>

namespace kolibri {

/// What the pupil form holds for one day: the texts of its seven group boxes and of the four boxes with the
/// class's teaching times ("hh:mm" or empty), and whether the day is waived.
struct PruefTag {
    std::array<QString, kGruppen> GR;
    QString U_Beginn = {};
    QString U_Ende = {};
    QString U_BeginnNM = {};
    QString U_EndeNM = {};
    bool Ü_Nein = false;
};
using PruefWoche = std::array<PruefTag, kSchoolDays>;

/// Start and end of the assignments of one day, in minutes since midnight. Those of an empty box mean
/// nothing.
struct GruppenZeiten {
    std::array<qint16, kGruppen> GR_Von{};
    std::array<qint16, kGruppen> GR_Bis{};
    std::array<bool, kGruppen> GR_Leer{};
};

/// The lamp of a day.
enum class Ampel {
    Gruen,  ///< the day is clean
    Rot,    ///< the day has an overlap
    Neutral ///< the day is waived, whatever it holds
};

/// What the check of a week found.
struct PruefErgebnis {
    std::array<Ampel, kSchoolDays> Lampen{};
    /// True if a lamp is red: the record must not be saved so.
    bool ZeitKonflikt = false;
};

/// Reads the times of one group from the text of its box, such as "13:00 - 14:00 Mensa1". The end is taken
/// from the last colon of the whole text, short name included, so a short name must hold none.
/// @throws RuntimeError 13 for a text in which no times stand, 6 for more minutes than 16 bits hold
void GR_Von_Bis_Zeiten_ermitteln(int gruppe, const QString& text, GruppenZeiten& zeiten);

/// True if two assignments of the day share a minute. Touching ones do not.
bool Zeitüberschneidungen_Überprüfen(const GruppenZeiten& zeiten);
/// True if an assignment is under way when the morning's teaching begins.
bool ZeitüberschneidungMitUnterrichtsbeginnÜberprüfen(const GruppenZeiten& zeiten, const PruefTag& tag);
/// True if an assignment shares a minute with the morning's teaching; an empty begin counts as midnight.
bool ZeitüberschneidungMitUnterrichtsendeÜberprüfen(const GruppenZeiten& zeiten, const PruefTag& tag);
/// The same two questions for the afternoon's teaching.
bool ZeitüberschneidungMitUnterrichtsbeginnNMÜberprüfen(const GruppenZeiten& zeiten, const PruefTag& tag);
bool ZeitüberschneidungMitUnterrichtsendeNMÜberprüfen(const GruppenZeiten& zeiten, const PruefTag& tag);

/// The check of a whole week, as the lamps show it and as it stands before a record is saved. Pure: the form
/// runs it twice a second.
/// @throws RuntimeError as above, also for a waived day
PruefErgebnis Check_ZeitÜberschneidungen_Vor_Datenübernahme(const PruefWoche& woche);

} // namespace kolibri
