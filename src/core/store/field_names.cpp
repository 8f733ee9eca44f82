#include "core/store/field_names.h"

#include <QChar>

namespace kolibri {

FieldNames::FieldNames(std::vector<QString> names) : m_names(std::move(names)) {
    for (std::size_t i = 0; i < m_names.size(); ++i)
        m_index.emplace(m_names[i], static_cast<int>(i));
}

int FieldNames::indexOf(QStringView name) const {
    const auto found = m_index.find(name);
    return found == m_index.end() ? -1 : found->second;
}

std::size_t NameHash::operator()(QStringView name) const noexcept {
    constexpr std::size_t kMultiplier = 31;
    constexpr char16_t kBeyondAscii = 0x80;
    constexpr char16_t kSmallLetter = 0x20;
    std::size_t hash = 0;
    for (const QChar letter : name) {
        const char16_t code = letter.unicode();
        hash = hash * kMultiplier
               + (code < kBeyondAscii ? code | kSmallLetter : letter.toCaseFolded().unicode());
    }
    return hash;
}

} // namespace kolibri
