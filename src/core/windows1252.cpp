#include "core/windows1252.h"

#include <algorithm>
#include <array>

namespace kolibri {
namespace {

constexpr unsigned char kFirstSpecial = 0x80;
constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF", 3);

/// Characters of the bytes 0x80 to 0x9f; the five bytes that the code page leaves open stand for themselves.
constexpr std::array<char16_t, 32> kSpecial{0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021,
                                            0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008d, 0x017d, 0x008f,
                                            0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                                            0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178};

bool isSpecialByte(unsigned char byte) {
    return byte >= kFirstSpecial && byte < kFirstSpecial + kSpecial.size();
}

} // namespace

std::optional<QByteArray> toWindows1252(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        if (code < kFirstSpecial) {
            bytes += static_cast<char>(code);
            continue;
        }
        const auto special = std::find(kSpecial.begin(), kSpecial.end(), code);
        if (special != kSpecial.end())
            bytes += static_cast<char>(kFirstSpecial + (special - kSpecial.begin()));
        else if (code <= 0xff && !isSpecialByte(static_cast<unsigned char>(code)))
            bytes += static_cast<char>(code);
        else
            return std::nullopt;
    }
    return bytes;
}

QString fromWindows1252(QByteArrayView bytes) {
    QString text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text +=
            isSpecialByte(byte) ? QChar(kSpecial[byte - kFirstSpecial]) : QChar(static_cast<ushort>(byte));
    }
    return text;
}

QString fromTextFile(const QByteArray& bytes) {
    return bytes.startsWith(kUtf8Mark) ? QString::fromUtf8(bytes.sliced(kUtf8Mark.size()))
                                       : fromWindows1252(bytes);
}

QByteArray toTextFile(QStringView text) {
    const auto bytes = toWindows1252(text);
    return bytes ? *bytes : kUtf8Mark.toByteArray() + text.toUtf8();
}

} // namespace kolibri
