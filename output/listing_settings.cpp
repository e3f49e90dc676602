#include "output/listing_settings.h"

#include "core/general_parameters_table.h"

namespace co {

namespace {

void text(const QVariantHash &r, const char *name, QString &into) {
    const QString v = r.value(QString::fromLatin1(name)).toString().trimmed();
    if (!v.isEmpty())
        into = v;
}

void factor(const QVariantHash &r, const char *name, double &into) {
    bool ok = false;
    const double v = r.value(QString::fromLatin1(name)).toDouble(&ok);
    into = ok && v > 0 ? v : 1;
}

} // namespace

ParametrosListado ParametrosListado::DeRegistro(const QVariantHash &r) {
    ParametrosListado p;
    text(r, "TipoLetraListados", p.TipoLetraListados);
    factor(r, "FCompresionListados", p.FCompresionListados);
    factor(r, "FCompresionTLetraListados", p.FCompresionTLetraListados);
    p.MargenIzquierdoImpresora =
        std::max(0.0, r.value(QStringLiteral("MargenIzquierdoImpresora")).toDouble());
    text(r, "TipoCombinacionTramas", p.TipoCombinacionTramas);
    text(r, "SolicitarDialogoImpresora", p.SolicitarDialogoImpresora);
    text(r, "ListarRestricciones", p.ListarRestricciones);
    text(r, "PlantillaNumericaStd", p.PlantillaNumericaStd);
    return p;
}

ParametrosListado ParametrosListado::Leer(TModuloDatos &datos) {
    const auto registro = LeerParametrosGenerales(datos);
    return registro ? DeRegistro(*registro) : ParametrosListado{};
}

} // namespace co
