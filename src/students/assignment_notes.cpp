#include "students/assignment_notes.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"SCH_Notiz"_s;
const QString kOnTheDay = u"SCH_ID = ? AND GR = ? AND Tag = ?"_s;
const QString kOnTheAssignment = kOnTheDay + u" AND Zeit_K_Name = ?"_s;

QVariantList theDay(const NotizOrt& ort) {
    return {Global().AktuelleSchuelerID, ort.Gruppe, ort.NotizTag};
}

QVariantList theAssignment(const NotizOrt& ort) {
    return theDay(ort) << ort.Schluessel;
}

} // namespace

QString ZeitTextVon(const QString& schluessel) {
    constexpr int kTimeLength = 13;
    return schluessel.left(kTimeLength);
}

QString NotizUeberschrift(NotizArt art, const NotizOrt& ort) {
    const QString where = ort.NotizTag + u"  "_s + ort.Schluessel;
    return art == NotizArt::Zuweisung ? u"Notiz "_s + Typwort(ort.Gruppe) + u'\n' + where
                                      : u"Notiz Wochenplan - "_s + where;
}

QString KeineTeilnahmeText(const QString& gruppe) {
    const QString kind = gruppe == u"GR1"_s ? u"ME"_s : gruppe == u"GR2"_s ? u"LZ"_s : u"AG"_s;
    return u"Notiz Wochenplan, keine %1 Teilnahme"_s.arg(kind);
}

NotizArt NotizArtLesen(const NotizOrt& ort) {
    const Recordset rs =
        Global().Conn.Open(u"SELECT * FROM Stammdaten WHERE ID = ?"_s, {Global().AktuelleSchuelerID});
    const QString cell = ort.Gruppe + u'_' + ort.NotizTag;
    return !rs.Eof() && rs.HasField(cell) && !rs.Text(cell).isEmpty() ? NotizArt::Zuweisung
                                                                      : NotizArt::Wochenplan;
}

QString LangnameLesen(const NotizOrt& ort) {
    const Recordset rs =
        Global().Conn.Open(u"SELECT L_Name FROM %1 WHERE Tag = ? AND Zeit_K_Name = ?"_s.arg(ort.Gruppe),
                           {ort.NotizTag, ort.Schluessel});
    return rs.Eof() ? QString() : rs.Text(0);
}

std::optional<SchuelerNotiz> NotizLesen(const NotizOrt& ort) {
    const Recordset rs =
        Global().Conn.Open(u"SELECT * FROM SCH_Notiz WHERE "_s + kOnTheAssignment, theAssignment(ort));
    if (rs.Eof())
        return std::nullopt;
    return SchuelerNotiz{rs.Text(u"Notiz"), rs.HasField(u"WP_Notiz") && rs.Text(u"WP_Notiz") == u"1"_s};
}

void NotizNeuSchreiben(const NotizOrt& ort, const QString& langname, const SchuelerNotiz& notiz) {
    NewRow row = Global().Conn.AddNew(kTable);
    row.Set(u"SCH_ID"_s, Global().AktuelleSchuelerID)
        .Set(u"GR"_s, ort.Gruppe)
        .SetIfPossible(u"L_Name"_s, langname)
        .Set(u"Tag"_s, ort.NotizTag)
        .SetIfPossible(u"Tag_Zahl"_s, TagZahl(ort.NotizTag))
        .SetIfPossible(u"Zeit"_s, ZeitTextVon(ort.Schluessel))
        .SetIfPossible(u"Zeit_K_Name"_s, ort.Schluessel)
        .Set(u"Notiz"_s, notiz.Notiz)
        .SetIfPossible(u"WP_Notiz"_s, notiz.WP_Notiz ? u"1"_s : u""_s);
    row.Update();
}

void NotizAendern(const NotizOrt& ort, const QString& text) {
    auto& conn = Global().Conn;
    if (text.isEmpty())
        conn.Delete(kTable, kOnTheAssignment, theAssignment(ort));
    else
        conn.Change(kTable, {{u"Notiz"_s, text}}, kOnTheAssignment, theAssignment(ort));
}

void NotizenLoeschen(const NotizOrt& ort) {
    Global().Conn.Delete(kTable, kOnTheDay, theDay(ort));
}

} // namespace kolibri
