// Where temporary tables live: filling 10,000 rows of a company query into a
// table and reading them back, on both back-ends.
//   Private: a connection-private TEMP table on the company connection (floor;
//            unusable for the system, as other connections cannot see it).
//   General: a plain table of the general data, made on the general connection
//            and filled from the company connection, as the system does.
//   Unlogged (PostgreSQL): the same as an UNLOGGED table.
//   Materializar: MaterializarConsultaTemporal on the open query, layer included.
// Compare each against Private of the same back-end in the same run.
#include "bench_installation.h"
#include "core/materialised_query.h"
#include "core/session.h"
#include "core/table_creation.h"

#include <QCoreApplication>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <map>
#include <memory>

namespace {

using co::Backend;

constexpr int kRows = 10000;
const QString kFuente = QStringLiteral("SELECT Codigo, Nombre, Importe, Fecha FROM BENCHTMP");

struct Instalacion : co::bench::BenchInstallation {
    QSqlDatabase general;
    co::Consulta abierta;
};

std::map<Backend, std::unique_ptr<Instalacion>> instalaciones;

Instalacion *instalacion(Backend backend) {
    auto &slot = instalaciones[backend];
    if (slot)
        return slot.get();
    // Connections must close while the application object still lives.
    if (instalaciones.size() == 1)
        qAddPostRoutine([] { instalaciones.clear(); });
    auto inst = std::make_unique<Instalacion>();
    if (!co::bench::AbrirInstalacion(*inst, backend, QStringLiteral("benchtmp")))
        return nullptr;
    QString motivo;
    co::TModuloDatos &d = *inst->datos;
    d.EjecutarSQL(QStringLiteral("DROP TABLE IF EXISTS BENCHTMP"), {},
                  QStringLiteral("Silenciosa"));
    d.EjecutarSQL(QStringLiteral("CREATE TABLE BENCHTMP (Codigo INTEGER NOT NULL PRIMARY KEY, "
                                 "Nombre VARCHAR(40), Importe DOUBLE PRECISION, Fecha TIMESTAMP)"));
    inst->sesion->IniciarTransaccion();
    for (int i = 1; i <= kRows; ++i)
        d.EjecutarSQL(QStringLiteral("INSERT INTO BENCHTMP VALUES ('%1', 'Obra %1', '%2', "
                                     "'2026-01-%3 00:00:00')")
                          .arg(i)
                          .arg(i * 1.25)
                          .arg(1 + i % 28, 2, 10, QLatin1Char('0')));
    inst->sesion->FinalizarTransaccion();
    inst->general =
        *inst->sesion->conexion(QStringLiteral("DatabaseGeneral"), co::Canal::Principal, &motivo);
    inst->abierta.SQL = kFuente;
    d.AbrirConsulta(inst->abierta);
    slot = std::move(inst);
    return slot.get();
}

void leer(QSqlDatabase &db, const QString &sql) {
    QSqlQuery q(db);
    q.setForwardOnly(true);
    q.exec(sql);
    const int columns = q.record().count();
    while (q.next())
        for (int i = 0; i < columns; ++i) {
            QVariant v = q.value(i);
            benchmark::DoNotOptimize(v);
        }
}

void exec(QSqlDatabase &db, const QString &sql) {
    QSqlQuery q(db);
    q.exec(sql);
}

const QString kColumnas =
    QStringLiteral("(Codigo INTEGER, Nombre VARCHAR, Importe DOUBLE PRECISION, Fecha TIMESTAMP)");

void privada(benchmark::State &state, Backend backend) {
    Instalacion *inst = instalacion(backend);
    if (!inst) {
        state.SkipWithError("no database");
        return;
    }
    for (auto _ : state) {
        exec(inst->raw, QStringLiteral("DROP TABLE IF EXISTS TEMPBENCHP"));
        exec(inst->raw, QStringLiteral("CREATE TEMP TABLE TEMPBENCHP ") + kColumnas);
        exec(inst->raw, QStringLiteral("INSERT INTO TEMPBENCHP ") + kFuente);
        leer(inst->raw, QStringLiteral("SELECT * FROM TEMPBENCHP"));
    }
}

void general(benchmark::State &state, Backend backend, const QString &clase) {
    Instalacion *inst = instalacion(backend);
    if (!inst) {
        state.SkipWithError("no database");
        return;
    }
    const QString cualificada = inst->sesion->AliasBaseDatosGeneral + QStringLiteral(".TEMPBENCHG");
    for (auto _ : state) {
        exec(inst->general, QStringLiteral("DROP TABLE IF EXISTS TEMPBENCHG"));
        exec(inst->general,
             QStringLiteral("CREATE ") + clase + QStringLiteral("TABLE TEMPBENCHG ") + kColumnas);
        exec(inst->raw, QStringLiteral("INSERT INTO ") + cualificada + u' ' + kFuente);
        leer(inst->raw, QStringLiteral("SELECT * FROM ") + cualificada);
    }
}

void materializar(benchmark::State &state, Backend backend) {
    Instalacion *inst = instalacion(backend);
    if (!inst) {
        state.SkipWithError("no database");
        return;
    }
    for (auto _ : state) {
        co::Consulta q = inst->abierta;
        QString motivo;
        if (!co::MaterializarConsultaTemporal(*inst->datos, q, &motivo, QStringLiteral("fBENCH")))
            state.SkipWithError(qPrintable(motivo));
        benchmark::DoNotOptimize(q);
    }
}

void BM_TempPrivate_SQLite(benchmark::State &s) {
    privada(s, Backend::SQLite);
}
void BM_TempGeneral_SQLite(benchmark::State &s) {
    general(s, Backend::SQLite, {});
}
void BM_TempMaterializar_SQLite(benchmark::State &s) {
    materializar(s, Backend::SQLite);
}
void BM_TempPrivate_PostgreSQL(benchmark::State &s) {
    privada(s, Backend::PostgreSQL);
}
void BM_TempGeneral_PostgreSQL(benchmark::State &s) {
    general(s, Backend::PostgreSQL, {});
}
void BM_TempUnlogged_PostgreSQL(benchmark::State &s) {
    general(s, Backend::PostgreSQL, QStringLiteral("UNLOGGED "));
}
void BM_TempMaterializar_PostgreSQL(benchmark::State &s) {
    materializar(s, Backend::PostgreSQL);
}

#define CO_TEMP_BENCH(fn)                                                                          \
    BENCHMARK(fn)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true)

CO_TEMP_BENCH(BM_TempPrivate_SQLite);
CO_TEMP_BENCH(BM_TempGeneral_SQLite);
CO_TEMP_BENCH(BM_TempMaterializar_SQLite);
CO_TEMP_BENCH(BM_TempPrivate_PostgreSQL);
CO_TEMP_BENCH(BM_TempGeneral_PostgreSQL);
CO_TEMP_BENCH(BM_TempUnlogged_PostgreSQL);
CO_TEMP_BENCH(BM_TempMaterializar_PostgreSQL);

} // namespace
