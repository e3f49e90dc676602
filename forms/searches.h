#pragma once
// The entry routines of the search windows and the state they share, held by
// one object that the session owns: `BuscarEnTabla`, `BuscarEnTablaFiltrada`,
// `BuscarEnTablaPorDefecto`, `BuscarRegistro`, `BuscarRegistroFiltrado`,
// `BuscarPorAproximacion`, `BuscarPorAsociacion`.
//
// Results are the chosen record's key values in primary key order, "NULL"
// read as an empty value; nullopt when nothing was chosen. The windows are
// made once and reused; a search is not reentrant, which the modal run of the
// windows guarantees. The modal run belongs to the view (or to a test script):
// `EjecutorBusqueda` shows a window until it closes.

#include "forms/approximate_search.h"
#include "forms/form_windows.h"
#include "forms/search_window.h"
#include "forms/table.h"

#include <functional>
#include <memory>
#include <optional>

namespace co::forms {

class EjecutorBusqueda {
public:
    virtual ~EjecutorBusqueda() = default;
    // Runs the window modally: returns once it has closed.
    virtual void Mostrar(TfGENEBUSQ &ventana) = 0;
    virtual void Mostrar(TfGENEBUSA &ventana) = 0;
    // The selection window on a list of tables; empty when cancelled.
    virtual QString SeleccionarTabla(const QStringList &tablas, const QString &definicion) = 0;
};

class Busquedas {
public:
    using LectorOpciones = std::function<OpcionesBusqueda()>;
    Busquedas(TModuloDatos &datos, Messenger &mensajes, EjecutorBusqueda &ejecutor,
              LectorOpciones opciones);
    ~Busquedas();

    ResultadoBusqueda BuscarEnTabla(const QString &tabla, int indice = 0);
    ResultadoBusqueda BuscarEnTablaFiltrada(const QString &tabla, int indice,
                                            const QString &restriccion);
    ResultadoBusqueda BuscarEnTablaPorDefecto(const QString &tabla, int indice,
                                              const QString &restriccion,
                                              const QString &porDefecto);
    // Opens at the table's current key and moves it to the chosen record; a
    // failing locate says "¡No ha sido posible encontrar el dato solicitado!".
    ResultadoBusqueda BuscarRegistro(Table &tabla, int indice = 0);
    ResultadoBusqueda BuscarRegistroFiltrado(Table &tabla, int indice, const QString &restriccion);
    // The same, searching by one field of the table (a grid column that is not
    // the key): the field list starts on it and the text to find starts empty.
    ResultadoBusqueda BuscarRegistroPorCampo(Table &tabla, const QString &campo);
    // `TfGENEBUSA`: the key text of the chosen record, one value a line.
    std::optional<QString> BuscarPorAproximacion(const QString &tabla);
    // The association of a plain edit with a table through `BUSQUEDA.TXT`.
    void BuscarPorAsociacion(Component &edit);

    // The column list of the next search only.
    void FijarColumnas(const QString &columnas) { estado_.columnas = columnas; }

    // Points a screen's search hooks here (BuscarEnTabla, BuscarRegistro,
    // BuscarRegistroPorCampo, BusquedaAsociacion). The hooks must not outlive this object.
    void Conectar(VentanasFormulario &ventanas);

    TfGENEBUSQ &VentanaBusqueda() { return *busq_; }
    TfGENEBUSA &VentanaAproximacion() { return *busa_; }

private:
    ResultadoBusqueda buscar(const QString &tabla, int indice, const QString &restriccion,
                             const QString &texto);

    TModuloDatos &datos_;
    Messenger &mensajes_;
    EjecutorBusqueda &ejecutor_;
    LectorOpciones opciones_;
    EstadoBusqueda estado_;
    QString campoSiguiente_; // the field of the next search only
    std::unique_ptr<TfGENEBUSQ> busq_;
    std::unique_ptr<TfGENEBUSA> busa_;
};

// The label of a control in the association questions: the name without its
// lower-case prefix (or "Edit"), split into words.
QString EtiquetaControl(const QString &nombre);

} // namespace co::forms
