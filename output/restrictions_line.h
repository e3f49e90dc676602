#pragma once
// The restrictions line of a listing: the text built from the filter form's
// controls, and `AjustarRestricciones`, which fits it into the page header.
//
// The label `LabelRestricciones` sits under the logo `TituloLogotipoEmpresa`
// (under `TituloNombreEmpresa` when there is none, else at the top), 8-point Arial, dark red, the
// width of the band. Lines: text length / 100 + 1 on a portrait page, / 160 + 1
// on a landscape one; height 15 a line, 30 when that is under 16.

#include "forms/form.h"
#include "output/report_design.h"

#include <QHash>
#include <QList>
#include <QString>

namespace co {

inline constexpr const char *kPrefijoRestricciones = "RESTRICCIONES Y OPCIONES DEL LISTADO: ";

// A control of a filter form, as the restrictions line reads it.
struct ControlFiltro {
    enum class Tipo { Edit, MaskEdit, CheckBox, RadioButton, ComboBox, Otro };
    QString Name;
    Tipo tipo = Tipo::Edit;
    QString Text;    // edits and combo boxes
    QString Caption; // check boxes and radio buttons
    bool Checked = false;
    bool Visible = true;
};

// The label of a control: its name split into words, "Edit" removed
// ("EditDesdeObra" -> "Desde Obra").
QString EtiquetaControl(const QString &nombre);

// The text of the controls in tab order; `VisualizacionPrevia` is skipped;
// `rangosGrupos` is the text of the analysis group ranges, when chosen.
QString TextoRestricciones(const QList<ControlFiltro> &controles, const QString &rangosGrupos = {});

// The controls of a filter form, in tab order (the order of its components):
// plain and data edits, combo boxes and check boxes; the others are left out.
// A data edit shows its field's text.
QList<ControlFiltro> ControlesFiltro(const forms::Form &form);

// The text of a filter form's controls. `rangosGrupos` counts only when the
// form has `pbRangoGruposAnalisis`.
QString TextoRestricciones(const forms::Form &form, const QString &rangosGrupos = {});

// The page header as it was before the line, kept for the later fits.
struct RestriccionesListado {
    QString Texto;
    bool Mostrar = true;
    int AlturaGuardada = 0;
    QHash<QString, int> TopsGuardados; // Name=Top
};

// Saves the band's tops and height and adds the label (empty) to the band.
RestriccionesListado PrepararRestricciones(ReportBand &cabecera, const QString &texto, bool mostrar,
                                           int anchoBanda);

int LineasRestricciones(const QString &texto, Orientation orientacion);

// Fits the label into the band, or puts the band back as it was saved.
void AjustarRestricciones(ReportBand &cabecera, RestriccionesListado &r, Orientation orientacion);

} // namespace co
