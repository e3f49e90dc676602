// control-obras-cli: the program's logic without windows, for scripts and batch work.
//
//   control-obras-cli init --dir DIR [--tipo PostgreSQL --servidor "host=... port=..."]
//   control-obras-cli sql --dir DIR [U=CODE | --usuario CODE] [--empresa N] [--conexion WORD]
//                         [--opciones WORDS] "STATEMENT"      (or --archivo FILE, one per line)
//   control-obras-cli programas --dir DIR [U=CODE | --usuario CODE] [--empresa N]
//   control-obras-cli diccionario --dir DIR [--idioma Ingles] [--archivo FILE]
//   control-obras-cli listado-tarifas --dir DIR --pdf FILE [U=CODE] [--empresa N]
//   control-obras-cli demo --dir DIR [--escala N] [--semilla S] [--forzar] [U=CODE]
//
// Commands after init log in as the desktop program does; the password comes
// from CONTROL_OBRAS_CLAVE or is asked on the terminal, and with neither the
// login stops without counting a failure. Without a user the installation's
// first user is taken; a user given blank is refused. A server password given
// to init goes scrambled to NAROWIN.INI; one the server refuses is taken from
// CONTROL_OBRAS_CLAVE_SERVIDOR or asked on the terminal.

#include "cli_messages.h"
#include "cli_screen.h"
#include "core/data_folder.h"
#include "core/dictionary_loader.h"
#include "core/folder_creation.h"
#include "core/ini_defaults.h"
#include "core/main_menu.h"
#include "core/rights.h"
#include "core/sql_text.h"
#include "core/startup.h"
#include "core/text_utils.h"
#include "demo/demo_company.h"
#include "reports/listing_environment.h"
#include "reports/rate_listing.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QStringDecoder>
#include <cstdio>
#include <optional>

namespace {

struct Arguments {
    QString command;
    QString dir;
    QString conexion;
    QString opciones;
    QString archivo;
    QString tipo;
    QString servidor;
    std::optional<QString> usuario; // given with U= or --usuario
    QString idioma = QStringLiteral("Ingles");
    int empresa = -1; // -1: the user's first company
    QStringList positional;
};

void print(FILE *to, const QString &text) {
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), to);
}

