// The "Globales" screen (`TfGENEPARA`) opened the program's way, on both
// back-ends: a session started on an installation made by `init`, the screens
// registered as the desktop and the command line register them, and opened
// through the session's environment. It covers the record made with its
// defaults, a change saved and read back, the save rules (empty standard
// template, euro equal to the national currency), the currency taken at once
// after a post and the number templates taken at the next choice of company by
// a works screen's fields.
#include "core/general_parameters.h"
#include "core/general_parameters_table.h"
#include "core/startup.h"
#include "forms/general_parameters_screen.h"
#include "forms/general_screens.h"
#include "support/cli_installation.h"
#include "works/screens.h"

#include <gtest/gtest.h>
#include <memory>

namespace co::forms {
namespace {

class GeneralParametersScreen : public co::test::CliInstallationTest {
protected:
    void SetUp() override {
        CliInstallationTest::SetUp();
        if (HasFatalFailure())
            return;
        OpcionesArranque o;
        o.carpetaInstalacion = o.carpetaAplicacion = dir_.path();
        o.carpetaDatos = co::test::kCarpetaDatos;
        o.linea.ParametroUsuario = QStringLiteral("ADMIN");
        app_ = std::make_unique<Aplicacion>(o, &port_);
        ASSERT_TRUE(app_->Iniciar()) << port_.texts().join(u'\n').toStdString();
        ASSERT_TRUE(app_->Identificar()) << port_.texts().join(u'\n').toStdString();
        ASSERT_NO_FATAL_FAILURE(empresa());
        RegistrarPantallasGenerales(registro_, SesionGeneralDe(*app_));
        works::RegistrarPantallasObras(registro_);
    }
    void TearDown() override {
        pantalla_.reset();
        app_.reset();
        CliInstallationTest::TearDown();
    }
    // The company chosen again, as a change of company does.
    void empresa() {
        pantalla_.reset(); // its tables go before the connection is made again
        const int codigo = app_->EmpresaInicial();
        ASSERT_NE(codigo, 0);
        app_->sesion().CodigoEmpresa = 0;
        ASSERT_TRUE(app_->SeleccionarEmpresa(codigo)) << port_.texts().join(u'\n').toStdString();
        port_.clear();
    }
    // Opens a program by form name as the program does; nullptr when it did not open.
    MaestroTabla *abrir(const QString &formulario) {
        pantalla_.reset();
        pantalla_ = registro_.Abrir(formulario, EntornoDeSesion(*app_));
        return pantalla_.get();
    }
    TfGENEPARA &globales() { return dynamic_cast<TfGENEPARA &>(*pantalla_); }
    bool ejecutar(const std::function<void()> &accion) {
        return pantalla_->Rutinas().Ejecutar(accion);
    }
    // Types into a control as the view does: focus, auto edit, change event.
    bool escribir(const QString &control, const QString &texto) {
        auto *c = pantalla_->Find<DataControl>(control);
        if (!c)
            return false;
        return ejecutar([&] {
            if (!pantalla_->SetFocus(c))
                Abort();
            if (!c->DataSet()->IsPending())
                c->DataSet()->Edit();
            c->BoundField()->SetAsString(texto);
            pantalla_->RunEvent(*c, QStringLiteral("OnChange"));
        });
    }
    bool pulsar(const QString &boton) {
        return ejecutar([&] {
            if (!pantalla_->Click(boton))
                Abort();
        });
    }
    QString sql(const QString &sentencia) {
        const QString r = app_->datos().EjecutarSQL(sentencia);
        EXPECT_FALSE(r.startsWith(QStringLiteral("Error."))) << r.toStdString();
        return r;
    }
    QString parametro(const QString &campo) {
        return sql(QStringLiteral("SELECT %1 FROM PARAGENE WHERE IdRegistro = 1").arg(campo));
    }

