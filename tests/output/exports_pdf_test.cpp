// Outputs of the page document: text, CSV and HTML against expected files, and
// PDF files read back with pdftotext.
#include "report_fixtures.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace co::test {
namespace {

QList<ReportPage> obrasPages(bool separar = false) {
    ReportDesign d = DisenoObras();
    d.Groups[0].ForceNewPage = separar;
    PageCollector c;
    auto rows = DatosObras();
    EXPECT_EQ(ComponerReport(d, *rows, c, ContextoFijo(), nullptr), ResultadoComposicion::Completo);
    return c.pages;
}

QString exported(int filtro, const QList<ReportPage> &pages, const QString &folder) {
    auto sink = SinkExportacion(filtro, folder + QStringLiteral("/informe"),
                                QStringLiteral("Listado <Obras>"));
    EXPECT_NE(sink, nullptr);
    QString motivo;
    EXPECT_TRUE(ReproducirPaginas(pages, *sink, &motivo)) << motivo.toStdString();
    return ReadFile(folder + QStringLiteral("/informe") + ExtensionExportacion(filtro));
}

QString pdfText(const QString &pdf) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    EXPECT_TRUE(p.waitForFinished(30000));
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    return QString::fromUtf8(p.readAllStandardOutput());
}

QString pdfInfo(const QString &pdf) {
    QProcess p;
    p.start(QStringLiteral("pdfinfo"), {pdf});
    EXPECT_TRUE(p.waitForFinished(30000));
    return QString::fromUtf8(p.readAllStandardOutput());
}

TEST(Exports, CsvMatchesTheExpectedFile) {
    QTemporaryDir dir;
    ExpectGolden(QStringLiteral("grouped_listing.csv"), exported(2, obrasPages(true), dir.path()));
}

TEST(Exports, HtmlMatchesTheExpectedFile) {
    QTemporaryDir dir;
    ExpectGolden(QStringLiteral("grouped_listing.htm"), exported(3, obrasPages(true), dir.path()));
}

TEST(Exports, TextMatchesTheExpectedFile) {
    QTemporaryDir dir;
    ExpectGolden(QStringLiteral("grouped_listing.txt.export"),
                 exported(1, obrasPages(true), dir.path()));
}

TEST(Exports, FilterIndexGivesTheExtensionOnce) {
    EXPECT_EQ(ExtensionExportacion(1), QStringLiteral(".TXT"));
    EXPECT_EQ(ExtensionExportacion(2), QStringLiteral(".CSV"));
    EXPECT_EQ(ExtensionExportacion(3), QStringLiteral(".HTM"));
    EXPECT_EQ(SinkExportacion(0, QStringLiteral("x"), {}), nullptr);
    EXPECT_EQ(SinkExportacion(4, QStringLiteral("x"), {}), nullptr);
    QTemporaryDir dir;
    auto sink = SinkExportacion(2, dir.path() + QStringLiteral("/a.csv"), {});
    QString motivo;
    ASSERT_TRUE(ReproducirPaginas(obrasPages(), *sink, &motivo));
    EXPECT_TRUE(QFile::exists(dir.path() + QStringLiteral("/a.csv")));
    EXPECT_FALSE(QFile::exists(dir.path() + QStringLiteral("/a.csv.CSV")));
}

TEST(Exports, AnUnwritablePathGivesTheReason) {
    auto sink = SinkExportacion(1, QStringLiteral("/nonexistent-folder/informe"), {});
    QString motivo;
    EXPECT_FALSE(ReproducirPaginas(obrasPages(), *sink, &motivo));
    EXPECT_FALSE(motivo.isEmpty());
}

class PdfOutput : public ::testing::Test {
protected:
    std::unique_ptr<MemoryReport>
    report(std::function<std::unique_ptr<ReportDataSource>()> datos = DatosObras) {
        auto r = std::make_unique<MemoryReport>(EntornoFijo(mensajes_.messenger), std::move(datos));
        r->Diseno = DisenoObras();
        r->Crear(QStringLiteral("Desde Obra: 1, Hasta Obra: 3, "));
        return r;
    }
    struct Port {
        ScriptedMessages port;
        Messenger messenger{&port};
    } mensajes_;
    QTemporaryDir dir_;
};

