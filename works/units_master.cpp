#include "works/units_master.h"

#include "core/session.h"

namespace co::works {

TfOBRAUNID::TfOBRAUNID(TModuloDatos &datos)
    : MaestroRejilla(
          datos, {QStringLiteral("fOBRAUNID"),
                  QStringLiteral("Maestro de Unidades"),
                  QStringLiteral("UNIDADOB"),
                  QStringLiteral("Codigo"),
                  {{QStringLiteral("Codigo"), QStringLiteral("Código"), {}},
                   {QStringLiteral("Descripcion"), QStringLiteral("Descripción"), {}},
                   {QStringLiteral("DescripcionAmpliada"), QStringLiteral("Descripción Ampliada"), {}},
                   {QStringLiteral("Unidad"), QStringLiteral("Unidad"), {}},
                   {QStringLiteral("PorcentajeIVA"), QStringLiteral("% IVA"), {}},
                   {QStringLiteral("PorcentajeRgo"), QStringLiteral("% Recargo"), {}}}}) {
    // The memo column's button: the pop-up edits the whole text.
    SetHandler(QStringLiteral("DBGrid1EditButtonClick"), [this](forms::Component *) {
        MessagePort *port = Mensajes().port();
        forms::Field &memo = Table1().FieldByName(QStringLiteral("DescripcionAmpliada"));
        if (!port || (Table1().IsEmpty() && !Table1().IsPending()))
            return;
        const QString actual = memo.AsString();
        const QString texto = port->showTitled(u'P', TituloDescripcionAmpliada(), {}, actual);
        if (texto == actual)
            return;
        if (!Table1().IsPending())
            Table1().Edit();
        memo.SetAsString(texto);
    });
}

QString TfOBRAUNID::TituloDescripcionAmpliada() const {
    return QStringLiteral("Unidad ") + Table1().FieldByName(QStringLiteral("Codigo")).AsString() +
           QStringLiteral(" - Descripción Ampliada");
}

void TfOBRAUNID::ValoresIniciales() {
    const QString iva = ParametroGeneral(Datos(), QStringLiteral("Iva1"));
    if (!iva.isEmpty())
        Table1().FieldByName(QStringLiteral("PorcentajeIVA")).SetValue(iva.toDouble());
}

} // namespace co::works
