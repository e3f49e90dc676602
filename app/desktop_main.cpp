// control-obras: the desktop program.
//
// The installation is the folder named by CONTROL_OBRAS_DIR, else the
// program's own folder; the command line takes U=, I= and T=.

#include "core/command_line.h"
#include "core/data_folder.h"
#include "ui/application.h"
#include "ui/desktop_session.h"

#include <QApplication>

int main(int argc, char **argv) {
    co::ui::ControlObrasApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Control de Obras"));
    QApplication::setApplicationVersion(QStringLiteral(CO_VERSION));
    co::OpcionesArranque opciones;
    const QString dir = qEnvironmentVariable("CONTROL_OBRAS_DIR");
    opciones.carpetaInstalacion = dir.isEmpty() ? QApplication::applicationDirPath() : dir;
    if (!dir.isEmpty())
        opciones.origenCarpeta = QStringLiteral("CONTROL_OBRAS_DIR");
    opciones.carpetaAplicacion = opciones.carpetaInstalacion;
    opciones.carpetaDatos = co::CarpetaDatosAplicacion();
    opciones.ejecutable = QApplication::applicationFilePath();
    QStringList argumentos = app.arguments();
    const QString abrir = co::ui::ExtraerProgramaAbrir(argumentos);
    opciones.linea = co::LeerLineaComandos(argumentos);
    co::ui::DesktopSession session(opciones);
    session.AbrirAlArrancar(abrir);
    if (!session.Arrancar())
        return 0;
    // An "E" message ends the application, as the failure handler expects.
    session.aplicacion().sesion().mensajes().setTerminator([] { QApplication::exit(1); });
    return QApplication::exec();
}
