#pragma once
// `TfOBRAMAQU`, "Maestro de Maquinas": machines (`MAQUINOB`), with a second grid
// of the machine's analysis groups (`GRANTAB` rows of "MAQUINOB" and the
// machine's code). Pending group rows are saved before the machine posts.

#include "works/grid_master.h"

namespace co::works {

class TfOBRAMAQU : public MaestroRejilla {
public:
    explicit TfOBRAMAQU(TModuloDatos &datos);

    forms::Table &Table2() const { return *table2_; }
    forms::DBGrid &DBGrid2() const { return *grid2_; }

protected:
    void AntesGrabar() override;

private:
    void apuntarGrupos();
    void calcularGrupo();

    forms::Table *table2_ = nullptr;
    forms::DBGrid *grid2_ = nullptr;
};

} // namespace co::works
