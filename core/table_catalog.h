#pragma once
// What a table's columns are declared as, read from the back-end's catalog:
// the field type word, the size of text columns and whether a value is
// required. The catalog statement of each back-end is in its traits
// (backend.h); the declared-type words are the table below, shared by both.

#include "core/backend.h"
#include "core/database.h"
#include "core/field_types.h"

#include <QList>
#include <QString>

namespace co {

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

} // namespace co
