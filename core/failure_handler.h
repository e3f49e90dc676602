#pragma once
// Failures that no code caught: what kind of event each one is, in which
// Spanish words to tell it, and whether to go on.
//
// GestionExcepciones only decides, from the failure's English text, so that
// every rule can be checked on its own; MostrarFallo carries the decision out
// through the message port and the hooks the desktop gives it.

#include <QString>
#include <functional>

namespace co {

class Messenger;

struct FailureDecision {
    // "Advertencia", "Error", "IGNORAR" or "Informacion"; "Plano" for the one
    // failure told in a plain dialog, after which the sending form is closed.
    QString kind;
    QString message;
    // The table behind the failure needs the rebuild check.
    bool rebuild = false;
};

// Works through three groups of rules in order, later rules overwriting
// earlier ones: the first group's messages are warnings, the second's errors
// (unless a kind was already set), the third silences. An unknown text is a
// warning with the text itself.
FailureDecision GestionExcepciones(const QString &texto);

// A message text with the prefix "TRADUCIR:" loses it (and the blank after
// it) and has its engine phrases put into Spanish. Other texts are returned
// unchanged.
QString TraducirPrefijo(const QString &texto);

struct FailureHooks {
    std::function<void()> restoreCursor; // for silenced failures
    std::function<void()> busyCursor;    // before an error ends the application
    std::function<void()> closeSender;   // the plain-dialog case, when the sender is a form
    std::function<void()> rebuild;       // the rebuild check of the failing table
    // When the capture level is "Maximo": called for all but errors.
    std::function<void(const FailureDecision &)> registerIncident;
};

// Carries a decision out: silenced failures only restore the cursor;
// warnings, information and errors go through MensajeA, MensajeI and
// MensajeE (which ends the application).
void MostrarFallo(const FailureDecision &decision, Messenger &mensajes,
                  const FailureHooks &hooks = {});

// `RegistrarIncidencia`: this program keeps no incidents at any capture level
// ("Ninguno", "Minimo", "Maximo"); the table `INCAPLIC` is for other programs
// of the suite. Kept so that callers state where an incident would be noted.
inline void RegistrarIncidencia(const QString &titulo, const QString &texto) {
    Q_UNUSED(titulo);
    Q_UNUSED(texto);
}

} // namespace co
