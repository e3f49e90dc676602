#include "core/general_parameters_table.h"

#include "core/general_parameters.h"
#include "core/query.h"
#include "core/sql_text.h"

namespace co {
namespace {

const QString kTabla = QStringLiteral("PARAGENE");
const QString kWhere = QStringLiteral(" WHERE IdRegistro = '1'");

// The field names of the record in their schema spelling.
QStringList recordFields() {
    QStringList fields{QStringLiteral("IdRegistro")};
    for (const PaginaParametros &page : PaginasPARAGENE())
        fields += page.campos;
    return fields;
}

QString canonical(const QString &name) {
    for (const QString &field : recordFields()) {
        if (field.compare(name, Qt::CaseInsensitive) == 0)
            return field;
    }
    return {};
}

QString literal(TModuloDatos &datos, const QVariant &value) {
    if (!value.isValid() || value.isNull())
        return QStringLiteral("NULL");
    if (value.typeId() == QMetaType::QString)
        return Entrecomillar(value.toString());
    return datos.FormatoLiteralSQL(value);
}

std::optional<bool> exists(TModuloDatos &datos) {
    const QString count =
        datos.EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM ") + kTabla + kWhere);
    if (EsResultadoError(count))
        return std::nullopt;
    return count.trimmed() != u"0";
}

} // namespace

std::optional<QVariantHash> LeerParametrosGenerales(TModuloDatos &datos) {
    Consulta consulta;
    consulta.SQL = QStringLiteral("SELECT * FROM ") + kTabla + kWhere;
    if (!datos.AbrirConsulta(consulta) || consulta.RecordCount() == 0)
        return std::nullopt;
    QVariantHash record;
    for (int c = 0; c < consulta.Fields().size(); ++c) {
        const QString name = consulta.Fields().at(c).name;
        const QString field = canonical(name);
        record.insert(field.isEmpty() ? name : field, consulta.Value(0, c));
    }
    return record;
}

bool CrearParametrosGenerales(TModuloDatos &datos) {
    const std::optional<bool> present = exists(datos);
    if (!present)
        return false;
    if (*present)
        return true;
    QStringList names, values;
    for (const auto &[field, value] : ValoresInicialesPARAGENE()) {
        names << field;
        values << literal(datos, value);
    }
    const QString sql = QStringLiteral("INSERT INTO ") + kTabla + QStringLiteral(" (") +
                        names.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") +
                        values.join(QStringLiteral(", ")) + u')';
    return !EsResultadoError(datos.EjecutarSQL(sql));
}

bool GrabarParametrosGenerales(TModuloDatos &datos, QVariantHash registro) {
    Messenger &mensajes = datos.sesion().mensajes();
    // The rules and the statement see each field once, under its schema name.
    QVariantHash fields;
    for (auto it = registro.cbegin(); it != registro.cend(); ++it) {
        const QString field = canonical(it.key());
        if (field.isEmpty()) {
            mensajes.MensajeA(QStringLiteral("El campo ") + it.key() +
                              QStringLiteral(" no existe en los parámetros generales."));
            return false;
        }
        fields.insert(field, it.value());
    }
    registro = fields;
    const QString refusal = ComprobarGrabacionPARAGENE(registro);
    if (!refusal.isEmpty()) {
        mensajes.MensajeA(refusal);
        return false;
    }
    registro.remove(QStringLiteral("IdRegistro"));
    QStringList assignments;
    for (auto it = registro.cbegin(); it != registro.cend(); ++it)
        assignments << it.key() + QStringLiteral(" = ") + literal(datos, it.value());
    if (!CrearParametrosGenerales(datos))
        return false;
    if (assignments.isEmpty())
        return true;
    assignments.sort();
    const QString sql = QStringLiteral("UPDATE ") + kTabla + QStringLiteral(" SET ") +
                        assignments.join(QStringLiteral(", ")) + kWhere;
    return !EsResultadoError(datos.EjecutarSQL(sql));
}

} // namespace co
