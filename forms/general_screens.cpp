#include "forms/general_screens.h"

#include "core/startup.h"
#include "forms/general_parameters_screen.h"

namespace co::forms {

SesionGeneral SesionGeneralDe(Aplicacion &aplicacion) {
    return {[&aplicacion] { aplicacion.ParamGeneralesAfterPost(); }};
}

void RegistrarPantallasGenerales(RegistroPantallas &registro, SesionGeneral sesion) {
    registro.Registrar(QStringLiteral("fGENEPARA"), [sesion](TModuloDatos &datos) {
        auto pantalla = std::make_unique<TfGENEPARA>(datos);
        pantalla->AlGrabar = sesion.parametrosGrabados;
        return std::unique_ptr<MaestroTabla>(std::move(pantalla));
    });
}

} // namespace co::forms
