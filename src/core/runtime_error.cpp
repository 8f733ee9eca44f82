#include "core/runtime_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

RuntimeError::RuntimeError(int number, const QString& words, const QString& details)
    : OfficeError(words.toStdString()), m_number(number), m_words(words), m_details(details) {}

QString RuntimeError::message() const {
    return u"Laufzeitfehler '%1': %2"_s.arg(m_number).arg(m_words);
}

RuntimeError RuntimeError::overflow(const QString& details) {
    return {6, u"Überlauf"_s, details};
}

RuntimeError RuntimeError::outOfRange(const QString& details) {
    return {9, u"Index außerhalb des gültigen Bereichs"_s, details};
}

RuntimeError RuntimeError::typeMismatch(const QString& details) {
    return {13, u"Typen unverträglich"_s, details};
}

RuntimeError RuntimeError::fileAccess(const QString& details) {
    return {75, u"Fehler beim Zugriff auf Pfad/Datei"_s, details};
}

RuntimeError RuntimeError::pathNotFound(const QString& details) {
    return {76, u"Pfad nicht gefunden"_s, details};
}

} // namespace kolibri
