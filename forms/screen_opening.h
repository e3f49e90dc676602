#pragma once
// Opening a record screen, whoever draws it: the desktop program, the command
// line and the tests all open screens here, so they all get the same screen.
// In order: the works of `PrepararForm` (formats, rights, shared handlers,
// hidden controls), the two-currency display, the tables (made when missing),
// the display formats again on the fields the open made (the company's number
// templates), the search windows connected, the texts translated.
//
// `RegistroPantallas` holds the screens by form name; each subsystem adds its
// own (see its screens.h) and the program opens them by name.

#include "core/currency.h"
#include "core/table_creation.h"
#include "forms/form_preparation.h"
#include "forms/record_master.h"

#include <QHash>
#include <QStringList>
#include <functional>
#include <memory>

namespace co {
class Aplicacion;
class Translator;
} // namespace co

namespace co::forms {

class Busquedas;

struct EntornoPantallas {
    TModuloDatos &datos;
    CreadorTablas &creador;
    OpcionesPreparacion preparacion = {};
    // The second currency; none shows every amount as it is stored.
    const CurrencyValues *monedas = nullptr;
    // Whether the main window's other-currency entry is checked now.
    std::function<bool()> verOtraMoneda = {};
    // The search windows of the session; none leaves searches to the screen.
    Busquedas *busquedas = nullptr;
    // The session's translator; none leaves the texts in Spanish.
    Translator *traductor = nullptr;
};

// What a screen opened in a logged-in session gets: its tables, the user's
// rights and hidden controls, the company's number templates, the currencies
// and the translation.
EntornoPantallas EntornoDeSesion(Aplicacion &aplicacion);

// Prepares and opens `pantalla`; false when its tables could not be opened
// (the failure was told).
bool AbrirPantalla(MaestroTabla &pantalla, const EntornoPantallas &entorno);

// Translates the caption of the form and of every component, hints and grid
// column titles. The permitted values of lists are data and stay as stored;
// their shown texts (`ItemsMostrados`, `PickListMostrada`) are translated.
void TraducirPantalla(Form &pantalla, Translator &traductor);

class RegistroPantallas {
public:
    using Fabrica = std::function<std::unique_ptr<MaestroTabla>(TModuloDatos &)>;

    // Adds or replaces the screen of form name `nombre` ("fOBRAUNID").
    void Registrar(const QString &nombre, Fabrica fabrica);
    template <class Pantalla> void Registrar(const QString &nombre) {
        Registrar(nombre, [](TModuloDatos &d) { return std::make_unique<Pantalla>(d); });
    }
    bool Contiene(const QString &nombre) const;
    // The form names in the order registered.
    QStringList Nombres() const { return orden_; }
    // Makes the screen; nullptr for a name not registered.
    std::unique_ptr<MaestroTabla> Crear(const QString &nombre, TModuloDatos &datos) const;
    // Makes and opens the screen; nullptr for an unknown name or a screen
    // whose tables could not be opened.
    std::unique_ptr<MaestroTabla> Abrir(const QString &nombre,
                                        const EntornoPantallas &entorno) const;

private:
    QHash<QString, Fabrica> fabricas_; // by lower-case name
    QStringList orden_;
};

} // namespace co::forms
