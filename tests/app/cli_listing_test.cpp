// `control-obras-cli listado-tarifas` on both back-ends: the rate listing of
// the first company written as a PDF whose text holds the listing's lines, the
// message of an empty listing, and a PDF path that cannot be written.
#include "support/cli_installation.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

using Salida = test::CliRun;

Salida ejecutar(const QString &programa, const QStringList &args) {
    return test::Ejecutar(args, programa);
}

class CliRateListing : public test::CliInstallationTest {
protected:
    void sql(const QString &sentencia) {
        const Salida r = CliInstallationTest::sql({sentencia});
        ASSERT_EQ(r.status, 0) << sentencia.toStdString() << r.err.toStdString();
    }
    Salida listado(const QString &pdf) {
        return cli(QStringLiteral("listado-tarifas"), {QStringLiteral("--pdf"), pdf});
    }
};

TEST_P(CliRateListing, WritesAPdfWithTheRatesTheirLinesAndSums) {
    sql(QStringLiteral("INSERT INTO TARFMAQ (Codigo, Descripcion) VALUES ('1', 'Tarifa Base')"));
    sql(QStringLiteral("INSERT INTO LTARFMAQ (Codigo, CodigoUnidad, Descripcion, "
                       "DescripcionAmpliada, PrecioCosto, PrecioVenta) VALUES "
                       "('1', 'HORA', 'Hora de grúa', '', '40.5', '55')"));
    sql(QStringLiteral("INSERT INTO LTARFMAQ (Codigo, CodigoUnidad, Descripcion, "
                       "DescripcionAmpliada, PrecioCosto, PrecioVenta) VALUES "
                       "('1', 'KM', 'Kilómetro', '', '0.35', '0.6')"));
    const QString pdf = dir_.path() + QStringLiteral("/tarifas.pdf");
    const Salida r = listado(pdf);
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    const Salida texto = ejecutar(QStringLiteral("pdftotext"),
                                  {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    ASSERT_EQ(texto.status, 0) << texto.err.toStdString();
    const QStringList lineas = texto.out.split(u'\n');
    auto linea = [&](const QString &a, const QString &b) {
        for (const QString &l : lineas)
            if (l.contains(a) && (b.isEmpty() || l.indexOf(b, l.indexOf(a) + a.size()) >= 0))
                return true;
        return false;
    };
    EXPECT_TRUE(linea(QStringLiteral("Listado de Tarifas"), QString())) << texto.out.toStdString();
    EXPECT_TRUE(linea(QStringLiteral("Tarifa:"), QStringLiteral("Tarifa Base")));
    EXPECT_TRUE(linea(QStringLiteral("HORA"), QStringLiteral("Hora de grúa")));
    EXPECT_TRUE(linea(QStringLiteral("Hora de grúa"), QStringLiteral("40,5")));
    EXPECT_TRUE(linea(QStringLiteral("KM"), QStringLiteral("Kilómetro")));
    EXPECT_TRUE(linea(QStringLiteral("Kilómetro"), QStringLiteral(",35")))
        << texto.out.toStdString();
    EXPECT_TRUE(linea(QStringLiteral("Total Tarifa:"), QStringLiteral("40,85")));
    EXPECT_TRUE(linea(QStringLiteral("40,85"), QStringLiteral("55,6")));
    EXPECT_TRUE(linea(QStringLiteral("Número de líneas: 2"), QString()));
    EXPECT_TRUE(linea(QStringLiteral("Página 1"), QString()));
}

TEST_P(CliRateListing, NoRatesSaysSoAndAnUnwritablePathGivesTheCreatorsFailure) {
    const QString pdf = dir_.path() + QStringLiteral("/vacio.pdf");
    const Salida vacio = listado(pdf);
    EXPECT_NE(vacio.status, 0);
    EXPECT_TRUE(vacio.err.contains(QStringLiteral("No existen datos para listar")))
        << vacio.err.toStdString();
    EXPECT_FALSE(QFile::exists(pdf));

    sql(QStringLiteral("INSERT INTO LTARFMAQ (Codigo, CodigoUnidad, Descripcion, PrecioCosto, "
                       "PrecioVenta) VALUES ('2', 'DIA', 'Día', '1', '2')"));
    const Salida malo = listado(QStringLiteral("/no/existe/tarifas.pdf"));
    EXPECT_NE(malo.status, 0);
    EXPECT_TRUE(malo.err.contains(
        QStringLiteral("Se ha producido un error al generar el archivo PDF. Motivo: ")))
        << malo.err.toStdString();
}

TEST_P(CliRateListing, AFullDeviceIsAFailureNotASuccess) {
    sql(QStringLiteral("INSERT INTO LTARFMAQ (Codigo, CodigoUnidad, Descripcion, PrecioCosto, "
                       "PrecioVenta) VALUES ('2', 'DIA', 'Día', '1', '2')"));
    const Salida lleno = listado(QStringLiteral("/dev/full"));
    EXPECT_NE(lleno.status, 0);
    EXPECT_TRUE(lleno.err.contains(
        QStringLiteral("Se ha producido un error al generar el archivo PDF. Motivo: ")))
        << lleno.err.toStdString();
}

CO_ON_BOTH_BACKENDS(CliRateListing);

} // namespace
} // namespace co
