#include "demo/reports_writer.h"

#include "core/rounding.h"
#include "demo/random_source.h"

#include <cmath>
#include <memory>

namespace co::demo {
namespace {

QString L(const char *columnas) {
    return QString::fromLatin1(columnas);
}

double redondeo(double valor, int decimales) {
    return static_cast<double>(Redondear(decimales, valor));
}

const char *kTablasPartes[] = {"PARTEOB", "PARMATOB", "PARMAQOB", "PARSUBOB", "LMULTPOB"};

struct Lotes {
    explicit Lotes(DestinoSentencias &d)
        : parte(d, QStringLiteral("PARTEOB"),
                L("CodigoOperario, Fecha, Hora, Tipo, CodigoObra, CodigoCapitulo, Horas, "
                  "TipoHoras, CuotaHoraria, "
                  "Importe, Observaciones, CodigoIncidencia, NumeroFactura")
                    .split(QStringLiteral(", "))),
          material(d, QStringLiteral("PARMATOB"),
                   L("Numero, Fecha, Hora, CodigoProveedor, CodigoMaterial, Descripcion, Unidad, "
                     "CodigoObra, "
                     "CodigoCapitulo, Cantidad, Precio, Importe, NumeroAlbaran, Observaciones, "
                     "NumeroFactura, "
                     "NumeroMovimiento, Automatico")
                       .split(QStringLiteral(", "))),
          movimiento(d, QStringLiteral("MOVIMTO"),
                     L("Numero, CodigoArticulo, Fecha, Hora, TipoMovimiento, CodigoAlmacen, "
                       "Cantidad, Precio, "
                       "Importe, NumeroDocumento, LineaDocumento, Observaciones, Auto, "
                       "StockArticulo, StockAlmacen, "
                       "PrecioMedio")
                         .split(QStringLiteral(", "))),
          maquina(d, QStringLiteral("PARMAQOB"),
                  L("Numero, Fecha, CodigoMaquina, CodigoOperario, CodigoObra, CodigoCapitulo, "
                    "Horas, CuotaHoraria, "
                    "Importe, Tipo, CodigoIncidencia, Observaciones, NumeroFactura")
                      .split(QStringLiteral(", "))),
          subcontrato(
              d, QStringLiteral("PARSUBOB"),
              L("Numero, Fecha, CodigoSubContratacion, Descripcion, CodigoObra, CodigoCapitulo, "
                "Cantidad, "
                "Precio, Importe, CodigoProveedor, NumeroAlbaran, Observaciones, NumeroFactura")
                  .split(QStringLiteral(", "))),
          conjunto(
              d, QStringLiteral("MULTPOB"),
              L("NumeroAlbaran, CodigoObra, CodigoCapitulo, Fecha").split(QStringLiteral(", "))),
          lineaConjunta(
              d, QStringLiteral("LMULTPOB"),
              L("NumeroAlbaran, Linea, CodigoObra, CodigoCapitulo, Fecha, TipoMultiParte, Codigo, "
                "SubTipoParte, Descripcion, Unidad, Cantidad, Precio, Importe, PrecioVenta, "
                "Observaciones, "
                "CodigoOperario, NumeroFactura")
                  .split(QStringLiteral(", "))),
          lineaFactura(d, QStringLiteral("LFACTROB"),
                       L("NumeroFactura, Linea, Fecha, CodigoCliente, CodigoObra, CodigoCapitulo, "
                         "CodigoPartida, "
                         "LineaPartida, Unidad, Descripcion, Cantidad, Precio, Dto1, Importe, "
                         "PorcentajeIVA, "
                         "PorcentajeRgo, Origen")
                           .split(QStringLiteral(", "))) {}

    QList<LoteInsercion *> todos() {
        return {&parte,       &material, &movimiento,    &maquina,
                &subcontrato, &conjunto, &lineaConjunta, &lineaFactura};
    }

    LoteInsercion parte, material, movimiento, maquina, subcontrato, conjunto, lineaConjunta,
        lineaFactura;
};

class Generador {
public:
    Generador(const PlanDemo &plan, double escala, DestinoSentencias &destino)
        : plan_(plan), escala_(escala), lotes_(destino),
          r_(FuenteAleatoria(plan.semilla).Derivada(100)) {
        stock_.fill(0.0, plan.articulos.size());
        lineasFactura_.fill(0, plan.obras.size());
    }

