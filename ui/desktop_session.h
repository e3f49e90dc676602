#pragma once
// The desktop program's session: start, main window, login, company, the
// change of company, automatic programs and the idle limit. What the start
// shows goes through the typed message window.

#include "core/startup.h"
#include "ui/main_window.h"
#include "ui/message_dialog.h"
#include "works/works_data.h"

#include <QObject>
#include <QTimer>
#include <memory>

namespace co::ui {

class DesktopSession : public QObject {
public:
    DesktopSession(OpcionesArranque opciones, MessagePort *port = nullptr);
    ~DesktopSession() override;

    // Start, login and company; false when the program must end. The program
    // set by `AbrirAlArrancar` opens last, as its menu entry would.
    bool Arrancar();
    void AbrirAlArrancar(const QString &programa) { programaInicial_ = programa; }
    // Opens a program of the menu by its name (the caption the rights name),
    // under the user's rights; false, after the usual message, when refused or
    // when no entry has that name.
    bool AbrirPrograma(const QString &programa);
    TfOBRAMENU *ventana() const { return ventana_.get(); }
    Aplicacion &aplicacion() { return *aplicacion_; }

    // `CambioEmpresa1Click` with the company already picked. A company the user
    // may not enter, or without its record, is refused before anything closes;
    // a window that will not close (a pending record that cannot be posted)
    // stops the change with the old company in place.
    bool CambiarEmpresa(int codigo);
    // The windows a change of company closes: the general ones survive unless
    // they show company tables.
    QStringList VentanasDeLaEmpresa() const;
    // A failure no code caught, from an event sent to `receptor`: the session's
    // handler is told the table and the window of the screen it came from.
    void GestionarFallo(QObject *receptor, const QString &texto);

    // The works data module of the selected company; nullptr before one is.
    works::TMDObra *obra() const { return obra_.get(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Makes the company's data modules and applies the works settings to the menu.
    void crearModulosDatos();
    void finalizarControlesOcultos();
    void aplicarParametrosObra();
    // The user's activity log, when the INI file asks for it.
    void registrarActividad(const QString &ventana, const QString &accion);
    void comprobarInactividad();

    DialogMessages dialogs_;
    MessagePort *port_;
    std::unique_ptr<Aplicacion> aplicacion_;
    std::unique_ptr<TfOBRAMENU> ventana_;
    std::unique_ptr<works::TMDObra> obra_;
    QTimer inactividad_;
    qint64 instanteActividad_ = 0;
    QString programaInicial_;
};

// Takes `--abrir <program>` out of the program's arguments and returns the
// program; empty when not given. The rest of the arguments stay in place.
QString ExtraerProgramaAbrir(QStringList &argumentos);

} // namespace co::ui
