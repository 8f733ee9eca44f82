#pragma once

#include <QString>

namespace kolibri {

/// Tells the user how far long work has come, for the length of a block. The wait cursor goes with it. Silent
/// where nobody watches, as in a tool without windows. No box may be shown while it lives.
class Progress {
public:
    /// `text` says what the work is; `total` is its whole amount in any unit.
    Progress(const QString& text, qint64 total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// So much of the amount is done. Cheap enough to be called for every row.
    void Reach(qint64 done);

private:
    qint64 m_total;
    int m_percent = 0;
};

} // namespace kolibri