    QString Escribir(RecuentoPartes *recuento) {
        const QDate enero(kAnioDemo, 1, 1);
        for (QDate d = enero; d.year() == kAnioDemo; d = d.addDays(1)) {
            const int pasadas = PasadasDelDia(plan_, escala_, d);
            for (int p = 0; p < pasadas; ++p)
                dia(d, p);
        }
        QString fallo;
        for (LoteInsercion *l : lotes_.todos()) {
            if (!l->Vaciar() && fallo.isEmpty())
                fallo = l->Fallo();
            if (recuento)
                recuento->filas[l == &lotes_.parte ? QStringLiteral("PARTEOB") : nombre(l)] +=
                    l->Filas();
        }
        return fallo;
    }

private:
    QString nombre(LoteInsercion *l) {
        if (l == &lotes_.material)
            return QStringLiteral("PARMATOB");
        if (l == &lotes_.movimiento)
            return QStringLiteral("MOVIMTO");
        if (l == &lotes_.maquina)
            return QStringLiteral("PARMAQOB");
        if (l == &lotes_.subcontrato)
            return QStringLiteral("PARSUBOB");
        if (l == &lotes_.conjunto)
            return QStringLiteral("MULTPOB");
        if (l == &lotes_.lineaConjunta)
            return QStringLiteral("LMULTPOB");
        return QStringLiteral("LFACTROB");
    }

    // The chapter a works is at on a date: chapters follow the building order
    // over the works' time, with a spread; some reports go to no chapter.
    int capitulo(const ObraDemo &o, const QDate &d) {
        if (r_.Probabilidad(0.05) || o.capitulos.isEmpty())
            return 0;
        const double total = std::max<qint64>(1, o.inicio.daysTo(o.fin));
        const double avance = std::clamp(o.inicio.daysTo(d) / total, 0.0, 0.999);
        const int n = static_cast<int>(o.capitulos.size());
        const int i = std::clamp(static_cast<int>(avance * n) + r_.Entero(-1, 1), 0, n - 1);
        return o.capitulos.at(i).codigo;
    }

    int incidencia(const QString &tipo) {
        QList<int> codigos;
        for (const IncidenciaDemo &i : plan_.incidencias)
            if (i.tipo == tipo)
                codigos << i.codigo;
        return r_.Elegir(codigos);
    }

    // Invoice mark of a report of a works invoiced by administration: the
    // reports of the first pass in the works' first month, with their line.
    QString factura(int obra, const QDate &d, int pasada, const QString &origen,
                    const QStringList &linea) {
        const ObraDemo &o = plan_.obras.at(obra);
        if (o.factura == 0 || pasada != 0 || d.year() != o.activaDesde.year() ||
            d.month() != o.activaDesde.month())
            return {};
        const int n = ++lineasFactura_[obra];
        const QDate fechaFactura =
            o.activaDesde.addDays(o.activaDesde.daysInMonth() - o.activaDesde.day());
        lotes_.lineaFactura.Fila(QStringList{Entero(o.factura), Entero(n), Fecha(fechaFactura),
                                             Entero(o.cliente), Entero(o.codigo)} +
                                 linea + QStringList{Texto(origen)});
        return QStringLiteral("%1/%2").arg(o.factura).arg(n);
    }

    void dia(const QDate &d, int pasada) {
        compras(d, pasada);
        QList<int> activas;
        for (int i = 0; i < plan_.obras.size(); ++i) {
            const ObraDemo &o = plan_.obras.at(i);
            if (o.activaDesde.isValid() && o.activaDesde <= d && d <= o.activaHasta)
                activas << i;
        }
        if (activas.isEmpty())
            return;
        // Crews: each operator is on one works a week.
        QList<QList<int>> cuadrilla(plan_.obras.size());
        const int semana = d.weekNumber();
        for (int k = 0; k < plan_.operarios.size(); ++k) {
            const OperarioDemo &op = plan_.operarios.at(k);
            if (!op.dias.at(d.dayOfYear() - 1).trabajado)
                continue;
            const int obra = activas.at((k % 6 + semana) % activas.size());
            cuadrilla[obra] << k;
            manoObra(op, obra, d, pasada);
        }
        if (!DiaLaborable(plan_, 1, d))
            return;
        for (const MaquinaDemo &m : plan_.maquinas)
            if (r_.Probabilidad(0.45))
                maquina(m, r_.Elegir(activas), cuadrilla, d, pasada);
        for (const int obra : activas) {
            if (r_.Probabilidad(0.35))
                for (int n = r_.Entero(1, 3); n > 0; --n)
                    material(obra, d, pasada);
            if (r_.Probabilidad(0.06))
                subcontrato(obra, d);
            if (r_.Probabilidad(0.05))
                conjunto(obra, cuadrilla.at(obra), d);
        }
    }

