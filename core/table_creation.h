#pragma once
// `CrearTabla`: makes a missing table from its definition, on the connection of
// its database, and wires itself into the statement layer as its TableCreator,
// so that a statement on a missing table creates it and goes on.
//
// Where a table goes: a temporary definition to the temporary tables' place
// (`PathArchivosTemporales`, else the general data); a general table to
// "DatabaseGeneral"; a "?alias" word to that alias; "DatabaseAlt" to itself;
// everything else to "Database".
// The user-defined fields of `CAMPOUSR` are added to every table but temporary
// ones and `CAMPOUSR` itself. When `EMPRESA` is made, company 1 is inserted and
// its database made, unless the owner is "fGENEACTU".
// Failures are told through the session's message port in the system's words
// and never throw; the back-end is left as before the failed creation.
//
// A table is made whole or not at all: the table, its indexes and (for
// `EMPRESA`) the row of company 1 go in one schema transaction, so a process
// killed half-way leaves nothing behind. A table that exists already gets the
// indexes of its definition that it lacks (left by a crash of an older
// version, or dropped by hand) when it is made on demand or opened; an index on
// a field the table does not have is left alone, as no column is added here.

#include "core/database.h"

#include <QSet>
#include <QString>
#include <QStringList>

namespace co {

struct EstructuraTabla;

class CreadorTablas : public TableCreator {
public:
    // `carpetaDatos`: the application's data folder, where DATABASE.TXT is taken
    // from when the general data folder has none.
    CreadorTablas(TModuloDatos &datos, const QString &carpetaDatos);

    // The statement layer's entry: empty when the table is there now.
    QString CrearTabla(const QString &tabla, const QString &conexion) override;

    // `definicion`: empty reads the structure files; "base;version" names two
    // files to read instead; any other text is the definition itself. A
    // temporary definition makes `tabla` anew (dropping the old one).
    // True when the table was made; false when it already existed (`motivo`
    // empty) or could not be made (`motivo` says why).
    bool CrearTabla(const QString &tabla, const QString &conexion, const QString &definicion,
                    QString *motivo);

    // Makes the data of one company: a schema on PostgreSQL, a file on SQLite.
    bool CrearBaseDatos(const QString &nombre);

    // The merged structure files of the installation.
    bool Estructuras(QString *texto);
    QString RutaEstructuras() const;

    // `DefinicionTabla` with the "CamposUsuario" part read from `CAMPOUSR`.
    QString DefinicionTabla(const QString &tabla, const QString &texto, const QString &partes);

    // The C lines of the user-defined fields of `tabla`, numbered from 1000 in
    // field order. Rows of an unknown or unusable type are left out and told
    // in `motivo`; false when CAMPOUSR cannot be read.
    bool CamposUsuario(const QString &tabla, QString *lineas, QString *motivo);

    // Makes the indexes of the definition of `tabla` that the existing table on
    // `conexion` lacks, all in one transaction. Each table of each database is
    // looked at once in the life of this object. False, after a warning, when a
    // missing index could not be made; true when none is missing (or the table
    // has no definition, or does not exist).
    bool CompletarIndices(const QString &tabla, const QString &conexion);

    // Tells the statement layer the case of every field of the structure files.
    void RegistrarNombresEstructura();

    // The owner form of the tables made; "fGENEACTU" makes no first company.
    QString Propietario;

private:
    QString conexionDe(const QString &tabla, const QString &conexion, bool temporal) const;
    bool existe(const QString &tabla, const QString &conexion);
    bool crearEnBaseDatos(const EstructuraTabla &tabla, const QString &conexion, bool temporal,
                          bool primeraEmpresa, QString *motivo);
    bool completarIndices(const QString &tabla, const QString &conexion, const QString &indices);
    QString claveRevision(const QString &tabla, const QString &conexion) const;
    bool PrimeraEmpresa();

    TModuloDatos &datos_;
    TfGENEINIC &sesion_;
    QString carpetaDatos_;
    // Tables whose indexes were looked at, by database.
    QSet<QString> revisadas_;
};

} // namespace co
