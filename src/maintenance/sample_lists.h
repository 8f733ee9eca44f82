#pragma once

#include "core/store/connection.h"
#include "maintenance/sample_pupils.h"
#include "maintenance/sample_random.h"

namespace kolibri {

/// Switches on what the sample school uses: a third fee, and the three additional fields of a pupil.
void writeSampleSettings(Connection& conn);

/// Writes Bausteine, Parameter, ME_LZ_AG_Notizen, Liste_AG, WochenplanTexte and Stundenplan. The pupils have
/// their assignments: the places of a Mensa or Lernzeit time follow from them, and are enough but for the
/// letter A of the second Mensa, which is over-full.
void writeSampleLists(Connection& conn, const SampleSchool& school, const SampleMaterial& material,
                      SampleRandom& random);

/// Writes SCH_Notiz, on assignments of active pupils, and WP_Notiz.
void writeSampleNotes(Connection& conn, const SampleSchool& school, const SampleMaterial& material,
                      SampleRandom& random);

} // namespace kolibri