    void compras(const QDate &d, int pasada) {
        for (int i = 0; i < plan_.articulos.size(); ++i) {
            const ArticuloDemo &a = plan_.articulos.at(i);
            for (const CompraDemo &c : a.compras) {
                if (c.fecha != d)
                    continue;
                stock_[i] += c.cantidad;
                lotes_.movimiento.Fila(
                    {Entero(++movimiento_), Texto(a.codigo), Fecha(d),
                     Hora(QTime(7, 30).addSecs(pasada)), Texto(QStringLiteral("EC")), Entero(1),
                     Numero(c.cantidad, 2), Numero(c.precio, 4),
                     Numero(redondeo(c.cantidad * c.precio, 2), 2), Entero(0), Entero(0),
                     Texto(QStringLiteral("Recepción de compra")), Texto(QStringLiteral("NO")),
                     Numero(stock_[i], 2), Numero(stock_[i], 2), Numero(c.precio, 4)});
            }
        }
    }

    void manoObra(const OperarioDemo &op, int obra, const QDate &d, int pasada) {
        // Labour of the works invoiced by administration stays open for the next invoice.
        const ObraDemo &o = plan_.obras.at(obra);
        const int cap = capitulo(o, d);
        auto fila = [&](QTime hora, double horas, const QString &tipoHoras, bool incidencia_) {
            const double cuota = TarifaOperario(op, tipoHoras, d);
            const double importe = redondeo(horas * cuota, 2);
            const int inc = incidencia_ ? incidencia(QStringLiteral("Trabajo")) : 0;
            const QString tipo =
                incidencia_ ? QStringLiteral("Incidencia") : QStringLiteral("Productivo");
            QString obs;
            if (incidencia_)
                obs = plan_.incidencias.at(inc - 1).descripcion;
            else if (tipoHoras == u"Otros")
                obs = QStringLiteral("Desplazamiento");
            const QString horaSql = Hora(hora.addSecs(pasada));
            lotes_.parte.Fila({Entero(op.codigo), Fecha(d), horaSql, Texto(tipo), Entero(o.codigo),
                               Entero(cap), Numero(horas, 2), Texto(tipoHoras), Numero(cuota, 2),
                               Numero(importe, 2), Texto(obs), Entero(inc), Texto(QString())});
        };
        const bool incidencia_ = r_.Probabilidad(0.04);
        if (r_.Probabilidad(0.5)) {
            fila(QTime(8, 0), 8, QStringLiteral("Normal"), incidencia_);
        } else {
            const double manana = r_.Entero(4, 5);
            fila(QTime(8, 0), manana, QStringLiteral("Normal"), incidencia_);
            fila(QTime(14, 0), 8 - manana, QStringLiteral("Normal"), false);
        }
        if (r_.Probabilidad(0.1))
            fila(QTime(17, 30), r_.Entero(1, 4) * 0.5, QStringLiteral("Extra"), false);
        else if (r_.Probabilidad(0.03))
            fila(QTime(18, 0), 1, QStringLiteral("Otros"), false);
    }

    void maquina(const MaquinaDemo &m, int obra, const QList<QList<int>> &cuadrilla, const QDate &d,
                 int pasada) {
        const ObraDemo &o = plan_.obras.at(obra);
        const int cap = capitulo(o, d);
        const QList<int> &gente = cuadrilla.at(obra);
        const int operario = gente.isEmpty() || r_.Probabilidad(0.3)
                                 ? 0
                                 : plan_.operarios.at(r_.Elegir(gente)).codigo;
        const double horas = r_.Entero(4, 16) * 0.5;
        const bool inc = r_.Probabilidad(0.04);
        const int incidencia_ = inc ? incidencia(QStringLiteral("Maquina")) : 0;
        const double importe = redondeo(horas * m.cuota[0], 2);
        const int numero = ++numeroMaquina_;
        const QString marca =
            factura(obra, d, pasada, QStringLiteral("PARMAQOB|%1").arg(numero),
                    {Entero(cap), Texto(QString()), Entero(0), Texto(QString()),
                     Texto(m.descripcion), Numero(horas, 2), Numero(m.cuota[0], 2), Numero(0, 2),
                     Numero(importe, 2), Numero(21, 2), Numero(0, 2)});
        lotes_.maquina.Fila(
            {Entero(numero), Fecha(d), Texto(m.codigo), Entero(operario), Entero(o.codigo),
             Entero(cap), Numero(horas, 2), Numero(m.cuota[0], 2), Numero(importe, 2),
             Texto(inc ? QStringLiteral("Incidencia") : QStringLiteral("Productivo")),
             Entero(incidencia_),
             Texto(inc ? plan_.incidencias.at(incidencia_ - 1).descripcion : QString()),
             Texto(marca)});
    }

