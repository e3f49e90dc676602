#pragma once
// The demo company benchmark: its ratio and minutes, printed after the run.
#include "ratio_reporter.h"

namespace co::bench {

void ImprimirDemo(const RatioReporter &reporter);

} // namespace co::bench
