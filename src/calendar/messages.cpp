#include "calendar/messages.h"

#include "core/mdlAllgemein.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void meldungKeineZeile() {
    MsgBox(u"Bitte wählen Sie zuerst eine Zeile aus!"_s);
}

void meldungNochNichtDa() {
    constexpr int kInformation = 64;
    MsgBox(u"Dieser Programmteil steht noch nicht zur Verfügung."_s, kInformation);
}

} // namespace kolibri
