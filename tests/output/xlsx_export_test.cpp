// The spreadsheet export read back from the file: the same rows as the CSV
// export, numbers as numbers, codes and texts as text, and its failures.
#include "output/xlsx_export.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

PageItem texto(BandType band, int x, int y, const QString &t) {
    PageItem it = PageItem::At(PageItem::Kind::Text, band, x, y, 100, 16);
    it.text = t;
    return it;
}

ReportPage pagina(int numero, const QStringList &detalle) {
    ReportPage p;
    p.number = numero;
    p.width = 794;
    p.height = 1123;
    p.items << texto(BandType::PageHeader, 0, 0, QStringLiteral("Listado de Tarifas"));
    int y = 40;
    for (const QString &fila : detalle) {
        int x = 0;
        for (const QString &celda : fila.split(u'|')) {
            p.items << texto(BandType::BandaDetalle, x, y, celda);
            x += 120;
        }
        y += 16;
    }
    p.items << texto(BandType::PageFooter, 0, 1100, QStringLiteral("Página %1").arg(numero));
    return p;
}

// The XML of the first sheet.
QString hoja(const QString &ruta) {
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"),
                {QStringLiteral("-p"), ruta, QStringLiteral("xl/worksheets/sheet1.xml")});
    EXPECT_TRUE(unzip.waitForFinished(30000));
    EXPECT_EQ(unzip.exitCode(), 0);
    return QString::fromUtf8(unzip.readAllStandardOutput());
}

TEST(XlsxExport, HoldsTheRowsOfTheCsvExportWithTypedCells) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("t.xlsx"));
    XlsxExportSink sink(ruta);
    QString motivo;
    ASSERT_TRUE(sink.addPage(pagina(1, {QStringLiteral("007|Hora de grúa|1.234,5"),
                                        QStringLiteral("2|O'Donnell & <Cía>|-40,85")}),
                             &motivo));
    ASSERT_TRUE(sink.addPage(pagina(2, {QStringLiteral("3|Kilómetro|0,6")}), &motivo));
    ASSERT_TRUE(sink.finish(&motivo)) << motivo.toStdString();
    const QString xml = hoja(ruta);
    // Header once, never the footer.
    EXPECT_EQ(xml.count(QStringLiteral("Listado de Tarifas")), 1);
    EXPECT_FALSE(xml.contains(QStringLiteral("Página")));
    EXPECT_TRUE(
        xml.contains(QStringLiteral("<c r=\"A2\" t=\"inlineStr\"><is><t>007</t></is></c>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<c r=\"C2\"><v>1234.5</v></c>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<c r=\"A3\"><v>2</v></c>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<t>O'Donnell &amp; &lt;Cía&gt;</t>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<c r=\"C3\"><v>-40.85</v></c>")));
    // The second page continues on the next row.
    EXPECT_TRUE(
        xml.contains(QStringLiteral("<c r=\"B4\" t=\"inlineStr\"><is><t>Kilómetro</t></is></c>")));
    EXPECT_FALSE(xml.contains(QStringLiteral("r=\"A5\"")));
}

TEST(XlsxExport, NoPagesWritesNoFileAndABadFolderIsTold) {
    QTemporaryDir dir;
    XlsxExportSink vacio(dir.filePath(QStringLiteral("v.xlsx")));
    QString motivo;
    EXPECT_TRUE(vacio.finish(&motivo));
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("v.xlsx"))));

    XlsxExportSink malo(QStringLiteral("/no/existe/t.xlsx"));
    EXPECT_FALSE(malo.addPage(pagina(1, {QStringLiteral("1|a")}), &motivo));
    EXPECT_FALSE(motivo.isEmpty());
}

TEST(XlsxExport, ReadsSpanishNumbersOnly) {
    EXPECT_EQ(NumeroDeTexto(QStringLiteral("1.234.567,89")), 1234567.89);
    EXPECT_EQ(NumeroDeTexto(QStringLiteral("0,5")), 0.5);
    EXPECT_EQ(NumeroDeTexto(QStringLiteral("-3")), -3.0);
    EXPECT_EQ(NumeroDeTexto(QStringLiteral("0")), 0.0);
    for (const char *t : {"007", "12.34", "1,2,3", "01/05/2026", "", "1.23,4", "12a", "Total: 3"})
        EXPECT_FALSE(NumeroDeTexto(QString::fromUtf8(t))) << t;
}

} // namespace
} // namespace co
