#pragma once
// The machine's configuration file (`NAROWIN.INI` by default): where it is, and
// the keys of its sections "Configuración", "Microsoft SQL Server" and
// "Reconstrucción Automática de Tablas", read once at start.
//
// Rules: values are trimmed, as on Windows; a missing key, or one with an empty
// value, takes its default; a flag is on only for the exact text "SI" ("si" or
// "Si" switch nothing on, whatever the default).

#include <QString>

namespace co {

inline constexpr const char *kArchivoINIPorDefecto = "NAROWIN.INI";
inline const QString kSeccionConfiguracion = QStringLiteral("Configuración");
inline const QString kSeccionMSSQL = QStringLiteral("Microsoft SQL Server");
inline const QString kSeccionReconstruccion = QStringLiteral("Reconstrucción Automática de Tablas");

// `ArchivoINI` from the value of the `I=` argument: empty gives `NAROWIN.INI` in
// the application folder; a name without a folder separator ("\" or "/") is a file
// of the application folder; anything else is a path as given.
QString RutaArchivoINI(const QString &directorioAplicacion, const QString &parametroINI);

struct ConfiguracionINI {
    // Configuración
    bool VisualizarLogoEmpresaEnMenu = false;
    QString NivelCapturaIncidencias = QStringLiteral("Minimo");
    bool DesactivarForzadoGrabacionDatosADisco = false;
    QString TiempoForzarTerminacionAplicacion; // whole minutes; empty means never
    bool ModoAdministradorActivado = false;
    bool ModoControlesNoVisiblesActivado = false;
    bool RegistroAccesosActivado = false;
    bool ResponsabilidadDocumentalActivada = false;
    bool AccesoWebLocalHost = false;
    bool DesactivarIndicesPorUsuarioEnBusquedas = false;
    bool DesactivarBusquedaSensibleALaPulsacion = false;
    QString FormatoFechaSQL = QStringLiteral("mm/dd/yyyy");
    QString RegistrarAccesoATablas;
    bool MensajeriaInternaActivada = false;
    bool VisualizacionPreviaActivada = true;
    bool BusquedaAproximadaActivada = false;
    QString BDENetDir;
    QString BDEPrivateDir;
    bool EnviarIncidenciasANARO = false;
    bool DesactivarDiagnostico = false;
    bool AutenticacionWindows = false;
    bool MonitorizarActividadUsuario = false;
    bool ArchivosTemporalesEnBD = true;
    QString CarpetaFTPClienteWebNARO;
    QString URLAccesoMenuWebDistribuidor;
    int RetardoGrabacionPDF = 5000; // milliseconds
    QString AspectoAplicacion = QStringLiteral("sol+");

    // Microsoft SQL Server
    QString NombreIntercalacionMSSQL = QStringLiteral("SQL_Latin1_General_Cp1_CI_AI");
    QString NombreUsuarioInicioSesion;
    QString PasswordInicioSesion; // in clear; the file holds it scrambled
    QString NivelAislamientoTransaccionesMSSQL = QStringLiteral("READ UNCOMMITTED");
    bool ReplicacionBDActivada = false;

    // Reconstrucción Automática de Tablas
    QString Tablas;

    bool operator==(const ConfiguracionINI &) const = default;
};

// Reads every key of `archivo`. `FormatoFechaSQL` is read only when
// `tipoBaseDatos` is "Microsoft SQL Server"; `aspectoPorDefecto` is the look the
// main form records. A missing file gives the defaults silently. A file that
// cannot be read gives the defaults, returns false and sets `motivo` to the
// start-up warning.
bool LeerConfiguracionINI(const QString &archivo, const QString &tipoBaseDatos,
                          ConfiguracionINI &configuracion, QString *motivo = nullptr,
                          const QString &aspectoPorDefecto = QStringLiteral("sol+"));

// The shared control folder of the local engine: "LOCAL" stands for the system's
// temporary folder on a back-end other than "Paradox" (or empty).
QString CarpetaControlBDE(const ConfiguracionINI &configuracion, const QString &tipoBaseDatos);

// The interface font of a look: "Segoe UI" when it contains "sol", else "MS Sans Serif".
QString FuenteAspecto(const QString &aspecto);

} // namespace co
