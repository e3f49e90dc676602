#pragma once
// Figures of the statement rewrite benchmark, printed after a run.

#include "ratio_reporter.h"

namespace co::bench {

void ImprimirReescritura(const RatioReporter &reporter);

} // namespace co::bench
