#include "ui/screens.h"

#include "core/hidden_controls.h"
#include "core/session.h"
#include "forms/general_screens.h"
#include "ui/form_view.h"
#include "ui/search_dialog.h"

#include <QCoreApplication>
#include <memory>

namespace co::ui {

namespace {

forms::OpcionesBusqueda opcionesBusqueda(Aplicacion &aplicacion) {
    forms::OpcionesBusqueda o;
    const ConfiguracionINI &c = aplicacion.configuracion();
    o.usuario = aplicacion.sesion().CodigoUsuario;
    o.desactivarIndicesPorUsuario = c.DesactivarIndicesPorUsuarioEnBusquedas;
    o.busquedaAproximadaActivada = c.BusquedaAproximadaActivada;
    o.ocultos =
        ControlesNoVisibles::Leer(aplicacion.datos(), o.usuario, c.ModoAdministradorActivado,
                                  c.ModoControlesNoVisiblesActivado);
    o.carpetaPrograma = QCoreApplication::applicationDirPath();
    o.rutaEstructuras = aplicacion.creador().RutaEstructuras();
    return o;
}

} // namespace

forms::Busquedas &RegistrarPantallas(TfOBRAMENU &ventana, Aplicacion &aplicacion,
                                     works::SesionObra obra) {
    auto *escritorio = new BusquedasEscritorio(
        aplicacion.datos(), [&aplicacion] { return opcionesBusqueda(aplicacion); }, &ventana);
    forms::Busquedas &busquedas = escritorio->busquedas();
    auto registro = std::make_shared<forms::RegistroPantallas>();
    // After a save of the general parameters the main window's currency follows too.
    forms::SesionGeneral general = forms::SesionGeneralDe(aplicacion);
    general.parametrosGrabados = [releer = general.parametrosGrabados, &ventana, &aplicacion] {
        releer();
        ventana.setMonedaBaseEsEuro(aplicacion.monedas().MonedaBaseEsEuro);
    };
    forms::RegistrarPantallasGenerales(*registro, std::move(general));
    works::RegistrarPantallasObras(*registro, std::move(obra));
    for (const QString &nombre : registro->Nombres())
        ventana.RegistrarPantalla(
            nombre,
            [registro, nombre, &ventana, &aplicacion, &busquedas](QWidget *parent) -> QWidget * {
                forms::EntornoPantallas entorno = forms::EntornoDeSesion(aplicacion);
                entorno.verOtraMoneda = [&ventana] { return ventana.VerOtraMoneda(); };
                entorno.busquedas = &busquedas;
                std::unique_ptr<forms::MaestroTabla> pantalla = registro->Abrir(nombre, entorno);
                if (!pantalla)
                    return nullptr;
                forms::RutinasFormulario &rutinas = pantalla->Rutinas();
                return new FormView(std::move(pantalla), rutinas, parent);
            });
    return busquedas;
}

} // namespace co::ui
