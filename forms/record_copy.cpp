#include "forms/record_copy.h"

#include "core/sql_text.h"
#include "forms/table.h"

namespace co::forms {
namespace {

// A cursor of its own on the same table, so the screen's record stays put.
std::unique_ptr<Table> cursorPrivado(Table &origen) {
    auto t =
        std::make_unique<Table>(origen.Datos(), QStringLiteral("TablePrivada"), origen.TableName());
    if (!origen.DatabaseName().isEmpty())
        t->SetDatabaseName(origen.DatabaseName());
    if (!origen.IndexFieldNames().isEmpty())
        t->SetIndexFieldNames(origen.IndexFieldNames());
    else if (!origen.IndexName().isEmpty())
        t->SetIndexName(origen.IndexName());
    t->Dataset::Open();
    return t;
}

QString textoCampo(const Field &f) {
    return f.IsHourField() && !f.IsNull() ? f.AsDateTime().toString(QStringLiteral("hh:mm:ss"))
                                          : f.AsString();
}

} // namespace

void DuplicarRegistro(Table &dataset, const QString &claveGuardada) {
    const QStringList clave = dataset.PrimaryKey();
    if (clave.isEmpty())
        return;
    const QStringList partes = claveGuardada.split(u';');
    QVariantList valores;
    for (int i = 0; i < clave.size(); ++i)
        valores << partes.value(i);
    auto origen = cursorPrivado(dataset);
    if (!origen->Locate(clave.join(u';'), valores))
        return;
    for (int i = 0; i < dataset.FieldCount(); ++i) {
        Field &f = dataset.FieldByIndex(i);
        if (f.Calculated || clave.contains(f.FieldName(), Qt::CaseInsensitive))
            continue;
        const Field *desde = origen->FindField(f.FieldName());
        if (!desde)
            continue;
        if (f.IsHourField())
            f.SetAsString(textoCampo(*desde));
        else
            f.SetValue(desde->Value());
    }
}

QString CopiarRegistro(Dataset &dataset) {
    if (!dataset.Active() || dataset.IsEmpty())
        return {};
    QString out;
    for (int i = 0; i < dataset.FieldCount(); ++i)
        out += textoCampo(dataset.FieldByIndex(i)) + u'|';
    return out;
}

void PegarRegistro(Dataset &dataset, const QString &texto, const QString &opciones) {
    if (texto.isEmpty())
        return;
    const bool sinIndices = opciones.contains(QStringLiteral("SinIndices"));
    const QStringList indices = sinIndices ? dataset.IndexFields() : QStringList();
    if (!dataset.IsPending())
        dataset.Edit();
    const QStringList valores = texto.split(u'|');
    for (int i = 0; i < dataset.FieldCount() && i < valores.size() - 1; ++i) {
        Field &f = dataset.FieldByIndex(i);
        if (f.Calculated || f.ReadOnly || indices.contains(f.FieldName(), Qt::CaseInsensitive))
            continue;
        f.SetAsString(valores[i]);
    }
}

bool CopiarCampoGrupo(Table &dataset, Field &campo) {
    const QStringList clave = dataset.IndexFields();
    if (clave.isEmpty() || clave.size() > 5)
        return false;
    auto origen = cursorPrivado(dataset);
    if (clave.size() > 1) {
        QVariantList grupo;
        for (int i = 0; i < clave.size() - 1; ++i)
            grupo << dataset.FieldByName(clave[i]).Value();
        origen->SetRange(grupo, grupo);
    }
    origen->Last();
    if (origen->IsEmpty())
        return false;
    const Field *desde = origen->FindField(campo.FieldName());
    if (!desde)
        return false;
    campo.SetValue(desde->Value());
    return true;
}

} // namespace co::forms
