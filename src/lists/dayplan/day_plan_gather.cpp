#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/dayplan/day_plan.h"
#include "lists/dayplan/day_plan_day.h"
#include "lists/list_helpers.h"
#include "lists/list_state.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kFirstUnitColumn = 3;
/// Room for the rows between the classes.
constexpr int kFurtherRows = 20;

enum PupilField { kId, kVorname, kNachname, kKlasse, kSchulstufe, kFirstCell };

/// Fills the rows of one plan.
class DayPlanGatherer {
public:
    explicit DayPlanGatherer(ListState& liste) : m_liste(liste), m_options(liste.Wochenplan) {
        for (const auto& tag : m_options.cmbTag.split(u'/', Qt::SkipEmptyParts))
            m_days.emplace_back(tag, m_options.chk2Tage);
        const int unitColumns = m_liste.SpaltenAnzahl - kFirstUnitColumn + 1;
        m_units = m_options.chk2Tage ? unitColumns / 2 : unitColumns;
        // A null, where there are no pupils, is 0.
        m_maxStufe = Global().Conn.Open(u"SELECT MAX(Schulstufe) FROM Stammdaten"_s).Value(0).toLongLong();
    }

    void gather() {
        Recordset rs = openPupils();
        m_liste.dimensionieren(m_liste.SpaltenAnzahl, rs.RecordCount() + kFurtherRows);
        m_liste.ZeilenNr = 1;
        for (; !rs.Eof(); rs.MoveNext())
            addPupil(rs);
        m_liste.ZeilenCode(m_liste.ZeilenNr) = kCodeTabelleEnde;
        m_liste.ZeilenAnzahl = m_liste.ZeilenNr;
        m_liste.naechsteZeile();
    }

private:
    Recordset openPupils() const {
        QStringList fields{u"ID"_s, u"SCH_Vorname"_s, u"SCH_Name"_s, u"Klasse"_s, u"Schulstufe"_s};
        for (const auto& day : m_days)
            for (int group = 1; group <= kGroups; ++group)
                fields << u"GR%1_%2"_s.arg(group).arg(day.tag());
        QStringList conditions{u"aktiv = true"_s, u"Kl_Nr = ?"_s};
        QVariantList values{m_options.cmbKlasse};
        // With two days on a sheet those who take no part in the care stand there, too.
        if (!m_options.chk2Tage)
            conditions << u"NichtOG = false"_s;
        if (allGrades()) {
            conditions << u"Schulstufe > 0"_s;
        } else {
            conditions << u"Schulstufe = ?"_s;
            values << m_options.cmbSchulstufe;
        }
        return Global().Conn.Open(u"SELECT %1 FROM Stammdaten WHERE %2 ORDER BY Schulstufe, SCH_Name"_s.arg(
                                      fields.join(u", "_s), conditions.join(u" AND "_s)),
                                  values);
    }

    bool allGrades() const { return m_options.cmbSchulstufe == kAlleSchulstufen; }

    /// Ends the table and begins the next where another class begins. Behind the last grade of a full plan
    /// the sheet does not end.
    void separateClasses(const Recordset& rs) {
        const int row = m_liste.ZeilenNr;
        if (row < 2 || m_liste.Daten(2, row - 1) == rs.Text(kKlasse))
            return;
        m_liste.ZeilenCode(row) = kCodeTabelleEnde;
        m_liste.naechsteZeile();
        const bool endsSheet = rs.Value(kSchulstufe).toLongLong() < m_maxStufe || !allGrades();
        m_liste.ZeilenCode(m_liste.ZeilenNr) = endsSheet ? kCodeTabelle : kCodeTabelleOhneUmbruch;
        m_liste.naechsteZeile();
    }

    void addPupil(const Recordset& rs) {
        separateClasses(rs);
        const int row = m_liste.ZeilenNr;
        const QString klasse = rs.Text(kKlasse);
        m_liste.ZeilenCode(row) = kCodeDaten;
        if (m_options.chk2Tage)
            m_liste.Daten(1, row) = rs.Text(kNachname) + u' ' + rs.Text(kVorname);
        else
            Name_Formatieren(rs.Text(kVorname), rs.Text(kNachname), 1, kNamesTagesplan);
        m_liste.Daten(2, row) = klasse;
        int field = kFirstCell;
        int column = kFirstUnitColumn;
        for (auto& day : m_days) {
            std::array<QString, kGroups> cells;
            for (auto& cell : cells)
                cell = rs.Text(field++);
            day.setPupil(rs.Value(kId).toLongLong(), klasse, std::move(cells));
            for (int unit = 0; unit < m_units; ++unit, ++column)
                m_liste.Daten(column, row) = day.cell(m_liste.SpaltenKey(column));
        }
        m_liste.naechsteZeile();
    }

    ListState& m_liste;
    const WochenplanOptions& m_options;
    std::vector<DayPlanDay> m_days;
    int m_units = 0;
    qint64 m_maxStufe = 0;
};

} // namespace

void Tagesplan_Sammeln() {
    const DbSession session(u"Tagesplan lesen"_s);
    DayPlanGatherer(Liste()).gather();
}

} // namespace kolibri
