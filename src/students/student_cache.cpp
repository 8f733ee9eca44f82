#include "students/student_cache.h"

#include "core/mdlGlobal.h"
#include "students/fees.h"
#include "students/pupil_record.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Groups of which the list shows the assignments; the slots behind have no columns.
constexpr int kGruppenDerListe = 5;

enum CacheColumn { kGeburtsdatum = 3, kPlz = 8, kFirstFee = 15, kLastFee = 16 };

const QStringList& cacheColumns() {
    static const QStringList columns = [] {
        QStringList names{u"ID"_s,
                          u"SCH_Name"_s,
                          u"SCH_Vorname"_s,
                          u"SCH_Geb"_s,
                          u"Klasse"_s,
                          u"GV_Name"_s,
                          u"GV_Vorname"_s,
                          u"Strasse"_s,
                          u"PLZ"_s,
                          u"Ort"_s,
                          u"Tel_privat"_s,
                          u"Tel_dienst_Mutter"_s,
                          u"Tel_dienst_Vater"_s,
                          u"Handy_Mutter"_s,
                          u"Handy_Vater"_s,
                          u"MI_Beitrag"_s,
                          u"BT_Beitrag"_s,
                          u"Neu"_s,
                          u"NichtOG"_s};
        for (int gruppe = 0; gruppe < kGruppenDerListe; ++gruppe)
            for (int tag = 0; tag < kSchoolDays; ++tag)
                names << ZellenSpalte(gruppe, tag);
        return names;
    }();
    return columns;
}

/// Text of a cell of the cache; the fees have two decimals.
QString cacheText(const Recordset& rs, int field, int column) {
    if (column == kFirstFee || column == kLastFee)
        return GespeicherterBeitrag(rs.Value(field));
    const QString text = rs.Text(field);
    return column == kGeburtsdatum || column == kPlz ? text.trimmed() : text;
}

QString conditionOf(SchuelerMenge menge) {
    switch (menge) {
    case SchuelerMenge::Aktive:
        return u"aktiv = true AND Schulstufe > 0"_s;
    case SchuelerMenge::Deaktivierte:
        return u"aktiv = false AND Schulstufe > 0"_s;
    case SchuelerMenge::Schulanfaenger:
        return u"aktiv = true AND Schulstufe = 0"_s;
    }
    Q_UNREACHABLE();
}

std::vector<AngebotZeile> offerings(const QString& table) {
    static const QStringList columns{u"NR"_s,       u"K_Name"_s,   u"L_Name"_s, u"Tag"_s,
                                     u"Zeit_von"_s, u"Zeit_bis"_s, u"Zeit"_s};
    std::vector<AngebotZeile> rows;
    for (Recordset rs = Global().Conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext()) {
        AngebotZeile& row = rows.emplace_back();
        for (int i = 0; i < columns.size(); ++i)
            if (rs.HasField(columns.at(i)))
                row.at(static_cast<std::size_t>(i) + 1) = rs.Text(columns.at(i));
    }
    return rows;
}

} // namespace

void SchuelerLaden(SchuelerSpeicher& speicher, SchuelerMenge menge) {
    auto& conn = Global().Conn;
    speicher.SchuelerDaten.clear();
    // Only what the list shows is read, and only what the file has: a pupil has more than a hundred columns.
    QStringList names;
    std::vector<int> columns;
    for (int i = 0; i < kListenSpalten; ++i) {
        if (!conn.HasColumn(u"Stammdaten"_s, cacheColumns().at(i)))
            continue;
        names << cacheColumns().at(i);
        columns.push_back(i);
    }
    Recordset rs = conn.Open(u"SELECT %1 FROM Stammdaten WHERE %2 ORDER BY SCH_Name ASC"_s.arg(
        names.join(u", "_s), conditionOf(menge)));
    speicher.SchuelerDaten.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) {
        SchuelerZeile& row = speicher.SchuelerDaten.emplace_back();
        for (std::size_t i = 0; i < columns.size(); ++i)
            row[static_cast<std::size_t>(columns[i])] = cacheText(rs, static_cast<int>(i), columns[i]);
    }
}

void MensaLaden(SchuelerSpeicher& speicher) {
    speicher.MensaDaten = offerings(u"GR1"_s);
}

void LernzeitLaden(SchuelerSpeicher& speicher) {
    speicher.LernzeitDaten = offerings(u"GR2"_s);
}

GruppenListen GruppenListenLaden() {
    GruppenListen listen;
    for (int gruppe = 0; gruppe < kGruppen; ++gruppe) {
        auto& tage = listen[static_cast<std::size_t>(gruppe)];
        tage.fill({QString()});
        Recordset rs =
            Global().Conn.Open(u"SELECT Tag, Zeit_K_Name FROM GR%1 ORDER BY Zeit_von ASC"_s.arg(gruppe + 1));
        for (; !rs.Eof(); rs.MoveNext())
            for (int tag = 0; tag < kSchoolDays; ++tag)
                if (rs.Text(u"Tag").compare(TagCode(tag), Qt::CaseInsensitive) == 0)
                    tage[static_cast<std::size_t>(tag)] << rs.Text(u"Zeit_K_Name");
    }
    return listen;
}

QStringList BausteineLaden() {
    QStringList liste{QString()};
    for (Recordset rs = Global().Conn.Open(u"SELECT Bausteine FROM Bausteine ORDER BY ID ASC"_s); !rs.Eof();
         rs.MoveNext())
        liste << rs.Text(0);
    return liste;
}

} // namespace kolibri
