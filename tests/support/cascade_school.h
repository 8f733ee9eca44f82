#pragma once

#include <QString>

/// Small schools in which every copy of an offering's key occurs, for the tests of corrections and deletions.
namespace kolibri::test {

extern const QString kOldTime;
extern const QString kMe1;
extern const QString kMe2;
/// The key of a Lernzeit that has the short name of a Mensa.
extern const QString kLzMe1;
extern const QString kChor;
extern const QString kTanz;
/// The teaching unit of all these offerings.
extern const QString kUnit;

/// Mensa and Lernzeit: GR1 1 and 2 are "ME1" on MO and DI, 3 is "ME2" on MO; GR2 1 is a Lernzeit "ME1" on MO.
/// Pupils: 1 has ME1 on MO and DI and the Lernzeit, 2 has ME1 on MO, 3 has it on DI, 4 has ME2.
void makeCareSchool();

/// Working groups: in all five slots 1 and 2 are "CHOR" on MO and DI, 3 is "TANZ" on MO, all at one time; GR1
/// 1 is a Mensa with the long name of the choir. Pupils: 1 has the choir on MO in the slots 1 and 5 and the
/// dance in the slot 1 of DI, 2 has it on MO in the slot 2, 3 on DI in the slot 1, 4 has the dance on MO.
void makeGroupSchool();

} // namespace kolibri::test
