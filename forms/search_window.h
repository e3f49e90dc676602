#pragma once
// `TfGENEBUSQ`, "Buscar": the search on one table by a chosen field list, with
// the match modes Aproximada (equalities then a lower bound), Parcial (by
// start) and Fonética (anywhere). No widget here: the view draws the controls
// and hands keys and clicks over; a test drives it the same way.
//
// Controls: DatoABuscar, ListaCamposBusqueda, NumeroMaximoRegistros,
// BusquedaAproximada, BusquedaParcial, BusquedaFonetica, ResultadosOrdenados,
// MostrarCamposMemo, pbPersonalizarBusqueda, PanelPersonalizarBusqueda,
// StatusBar1, pbBuscar, pbConforme, pbCancelar, DBGrid1 over DataSource1 over
// ClientDataSet1 (the rows read, held in memory: no cursor stays open), the grid's
// pop-up items LetraPequena, FiltrarRegistrosporValorIguala,
// FiltrarRegistrosporValorDesde, FiltrarRegistrosporValorHasta,
// FiltrarRegistrosporValoresDesdeHasta1, CancelarFiltros1, ListadoProgramable1.
//
// Row limit: the limit control is enabled on the server back-end only. On the
// embedded back-end it stays disabled at its value, and that value is still
// applied: a search from a key value reads its page of rows, not the table.
// "Ilimitado" reads the answer in packets of 100 rows as the grid moves on,
// ordered to the end by the table's key; other limits read it all at once.

#include "core/database.h"
#include "core/hidden_controls.h"
#include "forms/display_formats.h"
#include "forms/form.h"
#include "forms/key_map.h"
#include "forms/query_dataset.h"
#include "forms/search_text.h"

#include <functional>
#include <optional>

namespace co::forms {

// What the searches read from the configuration and the user.
struct OpcionesBusqueda {
    QString usuario;
    bool opcionesPorUsuario = true;           // user rights in use: options are kept per user
    bool desactivarIndicesPorUsuario = false; // `DesactivarIndicesPorUsuarioEnBusquedas`
    bool busquedaAproximadaActivada = false;  // `BusquedaAproximadaActivada`
    bool desactivarPuntoPorComa = false;      // `DesactivarPuntoPorComaDecimal`
    FormatosNumericos formatos;
    ControlesNoVisibles ocultos;
    QString carpetaPrograma; // where `BUSQUEDA.TXT` lies
    QString rutaEstructuras; // DATABASE.TXT, for the list of tables
};

// The state the entry routines hand to a window for one search.
struct EstadoBusqueda {
    QString tabla;
    int indice = 0;
    QString textoInicial;
    QString restriccion;
    QString columnas; // emptied after every use
    QString campo;    // a field searched by instead of the index, when the list has it
};

// The key of the current row as the search windows return it: one value a
// line, in key order, over the key fields the answer holds. An empty value is
// "NULL": only the last one with `soloUltimoNulo`, every one otherwise.
QString TextoClaveFila(const Dataset &filas, const QStringList &clave, bool soloUltimoNulo);

// Column titles, hidden columns and display formats of a search grid's answer.
void PrepararColumnasBusqueda(DBGrid &grid, const QString &claseForm, const OpcionesBusqueda &o);
// Runs a search statement into the rows shown by `grid` and prepares its columns;
// a failing statement is silent (false) and leaves no rows.
bool AbrirResultadosBusqueda(Query &filas, const QString &sql, DBGrid &grid,
                             const QString &claseForm, const OpcionesBusqueda &o);

class TfGENEBUSQ : public Form {
public:
    TfGENEBUSQ(TModuloDatos &datos, Messenger &mensajes);
    ~TfGENEBUSQ() override;

    // Opens the window on a search: caption, connection, field list, limit, and
    // the automatic first search when the rules call for it.
    void Abrir(const EstadoBusqueda &estado, const OpcionesBusqueda &opciones);

    // `pbBuscarClick`; `automatica` is the search at opening (no message on an
    // empty answer).
    void Buscar(bool automatica = false);
    // `pbConformeClick`: the key of the current row; closes accepted or cancelled.
    void Conforme();
    void Cancelar();
    // The window's keys; true when consumed.
    bool ProcesarTecla(const Tecla &tecla);
    // A typed character: the keypad's "." in `DatoABuscar` becomes ",".
    QChar ProcesarCaracter(QChar caracter, const Tecla &tecla);

    // Picks the n-th (0-based) item of the field list.
    void ElegirCampos(int n);
    void ElegirModo(ModoBusqueda modo);
    ModoBusqueda Modo() const;
    void CambiarMostrarMemos(bool mostrar);
    // `LetraPequena`: column widths halved (rounded) and back; the view draws the
    // font two points smaller while it is checked.
    void CambiarLetraPequena();
    QString TextoEstado() const { return StatusBar1().Caption; }
    void ActualizarEstado();

    // The statement of the last search, as sent; empty before any.
    const QString &UltimaSentencia() const { return ultimaSentencia_; }
    // Key values of the accepted record, one per line; nullopt when cancelled.
    const std::optional<QString> &Resultado() const { return resultado_; }
    bool Abierta() const { return abierta_; }

    // The quick listing of the rows in memory (title, context); skipped when unset.
    std::function<void(Dataset &, const QString &, const QString &)> ListadoRapido;
    // Ctrl+L on the grid: the font dialog of the view; skipped when unset.
    std::function<void(DBGrid &)> DialogoFuente;

    Component &DatoABuscar() const { return *dato_; }
    DataControl &ListaCamposBusqueda() const { return *lista_; }
    DataControl &NumeroMaximoRegistros() const { return *limite_; }
    Component &StatusBar1() const { return *barra_; }
    Component &PanelPersonalizarBusqueda() const { return *panel_; }
    Query &ClientDataSet1() const { return *filas_; }
    DBGrid &DBGrid1() const { return *grid_; }

private:
    void declarar();
    void rellenarListaCampos();
    QString columnasBusqueda();
    void quitarFiltros();
    void guardarOpciones();
    void guardarEntrada(const QString &clave, const QString &valor);
    void filtrar(int tipo);
    void cerrar(std::optional<QString> resultado);
    bool general() const;

    TModuloDatos &datos_;
    Messenger &mensajes_;
    EstadoBusqueda estado_;
    OpcionesBusqueda opciones_;
    QString columnasSinMemos_;
    QHash<int, QString> indicesLista_; // index number -> its item of the field list
    QString ultimaSentencia_;
    std::optional<QString> resultado_;
    bool abierta_ = false;
    bool modoRellenando_ = false;
    Component *dato_ = nullptr;
    DataControl *lista_ = nullptr;
    DataControl *limite_ = nullptr;
    Component *barra_ = nullptr;
    Component *panel_ = nullptr;
    Query *filas_ = nullptr;
    DBGrid *grid_ = nullptr;
};

} // namespace co::forms
