#pragma once
// `TfOBRAPARA`, "Parámetros de Control de Obras": the single row of `PARAOBRA`
// in data edits and lists. Opening on an empty table appends the row with the
// defaults of the works data module and posts it; the row can be neither added
// to nor deleted. `pbGrabar` posts and closes, `pbCancelar` cancels and closes,
// and closing hands over to `AlCerrar` (the works data module's refresh).

#include "core/table_opening.h"
#include "forms/form.h"
#include "forms/maintenance_routines.h"
#include "forms/table.h"

#include <functional>

namespace co::works {

class TfOBRAPARA : public forms::Form {
public:
    explicit TfOBRAPARA(TModuloDatos &datos);
    ~TfOBRAPARA() override;

    forms::RutinasFormulario &Rutinas() { return rutinas_; }
    forms::Table &Table1() const { return *table1_; }

    // Opens the table and makes sure its row exists; false when it could not.
    bool Abrir(AperturaTablas &apertura);

    std::function<void()> AlCerrar;

private:
    void declarar();

    forms::RutinasFormulario rutinas_;
    forms::Table *table1_ = nullptr;
    forms::DataSource *source1_ = nullptr;
};

} // namespace co::works
