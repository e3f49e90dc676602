#pragma once
// The base of everything a form holds by name: datasets, data sources, edits,
// grids, buttons, menu items, tab pages. Names are matched case-insensitively,
// as shared code looks components up by name.

#include <QString>

namespace co::forms {

class Form;

enum class ComponentKind {
    Dataset,
    DataSource,
    DBEdit, // data edit bound to a field
    DBComboBox,
    DBMemo,
    DBGrid,
    Edit, // plain edit
    Memo,
    ComboBox,
    CheckBox,
    Button, // push and speed buttons
    MenuItem,
    TabSheet,
    StringGrid,
    Panel,
    Label,
};

class Component {
public:
    Component(ComponentKind kind, QString name) : kind_(kind), name_(std::move(name)) {}
    virtual ~Component() = default;
    Component(const Component &) = delete;
    Component &operator=(const Component &) = delete;

    ComponentKind Kind() const { return kind_; }
    const QString &Name() const { return name_; }
    void SetName(const QString &name) { name_ = name; }
    Form *Owner() const { return owner_; }
    // The name of the owner form; empty for a component without a form.
    QString OwnerName() const;

    // Set by the form that adopts the component.
    void SetOwner(Form *form) { owner_ = form; }

    // The common properties of visual components.
    QString Caption;
    QString Text;
    QString Hint;
    bool Enabled = true;
    bool Visible = true;
    bool Checked = false;
    bool ReadOnly = false;
    int Tag = 0;
    // The tab page or panel the control sits on; nullptr for the form itself.
    Component *Parent = nullptr;

private:
    ComponentKind kind_;
    QString name_;
    Form *owner_ = nullptr;
};

} // namespace co::forms
