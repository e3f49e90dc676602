// control-obras: the desktop program.
//
// The installation is the folder named by CONTROL_OBRAS_DIR, else the
// program's own folder; the command line takes U=, I= and T=.

#include "core/command_line.h"
#include "core/data_folder.h"
#include "ui/desktop_session.h"

#include <QApplication>

int main(int argc, char **argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Control de Obras"));
    QApplication::setApplicationVersion(QStringLiteral(CO_VERSION));
    co::OpcionesArranque opciones;
    const QString dir = qEnvironmentVariable("CONTROL_OBRAS_DIR");
    opciones.carpetaInstalacion = dir.isEmpty() ? QApplication::applicationDirPath() : dir;
    opciones.carpetaAplicacion = opciones.carpetaInstalacion;
    opciones.carpetaDatos = co::CarpetaDatosAplicacion();
    opciones.linea = co::LeerLineaComandos(app.arguments());
    co::ui::DesktopSession session(opciones);
    if (!session.Arrancar())
        return 0;
    return QApplication::exec();
}
