#pragma once
// The one way the benchmarks make an installation: an embedded one in a
// temporary folder, or schemas on the PostgreSQL server named by CO_TEST_PG;
// connected as user BENCH, its company tables made from the structure files on
// first use. One per back-end is shared, made on first use and released by the
// benchmark program's end.

#include "core/database.h"
#include "core/session.h"
#include "core/table_creation.h"

#include <QSqlDatabase>
#include <QTemporaryDir>
#include <memory>

namespace co::bench {

struct BenchInstallation {
    BenchInstallation() = default;
    BenchInstallation(const BenchInstallation &) = delete;
    BenchInstallation &operator=(const BenchInstallation &) = delete;
    virtual ~BenchInstallation();

    QTemporaryDir dir;
    ScriptedMessages messages;
    std::unique_ptr<TfGENEINIC> sesion;
    std::unique_ptr<TModuloDatos> datos;
    std::unique_ptr<CreadorTablas> creador;
    QSqlDatabase raw; // the company connection, for the raw floors
};

// Makes and opens an installation in `inst.dir` whose aliases start with
// `prefijo`. False, with a line on standard error, when it cannot be made or
// reached (PostgreSQL without CO_TEST_PG).
bool AbrirInstalacion(BenchInstallation &inst, Backend backend, const QString &prefijo);

// nullptr when the back-end cannot be reached (no CO_TEST_PG for PostgreSQL).
BenchInstallation *SharedInstallation(Backend backend);
void ReleaseInstallations();

} // namespace co::bench
