#pragma once
// The installation the benchmarks share, one per back-end: an embedded one in a
// temporary folder, or the PostgreSQL server named by CO_TEST_PG. Made on first
// use and released by the benchmark program's end.

#include "core/database.h"
#include "core/session.h"

#include <QSqlDatabase>
#include <QTemporaryDir>
#include <memory>
#include <optional>

namespace co::bench {

struct BenchInstallation {
    QTemporaryDir dir;
    std::unique_ptr<TfGENEINIC> sesion;
    std::unique_ptr<TModuloDatos> datos;
    QSqlDatabase raw; // the company connection, for the raw floors
    ScriptedMessages messages;
};

// Settings of a benchmark installation in `folder` whose aliases start with
// `prefijo`; nullopt for PostgreSQL without CO_TEST_PG.
std::optional<InstallationSettings> AjustesBanco(Backend backend, const QString &folder, const QString &prefijo);

// nullptr when the back-end cannot be reached (no CO_TEST_PG for PostgreSQL).
BenchInstallation *SharedInstallation(Backend backend);
void ReleaseInstallations();

} // namespace co::bench
