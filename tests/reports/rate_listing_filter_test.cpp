// The filter form of the rate listing on both back-ends: the restrictions line
// read from its own controls (and its lines per 100 or 160 characters), its
// checks, its parameters, and `pbListar` running the listing to a PDF.
#include "reports/rate_listing_filter.h"
#include "support/layer_fixture.h"

#include <QFile>

namespace co::test {
namespace {

const QString kHastaZ = QStringLiteral("zzzzzzzzzzzzzzzzzzzzzzzzzzzzzz");

class RateListingFilter : public TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral("INSERT INTO TARFMAQ (Codigo, Descripcion) VALUES ('4', 'Tarifa Obra')"));
        ok(QStringLiteral("INSERT INTO LTARFMAQ (Codigo, CodigoUnidad, Descripcion, "
                          "DescripcionAmpliada, PrecioCosto, PrecioVenta) VALUES "
                          "('4', 'M3', 'Metro cúbico', '', '12', '18')"));
        filtro_ = std::make_unique<FiltroListadoTarifas>(*datos_, *creador_, [this] {
            ReportEnvironment e;
            e.mensajes = &sesion_->mensajes();
            e.nombreEmpresa = QStringLiteral("Empresa de Pruebas");
            return e;
        });
    }
    void TearDown() override {
        filtro_.reset();
        TablesOnDemandTest::TearDown();
    }
    void escribir(const QString &control, const QString &texto) {
        filtro_->FindComponent(control)->Text = texto;
    }
    void marcar(const QString &control, bool on) { filtro_->FindComponent(control)->Checked = on; }

    std::unique_ptr<FiltroListadoTarifas> filtro_;
};

TEST_P(RateListingFilter, RestrictionsComeFromTheFormsControlsInTheirOrder) {
    // Defaults: the empty unit edit is left out, the preview box always.
    EXPECT_EQ(TextoRestricciones(*filtro_),
              QStringLiteral("Desde Tarifa: 0, Hasta Tarifa: 999, Hasta Unidad: ") + kHastaZ +
                  QStringLiteral(", "));
    escribir(QStringLiteral("DesdeUnidad"), QStringLiteral("H"));
    marcar(QStringLiteral("SepararEnPaginas"), true);
    marcar(QStringLiteral("VisualizacionPrevia"), false);
    EXPECT_EQ(
        TextoRestricciones(*filtro_),
        QStringLiteral("Desde Tarifa: 0, Hasta Tarifa: 999, Desde Unidad: H, Hasta Unidad: ") +
            kHastaZ + QStringLiteral(", Separar en Paginas, "));
    // Line ends typed into an edit do not reach the line.
    escribir(QStringLiteral("DesdeUnidad"), QStringLiteral("H\r\nX"));
    EXPECT_TRUE(TextoRestricciones(*filtro_).contains(QStringLiteral("Desde Unidad: HX, ")));
}

TEST_P(RateListingFilter, TheReportsLineHasOneLinePer100CharactersPortraitAnd160Landscape) {
    // A unit range long enough for 2 portrait lines and 1 landscape line:
    // prefix 38 + text between 100 and 159 characters.
    escribir(QStringLiteral("DesdeUnidad"), QString(20, u'A'));
    filtro_->CopiarParametros();
    std::unique_ptr<Report> r = filtro_->CrearReport();
    ASSERT_TRUE(r->restricciones().has_value());
    const QString texto = r->restricciones()->Texto;
    ASSERT_TRUE(texto.startsWith(QLatin1String(kPrefijoRestricciones)));
    ASSERT_GE(texto.size(), 100);
    ASSERT_LT(texto.size(), 160);
    EXPECT_TRUE(texto.contains(QStringLiteral("Desde Unidad: ") + QString(20, u'A')));
    const ReportControl *label =
        r->Diseno.PageHeader->control(QStringLiteral("LabelRestricciones"));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->Height, 30); // 2 lines of 15
    EXPECT_EQ(LineasRestricciones(texto, Orientation::Portrait), 2);
    EXPECT_EQ(LineasRestricciones(texto, Orientation::Landscape), 1);

    escribir(QStringLiteral("DesdeUnidad"), QString(130, u'A'));
    std::unique_ptr<Report> largo = filtro_->CrearReport();
    ASSERT_EQ(largo->restricciones()->Texto.size(), 266);
    EXPECT_EQ(largo->Diseno.PageHeader->control(QStringLiteral("LabelRestricciones"))->Height, 45);
}

TEST_P(RateListingFilter, ChecksStopTheRunWithTheFormsMessage) {
    escribir(QStringLiteral("DesdeTarifa"), QStringLiteral("x"));
    EXPECT_EQ(filtro_->Validar(), QStringLiteral("¡El código de tarifa debe ser un número!"));
    escribir(QStringLiteral("DesdeTarifa"), QStringLiteral("5"));
    escribir(QStringLiteral("HastaTarifa"), QStringLiteral("4"));
    EXPECT_EQ(filtro_->Validar(),
              QStringLiteral("¡La tarifa inicial no puede ser mayor que la final!"));
    escribir(QStringLiteral("HastaTarifa"), QStringLiteral(" 5 "));
    escribir(QStringLiteral("DesdeUnidad"), QStringLiteral("Z"));
    escribir(QStringLiteral("HastaUnidad"), QStringLiteral("A"));
    EXPECT_EQ(filtro_->Validar(),
              QStringLiteral("¡La unidad inicial no puede ser mayor que la final!"));

    ReportRunner runner(sesion_->mensajes());
    filtro_->setRunner(&runner);
    messages_.clear();
    EXPECT_TRUE(filtro_->Click(QStringLiteral("pbListar")));
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral("¡La unidad inicial no puede ser mayor que la final!")});
    EXPECT_EQ(filtro_->parametros().DesdeTarifa, 0) << "nothing copied on a refusal";
}

TEST_P(RateListingFilter, ListarCopiesTheControlsAndPrintsWhenThePreviewIsOff) {
    escribir(QStringLiteral("DesdeTarifa"), QStringLiteral("4"));
    escribir(QStringLiteral("HastaTarifa"), QStringLiteral("4"));
    marcar(QStringLiteral("ListarConMasDescripcion"), true);
    marcar(QStringLiteral("VisualizacionPrevia"), false);
    ReportRunner runner(sesion_->mensajes());
    const QString pdf = dir_.path() + QStringLiteral("/tarifa4.pdf");
    runner.setDestino(QStringLiteral("PDF:") + pdf);
    filtro_->setRunner(&runner);
    ASSERT_TRUE(filtro_->Click(QStringLiteral("pbListar")));
    EXPECT_EQ(filtro_->parametros().DesdeTarifa, 4);
    EXPECT_EQ(filtro_->parametros().HastaTarifa, 4);
    EXPECT_TRUE(filtro_->parametros().ListarConMasDescripcion);
    EXPECT_FALSE(filtro_->parametros().SepararEnPaginas);
    EXPECT_EQ(filtro_->parametros().HastaUnidad, kHastaZ);
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << messages_.texts().join(u'\n').toStdString();
    EXPECT_TRUE(f.read(5).startsWith("%PDF-"));
    EXPECT_FALSE(runner.Ocupado());
}

CO_ON_BOTH_BACKENDS(RateListingFilter);

} // namespace
} // namespace co::test
