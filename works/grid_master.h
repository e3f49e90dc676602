#pragma once
// The grid master family: one table edited in `DBGrid1`, with the buttons and
// the "Ficha" menu of the record screens. A screen derives from `MaestroRejilla`,
// declares its table, key and columns, and overrides only its own rules
// (`ValoresIniciales`, `ValidacionWinControl`, `CalcularCampos`, `AntesGrabar`).
//
// Components: Table1, DataSource1, DBGrid1; buttons pbAgregar, pbEliminar,
// pbConforme, pbCancelar, pbPrimero, pbAnterior, pbSiguiente, pbUltimo, pbSalir;
// menu items of "Ficha": Agregar, Eliminar1, CancelarEdicion1, Cerrar1.
// Handlers are bound by the names of the record screens (pbConformeClick,
// Table1BeforePost, DBGrid1ColExit, ...), so the key map and the view reach them
// by name.

#include "forms/form.h"
#include "forms/maintenance_routines.h"
#include "forms/table.h"

#include <QList>
#include <QString>

namespace co::works {

struct DeclaracionMaestro {
    QString nombre;     // component name of the form, e.g. "fOBRAUNID"
    QString titulo;     // caption
    QString tabla;      // the table edited
    QString campoClave; // the key field
    QList<forms::GridColumn> columnas;
};

// The caption of the "Ficha" menu and the names of its items, in order.
QString TituloMenuFicha();
QStringList ElementosMenuFicha();

class MaestroRejilla : public forms::Form {
public:
    MaestroRejilla(TModuloDatos &datos, DeclaracionMaestro declaracion);
    // Closes the tables while the screen's handlers can still run.
    ~MaestroRejilla() override;

    TModuloDatos &Datos() const { return datos_; }
    forms::RutinasFormulario &Rutinas() { return rutinas_; }
    forms::Table &Table1() const { return *table1_; }
    forms::DataSource &DataSource1() const { return *source1_; }
    forms::DBGrid &DBGrid1() const { return *grid1_; }
    const DeclaracionMaestro &Declaracion() const { return declaracion_; }

    // Opens the form's tables through `AbrirTablasForm`; false when they could not.
    bool Abrir(AperturaTablas &apertura);

    // Message on a failed post of an edited record; screens may give their own.
    QString TextoModificacionFallida =
        QStringLiteral("¡ Imposible modificar el registro. Es posible que esté siendo "
                       "modificado por otro usuario. !");

protected:
    // Defaults of a new record (`Table1NewRecord`).
    virtual void ValoresIniciales() {}
    // The form's validator for the control or column left; nullptr checks all
    // (on post). False after its message.
    virtual bool ValidacionWinControl(forms::Component *sender);
    // Calculated fields (`Table1CalcFields`).
    virtual void CalcularCampos() {}
    // Runs in `Table1BeforePost` after the checks: pending child rows.
    virtual void AntesGrabar() {}
    // The table searched from a code column (double click or F2); none by default.
    virtual QString TablaDeBusqueda(const QString &campo) const;
    // Puts the first key value chosen in the search window on `tabla` into the field.
    void BuscarCodigo(forms::Dataset &dataset, const QString &campo, const QString &tabla);
    // Hides the sale price columns when only percentages are used.
    void OcultarPreciosVenta();
    Messenger &Mensajes() const;

private:
    void declarar();
    void grabarDatos();
    void eliminar();
    void comprobarListas(int columna);
    void comprobarClave(forms::Component *sender);
    void cambioEstado();
    int columnaClave() const;

    TModuloDatos &datos_;
    DeclaracionMaestro declaracion_;
    forms::RutinasFormulario rutinas_;
    forms::Table *table1_ = nullptr;
    forms::DataSource *source1_ = nullptr;
    forms::DBGrid *grid1_ = nullptr;
};

// The general parameter `campo` as text; empty when unreadable.
QString ParametroGeneral(TModuloDatos &datos, const QString &campo);

} // namespace co::works
