#pragma once
// The year of work reports of a demo plan, streamed day by day: labour,
// machine, material (with their stock movements), subcontract and joint
// reports, priced as the entry screens price them, and the purchase receipts
// the material prices come from. `escala` repeats each day's reports (2 gives
// twice the rows); a fraction below 1 keeps only the first part of the year.
// Memory holds one statement per table, whatever the scale.

#include "demo/demo_plan.h"
#include "demo/insert_batch.h"

#include <QMap>

namespace co::demo {

struct RecuentoPartes {
    QMap<QString, qint64> filas; // rows written per table
    // Rows of the five report tables and the joint report lines.
    qint64 FilasPartes() const;
};

// Empty on success, else the first failure text.
QString EscribirPartes(const PlanDemo &plan, double escala, DestinoSentencias &destino,
                       RecuentoPartes *recuento);

// Working days of the year that a scale keeps, and the passes of each: the
// number of times the day's reports are drawn.
int PasadasDelDia(const PlanDemo &plan, double escala, const QDate &fecha);

} // namespace co::demo
