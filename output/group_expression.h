#pragma once
// Group and sum expressions of the report designs.
//
// A group expression is a field ("Temporal.CodigoObra") or a concatenation of
// fields and `Str(field)` terms joined by "+" ("Str(Temporal.CodigoObra)+
// Str(Temporal.CodigoCapitulo)"). The group changes when any term's value
// changes; the terms are compared one by one, so (1, 23) and (12, 3) are
// different groups although their texts run together alike.
// A sum expression is "SUM(field)".

#include "output/report_data_source.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace co {

struct ExpresionGrupo {
    QStringList campos; // field names as written, qualifier included

    // Parses the text; nullopt with `motivo` for a malformed expression.
    static std::optional<ExpresionGrupo> Analizar(const QString &texto, QString *motivo);
};

// The field of "SUM(field)"; nullopt with `motivo` for anything else.
std::optional<QString> CampoDeSuma(const QString &texto, QString *motivo);

} // namespace co
