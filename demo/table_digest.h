#pragma once
// A digest of the rows of some tables, equal on both back-ends for equal data:
// each table is read in primary key order through the statement layer, and
// each value is written in one form (figures to 17 significant digits, dates
// as "yyyy-MM-dd hh:mm:ss", null apart from empty text) before hashing.

#include "core/database.h"

#include <QString>
#include <QStringList>

namespace co::demo {

// `estructuras`: the structure files' text (the table definition language),
// which gives each table's columns, types and primary key.
// Empty with `motivo` when a table cannot be read or is not defined.
QString HuellaTablas(TModuloDatos &datos, const QString &estructuras, const QStringList &tablas,
                     QString *motivo);

} // namespace co::demo
