#pragma once
// Opening the table objects of forms and data modules: `AperturaTablaOK` binds a
// table to the database of its table, opens it, and makes it from the structure
// files when it turns out to be missing (an existing one first gets the indexes
// of its definition that it lacks); `AbrirTablasForm` does so for all the
// tables of a form. The rebuild check notes damaged embedded tables in the INI
// file for the diagnostics to rebuild.

#include "core/database.h"
#include "core/table_creation.h"

#include <QList>
#include <QString>
#include <functional>

namespace co {

// A table object as the opening needs it; the datasets of the screens implement it.
class TablaAbrible {
public:
    virtual ~TablaAbrible() = default;
    virtual QString TableName() const = 0;
    virtual QString ComponentName() const = 0;
    virtual QString OwnerName() const = 0;
    virtual QString DatabaseName() const = 0;
    virtual void SetDatabaseName(const QString &conexion) = 0;
    virtual bool Active() const = 0;
    virtual void Close() = 0;
    // Opens the table; on failure false and the failure text.
    virtual bool Open(QString *fallo) = 0;
};

// The form side of `AbrirTablasForm`.
struct FormularioTablas {
    QString nombre;                    // component name of the form, e.g. "fOBRAOBRA"
    QList<TablaAbrible *> tablas;      // in component order
    bool esFormulario = true;          // false for a data module
    std::function<void()> preparar;    // the form's preparation
    std::function<void()> cerrar;      // close (form) or free (data module) after a failure
    std::function<void()> traducir;    // translation of the form's texts
    std::function<void(bool)> cursorEspera;
};

class AperturaTablas {
public:
    AperturaTablas(TModuloDatos &datos, CreadorTablas &creador) : datos_(datos), creador_(creador) {}

    bool AperturaTablaOK(TablaAbrible &tabla);
    bool AbrirTablasForm(FormularioTablas &form);

private:
    enum class Origen { AperturaTablaOK, AbrirTablasForm };
    bool abrir(TablaAbrible &tabla, Origen origen);
    QString conexionDe(TablaAbrible &tabla, QString *paraCrear);

    TModuloDatos &datos_;
    CreadorTablas &creador_;
};

} // namespace co
