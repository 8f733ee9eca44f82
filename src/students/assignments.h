#pragma once

#include "core/mdlAllgemein.h"

#include <QString>

#include <array>

namespace kolibri {

/// Places for an assignment on one day: GR1 Mensa, GR2 Lernzeit, GR3 to GR7 five Arbeitsgruppen.
inline constexpr int kGruppen = 7;

/// One text for each school day, MO to FR.
using TagesTexte = std::array<QString, kSchoolDays>;
/// The cells GR1_MO to GR7_FR of a pupil, by group (0 stands for GR1) and day; a text is a Zeit_K_Name or
/// empty.
using WochenTexte = std::array<TagesTexte, kGruppen>;

} // namespace kolibri
