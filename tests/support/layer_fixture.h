#pragma once
// A fresh installation per test, on each back-end: an embedded one in a
// temporary folder, or schemas of their own on the throwaway PostgreSQL server.

#include "core/database.h"
#include "core/session.h"
#include "core/table_creation.h"
#include "support/gtest_qt_printing.h"

#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

namespace co {
inline void PrintTo(Backend b, std::ostream *os) {
    *os << (b == Backend::SQLite ? "SQLite" : "PostgreSQL");
}
} // namespace co

namespace co::test {

// The structure files tables are made from.
inline const QString kCarpetaDatos = QStringLiteral(CO_SOURCE_DIR "/data");

// Settings of a new, empty installation on `backend`, in `folder`, made there
// (its general data) as `init` makes them.
InstallationSettings freshInstallation(Backend backend, const QString &folder);

// Drops what a PostgreSQL installation made; nothing to do on SQLite.
void dropInstallation(const InstallationSettings &settings);

class LayerTest : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override;
    void TearDown() override;

    // Runs a statement that must succeed and returns its result text.
    QString ok(const QString &sql, const QString &conexion = {}, const QString &opciones = {});
    // The same on the general database.
    QString general(const QString &sql) { return ok(sql, QStringLiteral("DatabaseGeneral")); }
    Backend backend() const { return GetParam(); }

    QTemporaryDir dir_;
    InstallationSettings settings_;
    ScriptedMessages messages_;
    std::unique_ptr<TfGENEINIC> sesion_;
    std::unique_ptr<TModuloDatos> datos_;
};

// A LayerTest whose statements make, from the structure files, the tables they miss.
class TablesOnDemandTest : public LayerTest {
protected:
    void SetUp() override;
    void TearDown() override;
    // A new session, layer and creator on the same installation, as the next
    // run of the program has them. Call through ASSERT_NO_FATAL_FAILURE.
    void reconnect();

    std::unique_ptr<CreadorTablas> creador_;
};

// A session of its own on an installation, its tables made on first use: a
// second user, or one of several installations in one test.
struct SesionConTablas {
    // Connects to `settings`; `fallo` tells why when `datos` stays null.
    SesionConTablas(const InstallationSettings &settings, QString *fallo);
    ~SesionConTablas();

    ScriptedMessages mensajes;
    std::unique_ptr<TfGENEINIC> sesion;
    std::unique_ptr<TModuloDatos> datos;
    std::unique_ptr<CreadorTablas> creador;
};

// A fresh installation on `backend` with such a session, dropped at the end.
struct InstalacionConTablas {
    explicit InstalacionConTablas(Backend backend);
    ~InstalacionConTablas();

    QTemporaryDir dir;
    InstallationSettings settings;
    std::unique_ptr<SesionConTablas> abierta;
    TModuloDatos &datos() { return *abierta->datos; }
};

std::string backendName(const ::testing::TestParamInfo<Backend> &info);

#define CO_ON_BOTH_BACKENDS(suite)                                                                 \
    INSTANTIATE_TEST_SUITE_P(Backends, suite,                                                      \
                             ::testing::Values(::co::Backend::SQLite, ::co::Backend::PostgreSQL),  \
                             ::co::test::backendName)

} // namespace co::test
