#include "reports/listing_environment.h"

#include "core/translation.h"

namespace co {

ReportEnvironment EntornoListado(Aplicacion &app, std::function<void()> ceder) {
    ReportEnvironment e;
    e.mensajes = &app.sesion().mensajes();
    e.parametros = ParametrosListado::Leer(app.datos());
    e.monedas = app.monedas();
    e.nombreEmpresa = app.sesion().NombreEmpresa;
    e.rutaLogotipo = app.ArchivoLogotipo;
    if (Translator *t = app.traductor())
        e.traducir = [t](const QString &texto) { return t->TraducirTexto(texto); };
    e.ceder = std::move(ceder);
    return e;
}

} // namespace co
