// The rate listing on both back-ends: ranges, groups with their sums, the
// extended description, pages per rate, and a PDF with its text.
#include "reports/rate_listing.h"
#include "support/layer_fixture.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

namespace co::test {
namespace {

class RateListing : public TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral(
            "INSERT INTO TARFMAQ (Codigo, Descripcion) VALUES ('1', 'Tarifa General')"));
        ok(QStringLiteral(
            "INSERT INTO TARFMAQ (Codigo, Descripcion) VALUES ('2', 'Tarifa O''Donnell')"));
        const char *lineas[] = {
            "('1', 'HORA', 'Hora de grúa', 'Con gruista', '40.5', '55')",
            "('1', 'KM', 'Kilómetro', '', '0.35', '0.6')",
            "('2', 'DIA', 'Día de excavadora', 'Incluye combustible', '300', '420.75')",
            "('3', 'HORA', 'Hora de camión', '', '25', '35')",
        };
        for (const char *l : lineas)
            ok(QStringLiteral(
                   "INSERT INTO LTARFMAQ (Codigo, CodigoUnidad, Descripcion, DescripcionAmpliada, "
                   "PrecioCosto, PrecioVenta) VALUES ") +
               QString::fromUtf8(l));
    }
    ReportEnvironment entorno() {
        ReportEnvironment e;
        e.mensajes = &sesion_->mensajes();
        e.nombreEmpresa = QStringLiteral("Empresa de Pruebas");
        e.fecha = QDate(2026, 5, 1);
        return e;
    }

    QStringList textos(TfOBQRLTAR &r, BandType band, int *paginas = nullptr) {
        PageCollector c;
        QString motivo;
        EXPECT_EQ(r.Preparar(c, &motivo), ResultadoComposicion::Completo) << motivo.toStdString();
        QStringList out;
        for (const ReportPage &p : c.pages)
            for (const PageItem &it : p.items)
                if (it.band == band && it.kind == PageItem::Kind::Text)
                    out << it.text;
        if (paginas)
            *paginas = static_cast<int>(c.pages.size());
        return out;
    }
};

TEST_P(RateListing, GroupsByRateWithItsDescriptionAndSums) {
    ParametrosListadoTarifas p;
    p.HastaTarifa = 2;
    TfOBQRLTAR r(*datos_, *creador_, p, entorno());
    EXPECT_EQ(textos(r, BandType::BandaCabecera).filter(QStringLiteral("Tarifa")),
              (QStringList{QStringLiteral("Tarifa:"), QStringLiteral("Tarifa General"),
                           QStringLiteral("Tarifa:"), QStringLiteral("Tarifa O'Donnell")}));
    EXPECT_EQ(textos(r, BandType::BandaPie),
              (QStringList{QStringLiteral("Total Tarifa:"), QStringLiteral("40,85"),
                           QStringLiteral("55,6"), QStringLiteral("Total Tarifa:"),
                           QStringLiteral("300"), QStringLiteral("420,75")}));
    EXPECT_EQ(textos(r, BandType::BandaSumario),
              QStringList{QStringLiteral("Número de líneas: 3")});
}

TEST_P(RateListing, ExtendedDescriptionGoesUnderTheLineOnlyWhenAsked) {
    ParametrosListadoTarifas p;
    p.DesdeTarifa = p.HastaTarifa = 1;
    TfOBQRLTAR corta(*datos_, *creador_, p, entorno());
    EXPECT_FALSE(textos(corta, BandType::BandaDetalle).contains(QStringLiteral("Con gruista")));
    p.ListarConMasDescripcion = true;
    TfOBQRLTAR larga(*datos_, *creador_, p, entorno());
    const QStringList t = textos(larga, BandType::BandaDetalle);
    ASSERT_TRUE(t.contains(QStringLiteral("Con gruista")));
    EXPECT_EQ(t.indexOf(QStringLiteral("Con gruista")),
              t.indexOf(QStringLiteral("Hora de grúa")) + 1);
}

TEST_P(RateListing, UnitRangeAndSeparatePages) {
    ParametrosListadoTarifas p;
    p.DesdeUnidad = QStringLiteral("H");
    p.HastaUnidad = QStringLiteral("HZ");
    p.SepararEnPaginas = true;
    TfOBQRLTAR r(*datos_, *creador_, p, entorno());
    int paginas = 0;
    const QStringList units = textos(r, BandType::BandaDetalle, &paginas)
                                  .filter(QRegularExpression(QStringLiteral("^[A-Z]+$")));
    EXPECT_EQ(units, (QStringList{QStringLiteral("HORA"), QStringLiteral("HORA")}));
    EXPECT_EQ(paginas, 2) << "rates 1 and 3, one page each";
}

TEST_P(RateListing, NoLinesInRangeSaysSoAndWritesNoPdf) {
    ParametrosListadoTarifas p;
    p.DesdeTarifa = 500;
    TfOBQRLTAR r(*datos_, *creador_, p, entorno());
    const QString path = dir_.path() + QStringLiteral("/vacio.pdf");
    messages_.clear();
    EXPECT_FALSE(ImprimirReport(r, QStringLiteral("PDF:") + path));
    EXPECT_EQ(messages_.texts(), QStringList{QStringLiteral("No existen datos para listar")});
    EXPECT_FALSE(QFile::exists(path));
}

TEST_P(RateListing, PrintsToAPdfWithItsTexts) {
    ParametrosListadoTarifas p;
    TfOBQRLTAR r(*datos_, *creador_, p, entorno(),
                 QStringLiteral("Desde Tarifa: 0, Hasta Tarifa: 999, "));
    const QString path = dir_.path() + QStringLiteral("/tarifas.pdf");
    ASSERT_TRUE(ImprimirReport(r, QStringLiteral("PDF:") + path));
    QProcess pdf;
    pdf.start(QStringLiteral("pdftotext"), {path, QStringLiteral("-")});
    ASSERT_TRUE(pdf.waitForFinished(30000));
    const QString text = QString::fromUtf8(pdf.readAllStandardOutput());
    for (const char *s :
         {"Empresa de Pruebas", "Listado de Tarifas", "Tarifa O'Donnell", "Día de excavadora",
          "420,75", "RESTRICCIONES Y OPCIONES DEL LISTADO: Desde Tarifa: 0", "Página 1"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(s))) << s << "\n" << text.toStdString();
}

CO_ON_BOTH_BACKENDS(RateListing);

} // namespace
} // namespace co::test
