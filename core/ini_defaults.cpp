#include "core/ini_defaults.h"

#include "core/ini_configuration.h"
#include "core/password_scramble.h"
#include "core/server_login.h"

#include <QFileInfo>
#include <QSaveFile>

namespace co {

QString TextoINIInicial(const QString &claveServidor) {
    QString cifrada;
    if (!claveServidor.isEmpty() && !CifrarClave(claveServidor, cifrada))
        return {};
    const QString configuracion = QStringLiteral("VisualizarLogoEmpresaEnMenu=NO\n"
                                                 "NivelCapturaIncidencias=Minimo\n"
                                                 "DesactivarForzadoGrabacionDatosADisco=NO\n"
                                                 "TiempoForzarTerminacionAplicacion=\n"
                                                 "ModoAdministradorActivado=NO\n"
                                                 "ModoControlesNoVisiblesActivado=NO\n"
                                                 "RegistroAccesosActivado=NO\n"
                                                 "ResponsabilidadDocumentalActivada=NO\n"
                                                 "AccesoWebLocalHost=NO\n"
                                                 "DesactivarIndicesPorUsuarioEnBusquedas=NO\n"
                                                 "DesactivarBusquedaSensibleALaPulsacion=NO\n"
                                                 "FormatoFechaSQL=\n"
                                                 "RegistrarAccesoATablas=\n"
                                                 "MensajeriaInternaActivada=NO\n"
                                                 "VisualizacionPreviaActivada=SI\n"
                                                 "BusquedaAproximadaActivada=NO\n"
                                                 "BDENetDir=\n"
                                                 "BDEPrivateDir=\n"
                                                 "EnviarIncidenciasANARO=NO\n"
                                                 "DesactivarDiagnostico=NO\n"
                                                 "AutenticacionWindows=NO\n"
                                                 "MonitorizarActividadUsuario=NO\n"
                                                 "ArchivosTemporalesEnBD=SI\n"
                                                 "CarpetaFTPClienteWebNARO=\n"
                                                 "URLAccesoMenuWebDistribuidor=\n"
                                                 "RetardoGrabacionPDF=5\n"
                                                 "AspectoAplicacion=sol+\n");
    const QString servidor =
        QStringLiteral("NombreIntercalacionMSSQL=SQL_Latin1_General_Cp1_CI_AI\n"
                       "NombreUsuarioInicioSesion=\n"
                       "PasswordInicioSesion=%1\n"
                       "NivelAislamientoTransaccionesMSSQL=READ UNCOMMITTED\n"
                       "ReplicacionBDActivada=NO\n")
            .arg(cifrada);
    return u'[' + kSeccionConfiguracion + QStringLiteral("]\n") + configuracion +
           QStringLiteral("\n[") + kSeccionMSSQL + QStringLiteral("]\n") + servidor +
           QStringLiteral("\n[") + kSeccionReconstruccion + QStringLiteral("]\nTablas=\n");
}

bool CrearArchivoINI(const QString &archivo, const QString &claveServidor, QString *motivo) {
    if (QFileInfo::exists(archivo))
        return claveServidor.isEmpty() || GuardarClaveServidor(archivo, claveServidor, motivo);
    const QString texto = TextoINIInicial(claveServidor);
    if (texto.isEmpty()) {
        if (motivo)
            *motivo = QStringLiteral(
                          "La clave tiene caracteres que no se pueden guardar en el archivo %1.")
                          .arg(archivo);
        return false;
    }
    QSaveFile file(archivo);
    const QByteArray bytes = texto.toUtf8();
    // Readable by its owner alone when it holds a password, scrambled or not.
    if (!file.open(QIODevice::WriteOnly) ||
        (!claveServidor.isEmpty() &&
         !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)) ||
        file.write(bytes) != bytes.size() || !file.commit()) {
        if (motivo)
            *motivo = QStringLiteral("No ha sido posible escribir el archivo %1: %2.")
                          .arg(archivo, file.errorString());
        return false;
    }
    return true;
}

} // namespace co
