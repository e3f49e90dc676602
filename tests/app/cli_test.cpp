// The command-line statement runner, as scripts use it: exact result text on
// standard output, a non-zero status for "Error." results, on both back-ends.
#include "support/cli_installation.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

using test::CliRun;

CliRun cli(const QStringList &args) {
    return test::Ejecutar(args);
}

using CommandLine = test::CliInstallationTest;

TEST_P(CommandLine, InitMakesTheFirstCompanyAndSqlPrintsResultsAsTheyAre) {
    EXPECT_EQ(sql({QStringLiteral("SELECT Codigo FROM EMPRESA")}).out, QStringLiteral("1"));
    ASSERT_EQ(
        sql({QStringLiteral("CREATE TABLE NOTAS (Codigo INTEGER PRIMARY KEY, Texto VARCHAR(40))")})
            .status,
        0);
    ASSERT_EQ(sql({QStringLiteral("INSERT INTO NOTAS VALUES ('1', 'a|b ñ')")}).status, 0);
    ASSERT_EQ(sql({QStringLiteral("INSERT INTO NOTAS VALUES ('2', 'c')")}).status, 0);
    EXPECT_EQ(sql({QStringLiteral("SELECT Codigo, Texto FROM NOTAS ORDER BY Codigo")}).out,
              QStringLiteral("1|a|b ñ\r\n2|c"));
    EXPECT_EQ(sql({QStringLiteral("--opciones"), QStringLiteral("FormatoINI,NoEliminarUltimoCRLF"),
                   QStringLiteral("SELECT Texto FROM NOTAS WHERE Codigo = 2")})
                  .out,
              QStringLiteral("Texto=c\r\n"));
    // The company's data are not the general database's.
    EXPECT_EQ(sql({QStringLiteral("--conexion"), QStringLiteral("DatabaseGeneral"),
                   QStringLiteral("--opciones"), QStringLiteral("Silenciosa,No Crear Tabla"),
                   QStringLiteral("SELECT * FROM NOTAS")})
                  .status,
              1);
}

