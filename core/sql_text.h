#pragma once
// Pure text routines of the statement layer: table names, option words,
// the empty-value rewriting, literals and range conditions.
// None of them touches a connection.

#include "core/backend.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

namespace co {

// Tables that live in the general database.
bool EsTablaGeneral(const QString &tabla);
// Name without one "schema." prefix.
QString NombreTablaSinEsquema(const QString &tabla);
// True when the name, after any "." prefix, starts with "TEMP".
bool EsTablaTemporal(const QString &tabla);
// A missing-table failure text.
bool EsTablaInexistente(const QString &textoFallo);

// Option words are found by substring, whatever the separator.
bool TieneOpcion(const QString &opciones, const QString &palabra);
// Value of a "Name=value" option among comma-separated options, up to the next comma.
std::optional<QString> ValorOpcion(const QString &opciones, const QString &nombre);

// Rewrites comparisons " = ''" and " <> ''" after WHERE so that NULL compares
// alike. Quoted text is never rewritten; the work is linear in the statement.
QString NormalizarVacios(const QString &sql, Backend backend = Backend::SQLite);

// "= NULL" and "=NULL" outside literals become " IS NULL "; with `forzar` also
// " = ''" and " = \"\"".
QString ReescribirIgualNull(const QString &sql, bool forzar, Backend backend = Backend::SQLite);

// Single-quoted literal with quote marks doubled.
QString Entrecomillar(const QString &texto);

// A value as an SQL literal: numbers "0.000000" with ".", dates in
// `formatoFecha` + " hh:nn:ss", a zero date-time as `fechaNula`, null as ''.
QString FormatoLiteralSQL(const QVariant &valor, const QString &formatoFecha,
                          const QString &fechaNula);

// Range or equality test; `tipo` is "ftString", "ftInteger", "ftSmallint",
// "ftFloat", "ftDate", "ftDateTime" or "CAST_AS_INTEGER". Date values may be
// given as "dd/mm/yyyy" (year completed) or already in `formatoFecha`.
QString CondicionCampo(const QString &campo, const QString &desde, const QString &hasta,
                       const QString &tipo, const QString &formatoFecha);

// A date text "d/m/y" (year of 1, 2 or 4 digits) in `formatoFecha`; the text
// unchanged when it is not such a date.
QString FechaParaSQL(const QString &fecha, const QString &formatoFecha);

// The table names a statement refers to (after FROM, JOIN, UPDATE, INTO,
// DELETE FROM), in order, without duplicates.
QStringList TablasDeSentencia(const QString &sql);

// First word of a statement, up to the first blank.
QString VerboSentencia(const QString &sql);

} // namespace co
