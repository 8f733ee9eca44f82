#include "lists/reports/report_rows.h"

namespace kolibri {

ReportRows::ReportRows(ListState& liste, int columns) : m_liste(liste) {
    m_liste.dimensionieren(columns, kMaxZeilenCodes);
    m_liste.ZeilenAnzahl = 0;
    m_liste.ZeilenNr = 1;
}

int ReportRows::add(const QString& code, const QStringList& cells) {
    const int row = m_liste.ZeilenNr;
    m_liste.ZeilenCode(row) = code;
    for (int i = 0; i < cells.size(); ++i)
        m_liste.Daten(i + 1, row) = cells.at(i);
    m_liste.ZeilenAnzahl = row;
    m_liste.naechsteZeile();
    return row;
}

} // namespace kolibri
