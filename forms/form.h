#pragma once
// `Form`: the logic of one screen, with no widget in it. It owns its components
// by name (datasets, data sources, edits bound to fields, grids with columns and
// pick lists, buttons, menu items, tab pages) and its handlers by name; it
// knows the focused control and each grid's selected column. The view layer
// draws it and turns key presses, focus changes and clicks into calls here.
//
// Handlers are found by name, case-insensitively, and called with the sender
// component (nullptr when there is none). A control's events are bound by
// naming the handler: SetEvent("OnExit", "CampoClaveExit"). Dataset events are
// bound by the names of the record screens: <dataset><event without "On">
// ("Table1BeforePost", "Table1NewRecord", "Table1CalcFields"), and a data
// source's "<source>DataChange" / "<source>StateChange" to its dataset.
//
// Focus: leaving a control runs its OnExit handler; an Abort there keeps the
// focus where it was. Leaving a grid column runs the grid's OnColExit likewise.

#include "core/table_opening.h"
#include "forms/component.h"
#include "forms/dataset.h"
#include "forms/dataset_events.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

namespace co::forms {

class DataSource : public Component {
public:
    explicit DataSource(QString name, Dataset *dataset = nullptr)
        : Component(ComponentKind::DataSource, std::move(name)), DataSet(dataset) {}
    Dataset *DataSet;
    bool AutoEdit = true;
};

// A control bound to a field: data edit, data combo box, data memo.
class DataControl : public Component {
public:
    DataControl(ComponentKind kind, QString name, DataSource *source = nullptr, QString field = {})
        : Component(kind, std::move(name)), Source(source), DataField(std::move(field)) {}
    DataSource *Source;
    QString DataField;
    QStringList Items; // combo box choices, as stored
    // The choices as shown, one per item (translated at opening); empty shows Items.
    QStringList ItemsMostrados;
    Dataset *DataSet() const { return Source ? Source->DataSet : nullptr; }
    Field *BoundField() const;
};

struct GridColumn {
    GridColumn() = default;
    GridColumn(QString field, QString title, QStringList pickList = {})
        : FieldName(std::move(field)), Title(std::move(title)), PickList(std::move(pickList)) {}
    QString FieldName;
    QString Title;
    QStringList PickList;
    // The pick list as shown, one per value (translated at opening); empty shows PickList.
    QStringList PickListMostrada;
    bool ReadOnly = false;
    bool Visible = true;
    int Width = 64;
};

class DBGrid : public Component {
public:
    explicit DBGrid(QString name, DataSource *source = nullptr)
        : Component(ComponentKind::DBGrid, std::move(name)), Source(source) {}
    DataSource *Source;
    QList<GridColumn> Columns;
    int SelectedIndex = 0;
    bool MultiSelect = false;
    // Memo columns show their text on one line instead of the " ..." mark.
    bool MemosEnLinea = false;
    Dataset *DataSet() const { return Source ? Source->DataSet : nullptr; }
    // The field of the selected column; nullptr without a dataset or columns.
    Field *SelectedField() const;
    // Columns from the dataset's visible fields when none were declared.
    void DefaultColumns();
};

// The search behind a code field: F2 or a double click on the field, in a data
// edit or a grid column, opens the search window on `tabla` and stores the
// element `elemento` of the key chosen (a chapter's code is the second element,
// after its works). `restriccion`, when set, gives the fixed restriction of
// each search, read at the moment of the search.
struct BusquedaCampo {
    QString tabla;
    int elemento = 0;
    std::function<QString()> restriccion = {};
};

class Form {
public:
    using Handler = std::function<void(Component *sender)>;

    explicit Form(QString name, QString caption = {});
    virtual ~Form();
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    QString Name;
    QString Caption;

    // ---- components
    template <class T> T &Adopt(std::unique_ptr<T> component) {
        T &ref = *component;
        component->SetOwner(this);
        components_.push_back(std::move(component));
        return ref;
    }
    template <class T, class... Args> T &Add(Args &&...args) {
        return Adopt(std::make_unique<T>(std::forward<Args>(args)...));
    }
    Component &AddControl(ComponentKind kind, const QString &name, const QString &caption = {});
    Component *FindComponent(const QString &name) const;
    template <class T> T *Find(const QString &name) const {
        return dynamic_cast<T *>(FindComponent(name));
    }
    QList<Component *> Components() const;
    QList<Dataset *> Datasets() const;

    // ---- handlers and events
    // Replaces the handler of that name.
    void SetHandler(const QString &name, Handler handler);
    // Runs `handler` after the one already of that name: a screen or a
    // component adds to the family's handler instead of replacing it.
    void AddHandler(const QString &name, Handler handler);
    // Adds a handler of a dataset event and binds the event at once.
    void AlEvento(Dataset &dataset, EventoDatos evento, Handler handler);
    bool HasHandler(const QString &name) const;
    // False when the form has no such handler.
    bool CallHandler(const QString &name, Component *sender = nullptr);
    // Binds a control's event (OnExit, OnEnter, OnClick, OnChange, OnColExit) to a handler.
    void SetEvent(Component &control, const QString &event, const QString &handler);
    QString EventHandler(const Component &control, const QString &event) const;
    // Runs the handler bound to a control's event; false when none is bound.
    bool RunEvent(Component &control, const QString &event);
    // Binds the datasets' events to the handlers named after them.
    void ConectarEventos();

    // ---- searches of code fields
    void DeclararBusqueda(const Dataset &dataset, const QString &campo, BusquedaCampo busqueda);
    // The search declared for a field; nullptr when it has none.
    const BusquedaCampo *BusquedaDeclarada(const Field &campo) const;
    bool TieneBusquedas() const { return !busquedas_.isEmpty(); }

    // ---- focus and clicks
    Component *ActiveControl() const { return active_; }
    // Returns false (focus unchanged) when the control left aborted.
    bool SetFocus(Component *control);
    // Selects a grid column; false when leaving the old one aborted.
    bool SelectColumn(DBGrid &grid, int index);
    // Runs a button's or menu item's click: its OnClick binding, else "<Name>Click".
    bool Click(const QString &name);

    // ---- tables and closing
    // The form's tables for AbrirTablasForm, in component order.
    FormularioTablas Tablas();
    std::function<void()> Preparar;
    // Asks "FormCloseQuery" (which may clear CanClose), then runs "FormClose".
    bool Close();
    bool CanClose = true;
    bool Closed() const { return closed_; }

private:
    std::vector<std::unique_ptr<Component>> components_;
    QHash<QString, Handler> handlers_; // by lower-case name
    QHash<const Component *, QHash<QString, QString>> events_;
    QHash<QString, BusquedaCampo> busquedas_; // by "<dataset>.<field>", lower case
    Component *active_ = nullptr;
    bool closed_ = false;
};

} // namespace co::forms
