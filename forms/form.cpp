#include "forms/form.h"

#include "forms/table.h"

namespace co::forms {

QString Component::OwnerName() const {
    return owner_ ? owner_->Name : QString();
}

Field *DataControl::BoundField() const {
    Dataset *ds = DataSet();
    return ds && ds->Active() ? ds->FindField(DataField) : nullptr;
}

Field *DBGrid::SelectedField() const {
    Dataset *ds = DataSet();
    if (!ds || !ds->Active() || SelectedIndex < 0 || SelectedIndex >= Columns.size())
        return nullptr;
    return ds->FindField(Columns[SelectedIndex].FieldName);
}

void DBGrid::DefaultColumns() {
    Columns.clear();
    Dataset *ds = DataSet();
    if (!ds)
        return;
    for (int i = 0; i < ds->FieldCount(); ++i) {
        const Field &f = ds->FieldByIndex(i);
        if (f.Visible)
            Columns.append(GridColumn(f.FieldName(),
                                      f.DisplayLabel.isEmpty() ? f.FieldName() : f.DisplayLabel));
    }
}

Form::Form(QString name, QString caption) : Name(std::move(name)), Caption(std::move(caption)) {}

Form::~Form() {
    // Datasets close first: their handlers may reach other components.
    for (auto &c : components_)
        if (auto *ds = dynamic_cast<Dataset *>(c.get()))
            ds->Close();
}

Component &Form::AddControl(ComponentKind kind, const QString &name, const QString &caption) {
    Component &c = Add<Component>(kind, name);
    c.Caption = caption;
    return c;
}

Component *Form::FindComponent(const QString &name) const {
    for (const auto &c : components_)
        if (c->Name().compare(name, Qt::CaseInsensitive) == 0)
            return c.get();
    return nullptr;
}

QList<Component *> Form::Components() const {
    QList<Component *> out;
    for (const auto &c : components_)
        out << c.get();
    return out;
}

QList<Dataset *> Form::Datasets() const {
    QList<Dataset *> out;
    for (const auto &c : components_)
        if (auto *ds = dynamic_cast<Dataset *>(c.get()))
            out << ds;
    return out;
}

void Form::SetHandler(const QString &name, Handler handler) {
    handlers_.insert(name.toLower(), std::move(handler));
}

void Form::AddHandler(const QString &name, Handler handler) {
    Handler &actual = handlers_[name.toLower()];
    if (!actual) {
        actual = std::move(handler);
        return;
    }
    actual = [antes = std::move(actual), despues = std::move(handler)](Component *sender) {
        antes(sender);
        despues(sender);
    };
}

void Form::AlEvento(Dataset &dataset, EventoDatos evento, Handler handler) {
    const QString name = NombreManejador(dataset, evento);
    AddHandler(name, std::move(handler));
    Dataset *ds = &dataset;
    dataset.SetHandler(NombreEvento(evento),
                       [this, name, ds](Dataset &) { CallHandler(name, ds); });
}

bool Form::HasHandler(const QString &name) const {
    const auto it = handlers_.constFind(name.toLower());
    return it != handlers_.cend() && bool(*it);
}

bool Form::CallHandler(const QString &name, Component *sender) {
    const auto it = handlers_.constFind(name.toLower());
    if (it == handlers_.cend() || !*it)
        return false;
    const Handler handler = *it;
    handler(sender);
    return true;
}

void Form::SetEvent(Component &control, const QString &event, const QString &handler) {
    events_[&control].insert(event, handler);
}

QString Form::EventHandler(const Component &control, const QString &event) const {
    return events_.value(&control).value(event);
}

bool Form::RunEvent(Component &control, const QString &event) {
    const QString handler = EventHandler(control, event);
    return !handler.isEmpty() && CallHandler(handler, &control);
}

void Form::ConectarEventos() {
    for (Dataset *ds : Datasets()) {
        for (const QString &event : Dataset::EventNames()) {
            if (event == u"OnDataChange")
                continue;
            const QString name = ds->Name() + (event.startsWith(u"On") ? event.mid(2) : event);
            if (HasHandler(name))
                ds->SetHandler(event, [this, name, ds](Dataset &) { CallHandler(name, ds); });
        }
    }
    for (const auto &c : components_) {
        auto *source = dynamic_cast<DataSource *>(c.get());
        if (!source || !source->DataSet)
            continue;
        const QString change = source->Name() + QStringLiteral("DataChange");
        if (HasHandler(change))
            source->DataSet->SetDataChangeHandler([this, change, source](Dataset &, Field *field) {
                // The handler tells the record from a field by the sender: the source or nothing.
                CallHandler(change, field ? nullptr : source);
            });
        const QString state = source->Name() + QStringLiteral("StateChange");
        if (HasHandler(state))
            source->DataSet->SetHandler(
                QStringLiteral("OnStateChange"),
                [this, state, source](Dataset &) { CallHandler(state, source); });
    }
}

bool Form::SetFocus(Component *control) {
    if (control == active_)
        return true;
    if (active_) {
        try {
            RunEvent(*active_, QStringLiteral("OnExit"));
        } catch (const EAbort &) {
            return false;
        }
    }
    active_ = control;
    if (active_)
        RunEvent(*active_, QStringLiteral("OnEnter"));
    return true;
}

bool Form::SelectColumn(DBGrid &grid, int index) {
    if (index == grid.SelectedIndex)
        return true;
    try {
        RunEvent(grid, QStringLiteral("OnColExit"));
    } catch (const EAbort &) {
        return false;
    }
    grid.SelectedIndex = index;
    return true;
}

bool Form::Click(const QString &name) {
    Component *c = FindComponent(name);
    if (!c || !c->Enabled)
        return false;
    if (RunEvent(*c, QStringLiteral("OnClick")))
        return true;
    return CallHandler(c->Name() + QStringLiteral("Click"), c);
}

namespace {
QString claveBusqueda(const Dataset &dataset, const QString &campo) {
    return (dataset.Name() + u'.' + campo).toLower();
}
} // namespace

void Form::DeclararBusqueda(const Dataset &dataset, const QString &campo, BusquedaCampo busqueda) {
    busquedas_.insert(claveBusqueda(dataset, campo), std::move(busqueda));
}

const BusquedaCampo *Form::BusquedaDeclarada(const Field &campo) const {
    const auto it = busquedas_.constFind(claveBusqueda(campo.DataSet(), campo.FieldName()));
    return it == busquedas_.cend() ? nullptr : &it.value();
}

FormularioTablas Form::Tablas() {
    FormularioTablas out;
    out.nombre = Name;
    for (const auto &c : components_)
        if (auto *t = dynamic_cast<Table *>(c.get()))
            out.tablas << t;
    out.esFormulario = true;
    out.preparar = Preparar;
    out.cerrar = [this] { closed_ = true; };
    return out;
}

bool Form::Close() {
    CanClose = true;
    CallHandler(QStringLiteral("FormCloseQuery"), nullptr);
    if (!CanClose)
        return false;
    CallHandler(QStringLiteral("FormClose"), nullptr);
    closed_ = true;
    return true;
}

} // namespace co::forms
