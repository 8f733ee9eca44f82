#pragma once

#include "maintenance/sample_pupils.h"
#include "maintenance/sample_random.h"

namespace kolibri {

/// Gives the pupils their Mensa, Lernzeit and Arbeitsgruppen, so that nothing overlaps: neither each other
/// nor the teaching of the class. Pupils outside the all-day care get Arbeitsgruppen alone; half of the
/// school starters get a few lunches.
void assignSampleWeeks(SampleSchool& school, const SampleMaterial& material, SampleRandom& random);

/// Then puts so many active pupils into two places at once, each on one day that was clean before: by turns
/// with a Mensa, a Lernzeit and an Arbeitsgruppe that overlaps something else or lies within the teaching.
void addSampleOverlaps(SampleSchool& school, int overlaps, SampleRandom& random);

} // namespace kolibri
