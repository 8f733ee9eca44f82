#include "lists/groups/group_options.h"

#include "core/mdlGlobal.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const std::array<std::pair<QString, QString>, 4>& sortWords() {
    static const std::array<std::pair<QString, QString>, 4> words{
        {{u"Nachname"_s, u"SCH_Name, SCH_Vorname"_s},
         {u"Vorname"_s, u"SCH_Vorname, SCH_Name"_s},
         {u"Klasse"_s, u"Kl_Nr, Schulstufe, SCH_Name"_s},
         {u"Schulstufe"_s, u"Schulstufe, Kl_Nr, SCH_Name"_s}}};
    return words;
}

} // namespace

std::vector<GroupEntry> groupEntries() {
    std::vector<GroupEntry> entries;
    Recordset rs = Global().Conn.Open(u"SELECT * FROM GR3 ORDER BY L_Name, ID"_s);
    for (; !rs.Eof(); rs.MoveNext())
        entries.push_back({rs.Text(u"L_Name"), rs.Text(u"Tag"), rs.Text(u"Zeit"), rs.Text(u"K_Name"),
                           rs.Text(u"Zeit_K_Name")});
    return entries;
}

void readGroup(const GroupEntry& entry, GroupOptions& options) {
    const Recordset rs =
        Global().Conn.Open(u"SELECT * FROM GR3 WHERE L_Name = ? AND Tag = ? AND Zeit = ? AND K_Name = ?"_s,
                           {entry.langname, entry.tag, entry.zeit, entry.kurzname});
    const auto text = [&](QStringView field) { return rs.Eof() ? QString() : rs.Text(field); };
    options.cmbAG = entry.langname;
    options.txtTag = text(u"Tag");
    options.txtZeit = text(u"Zeit");
    options.txtK_Name = text(u"K_Name");
    options.txtZeit_K_Name = text(u"Zeit_K_Name");
    options.txtBetreuer = text(u"Betreuer");
    options.txtOrt = text(u"Ort");
    // A Mensa may bear the same name; the group's own texts come first then.
    options.texte =
        readListTexts({u"L_Name = ?"_s, {entry.langname}, u"COALESCE(Typ, '') <> 'Arbeitsgruppe', ID"_s});
}

void saveGroupTexts(const GroupOptions& options) {
    if (options.cmbAG.isEmpty())
        return;
    const QString kind = u"Arbeitsgruppe"_s;
    saveListTexts({u"L_Name = ? AND Typ = ?"_s, {options.cmbAG, kind}},
                  {{u"L_Name"_s, options.cmbAG},
                   {u"K_Name"_s, options.txtK_Name},
                   {u"Typ"_s, kind},
                   {u"Tag"_s, options.txtTag},
                   {u"Zeit"_s, options.txtZeit},
                   {u"Zeit_K_Name"_s, options.txtZeit_K_Name},
                   {u"Betreuer"_s, options.txtBetreuer},
                   {u"Ort"_s, options.txtOrt}},
                  options.texte);
}

QStringList groupSortWords() {
    QStringList words;
    for (const auto& [word, columns] : sortWords())
        words << word;
    return words;
}

QString groupSortColumns(const QString& word) {
    for (const auto& [known, columns] : sortWords())
        if (known == word)
            return columns;
    return {};
}

} // namespace kolibri
