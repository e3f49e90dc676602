#pragma once
// A table read from its definition lines, and the statements that create it on
// each back-end. The column types are data, one row per type word:
//   text VARCHAR(n) DEFAULT '' ("MAX": no limit), memo TEXT, small integers
//   SMALLINT, integers INTEGER, floats DOUBLE PRECISION on SQLite and
//   NUMERIC(28,8) on PostgreSQL (12 decimals for a field called "Cambio" or with
//   "Factor" in its name), dates TIMESTAMP DEFAULT the null date, BOOLEAN, and
//   BLOB / BYTEA for binary words.
// Key fields (mark "*") are NOT NULL and make the constraint <table>_Clave1;
// each other index becomes "CREATE INDEX <table>_<index>".

#include "core/backend.h"
#include "core/field_types.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace co {

struct CampoTabla {
    QString nombre;
    QString palabraTipo;
    TipoCampo tipo = TipoCampo::ftUnknown;
    QString longitud;
    bool clave = false;
};

struct IndiceTabla {
    QString nombre;
    QStringList campos;
    QString opciones;
    bool primario() const { return nombre == u"<Primary>"; }
    bool descendente() const { return opciones.contains(u'-'); }
};

struct EstructuraTabla {
    QString nombre;
    QList<CampoTabla> campos;
    QList<IndiceTabla> indices;
    QStringList clave() const;
    QStringList nombres() const;
};

// Reads the C and I lines of one table (as DefinicionTabla gives them). A bad
// line gives nullopt and a Spanish `motivo` naming the table and the line.
std::optional<EstructuraTabla> LeerEstructuraTabla(const QString &tabla, const QString &campos,
                                                   const QString &indices, QString *motivo);

// True for a name the statements can carry unquoted.
bool EsIdentificadorValido(const QString &nombre);

// Decimals of a float column: 12 for "Cambio" and names with "Factor", else 8.
int DecimalesCampo(const QString &nombre);

// The column text of one field; empty for a type word with no column type.
QString ColumnaSQL(const CampoTabla &campo, Backend backend, const QString &fechaNula);

struct SentenciasTabla {
    QString crear;
    QStringList indices;
};

SentenciasTabla SentenciasCreacion(const EstructuraTabla &tabla, Backend backend,
                                   const QString &fechaNula);

// The name an index takes in the database: <table>_<index>.
QString NombreIndiceSQL(const QString &tabla, const IndiceTabla &indice);
// "CREATE INDEX <table>_<index> ON <table> (<fields>)".
QString SentenciaIndice(const QString &tabla, const IndiceTabla &indice);

} // namespace co
