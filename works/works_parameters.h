#pragma once
// `TfOBRAPARA`, "Parámetros de Control de Obras": the single row of `PARAOBRA`
// in data edits and lists. Opening on an empty table appends the row with the
// defaults of the works data module and posts it; the row can be neither added
// to nor deleted. `pbGrabar` posts and closes, `pbCancelar` cancels and closes,
// and closing hands over to `AlCerrar` (the works data module's refresh).

#include "forms/single_record_master.h"

#include <functional>

namespace co::works {

class TfOBRAPARA : public forms::MaestroFicha {
public:
    explicit TfOBRAPARA(TModuloDatos &datos);

    std::function<void()> AlCerrar;

protected:
    void DespuesAbrir() override;
};

} // namespace co::works
