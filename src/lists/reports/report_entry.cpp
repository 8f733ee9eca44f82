#include "lists/reports/report_entry.h"

#include "core/mdlGlobal.h"
#include "core/reports_entry.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_table.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void Bericht_Zeigen(quint8 listenArt) {
    Global().ListenArt = listenArt;
    askForSchoolStarters();
    FreitagBelegt_Pruefen();
    showList(listenArt);
}

void Belegung_Zeigen(quint8 listenArt) {
    Global().ListenArt = listenArt;
    if (occupancyCanBeShown(listenArt == kMensaBelegung ? u"ME"_s : u"LZ"_s))
        showList(listenArt);
}

} // namespace kolibri
