#include "lists/page_writer.h"

#include "core/runtime_error.h"
#include "core/windows1252.h"

#include <QIODevice>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr qsizetype kBufferSize = 64 * 1024;
constexpr char16_t kFirstControl = 0x80;
constexpr char16_t kFirstLatinLetter = 0xa0;
constexpr char16_t kLastLatinLetter = 0xff;

/// True for a character that has its own number as its byte.
bool isPlain(QChar c) {
    const char16_t code = c.unicode();
    return code < kFirstControl || (code >= kFirstLatinLetter && code <= kLastLatinLetter);
}

QByteArray withReferences(QStringView text) {
    QByteArray bytes;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (const auto byte = toWindows1252(text.sliced(i, 1))) {
            bytes += *byte;
            continue;
        }
        char32_t code = text.at(i).unicode();
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            code = QChar::surrogateToUcs4(text.at(i), text.at(i + 1));
            ++i;
        }
        bytes += "&#" + QByteArray::number(static_cast<uint>(code)) + ';';
    }
    return bytes;
}

} // namespace

PageWriter::PageWriter(QIODevice& device) : m_device(device) {
    m_buffer.reserve(kBufferSize);
}

void PageWriter::line(QStringView text) {
    append(text);
    endLine();
}

void PageWriter::line(std::initializer_list<QStringView> pieces) {
    for (const QStringView piece : pieces)
        append(piece);
    endLine();
}

void PageWriter::flush() {
    if (m_device.write(m_buffer) != m_buffer.size())
        throw RuntimeError::fileAccess(m_device.errorString());
    m_buffer.resize(0);
}

void PageWriter::append(QStringView text) {
    const qsizetype begin = m_buffer.size();
    m_buffer.resize(begin + text.size());
    char* byte = m_buffer.data() + begin;
    for (const QChar c : text) {
        if (!isPlain(c)) {
            m_buffer.resize(begin);
            m_buffer += withReferences(text);
            return;
        }
        *byte++ = static_cast<char>(c.unicode());
    }
}

void PageWriter::endLine() {
    m_buffer += "\r\n";
    if (m_buffer.size() >= kBufferSize)
        flush();
}

QString inCapitals(QStringView text) {
    QString capitals;
    capitals.reserve(text.size());
    for (const QChar c : text)
        capitals += c.toUpper();
    return capitals;
}

} // namespace kolibri
