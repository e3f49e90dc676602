#include "core/session_failures.h"

#include "core/failure_handler.h"
#include "core/ini_configuration.h"
#include "core/ini_file.h"
#include "core/session.h"

namespace co {

void ManejadorFallos::Gestionar(const QString &texto, const OrigenFallo &origen) {
    const FailureDecision decision = GestionExcepciones(texto);
    if (sesion_.TransaccionActiva() && decision.kind != QStringLiteral("IGNORAR"))
        sesion_.FalloTransaccion = true;
    FailureHooks hooks;
    hooks.restoreCursor = cursorNormal;
    hooks.busyCursor = cursorEspera;
    hooks.closeSender = origen.cerrarFormulario;
    if (!origen.tabla.isEmpty())
        hooks.rebuild = [&] { AnotarReconstruccion(sesion_, origen.tabla, texto); };
    if (nivelIncidencias == u"Maximo")
        hooks.registerIncident = [](const FailureDecision &d) {
            RegistrarIncidencia(d.kind, d.message);
        };
    MostrarFallo(decision, sesion_.mensajes(), hooks);
}

void AnotarReconstruccion(TfGENEINIC &sesion, const QString &tabla, const QString &fallo) {
    const QString upper = fallo.toUpper();
    if (sesion.backend() != Backend::SQLite || sesion.ArchivoINI.isEmpty() || tabla.isEmpty() ||
        !(upper.contains(QStringLiteral("INDEX")) || upper.contains(QStringLiteral("CORRUPT"))))
        return;
    const IniFile ini = IniFile::load(sesion.ArchivoINI);
    QStringList tablas = ini.value(kSeccionReconstruccion, QStringLiteral("Tablas"))
                             .value_or(QString())
                             .split(u',', Qt::SkipEmptyParts);
    // Always a multi-company session: the table goes with its company's folder.
    tablas << sesion.PathBaseDatos + u'\\' + tabla;
    tablas.removeDuplicates();
    tablas.sort();
    EscribirClaveINI(sesion.ArchivoINI, kSeccionReconstruccion, QStringLiteral("Tablas"),
                     tablas.join(u','));
}

} // namespace co
