#pragma once
// The shared routines that every record screen calls or gets attached:
// `DespuesGrabarRegistro`, `AntesEliminarRegistro`, `ConfirmarCierreForm`,
// `ExisteClave`, `ExisteClaveTabla`, the key check of `CampoClaveExit` and
// `DBGrid1ColExit`, and the number and date checks. Messages go through the
// session's message port, in the system's words.
//
// The windows these routines open belong to other parts of the framework
// (user fields viewer, document responsibility, associated data); they are
// reached through the hooks below, and a hook not set is skipped.

#include "core/database.h"
#include "forms/dataset.h"
#include "forms/form.h"
#include "forms/form_windows.h"

#include <functional>

namespace co::forms {

class Table;

// The record screen families whose key check differs.
enum class FamiliaFormulario { MaestroRejilla, MaestroFicha };

// What the key check needs to know of the form at the moment the key is left.
struct ComprobacionClave {
    Form &form;
    Dataset &dataset;
    Field &clave;          // the key field
    Component *campoClave; // the key control (or grid) that gets the focus back
    FamiliaFormulario familia;
    bool claveCambiada = false;  // `ClaveCambiada` of the form
    Component *sender = nullptr; // the control the focus goes to
    // `ValidacionWinControl` of the form; false stops the check.
    std::function<bool(Component *)> validacion;
    // `GrabarDatos` of a grid master, run when the key is left for `pbConforme`.
    std::function<void()> grabarDatos;
};

class RutinasFormulario {
public:
    explicit RutinasFormulario(TModuloDatos &datos) : datos_(datos) {}

    // Hooks to the windows of other parts.
    std::function<void()> RegistrarActividad;
    std::function<void(Dataset &)> VisorCamposUsuario;
    std::function<void(Dataset &)> ResponsabilidadDocumental;
    std::function<bool(Table &)> EliminarDatosAsociados;

    // Windows of later parts opened by the key map.
    VentanasFormulario Ventanas;

    // Told to the session's failure handler with each failure of the form: its
    // main table (set at opening) and how the desktop closes its window.
    OrigenFallo Origen;

    // Settings read from the general parameters and the configuration.
    QString SolicitarCamposUsuario = QStringLiteral("NO");
    bool ResponsabilidadDocumentalActivada = false;
    bool ModoAdministrador = false;       // `ModoAdministradorActivado`
    bool RegistroAccesosActivado = false; // `RegistroAccesosActivado`
    bool MensajeriaInterna = false;       // internal messaging enabled
    bool DerechosUsuarioActivos = false;  // user rights are checked

    TModuloDatos &Datos() const { return datos_; }

    void DespuesGrabarRegistro(Dataset &dataset);
    // Raises the silent abort when the associated data could not be removed.
    void AntesEliminarRegistro(Dataset &dataset);
    // The close query: asks about pending records and cancels or posts them;
    // clears the form's CanClose when a post was refused (told in the system's words).
    void ConfirmarCierreForm(Form &form);

    // The record key as text: each key field's text followed by ";".
    QString TextoClave(Dataset &dataset);
    bool ExisteClave(Dataset &dataset, const QString &clave);
    bool ExisteClaveTabla(const QString &tabla, const QString &clave);

    // The key check; raises the silent abort after its message.
    void ComprobarClave(const ComprobacionClave &c);

    // A number read as an integer; on failure, with a label, "¡El valor de <label>
    // es incorrecto! Repita por favor".
    bool ComprobarNumero(const QString &texto, const QString &etiqueta);
    // A date after 1/1/1890; on failure, with a label, "¡La fecha de <label> es
    // incorrecta! Repita por favor".
    bool ComprobarFecha(const QString &texto, const QString &etiqueta);

    // Runs a user action as the window loop does: the silent abort ends it with
    // nothing shown, a refused operation shows the failure handler's message.
    // True when the action ran to its end.
    bool Ejecutar(const std::function<void()> &accion);

private:
    bool existe(const QString &tabla, const QString &clave);

    TModuloDatos &datos_;
};

} // namespace co::forms
