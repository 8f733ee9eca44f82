#include "students/remark_text.h"

#include "core/store/column_kind.h"

using namespace Qt::StringLiterals;

namespace kolibri {

QString AnmerkungSpeicherform(const RichText& anmerkung) {
    if (anmerkung.isEmpty())
        return {};
    const QString markup = toRtf(anmerkung);
    if (AnmerkungPasst(markup) || anmerkung.hasMarks())
        return markup;
    const QString plain = anmerkung.plain();
    // A text that looks like markup would be read as such.
    return AnmerkungPasst(plain) && !isRtf(plain) ? plain : markup;
}

bool AnmerkungPasst(const QString& speicherform) {
    return speicherform.size() <= kMaxTextLength;
}

QString AnmerkungZaehler(const QString& speicherform) {
    return u"%1 / %2"_s.arg(speicherform.size()).arg(kMaxTextLength);
}

QString AnmerkungZuLang(const QString& speicherform) {
    return u"Feld Anmerkung: der Text braucht mit seinen Auszeichnungen %1 Zeichen, höchstens %2 sind "
           u"möglich. "
           "Bitte kürzen Sie ihn!"_s.arg(speicherform.size())
               .arg(kMaxTextLength);
}

} // namespace kolibri
