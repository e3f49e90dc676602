#pragma once
// The session's failure handler (`GestionExcepciones` of `TfGENEINIC`): every
// failure that no code caught, from a screen's routine or from the event loop,
// comes here, is decided by failure_handler.h and carried out with what the
// session knows:
// - an error or warning inside a transaction in course marks it failed, so the
//   controlled commit refuses it;
// - a failure that asks for a rebuild notes its table in the INI file (embedded
//   data only), under the company's folder;
// - the one failure told in a plain dialog closes the form that sent it;
// - silenced failures restore the cursor, errors show the busy one first.
// What the sender is comes with each failure; the cursors come from the desktop.

#include <QString>
#include <functional>

namespace co {

class TfGENEINIC;

// Where a failure came from.
struct OrigenFallo {
    QString tabla;                          // the table behind it; empty when unknown
    std::function<void()> cerrarFormulario; // closes the sending form; unset when not a form
};

class ManejadorFallos {
public:
    explicit ManejadorFallos(TfGENEINIC &sesion) : sesion_(sesion) {}

    void Gestionar(const QString &texto, const OrigenFallo &origen = {});

    // The desktop's cursors; a program without a screen leaves them unset.
    std::function<void()> cursorEspera;
    std::function<void()> cursorNormal;
    // `NivelCapturaIncidencias` of the INI file.
    QString nivelIncidencias = QStringLiteral("Minimo");

private:
    TfGENEINIC &sesion_;
};

// Notes a damaged embedded table in the INI file (section "Reconstrucción
// Automática de Tablas", key "Tablas") when the failure names an index or a
// corruption: sorted, without repeats, prefixed by the company's folder.
void AnotarReconstruccion(TfGENEINIC &sesion, const QString &tabla, const QString &fallo);

} // namespace co
