#pragma once

#include "core/store/connection.h"

#include <QMap>
#include <QStringList>

namespace kolibri::test {

/// The database as it must be after an operation: as it is now, but for what the test names row by row.
class ExpectedState {
public:
    /// Begins with the database as it stands.
    ExpectedState();

    /// The named fields of a row (counted from 1 in the table's order) have these values; a null is "<null>".
    ExpectedState& change(const QString& table, int row, const FieldValues& values);
    /// These rows are gone.
    ExpectedState& remove(const QString& table, const QList<int>& rows);

    /// Every row that is not as expected, in words; empty when the database is just so.
    QStringList differences() const;

private:
    QStringList& rowsOf(const QString& table);

    QMap<QString, QStringList> m_rows;
};

} // namespace kolibri::test

/// Fails unless the database is just so.
#define COMPARE_STATE(expected)                                                                              \
    do {                                                                                                     \
        const QStringList kDifferences = (expected).differences();                                           \
        QVERIFY2(kDifferences.isEmpty(), qPrintable(kDifferences.join(u'\n')));                              \
    } while (false)