TEST_F(PdfOutput, HoldsRealTextOfEveryBand) {
    const QString path = dir_.path() + QStringLiteral("/obras.pdf");
    auto r = report();
    ASSERT_TRUE(ImprimirReport(*r, QStringLiteral("PDF:") + path));
    EXPECT_TRUE(mensajes_.port.shown().isEmpty());
    const QString text = pdfText(path);
    for (const char *expected :
         {"Construcciones Pérez, S.L.", "Listado de Obras", "Fecha: 15/04/2026",
          "RESTRICCIONES Y OPCIONES DEL LISTADO: Desde Obra: 1, Hasta Obra: 3,", "Excavación",
          "1.200,50", "Total Obra:", "2.500,75", "14.946,43", "Página 1"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(expected))) << expected << "\n"
                                                                << text.toStdString();
}

TEST_F(PdfOutput, PaperSizeAndOrientationReachTheFile) {
    EXPECT_EQ(NombreTamanoPapel(PaperSize::A4, Orientation::Portrait), QStringLiteral("A4"));
    EXPECT_EQ(NombreTamanoPapel(PaperSize::A4, Orientation::Landscape),
              QStringLiteral("A4-Apaisado"));
    EXPECT_EQ(NombreTamanoPapel(PaperSize::A5, Orientation::Landscape),
              QStringLiteral("A5-Apaisado"));
    EXPECT_EQ(NombreTamanoPapel(PaperSize::A3, Orientation::Portrait), QStringLiteral("A3"));
    EXPECT_EQ(PapelDeNombre(QStringLiteral("A6")), std::nullopt);

    auto r = report();
    r->Diseno.Page.orientation = Orientation::Landscape; // A5 landscape: 595 x 420 points
    const QString path = dir_.path() + QStringLiteral("/a5.pdf");
    ASSERT_TRUE(ImprimirReport(*r, QStringLiteral("PDF:") + path));
    const QString info = pdfInfo(path);
    EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Page size: +595 x 420 pts"))))
        << info.toStdString();
    EXPECT_TRUE(info.contains(QStringLiteral("Listado de Obras"))) << "title";
}

TEST_F(PdfOutput, AnUnwritablePathWarnsWithTheReasonAndLeavesNoFile) {
    auto r = report();
    EXPECT_FALSE(ImprimirReport(*r, QStringLiteral("PDF:/nonexistent-folder/x.pdf")));
    ASSERT_EQ(mensajes_.port.shown().size(), 1);
    EXPECT_EQ(mensajes_.port.shown()[0].kind, u'A');
    EXPECT_TRUE(mensajes_.port.shown()[0].text.startsWith(
        QStringLiteral("Se ha producido un error al generar el archivo PDF. Motivo: ")));
    EXPECT_GT(mensajes_.port.shown()[0].text.size(), 61);
}

TEST_F(PdfOutput, NoRowsTellsSoAndWritesNoFile) {
    auto r = report(DatosVacios);
    const QString path = dir_.path() + QStringLiteral("/vacio.pdf");
    EXPECT_FALSE(ImprimirReport(*r, QStringLiteral("PDF:") + path));
    EXPECT_EQ(mensajes_.port.texts(), QStringList{QStringLiteral("No existen datos para listar")});
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(PdfOutput, ManyPagesKeepTheirOrder) {
    auto r = report([] { return DatosRepetidos(120); });
    const QString path = dir_.path() + QStringLiteral("/largo.pdf");
    ASSERT_TRUE(ImprimirReport(*r, QStringLiteral("PDF:") + path));
    const QString info = pdfInfo(path);
    EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Pages: +4\n"))))
        << info.toStdString();
    const QString text = pdfText(path);
    EXPECT_LT(text.indexOf(QStringLiteral("Página 1")), text.indexOf(QStringLiteral("Página 4")));
}

} // namespace
} // namespace co::test