// Bytes as text, or nullopt when they are not UTF-8: a byte that would be
// replaced could change a statement or a key without a word.
std::optional<QString> textoUtf8(const QByteArray &bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

int usage() {
    print(
        stderr,
        QStringLiteral(
            "Uso:\n"
            "  control-obras-cli init --dir CARPETA [--tipo PostgreSQL --servidor \"host=... "
            "port=... dbname=...\"]\n"
            "  control-obras-cli sql --dir CARPETA [U=USUARIO | --usuario USUARIO] [--empresa N] "
            "[--conexion PALABRA] [--opciones PALABRAS] \"SENTENCIA\"\n"
            "  control-obras-cli sql --dir CARPETA [...] --archivo ARCHIVO\n"
            "  control-obras-cli programas --dir CARPETA [U=USUARIO | --usuario USUARIO] "
            "[--empresa N]\n"
            "  control-obras-cli pantalla --dir CARPETA [U=USUARIO] [--empresa N] \"PROGRAMA\"\n"
            "  control-obras-cli diccionario --dir CARPETA [--idioma Ingles] [--archivo ARCHIVO]\n"
            "  control-obras-cli listado-tarifas --dir CARPETA --pdf ARCHIVO [U=USUARIO] "
            "[--empresa N]\n"
            "  control-obras-cli demo --dir CARPETA [--escala N] [--semilla S] [--forzar] "
            "[U=USUARIO]\n"));
    return 2;
}

std::optional<Arguments> parse(const QStringList &args) {
    if (args.size() < 2)
        return std::nullopt;
    Arguments a;
    a.command = args[1];
    static const QStringList withValue = {
        QStringLiteral("--dir"),     QStringLiteral("--conexion"), QStringLiteral("--opciones"),
        QStringLiteral("--archivo"), QStringLiteral("--tipo"),     QStringLiteral("--servidor"),
        QStringLiteral("--empresa"), QStringLiteral("--usuario"),  QStringLiteral("--idioma")};
    for (int i = 2; i < args.size(); ++i) {
        const QString &arg = args[i];
        if (arg.size() >= 2 && arg.left(2).toUpper() == u"U=") {
            a.usuario = arg.mid(2);
            continue;
        }
        if (!withValue.contains(arg)) {
            a.positional << arg;
            continue;
        }
        if (i + 1 >= args.size())
            return std::nullopt;
        const QString value = args[++i];
        if (arg == u"--dir")
            a.dir = value;
        else if (arg == u"--conexion")
            a.conexion = value;
        else if (arg == u"--opciones")
            a.opciones = value;
        else if (arg == u"--archivo")
            a.archivo = value;
        else if (arg == u"--tipo")
            a.tipo = value;
        else if (arg == u"--servidor")
            a.servidor = value;
        else if (arg == u"--usuario")
            a.usuario = value;
        else if (arg == u"--idioma")
            a.idioma = value;
        else {
            bool ok = false;
            a.empresa = value.toInt(&ok);
            if (!ok || a.empresa < 0)
                return std::nullopt;
        }
    }
    if (a.dir.isEmpty())
        return std::nullopt;
    return a;
}

co::OpcionesArranque opcionesDe(const Arguments &a) {
    co::OpcionesArranque o;
    o.carpetaInstalacion = a.dir;
    o.carpetaAplicacion = a.dir;
    o.carpetaDatos = co::CarpetaDatosAplicacion();
    o.ejecutable = QCoreApplication::applicationFilePath();
    o.instalacionObligatoria = true;
    o.origenCarpeta = QStringLiteral("--dir");
    return o;
}

int init(const Arguments &a) {
    co::InstallationSettings settings;
    co::LeerInstalacion(a.dir, &settings);
    if (!a.tipo.isEmpty())
        settings.TipoBaseDatos = a.tipo;
    if (!a.servidor.isEmpty())
        settings.ServidorBaseDatos = a.servidor;
    QString motivo;
    // Nothing is written for settings that could not be used.
    if (!co::backendFromName(settings.TipoBaseDatos, &motivo) ||
        !co::ValidarInstalacion(settings, &motivo)) {
        print(stderr, motivo + u'\n');
        return 1;
    }
    // A relative folder keeps the installation movable.
    if (QDir(settings.PathBaseDatosGeneral) == QDir(a.dir))
        settings.PathBaseDatosGeneral = QStringLiteral(".");
    // The server password goes scrambled to the INI file, never in clear to INSTALACION.
    QString clave;
    settings.ServidorBaseDatos = co::ServidorSinClave(settings.ServidorBaseDatos, &clave);
    if (!co::CrearCarpeta(a.dir, &motivo) ||
        !co::CrearArchivoINI(co::RutaArchivoINI(a.dir, {}), clave, &motivo) ||
        !co::EscribirInstalacion(a.dir, settings, &motivo)) {
        print(stderr, motivo + u'\n');
        return 1;
    }
    co::cli::CliMessages port;
    co::OpcionesArranque o = opcionesDe(a);
    o.crearInstalacion = true;
    co::Aplicacion app(o, &port);
    return app.Iniciar() ? 0 : 1;
}

// Logs in and selects the company; nullptr after telling why not.
std::unique_ptr<co::Aplicacion> entrar(const Arguments &a, co::cli::CliMessages &port) {
    co::OpcionesArranque o = opcionesDe(a);
    co::InstallationSettings settings;
    co::LeerInstalacion(a.dir, &settings);
    // A code given blank names nobody: it must not fall back to the first user.
    if (a.usuario && a.usuario->trimmed().isEmpty()) {
        print(stderr, QStringLiteral("¡No se ha indicado el código de usuario!. Escríbalo tras "
                                     "U= o --usuario.\n"));
        return nullptr;
    }
    o.linea.ParametroUsuario = a.usuario.value_or(settings.CodigoPrimerUsuario);
    auto app = std::make_unique<co::Aplicacion>(o, &port);
    if (!app->Iniciar() || !app->Identificar())
        return nullptr;
    const int empresa = a.empresa >= 0 ? a.empresa : app->EmpresaInicial();
    if (empresa == 0) {
        print(stderr, QStringLiteral("¡Ud.no tiene acceso a ninguna empresa!\n"));
        return nullptr;
    }
    if (!app->SeleccionarEmpresa(empresa)) {
        print(stderr, QStringLiteral("¡Ud. no tiene acceso a esta empresa!\n"));
        return nullptr;
    }
    return app;
}

int sql(const Arguments &a) {
    QStringList statements;
    if (!a.archivo.isEmpty()) {
        QFile file(a.archivo);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            print(stderr,
                  QStringLiteral("No ha sido posible leer el archivo %1.\n").arg(a.archivo));
            return 1;
        }
        const std::optional<QString> text = textoUtf8(file.readAll());
        if (!text) {
            print(stderr, QStringLiteral(
                              "El archivo %1 no es texto UTF-8 válido; no se ha ejecutado nada.\n")
                              .arg(a.archivo));
            return 1;
        }
        for (const QString &line : text->split(u'\n'))
            if (!line.trimmed().isEmpty())
                statements << (line.endsWith(u'\r') ? line.chopped(1) : line);
    } else if (a.positional.size() == 1) {
        statements << a.positional.first();
    } else {
        return usage();
    }
    // The statement layer reads rows only for the verbs in upper case.
    for (const QString &statement : std::as_const(statements)) {
        const QString verbo = co::VerboSentencia(statement);
        for (const char *leeFilas : {"SELECT", "EXEC"})
            if (verbo.compare(QLatin1String(leeFilas), Qt::CaseInsensitive) == 0 &&
                verbo != QLatin1String(leeFilas)) {
                print(stderr,
                      QStringLiteral(
                          "Las sentencias se escriben en mayúsculas: escriba %1 en lugar de %2; "
                          "no se ha ejecutado nada.\n")
                          .arg(QLatin1String(leeFilas), verbo));
                return 1;
            }
    }
    co::cli::CliMessages port;
    const std::unique_ptr<co::Aplicacion> app = entrar(a, port);
    if (!app)
        return 1;
    co::TModuloDatos &datos = app->datos();
    if (!co::EsAdministrador(datos, app->sesion().CodigoUsuario, QStringLiteral("Silencio"))) {
        print(
            stderr,
            QStringLiteral(
                "¡Sólo los usuarios de categoría Administrador pueden ejecutar sentencias SQL!\n"));
        return 1;
    }
    int status = 0;
    for (const QString &statement : std::as_const(statements)) {
        const QString result = datos.EjecutarSQL(statement, a.conexion, a.opciones);
        print(stdout, result);
        if (statements.size() > 1)
            print(stdout, QStringLiteral("\n"));
        if (co::EsResultadoError(result))
            status = 1;
    }
    return status;
}

