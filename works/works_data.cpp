#include "works/works_data.h"

#include "core/query.h"

namespace co::works {

const QList<QPair<QString, QVariant>> &ValoresPorDefectoParametrosObra() {
    static const QList<QPair<QString, QVariant>> valores{
        {QStringLiteral("IdRegistro"), 1},
        {QStringLiteral("PorGastosIndirectos"), 0.0},
        {QStringLiteral("PorGastosGenerales"), 0.0},
        {QStringLiteral("PorSoloGastosGenerales"), 0.0},
        {QStringLiteral("PorSoloBenefIndustrial"), 0.0},
        {QStringLiteral("CoeficienteRevision"), 0.0},
        {QStringLiteral("DtoRetencionVto"), QStringLiteral("NO")},
        {QStringLiteral("DiasVtoRetencion"), 0},
        {QStringLiteral("DtoRetencionFactura"), QStringLiteral("NO")},
        {QStringLiteral("CfgDescripcionPresupuesto"),
         QStringLiteral("Descripcion+DescripcionAmpliada")},
        {QStringLiteral("CfgDescripcionFactura"),
         QStringLiteral("Descripcion+DescripcionAmpliada")},
        {QStringLiteral("MultiPartes"), QStringLiteral("SI")},
        {QStringLiteral("PartesSeparados"), QStringLiteral("SI")},
        {QStringLiteral("ModificarPartes"), QStringLiteral("SI")},
        {QStringLiteral("AdmPorPorcentajes"), QStringLiteral("SI")},
        {QStringLiteral("ContadorMultiMarcajes"), QStringLiteral("NO")},
    };
    return valores;
}

TMDObra::TMDObra(TModuloDatos &datos) : datos_(datos) {
    for (const auto &[campo, valor] : ValoresPorDefectoParametrosObra())
        valores_.insert(campo.toLower(), valor);
    RefrescarParametros();
}

void TMDObra::RefrescarParametros() {
    Consulta fila;
    fila.SQL = QStringLiteral("SELECT * FROM PARAOBRA ORDER BY IdRegistro");
    if (!datos_.AbrirConsulta(fila, QStringLiteral("Open,Silencio")) || fila.RecordCount() == 0)
        return;
    for (int c = 0; c < fila.Fields().size(); ++c)
        valores_.insert(fila.Fields().at(c).name.toLower(), fila.Value(0, c));
    grabados_ = true;
}

QString TMDObra::Parametro(const QString &campo) const {
    const QVariant v = valores_.value(campo.toLower());
    return v.isNull() ? QString() : v.toString();
}

double TMDObra::ParametroNumero(const QString &campo) const {
    return valores_.value(campo.toLower()).toDouble();
}

QString TMDObra::Bandera(const QString &campo) const {
    const QString valor = Parametro(campo);
    if (!valor.isEmpty())
        return valor;
    for (const auto &[nombre, defecto] : ValoresPorDefectoParametrosObra())
        if (nombre.compare(campo, Qt::CaseInsensitive) == 0)
            return defecto.toString();
    return valor;
}

} // namespace co::works
