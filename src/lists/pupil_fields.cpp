#include "lists/pupil_fields.h"

#include "core/mdlGlobal.h"
#include "core/runtime_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

QString contactColumn(int field, int person) {
    static const std::array<QString, kContactFields> fields{
        u"GV_Name"_s,    u"GV_Vorname"_s, u"Strasse"_s,    u"PLZ"_s,    u"Ort"_s,
        u"Tel_privat"_s, u"Mobil"_s,      u"Tel_Dienst"_s, u"E_Mail"_s, u"Verwandt"_s};
    if (field < 0 || field >= kContactFields)
        throw RuntimeError::outOfRange(u"Kontaktfeld %1"_s.arg(field));
    return fields[static_cast<std::size_t>(field)] + QString::number(person);
}

} // namespace kolibri
