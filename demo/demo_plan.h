#pragma once
// The masters of the demo company, drawn from a seed and held in memory: the
// generator writes them and the report stream prices its rows from them.
// Everything here is small (tens to hundreds of rows); nothing grows with the
// scale of the reports.

#include <QDate>
#include <QList>
#include <QString>
#include <array>
#include <cstdint>

namespace co::demo {

inline constexpr int kAnioDemo = 2025;

struct PersonaDemo {
    int codigo = 0;
    QString nombre, razonSocial, direccion, codigoPostal, poblacion, provincia, cif;
    QString telefono, fax, contacto, correo, web;
    QString entidad, sucursal, digitosControl, cuenta, iban, swift;
    int formaPago = 1;
    int diaPago1 = 0, diaPago2 = 0, diaPago3 = 0;
    double dtoPPago = 0;
    int mesVacaciones = 0;
    int actividad = -1; // suppliers: index of their trade
    bool publico = false;
};

struct PeriodoTarifa {
    int linea = 0;
    QDate desde, hasta;
    double normal = 0, extra = 0, festivo = 0, otros = 0;
    double ventaNormal = 0, ventaExtra = 0, ventaFestivo = 0, ventaOtros = 0;
};

struct DiaCalendario {
    bool trabajado = false, festivo = false, vacaciones = false, permiso = false, puente = false;
    QString situacion = QStringLiteral("Alta");
};

struct OperarioDemo {
    int codigo = 0;
    QString nombre;
    int categoria = 0;
    int calendario = 1;
    QString tarjeta;
    QList<PeriodoTarifa> tarifas; // by Linea
    QList<DiaCalendario> dias;    // one per day of the year, from 1 January
};

struct MaquinaDemo {
    QString codigo, descripcion;
    std::array<double, 4> cuota{}, venta{};
};

struct SubcontratoDemo {
    QString codigo, descripcion, observaciones;
    std::array<double, 4> precio{}, venta{};
    int proveedor = 0;
    QDate alta;
};

struct CompraDemo {
    QDate fecha;
    double precio = 0, cantidad = 0;
};

struct ArticuloDemo {
    QString codigo, descripcion, unidad, familia;
    double precioCompra = 0;
    int proveedor = 0;
    QList<CompraDemo> compras; // receipts of one pass, by date
};

struct PartidaDemo {
    int linea = 0;
    QString codigo, descripcion, ampliada, unidad;
    double cantidad = 0, costo = 0, venta = 0;
};

struct CapituloDemo {
    int codigo = 0;
    QString descripcion, situacion;
    QList<PartidaDemo> partidas;
};

struct ObraDemo {
    int codigo = 0;
    QString descripcion, situacion, direccion, codigoPostal, poblacion, provincia, telefono,
        contacto;
    QDate fecha, inicio, fin, finalizacion, aceptacion;
    int cliente = 0;
    int encargado = 0;
    int tarifa = 1;
    QString tipoFacturacion, llevaGG, llevaCoeficienteRevision = QStringLiteral("NO");
    double gastosIndirectos = 0, gastosGenerales = 0, soloGG = 0, soloBI = 0,
           coeficienteRevision = 1;
    QList<CapituloDemo> capitulos;
    int factura = 0; // draft invoice by administration, 0 when none
    // Reports go in between these dates; an invalid `activaDesde` means none.
    QDate activaDesde, activaHasta;
};

struct SucursalDemo {
    QString entidad, nombreEntidad, sucursal, nombreSucursal, poblacion;
};

struct IncidenciaDemo {
    int codigo = 0;
    QString descripcion, tipo, imputable;
};

struct PlanDemo {
    std::uint64_t semilla = 0;
    QString nombreEmpresa, abreviaturaEmpresa, cifEmpresa, direccionEmpresa, codigoPostalEmpresa,
        poblacionEmpresa, provinciaEmpresa, telefonoEmpresa, correoEmpresa;
    QList<SucursalDemo> sucursales;
    QList<PersonaDemo> clientes, proveedores;
    QList<OperarioDemo> operarios;
    QList<MaquinaDemo> maquinas;
    QList<SubcontratoDemo> subcontratos;
    QList<ArticuloDemo> articulos;
    QList<ObraDemo> obras;
    QList<IncidenciaDemo> incidencias;
    QList<QDate> festivos1, festivos2; // company calendars 1 and 2
    // Price of each budget item in each rate list: [list - 1][item code].
    QList<QList<PartidaDemo>> tarifas;
};

PlanDemo CrearPlan(std::uint64_t semilla);

// The company calendar's working day rule for `fecha` in calendar 1 or 2:
// Monday to Friday, not August, not a holiday of the calendar.
bool DiaLaborable(const PlanDemo &plan, int calendario, const QDate &fecha);

// The hourly rate as the labour screens look it up: the operator's periods from
// the last back, the first whose dates hold `fecha`; the field by the exact
// hour type; 0 when nothing qualifies.
double TarifaOperario(const OperarioDemo &operario, const QString &tipoHoras, const QDate &fecha,
                      bool venta = false);

// The last purchase price of an article on `fecha` with no supplier given: the
// latest receipt dated up to then, else the article's purchase price.
double UltimoPrecioCompra(const ArticuloDemo &articulo, const QDate &fecha);

} // namespace co::demo
