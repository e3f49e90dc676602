#pragma once
// `PrepararForm`: what every record screen gets before its tables open —
// display formats, read-only access from the user's rights, the shared
// after-post, before-delete and close-query handlers where the form has none,
// `Cambio` left-aligned, the user's keypad-point option, the preview check,
// the administrator's hints and the controls hidden for the user.
//
// A form's "class" is "T" + its name (fOBRAOBRA -> TfOBRAOBRA), as the hidden
// control lists name it.

#include "forms/display_formats.h"

#include <QString>

namespace co::forms {

class Form;
class RutinasFormulario;

struct OpcionesPreparacion {
    FormatosNumericos formatos;
    bool modoAdministrador = false;        // `ModoAdministradorActivado`
    bool modoControlesNoVisibles = false;  // `ModoControlesNoVisiblesActivado`
    bool derechosActivos = false;          // user rights are checked
    bool visualizacionPrevia = false;      // `VisualizacionPreviaActivada`
    bool documentacionElectronica = false; // electronic documents in use
    bool registroAccesos = false;          // `RegistroAccesosActivado`: Ctrl+A shows the history
    bool responsabilidadDocumental = false; // `ResponsabilidadDocumentalActivada`
    bool mensajeriaInterna = false;        // `MensajeriaInternaActivada`
};

QString ClaseFormulario(const Form &form);

void PrepararForm(Form &form, RutinasFormulario &rutinas, const OpcionesPreparacion &opciones);

// The display formats of every dataset of the form and `Cambio` left-aligned.
// The open of a table makes its fields, so the opening runs this again once the
// tables are open.
void AplicarFormatosForm(Form &form, const FormatosNumericos &formatos);

} // namespace co::forms
