#pragma once
// The grid opening benchmarks: their ratios, printed after the run.
#include "ratio_reporter.h"

namespace co::bench {

void ImprimirRejillas(const RatioReporter &reporter);

} // namespace co::bench
