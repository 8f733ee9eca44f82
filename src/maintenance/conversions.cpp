#include "maintenance/conversions.h"

#include "core/mdlAllgemein.h"
#include "core/store/schema.h"
#include "maintenance/settings_rows.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kPupils = u"Stammdaten"_s;
const QString kSettings = u"Einstellungen"_s;

/// Where a contact of the current version comes from.
struct Carried {
    QString target;
    QString source;
};

const std::vector<Carried>& carriedContactFields() {
    // The father's numbers go to the second contact, whose name stays empty.
    static const std::vector<Carried> fields{{u"GV_Name1"_s, u"GV_Name"_s},
                                             {u"GV_Vorname1"_s, u"GV_Vorname"_s},
                                             {u"Strasse1"_s, u"Strasse"_s},
                                             {u"PLZ1"_s, u"PLZ"_s},
                                             {u"Ort1"_s, u"Ort"_s},
                                             {u"Tel_privat1"_s, u"Tel_privat"_s},
                                             {u"Tel_Dienst1"_s, u"Tel_dienst_Mutter"_s},
                                             {u"Mobil1"_s, u"Handy_Mutter"_s},
                                             {u"Tel_Dienst2"_s, u"Tel_dienst_Vater"_s},
                                             {u"Mobil2"_s, u"Handy_Vater"_s}};
    return fields;
}

/// The whole euros of a fee, half cents to the even number, as the conversion has always done it.
double wholeEuros(double fee) {
    return fee > 0 ? std::nearbyint(fee) : 0.0;
}

void addRowsUnlessThere(Connection& conn, const QString& key, const std::vector<SettingsRow>& rows) {
    if (conn.Open(u"SELECT * FROM Einstellungen WHERE Feld = ?"_s, {key}).RecordCount() == 0)
        addRows(conn, kSettings, rows);
}

QVariant number(const SettingsRow& row) {
    for (const auto& value : row)
        if (value.field == u"Nummer"_s)
            return value.value;
    return {};
}

} // namespace

void convertContacts(Connection& conn) {
    Recordset rs =
        conn.Open(u"SELECT ID, GV_Name, GV_Vorname, Strasse, PLZ, Ort, Tel_privat, Tel_dienst_Mutter, "
                  "Tel_dienst_Vater, Handy_Mutter, Handy_Vater FROM Stammdaten"_s);
    for (; !rs.Eof(); rs.MoveNext()) {
        FieldValues values;
        for (const auto& [target, source] : carriedContactFields())
            values.push_back({target, rs.Text(source)});
        conn.Change(kPupils, values, u"ID = ?"_s, {rs.Number(u"ID")});
    }
}

void addSlotCells(Connection& conn) {
    for (const auto& slot : {u"GR6_"_s, u"GR7_"_s})
        for (int day = 0; day < kSchoolDays; ++day)
            if (const QString name = slot + TagCode(day); !conn.HasColumn(kPupils, name))
                conn.AddColumn(kPupils, {name, ColumnKind::Text});
}

void convertFees(Connection& conn) {
    for (Recordset rs = conn.Open(u"SELECT ID, MI_Beitrag, BT_Beitrag FROM Stammdaten"_s); !rs.Eof();
         rs.MoveNext()) {
        const double member = wholeEuros(rs.Amount(u"MI_Beitrag"));
        const double care = wholeEuros(rs.Amount(u"BT_Beitrag"));
        conn.Change(kPupils,
                    {{u"Beitrag_0"_s, member}, {u"Beitrag_1"_s, care}, {u"Beitrag_7"_s, member + care}},
                    u"ID = ?"_s, {rs.Number(u"ID")});
    }
    addRowsUnlessThere(conn, u"Beitrag_0"_s, feeRows());
    addRowsUnlessThere(conn, u"Schwimmer"_s, additionalFieldRows());
    addRowsUnlessThere(conn, u"GV1"_s, contactLabelRows());
}

void convertCategories(Connection& conn) {
    const QString table = u"KategorieKontakte"_s;
    conn.CreateTable(table, schemaTable(table).columnInfos());
    if (!conn.HasColumn(kSettings, table))
        conn.AddColumn(kSettings, {table, ColumnKind::Text});
    for (int id = 0; id < contactCategories().size(); ++id)
        addRows(conn, table, {{{u"ID"_s, id}, {u"Name"_s, contactCategories().at(id)}}});
    QStringList labels;
    for (Recordset rs = conn.Open(u"SELECT * FROM Einstellungen WHERE Feld = ?"_s, {u"GV1"_s}); !rs.Eof();
         rs.MoveNext())
        labels << rs.Text(u"Bezeichnung");
    // A file that has lost the table alone keeps its rows, and those that have lost their category get it
    // back.
    for (const auto& row : contactRows(labels))
        if (conn.Open(u"SELECT * FROM Einstellungen WHERE Feld = ? AND Nummer = ?"_s,
                      {row.front().value, number(row)})
                .Eof())
            addRows(conn, kSettings, {row});
        else
            conn.Change(kSettings, {row.back()}, u"Feld = ? AND Nummer = ? AND KategorieKontakte IS NULL"_s,
                        {row.front().value, number(row)});
}

} // namespace kolibri
