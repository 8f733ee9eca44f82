#include "students/pupil_record.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// A record of which any column may be missing.
class Row {
public:
    explicit Row(const Recordset& rs) : m_rs(rs) {}

    QString text(const QString& field) const { return m_rs.HasField(field) ? m_rs.Text(field) : QString(); }
    QString fee(const QString& field) const {
        return m_rs.HasField(field) ? GespeicherterBeitrag(m_rs.Value(field)) : QString();
    }
    bool flag(const QString& field) const { return m_rs.HasField(field) && m_rs.Bool(field); }

private:
    const Recordset& m_rs;
};

constexpr int kPostCode = 3;

} // namespace

QString ZellenSpalte(int gruppe, int tag) {
    return u"GR%1_%2"_s.arg(gruppe + 1).arg(TagCode(tag));
}

QString KontaktSpalte(int kontakt, int feld) {
    static const KontaktTexte stems{u"GV_Name"_s, u"GV_Vorname"_s, u"Strasse"_s, u"PLZ"_s,
                                    u"Ort"_s,     u"Tel_privat"_s, u"Mobil"_s,   u"Tel_Dienst"_s,
                                    u"E_Mail"_s,  u"Verwandt"_s};
    return stems.at(static_cast<std::size_t>(feld)) + QString::number(kontakt + 1);
}

std::optional<SchuelerDatensatz> SchuelerLesen(qint16 id) {
    const Recordset rs = Global().Conn.Open(u"SELECT * FROM Stammdaten WHERE ID = ?"_s, {id});
    if (rs.Eof())
        return std::nullopt;
    const Row row(rs);
    SchuelerDatensatz datensatz;
    datensatz.SCH = {row.text(u"SCH_Name"_s), row.text(u"SCH_Vorname"_s), row.text(u"SCH_Geb"_s).trimmed(),
                     row.text(u"Klasse"_s)};
    datensatz.Neu = row.flag(u"Neu"_s);
    datensatz.NichtOG = row.flag(u"NichtOG"_s);
    datensatz.Schwimmer = row.text(u"Schwimmer"_s) == u"JA"_s;
    datensatz.Baustein = row.text(u"Baustein"_s);
    datensatz.Kennung = row.text(u"Kennung"_s);
    for (int i = 0; i < static_cast<int>(datensatz.Beitrag.size()); ++i)
        datensatz.Beitrag.at(static_cast<std::size_t>(i)) = row.fee(u"Beitrag_%1"_s.arg(i));
    for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
        for (int tag = 0; tag < kSchoolDays; ++tag)
            datensatz.GR.at(static_cast<std::size_t>(gruppe)).at(static_cast<std::size_t>(tag)) =
                row.text(ZellenSpalte(gruppe, tag));
    for (int kontakt = 0; kontakt < kKontakte; ++kontakt) {
        auto& texte = datensatz.GV.at(static_cast<std::size_t>(kontakt));
        for (int feld = 0; feld < kContactFields; ++feld)
            texte.at(static_cast<std::size_t>(feld)) = row.text(KontaktSpalte(kontakt, feld));
        texte[kPostCode] = texte[kPostCode].trimmed();
    }
    datensatz.NotfallRN = row.text(u"NotfallRN"_s);
    datensatz.Anmerkung = row.text(u"Anmerkung"_s);
    return datensatz;
}

} // namespace kolibri
