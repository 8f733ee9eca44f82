#pragma once

#include "core/store/recordset.h"
#include "lists/list_state.h"

#include <array>

namespace kolibri {

/// Fills the rows of the pupils of a list, as its columns ask. A pupil takes a row for each contact person
/// of whom a chosen field is known, and one more for the emergency number; all that is not about contacts
/// stands in the first.
class PupilRows {
public:
    explicit PupilRows(ListState& liste);

    /// Columns of Stammdaten that the rows need, for a SELECT.
    QString fields() const { return m_fields.join(u", "); }
    /// Fills the rows of the current record of a SELECT of these fields, and moves the row counter behind
    /// them.
    void fill(const Recordset& pupil);

private:
    enum class Source { RowNumber, FullName, Field };
    struct PlainColumn {
        int column;
        Source source;
        int field;
    };

    int fieldOf(const QString& name);
    void fillPlainColumns(const Recordset& pupil);
    void fillContacts(const Recordset& pupil, int firstRow);
    bool fillContact(const Recordset& pupil, std::size_t person);
    void fillEmergency(const Recordset& pupil);
    void fillFees(const Recordset& pupil);

    ListState& m_liste;
    QStringList m_fields;
    std::vector<PlainColumn> m_plain;
    int m_firstContactColumn = 0;
    int m_firstFeeColumn = 0;
    int m_name = 0;
    int m_firstName = 0;
    int m_emergency = -1;
    std::array<std::vector<int>, 3> m_contacts;
    std::vector<int> m_fees;
};

} // namespace kolibri
