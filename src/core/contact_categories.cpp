#include "core/contact_categories.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/next_id.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"KategorieKontakte"_s;
const QString kByName = u"Name = ?"_s;

} // namespace

QStringList Kategorien_DatenEinlesen() {
    QStringList names;
    for (Recordset rs = Global().Conn.Open(u"SELECT * FROM KategorieKontakte"_s); !rs.Eof(); rs.MoveNext())
        names << rs.Text(u"Name");
    return names;
}

bool Kategorie_Daten_NEU(const QString& name) {
    auto& conn = Global().Conn;
    if (name.isEmpty()) {
        MsgBox(u"Das Feld 'Kategorie' darf nicht leer sein."_s);
        return false;
    }
    if (!conn.Open(u"SELECT * FROM KategorieKontakte WHERE "_s + kByName, {name}).Eof()) {
        MsgBox(u"Die Kategorie "_s + name + u" ist bereits vorhanden!"_s);
        return false;
    }
    conn.AddNew(kTable).Set(u"ID"_s, NextId(conn, kTable)).Set(u"Name"_s, name).Update();
    return true;
}

void Kategorie_Daten_KORREKTUR(const QString& alt, const QString& neu) {
    Global().Conn.Change(kTable, {{u"Name"_s, neu}}, kByName, {alt});
}

void Kategorie_Daten_LÖSCHEN(const QString& name) {
    Global().Conn.Delete(kTable, kByName, {name});
}

} // namespace kolibri
