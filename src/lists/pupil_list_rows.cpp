#include "lists/pupil_list_rows.h"

#include "lists/money.h"
#include "lists/pupil_fields.h"
#include "lists/row_codes.h"

#include <map>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Column of Stammdaten behind the key of a list's column.
const std::map<QString, QString>& plainFields() {
    static const std::map<QString, QString> fields{
        {u"NACHNAME"_s, u"SCH_Name"_s}, {u"VORNAME"_s, u"SCH_Vorname"_s}, {u"GEB. DATUM"_s, u"SCH_Geb"_s},
        {u"KL"_s, u"Klasse"_s},         {u"SCHWIMMER"_s, u"Schwimmer"_s}, {u"KENNUNG"_s, u"Kennung"_s},
        {u"BAUSTEIN"_s, u"Baustein"_s}};
    return fields;
}

} // namespace

PupilRows::PupilRows(ListState& liste) : m_liste(liste) {
    m_name = fieldOf(u"SCH_Name"_s);
    m_firstName = fieldOf(u"SCH_Vorname"_s);
    m_firstFeeColumn = liste.SpaltenAnzahl - static_cast<int>(liste.BeitragNummern.size()) + 1;
    for (int column = 1; column < m_firstFeeColumn; ++column) {
        const QString& key = liste.SpaltenKey(column);
        if (key == u"Kontakt") {
            if (m_firstContactColumn == 0)
                m_firstContactColumn = column;
        } else if (key == u"NR") {
            m_plain.push_back({column, Source::RowNumber, 0});
        } else if (key == u"NAME") {
            m_plain.push_back({column, Source::FullName, 0});
        } else {
            m_plain.push_back({column, Source::Field, fieldOf(plainFields().at(key))});
        }
    }
    if (m_firstContactColumn > 0) {
        for (std::size_t person = 0; person < m_contacts.size(); ++person)
            for (const int number : liste.KontaktNummern)
                m_contacts[person].push_back(fieldOf(contactColumn(number, static_cast<int>(person) + 1)));
        m_emergency = fieldOf(u"NotfallRN"_s);
    }
    for (const int fee : liste.BeitragNummern)
        m_fees.push_back(fieldOf(u"Beitrag_%1"_s.arg(fee)));
}

int PupilRows::fieldOf(const QString& name) {
    if (!m_fields.contains(name))
        m_fields << name;
    return static_cast<int>(m_fields.indexOf(name));
}

void PupilRows::fill(const Recordset& pupil) {
    const int firstRow = m_liste.ZeilenNr;
    fillPlainColumns(pupil);
    fillFees(pupil);
    if (m_firstContactColumn > 0)
        fillContacts(pupil, firstRow);
    if (m_liste.ZeilenNr == firstRow) {
        m_liste.ZeilenCode(firstRow) = kCodeDaten;
        m_liste.naechsteZeile();
    }
    if (m_firstContactColumn > 0)
        fillEmergency(pupil);
}

void PupilRows::fillPlainColumns(const Recordset& pupil) {
    const int row = m_liste.ZeilenNr;
    for (const auto& [column, source, field] : m_plain) {
        QString& cell = m_liste.Daten(column, row);
        if (source == Source::RowNumber)
            // The number is that of the row: the office counts down the sheet with it, contact rows too.
            cell = QString::number(row);
        else if (source == Source::FullName)
            cell = pupil.Text(m_name) + u' ' + pupil.Text(m_firstName);
        else
            cell = pupil.Text(field);
    }
}

/// One row for each person with something to show, without gaps; the codes say which row of them it is.
void PupilRows::fillContacts(const Recordset& pupil, int firstRow) {
    for (std::size_t person = 0; person < m_contacts.size(); ++person)
        if (fillContact(pupil, person)) {
            m_liste.ZeilenCode(m_liste.ZeilenNr) = kCodeKontaktMitte;
            m_liste.naechsteZeile();
        }
    const int lastRow = m_liste.ZeilenNr - 1;
    if (lastRow < firstRow)
        return;
    m_liste.ZeilenCode(lastRow) = kCodeKontaktLetzter;
    m_liste.ZeilenCode(firstRow) = lastRow == firstRow ? kCodeDaten : kCodeKontaktErster;
}

bool PupilRows::fillContact(const Recordset& pupil, std::size_t person) {
    bool anything = false;
    int column = m_firstContactColumn;
    for (const int field : m_contacts[person]) {
        const QString text = pupil.Text(field);
        if (!text.isEmpty()) {
            m_liste.Daten(column, m_liste.ZeilenNr) = text;
            anything = true;
        }
        ++column;
    }
    return anything;
}

/// The label stands in the first contact column and the number in the next; with one column both share it.
void PupilRows::fillEmergency(const Recordset& pupil) {
    const QString number = pupil.Text(m_emergency);
    if (number.isEmpty())
        return;
    const QString label = u"Notfall-NR"_s;
    const int row = m_liste.ZeilenNr;
    if (m_liste.KontaktSpalten == 1) {
        m_liste.Daten(m_firstContactColumn, row) = label + u' ' + number;
    } else {
        m_liste.Daten(m_firstContactColumn, row) = label;
        m_liste.Daten(m_firstContactColumn + 1, row) = number;
    }
    m_liste.ZeilenCode(row) = kCodeFortsetzung;
    m_liste.naechsteZeile();
}

void PupilRows::fillFees(const Recordset& pupil) {
    int column = m_firstFeeColumn;
    for (std::size_t i = 0; i < m_fees.size(); ++i) {
        const QVariant value = pupil.Value(m_fees[i]);
        QString& cell = m_liste.Daten(column++, m_liste.ZeilenNr);
        if (value.isNull()) {
            // With a point: so the office tells a fee nobody has entered from one that was set to nothing.
            cell = u"0.00"_s;
            continue;
        }
        const qint64 amount = toTenThousandths(value.toDouble());
        cell = moneyText(amount);
        m_liste.BeitragSummen[static_cast<std::size_t>(m_liste.BeitragNummern[i])] += amount;
    }
}

} // namespace kolibri
