#include "core/ini_configuration.h"

#include "core/connection_words.h"
#include "core/ini_file.h"
#include "core/password_scramble.h"

#include <QDir>
#include <limits>

namespace co {
namespace {

class Reader {
public:
    Reader(const IniFile &ini, const QString &section) : ini_(ini), section_(section) {}

    QString text(const char *key, const QString &fallback) const {
        const std::optional<QString> v = ini_.value(section_, QLatin1String(key));
        return v && !v->isEmpty() ? *v : fallback;
    }
    void read(const char *key, QString &target) const { target = text(key, target); }
    void read(const char *key, bool &flag) const {
        flag = text(key, flag ? QStringLiteral("SI") : QStringLiteral("NO")) == u"SI";
    }

private:
    const IniFile &ini_;
    QString section_;
};

int pdfDelay(const QString &seconds) {
    bool ok = false;
    const int value = seconds.toInt(&ok);
    return ok && value >= 0 && value <= std::numeric_limits<int>::max() / 1000 ? value * 1000
                                                                               : 5000;
}

} // namespace

QString RutaArchivoINI(const QString &directorioAplicacion, const QString &parametroINI) {
    if (parametroINI.isEmpty())
        return QDir(directorioAplicacion).filePath(QLatin1String(kArchivoINIPorDefecto));
    if (parametroINI.contains(u'\\') || parametroINI.contains(u'/'))
        return parametroINI;
    return QDir(directorioAplicacion).filePath(parametroINI);
}

bool LeerConfiguracionINI(const QString &archivo, const QString &tipoBaseDatos, ConfiguracionINI &c,
                          QString *motivo, const QString &aspectoPorDefecto) {
    c = ConfiguracionINI{};
    c.AspectoAplicacion = aspectoPorDefecto;
    const IniFile ini = IniFile::load(archivo);
    if (ini.status() == IniFile::Status::Unreadable) {
        if (motivo)
            *motivo = QStringLiteral("No ha sido posible leer los parámetros del archivo ") +
                      archivo + QStringLiteral(". ") +
                      QStringLiteral("Se utilizarán los parámetros por defecto.");
        return false;
    }

    const Reader cfg(ini, kSeccionConfiguracion);
    cfg.read("VisualizarLogoEmpresaEnMenu", c.VisualizarLogoEmpresaEnMenu);
    cfg.read("NivelCapturaIncidencias", c.NivelCapturaIncidencias);
    cfg.read("DesactivarForzadoGrabacionDatosADisco", c.DesactivarForzadoGrabacionDatosADisco);
    cfg.read("TiempoForzarTerminacionAplicacion", c.TiempoForzarTerminacionAplicacion);
    cfg.read("ModoAdministradorActivado", c.ModoAdministradorActivado);
    cfg.read("ModoControlesNoVisiblesActivado", c.ModoControlesNoVisiblesActivado);
    cfg.read("RegistroAccesosActivado", c.RegistroAccesosActivado);
    cfg.read("ResponsabilidadDocumentalActivada", c.ResponsabilidadDocumentalActivada);
    cfg.read("AccesoWebLocalHost", c.AccesoWebLocalHost);
    cfg.read("DesactivarIndicesPorUsuarioEnBusquedas", c.DesactivarIndicesPorUsuarioEnBusquedas);
    cfg.read("DesactivarBusquedaSensibleALaPulsacion", c.DesactivarBusquedaSensibleALaPulsacion);
    if (tipoBaseDatos == u"Microsoft SQL Server")
        cfg.read("FormatoFechaSQL", c.FormatoFechaSQL);
    cfg.read("RegistrarAccesoATablas", c.RegistrarAccesoATablas);
    cfg.read("MensajeriaInternaActivada", c.MensajeriaInternaActivada);
    cfg.read("VisualizacionPreviaActivada", c.VisualizacionPreviaActivada);
    cfg.read("BusquedaAproximadaActivada", c.BusquedaAproximadaActivada);
    cfg.read("BDENetDir", c.BDENetDir);
    cfg.read("BDEPrivateDir", c.BDEPrivateDir);
    cfg.read("EnviarIncidenciasANARO", c.EnviarIncidenciasANARO);
    cfg.read("DesactivarDiagnostico", c.DesactivarDiagnostico);
    cfg.read("AutenticacionWindows", c.AutenticacionWindows);
    cfg.read("MonitorizarActividadUsuario", c.MonitorizarActividadUsuario);
    cfg.read("ArchivosTemporalesEnBD", c.ArchivosTemporalesEnBD);
    cfg.read("CarpetaFTPClienteWebNARO", c.CarpetaFTPClienteWebNARO);
    cfg.read("URLAccesoMenuWebDistribuidor", c.URLAccesoMenuWebDistribuidor);
    c.RetardoGrabacionPDF = pdfDelay(cfg.text("RetardoGrabacionPDF", QStringLiteral("5")));
    cfg.read("AspectoAplicacion", c.AspectoAplicacion);

    const Reader sql(ini, kSeccionMSSQL);
    sql.read("NombreIntercalacionMSSQL", c.NombreIntercalacionMSSQL);
    sql.read("NombreUsuarioInicioSesion", c.NombreUsuarioInicioSesion);
    DescifrarClave(sql.text("PasswordInicioSesion", {}), c.PasswordInicioSesion);
    sql.read("NivelAislamientoTransaccionesMSSQL", c.NivelAislamientoTransaccionesMSSQL);
    sql.read("ReplicacionBDActivada", c.ReplicacionBDActivada);

    Reader(ini, kSeccionReconstruccion).read("Tablas", c.Tablas);
    return true;
}

QString CarpetaControlBDE(const ConfiguracionINI &c, const QString &tipoBaseDatos) {
    const bool local = tipoBaseDatos.isEmpty() || tipoBaseDatos == kTipoEmbebido;
    if (c.BDENetDir == u"LOCAL" && !local)
        return QDir::tempPath();
    return c.BDENetDir;
}

QString FuenteAspecto(const QString &aspecto) {
    return aspecto.contains(QLatin1String("sol")) ? QStringLiteral("Segoe UI")
                                                  : QStringLiteral("MS Sans Serif");
}

} // namespace co
