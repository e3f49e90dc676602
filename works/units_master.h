#pragma once
// `TfOBRAUNID`, "Maestro de Unidades": units of measure (`UNIDADOB`). A new unit
// takes the first VAT rate of the general parameters; the extended description
// is edited in a pop-up titled by the unit.

#include "forms/grid_master.h"

namespace co::works {

class TfOBRAUNID : public forms::MaestroRejilla {
public:
    explicit TfOBRAUNID(TModuloDatos &datos);

protected:
    void ValoresIniciales() override;
    QString TituloMemo(const forms::GridColumn &columna) const override;
};

} // namespace co::works
