#pragma once
// The start of a session, shared by the desktop program and the command line:
// installation parameters, INI file, instance number, connections, the tables
// every start needs, the first user, login and the choice of company.
// Each refusal is told through the message port in the system's words.

#include "core/command_line.h"
#include "core/currency.h"
#include "core/database.h"
#include "core/ini_configuration.h"
#include "core/instance_number.h"
#include "core/login.h"
#include "core/materialised_query.h"
#include "core/number_templates.h"
#include "core/session.h"
#include "core/table_creation.h"
#include "core/temporary_cleanup.h"
#include "core/translation.h"

#include <QString>
#include <memory>

namespace co {

struct OpcionesArranque {
    QString carpetaInstalacion;  // where INSTALACION is
    // What named that folder, for the message when it does not exist
    // ("CONTROL_OBRAS_DIR", "--dir"); empty: the program's own folder.
    QString origenCarpeta;
    QString carpetaAplicacion;   // where the INI file is looked for
    QString carpetaDatos;        // DATABASE.TXT and the other data files
    QString ejecutable;          // the program's file, for its version date
    LineaComandos linea;
    // The command line refuses a folder without INSTALACION; the desktop takes
    // the defaults after its message.
    bool instalacionObligatoria = false;
    // Makes the general data when missing: `init` alone, the one way a new
    // installation comes to be. Otherwise missing data stop the start.
    bool crearInstalacion = false;
};

class Aplicacion {
public:
    Aplicacion(OpcionesArranque opciones, MessagePort *port);
    ~Aplicacion();

    // Everything up to the login. False when the start cannot go on.
    bool Iniciar();
    // `IdentificarUsuario` and the access to the program. `preguntar` false is the
    // command line's: the code is given and a password only asked when there is one.
    bool Identificar();
    // The user's first company, 0 when none.
    int EmpresaInicial();
    // The user may enter the company and it has its record in `EMPRESA`; a
    // code without a record is never connected, so nothing is made for it.
    bool EmpresaAccesible(int codigo);
    // `SeleccionarEmpresa`: rights, the company's record, the connection, and
    // what the company's data module reads of its general parameters: the
    // currency values and the number templates.
    bool SeleccionarEmpresa(int codigo);
    // `ParamGeneralesAfterPost`: after a post of the general parameters the
    // currency values are read again at once; the templates wait for the next
    // choice of company.
    void ParamGeneralesAfterPost();

    TfGENEINIC &sesion() { return *sesion_; }
    TModuloDatos &datos() { return *datos_; }
    CreadorTablas &creador() { return *creador_; }
    // The session's translator; nullptr without a language (`T=`).
    Translator *traductor() { return traductor_.get(); }
    const ConfiguracionINI &configuracion() const { return configuracion_; }
    const OpcionesArranque &opciones() const { return opciones_; }
    const SesionUsuario &usuario() const { return usuario_; }
    // The currency values of the selected company.
    const CurrencyValues &monedas() const { return monedas_; }
    // The number templates of the selected company.
    const PlantillasNumericas &plantillas() const { return plantillas_; }
    int NumeroInstancia() const { return instancia_ ? instancia_->numero() : 0; }
    QString Abreviatura;
    QString ArchivoLogotipo = QStringLiteral("LOGO.BMP");

    static QString NombrePrograma() { return QStringLiteral("Control de Obras"); }

private:
    // Opens the connections; a password the server refuses is asked again.
    bool conectar();
    bool prepararTablasIniciales();

    OpcionesArranque opciones_;
    MessagePort *port_;
    InstallationSettings instalacion_;
    ConfiguracionINI configuracion_;
    SesionUsuario usuario_;
    CurrencyValues monedas_;
    PlantillasNumericas plantillas_;
    std::unique_ptr<TfGENEINIC> sesion_;
    std::unique_ptr<TModuloDatos> datos_;
    std::unique_ptr<CreadorTablas> creador_;
    std::unique_ptr<MaterializadorConsultas> materializador_;
    std::unique_ptr<Translator> traductor_;
    std::unique_ptr<TemporaryTablesClaim> temporales_;
    std::unique_ptr<co::NumeroInstancia> instancia_;
};

} // namespace co
