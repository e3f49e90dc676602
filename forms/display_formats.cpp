#include "forms/display_formats.h"

namespace co::forms {

QString FormatoSegunNombre(const QString &campo, const FormatosNumericos &formatos) {
    if (!formatos.precio.isEmpty() && campo.contains(QStringLiteral("Precio"), Qt::CaseInsensitive))
        return formatos.precio;
    if (!formatos.importe.isEmpty() &&
        campo.contains(QStringLiteral("Importe"), Qt::CaseInsensitive))
        return formatos.importe;
    for (const PlantillaNumerica &p : formatos.plantillas.plantillas)
        for (const QString &fragmento : p.fragmentos)
            if (!fragmento.isEmpty() && campo.contains(fragmento, Qt::CaseInsensitive))
                return p.mascara;
    if (campo.contains(QStringLiteral("Total"), Qt::CaseInsensitive))
        return formatos.importe;
    return {};
}

void AplicarFormatos(Dataset &dataset, const FormatosNumericos &formatos) {
    for (int i = 0; i < dataset.FieldCount(); ++i) {
        Field &f = dataset.FieldByIndex(i);
        if (f.IsHourField()) {
            f.DisplayFormat = QStringLiteral("HH:MM:SS");
            f.EditMask.clear();
            continue;
        }
        const bool sinFormato = f.IsFloat() && f.DisplayFormat.isEmpty();
        if (!sinFormato && f.DisplayFormat != QLatin1String(kFormatoProvisional) &&
            f.EditMask != QLatin1String(kFormatoProvisional))
            continue;
        const QString formato = FormatoSegunNombre(f.FieldName(), formatos);
        if (formato.isEmpty())
            continue;
        if (sinFormato || f.DisplayFormat == QLatin1String(kFormatoProvisional))
            f.DisplayFormat = formato;
        if (f.EditMask == QLatin1String(kFormatoProvisional))
            f.EditMask = formato;
    }
}

} // namespace co::forms
