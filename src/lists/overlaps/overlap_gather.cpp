#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "lists/list_state.h"
#include "lists/overlaps/class_day.h"
#include "lists/overlaps/overlap_report.h"
#include "lists/row_codes.h"
#include "students/overlap_check.h"

#include <QHash>

#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kColumns = 11;
/// Name, class, day and teaching stand before the groups.
constexpr int kColumnsBeforeGroups = 4;
/// Family name, first name and class stand before the cells of a pupil.
constexpr int kFieldsBeforeCells = 3;

QString pupilStatement() {
    QStringList fields{u"SCH_Name"_s, u"SCH_Vorname"_s, u"Klasse"_s};
    for (int group = 1; group <= kGruppen; ++group)
        for (int day = 0; day < kSchoolDays; ++day)
            fields << u"GR%1_%2"_s.arg(group).arg(TagCode(day));
    return u"SELECT "_s + fields.join(u", "_s) + u" FROM Stammdaten WHERE aktiv = true"_s;
}

/// The minutes that stand in a text; nothing when they cannot be read.
std::optional<qint16> minutesIn(int (*convert)(const QString&), const QString& text) {
    try {
        const int minutes = convert(text);
        return minutes <= std::numeric_limits<qint16>::max() ? std::optional(static_cast<qint16>(minutes))
                                                             : std::nullopt;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// Begin and end of the texts in the pupils' cells. A school has few of them, and each stands in many cells.
class CellTimes {
public:
    struct Range {
        std::optional<qint16> von;
        std::optional<qint16> bis;
    };

    const Range& of(const QString& text) {
        const auto known = m_ranges.constFind(text);
        return known != m_ranges.constEnd() ? *known
                                            : *m_ranges.insert(text, {minutesIn(ZeitVonMinuten, text),
                                                                      minutesIn(ZeitBisMinuten, text)});
    }

private:
    QHash<QString, Range> m_ranges;
};

class OverlapGatherer {
public:
    explicit OverlapGatherer(ListState& liste) : m_liste(liste) {}

    void addPupil(const Recordset& rs) {
        const QString klasse = rs.Text(2);
        const ClassWeek& week = m_classes.of(klasse);
        for (int day = 0; day < kSchoolDays; ++day) {
            readCells(rs, day);
            if (const auto& teaching = week.at(static_cast<std::size_t>(day)))
                readTeaching(*teaching);
            if (hasConflict())
                addRow(rs, klasse);
        }
    }

private:
    void readCells(const Recordset& rs, int day) {
        for (std::size_t group = 0; group < kGruppen; ++group) {
            QString& cell = m_cells[group];
            cell = rs.Text(kFieldsBeforeCells + static_cast<int>(group) * kSchoolDays + day);
            m_minutes.GR_Leer[group] = cell.isEmpty();
            if (cell.isEmpty())
                continue;
            const auto& [von, bis] = m_times.of(cell);
            m_minutes.GR_Von[group] = von.value_or(m_minutes.GR_Von[group]);
            m_minutes.GR_Bis[group] = bis.value_or(m_minutes.GR_Bis[group]);
        }
    }

    void readTeaching(const ClassDay& day) {
        const std::array<qint16*, kClassTimes> places{&m_teaching.U_Beginn, &m_teaching.U_Ende,
                                                      &m_teaching.U_BeginnNM, &m_teaching.U_EndeNM};
        for (std::size_t i = 0; i < places.size(); ++i)
            *places[i] = minutesIn(ZeitBisMinuten, day.Zeiten[i]).value_or(*places[i]);
        m_day = day;
    }

    bool hasConflict() const {
        if (Zeitüberschneidungen_Überprüfen(m_minutes))
            return true;
        for (std::size_t group = 0; group < kGruppen; ++group)
            if (!m_minutes.GR_Leer[group]
                && overlapsTeaching(m_teaching, m_minutes.GR_Von[group], m_minutes.GR_Bis[group]))
                return true;
        return false;
    }

    QString teachingText() const {
        const auto& times = m_day.Zeiten;
        const QString morning = times[0] + u'-' + times[1];
        const bool afternoon = m_teaching.U_BeginnNM > 0 && m_teaching.U_EndeNM > 0;
        return afternoon ? morning + u' ' + times[2] + u'-' + times[3] : morning;
    }

    void addRow(const Recordset& rs, const QString& klasse) {
        const int row = m_liste.ZeilenNr;
        // Rows beyond the bound are not marked any more: the writer stops at the first of them.
        if (row <= m_liste.ZeilenCode.bound())
            m_liste.ZeilenCode(row) = kCodeDaten;
        m_liste.Daten(1, row) = rs.Text(0) + u"<br />"_s + rs.Text(1);
        m_liste.Daten(2, row) = klasse;
        m_liste.Daten(3, row) = m_day.Tag;
        m_liste.Daten(4, row) = teachingText();
        for (int group = 0; group < kGruppen; ++group)
            m_liste.Daten(kColumnsBeforeGroups + group + 1, row) = m_cells[static_cast<std::size_t>(group)];
        m_liste.ZeilenAnzahl = row;
        // A full counter stays where it is; that is far behind the bound already.
        if (row < kMaxZeilenNr)
            m_liste.naechsteZeile();
    }

    ListState& m_liste;
    ClassWeeks m_classes;
    CellTimes m_times;
    std::array<QString, kGruppen> m_cells;
    GruppenZeiten m_minutes;
    TeachingMinutes m_teaching;
    ClassDay m_day;
};

} // namespace

void Zeitueberschneidungen_Sammeln() {
    auto& liste = Liste();
    const DbSession session(u"Zeitüberschneidungen suchen"_s);
    Recordset rs = Global().Conn.Open(pupilStatement());
    liste.dimensionieren(kColumns, kSchoolDays * rs.RecordCount());
    liste.ZeilenAnzahl = 0;
    liste.ZeilenNr = 1;
    for (OverlapGatherer gatherer(liste); !rs.Eof(); rs.MoveNext())
        gatherer.addPupil(rs);
}

} // namespace kolibri