    double cantidadDe(const QString &unidad) {
        if (unidad == u"m3")
            return r_.Entero(2, 24) * 0.5;
        if (unidad == u"kg")
            return r_.Entero(5, 80) * 10.0;
        if (unidad == u"m2")
            return r_.Entero(10, 120);
        if (unidad == u"m")
            return r_.Entero(10, 200);
        return r_.Entero(2, 60);
    }

    void material(int obra, const QDate &d, int pasada) {
        const ObraDemo &o = plan_.obras.at(obra);
        const int i = r_.Entero(0, plan_.articulos.size() - 1);
        const ArticuloDemo &a = plan_.articulos.at(i);
        const int cap = capitulo(o, d);
        const double cantidad = cantidadDe(a.unidad);
        const double precio = UltimoPrecioCompra(a, d);
        const double importe = redondeo(cantidad * precio, 2);
        const int proveedor = r_.Probabilidad(0.4) ? a.proveedor : 0;
        const QTime hora = QTime(9, 0).addSecs(r_.Entero(0, 7) * 900 + pasada);
        const int numero = ++numeroMaterial_;
        stock_[i] -= cantidad;
        lotes_.movimiento.Fila({Entero(++movimiento_), Texto(a.codigo), Fecha(d), Hora(hora),
                                Texto(QStringLiteral("SOF")), Entero(1), Numero(cantidad, 2),
                                Numero(precio, 4), Numero(importe, 2), Entero(numero), Entero(0),
                                Texto(QStringLiteral("Obra %1").arg(o.codigo)),
                                Texto(QStringLiteral("SI")), Numero(stock_[i], 2),
                                Numero(stock_[i], 2), Numero(precio, 4)});
        const QString marca =
            factura(obra, d, pasada, QStringLiteral("PARMATOB|%1").arg(numero),
                    {Entero(cap), Texto(QString()), Entero(0), Texto(a.unidad),
                     Texto(a.descripcion), Numero(cantidad, 2), Numero(precio, 4), Numero(0, 2),
                     Numero(importe, 2), Numero(21, 2), Numero(0, 2)});
        lotes_.material.Fila(
            {Entero(numero), Fecha(d), Hora(hora), Entero(proveedor), Texto(a.codigo),
             Texto(a.descripcion), Texto(a.unidad), Entero(o.codigo), Entero(cap),
             Numero(cantidad, 2), Numero(precio, 4), Numero(importe, 2),
             Texto(QStringLiteral("AL-%1").arg(r_.Entero(10000, 99999))), Texto(QString()),
             Texto(marca), Entero(movimiento_), Texto(QStringLiteral("NO"))});
    }

    void subcontrato(int obra, const QDate &d) {
        const ObraDemo &o = plan_.obras.at(obra);
        const SubcontratoDemo &s = r_.Elegir(plan_.subcontratos);
        const double cantidad = s.precio[0] > 1000 ? 1 : r_.Entero(5, 120);
        const double importe = redondeo(cantidad * s.precio[0], 2);
        lotes_.subcontrato.Fila({Entero(++numeroSubcontrato_), Fecha(d), Texto(s.codigo),
                                 Texto(s.descripcion), Entero(o.codigo), Entero(capitulo(o, d)),
                                 Numero(cantidad, 2), Numero(s.precio[0], 2), Numero(importe, 2),
                                 Entero(s.proveedor),
                                 Texto(QStringLiteral("SC-%1").arg(r_.Entero(1000, 9999))),
                                 Texto(QString()), Texto(QString())});
    }

