// The run of a listing: busy flag, status text, validation, destinations,
// cancellation and the quick listing.
#include "report_fixtures.h"

#include <QFile>
#include <QTemporaryDir>

namespace co::test {
namespace {

struct Messages {
    ScriptedMessages port;
    Messenger messenger{&port};
};

class FakePrinters : public PrinterPort {
public:
    QStringList Impresoras() const override { return nombres; }
    QString ImpresoraPorDefecto() const override { return nombres.value(0); }
    bool DialogoImpresora(OpcionesImpresion &o) override {
        ++dialogos;
        if (!aceptar)
            return false;
        o.impresora = nombres.value(1);
        o.copias = 3;
        o.orientacion = Orientation::Landscape;
        return true;
    }
    std::unique_ptr<PageSink> AbrirImpresora(const OpcionesImpresion &o, QString *motivo) override {
        usadas << o;
        if (fallo) {
            *motivo = QStringLiteral("sin papel");
            return nullptr;
        }
        return std::make_unique<Collect>(paginas);
    }

    struct Collect : PageSink {
        explicit Collect(int &n) : n(n) {}
        bool addPage(ReportPage &&, QString *) override {
            ++n;
            return true;
        }
        int &n;
    };
    QStringList nombres{QStringLiteral("Oficina HP LaserJet"), QStringLiteral("Obra Brother")};
    bool aceptar = true;
    bool fallo = false;
    int dialogos = 0;
    int paginas = 0;
    QList<OpcionesImpresion> usadas;
};

class Destinations : public ::testing::Test {
protected:
    std::unique_ptr<MemoryReport> report(const QString &solicitar = QStringLiteral("SI")) {
        ReportEnvironment e = EntornoFijo(m_.messenger);
        e.parametros.SolicitarDialogoImpresora = solicitar;
        auto r = std::make_unique<MemoryReport>(e, DatosObras);
        r->Diseno = DisenoObras();
        r->Crear();
        return r;
    }
    Messages m_;
    FakePrinters printers_;
};

TEST_F(Destinations, APrinterNameMatchesByPartOfIt) {
    auto r = report();
    EXPECT_TRUE(ImprimirReport(*r, QStringLiteral("Brother"), &printers_));
    ASSERT_EQ(printers_.usadas.size(), 1);
    EXPECT_EQ(printers_.usadas[0].impresora, QStringLiteral("Obra Brother"));
    EXPECT_EQ(printers_.paginas, 1);
    EXPECT_EQ(printers_.dialogos, 0);
}

TEST_F(Destinations, ANameThatMatchesNoPrinterPrintsNothingSilently) {
    auto r = report();
    EXPECT_FALSE(ImprimirReport(*r, QStringLiteral("Epson"), &printers_));
    EXPECT_TRUE(printers_.usadas.isEmpty());
    EXPECT_TRUE(m_.port.shown().isEmpty());
}

TEST_F(Destinations, EmptyWithoutDialogPrintsOnTheDefaultPrinter) {
    auto r = report(QStringLiteral("NO"));
    EXPECT_TRUE(ImprimirReport(*r, QString(), &printers_));
    EXPECT_EQ(printers_.dialogos, 0);
    EXPECT_EQ(printers_.usadas.value(0).impresora, QStringLiteral("Oficina HP LaserJet"));
}

TEST_F(Destinations, TheDialogsChoicesGoToTheReport) {
    auto r = report();
    EXPECT_TRUE(ImprimirReport(*r, QString(), &printers_));
    EXPECT_EQ(printers_.dialogos, 1);
    EXPECT_EQ(r->Impresora, QStringLiteral("Obra Brother"));
    EXPECT_EQ(r->Copias, 3);
    EXPECT_EQ(r->Diseno.Page.orientation, Orientation::Landscape);
    EXPECT_EQ(printers_.usadas.value(0).copias, 3);
}

TEST_F(Destinations, ACancelledDialogPrintsNothing) {
    printers_.aceptar = false;
    auto r = report();
    EXPECT_FALSE(ImprimirReport(*r, QString(), &printers_));
    EXPECT_TRUE(printers_.usadas.isEmpty());
}

TEST_F(Destinations, APrinterFailureGivesTheOutputMessage) {
    printers_.fallo = true;
    auto r = report(QStringLiteral("NO"));
    EXPECT_FALSE(ImprimirReport(*r, QString(), &printers_));
    EXPECT_EQ(m_.port.texts(),
              QStringList{QStringLiteral("¡Error Imprimiendo!. Motivo: sin papel")});
}

class FakeFilter : public ListingFilter {
public:
    explicit FakeFilter(Messenger &m) : m_(m) {}
    QString Validar() override { return error; }
    void CopiarParametros() override { ++copias; }
    std::unique_ptr<Report> CrearReport() override {
        if (reentrar)
            segundaRun = reentrar();
        auto r = std::make_unique<MemoryReport>(EntornoFijo(m_), datos);
        r->Diseno = DisenoObras();
        r->Crear();
        return r;
    }
    bool VisualizacionPrevia() const override { return previa; }

