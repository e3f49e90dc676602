#pragma once
// Colours and font styles by their Spanish names, as stored in grid layouts
// and configuration.
//
// Colours are 0xRRGGBB values of the platform's named colours (the SVG names
// that Qt knows), and the desktop palette for "Verde Claro 2" (money green),
// "Crema" and "Gris Medio". Every name has its own value, so a colour read
// back from its name gives the same name.

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace co {

// The colour names in their fixed order, for pick lists.
QStringList NombresColores();

// Empty for a colour without a name.
QString ColorANombre(std::uint32_t color);
std::optional<std::uint32_t> NombreAColor(const QString &nombre);

// "fsBold" <-> "Negrita", "fsItalic" <-> "Italica", "fsUnderline" <->
// "Subrayado", "fsStrikeout" <-> "Tachado"; empty for any other word.
QString EstiloANombre(const QString &estilo);
QString NombreAEstilo(const QString &nombre);

} // namespace co
