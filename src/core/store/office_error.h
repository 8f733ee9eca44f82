#pragma once

#include <QString>

#include <stdexcept>

namespace kolibri {

/// An error that ends an operation and that the program tells the office in its own words.
class OfficeError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;

    /// German, for the box.
    virtual QString message() const = 0;
    /// For whoever helps the office; may be empty.
    virtual QString details() const = 0;

    /// A sentence that the box shows below the message.
    void addNote(const QString& note) { m_note = note; }
    const QString& note() const { return m_note; }

private:
    QString m_note;
};

} // namespace kolibri