// The headless tour: the programs of the menu the user may open, one a line.
int programas(const Arguments &a) {
    co::cli::CliMessages port;
    const std::unique_ptr<co::Aplicacion> app = entrar(a, port);
    if (!app)
        return 1;
    print(stdout, QStringLiteral("%1: %2 (%3)\n")
                      .arg(co::Aplicacion::NombrePrograma(), app->sesion().NombreEmpresa,
                           app->sesion().CodigoUsuario));
    for (const co::EntradaMenu &e : co::EntradasMenuPrincipal()) {
        const QString programa = co::SinAmpersand(e.caption);
        const QString nivel =
            e.pruebaDerechos
                ? co::NivelAccesoPrograma(app->datos(), app->sesion().CodigoUsuario, programa)
                : QString(co::kNivelTotal);
        if (nivel != co::kNivelNinguno)
            print(stdout, co::SinAmpersand(e.grupo) + QStringLiteral(" | ") + programa +
                              QStringLiteral(" | ") + nivel + u'\n');
    }
    return 0;
}

// A screen of the menu opened as the desktop opens it, written as text.
int pantalla(const Arguments &a) {
    if (a.positional.size() != 1)
        return usage();
    co::cli::CliMessages port;
    const std::unique_ptr<co::Aplicacion> app = entrar(a, port);
    if (!app)
        return 1;
    const std::optional<QString> texto = co::cli::TextoPantalla(*app, a.positional.first());
    if (!texto)
        return 1;
    print(stdout, *texto);
    return 0;
}

// Loads a dictionary into the general database, so that T=<language> shows a
// translated program. Without --archivo the one shipped for the language.
int diccionario(const Arguments &a) {
    co::cli::CliMessages port;
    co::Aplicacion app(opcionesDe(a), &port);
    if (!app.Iniciar())
        return 1;
    const QString archivo = a.archivo.isEmpty()
                                ? QDir(co::CarpetaDatosAplicacion())
                                      .filePath(QStringLiteral("IDIOMA_%1.txt").arg(a.idioma))
                                : a.archivo;
    QString motivo;
    if (!co::CargarDiccionario(app.datos(), a.idioma, archivo, &motivo)) {
        print(stderr, motivo + u'\n');
        return 1;
    }
    return 0;
}

