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
// A memo column's button, a double click on it, or Ctrl+Enter edit the memo
// of the selected column, or the grid's first memo column, in the multi-line
// text window titled by `TituloMemo` (the question of the message port when
// the window is not there).
// Ctrl+Delete on the grid (`DBGrid1KeyDown`) asks "¿ Está seguro de querer
// eliminar el registro ?" and on "SI" deletes the record (a new one is
// dropped); a refused delete: "¡ Este registro no puede eliminarse !".

#include "forms/record_master.h"

#include <functional>

namespace co::forms {

struct DeclaracionMaestro {
    QString nombre;     // component name of the form, e.g. "fOBRAUNID"
    QString titulo;     // caption
    QString tabla;      // the table edited
    QString campoClave; // the key field
    QList<GridColumn> columnas;
};

class MaestroRejilla : public MaestroTabla {
public:
    MaestroRejilla(TModuloDatos &datos, DeclaracionMaestro declaracion);

    DBGrid &DBGrid1() const { return *grid1_; }
    const DeclaracionMaestro &Declaracion() const { return declaracion_; }

protected:
    void ComprobarListasAlGrabar() override;
    // The pop-up's title for a memo of the current record: the column's title.
    virtual QString TituloMemo(const GridColumn &columna) const { return columna.Title; }
    // The sale price columns hide at opening when `ocultar` says so (the works
    // settings decide: only percentages in use keep no sale price).
    void OcultarPreciosVenta(std::function<bool()> ocultar) {
        ocultarPreciosVenta_ = std::move(ocultar);
    }
    void DespuesAbrir() override;

private:
    void comprobarClave(Component *sender);
    void editarMemo();
    void eliminarDesdeRejilla();
    int columnaClave() const;

    DeclaracionMaestro declaracion_;
    DBGrid *grid1_ = nullptr;
    std::function<bool()> ocultarPreciosVenta_;
};

} // namespace co::forms
