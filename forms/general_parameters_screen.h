#pragma once
// `TfGENEPARA`, "Parámetros Generales": the one record of `PARAGENE`
// (`IdRegistro` = 1) on the tab pages of the general parameters, every field in
// a data edit, a combo box where the field has its choices, a memo for the
// key=value blocks and texts. Opening a company without the record appends it
// with its defaults and posts it; the record can be neither added to nor deleted.
// `pbGrabar` posts under the save rules (an empty `PlantillaNumericaStd` becomes
// "#,###.##", the same currency as euro and national one is refused and the
// record stays pending as typed) and closes; after each post `AlGrabar` runs
// (`ParamGeneralesAfterPost`: the session takes the new currency at once).

#include "forms/single_record_master.h"

#include <functional>

namespace co::forms {

class TfGENEPARA : public MaestroFicha {
public:
    explicit TfGENEPARA(TModuloDatos &datos);

    std::function<void()> AlGrabar;

protected:
    void DespuesAbrir() override;
    void AntesGrabar() override;
};

} // namespace co::forms
