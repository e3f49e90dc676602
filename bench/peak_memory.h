#pragma once
// Peak resident memory of the benchmark process, from /proc.

namespace co::bench {

// Peak resident memory in kB since the last ResetPeakMemory(); -1 when unknown.
long PeakMemoryKb();
void ResetPeakMemory();

} // namespace co::bench
