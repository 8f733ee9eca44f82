#include "support/expected_state.h"

#include "core/store/column_kind.h"
#include "support/test_base.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri::test {
namespace {

const QString kBetweenFields = u"; "_s;
/// Stands for a row that is gone while others are still counted.
const QString kGone = u"-"_s;

} // namespace

ExpectedState::ExpectedState() : m_rows(wholeDatabase()) {}

QStringList& ExpectedState::rowsOf(const QString& table) {
    const auto found = m_rows.find(table);
    if (found == m_rows.end())
        qFatal("no table %s", qPrintable(table));
    return found.value();
}

ExpectedState& ExpectedState::change(const QString& table, int row, const FieldValues& values) {
    QString& text = rowsOf(table)[row - 1];
    QStringList fields = text.split(kBetweenFields);
    for (const auto& [name, value] : values) {
        const QString beginning = name + u'=';
        const auto field = std::find_if(fields.begin(), fields.end(), [&](const QString& each) {
            return each.startsWith(beginning, Qt::CaseInsensitive);
        });
        if (field == fields.end())
            qFatal("no field %s in %s", qPrintable(name), qPrintable(table));
        *field = field->first(beginning.size()) + toGermanText(value);
    }
    text = fields.join(kBetweenFields);
    return *this;
}

ExpectedState& ExpectedState::remove(const QString& table, const QList<int>& rows) {
    for (const int row : rows)
        rowsOf(table)[row - 1] = kGone;
    return *this;
}

QStringList ExpectedState::differences() const {
    QStringList result;
    const auto actual = wholeDatabase();
    if (actual.keys() != m_rows.keys())
        result << u"other tables"_s;
    for (auto table = m_rows.begin(); table != m_rows.end(); ++table) {
        QStringList expected = table.value();
        expected.removeAll(kGone);
        const QStringList found = actual.value(table.key());
        for (qsizetype i = 0; i < std::max(expected.size(), found.size()); ++i)
            if (expected.value(i) != found.value(i))
                result << u"%1, row %2:\n  expected %3\n  found    %4"_s.arg(table.key())
                              .arg(i + 1)
                              .arg(expected.value(i), found.value(i));
    }
    return result;
}

} // namespace kolibri::test
