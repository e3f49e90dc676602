#pragma once
// `TfOBRAMAQU`, "Maestro de Maquinas": machines (`MAQUINOB`), with a second grid
// of the machine's analysis groups. Sale prices hide when the works settings
// use only percentages.

#include "forms/analysis_groups.h"
#include "forms/grid_master.h"
#include "works/screen_works_module.h"

namespace co::works {

class TfOBRAMAQU : public forms::MaestroRejilla {
public:
    explicit TfOBRAMAQU(TModuloDatos &datos);

    forms::Table &Table2() const { return grupos_.Tabla(); }
    forms::DBGrid &DBGrid2() const { return grupos_.Rejilla(); }
    ModuloObraDePantalla ModuloObra{Datos()};

private:
    forms::GruposAnalisis grupos_;
};

} // namespace co::works
