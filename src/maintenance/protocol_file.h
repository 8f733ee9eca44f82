#pragma once

#include <QFile>

namespace kolibri {

/// A protocol that a conversion or repair leaves in the base folder: text lines ending in CR LF, in
/// Windows-1252, or all of it in UTF-8 once a letter would be lost. A line is on the disk as soon as it is
/// written, since the protocol is wanted most when the work stops half-way.
class ProtocolFile {
public:
    /// Replaces an older file. @throws RuntimeError 75 when it cannot be written
    explicit ProtocolFile(const QString& path);

    /// @throws RuntimeError 75 when the line cannot be written
    void writeLine(const QString& line);

private:
    [[noreturn]] void fail() const;

    QFile m_file;
    QString m_text;
};

} // namespace kolibri
