#include "core/startup.h"

#include "core/connection_factory.h"
#include "core/connection_words.h"
#include "core/currency_table.h"
#include "core/folder_creation.h"
#include "core/general_parameters.h"
#include "core/rights.h"
#include "core/server_login.h"
#include "core/session_values.h"
#include "core/users.h"

#include <QDir>
#include <QFileInfo>
#include <optional>

namespace co {
namespace {

// The templates of the company's general parameters; a company without the
// record keeps the default mask and no fragments.
PlantillasNumericas leerPlantillas(TModuloDatos &datos) {
    const QString mascara = QString::fromLatin1(kPlantillaNumericaStdPorDefecto);
    Consulta parametros;
    parametros.SQL = QStringLiteral(
        "SELECT PlantillaNumericaStd, PlantillaNumericaExt FROM PARAGENE WHERE IdRegistro = 1");
    if (!datos.AbrirConsulta(parametros, QStringLiteral("Silencio")) ||
        parametros.RecordCount() == 0)
        return CargarPlantillasNumericas({}, {}, mascara);
    return CargarPlantillasNumericas(parametros.Value(0, 0).toString(),
                                     parametros.Value(0, 1).toString(), mascara);
}

} // namespace

Aplicacion::Aplicacion(OpcionesArranque opciones, MessagePort *port) : opciones_(std::move(opciones)), port_(port) {}

Aplicacion::~Aplicacion() {
    temporales_.reset();
    traductor_.reset();
    materializador_.reset();
    creador_.reset();
    datos_.reset();
    sesion_.reset();
}

bool Aplicacion::Iniciar() {
    Messenger aviso(port_);
    const QString archivoInstalacion =
        QDir(opciones_.carpetaInstalacion).filePath(QLatin1String(kArchivoInstalacion));
    QString motivo;
    // A mistyped folder must not become a new installation; `init` makes it.
    if (!opciones_.crearInstalacion && !QFileInfo(opciones_.carpetaInstalacion).isDir()) {
        const QString origen = opciones_.origenCarpeta.isEmpty()
                                   ? QString()
                                   : QStringLiteral(" indicada por ") + opciones_.origenCarpeta;
        aviso.MensajeA(QStringLiteral("¡Imposible iniciar la aplicación!. Motivo: La carpeta de la "
                                      "instalación %1%2 no existe. Una instalación nueva se crea "
                                      "con \"control-obras-cli init\".")
                           .arg(QDir::cleanPath(opciones_.carpetaInstalacion), origen));
        return false;
    }
    if (!LeerInstalacion(opciones_.carpetaInstalacion, &instalacion_, &motivo)) {
        const QString texto = QStringLiteral("No ha sido posible leer los parámetros del archivo ") + archivoInstalacion +
                              QStringLiteral(". ");
        if (opciones_.instalacionObligatoria) {
            aviso.MensajeA(texto + QStringLiteral("Motivo: ") + motivo + u'.');
            return false;
        }
        aviso.MensajeA(texto + QStringLiteral("Se utilizarán los parámetros por defecto."));
    }
    auto imposible = [&](const QString &porque) {
        aviso.MensajeA(QStringLiteral("¡Imposible iniciar la aplicación!. Motivo: ") + porque);
        return false;
    };
    if (!backendFromName(instalacion_.TipoBaseDatos, &motivo) ||
        !ValidarInstalacion(instalacion_, &motivo))
        return imposible(motivo);
    // The INI file comes first: it holds the server login.
    const QString archivoINI =
        RutaArchivoINI(opciones_.carpetaAplicacion, opciones_.linea.ParametroINI);
    if (!LeerConfiguracionINI(archivoINI, instalacion_.TipoBaseDatos, configuracion_, &motivo))
        aviso.MensajeA(motivo);
    instalacion_.UsuarioInicioSesion = configuracion_.NombreUsuarioInicioSesion;
    instalacion_.ClaveInicioSesion = configuracion_.PasswordInicioSesion;
    if (ServidorConClave(instalacion_.ServidorBaseDatos) &&
        !RetirarClaveInstalacion(opciones_.carpetaInstalacion, archivoINI, instalacion_, &motivo))
        aviso.MensajeA(
            QStringLiteral("La clave del servidor sigue escrita sin cifrar en el archivo ") +
            archivoInstalacion + QStringLiteral(". Motivo: ") + motivo);
    if (opciones_.crearInstalacion && !CrearInstalacion(instalacion_, &motivo))
        return imposible(motivo);
    // The folder holds the instance numbers: made here, it would hide a mistyped path.
    if (!QFileInfo(instalacion_.PathBaseDatosGeneral).isDir())
        return imposible(
            QStringLiteral("La carpeta %1 indicada por PathBaseDatosGeneral no existe.")
                .arg(instalacion_.PathBaseDatosGeneral));
    sesion_ = std::make_unique<TfGENEINIC>(instalacion_, port_);
    TfGENEINIC &s = *sesion_;
    s.ArchivoINI = archivoINI;
    s.fallos().nivelIncidencias = configuracion_.NivelCapturaIncidencias;

    instancia_ = std::make_unique<co::NumeroInstancia>(instalacion_.PathBaseDatosGeneral);
    if (instancia_->numero() == 0) {
        if (!CrearCarpeta(
                QDir(instalacion_.PathBaseDatosGeneral).filePath(QStringLiteral("PRIVDIR")),
                &motivo))
            return imposible(motivo);
        s.mensajes().MensajeA(
            QStringLiteral("Se ha producido un conflicto con otro usuario (o aplicación). Inténtelo de nuevo."));
        return false;
    }
    LimpiarArchivosTemporales(opciones_.carpetaAplicacion, QDir::tempPath(), instancia_->carpetaPrivada());
    if (!conectar())
        return false;
    s.FechaVersion = CalcularFechaVersion(opciones_.ejecutable);
    s.MapaAyuda = LeerMapaAyuda(QDir(opciones_.carpetaAplicacion).filePath(QStringLiteral("NAROWIN.MAP")));
    datos_ = std::make_unique<TModuloDatos>(s);
    creador_ = std::make_unique<CreadorTablas>(*datos_, opciones_.carpetaDatos);
    datos_->setTableCreator(creador_.get());
    materializador_ = std::make_unique<MaterializadorConsultas>(*datos_);
    datos_->setQueryMaterializer(materializador_.get());
    if (!opciones_.linea.ParametroIdioma.isEmpty()) {
        const QString intercalacion = datos_->EjecutarSQL(
            QStringLiteral("SELECT TOP 1 collation_name FROM information_schema.columns WHERE "
                           "table_name = 'TXIDIOMA'"),
            kConexionGeneral, QStringLiteral("Silenciosa"));
        traductor_ = std::make_unique<Translator>(*datos_, opciones_.linea.ParametroIdioma,
                                                  EsResultadoError(intercalacion) ? QString()
                                                                                  : intercalacion);
        traductor_->TraducirMensajes(s.mensajes());
    }
    s.VersionServidor = datos_
                            ->EjecutarSQL(SentenciaVersionServidor(s.backend()), kConexionGeneral,
                                          QStringLiteral("Silenciosa"))
                            .section(u'|', 0, 0);
    return prepararTablasIniciales();
}

bool Aplicacion::conectar() {
    TfGENEINIC &s = *sesion_;
    for (;;) {
        QString motivo;
        if (s.Conectar(&motivo))
            return true;
        bool reintentar = false;
        std::optional<QString> clave;
        if (s.backend() == Backend::PostgreSQL && EsFalloClaveServidor(motivo)) {
            s.setClaveServidor({});
            clave = PedirClaveServidor(s.mensajes(), &reintentar);
        }
        if (reintentar)
            continue;
        if (!clave) {
            s.mensajes().MensajeA(QStringLiteral("¡Imposible iniciar la aplicación!. Motivo: ") +
                                  motivo);
            return false;
        }
        s.setClaveServidor(*clave);
        QString porque;
        if (!GuardarClaveServidor(s.ArchivoINI, *clave, &porque))
            s.mensajes().MensajeA(porque);
    }
}

bool Aplicacion::prepararTablasIniciales() {
    TfGENEINIC &s = *sesion_;
    // The user-defined fields: without them no table can be made right.
    const QString campos =
        datos_->EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM CAMPOUSR"), kConexionGeneral);
    if (EsResultadoError(campos))
        return false;
    // The companies, with the first one made with the table.
    if (EsResultadoError(
            datos_->EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM EMPRESA"), kConexionGeneral)))
        return false;
    const QString usuarios =
        datos_->EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM USUARIO"), kConexionGeneral);
    if (EsResultadoError(usuarios))
        return false;
    if (usuarios == u"0") {
        QString motivo;
        const QString codigo = instalacion_.CodigoPrimerUsuario;
        // The user and the companies it may enter are kept together: a crash in
        // between would leave a user that can enter no company, for good.
        TransaccionGuard transaccion(s, kConexionGeneral);
        if (!transaccion.ok() || !CrearPrimerUsuario(*datos_, codigo, &motivo)) {
            s.mensajes().MensajeA(QStringLiteral("¡Imposible dar de alta el usuario!"));
            return false;
        }
        // The first user may enter the companies the installation starts with.
        const QString empresas = datos_->EjecutarSQL(
            QStringLiteral("SELECT Codigo FROM EMPRESA ORDER BY Codigo"), kConexionGeneral);
        if (!empresas.isEmpty() && !EsResultadoError(empresas))
            GuardarValorUsuario(*datos_, codigo, QStringLiteral("Empresas"), empresas);
        if (!transaccion.commit()) {
            s.mensajes().MensajeA(QStringLiteral("¡Imposible dar de alta el usuario!"));
            return false;
        }
    }
    return true;
}

bool Aplicacion::Identificar() {
    OpcionesIdentificacion o;
    o.AutenticacionWindows = configuracion_.AutenticacionWindows;
    o.ParametroUsuario = opciones_.linea.ParametroUsuario;
    o.UsuarioSistema = NombreUsuarioSistema();
    QString codigo;
    if (!IdentificarUsuario(*datos_, codigo, o, &usuario_))
        return false;
    sesion_->CodigoUsuario = codigo;
    if (!UsuarioAccedePrograma(*datos_, codigo, NombrePrograma()))
        return false;
    // Leftover temporary tables of this user, unless another run of theirs is alive.
    temporales_ = std::make_unique<TemporaryTablesClaim>(*sesion_);
    LimpiarTablasTemporales(*datos_, *temporales_);
    return true;
}

int Aplicacion::EmpresaInicial() {
    QString empresas;
    ValorUsuario(*datos_, sesion_->CodigoUsuario, QStringLiteral("Empresas"), empresas, QString());
    bool ok = false;
    const int codigo = empresas.section(u'\r', 0, 0).section(u'\n', 0, 0).trimmed().toInt(&ok);
    return ok ? codigo : 0;
}

bool Aplicacion::EmpresaAccesible(int codigo) {
    if (codigo <= 0 || !UsuarioAccedeEmpresa(*datos_, sesion_->CodigoUsuario, codigo))
        return false;
    Consulta empresa;
    empresa.DatabaseName = kConexionGeneral;
    empresa.SQL = QStringLiteral("SELECT Codigo FROM EMPRESA WHERE Codigo = %1").arg(datos_->FormatoLiteralSQL(codigo));
    return datos_->AbrirConsulta(empresa, QStringLiteral("Silencio")) && empresa.RecordCount() > 0;
}

bool Aplicacion::SeleccionarEmpresa(int codigo) {
    TfGENEINIC &s = *sesion_;
    if (!EmpresaAccesible(codigo)) {
        s.CodigoEmpresa = 0;
        return false;
    }
    Consulta empresa;
    empresa.DatabaseName = kConexionGeneral;
    empresa.SQL = QStringLiteral("SELECT Nombre, Abreviatura, Logotipo FROM EMPRESA WHERE Codigo = %1")
                      .arg(datos_->FormatoLiteralSQL(codigo));
    if (datos_->AbrirConsulta(empresa, QStringLiteral("Silencio")) && empresa.RecordCount() > 0) {
        s.NombreEmpresa = empresa.Text(0, QStringLiteral("Nombre"));
        Abreviatura = empresa.Text(0, QStringLiteral("Abreviatura"));
        const QString logo = empresa.Text(0, QStringLiteral("Logotipo"));
        if (!logo.isEmpty())
            ArchivoLogotipo = logo;
    }
    QString motivo;
    if (!s.ConectarEmpresa(codigo, &motivo)) {
        s.mensajes().MensajeA(QStringLiteral("¡Imposible iniciar la aplicación!. Motivo: ") + motivo);
        s.CodigoEmpresa = 0;
        return false;
    }
    monedas_ = LeerValoresMoneda(*datos_);
    plantillas_ = leerPlantillas(*datos_);
    return true;
}

void Aplicacion::ParamGeneralesAfterPost() {
    if (datos_ && sesion_ && sesion_->CodigoEmpresa != 0)
        monedas_ = LeerValoresMoneda(*datos_);
}

} // namespace co
