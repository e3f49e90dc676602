// `control-obras-cli pantalla` on both back-ends: a screen of the menu opened
// as the desktop opens it, through the user's rights and the works settings,
// and written as text; unknown programs, screens not built yet and refused
// programs say why and write nothing.
#include "core/main_menu.h"
#include "support/cli_run.h"
#include "support/layer_fixture.h"
#include "support/test_postgres.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

using Salida = test::CliRun;

class CliScreen : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        settings_ = test::freshInstallation(GetParam(), dir_.path());
        ASSERT_TRUE(EscribirInstalacion(dir_.path(), settings_));
        const Salida init =
            test::Ejecutar({QStringLiteral("init"), QStringLiteral("--dir"), dir_.path()});
        ASSERT_EQ(init.status, 0) << init.err.toStdString();
    }
    void TearDown() override { test::dropInstallation(settings_); }
    void sql(const QString &sentencia, const QStringList &antes = {}) {
        const Salida r =
            test::Ejecutar(QStringList{QStringLiteral("sql"), QStringLiteral("--dir"), dir_.path()}
                           << antes << sentencia);
        ASSERT_EQ(r.status, 0) << sentencia.toStdString() << r.out.toStdString()
                               << r.err.toStdString();
    }
    Salida pantalla(const QString &programa) {
        return test::Ejecutar(
            {QStringLiteral("pantalla"), QStringLiteral("--dir"), dir_.path(), programa});
    }
    QTemporaryDir dir_;
    InstallationSettings settings_;
};

TEST_P(CliScreen, AGridScreenShowsItsCaptionColumnsAndRowsInKeyOrder) {
    // The unit's table does not exist yet: opening the screen makes it.
    const Salida vacia = pantalla(QStringLiteral("Maestro de Unidades"));
    ASSERT_EQ(vacia.status, 0) << vacia.err.toStdString();
    EXPECT_EQ(vacia.out, QStringLiteral("Maestro de Unidades\nCódigo|Descripción|Descripción "
                                        "Ampliada|Unidad|% IVA|% Recargo\n"));
    sql(QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion, Unidad) VALUES ('M2', 'Metro "
                       "cuadrado', 'm2')"));
    sql(QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion, Unidad) VALUES ('H', 'Hora', "
                       "'h')"));
    // The form name opens it too, in any case.
    const Salida r = pantalla(QStringLiteral("fobraunid"));
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    const QStringList lineas = r.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 4) << r.out.toStdString();
    EXPECT_TRUE(lineas[2].startsWith(QStringLiteral("H|Hora||h|"))) << lineas[2].toStdString();
    EXPECT_TRUE(lineas[3].startsWith(QStringLiteral("M2|Metro cuadrado||m2|")));
}

TEST_P(CliScreen, SalePriceColumnsFollowTheWorksSettings) {
    auto cabecera = [this] {
        const Salida r = pantalla(QStringLiteral("Maestro de Maquinas"));
        EXPECT_EQ(r.status, 0) << r.err.toStdString();
        return r.out.section(u'\n', 1, 1);
    };
    // Without a settings row only percentages are in use: no sale price shows.
    EXPECT_FALSE(cabecera().contains(QStringLiteral("P.Venta"))) << cabecera().toStdString();
    sql(QStringLiteral("INSERT INTO PARAOBRA (IdRegistro, AdmPorPorcentajes) VALUES ('1', 'NO')"));
    EXPECT_TRUE(cabecera().contains(QStringLiteral("Cuota Horaria 4|P.Venta 1|P.Venta 2")))
        << cabecera().toStdString();
}

TEST_P(CliScreen, GlobalesShowsTheGeneralParametersWithoutTheRightsTest) {
    // Its menu entry opens without the test of its caption: a user refused
    // "Globales" by name still sees it.
    sql(QStringLiteral("UPDATE USUARIO SET ProgramasNoAccesibles = 'Globales' WHERE "
                       "Codigo = 'ADMIN'"),
        {QStringLiteral("--conexion"), QStringLiteral("DatabaseGeneral")});
    const Salida r = pantalla(QStringLiteral("Globales"));
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    const QStringList lineas = r.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_FALSE(lineas.isEmpty());
    EXPECT_EQ(lineas.first(), QStringLiteral("Parámetros Generales"));
    // The record was made with its defaults; memos keep to one line each.
    EXPECT_TRUE(lineas.contains(QStringLiteral("Plantilla Numérica Estándar|#,###.##")))
        << r.out.toStdString();
    EXPECT_TRUE(lineas.contains(QStringLiteral("Carácter Separador ASCII|@")));
    EXPECT_TRUE(lineas.contains(QStringLiteral(
        "Idiomas|Castellano·Frances·Ingles·Italiano·Portugues·Aleman·Catalan·Euskera·Gallego")))
        << r.out.toStdString();
    EXPECT_EQ(lineas.size(), 1 + 84) << "one line per field on the pages";

    // What is saved shows; the form name opens it too.
    sql(QStringLiteral("UPDATE PARAGENE SET RazonSocial = 'Hermanos Díaz, S.L.', Iva1 = '21' "
                       "WHERE IdRegistro = '1'"));
    const Salida otra = pantalla(QStringLiteral("fgenepara"));
    ASSERT_EQ(otra.status, 0) << otra.err.toStdString();
    EXPECT_TRUE(otra.out.contains(QStringLiteral("\nRazón Social|Hermanos Díaz, S.L.\n")))
        << otra.out.toStdString();
    EXPECT_TRUE(otra.out.contains(QStringLiteral("\n% IVA 1|21\n")));
}

TEST_P(CliScreen, UnknownMissingAndRefusedProgramsSayWhyAndShowNothing) {
    const Salida desconocido = pantalla(QStringLiteral("Maestro de Nada"));
    EXPECT_EQ(desconocido.status, 1);
    EXPECT_TRUE(desconocido.out.isEmpty());
    EXPECT_TRUE(desconocido.err.contains(QStringLiteral("Maestro de Nada")))
        << desconocido.err.toStdString();

    // A program of the menu whose screen is not built yet.
    const Salida pendiente = pantalla(QStringLiteral("Maestro de Obras"));
    EXPECT_EQ(pendiente.status, 1);
    EXPECT_TRUE(pendiente.out.isEmpty());
    EXPECT_EQ(pendiente.err.trimmed(),
              MenuPrincipal::TextoNoDisponible(QStringLiteral("Maestro de Obras")));

    sql(QStringLiteral("UPDATE USUARIO SET ProgramasNoAccesibles = 'Maestro de Unidades' WHERE "
                       "Codigo = 'ADMIN'"),
        {QStringLiteral("--conexion"), QStringLiteral("DatabaseGeneral")});
    const Salida prohibido = pantalla(QStringLiteral("Maestro de Unidades"));
    EXPECT_EQ(prohibido.status, 1);
    EXPECT_TRUE(prohibido.out.isEmpty());
    EXPECT_TRUE(prohibido.err.contains(
        QStringLiteral("Vd. no tiene acceso al programa Maestro de Unidades")))
        << prohibido.err.toStdString();
    // Another program of the same user still opens.
    EXPECT_EQ(pantalla(QStringLiteral("Maestro de Incidencias")).status, 0);
}

CO_ON_BOTH_BACKENDS(CliScreen);

} // namespace
} // namespace co
