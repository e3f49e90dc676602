#include "forms/pick_list_check.h"

#include "forms/form.h"

namespace co::forms {

QString EtiquetaCampo(const QString &nombre) {
    QString out;
    for (int i = 0; i < nombre.size(); ++i) {
        const QChar c = nombre[i];
        if (i > 0 && c.isUpper() && nombre[i - 1].isLower())
            out += u' ';
        out += c;
    }
    return out;
}

bool ComprobarColumnaLista(const DBGrid &grid, int columna, Messenger &m) {
    if (columna < 0 || columna >= grid.Columns.size() || !grid.DataSet())
        return true;
    const GridColumn &col = grid.Columns[columna];
    const Field *f = grid.DataSet()->FindField(col.FieldName);
    if (col.PickList.isEmpty() || !f || f->AsString().isEmpty() ||
        col.PickList.contains(f->AsString()))
        return true;
    m.MensajeA(QStringLiteral("¡ El valor \"") + f->AsString() +
               QStringLiteral("\" de la columna \"") + col.Title +
               QStringLiteral("\" no es correcto !"));
    return false;
}

bool ComprobarControlLista(const DataControl &combo, Messenger &m) {
    const Field *f = combo.BoundField();
    if (combo.Items.isEmpty() || !f || f->AsString().isEmpty() ||
        combo.Items.contains(f->AsString()))
        return true;
    m.MensajeA(QStringLiteral("¡El valor \"") + f->AsString() + QStringLiteral("\" del campo \"") +
               EtiquetaCampo(f->FieldName()) + QStringLiteral("\" no es correcto!"));
    return false;
}

bool ComprobarListasValores(Form &form, Messenger &m) {
    Component *foco = form.ActiveControl();
    if (!foco || foco->Name().compare(u"pbCancelar", Qt::CaseInsensitive) == 0)
        return true;
    auto omitir = [](Dataset *ds) {
        return !ds || !ds->Active() || ds->FieldCount() == 0 ||
               ds->FieldByIndex(0).AsString().isEmpty();
    };
    if (auto *grid = dynamic_cast<DBGrid *>(foco))
        return omitir(grid->DataSet()) || ComprobarColumnaLista(*grid, grid->SelectedIndex, m);
    auto *combo = dynamic_cast<DataControl *>(foco);
    if (!combo || combo->Kind() != ComponentKind::DBComboBox || omitir(combo->DataSet()))
        return true;
    return ComprobarControlLista(*combo, m);
}

} // namespace co::forms
