#pragma once
// `TfOBRAINCI`, "Maestro de Incidencias": incidences (`INCIDENC`), with the type
// and the chargeable mark chosen from their lists.

#include "forms/grid_master.h"

namespace co::works {

class TfOBRAINCI : public forms::MaestroRejilla {
public:
    explicit TfOBRAINCI(TModuloDatos &datos);

protected:
    void ValoresIniciales() override;
};

// An incidence is chargeable only when marked "SI"; an empty mark is not.
bool IncidenciaImputable(const QVariant &imputable);

} // namespace co::works
