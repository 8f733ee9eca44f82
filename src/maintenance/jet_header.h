#pragma once

#include <QByteArray>
#include <QString>

namespace kolibri {

/// The first page of a database file of an older program version (a Jet file). Reads the bytes of the page
/// only, so it is safe with any file.
class JetHeader {
public:
    explicit JetHeader(const QByteArray& firstPage);
    /// The first page of a file; an empty one when the file cannot be read.
    static JetHeader ofFile(const QString& file);

    /// The page begins as every Jet file does.
    bool isJet() const;
    /// Jet 3 or Jet 4; later formats bear the same name but not the same pages.
    bool isKnownVersion() const { return version() == kJet3 || version() == kJet4; }
    bool isJet4() const { return version() == kJet4; }
    /// Bytes of a page of the file.
    qint64 pageSize() const { return isJet4() ? 4096 : 2048; }
    /// The pages behind the first are encoded.
    bool isEncrypted() const;
    /// The file opens with a password only.
    bool hasPassword() const;

private:
    static constexpr char kJet3 = 0;
    static constexpr char kJet4 = 1;
    char version() const;

    /// The page with its masked part in clear; empty when the page is cut off.
    QByteArray m_page;
};

/// Looks at a Jet file before it is read. @throws StoreError in words when it is encrypted, protected by a
/// password, cut off, of a later format, or no Jet file at all
void checkJetFile(const QString& file);

} // namespace kolibri
