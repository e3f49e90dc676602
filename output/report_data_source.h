#pragma once
// The rows a report prints: a forward cursor of rows with named, typed fields.
// The engine depends on this interface only, so that a temporary table, a
// query of the statement layer or rows built in memory can all drive a report.
//
// Field names are matched without regard to case, and a qualifier before the
// last "." is ignored ("Temporal.CodigoObra" names `CodigoObra`).

#include "core/backend.h"
#include "core/query.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>

namespace co {

class ReportDataSource {
public:
    virtual ~ReportDataSource() = default;

    // Positions before the first row. False with `motivo` when it cannot be read.
    virtual bool open(QString *motivo) = 0;
    // Moves to the next row; false past the last one.
    virtual bool next() = 0;
    virtual QStringList fieldNames() const = 0;
    virtual ColumnKind fieldKind(int field) const = 0;
    // Value of a field of the current row.
    virtual QVariant value(int field) const = 0;
    // Rows in all, or -1 when the source cannot tell without reading them.
    virtual qint64 recordCount() const { return -1; }

    // -1 when no field has the name. Names are looked up once and remembered.
    int fieldIndex(const QString &name) const;

private:
    mutable QHash<QString, int> indexes_;
};

// The field part of a qualified name: "Temporal.CodigoObra" -> "CodigoObra".
QString NombreCampoSinTabla(const QString &name);

// Over the rows of an open `Consulta` of the statement layer.
class ConsultaDataSource : public ReportDataSource {
public:
    explicit ConsultaDataSource(const Consulta &consulta) : consulta_(consulta) {}
    bool open(QString *motivo) override;
    bool next() override;
    QStringList fieldNames() const override;
    ColumnKind fieldKind(int field) const override;
    QVariant value(int field) const override;
    qint64 recordCount() const override { return consulta_.RecordCount(); }

private:
    const Consulta &consulta_;
    int row_ = -1;
};

struct SourceField {
    QString name;
    ColumnKind kind = ColumnKind::Unknown;
};

// Rows held in memory.
class RowListDataSource : public ReportDataSource {
public:
    RowListDataSource(QList<SourceField> fields, QList<QVariantList> rows)
        : fields_(std::move(fields)), rows_(std::move(rows)) {}
    bool open(QString *motivo) override;
    bool next() override { return ++row_ < rows_.size(); }
    QStringList fieldNames() const override;
    ColumnKind fieldKind(int field) const override { return fields_.at(field).kind; }
    QVariant value(int field) const override { return rows_.at(row_).at(field); }
    qint64 recordCount() const override { return rows_.size(); }

private:
    QList<SourceField> fields_;
    QList<QVariantList> rows_;
    qsizetype row_ = -1;
};

// Rows made one at a time by a function (row number from 0 -> values), so
// that a source of any length holds one row at a time.
class GeneratedDataSource : public ReportDataSource {
public:
    using Generator = std::function<void(qint64 row, QVariantList &values)>;
    GeneratedDataSource(QList<SourceField> fields, qint64 count, Generator make)
        : fields_(std::move(fields)), count_(count), make_(std::move(make)) {}
    bool open(QString *motivo) override;
    bool next() override;
    QStringList fieldNames() const override;
    ColumnKind fieldKind(int field) const override { return fields_.at(field).kind; }
    QVariant value(int field) const override { return values_.at(field); }
    qint64 recordCount() const override { return count_; }

private:
    QList<SourceField> fields_;
    qint64 count_;
    Generator make_;
    qint64 row_ = -1;
    QVariantList values_;
};

} // namespace co
