#pragma once

#include "core/mdlGlobal.h"
#include "students/assignments.h"
#include "students/fees.h"
#include "students/validation.h"

#include <optional>

namespace kolibri {

/// Contact persons of a pupil.
inline constexpr int kKontakte = 3;
/// The ten fields of a contact person: name, first name, street, post code, town, three telephones, e-mail,
/// relationship.
using KontaktTexte = std::array<QString, kContactFields>;

/// The cell of Stammdaten for a group (0 stands for GR1) and a day: "GR1_MO".
QString ZellenSpalte(int gruppe, int tag);
/// The column of Stammdaten for a field of a contact person (0 stands for contact 1): "GV_Name1".
QString KontaktSpalte(int kontakt, int feld);

/// A pupil as the form shows and writes it.
struct SchuelerDatensatz {
    SchuelerFelder SCH;
    bool Neu = false;
    bool NichtOG = false;
    bool Schwimmer = false;
    QString Baustein = {};
    QString Kennung = {};
    BeitragTexte Beitrag = {};
    WochenTexte GR = {};
    std::array<KontaktTexte, kKontakte> GV = {};
    QString NotfallRN = {};
    /// In its stored form, markup or plain text.
    QString Anmerkung = {};

    bool operator==(const SchuelerDatensatz&) const = default;
};

/// Reads a pupil from the open database. A column that an old file lacks leaves its field empty.
/// @returns no value when there is no such pupil
std::optional<SchuelerDatensatz> SchuelerLesen(qint16 id);

} // namespace kolibri
