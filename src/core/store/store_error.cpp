#include "core/store/store_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

StoreError::StoreError(Kind kind, const QString& words, const QString& table, const QString& engineWords)
    : OfficeError(words.toStdString()),
      m_kind(kind),
      m_words(words),
      m_table(table),
      m_engineWords(engineWords) {}

QString StoreError::message() const {
    return m_purpose.isEmpty() ? m_words : m_purpose + u": "_s + m_words;
}

QString StoreError::details() const {
    QStringList lines;
    if (!m_purpose.isEmpty())
        lines << u"Vorgang: "_s + m_purpose;
    if (!m_table.isEmpty())
        lines << u"Tabelle: "_s + m_table;
    if (!m_engineWords.isEmpty())
        lines << u"Meldung der Datenbank: "_s + m_engineWords;
    return lines.join(u'\n');
}

void StoreError::setPurpose(const QString& purpose) {
    if (m_purpose.isEmpty())
        m_purpose = purpose;
}

} // namespace kolibri
