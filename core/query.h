#pragma once
// `Consulta`: a query object run through `AbrirConsulta`. Once open it holds the
// rows of its statement with typed values.

#include "core/result_text.h"

#include <QList>
#include <QString>
#include <QVariant>

namespace co {

class Consulta {
public:
    QString SQL;
    QString DatabaseName; // connection word

    bool Active() const { return active_; }
    void Close();

    const QList<ResultColumn> &Fields() const { return columns_; }
    int RecordCount() const { return static_cast<int>(rows_.size()); }
    int RowsAffected() const { return rowsAffected_; }
    int FieldIndex(const QString &name) const; // -1 when absent, case-insensitive
    QVariant Value(int row, const QString &field) const;
    QVariant Value(int row, int column) const { return rows_.at(row).at(column); }
    // One row's values in column order; shared, not copied.
    const QVariantList &Row(int row) const { return rows_.at(row); }
    QString Text(int row, const QString &field) const;

    // Used by the statement layer.
    void setResult(QList<ResultColumn> columns, QList<QVariantList> rows, int affected);

private:
    bool active_ = false;
    QList<ResultColumn> columns_;
    QList<QVariantList> rows_;
    int rowsAffected_ = 0;
};

} // namespace co
