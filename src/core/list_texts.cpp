#include "core/list_texts.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/rich_text.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"ME_LZ_AG_Notizen"_s;

FieldValues fieldsOf(const ListTexts& texts) {
    return {{u"Anmerkung_V"_s, texts.vorher}, {u"Anmerkung_N"_s, texts.nachher}};
}

Recordset openRows(const ListTextRows& rows) {
    return Global().Conn.Open(u"SELECT Anmerkung_V, Anmerkung_N FROM %1 WHERE %2 ORDER BY %3"_s.arg(
                                  kTable, rows.condition, rows.order),
                              rows.values);
}

ListTexts textsOf(const Recordset& rs) {
    return {rs.Text(0), rs.Text(1)};
}

/// True if a reader sees no difference, whatever markup stands behind it.
bool saysTheSame(const ListTexts& a, const ListTexts& b) {
    return richTextFrom(a.vorher) == richTextFrom(b.vorher)
           && richTextFrom(a.nachher) == richTextFrom(b.nachher);
}

} // namespace

QString storedText(const RichText& text) {
    return text.isEmpty() ? QString() : RtfUmlaute(toRtf(text));
}

ListTexts readListTexts(const ListTextRows& rows) {
    const Recordset rs = openRows(rows);
    return rs.Eof() ? ListTexts{} : textsOf(rs);
}

void writeListTexts(const ListTextRows& rows, const FieldValues& newRow, const ListTexts& texts) {
    auto& conn = Global().Conn;
    if (!openRows(rows).Eof()) {
        conn.Change(kTable, fieldsOf(texts), rows.condition, rows.values);
        return;
    }
    NewRow row = conn.AddNew(kTable);
    for (const auto& fields : {newRow, fieldsOf(texts)})
        for (const auto& [field, value] : fields)
            row.Set(field, value);
    row.Update();
}

void saveListTexts(const ListTextRows& rows, const FieldValues& newRow, const ListTexts& texts) {
    const Recordset rs = openRows(rows);
    // Most lists are printed with the texts of last week.
    const bool nothingNew = rs.Eof() ? texts.isEmpty() : saysTheSame(textsOf(rs), texts);
    if (!nothingNew)
        writeListTexts(rows, newRow, texts);
}

} // namespace kolibri
