#pragma once
// `ListadoTabla`: the quick listing of any query. No rows (or a query not
// open) shows "No hay registros para listar"; more than 1000 rows asks "El
// informe tiene más de 1000 registros. ¿Desea continuar?" and stops on "NO".
// The listing prints every field as a column, in the query's order; columns
// are narrowed alike when they do not fit across the page, and the page turns
// to landscape first when that is enough.

#include "core/query.h"
#include "output/report_object.h"

#include <memory>

namespace co {

inline constexpr int kLimiteListadoTabla = 1000;

// The design of the quick listing of these fields.
ReportDesign DisenoListadoTabla(const QList<ResultColumn> &campos, const QString &titulo);

// The report of the quick listing, ready to print or preview; null when there
// is nothing to list or the user stopped. `consulta` must outlive the report.
std::unique_ptr<Report> ListadoTabla(const Consulta &consulta, const QString &contexto,
                                     const QString &titulo, ReportEnvironment entorno);

} // namespace co
