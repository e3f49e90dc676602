#pragma once
// The demo company at the scale of a million report rows, one per back-end,
// made once per benchmark run and shared: the demo benchmark reads the times
// its making took, the grid benchmark opens its report tables.
//
// Making it is measured against a floor in the same run: the same report rows
// (the generator's statements, recorded to a file) sent again by plain
// multi-row INSERTs on the raw connection in one transaction, after the report
// tables are emptied.

#include "bench_installation.h"

#include <memory>

namespace co::bench {

struct DatosDemo {
    BenchInstallation instalacion;
    double escala = 0;
    qint64 filasPartes = 0;   // report rows written
    double segundosDemo = 0;  // the demo command's work: masters, works, reports
    double segundosSuelo = 0; // the same report rows by bare bulk insert
    long memoriaKb = 0;       // peak memory the making added
};

// nullptr when the back-end cannot be reached or the data cannot be made.
DatosDemo *DemoBanco(Backend backend);
void LiberarDemo();

} // namespace co::bench
