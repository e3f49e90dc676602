#include "output/report_data_source.h"

namespace co {

QString NombreCampoSinTabla(const QString &name) {
    const QString trimmed = name.trimmed();
    const qsizetype dot = trimmed.lastIndexOf(u'.');
    return dot < 0 ? trimmed : trimmed.mid(dot + 1);
}

int ReportDataSource::fieldIndex(const QString &name) const {
    const auto known = indexes_.constFind(name);
    if (known != indexes_.constEnd())
        return *known;
    const QString wanted = NombreCampoSinTabla(name);
    const QStringList names = fieldNames();
    int found = -1;
    for (int i = 0; i < names.size() && found < 0; ++i)
        if (names[i].compare(wanted, Qt::CaseInsensitive) == 0)
            found = i;
    indexes_.insert(name, found);
    return found;
}

bool ConsultaDataSource::open(QString *motivo) {
    row_ = -1;
    if (!consulta_.Active()) {
        if (motivo)
            *motivo = QStringLiteral("La consulta del informe no está abierta");
        return false;
    }
    return true;
}

bool ConsultaDataSource::next() {
    if (row_ + 1 >= consulta_.RecordCount())
        return false;
    ++row_;
    return true;
}

QStringList ConsultaDataSource::fieldNames() const {
    QStringList names;
    for (const ResultColumn &c : consulta_.Fields())
        names << c.name;
    return names;
}

ColumnKind ConsultaDataSource::fieldKind(int field) const {
    return consulta_.Fields().at(field).kind;
}

QVariant ConsultaDataSource::value(int field) const {
    return consulta_.Value(row_, field);
}

bool RowListDataSource::open(QString *motivo) {
    for (const QVariantList &row : rows_)
        if (row.size() != fields_.size()) {
            if (motivo)
                *motivo = QStringLiteral("Una fila del informe no tiene todos sus campos");
            return false;
        }
    row_ = -1;
    return true;
}

QStringList RowListDataSource::fieldNames() const {
    QStringList names;
    for (const SourceField &f : fields_)
        names << f.name;
    return names;
}

bool GeneratedDataSource::open(QString *) {
    row_ = -1;
    values_.resize(fields_.size());
    return true;
}

bool GeneratedDataSource::next() {
    if (row_ + 1 >= count_)
        return false;
    ++row_;
    make_(row_, values_);
    return true;
}

QStringList GeneratedDataSource::fieldNames() const {
    QStringList names;
    for (const SourceField &f : fields_)
        names << f.name;
    return names;
}

} // namespace co