TEST_P(CommandLine, FailuresGiveTheErrorTextAndAStatus) {
    const CliRun r = sql(
        {QStringLiteral("--opciones"), QStringLiteral("Silenciosa"), QStringLiteral("SELEC 1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.out.startsWith(
        QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: ")))
        << r.out.toStdString();
    EXPECT_TRUE(r.err.isEmpty());
    const CliRun loud = sql({QStringLiteral("SELEC 1")});
    EXPECT_TRUE(loud.err.contains(QStringLiteral("Hay un error en la siguiente Sentencia SQL")));
}

TEST_P(CommandLine, MissingTablesAreMadeFromTheStructureFile) {
    EXPECT_EQ(sql({QStringLiteral("SELECT COUNT(*) FROM OBRA")}).out, QStringLiteral("0"));
    EXPECT_EQ(
        sql({QStringLiteral("INSERT INTO OBRA (Codigo, Descripcion) VALUES ('7', 'Nave')")}).status,
        0);
    EXPECT_EQ(sql({QStringLiteral("SELECT Codigo, Descripcion, Situacion FROM OBRA")}).out,
              QStringLiteral("7|Nave|"));
}

TEST_P(CommandLine, StatementsThatCannotBeTakenAsWrittenAreRefusedUnrun) {
    ASSERT_EQ(
        sql({QStringLiteral("INSERT INTO OBRA (Codigo, Descripcion) VALUES ('7', 'Nave')")}).status,
        0);
    // A lower-case verb reads no rows: it is named, not run silently.
    const CliRun lower = sql({QStringLiteral("select Codigo FROM OBRA")});
    EXPECT_EQ(lower.status, 1);
    EXPECT_TRUE(lower.err.contains(QStringLiteral("escriba SELECT en lugar de select")))
        << lower.err.toStdString();
    // Bytes that are not UTF-8, in an argument or in a file of statements.
    QProcess shell;
    shell.start(
        QStringLiteral("bash"),
        {QStringLiteral("-c"),
         QStringLiteral(
             "\"$0\" sql --dir \"$1\" \"$(printf \"UPDATE OBRA SET Descripcion = 'N\\xe1ve'\")\""),
         QStringLiteral(CO_CLI_PATH), dir_.path()});
    ASSERT_TRUE(shell.waitForFinished(120000));
    EXPECT_EQ(shell.exitCode(), 1);
    EXPECT_TRUE(QString::fromUtf8(shell.readAllStandardError())
                    .contains(QStringLiteral("no es texto UTF-8 válido")));
    QFile archivo(dir_.filePath(QStringLiteral("sentencias.sql")));
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    archivo.write("UPDATE OBRA SET Descripcion = 'N\xe1ve'\n");
    archivo.close();
    const CliRun file = sql({QStringLiteral("--archivo"), archivo.fileName()});
    EXPECT_EQ(file.status, 1);
    EXPECT_TRUE(file.err.contains(QStringLiteral("no es texto UTF-8 válido")))
        << file.err.toStdString();
    EXPECT_EQ(sql({QStringLiteral("SELECT Descripcion FROM OBRA")}).out, QStringLiteral("Nave"));
}

CO_ON_BOTH_BACKENDS(CommandLine);

TEST(CommandLineUsage, BadArgumentsAreRefused) {
    EXPECT_EQ(cli({}).status, 2);
    EXPECT_EQ(cli({QStringLiteral("sql")}).status, 2);
    EXPECT_EQ(cli({QStringLiteral("sql"), QStringLiteral("--dir")}).status, 2);
    EXPECT_EQ(cli({QStringLiteral("sql"), QStringLiteral("--dir"), QStringLiteral("/tmp"),
                   QStringLiteral("--empresa"), QStringLiteral("x"), QStringLiteral("SELECT 1")})
                  .status,
              2);
    EXPECT_EQ(
        cli({QStringLiteral("borrar"), QStringLiteral("--dir"), QStringLiteral("/tmp")}).status, 2);
    QTemporaryDir empty;
    const CliRun r = cli(
        {QStringLiteral("sql"), QStringLiteral("--dir"), empty.path(), QStringLiteral("SELECT 1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(
        r.err.contains(QStringLiteral("No ha sido posible leer los parámetros del archivo")))
        << r.err.toStdString();
}

TEST(CommandLineUsage, UnsupportedBackEndIsNamed) {
    QTemporaryDir dir;
    const CliRun r = cli({QStringLiteral("init"), QStringLiteral("--dir"), dir.path(),
                          QStringLiteral("--tipo"), QStringLiteral("Microsoft SQL Server")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("PostgreSQL"))) << r.err.toStdString();
}

} // namespace
} // namespace co

namespace co {
namespace {

class CommandLineLogin : public test::CliInstallationTest {};

TEST_P(CommandLineLogin, UsersLogInAndOnlyAdministratorsRunStatements) {
    // A user of the "Normal" category with a password, who may enter company 1.
    ASSERT_EQ(sql({QStringLiteral("--conexion"), QStringLiteral("DatabaseGeneral"),
                   QStringLiteral(
                       "INSERT INTO USUARIO (Codigo, Nombre, Categoria, ClaveAcceso, Empresas) "
                       "VALUES ('EVA', 'Eva', 'Normal', 'secreta', '1')")})
                  .status,
              0);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    auto asEva = [&](const QString &password, const QStringList &more) {
        QProcess p;
        env.insert(QStringLiteral("CONTROL_OBRAS_CLAVE"), password);
        p.setProcessEnvironment(env);
        p.start(QStringLiteral(CO_CLI_PATH), QStringList{more.first(), QStringLiteral("--dir"),
                                                         dir_.path(), QStringLiteral("U=EVA")} +
                                                 more.mid(1));
        p.waitForFinished(120000);
        return CliRun{p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()),
                      QString::fromUtf8(p.readAllStandardError())};
    };
    const CliRun wrong = asEva(QStringLiteral("mala"), {QStringLiteral("programas")});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_TRUE(wrong.err.contains(QStringLiteral("¡La Clave de Acceso es incorrecta!")))
        << wrong.err.toStdString();
    const CliRun tour = asEva(QStringLiteral("secreta"), {QStringLiteral("programas")});
    EXPECT_EQ(tour.status, 0) << tour.err.toStdString();
    EXPECT_TRUE(tour.out.contains(QStringLiteral("Maestros | Maestro de Obras | Total")))
        << tour.out.toStdString();
    const CliRun refused =
        asEva(QStringLiteral("secreta"), {QStringLiteral("sql"), QStringLiteral("SELECT 1")});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.out.isEmpty());
    // The clear password was replaced by its hash at the good login.
    EXPECT_TRUE(sql({QStringLiteral("--conexion"), QStringLiteral("DatabaseGeneral"),
                     QStringLiteral("SELECT ClaveAcceso FROM USUARIO WHERE Codigo = 'EVA'")})
                    .out.startsWith(QStringLiteral("$argon2id$")));
}

TEST_P(CommandLineLogin, CompaniesOutsideTheUsersListAreRefused) {
    const CliRun r =
        sql({QStringLiteral("--empresa"), QStringLiteral("7"), QStringLiteral("SELECT 1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("¡Ud. no tiene acceso a esta empresa!")))
        << r.err.toStdString();
}

TEST_P(CommandLineLogin, DictionaryLoadsOnce) {
    EXPECT_EQ(cli(QStringLiteral("diccionario")).status, 0);
    EXPECT_EQ(cli(QStringLiteral("diccionario")).status, 0);
    const QString n =
        sql({QStringLiteral("--conexion"), QStringLiteral("DatabaseGeneral"),
             QStringLiteral("SELECT COUNT(*) FROM TXIDIOMA WHERE ClaveTexto = 'Maestro de Obras'")})
            .out;
    EXPECT_EQ(n, QStringLiteral("1"));
    const CliRun missing =
        cli(QStringLiteral("diccionario"), {QStringLiteral("--idioma"), QStringLiteral("Klingon")});
    EXPECT_EQ(missing.status, 1);
}

CO_ON_BOTH_BACKENDS(CommandLineLogin);

} // namespace
} // namespace co
