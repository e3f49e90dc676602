#include "output/control_text.h"

#include "core/number_format.h"
#include "core/result_text.h"

namespace co {

QString TextoControl(const ReportControl &control, const QVariant &valor, ColumnKind tipo,
                     const ComposeContext &ctx) {
    if (valor.isNull())
        return {};
    const bool numero = control.Kind == ControlKind::Sum || tipo == ColumnKind::Float ||
                        (tipo == ColumnKind::Integer && !control.Mask.isEmpty());
    if (!numero)
        return TextoValor(valor, tipo);
    const QString mascara = control.Mask.isEmpty() ? ctx.plantillaNumerica : control.Mask;
    if (control.Tag >= kTagMoneda)
        return TextoCampoMoneda(valor.toDouble(), mascara, ctx.display, ctx.monedas);
    return FormatFloat(mascara, valor.toDouble());
}

} // namespace co
