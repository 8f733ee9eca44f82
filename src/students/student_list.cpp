#include "students/student_list.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

enum CacheColumn { kID = 0, kNeu = 17, kNichtOG = 18 };

std::vector<ListenSpalte> makeColumns() {
    using enum SortKind;
    std::vector<ListenSpalte> columns{{u"ID"_s, Number},
                                      {u"Schüler NN"_s, Text},
                                      {u"Schüler VN"_s, Text},
                                      {u"Geb. Datum"_s, Date},
                                      {u"KL"_s, Text},
                                      {u"GV NN"_s, Text},
                                      {u"GV VN"_s, Text},
                                      {u"Straße"_s, Text},
                                      {u"PLZ"_s, Number},
                                      {u"Ort"_s, Text},
                                      {u"Tel. Privat"_s, Text},
                                      {u"Tel.dienst.Mutter"_s, Text},
                                      {u"Tel.dienst.Vater"_s, Text},
                                      {u"Handy Mutter"_s, Text},
                                      {u"Handy Vater"_s, Text},
                                      {u"Mitgl.Beitr. €"_s, Text},
                                      {u"Betr.Beitr. €"_s, Text},
                                      {u"Neu"_s, None},
                                      {u"NichtOG"_s, None}};
    // The third slot came to the list later, and its headings have never sorted.
    const std::vector<ListenSpalte> groups{
        {u"ME"_s, Text}, {u"LZ"_s, Text}, {u"1.AG"_s, Text}, {u"2.AG"_s, Text}, {u"3.AG"_s, None}};
    for (const auto& [kopf, sortierung] : groups)
        for (int tag = 0; tag < kSchoolDays; ++tag)
            columns.push_back({kopf + u'-' + TagCode(tag), sortierung});
    return columns;
}

/// Whether a text holds another, both in small letters already. The empty text is in every text that has any.
bool holds(const QString& text, const QString& part) {
    return !text.isEmpty() && text.contains(part);
}

/// Visible texts of a row in small letters.
QStringList lowered(const QStringList& row) {
    QStringList result;
    result.reserve(row.size());
    for (const auto& text : row)
        result << text.toLower();
    return result;
}

std::size_t firstIndex(int start) {
    return static_cast<std::size_t>(std::max(1, start)) - 1;
}

} // namespace

const std::vector<ListenSpalte>& SchuelerListenSpalten() {
    static const std::vector<ListenSpalte> columns = makeColumns();
    return columns;
}

std::vector<ListenZeile> SchuelerListenZeilen(const SchuelerSpeicher& speicher) {
    std::vector<ListenZeile> zeilen;
    zeilen.reserve(speicher.SchuelerDaten.size());
    for (const auto& row : speicher.SchuelerDaten) {
        ListenZeile& zeile = zeilen.emplace_back();
        zeile.schluessel = u'A' + row[kID].rightJustified(5, u'0');
        zeile.texte = QStringList(row.begin(), row.end());
        zeile.texte[kID] = row[kID].rightJustified(4, u'0');
        for (const int flag : {kNeu, kNichtOG})
            zeile.texte[flag] = zeile.texte.at(flag) == u"Wahr"_s ? u"1"_s : QString();
    }
    return zeilen;
}

QString KeineSchuelerText() {
    return u"Keine deaktivierten Schüler / Schülerinnen vorhanden"_s;
}

int lvw_Search_NN(const std::vector<QStringList>& liste, const QString& text, int start) {
    const QString part = text.toLower();
    for (std::size_t i = firstIndex(start); i < liste.size(); ++i)
        for (const auto& cell : liste[i])
            if (holds(cell.toLower(), part))
                return static_cast<int>(i) + 1;
    return 0;
}

int lvw_Search(const std::vector<QStringList>& liste, const QString& text, int start) {
    const QString part = text.toLower();
    int found = 0;
    for (std::size_t i = firstIndex(start); i < liste.size(); ++i) {
        const QStringList row = lowered(liste[i]);
        const int number = static_cast<int>(i) + 1;
        if (holds(row.value(0), part))
            return number;
        if (std::any_of(row.begin(), row.end(), [&](const QString& cell) { return holds(cell, part); }))
            found = number;
    }
    return found;
}

int lvw_Search_NN_VN(const std::vector<QStringList>& liste, const QString& text1, const QString& text2,
                     int start) {
    const QString part1 = text1.toLower(), part2 = text2.toLower();
    for (std::size_t i = firstIndex(start); i < liste.size(); ++i) {
        const QStringList row = lowered(liste[i]);
        const int number = static_cast<int>(i) + 1;
        if (holds(row.value(0), part1))
            return number;
        for (qsizetype j = 1; j < row.size(); ++j)
            if (holds(row.at(j), part1) && std::any_of(row.begin() + j, row.end(), [&](const QString& cell) {
                    return holds(cell, part2);
                }))
                return number;
    }
    return 0;
}

} // namespace kolibri
