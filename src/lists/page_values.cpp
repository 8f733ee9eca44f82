#include "lists/page_values.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "lists/list_helpers.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Keys of the font groups among the settings. Files hold those of the Tagesplan with a capital P, too.
const std::array<QString, kFontGroups>& fontKeys() {
    static const std::array<QString, kFontGroups> keys{u"TabelleKopfZeile"_s, u"TabelleZeile"_s,
                                                       u"TabelleSummenZeile"_s, u"WochenplanKopfZeile"_s,
                                                       u"WochenplanZeile"_s};
    return keys;
}

/// A number that the page keeps in one byte.
quint8 byteOf(const QVariant& value, const QString& what) {
    bool isNumber = false;
    const qint64 number = value.toLongLong(&isNumber);
    if (!isNumber)
        throw RuntimeError::typeMismatch(u"%1: %2"_s.arg(what, value.toString()));
    if (number < 0 || number > std::numeric_limits<quint8>::max())
        throw RuntimeError::overflow(u"%1: %2"_s.arg(what).arg(number));
    return static_cast<quint8>(number);
}

/// What the settings of a day or a pair of days put over the columns of the Tagesplan.
struct DayHeadings {
    QString choice;
    QString first;
    QString second;
};

const std::array<DayHeadings, 7>& dayHeadings() {
    static const std::array<DayHeadings, 7> headings{{{u"MO"_s, u"MONTAG"_s, {}},
                                                      {u"DI"_s, u"DIENSTAG"_s, {}},
                                                      {u"MI"_s, u"MITTWOCH"_s, {}},
                                                      {u"DO"_s, u"DONNERSTAG"_s, {}},
                                                      {u"FR"_s, u"FREITAG"_s, {}},
                                                      {u"MO/DI"_s, u"MONTAG"_s, u"DIENSTAG"_s},
                                                      {u"MI/DO"_s, u"MITTWOCH"_s, u"DONNERSTAG"_s}}};
    return headings;
}

} // namespace

void loadFonts(PageValues& values) {
    const DbSession session(u"Schriften der Listen lesen"_s);
    for (std::size_t group = 0; group < kFontGroups; ++group) {
        const QString& key = fontKeys()[group];
        const Recordset rs = Global().Conn.Open(u"SELECT * FROM Einstellungen WHERE Feld = ?"_s, {key});
        if (rs.Eof() || rs.IsNull(u"Grösse"))
            settingMissing(u"die Schriftgröße \"%1\""_s.arg(key));
        values.FontGroesse[group] = byteOf(rs.Value(u"Grösse"), u"Schriftgröße "_s + key);
        values.FontGewicht[group] = rs.Bool(u"Fett") ? u"bold"_s : u"normal"_s;
        values.FontStil[group] = rs.Bool(u"Kursiv") ? u"italic"_s : u"normal"_s;
    }
}

void setTagKopf(PageValues& values, QStringView cmbTag) {
    values.TagKopf.fill({});
    for (const auto& [choice, first, second] : dayHeadings())
        if (choice == cmbTag) {
            values.TagKopf[0] = first;
            values.TagKopf[1] = second;
        }
}

void countTeachingUnits(PageValues& values) {
    const DbSession session(u"Unterrichtseinheiten zählen"_s);
    const Recordset rs = Global().Conn.Open(u"SELECT COUNT(*) FROM Unterrichtseinheiten"_s);
    values.AnzahlUE = byteOf(rs.Value(0), u"Unterrichtseinheiten"_s);
}

} // namespace kolibri