    ScriptedMessages port_;
    std::unique_ptr<Aplicacion> app_;
    RegistroPantallas registro_;
    std::unique_ptr<MaestroTabla> pantalla_;
};

TEST_P(GeneralParametersScreen, OpensOnItsPagesAndMakesTheRecordWithItsDefaults) {
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) FROM PARAGENE")), QStringLiteral("0"));
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr)
        << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(pantalla_->Caption, QStringLiteral("Parámetros Generales"));
    EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
    // The one record, with its defaults, in the database at once.
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) FROM PARAGENE")), QStringLiteral("1"));
    EXPECT_EQ(parametro(QStringLiteral("PlantillaNumericaStd")), QStringLiteral("#,###.##"));
    EXPECT_EQ(parametro(QStringLiteral("TipoCombinacionTramas")), QStringLiteral("Standard"));
    EXPECT_EQ(parametro(QStringLiteral("TipoPortesVenta")), QStringLiteral("Debidos"));
    EXPECT_EQ(globales().Table1().State(), DatasetState::Browse);

    // Every page in order, every field on its page.
    QStringList paginas;
    for (Component *c : pantalla_->Components())
        if (c->Kind() == ComponentKind::TabSheet)
            paginas << c->Name();
    EXPECT_EQ(paginas,
              (QStringList{"PagGeneral", "PagEmpresa", "PagTiposIVA", "PagImpresoras", "PagVentas",
                           "PagCompras", "PagInternacional", "PagIntrastat", "PagGruposAnalisis",
                           "PagPlantillas", "TabSheet1", "PagCertificados"}));
    EXPECT_EQ(pantalla_->FindComponent(QStringLiteral("PagTiposIVA"))->Caption,
              QStringLiteral("Tipos IVA"));
    for (const PaginaParametros &p : PaginasPARAGENE())
        for (const QString &campo : p.campos) {
            DataControl *c = globales().Control(campo);
            ASSERT_NE(c, nullptr) << campo.toStdString();
            ASSERT_NE(c->Parent, nullptr) << campo.toStdString();
            EXPECT_EQ(c->Parent->Name(), p.pagina) << campo.toStdString();
            EXPECT_NE(c->BoundField(), nullptr) << campo.toStdString();
        }
    // Blocks and texts in memos, choices in combo boxes, the rest in edits.
    EXPECT_EQ(globales().Control(QStringLiteral("PlantillaNumericaExt"))->Kind(),
              ComponentKind::DBMemo);
    EXPECT_EQ(globales().Control(QStringLiteral("Idiomas"))->Name(), QStringLiteral("MemoIdiomas"));
    EXPECT_EQ(globales().Control(QStringLiteral("PlantillaNumericaStd"))->Kind(),
              ComponentKind::DBComboBox);
    EXPECT_EQ(globales().Control(QStringLiteral("FmtVisualizacionPrevia"))->Items,
              OpcionesCampoPARAGENE(QStringLiteral("FmtVisualizacionPrevia")));
    EXPECT_EQ(globales().Control(QStringLiteral("RazonSocial"))->Kind(), ComponentKind::DBEdit);
    EXPECT_EQ(globales().Control(QStringLiteral("RazonSocial"))->Caption,
              QStringLiteral("Razón Social"));
    EXPECT_EQ(globales().Control(QStringLiteral("Recargo3"))->Caption, QStringLiteral("% Recargo 3"));
    EXPECT_TRUE(globales()
                    .Control(QStringLiteral("Idiomas"))
                    ->BoundField()
                    ->AsString()
                    .startsWith(QStringLiteral("Castellano\r\nFrances\r\n")));

    // Opened again, the record is the same one: no second row.
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) FROM PARAGENE")), QStringLiteral("1"));
    // The row can be neither added to nor deleted.
    EXPECT_FALSE(ejecutar([&] { globales().Table1().Append(); }));
    EXPECT_FALSE(ejecutar([&] { globales().Table1().Delete(); }));
    EXPECT_EQ(sql(QStringLiteral("SELECT COUNT(*) FROM PARAGENE")), QStringLiteral("1"));
}

