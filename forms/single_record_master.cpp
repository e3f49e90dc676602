#include "forms/single_record_master.h"

#include "core/session.h"
#include "forms/pick_list_check.h"
#include "forms/standard_handlers.h"

namespace co::forms {

MaestroFicha::MaestroFicha(TModuloDatos &datos, DeclaracionFicha declaracion)
    : MaestroTabla(datos, declaracion.nombre, declaracion.titulo, declaracion.tabla,
                   FamiliaFormulario::MaestroFicha,
                   declaracion.dialogo ? BotonesDialogo() : BotonesRegistro(),
                   declaracion.dialogo ? QList<Boton>{} : MenuFicha()),
      declaracion_(std::move(declaracion)) {
    // Pages go before the controls, so that a view meets a page before what sits on it.
    for (const PaginaFicha &p : declaracion_.paginas)
        paginas_ << &AddControl(ComponentKind::TabSheet, p.nombre, p.titulo);
    for (const ControlFicha &c : declaracion_.controles)
        if (!c.pagina.isEmpty() && !Pagina(c.pagina))
            paginas_ << &AddControl(ComponentKind::TabSheet, c.pagina, c.pagina);
    for (const ControlFicha &c : declaracion_.controles) {
        const bool lista = !c.valores.isEmpty();
        const ComponentKind clase = lista    ? ComponentKind::DBComboBox
                                    : c.memo ? ComponentKind::DBMemo
                                             : ComponentKind::DBEdit;
        const QString prefijo = lista    ? QStringLiteral("ComboBox")
                                : c.memo ? QStringLiteral("Memo")
                                         : QStringLiteral("Edit");
        auto &control = Add<DataControl>(clase, prefijo + c.campo, &DataSource1(), c.campo);
        control.Caption = c.etiqueta;
        control.Items = c.valores;
        control.Parent = c.pagina.isEmpty() ? nullptr : Pagina(c.pagina);
        controles_ << &control;
        if (c.campo.compare(declaracion_.campoClave, Qt::CaseInsensitive) == 0) {
            campoClave_ = &control;
            SetEvent(control, QStringLiteral("OnExit"), QStringLiteral("CampoClaveExit"));
            SetEvent(control, QStringLiteral("OnChange"), QStringLiteral("CampoClaveChange"));
        } else {
            SetEvent(control, QStringLiteral("OnExit"), QStringLiteral("ControlExit"));
        }
    }

    SetHandler(QStringLiteral("AgregarClick"), [this](Component *) { alta(); });
    SetHandler(QStringLiteral("DataSource1StateChange"), [this](Component *) { cambioEstado(); });
    SetHandler(QStringLiteral("CampoClaveChange"),
               [this](Component *) { claveCambiada_ = Table1().State() == DatasetState::Edit; });
    SetHandler(QStringLiteral("CampoClaveExit"), [this](Component *s) { salidaClave(s); });
    SetHandler(QStringLiteral("ControlExit"), [this](Component *s) { salidaControl(s); });
    if (declaracion_.dialogo)
        SetHandler(QStringLiteral("pbCancelarClick"), [this](Component *) {
            Table1().Cancel();
            Close();
        });
    cambioEstado();
}

DataControl *MaestroFicha::Control(const QString &campo) const {
    for (DataControl *c : controles_)
        if (c->DataField.compare(campo, Qt::CaseInsensitive) == 0)
            return c;
    return nullptr;
}

Component *MaestroFicha::Pagina(const QString &nombre) const {
    for (Component *p : paginas_)
        if (p->Name().compare(nombre, Qt::CaseInsensitive) == 0)
            return p;
    return nullptr;
}

// A new record starts on the key; leaving a browsed control checks nothing.
void MaestroFicha::alta() {
    SetFocus(campoClave_ ? campoClave_ : controles_.value(0));
    Table1().Insert();
}

// The button switch, and the key locked unless inserting.
void MaestroFicha::cambioEstado() {
    ConmutarBotones(*this, Table1().IsPending());
    if (campoClave_)
        campoClave_->ReadOnly = Table1().State() != DatasetState::Insert;
    if (!Table1().IsPending())
        claveCambiada_ = false;
}

void MaestroFicha::salidaClave(Component *sender) {
    if (!Table1().IsPending())
        return;
    Rutinas().ComprobarClave({*this,
                              Table1(),
                              *campoClave_->BoundField(),
                              campoClave_,
                              FamiliaFormulario::MaestroFicha,
                              claveCambiada_,
                              sender,
                              [this](Component *c) { return Validar(c); },
                              {}});
}

void MaestroFicha::salidaControl(Component *sender) {
    if (!Table1().IsPending())
        return;
    auto *control = dynamic_cast<DataControl *>(sender);
    if (control && !ComprobarControlLista(*control, Mensajes()))
        Abort();
    if (!Validar(sender))
        Abort();
}

void MaestroFicha::ComprobarListasAlGrabar() {
    if (ActiveControl() == FindComponent(QStringLiteral("pbCancelar")))
        return;
    for (DataControl *c : controles_)
        if (!ComprobarControlLista(*c, Mensajes()))
            Abort();
}

} // namespace co::forms
