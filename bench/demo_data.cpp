#include "demo_data.h"

#include "core/sql_dialect.h"
#include "demo/demo_company.h"
#include "demo/insert_batch.h"
#include "peak_memory.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QTextStream>
#include <cmath>
#include <cstdio>
#include <map>

namespace co::bench {
namespace {

constexpr qint64 kFilasObjetivo = 1000000;

std::map<Backend, std::unique_ptr<DatosDemo>> &todos() {
    static std::map<Backend, std::unique_ptr<DatosDemo>> all;
    return all;
}

// Counts the rows a scale writes without sending anything.
class SinDestino : public demo::DestinoSentencias {
public:
    QString Ejecutar(const QString &) override { return {}; }
};

// Keeps each statement, as the back-end would get it, one a line.
class AArchivo : public demo::DestinoSentencias {
public:
    AArchivo(QFile &f, Backend b) : out_(&f), backend_(b) {}
    QString Ejecutar(const QString &sql) override {
        out_ << AdaptarSentencia(sql, backend_) << '\n';
        return {};
    }

private:
    QTextStream out_;
    Backend backend_;
};

bool fallo(const char *que, const QString &motivo) {
    std::fprintf(stderr, "%s: %s\n", que, qPrintable(motivo));
    return false;
}

bool hacer(DatosDemo &d, Backend backend) {
    BenchInstallation &i = d.instalacion;
    if (!AbrirInstalacion(i, backend, QStringLiteral("demo")))
        return false;
    QString motivo;

    const demo::PlanDemo plan = demo::CrearPlan(1);
    SinDestino nada;
    demo::RecuentoPartes uno;
    demo::EscribirPartes(plan, 1, nada, &uno);
    d.escala = std::ceil(100.0 * kFilasObjetivo / static_cast<double>(uno.FilasPartes())) / 100.0;

    demo::OpcionesDemo o;
    o.escala = d.escala;
    o.forzar = true;
    demo::RecuentoPartes recuento;
    ResetPeakMemory();
    const long antes = PeakMemoryKb();
    QElapsedTimer reloj;
    reloj.start();
    if (!demo::CrearEmpresaDemo(*i.datos, o, &recuento, &motivo))
        return fallo("demo", motivo);
    d.segundosDemo = static_cast<double>(reloj.nsecsElapsed()) / 1e9;
    d.memoriaKb = PeakMemoryKb() - antes;
    d.filasPartes = recuento.FilasPartes();

    // The floor: the same report statements, recorded untimed, then replayed raw.
    QFile archivo(i.dir.filePath(QStringLiteral("partes.sql")));
    if (!archivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return fallo("floor", archivo.fileName());
    {
        AArchivo grabar(archivo, backend);
        demo::EscribirPartes(plan, d.escala, grabar, nullptr);
    }
    archivo.close();
    QSqlQuery q(i.raw);
    for (const char *t : {"PARTEOB", "PARMATOB", "MOVIMTO", "PARMAQOB", "PARSUBOB", "MULTPOB",
                          "LMULTPOB", "LFACTROB"})
        if (!q.exec(QStringLiteral("DELETE FROM ") + QString::fromLatin1(t)))
            return fallo("floor delete", q.lastError().text());
    if (!archivo.open(QIODevice::ReadOnly))
        return fallo("floor", archivo.fileName());
    QTextStream in(&archivo);
    reloj.restart();
    i.raw.transaction();
    while (!in.atEnd()) {
        QSqlQuery insert(i.raw);
        if (!insert.exec(in.readLine()))
            return fallo("floor insert", insert.lastError().text());
    }
    i.raw.commit();
    d.segundosSuelo = static_cast<double>(reloj.nsecsElapsed()) / 1e9;
    return true;
}

} // namespace

DatosDemo *DemoBanco(Backend backend) {
    auto &slot = todos()[backend];
    if (!slot) {
        auto d = std::make_unique<DatosDemo>();
        if (!hacer(*d, backend))
            return nullptr;
        slot = std::move(d);
    }
    return slot.get();
}

void LiberarDemo() {
    todos().clear();
}

} // namespace co::bench
