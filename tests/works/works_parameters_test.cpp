// The works parameters screen and the works data module, on both back-ends:
// the single row made with its defaults, saving and cancelling, the refusal of
// a second row, and the module seeing the new values once the screen closes.
#include "support/screen_test.h"
#include "works/works_data.h"
#include "works/works_parameters.h"
#include "works_fixture.h"

#include <gtest/gtest.h>

namespace co::works {
namespace {

using namespace co::forms;

using co::test::ScreenTest;

class WorksParameters : public WorksScreenTest {
protected:
    QString rows() { return datos_->EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM PARAOBRA")); }
    void type(ScreenTest<TfOBRAPARA> &s, const QString &campo, const QString &texto) {
        forms::Table &t = s.form().Table1();
        ASSERT_TRUE(s.form().Rutinas().Ejecutar([&] {
            if (!t.IsPending())
                t.Edit();
            t.FieldByName(campo).SetAsString(texto);
        }));
    }
};

TEST_P(WorksParameters, AFirstOpeningLeavesOneRowWithTheDefaults) {
    ScreenTest<TfOBRAPARA> s(*datos_);
    ASSERT_TRUE(s.open());
    EXPECT_EQ(s.form().Caption, QStringLiteral("Parámetros de Control de Obras"));
    EXPECT_EQ(rows(), QStringLiteral("1"));
    const QString fila = datos_->EjecutarSQL(
        QStringLiteral("SELECT MultiPartes, PartesSeparados, DtoRetencionVto, "
                       "CfgDescripcionFactura, ContadorMultiMarcajes FROM PARAOBRA"));
    EXPECT_EQ(fila, QStringLiteral("SI|SI|NO|Descripcion+DescripcionAmpliada|NO"));
    ASSERT_TRUE(s.reopen());
    EXPECT_EQ(rows(), QStringLiteral("1")) << "a second opening adds nothing";
}

TEST_P(WorksParameters, TheRowCanBeNeitherAddedToNorDeleted) {
    ScreenTest<TfOBRAPARA> s(*datos_);
    ASSERT_TRUE(s.open());
    forms::Table &t = s.form().Table1();
    EXPECT_FALSE(s.form().Rutinas().Ejecutar([&] { t.Append(); }));
    EXPECT_FALSE(s.form().Rutinas().Ejecutar([&] { t.Delete(); }));
    EXPECT_EQ(rows(), QStringLiteral("1"));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'|').toStdString();
}

TEST_P(WorksParameters, SavingClosesAndTheModuleSeesTheValuesOnlyAfterTheClose) {
    TMDObra obra(*datos_);
    EXPECT_FALSE(obra.ParametrosGrabados());
    EXPECT_TRUE(obra.ParametrosMultiPartes()) << "defaults before any row";
    EXPECT_EQ(obra.Parametro(QStringLiteral("CfgDescripcionPresupuesto")),
              QStringLiteral("Descripcion+DescripcionAmpliada"));

    ScreenTest<TfOBRAPARA> s(*datos_);
    ASSERT_TRUE(s.open());
    s.form().AlCerrar = [&obra] { obra.RefrescarParametros(); };
    type(s, QStringLiteral("MultiPartes"), QStringLiteral("NO"));
    type(s, QStringLiteral("PorGastosGenerales"), QStringLiteral("13,5"));
    type(s, QStringLiteral("DiasVtoRetencion"), QStringLiteral("90"));
    EXPECT_TRUE(obra.ParametrosMultiPartes()) << "nothing is read while the screen is open";
    ASSERT_TRUE(s.click(QStringLiteral("pbGrabar")));
    EXPECT_TRUE(s.form().Closed());
    EXPECT_TRUE(obra.ParametrosGrabados());
    EXPECT_FALSE(obra.ParametrosMultiPartes());
    EXPECT_TRUE(obra.ParametrosPartesSeparados());
    EXPECT_DOUBLE_EQ(obra.ParametroNumero(QStringLiteral("PorGastosGenerales")), 13.5);
    EXPECT_DOUBLE_EQ(obra.ParametroNumero(QStringLiteral("DiasVtoRetencion")), 90.0);
    EXPECT_EQ(datos_->EjecutarSQL(QStringLiteral("SELECT MultiPartes FROM PARAOBRA")),
              QStringLiteral("NO"));
}

TEST_P(WorksParameters, CancellingClosesAndKeepsTheStoredRow) {
    ScreenTest<TfOBRAPARA> s(*datos_);
    ASSERT_TRUE(s.open());
    int cierres = 0;
    s.form().AlCerrar = [&cierres] { ++cierres; };
    type(s, QStringLiteral("PartesSeparados"), QStringLiteral("NO"));
    ASSERT_TRUE(s.click(QStringLiteral("pbCancelar")));
    EXPECT_TRUE(s.form().Closed());
    EXPECT_EQ(cierres, 1);
    EXPECT_EQ(datos_->EjecutarSQL(QStringLiteral("SELECT PartesSeparados FROM PARAOBRA")),
              QStringLiteral("SI"));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'|').toStdString();
}

TEST_P(WorksParameters, TheModuleReadsAStoredRowAndComparesFlagsExactly) {
    ok(QStringLiteral("INSERT INTO PARAOBRA (IdRegistro, MultiPartes, PartesSeparados, "
                      "AdmPorPorcentajes, ModificarPartes, CoeficienteRevision) "
                      "VALUES (1, 'NO', 'no', NULL, 'si', 1.25)"));
    TMDObra obra(*datos_);
    EXPECT_TRUE(obra.ParametrosGrabados());
    EXPECT_FALSE(obra.ParametrosMultiPartes());
    EXPECT_TRUE(obra.EsNO(QStringLiteral("MultiPartes")));
    // "no" in lower case is neither on nor off.
    EXPECT_FALSE(obra.ParametrosPartesSeparados());
    EXPECT_FALSE(obra.EsNO(QStringLiteral("PartesSeparados")));
    EXPECT_FALSE(obra.ParametrosModificarPartes()) << "only \"SI\" switches a flag on";
    EXPECT_FALSE(obra.EsNO(QStringLiteral("ModificarPartes")));
    EXPECT_TRUE(obra.ParametrosAdmPorPorcentajes()) << "an empty flag takes its default, SI";
    EXPECT_EQ(obra.Bandera(QStringLiteral("ContadorMultiMarcajes")), QStringLiteral("NO"));
    EXPECT_FALSE(obra.EsSI(QStringLiteral("ContadorMultiMarcajes")))
        << "an empty flag whose default is NO stays off";
    EXPECT_DOUBLE_EQ(obra.ParametroNumero(QStringLiteral("coeficienterevision")), 1.25);
    EXPECT_EQ(obra.Parametro(QStringLiteral("PlantillaFactura")), QString());
    // A failed refresh keeps what was held.
    ok(QStringLiteral("DROP TABLE PARAOBRA"));
    datos_->setTableCreator(nullptr);
    obra.RefrescarParametros();
    EXPECT_FALSE(obra.ParametrosMultiPartes());
}

CO_ON_BOTH_BACKENDS(WorksParameters);

} // namespace
} // namespace co::works
