#pragma once
// `TfOBRASUBC`, "Maestro de Subcontrataciones": subcontract items (`SUBCONTR`).
// The supplier must exist and its name is shown beside the code; a new item
// opens with today's date and VAT type 1. Sale prices hide when the works
// settings use only percentages.

#include "forms/grid_master.h"
#include "works/screen_works_module.h"

namespace co::works {

class TfOBRASUBC : public forms::MaestroRejilla {
public:
    explicit TfOBRASUBC(TModuloDatos &datos);
    ModuloObraDePantalla ModuloObra{Datos()};

protected:
    void ValoresIniciales() override;
};

} // namespace co::works