TEST_P(GeneralParametersScreen, ChangesOnSeveralPagesAreSavedByGrabarAndReadBack) {
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(
        escribir(QStringLiteral("EditRazonSocial"), QStringLiteral("Obras O'Donnell, S.L.")));
    ASSERT_TRUE(escribir(QStringLiteral("EditIva1"), QStringLiteral("21")));
    ASSERT_TRUE(escribir(QStringLiteral("ComboBoxFmtVisualizacionPrevia"),
                         QStringLiteral("Pagina Completa")));
    ASSERT_TRUE(escribir(QStringLiteral("MemoIdiomas"), QStringLiteral("Castellano\r\nCatalan")));
    EXPECT_EQ(globales().Table1().State(), DatasetState::Edit);
    ASSERT_TRUE(pulsar(QStringLiteral("pbGrabar"))) << port_.texts().join(u'\n').toStdString();
    EXPECT_TRUE(pantalla_->Closed());
    EXPECT_EQ(parametro(QStringLiteral("RazonSocial")), QStringLiteral("Obras O'Donnell, S.L."));
    EXPECT_EQ(parametro(QStringLiteral("Iva1")), QStringLiteral("21"));
    EXPECT_EQ(parametro(QStringLiteral("FmtVisualizacionPrevia")),
              QStringLiteral("Pagina Completa"));
    // A memo's lines are kept as typed (the statement's result text would join them).
    const auto registro = LeerParametrosGenerales(app_->datos());
    ASSERT_TRUE(registro.has_value());
    EXPECT_EQ(registro->value(QStringLiteral("Idiomas")).toString(),
              QStringLiteral("Castellano\r\nCatalan"));
    // Fields not touched keep their values.
    EXPECT_EQ(parametro(QStringLiteral("TipoCombinacionTramas")), QStringLiteral("Standard"));

    // The screen opened again shows what was saved.
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    EXPECT_EQ(globales().Control(QStringLiteral("RazonSocial"))->BoundField()->AsString(),
              QStringLiteral("Obras O'Donnell, S.L."));
}

TEST_P(GeneralParametersScreen, BadInputIsToldAndLosesNothing) {
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(escribir(QStringLiteral("EditRazonSocial"), QStringLiteral("Antes")));
    // A letter in a percentage: told, the field keeps what it had.
    EXPECT_FALSE(escribir(QStringLiteral("EditIva2"), QStringLiteral("diez")));
    EXPECT_EQ(port_.texts(), QStringList{QStringLiteral(
                                 "¡ El dato introducido no es válido !. Repita por favor.")});
    EXPECT_TRUE(globales().Control(QStringLiteral("Iva2"))->BoundField()->IsNull() ||
                globales().Control(QStringLiteral("Iva2"))->BoundField()->AsFloat() == 0);
    EXPECT_EQ(globales().Table1().State(), DatasetState::Edit);
    EXPECT_EQ(globales().Control(QStringLiteral("RazonSocial"))->BoundField()->AsString(),
              QStringLiteral("Antes"));
    // A value that is not one of the choices is refused on save, the record pending.
    port_.clear();
    ASSERT_TRUE(escribir(QStringLiteral("ComboBoxTipoCombinacionTramas"), QStringLiteral("Otra")));
    EXPECT_FALSE(pulsar(QStringLiteral("pbGrabar")));
    EXPECT_EQ(port_.texts(),
              QStringList{QStringLiteral(
                  "¡El valor \"Otra\" del campo \"Tipo Combinacion Tramas\" no es correcto!")});
    EXPECT_FALSE(pantalla_->Closed());
    EXPECT_EQ(globales().Table1().State(), DatasetState::Edit);
    EXPECT_EQ(parametro(QStringLiteral("TipoCombinacionTramas")), QStringLiteral("Standard"));
    EXPECT_EQ(parametro(QStringLiteral("RazonSocial")), QString());
}

TEST_P(GeneralParametersScreen, AnEmptyStandardTemplateIsSavedAsTheDefaultMask) {
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(escribir(QStringLiteral("ComboBoxPlantillaNumericaStd"), QString()));
    ASSERT_TRUE(globales().Table1().FieldByName(QStringLiteral("PlantillaNumericaStd")).IsNull());
    ASSERT_TRUE(pulsar(QStringLiteral("pbGrabar"))) << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(parametro(QStringLiteral("PlantillaNumericaStd")), QStringLiteral("#,###.##"));
    // Any other choice is kept as chosen.
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(
        escribir(QStringLiteral("ComboBoxPlantillaNumericaStd"), QStringLiteral("Ninguna")));
    ASSERT_TRUE(pulsar(QStringLiteral("pbGrabar")));
    EXPECT_EQ(parametro(QStringLiteral("PlantillaNumericaStd")), QStringLiteral("Ninguna"));
}

