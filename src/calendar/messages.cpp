#include "calendar/messages.h"

#include "core/mdlAllgemein.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void meldungKeineZeile() {
    MsgBox(u"Bitte wählen Sie zuerst eine Zeile aus!"_s);
}

} // namespace kolibri
