#pragma once
// `TfOBRASUBC`, "Maestro de Subcontrataciones": subcontract items (`SUBCONTR`).
// The supplier must exist and its name is shown beside the code; a new item
// opens with today's date and VAT type 1.

#include "works/grid_master.h"

namespace co::works {

class TfOBRASUBC : public MaestroRejilla {
public:
    explicit TfOBRASUBC(TModuloDatos &datos);

protected:
    void ValoresIniciales() override;
    bool ValidacionWinControl(forms::Component *sender) override;
    void CalcularCampos() override;
};

} // namespace co::works