TEST_P(GeneralParametersScreen, TheSameCurrencyAsEuroAndNationalIsRefusedAndKeptAsTyped) {
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(escribir(QStringLiteral("EditRazonSocial"), QStringLiteral("Nueva")));
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaEuro"), QStringLiteral("2")));
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaNacional"), QStringLiteral("2")));
    EXPECT_FALSE(pulsar(QStringLiteral("pbGrabar")));
    EXPECT_EQ(port_.texts(), QStringList{QStringLiteral(
                                 "¡La Moneda Nacional y la Moneda Euro no pueden ser la misma!")});
    EXPECT_FALSE(pantalla_->Closed());
    Table &t = globales().Table1();
    EXPECT_EQ(t.State(), DatasetState::Edit);
    EXPECT_EQ(t.FieldByName(QStringLiteral("CodigoMonedaEuro")).AsString(), QStringLiteral("2"));
    EXPECT_EQ(t.FieldByName(QStringLiteral("CodigoMonedaNacional")).AsString(),
              QStringLiteral("2"));
    EXPECT_EQ(t.FieldByName(QStringLiteral("RazonSocial")).AsString(), QStringLiteral("Nueva"));
    EXPECT_EQ(parametro(QStringLiteral("RazonSocial")), QString());
    EXPECT_NE(parametro(QStringLiteral("CodigoMonedaNacional")), QStringLiteral("2"));

    // Corrected, the same record is saved.
    port_.clear();
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaNacional"), QStringLiteral("1")));
    ASSERT_TRUE(pulsar(QStringLiteral("pbGrabar"))) << port_.texts().join(u'\n').toStdString();
    EXPECT_TRUE(port_.texts().isEmpty());
    EXPECT_EQ(parametro(QStringLiteral("RazonSocial")), QStringLiteral("Nueva"));
    EXPECT_EQ(parametro(QStringLiteral("CodigoMonedaEuro")), QStringLiteral("2"));
    EXPECT_EQ(parametro(QStringLiteral("CodigoMonedaNacional")), QStringLiteral("1"));
}

TEST_P(GeneralParametersScreen, ANewCurrencyIsTakenByTheSessionAtOnce) {
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    sql(QStringLiteral("INSERT INTO MONEDA (Codigo, Descripcion, Abreviatura, Cambio, Decimales) "
                       "VALUES ('1', 'Pesetas', 'Pts', '1', '0')"));
    sql(QStringLiteral("INSERT INTO MONEDA (Codigo, Descripcion, Abreviatura, Cambio, Decimales) "
                       "VALUES ('2', 'Euros', 'EUR', '166.386', '2')"));
    EXPECT_EQ(app_->monedas().CodigoMonedaBase, 0);
    EXPECT_FALSE(app_->monedas().MonedaBaseEsEuro);
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaBase"), QStringLiteral("2")));
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaEuro"), QStringLiteral("2")));
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaNacional"), QStringLiteral("1")));
    // Nothing changes before the post.
    EXPECT_EQ(app_->monedas().CodigoMonedaBase, 0);
    ASSERT_TRUE(pulsar(QStringLiteral("pbGrabar"))) << port_.texts().join(u'\n').toStdString();
    // No change of company: the post alone brought them.
    const CurrencyValues &m = app_->monedas();
    EXPECT_EQ(m.CodigoMonedaBase, 2);
    EXPECT_EQ(m.CodigoMonedaNacional, 1);
    EXPECT_EQ(m.CodigoMonedaEuro, 2);
    EXPECT_TRUE(m.MonedaBaseEsEuro);
    EXPECT_EQ(m.DecimalesMoneda, 2);
    EXPECT_EQ(m.AbreviaturaMoneda, QStringLiteral("EUR"));

    // Back to the national currency, through the screen again.
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaBase"), QStringLiteral("1")));
    ASSERT_TRUE(pulsar(QStringLiteral("pbGrabar")));
    EXPECT_FALSE(app_->monedas().MonedaBaseEsEuro);
    EXPECT_EQ(app_->monedas().DecimalesMoneda, 0);
    // A refused save changes nothing.
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaBase"), QStringLiteral("2")));
    ASSERT_TRUE(escribir(QStringLiteral("EditCodigoMonedaNacional"), QStringLiteral("2")));
    EXPECT_FALSE(pulsar(QStringLiteral("pbGrabar")));
    EXPECT_EQ(app_->monedas().CodigoMonedaBase, 1);
}

