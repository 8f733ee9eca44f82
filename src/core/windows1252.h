#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace kolibri {

/// The text as Windows-1252 bytes, the code page of the office's text files; no value when a character has no
/// place in it.
std::optional<QByteArray> toWindows1252(QStringView text);
/// The text of Windows-1252 bytes.
QString fromWindows1252(QByteArrayView bytes);
/// A text file's content: UTF-8 behind a byte order mark, else Windows-1252.
QString fromTextFile(const QByteArray& bytes);
/// The content of a text file: Windows-1252, or UTF-8 with a byte order mark when a character would be lost.
QByteArray toTextFile(QStringView text);

} // namespace kolibri
