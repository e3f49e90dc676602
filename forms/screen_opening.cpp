#include "forms/screen_opening.h"

#include "core/startup.h"
#include "core/translation.h"
#include "forms/currency_display.h"
#include "forms/searches.h"

namespace co::forms {

EntornoPantallas EntornoDeSesion(Aplicacion &aplicacion) {
    const ConfiguracionINI &cfg = aplicacion.configuracion();
    EntornoPantallas entorno{aplicacion.datos(), aplicacion.creador()};
    entorno.preparacion.modoAdministrador = cfg.ModoAdministradorActivado;
    entorno.preparacion.modoControlesNoVisibles = cfg.ModoControlesNoVisiblesActivado;
    entorno.preparacion.visualizacionPrevia = cfg.VisualizacionPreviaActivada;
    entorno.preparacion.registroAccesos = cfg.RegistroAccesosActivado;
    entorno.preparacion.responsabilidadDocumental = cfg.ResponsabilidadDocumentalActivada;
    entorno.preparacion.mensajeriaInterna = cfg.MensajeriaInternaActivada;
    // A session has a logged-in user, so rights always apply.
    entorno.preparacion.derechosActivos = true;
    entorno.preparacion.formatos.plantillas = aplicacion.plantillas();
    entorno.monedas = &aplicacion.monedas();
    entorno.traductor = aplicacion.traductor();
    return entorno;
}

bool AbrirPantalla(MaestroTabla &pantalla, const EntornoPantallas &entorno) {
    RutinasFormulario &rutinas = pantalla.Rutinas();
    PrepararForm(pantalla, rutinas, entorno.preparacion);
    rutinas.Origen.tabla = pantalla.Table1().TableName();
    if (entorno.monedas)
        PresentarMonedas(pantalla, *entorno.monedas, entorno.verOtraMoneda);
    AperturaTablas apertura(entorno.datos, entorno.creador);
    if (!pantalla.Abrir(apertura))
        return false;
    AplicarFormatosForm(pantalla, entorno.preparacion.formatos);
    if (entorno.busquedas)
        entorno.busquedas->Conectar(rutinas.Ventanas);
    if (entorno.traductor)
        TraducirPantalla(pantalla, *entorno.traductor);
    return true;
}

void TraducirPantalla(Form &pantalla, Translator &traductor) {
    if (traductor.ParametroIdioma().isEmpty())
        return;
    pantalla.Caption = traductor.TraducirTexto(pantalla.Caption);
    for (Component *c : pantalla.Components()) {
        c->Caption = traductor.TraducirTexto(c->Caption);
        c->Hint = traductor.TraducirTexto(c->Hint);
        // Lists are shown translated and stored as declared.
        if (auto *control = dynamic_cast<DataControl *>(c)) {
            control->ItemsMostrados.clear();
            for (const QString &item : std::as_const(control->Items))
                control->ItemsMostrados << traductor.TraducirTexto(item);
        }
        if (auto *grid = dynamic_cast<DBGrid *>(c))
            for (GridColumn &columna : grid->Columns) {
                columna.Title = traductor.TraducirTexto(columna.Title);
                columna.PickListMostrada.clear();
                for (const QString &valor : std::as_const(columna.PickList))
                    columna.PickListMostrada << traductor.TraducirTexto(valor);
            }
    }
}

void RegistroPantallas::Registrar(const QString &nombre, Fabrica fabrica) {
    const QString clave = nombre.toLower();
    if (!fabricas_.contains(clave))
        orden_ << nombre;
    fabricas_.insert(clave, std::move(fabrica));
}

bool RegistroPantallas::Contiene(const QString &nombre) const {
    return fabricas_.contains(nombre.toLower());
}

std::unique_ptr<MaestroTabla> RegistroPantallas::Crear(const QString &nombre,
                                                       TModuloDatos &datos) const {
    const auto it = fabricas_.constFind(nombre.toLower());
    return it == fabricas_.cend() ? nullptr : (*it)(datos);
}

std::unique_ptr<MaestroTabla> RegistroPantallas::Abrir(const QString &nombre,
                                                       const EntornoPantallas &entorno) const {
    auto pantalla = Crear(nombre, entorno.datos);
    if (!pantalla || !AbrirPantalla(*pantalla, entorno))
        return nullptr;
    return pantalla;
}

} // namespace co::forms
