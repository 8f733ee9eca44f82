#include "lists/column_builder.h"

namespace kolibri {

ColumnBuilder::ColumnBuilder(ListState& liste) : m_liste(liste) {
    m_liste.SpaltenText.clear();
    m_liste.SpaltenKey.clear();
    m_liste.KontaktSpalten = 0;
    m_liste.KontaktNummern.clear();
    m_liste.BeitragNummern.clear();
}

void ColumnBuilder::add(const QString& text, qint16 weight, Ausrichtung alignment, const QString& key) {
    const int column = m_count + 1;
    m_liste.SpaltenText(column) = text;
    m_liste.SpaltenKey(column) = key.isEmpty() ? text : key;
    m_liste.SpaltenGewicht(column) = weight;
    m_liste.SpaltenAusrichtung(column) = alignment;
    m_count = column;
}

} // namespace kolibri