TEST_P(GeneralParametersScreen, AChangedTemplateFormatsAWorksScreensFieldsAtTheNextCompanyChoice) {
    ASSERT_NE(abrir(QStringLiteral("fOBRAMAQU")), nullptr);
    sql(QStringLiteral("INSERT INTO MAQUINOB (Codigo, Descripcion, CuotaHoraria1, PrecioVenta1) "
                       "VALUES ('M1', 'Grua', '1234.5', '40')"));
    auto maquina = [&](const QString &campo) {
        EXPECT_NE(abrir(QStringLiteral("fOBRAMAQU")), nullptr);
        if (!pantalla_)
            return QString();
        pantalla_->Table1().First();
        return pantalla_->Table1().FieldByName(campo).DisplayText();
    };
    // No template names these fields: they show as stored.
    EXPECT_EQ(maquina(QStringLiteral("CuotaHoraria1")), QStringLiteral("1234,5"));
    EXPECT_EQ(maquina(QStringLiteral("PrecioVenta1")), QStringLiteral("40"));

    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(escribir(QStringLiteral("MemoPlantillaNumericaExt"),
                         QStringLiteral("PlantillaNumerica1=#,##0.000 Cantidad,Cuota\r\n"
                                        "PlantillaNumerica2=0.00 Precio,Tarifa")));
    ASSERT_TRUE(pulsar(QStringLiteral("pbGrabar"))) << port_.texts().join(u'\n').toStdString();
    // Templates are read when the company's data module is made, not at the post.
    EXPECT_EQ(maquina(QStringLiteral("CuotaHoraria1")), QStringLiteral("1234,5"));

    ASSERT_NO_FATAL_FAILURE(empresa());
    EXPECT_EQ(maquina(QStringLiteral("CuotaHoraria1")), QStringLiteral("1.234,500"));
    EXPECT_EQ(maquina(QStringLiteral("PrecioVenta1")), QStringLiteral("40,00"));
    EXPECT_EQ(pantalla_->Table1().FieldByName(QStringLiteral("CuotaHoraria2")).DisplayFormat,
              QStringLiteral("#,##0.000"));
    EXPECT_TRUE(
        pantalla_->Table1().FieldByName(QStringLiteral("Descripcion")).DisplayFormat.isEmpty());
    // The format stays through a refresh of the table.
    pantalla_->Table1().Close();
    pantalla_->Table1().Open();
    EXPECT_EQ(pantalla_->Table1().FieldByName(QStringLiteral("CuotaHoraria1")).DisplayText(),
              QStringLiteral("1.234,500"));

    // A template the block lacks takes the standard mask and names no field.
    ASSERT_NE(abrir(QStringLiteral("fGENEPARA")), nullptr);
    ASSERT_TRUE(escribir(QStringLiteral("MemoPlantillaNumericaExt"),
                         QStringLiteral("PlantillaNumerica2=0.0000 Cuota")));
    ASSERT_TRUE(escribir(QStringLiteral("ComboBoxPlantillaNumericaStd"), QStringLiteral("0.##")));
    ASSERT_TRUE(pulsar(QStringLiteral("pbGrabar")));
    ASSERT_NO_FATAL_FAILURE(empresa());
    EXPECT_EQ(app_->plantillas().mascaraGlobal, QStringLiteral("0.##"));
    EXPECT_EQ(app_->plantillas().plantillas[0].mascara, QStringLiteral("0.##"));
    EXPECT_TRUE(app_->plantillas().plantillas[0].fragmentos.isEmpty());
    EXPECT_EQ(maquina(QStringLiteral("CuotaHoraria1")), QStringLiteral("1234,5000"));
    EXPECT_EQ(maquina(QStringLiteral("PrecioVenta1")), QStringLiteral("40"));
}

CO_ON_BOTH_BACKENDS(GeneralParametersScreen);

} // namespace
} // namespace co::forms
