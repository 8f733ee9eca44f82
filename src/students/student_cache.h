#pragma once

#include "students/assignments.h"

#include <QStringList>

#include <array>
#include <vector>

namespace kolibri {

/// Columns of the pupil list and of the cache behind it.
inline constexpr int kListenSpalten = 44;
/// A pupil in the cache: ID, name, first name, date of birth, class, the contact and the fees of the first
/// version, Neu, NichtOG, and the assignments of GR1 to GR5.
using SchuelerZeile = std::array<QString, kListenSpalten>;
/// An offering: nr, K_Name, L_Name, Tag, Zeit_Von, Zeit_Bis and Zeit stand in 1 to 7.
using AngebotZeile = std::array<QString, 11>;

/// What the pupil form last read from the store. It is never kept true in parts: the next loader writes it
/// anew, and so do the changes of other workstations come in.
struct SchuelerSpeicher {
    std::vector<SchuelerZeile> SchuelerDaten;
    std::vector<AngebotZeile> MensaDaten;
    std::vector<AngebotZeile> LernzeitDaten;

    int SchuelerAnzahl() const { return static_cast<int>(SchuelerDaten.size()); }
    int MensaAnzahl() const { return static_cast<int>(MensaDaten.size()); }
    int LernzeitAnzahl() const { return static_cast<int>(LernzeitDaten.size()); }
};

/// The sets of pupils that a list can show. A deactivated school starter is in none of them.
enum class SchuelerMenge { Aktive, Deaktivierte, Schulanfaenger };

// The loaders read from the open database. Pupils come in the order of their surname; a field that cannot be
// read is empty.
void SchuelerLaden(SchuelerSpeicher& speicher, SchuelerMenge menge);
void MensaLaden(SchuelerSpeicher& speicher);
void LernzeitLaden(SchuelerSpeicher& speicher);

/// Entries of the 35 group boxes, by group (0 stands for GR1) and day: the empty text, then the Zeit_K_Name
/// of the offerings of the day by their begin.
using GruppenListen = std::array<std::array<QStringList, kSchoolDays>, kGruppen>;
GruppenListen GruppenListenLaden();
/// Entries of the module box: the empty text, then the modules in their order.
QStringList BausteineLaden();

} // namespace kolibri
