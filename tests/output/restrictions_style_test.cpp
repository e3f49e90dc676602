// The restrictions line, the styles, the listing font, compression, margin
// and the translation of captions.
#include "output/report_style.h"
#include "output/restrictions_line.h"
#include "report_fixtures.h"

namespace co::test {
namespace {

ReportBand cabeceraConLogo() {
    ReportBand b = Banda(QStringLiteral("PageHeader"), BandType::PageHeader, 80);
    b.add(Control(QStringLiteral("TituloNombreEmpresa"), ControlKind::Label, 0, 0, 300));
    b.add(Control(QStringLiteral("TituloLogotipoEmpresa"), ControlKind::Image, 0, 16, 100, 30));
    b.add(Control(QStringLiteral("TituloListado"), ControlKind::Label, 0, 50, 300, 20));
    return b;
}

TEST(Restricciones, LinesArePer100CharactersPortraitAndPer160Landscape) {
    EXPECT_EQ(LineasRestricciones(QString(99, u'x'), Orientation::Portrait), 1);
    EXPECT_EQ(LineasRestricciones(QString(100, u'x'), Orientation::Portrait), 2);
    EXPECT_EQ(LineasRestricciones(QString(159, u'x'), Orientation::Landscape), 1);
    EXPECT_EQ(LineasRestricciones(QString(160, u'x'), Orientation::Landscape), 2);
    EXPECT_EQ(LineasRestricciones(QString(320, u'x'), Orientation::Landscape), 3);
}

TEST(Restricciones, LabelGoesUnderTheLogoAndShiftsWhatFollows) {
    ReportBand b = cabeceraConLogo();
    RestriccionesListado r = PrepararRestricciones(b, QString(250, u'x'), true, 718);
    AjustarRestricciones(b, r, Orientation::Portrait);
    // 38 + 250 characters: 3 lines of 15.
    const ReportControl *label = b.control(QStringLiteral("LabelRestricciones"));
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->Visible);
    EXPECT_EQ(label->Top, 46);
    EXPECT_EQ(label->Height, 45);
    EXPECT_EQ(label->Width, 718);
    EXPECT_EQ(label->Color, QColor(0x80, 0, 0));
    EXPECT_EQ(label->Font, (FontSpec{QStringLiteral("Arial"), 8, false, false}));
    EXPECT_TRUE(label->Caption.startsWith(QLatin1String(kPrefijoRestricciones)));
    EXPECT_EQ(b.Height, 125);
    EXPECT_EQ(b.control(QStringLiteral("TituloNombreEmpresa"))->Top, 0);
    EXPECT_EQ(b.control(QStringLiteral("TituloLogotipoEmpresa"))->Top, 16);
    EXPECT_EQ(b.control(QStringLiteral("TituloListado"))->Top, 95);
}

TEST(Restricciones, AShortTextTakesThirtyAndTheSameTextOnLandscapeFewerLines) {
    ReportBand b = cabeceraConLogo();
    RestriccionesListado r = PrepararRestricciones(b, QStringLiteral("Desde Obra: 1, "), true, 718);
    AjustarRestricciones(b, r, Orientation::Portrait);
    EXPECT_EQ(b.control(QStringLiteral("LabelRestricciones"))->Height, 30);
    EXPECT_EQ(b.Height, 110);

    ReportBand l = cabeceraConLogo();
    RestriccionesListado rl = PrepararRestricciones(l, QString(262, u'x'), true, 1047);
    AjustarRestricciones(l, rl, Orientation::Landscape); // 300 characters: 2 lines
    EXPECT_EQ(l.control(QStringLiteral("LabelRestricciones"))->Height, 30);
    ReportBand p = cabeceraConLogo();
    RestriccionesListado rp = PrepararRestricciones(p, QString(262, u'x'), true, 718);
    AjustarRestricciones(p, rp, Orientation::Portrait); // 300 characters: 4 lines
    EXPECT_EQ(p.control(QStringLiteral("LabelRestricciones"))->Height, 60);
}

TEST(Restricciones, HiddenOrEmptyPutsTheBandBackAsSaved) {
    ReportBand b = cabeceraConLogo();
    RestriccionesListado r = PrepararRestricciones(b, QString(250, u'x'), true, 718);
    AjustarRestricciones(b, r, Orientation::Portrait);
    r.Mostrar = false;
    AjustarRestricciones(b, r, Orientation::Portrait);
    EXPECT_EQ(b.Height, 80);
    EXPECT_EQ(b.control(QStringLiteral("TituloListado"))->Top, 50);
    EXPECT_FALSE(b.control(QStringLiteral("LabelRestricciones"))->Visible);

    ReportBand e = cabeceraConLogo();
    RestriccionesListado vacio = PrepararRestricciones(e, QString(), true, 718);
    AjustarRestricciones(e, vacio, Orientation::Portrait);
    AjustarRestricciones(e, vacio, Orientation::Portrait);
    EXPECT_EQ(e.Height, 80);
    EXPECT_EQ(vacio.Texto, QLatin1String(kPrefijoRestricciones)) << "the prefix goes in once";
}

TEST(Restricciones, TextComesFromTheFilterControlsInTabOrder) {
    using T = ControlFiltro::Tipo;
    const QList<ControlFiltro> controles = {
        {QStringLiteral("EditDesdeObra"), T::Edit, QStringLiteral("10"), {}, false, true},
        {QStringLiteral("EditHastaObra"), T::Edit, QString(), {}, false, true},
        {QStringLiteral("DesdeFecha"), T::MaskEdit, QStringLiteral("01/03/2026"), {}, false, true},
        {QStringLiteral("VisualizacionPrevia"),
         T::CheckBox,
         {},
         QStringLiteral("Visualización Previa"),
         true,
         true},
        {QStringLiteral("SepararEnPaginas"),
         T::CheckBox,
         {},
         QStringLiteral("Separar en Paginas"),
         true,
         true},
        {QStringLiteral("ListarTodo"), T::CheckBox, {}, QStringLiteral("Listar Todo"), false, true},
        {QStringLiteral("PorObra"), T::RadioButton, {}, QStringLiteral("Por Obra"), true, true},
        {QStringLiteral("PorOculto"),
         T::RadioButton,
         {},
         QStringLiteral("Por Oculto"),
         true,
         false},
        {QStringLiteral("ComboEstado"),
         T::ComboBox,
         QStringLiteral("Abierta\r\n"),
         {},
         false,
         true},
    };
    EXPECT_EQ(
        TextoRestricciones(controles),
        QStringLiteral("Desde Obra: 10, Desde Fecha: 01/03/2026, Separar en Paginas, Por Obra, "
                       "Combo Estado: Abierta, "));
    EXPECT_EQ(EtiquetaControl(QStringLiteral("EditHastaCodigoCIF")),
              QStringLiteral("Hasta Codigo CIF"));
}

TEST(Estilos, BlancoYNegroRemovesEveryColour) {
    ReportDesign d = DisenoObras();
    d.Groups[0].Footer->Controls[0].Color = Qt::red;
    AplicarEstiloReport(d, QStringLiteral("Standard"));
    EXPECT_TRUE(d.Groups[0].Header.Color.has_value());
    EXPECT_EQ(d.PageHeader->Controls[1].Color, QColor(0, 0, 0x80));
    AplicarEstiloReport(d, QStringLiteral("Blanco y Negro"));
    for (const ReportBand *b : std::as_const(d).bands()) {
        EXPECT_FALSE(b->Color.has_value()) << b->Name.toStdString();
        for (const ReportControl &c : b->Controls)
            EXPECT_EQ(c.Color, QColor(Qt::black)) << c.Name.toStdString();
    }
}

TEST(Estilos, BasicaAndStandardDiffer) {
    ReportDesign s = DisenoObras(), b = DisenoObras(), unknown = DisenoObras();
    AplicarEstiloReport(s, QStringLiteral("Standard"));
    AplicarEstiloReport(b, QStringLiteral("Basica"));
    AplicarEstiloReport(unknown, QStringLiteral("Combinada"));
    EXPECT_NE(s.Groups[0].Header.Color, b.Groups[0].Header.Color);
    EXPECT_EQ(unknown.Groups[0].Header.Color, s.Groups[0].Header.Color);
}

TEST(ParametrosListado, FontCompressionAndLeftMarginApplyToEveryControl) {
    ParametrosListado p = ParametrosListado::DeRegistro(
        {{QStringLiteral("TipoLetraListados"), QStringLiteral("Courier New")},
         {QStringLiteral("FCompresionListados"), 0.5},
         {QStringLiteral("FCompresionTLetraListados"), 0.75},
         {QStringLiteral("MargenIzquierdoImpresora"), 10.0}});
    ReportDesign d = DisenoObras();
    const ReportControl before = d.BandaDetalle.Controls[1];
    const int margin = d.Page.marginLeft;
    AplicarParametrosListado(d, p);
    const ReportControl &after = d.BandaDetalle.Controls[1];
    EXPECT_EQ(after.Font.family, QStringLiteral("Courier New"));
    EXPECT_DOUBLE_EQ(after.Font.pointSize, 6);
    EXPECT_EQ(after.Left, before.Left / 2 + before.Left % 2);
    EXPECT_EQ(after.Width, before.Width / 2);
    EXPECT_EQ(d.Page.marginLeft, margin + 38);
}

TEST(ParametrosListado, DefaultsAndNonsenseKeepTheDesign) {
    const ParametrosListado p = ParametrosListado::DeRegistro(
        {{QStringLiteral("FCompresionListados"), -3},
         {QStringLiteral("FCompresionTLetraListados"), QStringLiteral("x")},
         {QStringLiteral("MargenIzquierdoImpresora"), -5}});
    ReportDesign d = DisenoObras();
    const QString before = [&] {
        PageCollector c;
        auto rows = DatosObras();
        ComponerReport(d, *rows, c, ContextoFijo(), nullptr);
        return DescribirPaginas(c.pages);
    }();
    AplicarParametrosListado(d, p);
    PageCollector c;
    auto rows = DatosObras();
    ComponerReport(d, *rows, c, ContextoFijo(), nullptr);
    EXPECT_EQ(DescribirPaginas(c.pages), before);
}

TEST(Traduccion, CaptionsAndTitleGoThroughTheHook) {
    ReportDesign d = DisenoObras();
    TraducirCaptions(d, [](const QString &t) {
        return t == u"Total Obra:" ? QStringLiteral("Work total:") : t;
    });
    EXPECT_EQ(d.Groups[0].Footer->control(QStringLiteral("LabelTotalObra"))->Caption,
              QStringLiteral("Work total:"));
    EXPECT_EQ(d.BandaDetalle.Controls[0].DataField, QStringLiteral("Descripcion"))
        << "fields are not captions";
}

} // namespace
} // namespace co::test
