#include "students/note_images.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// 0 for "GR1" to 6 for "GR7", -1 for any other text.
int groupOf(const QString& gr) {
    for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
        if (gr == u"GR%1"_s.arg(gruppe + 1))
            return gruppe;
    return -1;
}

} // namespace

void SchuelerNotizen::add(int gruppe, int tag, const QString& zeit_K_Name) {
    if (gruppe >= 0 && gruppe < kGruppen && tag >= 0 && tag < kSchoolDays)
        m_notes[static_cast<std::size_t>(gruppe)][static_cast<std::size_t>(tag)].insert(zeit_K_Name);
}

NotizBild SchuelerNotizen::bild(int gruppe, int tag, const QString& text) const {
    const auto& notes = m_notes.at(static_cast<std::size_t>(gruppe)).at(static_cast<std::size_t>(tag));
    if (notes.contains(text))
        return NotizBild::Haken;
    return text.isEmpty() ? NotizBild::Keins : NotizBild::Ohne;
}

SchuelerNotizen NotizenLesen() {
    SchuelerNotizen notizen;
    Recordset rs = Global().Conn.Open(u"SELECT GR, Tag_Zahl, Zeit_K_Name FROM SCH_Notiz WHERE SCH_ID = ?"_s,
                                      {Global().AktuelleSchuelerID});
    for (; !rs.Eof(); rs.MoveNext())
        if (!rs.IsNull(u"Zeit_K_Name") && !rs.IsNull(u"Tag_Zahl"))
            notizen.add(groupOf(rs.Text(u"GR")), static_cast<int>(rs.Number(u"Tag_Zahl")),
                        rs.Text(u"Zeit_K_Name"));
    return notizen;
}

} // namespace kolibri
