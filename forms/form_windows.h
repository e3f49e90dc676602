#pragma once
// The windows the key map and the shared routines open that belong to other
// parts of the framework (search, viewers, grid layout, calculator, printed
// forms, attachments). Each is a hook the view or later work sets; a key or
// menu item whose hook is not set says that the function is not available yet.

#include "core/access_history.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace co::forms {

class Component;
class Dataset;
class DBGrid;
class Table;

// The key values of the record chosen in a search window, in primary key
// order; nullopt when nothing was chosen.
using ResultadoBusqueda = std::optional<QStringList>;

struct VentanasFormulario {
    std::function<void(Dataset &)> VisorCampos;          // Ctrl+Z
    std::function<void(DBGrid &)> ConfigurarRejilla;     // Ctrl+G
    std::function<void(Component &)> DialogoFuente;      // Ctrl+L
    std::function<void(Component &)> BusquedaAsociacion; // F2 and double click on a plain edit
    // The pop-up calculator on a value; nullopt when cancelled.
    std::function<std::optional<double>(double)> Calculadora;
    // The search window on a table, with a fixed restriction (may be empty).
    std::function<ResultadoBusqueda(const QString &tabla, const QString &restriccion)>
        BuscarEnTabla;
    // The search window on a table's own records; moves it to the chosen one.
    std::function<void(Table &)> BuscarRegistro;
    // The same by one of its fields, for a grid column that is not the key.
    std::function<void(Table &, const QString &campo)> BuscarRegistroPorCampo;
    // The template form on a coded text of kind "Plantilla"; the text it made.
    std::function<QString(const QString &codigo, const QString &texto)> Plantilla;
    // `fGENEIMPR` in mode "Contexto" on a printed form code.
    std::function<void(const QString &codigo)> ConfiguracionImpresos;
    std::function<void(const HistorialAccesos &)> VisorHistorial; // Ctrl+A
    // `TfGENECPRO`, the programmable listing of an open dataset.
    std::function<void(Dataset &)> ListadoProgramable;
    std::function<void()> Mensajeria; // Ctrl+M
    // The multi-line text window of a memo under `titulo`; nullopt when cancelled.
    std::function<std::optional<QString>(const QString &titulo, const QString &texto)> EditorMemo;
    // The printer dialog, then an image of the form: proportional, or fitted
    // to the page ("Formato Original" / "A Página Completa").
    std::function<void(bool paginaCompleta)> ImprimirFormulario;
    // True while the attachment window `fGENEDOCE` is open, so it follows the record.
    std::function<bool()> DocumentosAbiertos;
    // The control under the mouse, for F8; the focused control when not set.
    std::function<Component *()> ControlBajoRaton;
};

} // namespace co::forms