    Messenger &m_;
    QString error;
    int copias = 0;
    bool previa = false;
    std::function<std::unique_ptr<ReportDataSource>()> datos = DatosObras;
    std::function<bool()> reentrar;
    std::optional<bool> segundaRun;
};

struct FakeStatus : StatusPort {
    void MostrarEstado(const QString &t) override { log << QStringLiteral("estado:") + t; }
    void CursorOcupado(bool b) override {
        log << (b ? QStringLiteral("cursor:on") : QStringLiteral("cursor:off"));
    }
    QStringList log;
};

struct FakePreview : PreviewPort {
    void QuickReportPreview(std::unique_ptr<Report> r) override { shown = std::move(r); }
    std::unique_ptr<Report> shown;
};

TEST(Run, StatusIsShownAndClearedAndThePdfWritten) {
    Messages m;
    FakeStatus status;
    QTemporaryDir dir;
    ReportRunner runner(m.messenger, &status);
    runner.setDestino(QStringLiteral("PDF:") + dir.path() + QStringLiteral("/r.pdf"));
    FakeFilter filtro(m.messenger);
    EXPECT_TRUE(runner.pbListarClick(filtro));
    EXPECT_EQ(filtro.copias, 1);
    EXPECT_EQ(status.log,
              (QStringList{QStringLiteral("estado:Creando informe..."), QStringLiteral("cursor:on"),
                           QStringLiteral("estado:"), QStringLiteral("cursor:off")}));
    EXPECT_TRUE(QFile::exists(dir.path() + QStringLiteral("/r.pdf")));
    EXPECT_FALSE(runner.Ocupado());
}

TEST(Run, ASecondRunWhileBusyIsRefused) {
    Messages m;
    ReportRunner runner(m.messenger);
    QTemporaryDir dir;
    runner.setDestino(QStringLiteral("PDF:") + dir.path() + QStringLiteral("/r.pdf"));
    FakeFilter filtro(m.messenger);
    FakeFilter otro(m.messenger);
    filtro.reentrar = [&] { return runner.pbListarClick(otro); };
    EXPECT_TRUE(runner.pbListarClick(filtro));
    EXPECT_EQ(filtro.segundaRun, false);
    EXPECT_EQ(otro.copias, 0);
}

TEST(Run, TheFormsValidationStopsBeforeAnything) {
    Messages m;
    FakeStatus status;
    ReportRunner runner(m.messenger, &status);
    FakeFilter filtro(m.messenger);
    filtro.error = QStringLiteral("¡La obra inicial es mayor que la final!");
    EXPECT_FALSE(runner.pbListarClick(filtro));
    EXPECT_EQ(m.port.texts(), QStringList{filtro.error});
    EXPECT_EQ(filtro.copias, 0);
    EXPECT_TRUE(status.log.isEmpty());
}

TEST(Run, NoRowsTellsSoAndTheStatusIsStillCleared) {
    Messages m;
    FakeStatus status;
    ReportRunner runner(m.messenger, &status);
    QTemporaryDir dir;
    runner.setDestino(QStringLiteral("PDF:") + dir.path() + QStringLiteral("/r.pdf"));
    FakeFilter filtro(m.messenger);
    filtro.datos = DatosVacios;
    EXPECT_FALSE(runner.pbListarClick(filtro));
    EXPECT_EQ(m.port.texts(), QStringList{QStringLiteral("No existen datos para listar")});
    EXPECT_EQ(status.log.back(), QStringLiteral("cursor:off"));
}

TEST(Run, PreviewTakesTheReport) {
    Messages m;
    FakePreview preview;
    ReportRunner runner(m.messenger, nullptr, nullptr, &preview);
    FakeFilter filtro(m.messenger);
    filtro.previa = true;
    EXPECT_TRUE(runner.pbListarClick(filtro));
    ASSERT_NE(preview.shown, nullptr);
    PageCollector pages;
    EXPECT_EQ(preview.shown->Preparar(pages, nullptr), ResultadoComposicion::Completo);
    EXPECT_EQ(pages.pages.size(), 1);
}

// Rows that ask for cancellation while the report builds, as Esc would.
std::unique_ptr<ReportDataSource> cancellingRows(Messenger &m, int at) {
    return std::make_unique<GeneratedDataSource>(
        QList<SourceField>{{QStringLiteral("CodigoObra"), ColumnKind::Integer},
                           {QStringLiteral("CodigoCapitulo"), ColumnKind::Integer},
                           {QStringLiteral("Descripcion"), ColumnKind::Text},
                           {QStringLiteral("Importe"), ColumnKind::Float},
                           {QStringLiteral("Fecha"), ColumnKind::DateTime}},
        200, [&m, at](qint64 i, QVariantList &v) {
            if (i == at) {
                EXPECT_TRUE(SolicitarCancelacionListado(m));
            }
            v = {1, 1, QStringLiteral("L"), 1.0, QDateTime()};
        });
}

TEST(Cancel, AnsweringNoCancelsAndLeavesNoPdf) {
    Messages m;
    m.port.answer(QStringLiteral("NO"));
    MemoryReport r(EntornoFijo(m.messenger), [&] { return cancellingRows(m.messenger, 50); });
    r.Diseno = DisenoObras();
    r.Crear();
    QTemporaryDir dir;
    const QString path = dir.path() + QStringLiteral("/c.pdf");
    EXPECT_FALSE(ImprimirReport(r, QStringLiteral("PDF:") + path));
    ASSERT_EQ(m.port.shown().size(), 1);
    EXPECT_EQ(m.port.shown()[0].kind, u'C');
    EXPECT_EQ(m.port.shown()[0].text,
              QStringLiteral(
                  "El listado será cancelado a continuación. ¿Desea continuar con el listado?"));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_FALSE(ListadoEnCurso());
}

TEST(Cancel, AnsweringSiGoesOnToTheEnd) {
    Messages m;
    m.port.answer(QStringLiteral("SI"));
    MemoryReport r(EntornoFijo(m.messenger), [&] { return cancellingRows(m.messenger, 50); });
    r.Diseno = DisenoObras();
    r.Crear();
    PageCollector pages;
    EXPECT_EQ(r.Preparar(pages, nullptr), ResultadoComposicion::Completo);
    EXPECT_EQ(m.port.shown().size(), 1);
    EXPECT_GE(pages.pages.size(), 5);
}

TEST(Cancel, WithNoReportBuildingItCannotBeCancelled) {
    Messages m;
    EXPECT_FALSE(SolicitarCancelacionListado(m.messenger));
    EXPECT_EQ(m.port.texts(),
              QStringList{QStringLiteral("¡No es posible cancelar el listado en este momento!")});
}

Consulta consultaDe(int filas) {
    Consulta c;
    QList<QVariantList> rows;
    for (int i = 0; i < filas; ++i)
        rows << QVariantList{i + 1, QStringLiteral("Cliente %1").arg(i + 1), i * 1.5};
    c.setResult({{QStringLiteral("Codigo"), ColumnKind::Integer},
                 {QStringLiteral("Nombre"), ColumnKind::Text},
                 {QStringLiteral("Saldo"), ColumnKind::Float}},
                rows, 0);
    return c;
}

TEST(ListadoTabla, ExactlyAThousandRowsDoesNotAsk) {
    Messages m;
    const Consulta c = consultaDe(1000);
    auto r = ListadoTabla(c, QStringLiteral("Clientes"), QStringLiteral("Listado de Clientes"),
                          EntornoFijo(m.messenger));
    ASSERT_NE(r, nullptr);
    EXPECT_TRUE(m.port.shown().isEmpty());
    PageCollector pages;
    ASSERT_EQ(r->Preparar(pages, nullptr), ResultadoComposicion::Completo);
    int detalle = 0;
    for (const ReportPage &p : pages.pages)
        for (const PageItem &it : p.items)
            detalle += it.band == BandType::BandaDetalle && it.x == r->Diseno.Page.marginLeft;
    EXPECT_EQ(detalle, 1000) << "every row, once";
}

TEST(ListadoTabla, MoreThanAThousandAsksAndNoStops) {
    Messages m;
    const Consulta c = consultaDe(1001);
    m.port.answer(QStringLiteral("NO"));
    EXPECT_EQ(ListadoTabla(c, QStringLiteral("Clientes"), {}, EntornoFijo(m.messenger)), nullptr);
    EXPECT_EQ(m.port.texts(), QStringList{QStringLiteral(
                                  "El informe tiene más de 1000 registros. ¿Desea continuar?")});
    m.port.answer(QStringLiteral("SI"));
    EXPECT_NE(ListadoTabla(c, QStringLiteral("Clientes"), {}, EntornoFijo(m.messenger)), nullptr);
}

TEST(ListadoTabla, NoRowsOrAClosedQueryHaveNothingToList) {
    Messages m;
    const Consulta vacia = consultaDe(0);
    const Consulta cerrada;
    EXPECT_EQ(ListadoTabla(vacia, {}, {}, EntornoFijo(m.messenger)), nullptr);
    EXPECT_EQ(ListadoTabla(cerrada, {}, {}, EntornoFijo(m.messenger)), nullptr);
    EXPECT_EQ(m.port.texts(), (QStringList{QStringLiteral("No hay registros para listar"),
                                           QStringLiteral("No hay registros para listar")}));
}

TEST(ListadoTabla, ManyColumnsTurnThePageAndFitAcrossIt) {
    QList<ResultColumn> campos;
    for (int i = 0; i < 12; ++i)
        campos << ResultColumn{QStringLiteral("Campo%1").arg(i), ColumnKind::Text};
    const ReportDesign d = DisenoListadoTabla(campos, QStringLiteral("Ancho"));
    EXPECT_EQ(d.Page.orientation, Orientation::Landscape);
    const ReportControl &ultimo = d.BandaDetalle.Controls.back();
    EXPECT_LE(ultimo.Left + ultimo.Width, d.Page.bodyWidth());
}

} // namespace
} // namespace co::test
