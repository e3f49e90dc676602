#pragma once
// The grid master family: one table edited in `DBGrid1`. A screen derives from
// `MaestroRejilla`, declares its table, key and columns, and overrides only its
// own rules (`ValoresIniciales`, `ValidacionWinControl`, `CalcularCampos`,
// `AntesGrabar`). Buttons, menu and shared handlers: see record_master.h.
//
// The family's own: new records are appended with the focus on the grid;
// leaving a column checks its permitted values, and leaving the key column is
// the key check (`DBGrid1ColExit`); the key column of a stored record cannot be
// edited (`Table1BeforeEdit`); the post checks every column's list. A double
// click (or F2) on the key column finds a record of the master, on a column
// with a declared search (`DeclararBusqueda`) fills the code from its table,
// on any other column finds a record by that column's value.

#include "works/record_master.h"

namespace co::works {

struct DeclaracionMaestro {
    QString nombre;     // component name of the form, e.g. "fOBRAUNID"
    QString titulo;     // caption
    QString tabla;      // the table edited
    QString campoClave; // the key field
    QList<forms::GridColumn> columnas;
};

class MaestroRejilla : public MaestroTabla {
public:
    MaestroRejilla(TModuloDatos &datos, DeclaracionMaestro declaracion);

    forms::DBGrid &DBGrid1() const { return *grid1_; }
    const DeclaracionMaestro &Declaracion() const { return declaracion_; }

protected:
    void ComprobarListasAlGrabar() override;
    // Makes the sale price columns hide at opening when the works settings use
    // only percentages (`AdmPorPorcentajes`).
    void OcultarPreciosVenta() { ocultarPreciosVenta_ = true; }
    void DespuesAbrir() override;

private:
    void comprobarClave(forms::Component *sender);
    int columnaClave() const;

    DeclaracionMaestro declaracion_;
    forms::DBGrid *grid1_ = nullptr;
    bool ocultarPreciosVenta_ = false;
};

} // namespace co::works
