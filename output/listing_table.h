#pragma once
// `Temporal`: the temporary table a listing prints from. It is made anew from
// its definition, filled once by one INSERT ... SELECT per source, and read
// back in blocks of rows in the order of filling, so that printing, re-paging
// and exporting read only from it and hold one block at a time.
//
// The definition's first column is the row number, an integer key such as
// `/C/1/Linea/ftInteger/0/*`: each source numbers its rows after those already
// there, by ROW_NUMBER() over the source's ORDER BY, and a block is a range of
// row numbers. The table lives in the general data and is reached as general
// alias + ".dbo." + name through "Database", where the company tables are.
//
// Failures of the statements are shown by the statement layer; `motivo` gets
// their text as well.

#include "core/database.h"
#include "output/report_data_source.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <memory>

namespace co {

class CreadorTablas;

// One source of rows: SELECT `expresiones` FROM `desde` WHERE the non-empty
// `condiciones` (by `CondicionCampo`) joined with " AND ", ORDER BY `orden`,
// into `columnas` (the table's columns after the row number, matching one to
// one).
struct OrigenListado {
    QStringList columnas;
    QStringList expresiones;
    QString desde;
    QStringList condiciones;
    QString orden;
};

class TablaListado {
public:
    TablaListado(TModuloDatos &datos, CreadorTablas &creador, QString propietario)
        : datos_(datos), creador_(creador), propietario_(std::move(propietario)) {}

    // Makes the table anew ("Tabla Temporal" + lines). False with `motivo`.
    bool Crear(const QString &definicion, QString *motivo);
    // Adds the rows of one source after the ones already there.
    bool Llenar(const OrigenListado &origen, QString *motivo);
    // The statement `Llenar` runs for `origen`, for the first `previas` rows taken.
    QString SentenciaLlenado(const OrigenListado &origen, qint64 previas) const;

    qint64 Filas() const { return filas_; }
    // As statements name it: general alias + ".dbo." + short name.
    QString NombreCualificado() const;
    const QString &ColumnaFila() const { return columnaFila_; }

    // A cursor over the rows in the order of filling, `porBloque` at a time.
    // The table must outlive it.
    std::unique_ptr<ReportDataSource> Lector(int porBloque = 500) const;

private:
    TModuloDatos &datos_;
    CreadorTablas &creador_;
    QString propietario_;
    QString nombre_;
    QString columnaFila_;
    qint64 filas_ = 0;
};

// Reads a listing table a block of row numbers at a time; `recordCount` is the
// number of rows counted when it is opened.
class BloquesDataSource : public ReportDataSource {
public:
    BloquesDataSource(TModuloDatos &datos, QString tabla, QString columnaFila, int porBloque)
        : datos_(datos), tabla_(std::move(tabla)), columnaFila_(std::move(columnaFila)),
          porBloque_(std::max(1, porBloque)) {}
    bool open(QString *motivo) override;
    bool next() override;
    QStringList fieldNames() const override { return names_; }
    ColumnKind fieldKind(int field) const override { return bloque_.Fields().at(field).kind; }
    QVariant value(int field) const override { return bloque_.Value(fila_, field); }
    qint64 recordCount() const override { return total_; }

private:
    bool leerBloque(qint64 desde, QString *motivo);

    TModuloDatos &datos_;
    QString tabla_;
    QString columnaFila_;
    int porBloque_;
    Consulta bloque_;
    QStringList names_;
    qint64 total_ = 0;
    qint64 siguiente_ = 1; // row number the next block starts at
    int fila_ = -1;
};

} // namespace co
