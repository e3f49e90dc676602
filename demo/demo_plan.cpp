#include "demo/demo_plan.h"

#include "core/rounding.h"
#include "demo/bank_codes.h"
#include "demo/building_catalog.h"
#include "demo/random_source.h"
#include "demo/spanish_names.h"
#include "demo/spanish_places.h"
#include "demo/tax_codes.h"

#include <QSet>

namespace co::demo {
namespace {

double redondeo(double valor, int decimales) {
    return static_cast<double>(Redondear(decimales, valor));
}

// Plain ASCII lower-case letters of a name, for mail addresses and web sites.
QString enAscii(const QString &texto) {
    QString out;
    for (const QChar c : texto.normalized(QString::NormalizationForm_D)) {
        const char16_t u = c.toLower().unicode();
        if ((u >= u'a' && u <= u'z') || (u >= u'0' && u <= u'9'))
            out += QChar(u);
    }
    return out;
}

QString telefono(FuenteAleatoria &r, const Provincia &p) {
    QString numero = p.prefijoTelefono;
    while (numero.size() < 9)
        numero += QChar(u'0' + r.Entero(numero.size() == p.prefijoTelefono.size() ? 1 : 0, 9));
    if (p.prefijoTelefono.size() == 2)
        return numero.left(2) + u' ' + numero.mid(2, 3) + u' ' + numero.mid(5, 2) + u' ' +
               numero.mid(7);
    return numero.left(3) + u' ' + numero.mid(3, 2) + u' ' + numero.mid(5, 2) + u' ' +
           numero.mid(7);
}

QString persona(FuenteAleatoria &r) {
    return r.Elegir(Apellidos()) + u' ' + r.Elegir(Apellidos()) + QStringLiteral(", ") +
           r.Elegir(NombresPila());
}

QString nombrePila(FuenteAleatoria &r) {
    return r.Elegir(NombresPila()) + u' ' + r.Elegir(Apellidos());
}

struct Lugar {
    const Provincia *provincia;
    const Poblacion *poblacion;
    QString codigoPostal;
    QString direccion;
};

// Most of the firm's work is near home; the rest anywhere.
Lugar lugar(FuenteAleatoria &r, double cerca) {
    const QList<Provincia> &todas = Provincias();
    const Provincia *p =
        &todas.at(r.Probabilidad(cerca) ? r.Entero(0, 2) : r.Entero(0, todas.size() - 1));
    const Poblacion *t = &p->poblaciones.at(r.Entero(0, p->poblaciones.size() - 1));
    const int cp = t->codigoPostal + r.Entero(0, t->variantes - 1);
    QString dir = r.Elegir(Calles()) + QStringLiteral(", ") + QString::number(r.Entero(1, 140));
    return {p, t, QStringLiteral("%1").arg(cp, 5, 10, QLatin1Char('0')), dir};
}

using Sucursal = SucursalDemo;

void cuentaBancaria(FuenteAleatoria &r, const QList<Sucursal> &sucursales, PersonaDemo &p) {
    const Sucursal &s = sucursales.at(r.Entero(0, sucursales.size() - 1));
    QString cuenta;
    for (int i = 0; i < 10; ++i)
        cuenta += QChar(u'0' + r.Entero(0, 9));
    p.entidad = s.entidad;
    p.sucursal = s.sucursal;
    p.cuenta = cuenta;
    p.digitosControl = DigitosControlCCC(s.entidad, s.sucursal, cuenta);
    p.iban = IBANDeCCC(s.entidad + s.sucursal + p.digitosControl + cuenta);
    for (const BancoCatalogo &b : BancosCatalogo())
        if (b.entidad == s.entidad)
            p.swift = b.swift;
}

void diasPago(FuenteAleatoria &r, PersonaDemo &p) {
    switch (r.Entero(0, 4)) {
    case 0:
        p.diaPago1 = 10;
        p.diaPago2 = 25;
        break;
    case 1:
        p.diaPago1 = 5;
        p.diaPago2 = 15;
        p.diaPago3 = 25;
        break;
    case 2:
        p.diaPago1 = 30;
        break;
    case 3:
        p.diaPago2 = 0;
        p.diaPago1 = 20;
        break;
    default:
        break;
    }
}

void direccion(PersonaDemo &p, const Lugar &l) {
    p.direccion = l.direccion;
    p.codigoPostal = l.codigoPostal;
    p.poblacion = l.poblacion->nombre;
    p.provincia = l.provincia->nombre;
}

QString recortado(const QString &largo, const QString &corto, int maximo) {
    return largo.size() <= maximo ? largo : corto.left(maximo);
}

QList<PersonaDemo> clientes(FuenteAleatoria r, const QList<Sucursal> &sucursales) {
    QList<PersonaDemo> out;
    QSet<QString> nombres;
    for (int i = 0; out.size() < 40; ++i) {
        PersonaDemo c;
        c.codigo = out.size() + 1;
        const Lugar l = lugar(r, 0.7);
        direccion(c, l);
        const int clase = i % 10;
        if (clase == 7) {
            c.nombre = QStringLiteral("Ayuntamiento de ") + l.poblacion->nombre;
            c.razonSocial = c.nombre;
            c.cif = CIF(u'P', l.provincia->prefijo * 100000 + r.Entero(1000, 99999));
            c.publico = true;
            c.formaPago = 7;
        } else if (clase == 8) {
            const QString calle = l.direccion;
            c.nombre = recortado(QStringLiteral("C.P. ") + calle, calle, 40);
            c.razonSocial =
                recortado(QStringLiteral("Comunidad de Propietarios ") + calle, c.nombre, 40);
            c.cif = CIF(u'H', r.Entero(100000, 9999999));
            c.formaPago = 4;
        } else if (clase == 9) {
            c.nombre = persona(r);
            c.razonSocial = c.nombre;
            c.cif = NIF(r.Entero(1000000, 79999999));
            c.formaPago = r.Entero(1, 3);
        } else {
            const FormaJuridica &f = r.Elegir(FormasJuridicas());
            const QString base =
                r.Elegir(ActividadesCliente()) + u' ' +
                (r.Probabilidad(0.5) ? r.Elegir(Apellidos()) : r.Elegir(ComplementosNombre()));
            c.nombre = base.left(40);
            c.razonSocial =
                recortado(base + f.sufijo, base.left(40 - f.sufijo.size()) + f.sufijo, 40);
            c.cif = CIF(f.letraCIF, r.Entero(1000000, 9999999));
            c.formaPago = r.Entero(2, 6);
            c.web = QStringLiteral("www.") + enAscii(base) + QStringLiteral(".es");
            c.correo = QStringLiteral("administracion@") + enAscii(base) + QStringLiteral(".es");
            c.fax = telefono(r, *l.provincia);
        }
        if (nombres.contains(c.nombre))
            continue;
        nombres.insert(c.nombre);
        c.telefono = telefono(r, *l.provincia);
        c.contacto = nombrePila(r);
        cuentaBancaria(r, sucursales, c);
        diasPago(r, c);
        c.dtoPPago = c.publico ? 0 : r.Entero(0, 2);
        c.mesVacaciones = r.Probabilidad(0.3) ? 8 : 0;
        out << c;
    }
    return out;
}

QList<PersonaDemo> proveedores(FuenteAleatoria r, const QList<Sucursal> &sucursales) {
    QList<PersonaDemo> out;
    QSet<QString> nombres;
    const int oficios = static_cast<int>(ActividadesProveedor().size());
    while (out.size() < 25) {
        PersonaDemo p;
        p.codigo = out.size() + 1;
        // The first suppliers cover every trade once, in trade order.
        p.actividad =
            out.size() < oficios ? static_cast<int>(out.size()) : r.Entero(0, oficios - 1);
        const Lugar l = lugar(r, 0.8);
        direccion(p, l);
        const FormaJuridica &f = r.Elegir(FormasJuridicas());
        const QString base =
            ActividadesProveedor().at(p.actividad) + u' ' +
            (r.Probabilidad(0.5) ? r.Elegir(Apellidos()) : r.Elegir(ComplementosNombre()));
        if (nombres.contains(base))
            continue;
        nombres.insert(base);
        p.nombre = base.left(40);
        p.razonSocial = recortado(base + f.sufijo, base.left(40 - f.sufijo.size()) + f.sufijo, 40);
        p.cif = CIF(f.letraCIF, r.Entero(1000000, 9999999));
        p.telefono = telefono(r, *l.provincia);
        p.fax = telefono(r, *l.provincia);
        p.contacto = nombrePila(r);
        p.correo = QStringLiteral("pedidos@") + enAscii(base) + QStringLiteral(".es");
        p.web = QStringLiteral("www.") + enAscii(base) + QStringLiteral(".es");
        p.formaPago = r.Probabilidad(0.5) ? 6 : 2;
        cuentaBancaria(r, sucursales, p);
        diasPago(r, p);
        out << p;
    }
    return out;
}

QList<QDate> festivos(int calendario) {
    const int y = kAnioDemo;
    QList<QDate> d{{y, 1, 1},  {y, 1, 6},  {y, 4, 17}, {y, 4, 18}, {y, 5, 1},
                   {y, 8, 15}, {y, 11, 1}, {y, 12, 6}, {y, 12, 8}, {y, 12, 25}};
    if (calendario == 1)
        d << QDate(y, 5, 2) << QDate(y, 5, 15) << QDate(y, 7, 25) << QDate(y, 11, 10);
    else
        d << QDate(y, 3, 19) << QDate(y, 5, 31) << QDate(y, 6, 19) << QDate(y, 8, 16);
    std::sort(d.begin(), d.end());
    return d;
}

QList<OperarioDemo> operarios(FuenteAleatoria r, const PlanDemo &plan) {
    QList<OperarioDemo> out;
    const QList<CategoriaCatalogo> &categorias = CategoriasCatalogo();
    const QDate enero(kAnioDemo, 1, 1);
    const int dias = enero.daysInYear();
    for (int c = 0; c < categorias.size(); ++c) {
        for (int k = 0; k < categorias.at(c).plantilla; ++k) {
            OperarioDemo o;
            o.codigo = static_cast<int>(out.size()) + 1;
            o.nombre = persona(r);
            o.categoria = c + 1;
            o.calendario = r.Probabilidad(0.2) ? 2 : 1;
            o.tarjeta = QStringLiteral("T%1").arg(o.codigo, 4, 10, QLatin1Char('0'));
            const double base = redondeo(categorias.at(c).tarifaNormal * r.Real(0.97, 1.03), 2);
            auto periodo = [&](int linea, QDate desde, QDate hasta, double normal) {
                PeriodoTarifa p;
                p.linea = linea;
                p.desde = desde;
                p.hasta = hasta;
                p.normal = redondeo(normal, 2);
                p.extra = redondeo(normal * 1.35, 2);
                p.festivo = redondeo(normal * 1.75, 2);
                p.otros = redondeo(normal * 0.9, 2);
                p.ventaNormal = redondeo(normal * 1.45, 2);
                p.ventaExtra = redondeo(normal * 1.45 * 1.35, 2);
                p.ventaFestivo = redondeo(normal * 1.45 * 1.75, 2);
                p.ventaOtros = redondeo(normal * 1.45 * 0.9, 2);
                o.tarifas << p;
            };
            // Last year's agreement until March, the revised one after; some
            // operators had a July bonus period overlapping the second.
            periodo(1, QDate(kAnioDemo - 1, 1, 1), QDate(kAnioDemo, 3, 31), base);
            periodo(2, QDate(kAnioDemo, 4, 1), QDate(9940, 12, 31), base * 1.03);
            if (r.Probabilidad(0.25))
                periodo(3, QDate(kAnioDemo, 7, 1), QDate(kAnioDemo, 7, 31), base * 1.10);
            // The month-generation rule, then the days changed by hand.
            for (int i = 0; i < dias; ++i) {
                const QDate f = enero.addDays(i);
                DiaCalendario d;
                d.festivo = f.dayOfWeek() == 7;
                d.trabajado = f.dayOfWeek() <= 5;
                if (f.month() == 8) {
                    d.vacaciones = true;
                    d.trabajado = false;
                }
                const QList<QDate> &fiestas = o.calendario == 1 ? plan.festivos1 : plan.festivos2;
                if (fiestas.contains(f)) {
                    d.trabajado = false;
                    d.festivo = true;
                    d.vacaciones = false;
                    d.puente = false;
                }
                o.dias << d;
            }
            for (int n = 0; n < 2; ++n) {
                const int i = r.Entero(0, dias - 1);
                if (o.dias[i].trabajado) {
                    o.dias[i].trabajado = false;
                    o.dias[i].permiso = true;
                }
            }
            if (r.Probabilidad(0.1)) {
                const int desde = r.Entero(20, dias - 40);
                for (int i = desde; i < desde + r.Entero(5, 12) + 2; ++i)
                    if (o.dias[i].trabajado) {
                        o.dias[i].trabajado = false;
                        o.dias[i].situacion = QStringLiteral("Enfermedad");
                    }
            }
            out << o;
        }
    }
    return out;
}

QList<MaquinaDemo> maquinas(FuenteAleatoria r) {
    QList<MaquinaDemo> out;
    for (const MaquinaCatalogo &c : MaquinasCatalogo()) {
        MaquinaDemo m;
        m.codigo = QStringLiteral("MAQ%1").arg(out.size() + 1, 2, 10, QLatin1Char('0'));
        m.descripcion = c.descripcion;
        const double base = redondeo(c.cuota * r.Real(0.95, 1.05), 2);
        const double factores[4] = {1.0, 1.25, 0.6, 1.5};
        for (int i = 0; i < 4; ++i) {
            m.cuota[i] = redondeo(base * factores[i], 2);
            m.venta[i] = redondeo(base * factores[i] * 1.3, 2);
        }
        out << m;
    }
    return out;
}

QList<SubcontratoDemo> subcontratos(FuenteAleatoria r, const QList<PersonaDemo> &prov) {
    QList<SubcontratoDemo> out;
    for (const SubcontratoCatalogo &c : SubcontratosCatalogo()) {
        SubcontratoDemo s;
        s.codigo = QStringLiteral("SUB%1").arg(out.size() + 1, 3, 10, QLatin1Char('0'));
        s.descripcion = c.descripcion;
        const double factores[4] = {1.0, 0.95, 1.1, 1.2};
        for (int i = 0; i < 4; ++i) {
            s.precio[i] = redondeo(c.precio * factores[i], 2);
            s.venta[i] = redondeo(c.precio * factores[i] * r.Real(1.15, 1.3), 2);
        }
        s.proveedor = prov.at(c.proveedor).codigo;
        s.alta = QDate(kAnioDemo - 1, 1, 1).addDays(r.Entero(0, 300));
        s.observaciones = QStringLiteral("Precio 1 general; 2 a 4 por volumen y urgencia");
        out << s;
    }
    return out;
}

QList<ArticuloDemo> articulos(FuenteAleatoria r, const QList<PersonaDemo> &prov) {
    QList<ArticuloDemo> out;
    for (const FamiliaArticulos &f : FamiliasArticulos()) {
        int n = 0;
        for (const QString &base : f.bases) {
            for (const QString &variante : f.variantes) {
                ArticuloDemo a;
                a.codigo = f.codigo + QStringLiteral("%1").arg(++n, 3, 10, QLatin1Char('0'));
                a.descripcion = (base + u' ' + variante).left(40);
                a.unidad = f.unidad;
                a.familia = f.codigo;
                a.precioCompra = redondeo(r.Real(f.precioMin, f.precioMax), 4);
                a.proveedor = prov.at(f.proveedor).codigo;
                const int meses[3] = {1, 4, 9};
                double precio = a.precioCompra;
                for (const int m : meses) {
                    precio = redondeo(precio * r.Real(0.98, 1.06), 4);
                    a.compras << CompraDemo{QDate(kAnioDemo, m, r.Entero(8, 20)), precio,
                                            static_cast<double>(r.Entero(20, 400))};
                }
                out << a;
            }
        }
    }
    return out;
}

QList<QList<PartidaDemo>> tarifas(FuenteAleatoria r) {
    QList<PartidaDemo> general, publica;
    for (const CapituloCatalogo &c : CapitulosCatalogo()) {
        for (const PartidaCatalogo &p : c.partidas) {
            PartidaDemo t;
            t.codigo = p.codigo;
            t.descripcion = p.descripcion;
            t.ampliada = p.ampliada;
            t.unidad = p.unidad;
            t.costo = redondeo(p.costo * r.Real(0.96, 1.04), 2);
            t.venta = redondeo(t.costo * r.Real(1.22, 1.34), 2);
            general << t;
            t.venta = redondeo(t.venta * 0.94, 2);
            publica << t;
        }
    }
    return {general, publica};
}

QList<ObraDemo> obras(FuenteAleatoria r, const PlanDemo &plan) {
    QList<ObraDemo> out;
    const QList<QString> &tipos = TiposObra();
    const QDate enero(kAnioDemo, 1, 1);
    int factura = 0;
    for (int i = 0; i < 15; ++i) {
        ObraDemo o;
        const Lugar l = lugar(r, 0.85);
        const QString tipo = tipos.at((i + static_cast<int>(plan.semilla % 7)) % tipos.size());
        o.descripcion = recortado(tipo + QStringLiteral(" en ") + l.poblacion->nombre, tipo, 40);
        o.direccion = l.direccion;
        o.codigoPostal = l.codigoPostal;
        o.poblacion = l.poblacion->nombre;
        o.provincia = l.provincia->nombre;
        o.telefono = telefono(r, *l.provincia);
        o.contacto = nombrePila(r);
        o.cliente = plan.clientes.at(r.Entero(0, plan.clientes.size() - 1)).codigo;
        o.encargado = r.Entero(1, CategoriasCatalogo().at(0).plantilla);
        const bool publica = plan.clientes.at(o.cliente - 1).publico;
        o.tarifa = publica ? 2 : 1;
        const bool reforma = tipo.startsWith(QStringLiteral("Reforma"));
        o.tipoFacturacion =
            reforma ? QStringLiteral("Administracion") : QStringLiteral("Certificacion");
        o.gastosIndirectos = r.Entero(3, 6);
        if (r.Probabilidad(0.6)) {
            o.llevaGG = QStringLiteral("Gastos G. y Bº.Industrial");
            o.gastosGenerales = 19;
        } else {
            o.llevaGG = QStringLiteral("G.G. y B.I. Separados");
            o.soloGG = 13;
            o.soloBI = 6;
        }
        if (i == 2) {
            o.llevaCoeficienteRevision = QStringLiteral("SI");
            o.coeficienteRevision = 1.035;
        }
        if (i < 10) {
            o.situacion = QStringLiteral("Abierta");
            // Some started last year; the rest through this one.
            o.fecha = i < 4 ? QDate(kAnioDemo - 1, 9, 1).addDays(r.Entero(0, 100))
                            : enero.addDays(r.Entero(0, 240));
        } else if (i < 13) {
            o.situacion = QStringLiteral("Cerrada");
            o.fecha = QDate(kAnioDemo - 1, 10, 1).addDays(r.Entero(0, 120));
        } else {
            o.situacion = QStringLiteral("Rechazada");
            o.fecha = enero.addDays(r.Entero(0, 300));
        }
        if (o.situacion != u"Rechazada") {
            o.aceptacion = o.fecha.addDays(r.Entero(7, 30));
            o.inicio = o.aceptacion.addDays(r.Entero(7, 21));
            o.fin = o.inicio.addMonths(r.Entero(reforma ? 2 : 6, reforma ? 4 : 14));
            o.activaDesde = std::max(o.inicio, enero);
            o.activaHasta = std::min(o.fin, QDate(kAnioDemo, 12, 31));
            if (o.situacion == u"Cerrada") {
                o.fin = QDate(kAnioDemo, r.Entero(4, 10), r.Entero(1, 28));
                o.activaHasta = o.fin;
                o.finalizacion = o.fin;
            }
            if (o.activaDesde > o.activaHasta)
                o.activaDesde = QDate();
        } else {
            o.inicio = o.fecha.addDays(45);
            o.fin = o.inicio.addMonths(6);
        }
        if (o.tipoFacturacion == u"Administracion" && o.activaDesde.isValid())
            o.factura = ++factura;
        // Works numbers tell the year of the budget.
        o.codigo = (o.fecha.year() % 100) * 100 + i + 1;
        const QString situacionCapitulo =
            o.situacion == u"Abierta" ? QStringLiteral("Abierto")
                                      : (o.situacion == u"Cerrada" ? QStringLiteral("Cerrado")
                                                                   : QStringLiteral("Rechazado"));
        const QList<PartidaDemo> &precios = plan.tarifas.at(o.tarifa - 1);
        for (const CapituloCatalogo &c : CapitulosCatalogo()) {
            if (!c.obligatorio && !r.Probabilidad(reforma ? 0.4 : 0.8))
                continue;
            CapituloDemo cap;
            cap.codigo = static_cast<int>(o.capitulos.size()) + 1;
            cap.descripcion = c.descripcion;
            cap.situacion = situacionCapitulo;
            for (const PartidaCatalogo &p : c.partidas) {
                if (!cap.partidas.isEmpty() && !r.Probabilidad(0.75))
                    continue;
                PartidaDemo linea;
                for (const PartidaDemo &t : precios)
                    if (t.codigo == p.codigo)
                        linea = t;
                linea.linea = (static_cast<int>(cap.partidas.size()) + 1) * 10;
                const double factor = reforma ? 0.3 : 1.0;
                linea.cantidad =
                    p.cantidadMin == p.cantidadMax
                        ? p.cantidadMin
                        : redondeo(std::max(p.cantidadMin * factor,
                                            r.Real(p.cantidadMin, p.cantidadMax) * factor),
                                   2);
                if (linea.unidad == u"ud" || linea.unidad == u"pa")
                    linea.cantidad = std::max(1.0, redondeo(linea.cantidad, 0));
                cap.partidas << linea;
            }
            o.capitulos << cap;
        }
        out << o;
    }
    std::sort(out.begin(), out.end(),
              [](const ObraDemo &a, const ObraDemo &b) { return a.codigo < b.codigo; });
    return out;
}

QList<Sucursal> sucursales(FuenteAleatoria r) {
    QList<Sucursal> out;
    for (const BancoCatalogo &b : BancosCatalogo()) {
        QSet<int> usadas;
        while (usadas.size() < 3)
            usadas.insert(r.Entero(1, 9999));
        QList<int> codigos(usadas.begin(), usadas.end());
        std::sort(codigos.begin(), codigos.end());
        for (const int c : codigos) {
            const Lugar l = lugar(r, 0.6);
            out << Sucursal{
                b.entidad, b.nombre, QStringLiteral("%1").arg(c, 4, 10, QLatin1Char('0')),
                QStringLiteral("Oficina ") + l.direccion.section(u',', 0, 0), l.poblacion->nombre};
        }
    }
    return out;
}

} // namespace

PlanDemo CrearPlan(std::uint64_t semilla) {
    PlanDemo plan;
    plan.semilla = semilla;
    const FuenteAleatoria raiz(semilla);
    FuenteAleatoria empresa = raiz.Derivada(1);
    const QList<QString> nombres{
        QStringLiteral("Construcciones Almenara"), QStringLiteral("Obras y Reformas Tajuña"),
        QStringLiteral("Edificaciones Valdemoro"),
        QStringLiteral("Construcciones Hermanos Serrano"), QStringLiteral("Rehabilita Henares")};
    const QList<QString> abreviaturas{QStringLiteral("ALMENARA"), QStringLiteral("TAJUÑA"),
                                      QStringLiteral("VALDEMORO"), QStringLiteral("HNOS. SERRANO"),
                                      QStringLiteral("REHABILITA")};
    const int cual = empresa.Entero(0, static_cast<int>(nombres.size()) - 1);
    const QString base = nombres.at(cual);
    plan.abreviaturaEmpresa = abreviaturas.at(cual);
    plan.nombreEmpresa = base + QStringLiteral(", S.L.");
    plan.cifEmpresa = CIF(u'B', empresa.Entero(1000000, 9999999));
    plan.direccionEmpresa =
        QStringLiteral("Calle de la Industria, ") + QString::number(empresa.Entero(2, 60));
    plan.codigoPostalEmpresa =
        QStringLiteral("28%1").arg(empresa.Entero(901, 907), 3, 10, QLatin1Char('0'));
    plan.poblacionEmpresa = QStringLiteral("Getafe");
    plan.provinciaEmpresa = QStringLiteral("Madrid");
    plan.telefonoEmpresa = telefono(empresa, Provincias().at(0));
    plan.correoEmpresa = QStringLiteral("oficina@") + enAscii(base) + QStringLiteral(".es");
    plan.festivos1 = festivos(1);
    plan.festivos2 = festivos(2);
    plan.sucursales = sucursales(raiz.Derivada(2));
    plan.clientes = clientes(raiz.Derivada(3), plan.sucursales);
    plan.proveedores = proveedores(raiz.Derivada(4), plan.sucursales);
    plan.operarios = operarios(raiz.Derivada(5), plan);
    plan.maquinas = maquinas(raiz.Derivada(6));
    plan.subcontratos = subcontratos(raiz.Derivada(7), plan.proveedores);
    plan.articulos = articulos(raiz.Derivada(8), plan.proveedores);
    plan.tarifas = tarifas(raiz.Derivada(9));
    plan.obras = obras(raiz.Derivada(10), plan);
    int n = 0;
    for (const IncidenciaCatalogo &c : IncidenciasCatalogo())
        plan.incidencias << IncidenciaDemo{++n, c.descripcion, c.tipo, c.imputable};
    return plan;
}

bool DiaLaborable(const PlanDemo &plan, int calendario, const QDate &fecha) {
    if (fecha.dayOfWeek() > 5 || fecha.month() == 8)
        return false;
    return !(calendario == 1 ? plan.festivos1 : plan.festivos2).contains(fecha);
}

double TarifaOperario(const OperarioDemo &operario, const QString &tipoHoras, const QDate &fecha,
                      bool venta) {
    for (qsizetype i = operario.tarifas.size() - 1; i >= 0; --i) {
        const PeriodoTarifa &p = operario.tarifas.at(i);
        if (p.desde > fecha || p.hasta < fecha)
            continue;
        if (tipoHoras == u"Normal")
            return venta ? p.ventaNormal : p.normal;
        if (tipoHoras == u"Extra")
            return venta ? p.ventaExtra : p.extra;
        if (tipoHoras == u"Festivo")
            return venta ? p.ventaFestivo : p.festivo;
        if (tipoHoras == u"Otros")
            return venta ? p.ventaOtros : p.otros;
        return 0;
    }
    return 0;
}

double UltimoPrecioCompra(const ArticuloDemo &articulo, const QDate &fecha) {
    double precio = articulo.precioCompra;
    for (const CompraDemo &c : articulo.compras)
        if (c.fecha <= fecha)
            precio = c.precio;
    return precio;
}

} // namespace co::demo
