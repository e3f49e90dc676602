#pragma once
// The throwaway PostgreSQL server of the test run. `make test` starts one and
// passes it in CO_TEST_PG; a test program run on its own starts its own.

#include <QSqlDatabase>
#include <QString>

namespace co::test {

// libpq-style connection words ("host=... port=... user=... dbname=...") of the
// test server, starting it on first use when the environment gives none.
// Fails the calling test (never skips) when no server can be had.
QString postgresConnInfo();

// A new connection named `name` to the server of the libpq words `connInfo`
// (host, port, user, dbname), not opened yet.
QSqlDatabase serverConnection(const QString &name, const QString &connInfo);

// A name unique to this process and call, for schemas and folders of one test.
QString uniqueName(const QString &prefix);

} // namespace co::test
