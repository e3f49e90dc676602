#pragma once
// The two database back-ends and everything that differs between them, kept as
// data: one behaviour table per back-end.

#include <QString>
#include <QStringList>
#include <optional>

class QSqlError;
class QSqlQuery;

namespace co {

enum class Backend { SQLite, PostgreSQL };

// What a result column holds, as far as the result text and the datasets care.
enum class ColumnKind { Unknown, Text, Memo, Integer, Float, DateTime, Boolean, Blob };

struct BackendTraits {
    Backend backend;
    QString qtDriver;
    // `TipoBaseDatos` words that select this back-end.
    QStringList names;
    // Catalog statements; "%1" is the table (or index) name as the back-end stores it.
    QString primaryKeyQuery;
    QString indexColumnsQuery;
    QString columnsQuery;
    QString columnsWithoutMemoQuery;
    // Each column as name|declared type|1 when NOT NULL, in table order.
    QString declaredColumnsQuery;
    // On the first schema of a connection, "%1" being the quoted table name: a
    // count that is 1 when the table is there, and the names of its indexes.
    QString tableExistsQuery;
    QString tableIndexesQuery;
    // Tables of the general data whose names start with TEMP.
    QString temporaryTablesQuery;
    // Native failure -> the failure text of the failure handler, first match wins.
    struct FailureRule {
        QString nativeCode;     // exact native code, or empty
        QString messagePattern; // substring of the native message, or empty
        QString failureText;
    };
    QList<FailureRule> failures;
    // Appended to a SELECT inside a transaction so that its rows stay held until
    // the end; empty where the transaction's start already takes the write lock.
    QString rowLockClause;
    // How a screen keeps two writers of one row apart: a row lock taken on
    // entering Edit (`recordLockSuffix` added to a SELECT of the row), or a check
    // at post that the row still holds the values read.
    bool pessimisticRecords = false;
    QString recordLockSuffix;
};

const BackendTraits &traitsOf(Backend backend);

// Maps `TipoBaseDatos` onto a back-end: empty or "Paradox" is the embedded one.
// Returns nullopt and a Spanish message naming the supported values otherwise.
std::optional<Backend> backendFromName(const QString &tipoBaseDatos, QString *message);

// The failure text of a native failure: the handler's English text (when one
// applies) followed by the engine's own words.
QString failureText(Backend backend, const QSqlError &error);

// Kind of column `index` of an executed query, read from the back-end's own type
// information (declared type on SQLite, type oid on PostgreSQL).
ColumnKind columnKind(Backend backend, const QSqlQuery &query, int index);

// Kind of a declared column type as written in a CREATE TABLE statement.
ColumnKind kindOfDeclaredType(const QString &declared);

} // namespace co
