#include "output/report_style.h"

#include <cmath>

namespace co {

namespace {

struct Estilo {
    std::optional<QColor> cabecera, pie, sumario;
    QColor rotulos; // captions of the page header and group headers
};

Estilo estiloDe(const QString &nombre) {
    if (nombre == u"Blanco y Negro")
        return {std::nullopt, std::nullopt, std::nullopt, Qt::black};
    if (nombre == u"Basica")
        return {QColor(0xF0, 0xF0, 0xF0), QColor(0xF0, 0xF0, 0xF0), QColor(0xE0, 0xE0, 0xE0),
                Qt::black};
    // The design colours of the forms: money green heads, cream feet, navy captions.
    return {QColor(0xC0, 0xDC, 0xC0), QColor(0xFF, 0xFB, 0xF0), QColor(0xA6, 0xCA, 0xF0),
            QColor(0x00, 0x00, 0x80)};
}

int escalar(int v, double factor) {
    return static_cast<int>(std::lround(v * factor));
}

} // namespace

void AplicarEstiloReport(ReportDesign &design, const QString &estilo) {
    const Estilo e = estiloDe(estilo);
    const bool sinColor = estilo == u"Blanco y Negro";
    for (ReportBand *band : design.bands()) {
        switch (band->Type) {
        case BandType::BandaCabecera:
            band->Color = e.cabecera;
            break;
        case BandType::BandaPie:
            band->Color = e.pie;
            break;
        case BandType::BandaSumario:
            band->Color = e.sumario;
            break;
        default:
            if (sinColor)
                band->Color.reset();
            break;
        }
        const bool rotulos =
            band->Type == BandType::PageHeader || band->Type == BandType::BandaCabecera;
        for (ReportControl &c : band->Controls) {
            if (sinColor)
                c.Color = Qt::black;
            else if (rotulos && c.Kind == ControlKind::Label && c.Name != u"LabelRestricciones")
                c.Color = e.rotulos;
        }
    }
}

void AplicarParametrosListado(ReportDesign &design, const ParametrosListado &p) {
    const bool familia = !p.TipoLetraListados.isEmpty() && p.TipoLetraListados != u"Por Defecto";
    for (ReportBand *band : design.bands())
        for (ReportControl &c : band->Controls) {
            if (familia)
                c.Font.family = p.TipoLetraListados;
            c.Font.pointSize = std::round(c.Font.pointSize * p.FCompresionTLetraListados * 10) / 10;
            c.Left = escalar(c.Left, p.FCompresionListados);
            c.Width = escalar(c.Width, p.FCompresionListados);
        }
    design.Page.marginLeft += escalar(1, p.MargenIzquierdoImpresora * 96 / 25.4);
}

void TraducirCaptions(ReportDesign &design,
                      const std::function<QString(const QString &)> &traducir) {
    if (!traducir)
        return;
    design.Title = traducir(design.Title);
    for (ReportBand *band : design.bands())
        for (ReportControl &c : band->Controls)
            if (c.Kind == ControlKind::Label || c.Kind == ControlKind::PageNumber ||
                c.Kind == ControlKind::Date)
                c.Caption = traducir(c.Caption);
}

} // namespace co
