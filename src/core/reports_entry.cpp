#include "core/reports_entry.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

bool placesEntered(const QString& kind) {
    const DbSession session(u"Belegung lesen"_s);
    return Global().Conn.Open(u"SELECT * FROM Parameter WHERE Feld1 = ?"_s, {kind}).RecordCount() > 0;
}

} // namespace

void askForSchoolStarters() {
    auto& global = Global();
    global.MsgBoxKnoepfe = u"292"_s;
    // The title is that of the first report for all four.
    global.MsgBoxTitel = u"Bericht Mensa"_s;
    global.MsgBoxText =
        u"Soll die Ausgabe mit eventuell vorhandenen Schulanfängern\n(Klasse = 0) erfolgen?"_s;
    MsgBoxZeigen();
    global.MitSchulanfaengern = global.MsgBoxAntwort != kAnswerNo;
}

bool occupancyCanBeShown(const QString& kind) {
    MsgBox(u"Es werden nur die Klassen 'A bis D' dargestellt!"_s);
    if (placesEntered(kind))
        return true;
    const QString menu = kind == u"ME"_s ? u"MENSA"_s : u"LERNZEIT"_s;
    MsgBox(u"Geben Sie zuerst unter BEARBEITEN -> "_s + menu
           + u" -> BELEGUNGSPLAN die Anzahl der maximal möglichen Plätze ein!"_s);
    return false;
}

} // namespace kolibri
