#include "bench_installation.h"

#include <cstdio>
#include <cstdlib>
#include <map>

namespace co::bench {

namespace {
std::map<Backend, std::unique_ptr<BenchInstallation>> &installations() {
    static std::map<Backend, std::unique_ptr<BenchInstallation>> all;
    return all;
}
} // namespace

BenchInstallation *SharedInstallation(Backend backend) {
    auto &slot = installations()[backend];
    if (slot)
        return slot.get();
    auto inst = std::make_unique<BenchInstallation>();
    InstallationSettings s;
    s.PathBaseDatosGeneral = inst->dir.path();
    s.AliasBaseDatosGeneral = QStringLiteral("benchgeneral");
    s.AliasBaseDatos = QStringLiteral("benchempresa");
    if (backend == Backend::PostgreSQL) {
        const char *pg = std::getenv("CO_TEST_PG");
        if (!pg)
            return nullptr;
        s.TipoBaseDatos = QStringLiteral("PostgreSQL");
        s.ServidorBaseDatos = QString::fromLocal8Bit(pg);
    }
    inst->sesion = std::make_unique<TfGENEINIC>(s, &inst->messages);
    QString motivo;
    if (!inst->sesion->Conectar(&motivo)) {
        std::fprintf(stderr, "%s\n", qPrintable(motivo));
        return nullptr;
    }
    inst->datos = std::make_unique<TModuloDatos>(*inst->sesion);
    inst->raw = *inst->sesion->conexion(QStringLiteral("Database"), Canal::Principal, &motivo);
    slot = std::move(inst);
    return slot.get();
}

void ReleaseInstallations() {
    installations().clear();
}

} // namespace co::bench
