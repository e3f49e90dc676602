#pragma once
// The single-record master family: one record of a table shown in data edits
// and data combo boxes, one per declared field. A screen derives from
// `MaestroFicha`, declares its table, key and controls, and overrides only its
// own rules (`ValoresIniciales`, `ValidacionWinControl`, `CalcularCampos`,
// `AntesGrabar`, `DespuesAbrir`). Buttons, menu and shared handlers: see
// record_master.h.
//
// Controls are named "Edit<field>" (data edit), "ComboBox<field>" (data combo
// box, for a field with permitted values) and "Memo<field>" (multi-line data
// memo); their caption is the label. A control that names a page sits on that
// tab page (a `TabSheet` component); pages come in declared order, a page a
// control names but the declaration lacks is added after them, captioned with
// its name. Controls with no page sit on the form itself.
// The key control is `CampoClave()`: `Insert` focuses it; it is writable only
// while inserting; leaving it runs `CampoClaveExit`, the key check of this
// family (empty key drops the new record, ranges of numeric keys, the form's
// validator, then "¡ Ya existe el registro !" in `Insert`, or in `Edit` when the
// key changed, with the focus back on the key while inserting). Leaving any
// other control checks its permitted values and runs `ValidacionWinControl`
// with it; the post checks every combo box and runs the validator with none.
//
// A declaration with no key field is a screen over a single-row table: no key
// control and no key check. `dialogo` gives the buttons pbGrabar (posts and
// closes) and pbCancelar (cancels and closes) and no menu.

#include "forms/record_master.h"

namespace co::forms {

struct ControlFicha {
    QString campo;       // the field edited
    QString etiqueta;    // the label beside the control
    QStringList valores; // permitted values: a combo box offers them; none: a data edit
    QString pagina = {}; // the tab page's component name; empty: the form itself
    bool memo = false;   // a multi-line text (no permitted values)
};

struct PaginaFicha {
    QString nombre; // component name, e.g. "PagGeneral"
    QString titulo; // the tab's caption
};

struct DeclaracionFicha {
    QString nombre;     // component name of the form, e.g. "fOBRAPARA"
    QString titulo;     // caption
    QString tabla;      // the table edited
    QString campoClave; // the key field; empty for a single-row table
    QList<ControlFicha> controles;
    bool dialogo = false;
    QList<PaginaFicha> paginas = {};
};

class MaestroFicha : public MaestroTabla {
public:
    MaestroFicha(TModuloDatos &datos, DeclaracionFicha declaracion);

    // The key control; nullptr for a single-row table.
    DataControl *CampoClave() const { return campoClave_; }
    // The control of a declared field; nullptr for another field.
    DataControl *Control(const QString &campo) const;
    // The tab page of that component name; nullptr when there is none.
    Component *Pagina(const QString &nombre) const;
    const DeclaracionFicha &Declaracion() const { return declaracion_; }
    // `ClaveCambiada`: the key was typed while the record was in `Edit`.
    bool ClaveCambiada() const { return claveCambiada_; }

protected:
    void ComprobarListasAlGrabar() override;

private:
    void alta();
    void cambioEstado();
    void salidaClave(Component *sender);
    void salidaControl(Component *sender);

    DeclaracionFicha declaracion_;
    QList<DataControl *> controles_;
    QList<Component *> paginas_;
    DataControl *campoClave_ = nullptr;
    bool claveCambiada_ = false;
};

} // namespace co::forms
