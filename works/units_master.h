#pragma once
// `TfOBRAUNID`, "Maestro de Unidades": units of measure (`UNIDADOB`). A new unit
// takes the first VAT rate of the general parameters; the extended description
// is edited in a pop-up from its grid column.

#include "works/grid_master.h"

namespace co::works {

class TfOBRAUNID : public MaestroRejilla {
public:
    explicit TfOBRAUNID(TModuloDatos &datos);
    // Caption of the extended description's pop-up for the current unit.
    QString TituloDescripcionAmpliada() const;

protected:
    void ValoresIniciales() override;
};

} // namespace co::works
