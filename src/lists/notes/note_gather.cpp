#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/list_state.h"
#include "lists/notes/note_lists.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Conditions that a note has to meet, each with the values for its marks.
struct Conditions {
    QStringList texts;
    QVariantList values;

    void add(const QString& text, const QVariantList& bound) {
        texts << text;
        values += bound;
    }
    /// The field has one of these values.
    void addAnyOf(const QString& field, const QStringList& allowed) {
        QStringList parts;
        for (const auto& value : allowed) {
            parts << field + u" = ?"_s;
            values << value;
        }
        texts << u'(' + parts.join(u" OR "_s) + u')';
    }
};

QStringList groupsOf(const QString& cmbME_LZ_AG) {
    if (cmbME_LZ_AG == u"Mensa")
        return {u"GR1"_s};
    if (cmbME_LZ_AG == u"Lernzeit")
        return {u"GR2"_s};
    const QStringList arbeitsgruppen{u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s};
    return cmbME_LZ_AG == u"Arbeitsgruppe" ? arbeitsgruppen
                                           : QStringList{u"GR1"_s, u"GR2"_s} + arbeitsgruppen;
}

/// The notes of a table with their pupils. Grouping by every column leaves out exact repetitions, and the
/// conditions look at the groups.
Recordset openNotes(const QString& table, const QStringList& noteFields, const Conditions& conditions) {
    QStringList fields;
    for (const auto& field : noteFields)
        fields << table + u'.' + field;
    fields << u"Stammdaten.ID"_s << u"Stammdaten.SCH_Name"_s << u"Stammdaten.SCH_Vorname"_s
           << u"Stammdaten.Klasse"_s;
    const QString columns = fields.join(u", "_s);
    QString select =
        u"SELECT %1 FROM %2 INNER JOIN Stammdaten ON %2.SCH_ID = Stammdaten.ID GROUP BY %1"_s.arg(columns,
                                                                                                  table);
    if (!conditions.texts.isEmpty())
        select += u" HAVING "_s + conditions.texts.join(u" AND "_s);
    return Global().Conn.Open(select + u" ORDER BY Stammdaten.SCH_Name"_s, conditions.values);
}

/// A row for each note: the pupil's name and class, then these fields of the note.
void fillRows(Recordset& rs, const QStringList& noteFields) {
    constexpr int kPupilColumns = 2;
    auto& liste = Liste();
    liste.dimensionieren(kPupilColumns + static_cast<int>(noteFields.size()), rs.RecordCount(),
                         rs.RecordCount());
    liste.ZeilenAnzahl = 0;
    liste.ZeilenNr = 1;
    for (; !rs.Eof(); rs.MoveNext()) {
        const int row = liste.ZeilenNr;
        liste.ZeilenCode(row) = kCodeDaten;
        liste.Daten(1, row) = rs.Text(u"SCH_Name") + u' ' + rs.Text(u"SCH_Vorname");
        liste.Daten(2, row) = rs.Text(u"Klasse");
        for (int i = 0; i < noteFields.size(); ++i)
            liste.Daten(kPupilColumns + i + 1, row) = rs.Text(noteFields.at(i));
        liste.ZeilenAnzahl = row;
        liste.naechsteZeile();
    }
}

} // namespace

void NotizenZuweisungen_Sammeln() {
    const NoteOptions& options = Liste().Notizen;
    Conditions conditions;
    if (options.cmbKlasse != kAlle)
        conditions.add(u"Stammdaten.Klasse = ?"_s, {options.cmbKlasse});
    conditions.addAnyOf(u"SCH_Notiz.GR"_s, groupsOf(options.cmbME_LZ_AG));
    conditions.addAnyOf(u"SCH_Notiz.Tag"_s,
                        options.cmbTag == kAlle ? noteDays().mid(1) : QStringList{options.cmbTag});
    const DbSession session(u"Notizen lesen"_s);
    Recordset rs = openNotes(
        u"SCH_Notiz"_s, {u"SCH_ID"_s, u"GR"_s, u"L_Name"_s, u"Tag"_s, u"Zeit"_s, u"Notiz"_s}, conditions);
    fillRows(rs, {u"Tag"_s, u"L_Name"_s, u"Zeit"_s, u"Notiz"_s});
}

void NotizenTagesplan_Sammeln() {
    const NoteOptions& options = Liste().Notizen;
    Conditions conditions;
    if (options.cmbTag != kAlle)
        conditions.add(u"WP_Notiz.Tag = ?"_s, {options.cmbTag});
    if (options.cmbME_LZ_AG != kAlle)
        conditions.add(u"WP_Notiz.UE = ?"_s, {options.cmbME_LZ_AG});
    const DbSession session(u"Notizen lesen"_s);
    Recordset rs = openNotes(u"WP_Notiz"_s, {u"SCH_ID"_s, u"UE"_s, u"Tag"_s, u"Notiz"_s}, conditions);
    fillRows(rs, {u"Tag"_s, u"UE"_s, u"Notiz"_s});
}

} // namespace kolibri
