#include "lists/care/care_options.h"

#include "core/mdlGlobal.h"
#include "lists/list_numbers.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kBeforeKey = u"  ("_s;

ListTextRows textRows(const CareOptions& options) {
    return {u"Klasse = ? AND Zeit = ?"_s, {options.cmbKlasse, options.txtZeit}};
}

} // namespace

QString careEntry(const QString& langname, const QString& zeitKName) {
    return langname + kBeforeKey + zeitKName + u')';
}

CareEntry splitCareEntry(const QString& entry) {
    // The last one, since a long name may hold brackets of its own.
    const qsizetype bracket = entry.lastIndexOf(kBeforeKey);
    if (bracket < 0)
        return {entry, {}};
    return {entry.first(bracket), entry.sliced(bracket + kBeforeKey.size()).chopped(1)};
}

QString careGroup(quint8 listenArt) {
    return listenArt == kListeMensa ? u"GR1"_s : u"GR2"_s;
}

std::vector<CareOffering> careOfferings(quint8 listenArt) {
    std::vector<CareOffering> offerings;
    Recordset rs = Global().Conn.Open(
        u"SELECT DISTINCT L_Name, Zeit, Zeit_K_Name FROM %1 ORDER BY L_Name"_s.arg(careGroup(listenArt)));
    for (; !rs.Eof(); rs.MoveNext())
        offerings.push_back({rs.Text(0), rs.Text(1), rs.Text(2)});
    return offerings;
}

void readCareOffering(quint8 listenArt, CareOptions& options) {
    const Recordset rs = Global().Conn.Open(
        u"SELECT L_Name, Zeit, Zeit_K_Name, K_Name FROM %1 WHERE L_Name = ?"_s.arg(careGroup(listenArt)),
        {options.cmbME_LZ});
    const auto text = [&](QStringView field) { return rs.Eof() ? QString() : rs.Text(field); };
    options.txtZeit = text(u"Zeit");
    options.txtZeit_K_Name = text(u"Zeit_K_Name");
    options.txtK_Name = text(u"K_Name");
}

ListTexts careTexts(const CareOptions& options) {
    return readListTexts(textRows(options));
}

void saveCareTexts(quint8 listenArt, const CareOptions& options) {
    if (options.cmbKlasse.isEmpty() || options.txtZeit_K_Name.isEmpty())
        return;
    saveListTexts(textRows(options),
                  {{u"Typ"_s, listenArt == kListeMensa ? u"Mensa"_s : u"Lernzeit"_s},
                   {u"Klasse"_s, options.cmbKlasse},
                   {u"Zeit"_s, options.txtZeit},
                   {u"Zeit_K_Name"_s, options.txtZeit_K_Name},
                   {u"K_Name"_s, options.txtK_Name},
                   {u"L_Name"_s, options.cmbME_LZ}},
                  options.texte);
}

QString missingCareChoice(quint8 unterArt, const CareOptions& options) {
    return unterArt == kEinheiten && options.lstME_LZ.isEmpty() ? u"Sie haben keine Markierung vorgenommen!"_s
                                                                : QString();
}

} // namespace kolibri
