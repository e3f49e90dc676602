#pragma once
// Display formats of numeric fields at a form's preparation: a field whose
// DisplayFormat is the placeholder "#,###.##" gets a format chosen from its name,
// case-insensitively: "Precio" the price format, "Importe" the amount format,
// a fragment of one of the five number templates that template's format (first
// match in template order), "Total" the amount format. A price or amount format
// that is not set leaves the choice to the templates. A float field with no
// format at all (as a table's open makes it) counts as the placeholder; when no
// rule names it, it keeps none. Date-time fields whose name contains "Hora"
// show "HH:MM:SS" and have no edit mask.

#include "core/number_templates.h"
#include "forms/dataset.h"

#include <QString>

namespace co::forms {

inline constexpr const char *kFormatoProvisional = "#,###.##";

struct FormatosNumericos {
    QString precio;
    QString importe;
    PlantillasNumericas plantillas;
};

// The format a placeholder field takes; empty when no rule names it.
QString FormatoSegunNombre(const QString &campo, const FormatosNumericos &formatos);

// Applies the rules to every field of the dataset.
void AplicarFormatos(Dataset &dataset, const FormatosNumericos &formatos);

} // namespace co::forms
