#include "core/query.h"

namespace co {

void Consulta::Close() {
    active_ = false;
    columns_.clear();
    rows_.clear();
    rowsAffected_ = 0;
}

int Consulta::FieldIndex(const QString &name) const {
    for (int i = 0; i < columns_.size(); ++i)
        if (columns_[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QVariant Consulta::Value(int row, const QString &field) const {
    const int c = FieldIndex(field);
    if (c < 0 || row < 0 || row >= rows_.size())
        return {};
    return rows_.at(row).at(c);
}

QString Consulta::Text(int row, const QString &field) const {
    const int c = FieldIndex(field);
    if (c < 0 || row < 0 || row >= rows_.size())
        return {};
    return TextoValor(rows_.at(row).at(c), columns_.at(c).kind);
}

void Consulta::setResult(QList<ResultColumn> columns, QList<QVariantList> rows, int affected) {
    columns_ = std::move(columns);
    rows_ = std::move(rows);
    rowsAffected_ = affected;
    active_ = true;
}

} // namespace co
