#include "core/password_scramble.h"

#include "core/windows_codepage.h"

#include <array>
#include <optional>

namespace co {
namespace {

constexpr std::array<char, 6> kClave = {'x', 'a', 'p', 'l', 'i', 'm'};

// Character i of the text (from 1) uses key character i modulo 6.
unsigned char keyAt(qsizetype position) {
    return static_cast<unsigned char>(kClave[static_cast<std::size_t>(position % 6)]);
}

} // namespace

bool CifrarClave(const QString &texto, QString &resultado) {
    QString out;
    out.reserve(texto.size() * 3);
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const std::optional<unsigned char> b = toWindows1252(texto.at(i));
        if (!b) {
            resultado.clear();
            return false;
        }
        const int scrambled = *b ^ keyAt(i + 1);
        out += QStringLiteral("%1").arg(scrambled, 3, 10, QLatin1Char('0'));
    }
    resultado = out;
    return true;
}

bool DescifrarClave(const QString &texto, QString &resultado) {
    bool clean = texto.size() % 3 == 0;
    QString out;
    for (qsizetype g = 0; g + 3 <= texto.size(); g += 3) {
        const QString group = texto.mid(g, 3);
        int value = 0;
        bool digits = true;
        for (QChar c : group)
            digits = digits && c >= u'0' && c <= u'9';
        if (digits)
            value = group.toInt();
        clean = clean && digits && value <= 255;
        const unsigned char b = static_cast<unsigned char>((value & 0xFF) ^ keyAt(g / 3 + 1));
        out += fromWindows1252(b);
    }
    resultado = out;
    return clean;
}

} // namespace co
