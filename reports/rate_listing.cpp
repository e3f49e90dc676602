#include "reports/rate_listing.h"

namespace co {

namespace {

ReportControl rotulo(const QString &name, const QString &caption, int left, int top, int width,
                     Alineacion a = Alineacion::Izquierda) {
    ReportControl c = Control(name, ControlKind::Label, left, top, width);
    c.Caption = caption;
    c.Alignment = a;
    c.Font.bold = true;
    return c;
}

ReportControl campo(const QString &name, const QString &field, int left, int width,
                    Alineacion a = Alineacion::Izquierda, int tag = 0) {
    ReportControl c = Control(name, ControlKind::Field, left, 0, width);
    c.DataField = field;
    c.Alignment = a;
    c.Tag = tag;
    return c;
}

// `Temporal`: one row a line of a rate, numbered in the order of printing.
constexpr const char *kDefinicionTemporal = "Tabla Temporal\r\n"
                                            "/C/1/Linea/ftInteger/0/*\r\n"
                                            "/C/2/Codigo/ftSmallint/0/\r\n"
                                            "/C/3/DescripcionTarifa/ftString/40/\r\n"
                                            "/C/4/CodigoUnidad/ftString/20/\r\n"
                                            "/C/5/Descripcion/ftString/65/\r\n"
                                            "/C/6/DescripcionAmpliada/ftMemo/10/\r\n"
                                            "/C/7/PrecioCosto/ftFloat/0/\r\n"
                                            "/C/8/PrecioVenta/ftFloat/0/\r\n"
                                            "/I/1/<Primary>/Linea";

} // namespace

TfOBQRLTAR::TfOBQRLTAR(TModuloDatos &datos, CreadorTablas &creador,
                       ParametrosListadoTarifas parametros, ReportEnvironment entorno,
                       const QString &textoRestricciones)
    : Report(std::move(entorno)), datos_(datos), p_(std::move(parametros)),
      temporal_(datos, creador, QStringLiteral("fOBQRLTAR")) {
    ReportDesign &d = Diseno;
    d.Title = QStringLiteral("Listado de Tarifas");
    const int ancho = d.Page.bodyWidth();

    ReportBand cabecera = Banda(QStringLiteral("PageHeader"), BandType::PageHeader, 64);
    ReportControl empresa =
        Control(QStringLiteral("TituloNombreEmpresa"), ControlKind::Label, 0, 0, 400);
    empresa.Font = FontSpec{QStringLiteral("Arial"), 10, true, false};
    cabecera.add(empresa);
    cabecera.add(
        Control(QStringLiteral("TituloLogotipoEmpresa"), ControlKind::Image, 0, 18, 120, 24));
    ReportControl titulo =
        Control(QStringLiteral("TituloListado"), ControlKind::Label, 0, 44, ancho, 20);
    titulo.Caption = d.Title;
    titulo.Font = FontSpec{QStringLiteral("Arial"), 12, true, false};
    titulo.Alignment = Alineacion::Centro;
    cabecera.add(titulo);
    ReportControl fecha =
        Control(QStringLiteral("FechaListado"), ControlKind::Date, ancho - 160, 0, 160);
    fecha.Caption = QStringLiteral("Fecha: ");
    fecha.Alignment = Alineacion::Derecha;
    cabecera.add(fecha);
    d.PageHeader = cabecera;

    ReportGroup grupo;
    grupo.Name = QStringLiteral("GrupoTarifa");
    grupo.Expression = QStringLiteral("LTarifaMaq.Codigo");
    grupo.ForceNewPage = p_.SepararEnPaginas;
    grupo.Header = Banda(QStringLiteral("BandaCabecera"), BandType::BandaCabecera, 40);
    grupo.Header.add(rotulo(QStringLiteral("LabelTarifa"), QStringLiteral("Tarifa:"), 0, 2, 50));
    grupo.Header.add(
        campo(QStringLiteral("CodigoTarifa"), QStringLiteral("LTarifaMaq.Codigo"), 52, 40));
    grupo.Header.Controls.back().Top = 2;
    grupo.Header.add(
        campo(QStringLiteral("DescripcionTarifa"), QStringLiteral("DescripcionTarifa"), 96, 400));
    grupo.Header.Controls.back().Top = 2;
    grupo.Header.add(rotulo(QStringLiteral("LabelUnidad"), QStringLiteral("Unidad"), 0, 22, 110));
    grupo.Header.add(
        rotulo(QStringLiteral("LabelDescripcion"), QStringLiteral("Descripción"), 115, 22, 380));
    grupo.Header.add(rotulo(QStringLiteral("LabelCosto"), QStringLiteral("Precio Costo"),
                            ancho - 200, 22, 95, Alineacion::Derecha));
    grupo.Header.add(rotulo(QStringLiteral("LabelVenta"), QStringLiteral("Precio Venta"),
                            ancho - 95, 22, 95, Alineacion::Derecha));

    d.BandaDetalle.Height = 16;
    d.BandaDetalle.add(
        campo(QStringLiteral("CodigoUnidad"), QStringLiteral("LTarifaMaq.CodigoUnidad"), 0, 110));
    ReportControl linea =
        Control(QStringLiteral("LineaDescripcion"), ControlKind::Label, 115, 0, 380);
    linea.AutoStretch = true;
    d.BandaDetalle.add(linea);
    d.BandaDetalle.add(campo(QStringLiteral("PrecioCosto"),
                             QStringLiteral("LTarifaMaq.PrecioCosto"), ancho - 200, 95,
                             Alineacion::Derecha, kTagMoneda));
    d.BandaDetalle.add(campo(QStringLiteral("PrecioVenta"),
                             QStringLiteral("LTarifaMaq.PrecioVenta"), ancho - 95, 95,
                             Alineacion::Derecha, kTagMoneda));
    const bool ampliada = p_.ListarConMasDescripcion;
    d.BandaDetalle.BeforePrint = [this, ampliada](ReportBand &band, const RowView &row) {
        QString texto = row.text(QStringLiteral("Descripcion"));
        const QString mas = row.text(QStringLiteral("DescripcionAmpliada")).trimmed();
        if (ampliada && !mas.isEmpty())
            texto += u'\n' + mas;
        band.control(QStringLiteral("LineaDescripcion"))->Caption = texto;
        ++lineas_;
        return true;
    };

    grupo.Footer = Banda(QStringLiteral("BandaPie"), BandType::BandaPie, 22);
    grupo.Footer->add(
        rotulo(QStringLiteral("LabelTotal"), QStringLiteral("Total Tarifa:"), 115, 3, 200));
    ReportControl costo =
        Control(QStringLiteral("SumaCosto"), ControlKind::Sum, ancho - 200, 3, 95);
    costo.DataField = QStringLiteral("SUM(LTarifaMaq.PrecioCosto)");
    costo.Alignment = Alineacion::Derecha;
    costo.Tag = kTagMoneda;
    costo.Font.bold = true;
    grupo.Footer->add(costo);
    ReportControl venta = costo;
    venta.Name = QStringLiteral("SumaVenta");
    venta.Left = ancho - 95;
    venta.DataField = QStringLiteral("SUM(LTarifaMaq.PrecioVenta)");
    grupo.Footer->add(venta);
    d.Groups << grupo;

    ReportBand sumario = Banda(QStringLiteral("BandaSumario"), BandType::BandaSumario, 22);
    ReportControl cuenta = Control(QStringLiteral("LabelLineas"), ControlKind::Label, 115, 3, 300);
    cuenta.Font.bold = true;
    sumario.add(cuenta);
    sumario.BeforePrint = [this](ReportBand &band, const RowView &) {
        band.control(QStringLiteral("LabelLineas"))->Caption =
            QStringLiteral("Número de líneas: ") + QString::number(lineas_);
        return true;
    };
    d.BandaSumario = sumario;

    ReportBand pie = Banda(QStringLiteral("PageFooter"), BandType::PageFooter, 20);
    ReportControl pagina =
        Control(QStringLiteral("NumeroPagina"), ControlKind::PageNumber, ancho - 120, 2, 120);
    pagina.Caption = QStringLiteral("Página ");
    pagina.Alignment = Alineacion::Derecha;
    pie.add(pagina);
    d.PageFooter = pie;

    Crear(textoRestricciones);
}

OrigenListado TfOBQRLTAR::Origen() const {
    OrigenListado o;
    o.columnas = QStringList{QStringLiteral("Codigo"),
                             QStringLiteral("DescripcionTarifa"),
                             QStringLiteral("CodigoUnidad"),
                             QStringLiteral("Descripcion"),
                             QStringLiteral("DescripcionAmpliada"),
                             QStringLiteral("PrecioCosto"),
                             QStringLiteral("PrecioVenta")};
    o.expresiones = QStringList{QStringLiteral("L.Codigo"),
                                QStringLiteral("T.Descripcion"),
                                QStringLiteral("L.CodigoUnidad"),
                                QStringLiteral("L.Descripcion"),
                                QStringLiteral("L.DescripcionAmpliada"),
                                QStringLiteral("L.PrecioCosto"),
                                QStringLiteral("L.PrecioVenta")};
    o.desde = QStringLiteral("LTARFMAQ L LEFT JOIN TARFMAQ T ON T.Codigo = L.Codigo");
    o.condiciones << datos_.CondicionCampo(
        QStringLiteral("L.Codigo"), QString::number(p_.DesdeTarifa),
        QString::number(p_.HastaTarifa), QStringLiteral("ftSmallint"));
    o.condiciones << datos_.CondicionCampo(QStringLiteral("L.CodigoUnidad"), p_.DesdeUnidad,
                                           p_.HastaUnidad, QStringLiteral("ftString"));
    o.orden = QStringLiteral("L.Codigo, L.CodigoUnidad");
    return o;
}

std::unique_ptr<ReportDataSource> TfOBQRLTAR::AntesDeImprimir() {
    lineas_ = 0;
    // Filled once: re-paging and exports read the table as it stands.
    if (!lleno_) {
        QString motivo;
        if (!temporal_.Crear(QString::fromLatin1(kDefinicionTemporal), &motivo)) {
            mensajes().MensajeA(motivo);
            return nullptr;
        }
        // A failing statement was shown by the statement layer.
        if (!temporal_.Llenar(Origen(), &motivo))
            return nullptr;
        lleno_ = true;
    }
    return temporal_.Lector();
}

} // namespace co
