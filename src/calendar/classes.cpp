#include "calendar/classes.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kYesNoStop = 20;

bool classExists(const QString& klasse) {
    return Global().Conn.Open(u"SELECT Klasse FROM Klassen WHERE Klasse = ?"_s, {klasse}).RecordCount() > 0;
}

/// Why the class cannot go; empty when it can. Only the first pupil decides, but all are counted, deactivated
/// ones too: this is how the office has always been warned.
QString pupilsInTheWay(const QString& klasse) {
    const Recordset rs =
        Global().Conn.Open(u"SELECT Klasse, aktiv FROM Stammdaten WHERE Klasse = ?"_s, {klasse});
    const int count = rs.RecordCount();
    if (count == 0 || !rs.Bool(u"aktiv"))
        return {};
    const QString one =
        u"In dieser Klasse ist noch %1 Schüler vorhanden. Sie müssen vorher diesen Schüler löschen oder dessen Klasse ändern!"_s;
    const QString several =
        u"In dieser Klasse sind noch %1 Schüler vorhanden. Sie müssen vorher diese Schüler löschen oder deren Klasse ändern!"_s;
    return (count == 1 ? one : several).arg(count);
}

} // namespace

bool Klasse_Löschen(QString& klasse) {
    if (const QString reason = pupilsInTheWay(klasse); !reason.isEmpty()) {
        MsgBox(reason);
        return false;
    }
    if (!classExists(klasse)) {
        MsgBox(u"Klasse "_s + klasse + u" ist nicht vorhanden!"_s);
        klasse.clear();
        return false;
    }
    if (MsgBox(u"Klasse wirklich löschen?"_s, kYesNoStop, u"Klasse löschen"_s) == kAnswerNo)
        return false;
    Global().Conn.Delete(u"Klassen"_s, u"Klasse = ?"_s, {klasse});
    klasse.clear();
    KlassenListenLaden();
    return true;
}

} // namespace kolibri
