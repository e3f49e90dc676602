#pragma once
// The `Temporal` option of `AbrirConsulta`: an open query's rows are stored in a
// temporary table of the general data and the query is opened again on it.
//
// Steps: a temporary table name for the query's owner and number 0; the columns
// from the query's fields by the type map of the definition language; on
// "DatabaseGeneral" "DROP TABLE " + name (silently) and "CREATE TABLE"; then
// "INSERT INTO " + general alias + ".dbo." + name + " " + the original statement
// on the query's connection; the query's text becomes "SELECT * FROM " + general
// alias + ".dbo." + name and it is opened. A query of "DatabaseGeneral" is filled
// and re-opened through "Database", which reaches the general data by its alias
// on both back-ends.
//
// Column types: text of any length as unlimited text, memo, integer (a value
// beyond 32 bits as a float), float, date-time, boolean, binary; a column whose
// type the back-end does not tell takes the type of its values.
//
// No dialog: on failure the result is false, `motivo` says why in Spanish, and
// the query is left open on its original rows and text.

#include "core/database.h"

#include <QString>

namespace co {

// Opens the query first when it is not open.
bool MaterializarConsultaTemporal(TModuloDatos &datos, Consulta &consulta, QString *motivo,
                                  const QString &propietario = {});

// The `Temporal` option of `datos`, given to it with setQueryMaterializer.
class MaterializadorConsultas : public QueryMaterializer {
public:
    explicit MaterializadorConsultas(TModuloDatos &datos) : datos_(datos) {}

    bool MaterializarConsulta(Consulta &consulta, QString *motivo) override;

private:
    TModuloDatos &datos_;
};

} // namespace co
