#pragma once

#include <QByteArray>
#include <QString>

#include <initializer_list>

class QIODevice;

namespace kolibri {

/// Writes the lines of a page into an unbuffered file: CR LF behind each, one byte a character in the code
/// page of the office (Windows-1252), and a decimal character reference for what has no place in it, so that
/// no name is lost. Nothing is escaped: what the office has written with markup reaches the page as markup.
class PageWriter {
public:
    explicit PageWriter(QIODevice& device);
    PageWriter(const PageWriter&) = delete;
    PageWriter& operator=(const PageWriter&) = delete;

    void line(QStringView text);
    /// One line made of pieces.
    void line(std::initializer_list<QStringView> pieces);
    /// Hands what is left to the device. @throws RuntimeError 75 when it does not take all of it
    void flush();

private:
    void append(QStringView text);
    void endLine();

    QIODevice& m_device;
    QByteArray m_buffer;
};

/// Capitals as the headings have them: letter for letter, so that "ß" stays.
QString inCapitals(QStringView text);

} // namespace kolibri