    void conjunto(int obra, const QList<int> &gente, const QDate &d) {
        const ObraDemo &o = plan_.obras.at(obra);
        const int cap = capitulo(o, d);
        const QString albaran = QString::number(++albaran_);
        lotes_.conjunto.Fila({Texto(albaran), Entero(o.codigo), Entero(cap), Fecha(d)});
        const int lineas = r_.Entero(2, 4);
        for (int l = 1; l <= lineas; ++l) {
            QString tipo, codigo, subtipo, descripcion, unidad;
            double cantidad = 0, precio = 0;
            int codigoOperario = 0;
            switch (r_.Entero(gente.isEmpty() ? 1 : 0, 3)) {
            case 0: {
                const OperarioDemo &op = plan_.operarios.at(r_.Elegir(gente));
                tipo = QStringLiteral("Trabajo");
                codigo = QString::number(op.codigo);
                subtipo = r_.Probabilidad(0.8) ? QStringLiteral("Normal") : QStringLiteral("Extra");
                descripcion = op.nombre;
                unidad = QStringLiteral("h");
                cantidad = r_.Entero(1, 4);
                precio = TarifaOperario(op, subtipo, d);
                codigoOperario = op.categoria;
                break;
            }
            case 1: {
                const MaquinaDemo &m = r_.Elegir(plan_.maquinas);
                const int tarifa = r_.Entero(1, 4);
                tipo = QStringLiteral("Maquina");
                codigo = m.codigo;
                subtipo = QStringLiteral("Tarifa%1").arg(tarifa);
                descripcion = m.descripcion;
                unidad = QStringLiteral("h");
                cantidad = r_.Entero(2, 8);
                precio = m.cuota[tarifa - 1];
                codigoOperario = gente.isEmpty() ? 0 : plan_.operarios.at(r_.Elegir(gente)).codigo;
                break;
            }
            case 2: {
                const ArticuloDemo &a = r_.Elegir(plan_.articulos);
                tipo = QStringLiteral("Material");
                codigo = a.codigo;
                descripcion = a.descripcion;
                unidad = a.unidad;
                cantidad = cantidadDe(a.unidad);
                precio = UltimoPrecioCompra(a, d);
                break;
            }
            default: {
                const SubcontratoDemo &s = r_.Elegir(plan_.subcontratos);
                const int tarifa = r_.Entero(1, 4);
                tipo = QStringLiteral("SubContratacion");
                codigo = s.codigo;
                subtipo = QStringLiteral("Precio%1").arg(tarifa);
                descripcion = s.descripcion;
                unidad = QStringLiteral("ud");
                cantidad = s.precio[0] > 1000 ? 1 : r_.Entero(5, 60);
                precio = s.precio[tarifa - 1];
                codigoOperario = s.proveedor;
                break;
            }
            }
            lotes_.lineaConjunta.Fila(
                {Texto(albaran), Entero(l), Entero(o.codigo), Entero(cap), Fecha(d), Texto(tipo),
                 Texto(codigo), Texto(subtipo), Texto(descripcion), Texto(unidad),
                 Numero(cantidad, 2), Numero(precio, 4), Numero(redondeo(cantidad * precio, 2), 2),
                 Numero(0, 2), Texto(QString()), Entero(codigoOperario), Texto(QString())});
        }
    }

    const PlanDemo &plan_;
    double escala_;
    Lotes lotes_;
    FuenteAleatoria r_;
    QList<double> stock_;
    QList<int> lineasFactura_;
    qint64 movimiento_ = 0;
    int numeroMaterial_ = 0, numeroMaquina_ = 0, numeroSubcontrato_ = 0;
    qint64 albaran_ = 0;
};

} // namespace

qint64 RecuentoPartes::FilasPartes() const {
    qint64 n = 0;
    for (const char *t : kTablasPartes)
        n += filas.value(QString::fromLatin1(t));
    return n;
}

int PasadasDelDia(const PlanDemo &plan, double escala, const QDate &fecha) {
    const int enteras = static_cast<int>(std::floor(escala));
    const double fraccion = escala - enteras;
    if (fraccion <= 0)
        return enteras;
    // The fraction keeps the first working days of the year.
    int laborables = 0, posicion = -1;
    for (QDate d(kAnioDemo, 1, 1); d.year() == kAnioDemo; d = d.addDays(1)) {
        if (!DiaLaborable(plan, 1, d))
            continue;
        if (d <= fecha)
            posicion = laborables;
        ++laborables;
    }
    const int corte = static_cast<int>(std::ceil(fraccion * laborables));
    return enteras + (posicion >= 0 && posicion < corte ? 1 : 0);
}

QString EscribirPartes(const PlanDemo &plan, double escala, DestinoSentencias &destino,
                       RecuentoPartes *recuento) {
    Generador g(plan, escala, destino);
    return g.Escribir(recuento);
}

} // namespace co::demo
