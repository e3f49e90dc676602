#pragma once
// Writes the masters and the works of a demo plan as multi-row INSERT
// statements. Each returns empty on success, else the failure text of the
// first statement that failed.

#include "demo/demo_plan.h"
#include "demo/insert_batch.h"

namespace co::demo {

QString EscribirMaestros(const PlanDemo &plan, DestinoSentencias &destino);
QString EscribirObras(const PlanDemo &plan, DestinoSentencias &destino);

} // namespace co::demo
