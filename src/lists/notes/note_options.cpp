#include "lists/notes/note_options.h"

#include "calendar/teaching_units.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {

QStringList noteClasses() {
    return QStringList{kAlle} + Global().KlassenListe;
}

QStringList noteDays() {
    QStringList days{kAlle};
    for (int day = 0; day < kSchoolDays; ++day)
        days << TagCode(day);
    return days;
}

QStringList noteGroups() {
    return {kAlle, u"Mensa"_s, u"Lernzeit"_s, u"Arbeitsgruppe"_s};
}

QStringList noteUnits() {
    QStringList units{kAlle};
    for (const auto& unit : Unterrichtseinheiten_DatenEinlesen())
        units << unit.Zeit;
    return units;
}

} // namespace kolibri
