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
} // namespace

std::optional<InstallationSettings> AjustesBanco(Backend backend, const QString &folder, const QString &prefijo) {
    InstallationSettings s;
    s.PathBaseDatosGeneral = folder;
    s.AliasBaseDatosGeneral = prefijo + QStringLiteral("general");
    s.AliasBaseDatos = prefijo + QStringLiteral("empresa");
    if (backend == Backend::PostgreSQL) {
        const char *pg = std::getenv("CO_TEST_PG");
        if (!pg)
            return std::nullopt;
        s.TipoBaseDatos = QStringLiteral("PostgreSQL");
        s.ServidorBaseDatos = QString::fromLocal8Bit(pg);
    }
    QString motivo;
    if (!CrearInstalacion(s, &motivo)) {
        std::fprintf(stderr, "%s\n", qPrintable(motivo));
        return std::nullopt;
    }
    return s;
}

BenchInstallation *SharedInstallation(Backend backend) {
    auto &slot = installations()[backend];
    if (slot)
        return slot.get();
    auto inst = std::make_unique<BenchInstallation>();
    const auto s = AjustesBanco(backend, inst->dir.path(), QStringLiteral("bench"));
    if (!s)
        return nullptr;
    inst->sesion = std::make_unique<TfGENEINIC>(*s, &inst->messages);
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