// The rate listing, all rates and units, written to a PDF file.
int listadoTarifas(const Arguments &a) {
    const qsizetype pdf = a.positional.indexOf(QStringLiteral("--pdf"));
    if (pdf < 0 || pdf + 1 >= a.positional.size() || a.positional.size() != 2)
        return usage();
    co::cli::CliMessages port;
    const std::unique_ptr<co::Aplicacion> app = entrar(a, port);
    if (!app)
        return 1;
    co::TfOBQRLTAR report(app->datos(), app->creador(), co::ParametrosListadoTarifas{},
                          co::EntornoListado(*app));
    return co::ImprimirReport(report, QStringLiteral("PDF:") + a.positional.at(pdf + 1)) ? 0 : 1;
}

// Fills company 1 with the demo contractor: masters, works and a year of
// reports (times --escala), the same rows for the same --semilla.
int demo(const Arguments &a) {
    co::demo::OpcionesDemo opciones;
    for (int i = 0; i < a.positional.size(); ++i) {
        const QString &arg = a.positional.at(i);
        if (arg == u"--forzar") {
            opciones.forzar = true;
            continue;
        }
        if ((arg != u"--escala" && arg != u"--semilla") || i + 1 >= a.positional.size())
            return usage();
        const QString valor = a.positional.at(++i);
        bool ok = false;
        if (arg == u"--escala")
            opciones.escala = valor.toDouble(&ok);
        else
            opciones.semilla = valor.toULongLong(&ok);
        if (!ok) {
            print(stderr, QStringLiteral("¡El valor de %1 es incorrecto! Repita por favor\n")
                              .arg(arg == u"--escala" ? QStringLiteral("Escala")
                                                      : QStringLiteral("Semilla")));
            return 1;
        }
    }
    Arguments empresa1 = a;
    empresa1.empresa = 1;
    co::cli::CliMessages port;
    const std::unique_ptr<co::Aplicacion> app = entrar(empresa1, port);
    if (!app)
        return 1;
    co::TModuloDatos &datos = app->datos();
    if (!co::EsAdministrador(datos, app->sesion().CodigoUsuario, QStringLiteral("Silencio"))) {
        print(stderr,
              QStringLiteral(
                  "¡Sólo los usuarios de categoría Administrador pueden crear la empresa de "
                  "demostración!\n"));
        return 1;
    }
    co::demo::RecuentoPartes recuento;
    QString motivo;
    if (!co::demo::CrearEmpresaDemo(datos, opciones, &recuento, &motivo)) {
        print(stderr, motivo + u'\n');
        return 1;
    }
    QStringList tablas;
    for (auto it = recuento.filas.cbegin(); it != recuento.filas.cend(); ++it)
        tablas << QStringLiteral("%1 %2").arg(it.key()).arg(it.value());
    print(stdout, QStringLiteral("Empresa 1 de demostración creada: %1\nPartes: %2 filas (%3).\n")
                      .arg(app->sesion().NombreEmpresa)
                      .arg(recuento.FilasPartes())
                      .arg(tablas.join(QStringLiteral(", "))));
    return 0;
}

} // namespace

int main(int argc, char **argv) {
    // Fonts for the PDF listings need a GUI application (offscreen, no display);
    // the other commands stay plain console programs.
    const bool listado = argc > 1 && qstrcmp(argv[1], "listado-tarifas") == 0;
    if (listado && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::unique_ptr<QCoreApplication> app =
        listado ? std::make_unique<QGuiApplication>(argc, argv)
                : std::make_unique<QCoreApplication>(argc, argv);
    for (int i = 1; i < argc; ++i)
        if (!textoUtf8(QByteArray(argv[i]))) {
            print(stderr, QStringLiteral("El argumento %1 de la orden no es texto UTF-8 válido; no "
                                         "se ha ejecutado nada.\n")
                              .arg(i));
            return 1;
        }
    const std::optional<Arguments> args = parse(app->arguments());
    if (!args)
        return usage();
    if (args->command == u"init")
        return init(*args);
    if (args->command == u"sql")
        return sql(*args);
    if (args->command == u"programas")
        return programas(*args);
    if (args->command == u"pantalla")
        return pantalla(*args);
    if (args->command == u"diccionario")
        return diccionario(*args);
    if (args->command == u"listado-tarifas")
        return listadoTarifas(*args);
    if (args->command == u"demo")
        return demo(*args);
    return usage();
}
