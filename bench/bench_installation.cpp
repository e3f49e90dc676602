#include "bench_installation.h"

#include "core/connection_factory.h"

#include <cstdio>
#include <cstdlib>
#include <map>

namespace co::bench {

namespace {
std::map<Backend, std::unique_ptr<BenchInstallation>> &installations() {
    static std::map<Backend, std::unique_ptr<BenchInstallation>> all;
    return all;
}

bool fallo(const QString &motivo) {
    std::fprintf(stderr, "%s\n", qPrintable(motivo));
    return false;
}
} // namespace

BenchInstallation::~BenchInstallation() {
    if (datos)
        datos->setTableCreator(nullptr);
}

bool AbrirInstalacion(BenchInstallation &inst, Backend backend, const QString &prefijo) {
    InstallationSettings s;
    s.PathBaseDatosGeneral = inst.dir.path();
    s.AliasBaseDatosGeneral = prefijo + QStringLiteral("general");
    s.AliasBaseDatos = prefijo + QStringLiteral("empresa");
    if (backend == Backend::PostgreSQL) {
        const char *pg = std::getenv("CO_TEST_PG");
        if (!pg)
            return fallo(QStringLiteral("PostgreSQL: no CO_TEST_PG"));
        s.TipoBaseDatos = QStringLiteral("PostgreSQL");
        s.ServidorBaseDatos = QString::fromLocal8Bit(pg);
    }
    QString motivo;
    if (!CrearInstalacion(s, &motivo))
        return fallo(motivo);
    inst.sesion = std::make_unique<TfGENEINIC>(s, &inst.messages);
    if (!inst.sesion->Conectar(&motivo))
        return fallo(motivo);
    inst.sesion->CodigoUsuario = QStringLiteral("BENCH");
    inst.datos = std::make_unique<TModuloDatos>(*inst.sesion);
    inst.creador = std::make_unique<CreadorTablas>(*inst.datos, QStringLiteral(CO_DATA_DIR));
    inst.datos->setTableCreator(inst.creador.get());
    const auto raw = inst.sesion->conexion(QStringLiteral("Database"), Canal::Principal, &motivo);
    if (!raw)
        return fallo(motivo);
    inst.raw = *raw;
    return true;
}

BenchInstallation *SharedInstallation(Backend backend) {
    auto &slot = installations()[backend];
    if (!slot) {
        auto inst = std::make_unique<BenchInstallation>();
        if (!AbrirInstalacion(*inst, backend, QStringLiteral("bench")))
            return nullptr;
        slot = std::move(inst);
    }
    return slot.get();
}

void ReleaseInstallations() {
    installations().clear();
}

} // namespace co::bench
