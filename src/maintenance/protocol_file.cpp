#include "maintenance/protocol_file.h"

#include "core/runtime_error.h"
#include "core/windows1252.h"

using namespace Qt::StringLiterals;

namespace kolibri {

ProtocolFile::ProtocolFile(const QString& path) : m_file(path) {
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        fail();
}

void ProtocolFile::writeLine(const QString& line) {
    m_text += line + u"\r\n"_s;
    const QByteArray bytes = toTextFile(m_text);
    // From the first letter on that the code page lacks, the lines before it change their form as well.
    const bool grown = m_file.seek(0) && m_file.write(bytes) == bytes.size();
    if (!grown || !m_file.flush())
        fail();
}

void ProtocolFile::fail() const {
    throw RuntimeError::fileAccess(m_file.fileName() + u": "_s + m_file.errorString());
}

} // namespace kolibri
