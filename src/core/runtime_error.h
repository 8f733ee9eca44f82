#pragma once

#include "core/store/office_error.h"

namespace kolibri {

/// A bound of the program is reached. It ends the operation and is shown with the number and the words that
/// the office knows from the program's earlier versions.
class RuntimeError : public OfficeError {
public:
    RuntimeError(int number, const QString& words, const QString& details = {});

    int number() const { return m_number; }
    /// "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"
    QString message() const override;
    QString details() const override { return m_details; }

    /// 6: a number is too large for its place.
    static RuntimeError overflow(const QString& details = {});
    /// 9: more rows, classes or offerings than a list can hold.
    static RuntimeError outOfRange(const QString& details = {});
    /// 13: a text where a number is needed.
    static RuntimeError typeMismatch(const QString& details = {});
    /// 75: a file or folder cannot be read or written.
    static RuntimeError fileAccess(const QString& details = {});
    /// 76: the folder in which something is to be made does not exist.
    static RuntimeError pathNotFound(const QString& details = {});

private:
    int m_number;
    QString m_words;
    QString m_details;
};

} // namespace kolibri
