#pragma once
// The master-with-lines family: a header record in data edits (`MaestroFicha`)
// and its lines in `DBGrid2` over `Table2`, the lines' table, whose key is the
// header's key fields (same names) followed by the line number. A screen
// derives from `MaestroConLineas` with its header declaration and its lines
// declaration, and overrides only its own rules.
//
// - `Table2` follows the header: `DataSource1DataChange` ranges it on the
//   header's key, and so does each new line (the key may just have been typed).
// - A new line takes the header's key and the next line number within it
//   (`SiguienteNumero`), then `ValoresInicialesLinea`; with no header key there
//   is no new line.
// - Ctrl+Delete in `DBGrid2` (`DBGrid2KeyDown`) asks "¿ Está seguro de querer
//   eliminar la linea ?" and deletes on "SI"; a failure: "¡ Se ha producido un
//   error eliminando la linea !".
// - Leaving a column of a pending line (`DBGrid2ColExit`) checks its
//   permitted values, then `ValidacionLinea` with the grid; leaving the line
//   number column is the key check of a grid master instead (empty number
//   drops the new line, number ranges, `ValidacionLinea`, then "¡ Ya existe el
//   registro !" for a new line whose key is stored). A refusal keeps the line
//   pending on that column.
// - Posting a line (`Table2BeforePost`) checks every column's permitted values
//   and runs `ValidacionLinea` with no sender; its refusal: "¡ La línea no ha
//   sido grabada !" and the line stays pending. A line refused by the
//   database: "¡ No se puede grabar la línea porque está bloqueada por otro
//   usuario o porque el dato introducido no es válido !" and the line is
//   cancelled, when `pbConforme` or the header's post posted it. Either way
//   what posted it stops.
// - The header's post posts the pending line first (`AntesGrabar`: a screen
//   that overrides it calls this one). `pbConforme` with only a line pending
//   posts the line.
// - Cancelling the header cancels the pending line; a new header cancelled
//   with the focus off its key takes with it the lines already written under
//   its key, when no stored header has that key.
// - Deleting the header asks "¿Está seguro de querer eliminar el registro y
//   todas sus líneas?"; on "SI" the lines and the header go in one
//   transaction; a failure: "¡ Se ha producido un error eliminando el registro
//   !" and nothing is deleted.
// - Closing with a pending line goes through `ConfirmarCierreForm` like any
//   pending dataset of the form: cancelled on "SI", else posted with its
//   checks, and a refusal keeps the form open with the line pending.
// - `ListadoProgramable1Click` asks "¿Desea realizar el Listado Programable de
//   las Líneas?": "SI" lists `Table2`, any other answer `Table1`.

#include "forms/single_record_master.h"

namespace co::forms {

struct DeclaracionLineas {
    QString tabla;      // the lines' table
    QString campoLinea; // the line number, last field of its key
    QList<GridColumn> columnas;
};

class MaestroConLineas : public MaestroFicha {
public:
    MaestroConLineas(TModuloDatos &datos, DeclaracionFicha cabecera, DeclaracionLineas lineas);

    Table &Table2() const { return *table2_; }
    DataSource &DataSource2() const { return *source2_; }
    DBGrid &DBGrid2() const { return *grid2_; }
    const DeclaracionLineas &Lineas() const { return lineas_; }

protected:
    // Defaults of a new line, after its key and number.
    virtual void ValoresInicialesLinea() {}
    // The lines' validator: the column left (sender `DBGrid2`, its
    // `SelectedIndex` the column) or, with no sender, every rule before the
    // line is posted. False after its message.
    virtual bool ValidacionLinea(Component *sender);
    void AntesGrabar() override;

private:
    QVariantList claveCabecera();
    void enlazarLineas();
    void salidaColumna(Component *sender);
    void grabarLinea();
    void eliminarLinea();
    void eliminarCabecera();
    void cancelarCabecera();

    DeclaracionLineas lineas_;
    Table *table2_ = nullptr;
    DataSource *source2_ = nullptr;
    DBGrid *grid2_ = nullptr;
};

} // namespace co::forms
