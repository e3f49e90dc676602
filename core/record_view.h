#pragma once
// What the statement layer needs to know of a table dataset: its table, its
// connection word, its key and the values of its current record. The datasets of
// the screens implement it; `RegistroSimple` is a plain one.

#include "core/backend.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace co {

class RecordView {
public:
    virtual ~RecordView() = default;
    virtual QString tableName() const = 0;
    // Connection word of the dataset ("Database", "DatabaseGeneral", "?alias"...).
    virtual QString connectionName() const = 0;
    // Fields of the active index; empty means the primary key.
    virtual QStringList keyFields() const = 0;
    virtual QStringList fieldNames() const = 0;
    virtual ColumnKind fieldKind(const QString &field) const = 0;
    virtual QVariant value(const QString &field) const = 0;
};

class RegistroSimple : public RecordView {
public:
    RegistroSimple(QString table, QString connection = {}) : table_(std::move(table)), connection_(std::move(connection)) {}

    RegistroSimple &campo(const QString &name, ColumnKind kind, const QVariant &value = {}) {
        if (!names_.contains(name))
            names_ << name;
        kinds_.insert(name, kind);
        values_.insert(name, value);
        return *this;
    }
    RegistroSimple &clave(const QStringList &fields) {
        key_ = fields;
        return *this;
    }
    void setValue(const QString &name, const QVariant &value) { values_.insert(name, value); }

    QString tableName() const override { return table_; }
    QString connectionName() const override { return connection_; }
    QStringList keyFields() const override { return key_; }
    QStringList fieldNames() const override { return names_; }
    ColumnKind fieldKind(const QString &f) const override { return kinds_.value(f, ColumnKind::Unknown); }
    QVariant value(const QString &f) const override { return values_.value(f); }

private:
    QString table_;
    QString connection_;
    QStringList key_;
    QStringList names_;
    QHash<QString, ColumnKind> kinds_;
    QHash<QString, QVariant> values_;
};

} // namespace co
