// control-obras-cli: the program's logic without windows, for scripts and batch work.
//
//   control-obras-cli init --dir DIR [--tipo PostgreSQL --servidor "host=... port=..."]
//   control-obras-cli sql --dir DIR [--conexion WORD] [--opciones WORDS] [--empresa N] "STATEMENT"
//   control-obras-cli sql --dir DIR [...] --archivo FILE     (one statement per line)

#include "core/data_folder.h"
#include "core/database.h"
#include "core/installation.h"
#include "core/session.h"
#include "core/table_creation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>
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
    int empresa = -1; // -1: the first company of the installation
    QStringList positional;
};

void print(FILE *to, const QString &text) {
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), to);
}

int usage() {
    print(stderr, QStringLiteral(
                      "Uso:\n"
                      "  control-obras-cli init --dir CARPETA [--tipo PostgreSQL --servidor \"host=... port=... dbname=...\"]\n"
                      "  control-obras-cli sql --dir CARPETA [--conexion PALABRA] [--opciones PALABRAS] [--empresa N] "
                      "\"SENTENCIA\"\n"
                      "  control-obras-cli sql --dir CARPETA [...] --archivo ARCHIVO\n"));
    return 2;
}

std::optional<Arguments> parse(const QStringList &args) {
    if (args.size() < 2)
        return std::nullopt;
    Arguments a;
    a.command = args[1];
    for (int i = 2; i < args.size(); ++i) {
        const QString &arg = args[i];
        auto next = [&]() -> std::optional<QString> {
            if (i + 1 >= args.size())
                return std::nullopt;
            return args[++i];
        };
        std::optional<QString> value;
        if (arg == u"--dir" || arg == u"--conexion" || arg == u"--opciones" || arg == u"--archivo" ||
            arg == u"--tipo" || arg == u"--servidor" || arg == u"--empresa") {
            value = next();
            if (!value)
                return std::nullopt;
        }
        if (arg == u"--dir")
            a.dir = *value;
        else if (arg == u"--conexion")
            a.conexion = *value;
        else if (arg == u"--opciones")
            a.opciones = *value;
        else if (arg == u"--archivo")
            a.archivo = *value;
        else if (arg == u"--tipo")
            a.tipo = *value;
        else if (arg == u"--servidor")
            a.servidor = *value;
        else if (arg == u"--empresa") {
            bool ok = false;
            a.empresa = value->toInt(&ok);
            if (!ok || a.empresa < 0)
                return std::nullopt;
        } else
            a.positional << arg;
    }
    if (a.dir.isEmpty())
        return std::nullopt;
    return a;
}

int init(const Arguments &a) {
    co::InstallationSettings settings;
    co::LeerInstalacion(a.dir, &settings);
    if (!a.tipo.isEmpty())
        settings.TipoBaseDatos = a.tipo;
    if (!a.servidor.isEmpty())
        settings.ServidorBaseDatos = a.servidor;
    QString motivo;
    if (!co::backendFromName(settings.TipoBaseDatos, &motivo)) {
        print(stderr, motivo + u'\n');
        return 1;
    }
    // A relative folder keeps the installation movable.
    co::InstallationSettings written = settings;
    if (QDir(written.PathBaseDatosGeneral) == QDir(a.dir))
        written.PathBaseDatosGeneral = QStringLiteral(".");
    if (!co::EscribirInstalacion(a.dir, written)) {
        print(stderr, QStringLiteral("No ha sido posible escribir el archivo %1.\n")
                          .arg(QDir(a.dir).filePath(QLatin1String(co::kArchivoInstalacion))));
        return 1;
    }
    co::ConsoleMessages console;
    co::TfGENEINIC sesion(settings, &console);
    if (!sesion.Conectar(&motivo)) {
        print(stderr, QStringLiteral("No es posible abrir la base de datos. Motivo: ") + motivo + u'\n');
        return 1;
    }
    // The companies table, and with it the first company, is made on first use.
    co::TModuloDatos datos(sesion);
    co::CreadorTablas creador(datos, co::CarpetaDatosAplicacion());
    datos.setTableCreator(&creador);
    const QString empresas = datos.EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM EMPRESA"),
                                               QStringLiteral("DatabaseGeneral"));
    return empresas.startsWith(QStringLiteral("Error.")) ? 1 : 0;
}

// The first company of the installation, 0 when it has none yet.
int primeraEmpresa(co::TModuloDatos &datos) {
    const QString r = datos.EjecutarSQL(QStringLiteral("SELECT MIN(Codigo) FROM EMPRESA"),
                                        QStringLiteral("DatabaseGeneral"),
                                        QStringLiteral("Silenciosa,No Crear Tabla"));
    bool ok = false;
    const int codigo = r.toInt(&ok);
    return ok ? codigo : 0;
}

int sql(const Arguments &a) {
    QStringList statements;
    if (!a.archivo.isEmpty()) {
        QFile file(a.archivo);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            print(stderr, QStringLiteral("No ha sido posible leer el archivo %1.\n").arg(a.archivo));
            return 1;
        }
        QTextStream in(&file);
        while (!in.atEnd()) {
            const QString line = in.readLine();
            if (!line.trimmed().isEmpty())
                statements << line;
        }
    } else if (a.positional.size() == 1) {
        statements << a.positional.first();
    } else {
        return usage();
    }
    co::InstallationSettings settings;
    if (!co::LeerInstalacion(a.dir, &settings)) {
        print(stderr, QStringLiteral("No ha sido posible leer los parámetros del archivo %1.\n")
                          .arg(QDir(a.dir).filePath(QLatin1String(co::kArchivoInstalacion))));
        return 1;
    }
    co::ConsoleMessages console;
    co::TfGENEINIC sesion(settings, &console);
    QString motivo;
    if (!sesion.Conectar(&motivo)) {
        print(stderr, QStringLiteral("No es posible abrir la base de datos. Motivo: ") + motivo + u'\n');
        return 1;
    }
    co::TModuloDatos datos(sesion);
    co::CreadorTablas creador(datos, co::CarpetaDatosAplicacion());
    datos.setTableCreator(&creador);
    const int empresa = a.empresa >= 0 ? a.empresa : primeraEmpresa(datos);
    if (empresa != sesion.CodigoEmpresa && !sesion.ConectarEmpresa(empresa, &motivo)) {
        print(stderr, QStringLiteral("No es posible abrir la base de datos. Motivo: ") + motivo + u'\n');
        return 1;
    }
    int status = 0;
    for (const QString &statement : std::as_const(statements)) {
        const QString result = datos.EjecutarSQL(statement, a.conexion, a.opciones);
        print(stdout, result);
        if (statements.size() > 1)
            print(stdout, QStringLiteral("\n"));
        if (result.startsWith(QStringLiteral("Error.")))
            status = 1;
    }
    return status;
}

} // namespace

int main(int argc, char **argv) {
    QCoreApplication app(argc, argv);
    const std::optional<Arguments> args = parse(app.arguments());
    if (!args)
        return usage();
    if (args->command == u"init")
        return init(*args);
    if (args->command == u"sql")
        return sql(*args);
    return usage();
}
