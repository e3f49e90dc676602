#pragma once
// What the one-table masters share, whatever draws their records: `Table1` on
// the screen's table, `DataSource1`, the buttons and the "Ficha" menu, and the
// handlers bound by the names of the record screens (navigation, `AgregarClick`,
// `Eliminar1Click`, `pbConformeClick` / `GrabarDatos`, `pbCancelarClick`, the
// button switch on `DataSource1StateChange`, `Table1NewRecord`,
// `Table1CalcFields`, `Table1BeforePost`, `Table1AfterPost`,
// `Table1BeforeDelete`, `FormCloseQuery`, `ListadoProgramable1Click` on
// `Table1`), and the rest of the "Ficha" menu: `Buscar1Click` (the record
// search), `EliminacionMultiple1Click`, `pbRefrescarClick` ("&Refrescar"),
// `FormatoOriginal1Click` / `APaginaCompleta1Click` (an image of the form on
// paper); the filter window and the copy to other companies say they are not
// available yet.
//
// "Agregar con Duplicación": while the `Agregar` item's caption says so, a new
// record copies every non-key field of the record that was current when the
// insertion began (`Table1BeforeInsert` keeps its key, `Table1NewRecord` runs
// `DuplicarRegistro`), before the screen's own defaults.
//
// Ctrl+H puts back each grid's columns as they were once the tables opened
// (`<Grid>RestaurarColumnas`). A family (grid, single record) derives from it and adds how the
// record is shown and how its key is checked; a screen derives from the family
// and overrides only its own rules.
//
// A handler set by a derived constructor replaces the one of the same name set
// here. A derived class that adds datasets calls `ConectarEventos()` again.

#include "forms/form.h"
#include "forms/maintenance_routines.h"
#include "forms/table.h"

#include <QList>
#include <QString>
#include <memory>

namespace co::forms {

// A push button or menu item: component name and caption.
struct Boton {
    QString nombre;
    QString titulo;
};

// The buttons of a record screen: add, delete, confirm, cancel, the four
// moves and exit.
QList<Boton> BotonesRegistro();
// The buttons of a screen that edits one record and closes: pbGrabar, pbCancelar.
QList<Boton> BotonesDialogo();
// The caption of the "Ficha" menu and its items, in order.
QString TituloMenuFicha();
QList<Boton> MenuFicha();
QStringList ElementosMenuFicha();

class MaestroTabla : public Form {
public:
    MaestroTabla(TModuloDatos &datos, const QString &nombre, const QString &titulo,
                 const QString &tabla, FamiliaFormulario familia,
                 const QList<Boton> &botones = BotonesRegistro(),
                 const QList<Boton> &menu = MenuFicha());
    // Closes the tables (a held record lock goes with them).
    ~MaestroTabla() override;

    TModuloDatos &Datos() const { return datos_; }
    RutinasFormulario &Rutinas() { return rutinas_; }
    Table &Table1() const { return *table1_; }
    DataSource &DataSource1() const { return *source1_; }

    // Opens the form's tables through `AbrirTablasForm`, then `DespuesAbrir`;
    // false when they could not be opened.
    bool Abrir(AperturaTablas &apertura);

    // Message on a failed post of an edited record; screens may give their own.
    QString TextoModificacionFallida;

    // A code of `Table1` that must exist in `tabla` (an empty code passes):
    // checked on leaving its control or grid column and on post, before the
    // screen's own `ValidacionWinControl`; `mensaje` is told and the record
    // stays pending.
    void DeclararExistencia(const QString &campo, const QString &tabla, const QString &mensaje);
    // The description of a code: each calculated field of `campos` (made
    // here, `ancho` long) takes, on every record of `dataset`, the field of
    // the row of `tabla` keyed by the code in `campoCodigo`; empty for an
    // empty or unknown code.
    struct CampoDescripcion {
        QString campoTabla; // field of `tabla`, e.g. "Nombre"
        QString calculado;  // calculated field of the dataset, e.g. "DescripcionProveedor"
        int ancho = 40;
    };
    void DeclararDescripcion(Dataset &dataset, const QString &campoCodigo, const QString &tabla,
                             const QList<CampoDescripcion> &campos);

protected:
    // Defaults of a new record (`Table1NewRecord`).
    virtual void ValoresIniciales() {}
    // The form's validator for the control or column left; nullptr checks all
    // (on post). False after its message.
    virtual bool ValidacionWinControl(Component *sender);
    // The declared existence checks that concern `sender`, then the validator.
    bool Validar(Component *sender);
    // Calculated fields (`Table1CalcFields`).
    virtual void CalcularCampos() {}
    // Runs in `Table1BeforePost` after the checks: pending child rows.
    virtual void AntesGrabar() {}
    // Runs once the tables are open (a single-row table gets its row here).
    virtual void DespuesAbrir() {}
    // The family's check of every permitted-values list on post; aborts after
    // its message.
    virtual void ComprobarListasAlGrabar() {}
    // A grid column with permitted values accepts only one of them while the
    // grid's dataset is pending; aborts after the message with that column
    // selected. Nothing is checked with the focus on pbCancelar. A negative
    // column checks them all.
    void ComprobarColumnasLista(DBGrid &grid, int columna = -1);
    // The programmable listing of `dataset`, when the window is there.
    void ListadoProgramable(Dataset &dataset);

    // `GrabarDatos`: posts; a refusal is told, cancels and aborts.
    void GrabarDatos();
    // Makes the screen a numbered document on `campo` (numbered_document.h);
    // a screen of any family calls it in its constructor.
    void NumerarDocumento(const QString &campo) { campoNumero_ = campo; }
    FamiliaFormulario Familia() const { return familia_; }
    Messenger &Mensajes() const;

private:
    TModuloDatos &datos_;
    FamiliaFormulario familia_;
    RutinasFormulario rutinas_;
    Table *table1_ = nullptr;
    DataSource *source1_ = nullptr;
    QString campoNumero_;
    QString claveAnterior_; // `ClaveAnterior`: the record current when insertion began
    struct Existencia {
        QString campo;
        QString tabla;
        QString mensaje;
    };
    QList<Existencia> existencias_;
};

// The general parameter `campo` as text; empty when unreadable.
QString ParametroGeneral(TModuloDatos &datos, const QString &campo);

} // namespace co::forms
