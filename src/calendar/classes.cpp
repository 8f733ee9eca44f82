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

void addClass(const QString& klasse) {
    auto& conn = Global().Conn;
    const ClassParts parts = splitClass(klasse);
    Transaction transaction(conn);
    for (int day = 0; day < kSchoolDays; ++day)
        conn.AddNew(u"Klassen"_s)
            .Set(u"Klasse"_s, klasse)
            .Set(u"Tag"_s, TagCode(day))
            .Set(u"Tag_Zahl"_s, day)
            .Set(u"Schulstufe"_s, parts.Schulstufe)
            .Set(u"KlassenNR"_s, parts.KlassenNR)
            .Update();
    transaction.Commit();
}

/// Why the class cannot go; empty when it can. Only the first pupil decides, but all are counted, deactivated
/// ones too: this is how the office has always been warned.
QString pupilsInTheWay(const QString& klasse) {
    const Recordset rs =
        Global().Conn.Open(u"SELECT Klasse, aktiv FROM Stammdaten WHERE Klasse = ?"_s, {klasse});
    const int count = rs.RecordCount();
    if (count == 0 || !rs.Bool(u"aktiv"))
        return {};
    if (count == 1)
        return u"In dieser Klasse ist noch %1 Schüler vorhanden. Sie müssen vorher diesen Schüler löschen "
               u"oder "
               "dessen Klasse ändern!"_s.arg(count);
    return u"In dieser Klasse sind noch %1 Schüler vorhanden. Sie müssen vorher diese Schüler löschen oder "
           "deren Klasse ändern!"_s.arg(count);
}

} // namespace

ClassParts splitClass(const QString& klasse) {
    if (klasse.size() != 2 && klasse.size() != 3)
        return {u""_s, u""_s};
    return {klasse.chopped(1), klasse.right(1)};
}

void Klasse_Neu(QString& klasse) {
    if (klasse.isEmpty()) {
        MsgBox(u"Das Feld 'Klasse' darf nicht leer sein."_s);
    } else if (classExists(klasse)) {
        MsgBox(u"Klasse "_s + klasse + u" ist bereits vorhanden!"_s);
    } else {
        addClass(klasse);
        MsgBox(u"Die Klasse "_s + klasse + u" wurde erstellt!"_s);
    }
    klasse.clear();
    KlassenListenLaden();
}

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
