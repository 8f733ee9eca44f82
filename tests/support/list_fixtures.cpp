#include "support/list_fixtures.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri::test {

void addPupil(const QString& family, const QString& first, const QString& klasse, const FieldValues& values) {
    const DbSession session(u"Test"_s);
    auto row = Global().Conn.AddNew(u"Stammdaten"_s);
    FieldValues all{
        {u"aktiv"_s, true},    {u"SCH_Name"_s, family},       {u"SCH_Vorname"_s, first},
        {u"Klasse"_s, klasse}, {u"Kl_Nr"_s, klasse.right(1)}, {u"Schulstufe"_s, klasse.left(1).toInt()}};
    for (const auto& [field, value] : values) {
        const auto known = std::find_if(
            all.begin(), all.end(), [name = field](const FieldValue& entry) { return entry.field == name; });
        if (known == all.end())
            all.push_back({field, value});
        else
            known->value = value;
    }
    for (const auto& [field, value] : all)
        row.Set(field, value);
    row.Update();
}

FieldValues contact(int person, const QString& name, const QString& phone) {
    const QString number = QString::number(person);
    FieldValues values;
    if (!name.isEmpty())
        values.push_back({u"GV_Name"_s + number, name});
    if (!phone.isEmpty())
        values.push_back({u"Mobil"_s + number, phone});
    return values;
}

FieldValues joined(std::initializer_list<FieldValues> parts) {
    FieldValues all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

void chooseContacts(const QString& category) {
    Liste().Dialog.chkKontakteNeu = true;
    Liste().Dialog.cmbKontakte = {category, QString(), QString()};
}

QStringList listRows() {
    const auto& liste = Liste();
    QStringList result;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        QStringList cells;
        for (int column = 1; column <= liste.SpaltenAnzahl; ++column)
            cells << liste.Daten(column, row);
        result << liste.ZeilenCode(row) + u": "_s + cells.join(u" | "_s);
    }
    return result;
}

QStringList gathered(quint8 listenArt) {
    prepareList(listenArt);
    return listRows();
}

QStringList produced(quint8 listenArt) {
    prepareList(listenArt);
    producePage();
    return bodyLines();
}

QStringList rowClasses(const QStringList& body) {
    QStringList classes;
    for (const auto& line : body)
        if (line.startsWith(u"<TR class=\""_s))
            classes << line.mid(11).chopped(2);
    return classes.mid(1);
}

} // namespace kolibri::test
