#include "core/schema_transaction.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <sqlite3.h>

namespace co {
namespace {

const QString kSavepoint = QStringLiteral("co_esquema");

// How each back-end begins its own transaction and how it tells whether one is
// open already: SQLite answers directly; PostgreSQL refuses a savepoint outside
// a transaction block (25P01), so trying one is the question and the answer.
struct ControlTransaccion {
    Backend backend;
    const char *begin;
    bool probeWithSavepoint;
    const char *noTransactionCode;
};

constexpr ControlTransaccion kControl[] = {
    {Backend::SQLite, "BEGIN IMMEDIATE", false, ""},
    {Backend::PostgreSQL, "BEGIN", true, "25P01"},
};

const ControlTransaccion &controlOf(Backend backend) {
    for (const ControlTransaccion &c : kControl)
        if (c.backend == backend)
            return c;
    return kControl[0];
}

bool sqliteInTransaction(const QSqlDatabase &db) {
    const QVariant handle = db.driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return false;
    sqlite3 *raw = *static_cast<sqlite3 *const *>(handle.constData());
    return raw && sqlite3_get_autocommit(raw) == 0;
}

} // namespace

SchemaTransaction::SchemaTransaction(TfGENEINIC &sesion, const QString &conexion)
    : sesion_(sesion) {
    begun_ = begin(conexion);
}

SchemaTransaction::~SchemaTransaction() {
    rollback();
}

bool SchemaTransaction::run(const QString &sql, QString *nativeCode) {
    QSqlQuery q(db_);
    if (q.exec(sql))
        return true;
    motivo_ = failureText(sesion_.backend(), q.lastError());
    if (nativeCode)
        *nativeCode = q.lastError().nativeErrorCode();
    return false;
}

bool SchemaTransaction::begin(const QString &conexion) {
    const std::optional<QSqlDatabase> db = sesion_.conexion(conexion, Canal::Principal, &motivo_);
    if (!db)
        return false;
    db_ = *db;
    const ControlTransaccion &c = controlOf(sesion_.backend());
    sesion_.crashPoints().pass();
    if (c.probeWithSavepoint) {
        QString code;
        if (run(QStringLiteral("SAVEPOINT ") + kSavepoint, &code))
            return nested_ = true;
        if (code != QLatin1String(c.noTransactionCode))
            return false;
        motivo_.clear();
        return run(QLatin1String(c.begin));
    }
    nested_ = sqliteInTransaction(db_);
    return run(nested_ ? QStringLiteral("SAVEPOINT ") + kSavepoint : QLatin1String(c.begin));
}

bool SchemaTransaction::commit() {
    if (!begun_ || done_)
        return false;
    sesion_.crashPoints().pass();
    if (!run(nested_ ? QStringLiteral("RELEASE SAVEPOINT ") + kSavepoint
                     : QStringLiteral("COMMIT"))) {
        const QString motivo = motivo_;
        rollback();
        motivo_ = motivo;
        return false;
    }
    done_ = true;
    return true;
}

void SchemaTransaction::rollback() {
    if (!begun_ || done_)
        return;
    done_ = true;
    if (nested_) {
        run(QStringLiteral("ROLLBACK TO SAVEPOINT ") + kSavepoint);
        run(QStringLiteral("RELEASE SAVEPOINT ") + kSavepoint);
    } else {
        run(QStringLiteral("ROLLBACK"));
    }
}

} // namespace co
