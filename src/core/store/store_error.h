#pragma once

#include "core/store/office_error.h"

namespace kolibri {

/// A failure of the store. It ends the operation; the office reads `message()`, the details go to whoever
/// helps the office.
class StoreError : public OfficeError {
public:
    /// What went wrong, as far as the office can do something about it.
    enum class Kind {
        Missing,    ///< the file is not there
        Foreign,    ///< the file is no database of this program
        Damaged,    ///< the file is cut off or its content is broken
        Busy,       ///< another workstation held the file for longer than the wait
        ReadOnly,   ///< file or folder cannot be written
        Full,       ///< no room on the disk, or the disk failed
        KeyTaken,   ///< a written key exists already
        Value,      ///< a column does not take the value
        Syntax,     ///< the statement cannot be understood; also an apostrophe in a value
        Programming ///< a table or column that does not exist, or the connection is not open
    };

    StoreError(Kind kind, const QString& words, const QString& table = {}, const QString& engineWords = {});

    Kind kind() const { return m_kind; }
    /// One or two German sentences for the box, with the purpose of the operation in front when it is known.
    QString message() const override;
    /// Purpose, table, and the engine's own words, one a line; empty when there is nothing to add.
    QString details() const override;

    /// What the operation was about ("Schülerliste laden"); set once by the innermost DbSession that knows
    /// it.
    void setPurpose(const QString& purpose);

private:
    Kind m_kind;
    QString m_words;
    QString m_table;
    QString m_engineWords;
    QString m_purpose;
};

} // namespace kolibri
