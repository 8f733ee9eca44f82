#pragma once

#include <QString>
#include <QStringView>

#include <unordered_map>
#include <vector>

namespace kolibri {

/// For hash tables whose keys are names: case, also that of umlauts, makes no difference.
struct NameHash {
    std::size_t operator()(QStringView name) const noexcept;
};
struct SameName {
    bool operator()(QStringView left, QStringView right) const noexcept {
        return left.compare(right, Qt::CaseInsensitive) == 0;
    }
};

/// Names of the columns of a table or a query, found without regard to case, umlauts included. Of two equal
/// names the first is found.
class FieldNames {
public:
    FieldNames() = default;
    explicit FieldNames(std::vector<QString> names);

    int count() const { return static_cast<int>(m_names.size()); }
    const QString& name(int index) const { return m_names.at(static_cast<std::size_t>(index)); }
    /// -1 when there is no such name.
    int indexOf(QStringView name) const;

private:
    std::vector<QString> m_names;
    /// The keys look into the texts of m_names, which are never changed.
    std::unordered_map<QStringView, int, NameHash, SameName> m_index;
};

} // namespace kolibri
