#pragma once
// Key=value blocks: the `Nombre=valor` lines that memo fields and texts hold
// (mail settings, number templates, user settings, window definitions).
//
// Contract:
// - Lines are separated by CR LF, LF or CR; a line's key is the text before its
//   first "=", compared without case and without surrounding blanks; the value is
//   everything after that "=", untouched (it may hold "=" and "·").
// - The first line with a key wins; lines without "=" are kept but never match.
// - A value cannot hold a line break: it is written with "·" in its place.
//
// The routines live in `co::memo` so that they never clash with the record-key
// routine `TModuloDatos::ValorClave`.

#include <QString>
#include <QStringList>
#include <optional>

namespace co::memo {

// The character that stands for a line break inside a value.
inline constexpr char16_t kSaltoLinea = u'\u00B7';

// The value of `clave`, or nullopt when no line has that key.
std::optional<QString> BuscarClave(const QString &bloque, const QString &clave);

// `ValorClave` of a block: `valor` gets the value of `clave`, or `defecto` when the
// key is missing or its value is empty. Returns true when a non-empty value was found.
bool ValorClave(const QString &bloque, const QString &clave, QString &valor,
                const QString &defecto = {});

// `ModificarClave`: sets `clave` to `valor` in `lista`. The first line with the key is
// rewritten in place; otherwise a line is added at the end with the block's own line
// separator. Line breaks in `valor` become "·". Returns false, leaving `lista`
// untouched, for an empty key or one holding "=" or a line break.
bool ModificarClave(const QString &clave, const QString &valor, QString &lista);

// The keys of a block in order, duplicates included.
QStringList Claves(const QString &bloque);

// A block as its lines, whatever the separator; a trailing separator adds no line.
QStringList Lineas(const QString &bloque);

// Line breaks of a free text written as "·", and back (as CR LF).
QString CodificarSaltos(const QString &texto);
QString DecodificarSaltos(const QString &valor);

} // namespace co::memo
