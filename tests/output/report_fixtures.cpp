#include "report_fixtures.h"

#include <QDir>
#include <QFile>

namespace co::test {

namespace {

QList<SourceField> camposObras() {
    return {{QStringLiteral("CodigoObra"), ColumnKind::Integer},
            {QStringLiteral("CodigoCapitulo"), ColumnKind::Integer},
            {QStringLiteral("Descripcion"), ColumnKind::Text},
            {QStringLiteral("Importe"), ColumnKind::Float},
            {QStringLiteral("Fecha"), ColumnKind::DateTime}};
}

QVariantList fila(int obra, int capitulo, const char *descripcion, double importe, int dia) {
    return {obra, capitulo, QString::fromUtf8(descripcion), importe,
            QDateTime(QDate(2026, 3, dia), QTime())};
}

} // namespace

std::unique_ptr<RowListDataSource> DatosObras() {
    return std::make_unique<RowListDataSource>(
        camposObras(),
        QList<QVariantList>{fila(1, 1, "Excavación", 1200.5, 2), fila(1, 1, "Relleno", 300.25, 3),
                            fila(1, 2, "Muro \"A\"", 1000, 4), fila(2, 1, "Solera, losa", 99.99, 5),
                            fila(2, 1, "Pintura", 0.01, 6), fila(3, 5, "Cubierta", 12345.678, 9)});
}

std::unique_ptr<RowListDataSource> DatosVacios() {
    return std::make_unique<RowListDataSource>(camposObras(), QList<QVariantList>{});
}

std::unique_ptr<RowListDataSource> DatosRepetidos(int count) {
    QList<QVariantList> rows;
    for (int i = 0; i < count; ++i)
        rows << fila(1, 1, "Linea", 1, 1 + i % 28);
    return std::make_unique<RowListDataSource>(camposObras(), rows);
}

ReportDesign DisenoObras() {
    ReportDesign d;
    d.Title = QStringLiteral("Listado de Obras");
    d.Page.paper = PaperSize::A5;
    const int ancho = d.Page.bodyWidth();

    ReportBand cabecera = Banda(QStringLiteral("PageHeader"), BandType::PageHeader, 40);
    ReportControl empresa =
        Control(QStringLiteral("TituloNombreEmpresa"), ControlKind::Label, 0, 0, 300);
    empresa.Font.bold = true;
    cabecera.add(empresa);
    ReportControl titulo =
        Control(QStringLiteral("TituloListado"), ControlKind::Label, 0, 20, ancho, 18);
    titulo.Caption = d.Title;
    titulo.Alignment = Alineacion::Centro;
    cabecera.add(titulo);
    ReportControl fecha =
        Control(QStringLiteral("FechaListado"), ControlKind::Date, ancho - 150, 0, 150);
    fecha.Caption = QStringLiteral("Fecha: ");
    fecha.Alignment = Alineacion::Derecha;
    cabecera.add(fecha);
    d.PageHeader = cabecera;

    ReportGroup obra;
    obra.Name = QStringLiteral("GrupoObra");
    obra.Expression = QStringLiteral("Temporal.CodigoObra");
    obra.Header = Banda(QStringLiteral("CabeceraObra"), BandType::BandaCabecera, 20);
    ReportControl rotulo = Control(QStringLiteral("LabelObra"), ControlKind::Label, 0, 2, 50);
    rotulo.Caption = QStringLiteral("Obra:");
    obra.Header.add(rotulo);
    ReportControl codigo = Control(QStringLiteral("CodigoObra"), ControlKind::Field, 55, 2, 60);
    codigo.DataField = QStringLiteral("Temporal.CodigoObra");
    obra.Header.add(codigo);
    obra.Footer = Banda(QStringLiteral("PieObra"), BandType::BandaPie, 20);
    ReportControl totalObra =
        Control(QStringLiteral("LabelTotalObra"), ControlKind::Label, 0, 2, 150);
    totalObra.Caption = QStringLiteral("Total Obra:");
    obra.Footer->add(totalObra);
    ReportControl sumaObra =
        Control(QStringLiteral("SumaObra"), ControlKind::Sum, ancho - 100, 2, 100);
    sumaObra.DataField = QStringLiteral("SUM(Temporal.Importe)");
    sumaObra.Alignment = Alineacion::Derecha;
    sumaObra.Tag = kTagMoneda;
    obra.Footer->add(sumaObra);

    ReportGroup capitulo;
    capitulo.Name = QStringLiteral("GrupoCapitulo");
    capitulo.Expression = QStringLiteral("Str(Temporal.CodigoObra)+Str(Temporal.CodigoCapitulo)");
    capitulo.Header = Banda(QStringLiteral("CabeceraCapitulo"), BandType::BandaCabecera, 18);
    ReportControl cap = Control(QStringLiteral("CodigoCapitulo"), ControlKind::Field, 20, 1, 60);
    cap.DataField = QStringLiteral("CodigoCapitulo");
    capitulo.Header.add(cap);
    capitulo.Footer = Banda(QStringLiteral("PieCapitulo"), BandType::BandaPie, 18);
    ReportControl sumaCap =
        Control(QStringLiteral("SumaCapitulo"), ControlKind::Sum, ancho - 100, 1, 100);
    sumaCap.DataField = QStringLiteral("SUM(Importe)");
    sumaCap.Alignment = Alineacion::Derecha;
    capitulo.Footer->add(sumaCap);
    d.Groups << obra << capitulo;

    ReportControl desc = Control(QStringLiteral("Descripcion"), ControlKind::Field, 40, 0, 200);
    desc.DataField = QStringLiteral("Descripcion");
    d.BandaDetalle.add(desc);
    ReportControl dia = Control(QStringLiteral("Fecha"), ControlKind::Field, 245, 0, 80);
    dia.DataField = QStringLiteral("Fecha");
    d.BandaDetalle.add(dia);
    ReportControl importe =
        Control(QStringLiteral("Importe"), ControlKind::Field, ancho - 100, 0, 100);
    importe.DataField = QStringLiteral("Importe");
    importe.Mask = QStringLiteral("#,##0.00");
    importe.Alignment = Alineacion::Derecha;
    d.BandaDetalle.add(importe);

    ReportBand sumario = Banda(QStringLiteral("BandaSumario"), BandType::BandaSumario, 24);
    ReportControl total =
        Control(QStringLiteral("SumaTotal"), ControlKind::Sum, ancho - 100, 4, 100);
    total.DataField = QStringLiteral("SUM(Importe)");
    total.Alignment = Alineacion::Derecha;
    total.Font.bold = true;
    sumario.add(total);
    d.BandaSumario = sumario;

    ReportBand pie = Banda(QStringLiteral("PageFooter"), BandType::PageFooter, 20);
    ReportControl pagina =
        Control(QStringLiteral("NumeroPagina"), ControlKind::PageNumber, ancho - 100, 2, 100);
    pagina.Caption = QStringLiteral("Página ");
    pagina.Alignment = Alineacion::Derecha;
    pie.add(pagina);
    d.PageFooter = pie;
    return d;
}

ComposeContext ContextoFijo() {
    ComposeContext ctx;
    ctx.fecha = QDate(2026, 4, 15);
    return ctx;
}

ReportEnvironment EntornoFijo(Messenger &mensajes) {
    ReportEnvironment e;
    e.mensajes = &mensajes;
    e.nombreEmpresa = QStringLiteral("Construcciones Pérez, S.L.");
    e.fecha = QDate(2026, 4, 15);
    return e;
}

QString ReadFile(const QString &path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(f.readAll());
}

void ExpectGolden(const QString &name, const QString &actual) {
    const QString path = QStringLiteral(CO_GOLDEN_DIR "/") + name;
    if (qEnvironmentVariableIntValue("CO_UPDATE_GOLDEN") == 1) {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(actual.toUtf8());
        return;
    }
    ASSERT_TRUE(QFile::exists(path)) << "missing golden file " << path.toStdString();
    EXPECT_EQ(actual, ReadFile(path)) << "differs from " << path.toStdString();
}

} // namespace co::test
