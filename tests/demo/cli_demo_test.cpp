// `control-obras-cli demo` as a script or `make run` calls it, on both back-ends.
#include "support/cli_installation.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

using Salida = test::CliRun;

class OrdenDemo : public test::CliInstallationTest {
protected:
    Salida demo(const QStringList &mas) { return cli(QStringLiteral("demo"), mas); }
    QString sql(const QString &sentencia, const QString &conexion = {}) {
        QStringList args;
        if (!conexion.isEmpty())
            args << QStringLiteral("--conexion") << conexion;
        return CliInstallationTest::sql(args << sentencia).out;
    }
};

TEST_P(OrdenDemo, FillsCompanyOneOnceAndRefusesASecondTime) {
    const Salida primera = demo({QStringLiteral("--escala"), QStringLiteral("0.02"),
                                 QStringLiteral("--semilla"), QStringLiteral("5")});
    ASSERT_EQ(primera.status, 0) << primera.err.toStdString();
    EXPECT_TRUE(primera.out.startsWith(QStringLiteral("Empresa 1 de demostración creada: ")))
        << primera.out.toStdString();
    const QString nombre = sql(QStringLiteral("SELECT Nombre FROM EMPRESA WHERE Codigo = 1"),
                               QStringLiteral("DatabaseGeneral"));
    EXPECT_TRUE(primera.out.contains(nombre)) << nombre.toStdString();
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) FROM OBRA")), QStringLiteral("15"));
    const QString partes = sql(QStringLiteral("SELECT COUNT(*) FROM PARTEOB"));
    EXPECT_GT(partes.toInt(), 0);

    const Salida segunda = demo({QStringLiteral("--semilla"), QStringLiteral("6")});
    EXPECT_EQ(segunda.status, 1);
    EXPECT_TRUE(segunda.err.contains(QStringLiteral("¡La empresa 1 ya tiene datos")))
        << segunda.err.toStdString();
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) FROM PARTEOB")), partes);

    const Salida forzada =
        demo({QStringLiteral("--escala"), QStringLiteral("0.04"), QStringLiteral("--forzar")});
    ASSERT_EQ(forzada.status, 0) << forzada.err.toStdString();
    EXPECT_GT(sql(QStringLiteral("SELECT COUNT(*) FROM PARTEOB")).toInt(), partes.toInt());
}

TEST_P(OrdenDemo, BadArgumentsAreToldAndWriteNothing) {
    Salida r = demo({QStringLiteral("--escala"), QStringLiteral("mucha")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(
        r.err.contains(QStringLiteral("¡El valor de Escala es incorrecto! Repita por favor")))
        << r.err.toStdString();
    r = demo({QStringLiteral("--semilla"), QStringLiteral("-3")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("Semilla"))) << r.err.toStdString();
    r = demo({QStringLiteral("--escala"), QStringLiteral("0")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("¡La escala debe ser un número mayor que 0")))
        << r.err.toStdString();
    r = demo({QStringLiteral("--escala")});
    EXPECT_EQ(r.status, 2);
    EXPECT_TRUE(r.err.contains(QStringLiteral("control-obras-cli demo"))) << r.err.toStdString();
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) FROM CLIENTE")), QStringLiteral("0"));
}

CO_ON_BOTH_BACKENDS(OrdenDemo);

} // namespace
} // namespace co
