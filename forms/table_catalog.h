#pragma once
// What a table's columns are declared as, read from the back-end's catalog:
// the field type word, the size of text columns and whether a value is
// required. The statement per back-end and the type words are data.

#include "core/backend.h"
#include "core/database.h"
#include "core/field_types.h"

#include <QHash>
#include <QString>

namespace co::forms {

struct DeclaredColumn {
    QString name; // in the schema's spelling
    TipoCampo type = TipoCampo::ftUnknown;
    int size = 0;
    bool notNull = false;
};

// The type word of a declared column type ("VARCHAR(40)", "smallint",
// "numeric(28,8)", "timestamp without time zone"...); ftUnknown when unknown.
DeclaredColumn TipoDeclarado(const QString &declared);

// The table's columns in their order; empty when the catalog gives nothing (no
// such table). The answer is remembered by `datos` until a statement changes a
// structure; `releer` reads it again.
QList<DeclaredColumn> ColumnasDeclaradas(TModuloDatos &datos, const QString &tabla,
                                         const QString &conexion, bool releer = false);

// How the back-end keeps two writers of one row apart: with a row lock taken on
// entering Edit (`lockSuffix` added to a SELECT of the row), or by checking at
// post that the row still holds the values read.
struct RecordLocking {
    bool pessimistic = false;
    QString lockSuffix;
};
const RecordLocking &BloqueoRegistros(Backend backend);

} // namespace co::forms
