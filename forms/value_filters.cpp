#include "forms/value_filters.h"

#include "core/sql_text.h"
#include "forms/dataset.h"
#include "forms/pick_list_check.h"

namespace co::forms {

bool FiltrarPorValor(Dataset &ds, Field &campo, FiltroValor tipo, Messenger &m) {
    if (!ds.Active() || ds.IsPending() || campo.Calculated)
        return false;
    const QString etiqueta =
        campo.DisplayLabel.isEmpty() ? EtiquetaCampo(campo.FieldName()) : campo.DisplayLabel;
    QString pregunta;
    QString op;
    switch (tipo) {
    case FiltroValor::IgualA:
        pregunta = QStringLiteral("Introduzca el valor del campo ");
        op = QStringLiteral("=");
        break;
    case FiltroValor::Desde:
        pregunta = QStringLiteral("Introduzca el valor Desde ");
        op = QStringLiteral(">=");
        break;
    case FiltroValor::Hasta:
        pregunta = QStringLiteral("Introduzca el valor Hasta ");
        op = QStringLiteral("<=");
        break;
    }
    const std::optional<QString> valor = m.InputQuery(pregunta + etiqueta, campo.AsString());
    if (!valor)
        return false;
    const QString condicion =
        u'(' + campo.FieldName() + u' ' + op + u' ' + Entrecomillar(*valor) + u')';
    const QString anterior = ds.Filter();
    const bool estaba = ds.Filtered();
    try {
        ds.SetFiltered(false);
        ds.SetFilter(anterior.isEmpty() ? condicion
                                        : anterior + QStringLiteral(" AND ") + condicion);
        ds.SetFiltered(true);
        return true;
    } catch (const EDatabaseError &) {
        ds.SetFilter(anterior);
        ds.SetFiltered(estaba);
        m.MensajeA(QStringLiteral("¡No ha sido posible filtrar registros!"));
        return false;
    }
}

void CancelarFiltros(Dataset &ds) {
    ds.CancelRange();
    ds.SetFiltered(false);
}

} // namespace co::forms
