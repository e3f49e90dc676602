#include "forms/focus_moves.h"

#include "forms/form.h"

namespace co::forms {
namespace {

bool enfocable(const Component *c) {
    switch (c->Kind()) {
    case ComponentKind::DBEdit:
    case ComponentKind::DBComboBox:
    case ComponentKind::DBMemo:
    case ComponentKind::DBGrid:
    case ComponentKind::Edit:
    case ComponentKind::Memo:
    case ComponentKind::ComboBox:
    case ComponentKind::CheckBox:
    case ComponentKind::Button:
    case ComponentKind::StringGrid:
        return c->Visible && c->Enabled;
    default:
        return false;
    }
}

} // namespace

bool EsTextoMultilinea(const Component *c) {
    return c && (c->Kind() == ComponentKind::DBMemo || c->Kind() == ComponentKind::Memo);
}

Dataset *DatasetEnfocado(Form &form) {
    Component *c = form.ActiveControl();
    if (auto *grid = dynamic_cast<DBGrid *>(c))
        return grid->DataSet();
    if (auto *dc = dynamic_cast<DataControl *>(c))
        return dc->DataSet();
    auto *ds = form.Find<DataSource>(QStringLiteral("DataSource1"));
    return ds ? ds->DataSet : nullptr;
}

Field *CampoEnfocado(Form &form) {
    Component *c = form.ActiveControl();
    if (auto *grid = dynamic_cast<DBGrid *>(c))
        return grid->SelectedField();
    if (auto *dc = dynamic_cast<DataControl *>(c)) {
        Dataset *ds = dc->DataSet();
        return ds && ds->Active() ? dc->BoundField() : nullptr;
    }
    return nullptr;
}

bool SiguienteControl(Form &form) {
    const QList<Component *> todos = form.Components();
    const int actual = static_cast<int>(todos.indexOf(form.ActiveControl()));
    for (int paso = 1; paso <= todos.size(); ++paso) {
        Component *c = todos[(actual + paso + todos.size()) % todos.size()];
        if (c != form.ActiveControl() && enfocable(c))
            return form.SetFocus(c);
    }
    return false;
}

bool SiguienteColumna(Form &form, DBGrid &grid) {
    for (int i = grid.SelectedIndex + 1; i < grid.Columns.size(); ++i)
        if (grid.Columns[i].Visible)
            return form.SelectColumn(grid, i);
    for (int i = 0; i < grid.Columns.size(); ++i) {
        if (!grid.Columns[i].Visible)
            continue;
        if (!form.SelectColumn(grid, i))
            return false;
        if (Dataset *ds = grid.DataSet(); ds && ds->Active())
            ds->Next();
        return true;
    }
    return false;
}

} // namespace co::forms
