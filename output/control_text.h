#pragma once
// What a control shows for a value: the system's display of the value, its
// mask for numbers, and for money controls (tag 1000 or more) the currency
// display of the session.

#include "core/backend.h"
#include "core/currency.h"
#include "output/report_design.h"

#include <QDate>
#include <QString>
#include <QVariant>
#include <functional>

namespace co {

// What the composition takes from the session and the run.
struct ComposeContext {
    CurrencyValues monedas;
    CurrencyDisplay display;
    QString plantillaNumerica = QStringLiteral("#,###.##"); // `PlantillaNumericaStd`
    QDate fecha = QDate::currentDate();                     // shown by Date controls
    // Asked after each row; false stops the composition as cancelled.
    std::function<bool()> continuar;
};

inline constexpr int kTagMoneda = 1000;

// The text of a Field or Sum control for `valor` of kind `tipo`.
QString TextoControl(const ReportControl &control, const QVariant &valor, ColumnKind tipo,
                     const ComposeContext &ctx);

} // namespace co
