#include "core/windows_codepage.h"

#include <array>

namespace co {
namespace {

// Bytes 0x80-0x9F; 0 marks the bytes the code page leaves unused.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

} // namespace

QChar fromWindows1252(unsigned char byte) {
    if (byte >= 0x80 && byte <= 0x9F && kHigh[byte - 0x80] != 0)
        return QChar(kHigh[byte - 0x80]);
    return QChar(static_cast<char16_t>(byte));
}

std::optional<unsigned char> toWindows1252(QChar c) {
    const char16_t u = c.unicode();
    if (u >= 0x80 && u <= 0x9F)
        return kHigh[u - 0x80] == 0 ? std::optional<unsigned char>(static_cast<unsigned char>(u))
                                    : std::nullopt;
    if (u <= 0xFF)
        return static_cast<unsigned char>(u);
    for (std::size_t i = 0; i < kHigh.size(); ++i) {
        if (kHigh[i] == u)
            return static_cast<unsigned char>(0x80 + i);
    }
    return std::nullopt;
}

QString decodeWindows1252(const QByteArray &bytes) {
    QString out;
    out.reserve(bytes.size());
    for (char b : bytes)
        out += fromWindows1252(static_cast<unsigned char>(b));
    return out;
}

std::optional<QByteArray> encodeWindows1252(const QString &text) {
    QByteArray out;
    out.reserve(text.size());
    for (QChar c : text) {
        const std::optional<unsigned char> b = toWindows1252(c);
        if (!b)
            return std::nullopt;
        out += static_cast<char>(*b);
    }
    return out;
}

} // namespace co
