#include "maintenance/jet_header.h"

#include "core/store/store_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr QByteArrayView kMark("\0\1\0\0Standard Jet DB\0", 20);
constexpr qsizetype kHeaderSize = 256;
constexpr qsizetype kVersion = 0x14;
constexpr qsizetype kMasked = 0x18;
constexpr qsizetype kKey = 0x3e;
constexpr qsizetype kPassword = 0x42;
constexpr qsizetype kCreated = 0x72;

/// The stream cipher RC4; the engine masks its first page with it, by a key that is the same in every file.
QByteArray unmasked(QByteArrayView bytes) {
    constexpr std::array<quint8, 4> kMask{0xc7, 0xda, 0x39, 0x6b};
    std::array<quint8, 256> state;
    std::iota(state.begin(), state.end(), quint8(0));
    quint8 j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<quint8>(j + state[i] + kMask[i % kMask.size()]);
        std::swap(state[i], state[j]);
    }
    QByteArray result;
    quint8 i = 0;
    j = 0;
    for (const char byte : bytes) {
        j = static_cast<quint8>(j + state[++i]);
        std::swap(state[i], state[j]);
        const auto mask = state[static_cast<quint8>(state[i] + state[j])];
        result += static_cast<char>(static_cast<quint8>(byte) ^ mask);
    }
    return result;
}

[[noreturn]] void refuse(StoreError::Kind kind, const QString& file, const QString& words) {
    throw StoreError(kind, u"Die Datei %1 "_s.arg(QDir::toNativeSeparators(file)) + words
                               + u" Sie wurde nicht verändert."_s);
}

} // namespace

JetHeader::JetHeader(const QByteArray& firstPage) {
    constexpr qsizetype kMaskedJet3 = 126;
    constexpr qsizetype kMaskedJet4 = 128;
    if (firstPage.size() < kHeaderSize)
        return;
    m_page = firstPage;
    const qsizetype length = firstPage.at(kVersion) == kJet3 ? kMaskedJet3 : kMaskedJet4;
    m_page.replace(kMasked, length, unmasked(QByteArrayView(firstPage).sliced(kMasked, length)));
}

JetHeader JetHeader::ofFile(const QString& name) {
    QFile file(name);
    return JetHeader(file.open(QIODevice::ReadOnly) ? file.read(kHeaderSize) : QByteArray());
}

bool JetHeader::isJet() const {
    return m_page.startsWith(kMark);
}

char JetHeader::version() const {
    constexpr char kUnknown = -1;
    return isJet() ? m_page.at(kVersion) : kUnknown;
}

bool JetHeader::isEncrypted() const {
    return isJet() && qFromLittleEndian<quint32>(m_page.constData() + kKey) != 0;
}

bool JetHeader::hasPassword() const {
    constexpr qsizetype kLengthJet3 = 20;
    constexpr qsizetype kLengthJet4 = 40;
    if (!isJet())
        return false;
    // Jet 4 mixes the day on which the file was made into the password, also into an empty one.
    std::array<char, 4> day{};
    if (isJet4()) {
        const double created = qFromLittleEndian<double>(m_page.constData() + kCreated);
        if (!(created > -1e6 && created < 1e6))
            return true;
        qToLittleEndian(static_cast<qint32>(created), day.data());
    }
    const qsizetype length = isJet4() ? kLengthJet4 : kLengthJet3;
    for (qsizetype i = 0; i < length; ++i)
        if (m_page.at(kPassword + i) != day[static_cast<std::size_t>(i) % day.size()])
            return true;
    return false;
}

void checkJetFile(const QString& file) {
    using enum StoreError::Kind;
    const QFileInfo info(file);
    if (!info.isFile())
        throw StoreError(Missing,
                         u"Die Datenbank %1 wurde nicht gefunden."_s.arg(QDir::toNativeSeparators(file)));
    const JetHeader header = JetHeader::ofFile(file);
    if (!header.isJet())
        refuse(Foreign, file, u"ist keine Datenbank einer älteren Programmversion."_s);
    if (!header.isKnownVersion())
        refuse(Foreign, file, u"hat ein Format, das nicht übernommen werden kann."_s);
    if (header.isEncrypted())
        refuse(Foreign, file,
               u"ist verschlüsselt. Bitte heben Sie die Verschlüsselung mit dem Programm auf, mit dem sie "
               "eingerichtet wurde, und versuchen Sie es noch einmal."_s);
    if (header.hasPassword())
        refuse(
            Foreign, file,
            u"ist mit einem Kennwort geschützt. Bitte entfernen Sie das Kennwort und versuchen Sie es noch "
            "einmal."_s);
    if (info.size() % header.pageSize() != 0)
        refuse(Damaged, file, u"ist unvollständig; ihr Ende fehlt."_s);
}

} // namespace kolibri
