#include "core/style_names.h"

#include <array>

namespace co {

namespace {

struct NamedColour {
    const char *name;
    std::uint32_t rgb;
};

constexpr std::array<NamedColour, 22> kColours = {{
    {"Aguamarina", 0x00FFFF},    // aqua
    {"Negro", 0x000000},         // black
    {"Azul", 0x0000FF},          // blue
    {"Gris Oscuro", 0xA9A9A9},   // dark gray
    {"Fucsia", 0xFF00FF},        // fuchsia
    {"Gris", 0x808080},          // gray
    {"Verde", 0x008000},         // green
    {"Verde Claro", 0x00FF00},   // lime
    {"Gris Claro", 0xD3D3D3},    // light gray
    {"Rojo Oscuro", 0x800000},   // maroon
    {"Azul Marino", 0x000080},   // navy
    {"Oliva", 0x808000},         // olive
    {"Purpura", 0x800080},       // purple
    {"Rojo", 0xFF0000},          // red
    {"Plateado", 0xC0C0C0},      // silver
    {"Esmeralda", 0x008080},     // teal
    {"Blanco", 0xFFFFFF},        // white
    {"Amarillo", 0xFFFF00},      // yellow
    {"Azul Celeste", 0x87CEEB},  // sky blue
    {"Verde Claro 2", 0xC0DCC0}, // money green
    {"Crema", 0xFFFBF0},         // cream
    {"Gris Medio", 0xA0A0A4},    // medium gray
}};

struct NamedStyle {
    const char *style;
    const char *name;
};

constexpr std::array<NamedStyle, 4> kStyles = {{
    {"fsBold", "Negrita"},
    {"fsItalic", "Italica"},
    {"fsUnderline", "Subrayado"},
    {"fsStrikeout", "Tachado"},
}};

} // namespace

QStringList NombresColores() {
    QStringList out;
    for (const NamedColour &c : kColours)
        out << QString::fromLatin1(c.name);
    return out;
}

QString ColorANombre(std::uint32_t color) {
    for (const NamedColour &c : kColours)
        if (c.rgb == color)
            return QString::fromLatin1(c.name);
    return {};
}

std::optional<std::uint32_t> NombreAColor(const QString &nombre) {
    for (const NamedColour &c : kColours)
        if (nombre == QLatin1String(c.name))
            return c.rgb;
    return std::nullopt;
}

QString EstiloANombre(const QString &estilo) {
    for (const NamedStyle &s : kStyles)
        if (estilo == QLatin1String(s.style))
            return QString::fromLatin1(s.name);
    return {};
}

QString NombreAEstilo(const QString &nombre) {
    for (const NamedStyle &s : kStyles)
        if (nombre == QLatin1String(s.name))
            return QString::fromLatin1(s.style);
    return {};
}

} // namespace co
