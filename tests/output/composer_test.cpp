// Composition of the page document: golden pages, group sums, page breaks at
// the edge, forced pages, before-print handlers, stretching and bad designs.
#include "report_fixtures.h"

#include <QStringList>

namespace co::test {
namespace {

struct Composed {
    ResultadoComposicion result;
    QString motivo;
    QList<ReportPage> pages;
};

Composed compose(const ReportDesign &design, ReportDataSource &rows,
                 ComposeContext ctx = ContextoFijo()) {
    PageCollector sink;
    Composed c;
    c.result = ComponerReport(design, rows, sink, ctx, &c.motivo);
    c.pages = sink.pages;
    return c;
}

// Texts of the items of one band kind on a page, top to bottom.
QStringList texts(const ReportPage &page, BandType band) {
    QStringList out;
    for (const PageItem &it : page.items)
        if (it.band == band && it.kind == PageItem::Kind::Text)
            out << it.text;
    return out;
}

int countBand(const ReportPage &page, BandType band, const QString &text = {}) {
    int n = 0;
    for (const PageItem &it : page.items)
        if (it.band == band && it.kind == PageItem::Kind::Text &&
            (text.isEmpty() || it.text == text))
            ++n;
    return n;
}

TEST(Composition, GroupedListingMatchesItsGoldenDocument) {
    auto rows = DatosObras();
    const Composed c = compose(DisenoObras(), *rows);
    ASSERT_EQ(c.result, ResultadoComposicion::Completo) << c.motivo.toStdString();
    ExpectGolden(QStringLiteral("grouped_listing.txt"), DescribirPaginas(c.pages));
}

TEST(Composition, GroupSumsResetPerGroupAndTheSummaryKeepsTheGrandTotal) {
    auto rows = DatosObras();
    const Composed c = compose(DisenoObras(), *rows);
    ASSERT_EQ(c.pages.size(), 1);
    // Chapter feet, then works feet: a sum must not carry the next group's row.
    EXPECT_EQ(texts(c.pages[0], BandType::BandaPie),
              (QStringList{QStringLiteral("1.500,75"), QStringLiteral("1.000"),
                           QStringLiteral("Total Obra:"), QStringLiteral("2.500,75"),
                           QStringLiteral("100"), QStringLiteral("Total Obra:"),
                           QStringLiteral("100"), QStringLiteral("12.345,68"),
                           QStringLiteral("Total Obra:"), QStringLiteral("12.345,68")}));
    EXPECT_EQ(texts(c.pages[0], BandType::BandaSumario), QStringList{QStringLiteral("14.946,43")});
}

TEST(Composition, ConcatenatedExpressionOpensAGroupWhenAnyTermChanges) {
    auto rows = DatosObras();
    const Composed c = compose(DisenoObras(), *rows);
    // Chapter heads: (1,1), (1,2), (2,1), (3,5); works heads: 1, 2, 3.
    EXPECT_EQ(countBand(c.pages[0], BandType::BandaCabecera, QStringLiteral("Obra:")), 3);
    EXPECT_EQ(texts(c.pages[0], BandType::BandaCabecera).size(), 3 * 2 + 4);
}

TEST(Composition, TermsThatRunTogetherAlikeAreStillDifferentGroups) {
    RowListDataSource rows(
        {{QStringLiteral("A"), ColumnKind::Integer}, {QStringLiteral("B"), ColumnKind::Integer}},
        {{1, 23}, {12, 3}});
    ReportDesign d;
    ReportGroup g;
    g.Expression = QStringLiteral("Str(A)+Str(B)");
    g.Header = Banda(QStringLiteral("Cabecera"), BandType::BandaCabecera, 10);
    ReportControl a = Control(QStringLiteral("A"), ControlKind::Field, 0, 0, 50);
    a.DataField = QStringLiteral("A");
    g.Header.add(a);
    d.Groups << g;
    const Composed c = compose(d, rows);
    EXPECT_EQ(texts(c.pages[0], BandType::BandaCabecera),
              (QStringList{QStringLiteral("1"), QStringLiteral("12")}));
}

// A design whose body holds exactly `fit` detail bands of 100 below a page
// header of `header` (A4: 1123 high, no margins).
ReportDesign edgeDesign(int header) {
    ReportDesign d;
    d.Page.marginTop = d.Page.marginBottom = 0;
    d.PageHeader = Banda(QStringLiteral("PageHeader"), BandType::PageHeader, header);
    d.BandaDetalle.Height = 100;
    ReportControl desc = Control(QStringLiteral("Descripcion"), ControlKind::Field, 0, 0, 100);
    desc.DataField = QStringLiteral("Descripcion");
    d.BandaDetalle.add(desc);
    return d;
}

TEST(PageBreaks, ABandThatJustFitsStaysOnThePage) {
    auto rows = DatosRepetidos(11);
    const Composed c = compose(edgeDesign(23), *rows); // 23 + 11 * 100 = 1123
    ASSERT_EQ(c.pages.size(), 1);
    EXPECT_EQ(countBand(c.pages[0], BandType::BandaDetalle), 11);
}

TEST(PageBreaks, ABandOneUnitTooTallGoesToTheNextPage) {
    auto rows = DatosRepetidos(11);
    const Composed c = compose(edgeDesign(24), *rows);
    ASSERT_EQ(c.pages.size(), 2);
    EXPECT_EQ(countBand(c.pages[0], BandType::BandaDetalle), 10);
    EXPECT_EQ(countBand(c.pages[1], BandType::BandaDetalle), 1);
    EXPECT_EQ(c.pages[1].items.first().y, 24) << "the second page starts below its header";
}

TEST(PageBreaks, ThePageFooterTakesItsPlaceFromTheBody) {
    ReportDesign d = edgeDesign(23);
    d.PageFooter = Banda(QStringLiteral("PageFooter"), BandType::PageFooter, 1);
    ReportControl n = Control(QStringLiteral("Pagina"), ControlKind::PageNumber, 0, 0, 50);
    n.Caption = QStringLiteral("Página ");
    d.PageFooter->add(n);
    auto rows = DatosRepetidos(11);
    const Composed c = compose(d, *rows);
    ASSERT_EQ(c.pages.size(), 2);
    EXPECT_EQ(texts(c.pages[0], BandType::PageFooter), QStringList{QStringLiteral("Página 1")});
    EXPECT_EQ(texts(c.pages[1], BandType::PageFooter), QStringList{QStringLiteral("Página 2")});
}

TEST(PageBreaks, ABandTallerThanThePageIsPrintedOnceAndEnds) {
    ReportDesign d = edgeDesign(23);
    d.BandaDetalle.Height = 5000;
    auto rows = DatosRepetidos(3);
    const Composed c = compose(d, *rows);
    ASSERT_EQ(c.result, ResultadoComposicion::Completo);
    EXPECT_EQ(c.pages.size(), 3);
}

TEST(PageBreaks, SepararEnPaginasStartsEachGroupOnANewPage) {
    ReportDesign d = DisenoObras();
    d.Groups[0].ForceNewPage = true;
    auto rows = DatosObras();
    const Composed c = compose(d, *rows);
    ASSERT_EQ(c.pages.size(), 3);
    for (const ReportPage &p : c.pages) {
        EXPECT_EQ(countBand(p, BandType::BandaCabecera, QStringLiteral("Obra:")), 1);
        EXPECT_EQ(countBand(p, BandType::BandaPie, QStringLiteral("Total Obra:")), 1);
        EXPECT_EQ(countBand(p, BandType::PageHeader, QStringLiteral("Listado de Obras")), 1);
    }
    EXPECT_EQ(countBand(c.pages[2], BandType::BandaSumario), 1);
}

TEST(Handlers, BeforePrintMayAddUpValuesAndSkipBands) {
    ReportDesign d = DisenoObras();
    long double grandes = 0;
    d.BandaDetalle.BeforePrint = [&](ReportBand &, const RowView &row) {
        const double v = row.number(QStringLiteral("Importe"));
        if (v < 1000)
            return false; // small amounts are left out of the page, not of the sums
        grandes += v;
        return true;
    };
    d.BandaSumario->add(Control(QStringLiteral("Grandes"), ControlKind::Label, 0, 4, 200));
    d.BandaSumario->BeforePrint = [&](ReportBand &band, const RowView &) {
        band.control(QStringLiteral("Grandes"))->Caption =
            QString::number(static_cast<double>(grandes), 'f', 3);
        return true;
    };
    auto rows = DatosObras();
    const Composed c = compose(d, *rows);
    EXPECT_EQ(texts(c.pages[0], BandType::BandaDetalle),
              (QStringList{QStringLiteral("Excavación"), QStringLiteral("02/03/2026"),
                           QStringLiteral("1.200,50"), QStringLiteral("Muro \"A\""),
                           QStringLiteral("04/03/2026"), QStringLiteral("1.000,00"),
                           QStringLiteral("Cubierta"), QStringLiteral("09/03/2026"),
                           QStringLiteral("12.345,68")}));
    EXPECT_EQ(texts(c.pages[0], BandType::BandaSumario),
              (QStringList{QStringLiteral("14.946,43"), QStringLiteral("14546.178")}));
}

TEST(Handlers, StretchingTextMovesTheNextBandDown) {
    ReportDesign d = edgeDesign(0);
    d.BandaDetalle.Height = 16;
    d.BandaDetalle.Controls[0].Height = 16;
    d.BandaDetalle.Controls[0].AutoStretch = true;
    RowListDataSource rows({{QStringLiteral("Descripcion"), ColumnKind::Memo}},
                           {{QStringLiteral("uno\ndos\ntres")}, {QStringLiteral("cuatro")}});
    const Composed c = compose(d, rows);
    QList<int> ys;
    for (const PageItem &it : c.pages[0].items)
        ys << it.y;
    EXPECT_EQ(ys, (QList<int>{0, 16, 32, 48}));
}

TEST(Handlers, SubDetailPrintsItsOwnRowsUnderEachDetail) {
    ReportDesign d = edgeDesign(0);
    d.BandaDetalle.Height = 20;
    SubDetail sub;
    sub.Band = Banda(QStringLiteral("Detail"), BandType::Detail, 10);
    ReportControl linea = Control(QStringLiteral("Linea"), ControlKind::Field, 20, 0, 100);
    linea.DataField = QStringLiteral("Linea");
    sub.Band.add(linea);
    sub.Rows = [](const RowView &master) {
        const QString base = master.text(QStringLiteral("Descripcion"));
        return std::make_unique<RowListDataSource>(
            QList<SourceField>{{QStringLiteral("Linea"), ColumnKind::Text}},
            QList<QVariantList>{{base + QStringLiteral(".1")}, {base + QStringLiteral(".2")}});
    };
    d.Detail = sub;
    RowListDataSource rows({{QStringLiteral("Descripcion"), ColumnKind::Text}},
                           {{QStringLiteral("A")}, {QStringLiteral("B")}});
    const Composed c = compose(d, rows);
    QStringList all;
    for (const PageItem &it : c.pages[0].items)
        all << NombreBanda(it.band) + u':' + it.text;
    EXPECT_EQ(all, (QStringList{QStringLiteral("BandaDetalle:A"), QStringLiteral("Detail:A.1"),
                                QStringLiteral("Detail:A.2"), QStringLiteral("BandaDetalle:B"),
                                QStringLiteral("Detail:B.1"), QStringLiteral("Detail:B.2")}));
}

TEST(Money, TagOf1000FollowsTheCurrencyDisplay) {
    ReportDesign d = edgeDesign(0);
    ReportControl imp = Control(QStringLiteral("Importe"), ControlKind::Field, 200, 0, 100);
    imp.DataField = QStringLiteral("Importe");
    imp.Tag = kTagMoneda;
    d.BandaDetalle.add(imp);
    ReportControl sinTag = imp;
    sinTag.Name = QStringLiteral("SinTag");
    sinTag.Tag = 0;
    sinTag.Left = 400;
    d.BandaDetalle.add(sinTag);
    ComposeContext ctx = ContextoFijo();
    ctx.monedas = ValoresMoneda(1, 1, 2,
                                {{1, QStringLiteral("Pesetas"), QStringLiteral("PTA"), 1, 0},
                                 {2, QStringLiteral("Euros"), QStringLiteral("EUR"), 166.386, 2}});
    ctx.display.botonEuroPulsado = true;
    RowListDataSource rows({{QStringLiteral("Descripcion"), ColumnKind::Text},
                            {QStringLiteral("Importe"), ColumnKind::Float}},
                           {{QStringLiteral("x"), 1663.86}});
    const Composed c = compose(d, rows, ctx);
    EXPECT_EQ(texts(c.pages[0], BandType::BandaDetalle),
              (QStringList{QStringLiteral("x"), QStringLiteral("10"), QStringLiteral("1.663,86")}));
}

TEST(BadInput, NoRowsGiveNoPage) {
    auto rows = DatosVacios();
    const Composed c = compose(DisenoObras(), *rows);
    EXPECT_EQ(c.result, ResultadoComposicion::SinDatos);
    EXPECT_TRUE(c.pages.isEmpty());
}

TEST(BadInput, AFieldTheRowsLackStopsBeforeAnyPage) {
    ReportDesign d = DisenoObras();
    d.BandaDetalle.Controls[0].DataField = QStringLiteral("Temporal.NoExiste");
    auto rows = DatosObras();
    const Composed c = compose(d, *rows);
    EXPECT_EQ(c.result, ResultadoComposicion::Fallo);
    EXPECT_EQ(c.motivo,
              QStringLiteral("El campo \"Temporal.NoExiste\" no existe en los datos del informe"));
    EXPECT_TRUE(c.pages.isEmpty());
}

TEST(BadInput, MalformedExpressionsAreNamed) {
    for (const QString &expr : {QStringLiteral("Str(CodigoObra"), QStringLiteral("CodigoObra+"),
                                QStringLiteral("Left(CodigoObra)"), QString()}) {
        ReportDesign d = DisenoObras();
        d.Groups[0].Expression = expr;
        auto rows = DatosObras();
        const Composed c = compose(d, *rows);
        EXPECT_EQ(c.result, ResultadoComposicion::Fallo) << expr.toStdString();
        EXPECT_EQ(c.motivo,
                  QStringLiteral("La expresión \"%1\" del informe no es válida").arg(expr));
    }
    ReportDesign d = DisenoObras();
    d.BandaSumario->Controls[0].DataField = QStringLiteral("COUNT(Importe)");
    auto rows = DatosObras();
    EXPECT_EQ(compose(d, *rows).result, ResultadoComposicion::Fallo);
}

TEST(BadInput, ARowShorterThanItsFieldsIsRefused) {
    RowListDataSource rows(
        {{QStringLiteral("A"), ColumnKind::Integer}, {QStringLiteral("B"), ColumnKind::Integer}},
        {{1, 2}, {3}});
    const Composed c = compose(edgeDesign(0), rows);
    EXPECT_EQ(c.result, ResultadoComposicion::Fallo);
    EXPECT_EQ(c.motivo, QStringLiteral("Una fila del informe no tiene todos sus campos"));
}

TEST(Streaming, PagesReachTheSinkBeforeTheRowsEnd) {
    // The sink sees page 1 while rows are still being read.
    qint64 readWhenFirstPage = -1;
    qint64 read = 0;
    GeneratedDataSource rows({{QStringLiteral("Descripcion"), ColumnKind::Text}}, 500,
                             [&](qint64 i, QVariantList &v) {
                                 ++read;
                                 v[0] = QString::number(i);
                             });
    struct FirstPage : PageSink {
        std::function<void()> onPage;
        bool addPage(ReportPage &&, QString *) override {
            onPage();
            return true;
        }
    } sink;
    sink.onPage = [&] {
        if (readWhenFirstPage < 0)
            readWhenFirstPage = read;
    };
    QString motivo;
    ASSERT_EQ(ComponerReport(edgeDesign(23), rows, sink, ContextoFijo(), &motivo),
              ResultadoComposicion::Completo);
    EXPECT_EQ(readWhenFirstPage, 12) << "page 1 leaves when the 12th row does not fit";
}

TEST(Streaming, ASinkFailureStopsTheComposition) {
    struct Failing : PageSink {
        int pages = 0;
        bool addPage(ReportPage &&, QString *motivo) override {
            *motivo = QStringLiteral("disco lleno");
            ++pages;
            return false;
        }
    } sink;
    auto rows = DatosRepetidos(40);
    QString motivo;
    EXPECT_EQ(ComponerReport(edgeDesign(23), *rows, sink, ContextoFijo(), &motivo),
              ResultadoComposicion::Fallo);
    EXPECT_EQ(motivo, QStringLiteral("disco lleno"));
    EXPECT_EQ(sink.pages, 1);
}

} // namespace
} // namespace co::test
