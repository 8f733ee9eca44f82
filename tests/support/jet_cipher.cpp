#include "support/jet_cipher.h"

#include <QtEndian>

#include <array>
#include <numeric>

namespace kolibri::test {
namespace {

constexpr qsizetype kPage = 4096;
constexpr qsizetype kMasked = 0x18;
constexpr qsizetype kMaskedLength = 128;

/// RC4, which turns a text into its code and back.
void cipher(QByteArray& file, qsizetype from, qsizetype length, quint32 key) {
    std::array<uchar, 4> keyBytes{};
    qToLittleEndian(key, keyBytes.data());
    std::array<uchar, 256> state{};
    std::iota(state.begin(), state.end(), uchar(0));
    unsigned j = 0;
    for (unsigned i = 0; i < 256; ++i) {
        j = (j + state[i] + keyBytes[i % 4]) % 256;
        std::swap(state[i], state[j]);
    }
    unsigned i = 0;
    j = 0;
    for (qsizetype place = from; place < from + length; ++place) {
        i = (i + 1) % 256;
        j = (j + state[i]) % 256;
        std::swap(state[i], state[j]);
        file[place] = static_cast<char>(file.at(place) ^ state[(state[i] + state[j]) % 256]);
    }
}

void mask(QByteArray& file) {
    constexpr quint32 kMask = 0x6b39dac7;
    cipher(file, kMasked, kMaskedLength, kMask);
}

} // namespace

QByteArray encrypted(QByteArray file, quint32 key) {
    constexpr qsizetype kKey = 0x3e;
    mask(file);
    qToLittleEndian(key, file.data() + kKey);
    mask(file);
    for (quint32 page = 1; page * kPage < file.size(); ++page)
        cipher(file, page * kPage, kPage, key ^ page);
    return file;
}

QByteArray withPassword(QByteArray file, const QString& password) {
    constexpr qsizetype kPassword = 0x42;
    mask(file);
    for (qsizetype i = 0; i < password.size(); ++i) {
        char* place = file.data() + kPassword + 2 * i;
        const auto mixed = static_cast<quint16>(qFromLittleEndian<quint16>(place) ^ password.at(i).unicode());
        qToLittleEndian(mixed, place);
    }
    mask(file);
    return file;
}

} // namespace kolibri::test
