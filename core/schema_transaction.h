#pragma once
// Structure statements all or nothing, on the connection of one connection word.
// A table, its indexes and the rows that come with it are made inside one of
// these, so that a process killed half-way leaves the table either absent or
// whole: both back-ends take CREATE TABLE and CREATE INDEX inside a transaction.
//
// Out of a transaction it begins one ("BEGIN IMMEDIATE" on SQLite, so that a
// second writer waits its turn at the start instead of failing half-way;
// "BEGIN" on PostgreSQL). Inside a transaction already open on that connection
// (the business code's own) it takes a savepoint, and the outer transaction has
// the last word. It rolls back unless committed.
// A crash point (crash_points.h) is passed before it begins and before it commits.

#include "core/session.h"

#include <QSqlDatabase>
#include <QString>

namespace co {

class SchemaTransaction {
public:
    SchemaTransaction(TfGENEINIC &sesion, const QString &conexion);
    ~SchemaTransaction();
    SchemaTransaction(const SchemaTransaction &) = delete;
    SchemaTransaction &operator=(const SchemaTransaction &) = delete;

    // False when no transaction could be begun; motivo() tells why.
    bool ok() const { return begun_; }
    // Whether it lives inside a transaction of the caller's.
    bool nested() const { return nested_; }
    const QString &motivo() const { return motivo_; }

    // False, with motivo(), when the work could not be kept; it is then undone.
    bool commit();
    void rollback();

private:
    bool run(const QString &sql, QString *nativeCode = nullptr);
    bool begin(const QString &conexion);

    TfGENEINIC &sesion_;
    QSqlDatabase db_;
    bool begun_ = false;
    bool nested_ = false;
    bool done_ = false;
    QString motivo_;
};

} // namespace co
