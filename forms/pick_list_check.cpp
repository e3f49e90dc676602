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

bool ComprobarListasValores(Form &form, Messenger &m) {
    Component *foco = form.ActiveControl();
    if (!foco || foco->Name().compare(u"pbCancelar", Qt::CaseInsensitive) == 0)
        return true;
    auto omitir = [](Dataset *ds) {
        return !ds || !ds->Active() || ds->FieldCount() == 0 ||
               ds->FieldByIndex(0).AsString().isEmpty();
    };
    if (auto *grid = dynamic_cast<DBGrid *>(foco)) {
        if (omitir(grid->DataSet()) || grid->SelectedIndex < 0 ||
            grid->SelectedIndex >= grid->Columns.size())
            return true;
        const GridColumn &col = grid->Columns[grid->SelectedIndex];
        Field *f = grid->SelectedField();
        if (col.PickList.isEmpty() || !f || f->AsString().isEmpty() ||
            col.PickList.contains(f->AsString()))
            return true;
        m.MensajeA(QStringLiteral("¡ El valor \"") + f->AsString() +
                   QStringLiteral("\" de la columna \"") + col.Title +
                   QStringLiteral("\" no es correcto !"));
        return false;
    }
    auto *combo = dynamic_cast<DataControl *>(foco);
    if (!combo || combo->Kind() != ComponentKind::DBComboBox || omitir(combo->DataSet()))
        return true;
    Field *f = combo->BoundField();
    if (!f || f->AsString().isEmpty() || combo->Items.contains(f->AsString()))
        return true;
    m.MensajeA(QStringLiteral("¡El valor \"") + f->AsString() + QStringLiteral("\" del campo \"") +
               EtiquetaCampo(f->FieldName()) + QStringLiteral("\" no es correcto!"));
    return false;
}

} // namespace co::forms
