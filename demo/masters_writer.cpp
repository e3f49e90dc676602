#include "demo/masters_writer.h"

#include "demo/building_catalog.h"

namespace co::demo {
namespace {

const QString kSI = QStringLiteral("'SI'");
const QString kNO = QStringLiteral("'NO'");
QString siNo(bool v) {
    return v ? kSI : kNO;
}
QString L(const char *columnas) {
    return QString::fromLatin1(columnas);
}

// Gathers the batches of one writing step and tells the first failure.
class Pasos {
public:
    explicit Pasos(DestinoSentencias &destino) : destino_(destino) {}
    LoteInsercion &Tabla(const QString &tabla, const QString &columnas) {
        lotes_.push_back(
            std::make_unique<LoteInsercion>(destino_, tabla, columnas.split(QStringLiteral(", "))));
        return *lotes_.back();
    }
    QString Fin() {
        for (auto &l : lotes_)
            if (!l->Vaciar())
                return l->Fallo();
        return {};
    }

private:
    DestinoSentencias &destino_;
    std::vector<std::unique_ptr<LoteInsercion>> lotes_;
};

void persona(QStringList &v, const PersonaDemo &p) {
    v << Entero(p.codigo) << Texto(p.nombre) << Texto(p.razonSocial) << Texto(p.direccion)
      << Texto(p.codigoPostal) << Texto(p.poblacion) << Texto(p.provincia)
      << Texto(QStringLiteral("España")) << Texto(p.cif) << Texto(p.telefono) << Texto(p.fax)
      << Texto(p.contacto) << Texto(p.correo) << Texto(p.web) << Texto(p.entidad)
      << Texto(p.sucursal) << Texto(p.digitosControl) << Texto(p.cuenta) << Entero(p.formaPago)
      << Entero(p.diaPago1) << Entero(p.diaPago2) << Entero(p.diaPago3)
      << Texto(QStringLiteral("Normal")) << Numero(p.dtoPPago, 2)
      << Texto(QStringLiteral("Nacional")) << Entero(1);
}
const char *kPersona =
    "Codigo, Nombre, RazonSocial, Direccion, CodigoPostal, Poblacion, Provincia, Pais, CIF, "
    "Telefono, FAX, PersonaContacto, DirecCorreoElectronico, DirecPaginaWeb, CodigoEntidad, "
    "CodigoSucursal, DigitosControl, NumeroCuenta, CodigoFPago, DiaPago1, DiaPago2, DiaPago3, "
    "ModalidadIVA, DtoPPago, Origen, CodigoMoneda";

void monedasYPagos(Pasos &pasos) {
    LoteInsercion &m =
        pasos.Tabla(QStringLiteral("MONEDA"),
                    L("Codigo, Descripcion, Abreviatura, Cambio, Redondeo, Decimales, "
                      "AbreviaturaInternacional"));
    m.Fila({Entero(1), Texto(QStringLiteral("Euro")), Texto(QStringLiteral("€")), Numero(1, 6), kSI,
            Entero(2), Texto(QStringLiteral("EUR"))});
    m.Fila({Entero(2), Texto(QStringLiteral("Dólar estadounidense")), Texto(QStringLiteral("$")),
            Numero(1.0856, 6), kSI, Entero(2), Texto(QStringLiteral("USD"))});

    struct Forma {
        const char16_t *descripcion;
        int efectos, primero, cadencia;
        const char *libra, *recibos, *domicilia, *situacion, *situacionPago;
        const char16_t *facturae;
    };
    const Forma formas[] = {
        {u"Contado", 1, 0, 0, "NO", "NO", "NO", "No Remesable", "Iniciativa Propia",
         u"01-Al contado"},
        {u"Transferencia a 30 días", 1, 30, 0, "NO", "NO", "NO", "No Remesable",
         "Iniciativa Propia", u"04-Transferencia"},
        {u"Recibo domiciliado a 30 días", 1, 30, 0, "NO", "SI", "SI", "Remesable",
         "Iniciativa Proveedor", u"02-Recibo Domiciliado"},
        {u"Recibo domiciliado a 30 y 60 días", 2, 30, 30, "NO", "SI", "SI", "Remesable",
         "Iniciativa Proveedor", u"02-Recibo Domiciliado"},
        {u"Recibo domiciliado 30, 60 y 90 días", 3, 30, 30, "NO", "SI", "SI", "Remesable",
         "Iniciativa Proveedor", u"02-Recibo Domiciliado"},
        {u"Pagaré a 60 días", 1, 60, 0, "60", "NO", "NO", "Pendiente Aceptar", "Pendiente Aceptar",
         u"05-Letra Aceptada"},
        {u"Certificación a 60 días", 1, 60, 0, "60", "NO", "NO", "No Remesable",
         "Iniciativa Propia", u"04-Transferencia"},
    };
    LoteInsercion &f = pasos.Tabla(
        QStringLiteral("FPAGO"),
        L("Codigo, Descripcion, NumeroEfectos, DiasPrimero, DiasCadencia, DiasNaturales, "
          "AFavorLibrado, EmitirRecibos, VencimientosFactura, DomiciliacionFactura, "
          "SituacionEfecto, SituacionEfectoPago, CodigoPagoFacturae"));
    int codigo = 0;
    for (const Forma &x : formas)
        f.Fila({Entero(++codigo), Texto(QString::fromUtf16(x.descripcion)), Entero(x.efectos),
                Entero(x.primero), Entero(x.cadencia), kSI, Texto(QString::fromLatin1(x.libra)),
                Texto(QString::fromLatin1(x.recibos)), kSI, Texto(QString::fromLatin1(x.domicilia)),
                Texto(QString::fromLatin1(x.situacion)),
                Texto(QString::fromLatin1(x.situacionPago)),
                Texto(QString::fromUtf16(x.facturae))});
}

void terceros(Pasos &pasos, const PlanDemo &plan) {
    LoteInsercion &e =
        pasos.Tabla(QStringLiteral("ENTIDAD"),
                    L("CodigoEntidad, CodigoSucursal, NombreEntidad, NombreSucursal, Poblacion"));
    for (const SucursalDemo &s : plan.sucursales)
        e.Fila({Texto(s.entidad), Texto(s.sucursal), Texto(s.nombreEntidad),
                Texto(s.nombreSucursal), Texto(s.poblacion)});
    LoteInsercion &c =
        pasos.Tabla(QStringLiteral("CLIENTE"),
                    L(kPersona) + L(", CodigoIBAN, CodigoSWIFT, Tarifa, MesVacaciones, "
                                    "LimiteRiesgo, CopiasFactura, CopiasAlbaran"));
    for (const PersonaDemo &p : plan.clientes) {
        QStringList v;
        persona(v, p);
        v << Texto(p.iban) << Texto(p.swift) << Entero(1) << Entero(p.mesVacaciones)
          << Numero(p.publico ? 0 : 60000, 2) << Entero(1) << Entero(1);
        c.Fila(v);
    }
    LoteInsercion &pr = pasos.Tabla(QStringLiteral("PROVEEDR"),
                                    L(kPersona) + L(", CodigoPais, NumeroCopias, DiasEntrega"));
    for (const PersonaDemo &p : plan.proveedores) {
        QStringList v;
        persona(v, p);
        v << Texto(QStringLiteral("ES")) << Entero(1) << Entero(2);
        pr.Fila(v);
    }
}

void personal(Pasos &pasos, const PlanDemo &plan) {
    LoteInsercion &cat = pasos.Tabla(QStringLiteral("CATEGORI"), L("Codigo, Descripcion"));
    int n = 0;
    for (const CategoriaCatalogo &c : CategoriasCatalogo())
        cat.Fila({Entero(++n), Texto(c.descripcion)});
    LoteInsercion &inc =
        pasos.Tabla(QStringLiteral("INCIDENC"), L("Codigo, Descripcion, Imputable, Tipo"));
    for (const IncidenciaDemo &i : plan.incidencias)
        inc.Fila({Entero(i.codigo), Texto(i.descripcion), Texto(i.imputable), Texto(i.tipo)});
    LoteInsercion &h = pasos.Tabla(QStringLiteral("HORARIO"), L("Numero, Descripcion"));
    h.Fila({Entero(1), Texto(QStringLiteral("Partida 8-17"))});
    h.Fila({Entero(2), Texto(QStringLiteral("Intensiva 7-15"))});

    LoteInsercion &cal =
        pasos.Tabla(QStringLiteral("CALENDAR"),
                    L("Codigo, Fecha, EsDiaTrabajado, EsDiaFestivo, EsDiaVacaciones, EsDiaPuente, "
                      "NumeroHorario"));
    for (int c = 1; c <= 2; ++c)
        for (const QDate &d : c == 1 ? plan.festivos1 : plan.festivos2)
            cal.Fila({Entero(c), Fecha(d), kNO, kSI, kNO, kNO, Entero(1)});

    LoteInsercion &op = pasos.Tabla(
        QStringLiteral("OPERARIO"),
        L("Codigo, Nombre, CodigoCalendario, CodigoCategoria, TarifaHoraria, NumeroTarjeta"));
    LoteInsercion &tar =
        pasos.Tabla(QStringLiteral("TARFOPOB"),
                    L("CodigoOperario, Linea, DesdeFecha, HastaFecha, TarifaNormal, TarifaExtra, "
                      "TarifaFestivo, TarifaOtros, TarifaVentaNormal, TarifaVentaExtra, "
                      "TarifaVentaFestivo, TarifaVentaOtros"));
    LoteInsercion &dias =
        pasos.Tabla(QStringLiteral("CALENOPE"),
                    L("CodigoOperario, Fecha, EsDiaTrabajado, EsDiaFestivo, EsDiaVacaciones, "
                      "EsDiaPermiso, EsDiaPuente, NumeroHorario, Situacion"));
    const QDate enero(kAnioDemo, 1, 1);
    for (const OperarioDemo &o : plan.operarios) {
        op.Fila({Entero(o.codigo), Texto(o.nombre), Entero(o.calendario), Entero(o.categoria),
                 Numero(o.tarifas.first().normal, 2), Texto(o.tarjeta)});
        for (const PeriodoTarifa &p : o.tarifas)
            tar.Fila({Entero(o.codigo), Entero(p.linea), Fecha(p.desde), Fecha(p.hasta),
                      Numero(p.normal, 2), Numero(p.extra, 2), Numero(p.festivo, 2),
                      Numero(p.otros, 2), Numero(p.ventaNormal, 2), Numero(p.ventaExtra, 2),
                      Numero(p.ventaFestivo, 2), Numero(p.ventaOtros, 2)});
        for (int i = 0; i < o.dias.size(); ++i) {
            const DiaCalendario &d = o.dias.at(i);
            dias.Fila({Entero(o.codigo), Fecha(enero.addDays(i)), siNo(d.trabajado),
                       siNo(d.festivo), siNo(d.vacaciones), siNo(d.permiso), siNo(d.puente),
                       Entero(1), Texto(d.situacion)});
        }
    }
}

void medios(Pasos &pasos, const PlanDemo &plan) {
    LoteInsercion &m =
        pasos.Tabla(QStringLiteral("MAQUINOB"),
                    L("Codigo, Descripcion, CuotaHoraria1, CuotaHoraria2, CuotaHoraria3, "
                      "CuotaHoraria4, PrecioVenta1, PrecioVenta2, PrecioVenta3, PrecioVenta4"));
    for (const MaquinaDemo &x : plan.maquinas) {
        QStringList v{Texto(x.codigo), Texto(x.descripcion)};
        for (const double c : x.cuota)
            v << Numero(c, 2);
        for (const double c : x.venta)
            v << Numero(c, 2);
        m.Fila(v);
    }
    LoteInsercion &s =
        pasos.Tabla(QStringLiteral("SUBCONTR"),
                    L("Codigo, Descripcion, Precio1, Precio2, Precio3, Precio4, PrecioVenta1, "
                      "PrecioVenta2, PrecioVenta3, PrecioVenta4, CodigoProveedor, FechaAlta, "
                      "TipoIVA, Observaciones"));
    for (const SubcontratoDemo &x : plan.subcontratos) {
        QStringList v{Texto(x.codigo), Texto(x.descripcion)};
        for (const double c : x.precio)
            v << Numero(c, 2);
        for (const double c : x.venta)
            v << Numero(c, 2);
        v << Entero(x.proveedor) << Fecha(x.alta) << Entero(1) << Texto(x.observaciones);
        s.Fila(v);
    }
    LoteInsercion &g =
        pasos.Tabla(QStringLiteral("GRANALIS"), L("Codigo, Descripcion, CategoriaGrupo"));
    for (const FamiliaArticulos &f : FamiliasArticulos())
        g.Fila({Texto(f.codigo), Texto(f.descripcion), Texto(QStringLiteral("FAMILIA"))});
    LoteInsercion &a = pasos.Tabla(
        QStringLiteral("ARTICULO"),
        L("Codigo, Descripcion, PrecioStandard, PrecioCompra, CodigoProveedor, TipoIVA, "
          "TipoIVAAlternativo, UnidadMedida, CodigoAlmacen"));
    LoteInsercion &gt =
        pasos.Tabla(QStringLiteral("GRANTAB"), L("NombreTabla, ClaveTabla, GrupoAnalisis"));
    LoteInsercion &al = pasos.Tabla(QStringLiteral("ALMACEN"), L("CodigoArticulo, CodigoAlmacen"));
    LoteInsercion &ta =
        pasos.Tabla(QStringLiteral("TARIFA"), L("CodigoArticulo, NumeroTarifa, PrecioVenta"));
    for (const ArticuloDemo &x : plan.articulos) {
        a.Fila({Texto(x.codigo), Texto(x.descripcion), Numero(x.precioCompra, 4),
                Numero(x.precioCompra, 4), Entero(x.proveedor), Entero(1), Entero(2),
                Texto(x.unidad), Entero(1)});
        gt.Fila({Texto(QStringLiteral("ARTICULO")), Texto(x.codigo), Texto(x.familia)});
        al.Fila({Texto(x.codigo), Entero(1)});
        ta.Fila({Texto(x.codigo), Entero(1), Numero(x.precioCompra * 1.3, 2)});
    }
}

void presupuestos(Pasos &pasos, const PlanDemo &plan) {
    LoteInsercion &u = pasos.Tabla(
        QStringLiteral("UNIDADOB"),
        L("Codigo, Descripcion, DescripcionAmpliada, Unidad, PorcentajeIVA, PorcentajeRgo"));
    for (const PartidaDemo &p : plan.tarifas.first())
        u.Fila({Texto(p.codigo), Texto(p.descripcion), Texto(p.ampliada), Texto(p.unidad),
                Numero(21, 2), Numero(0, 2)});
    LoteInsercion &t = pasos.Tabla(QStringLiteral("TARFMAQ"), L("Codigo, Descripcion"));
    t.Fila({Entero(1), Texto(QStringLiteral("Tarifa general %1").arg(kAnioDemo))});
    t.Fila({Entero(2), Texto(QStringLiteral("Tarifa obra pública %1").arg(kAnioDemo))});
    LoteInsercion &l = pasos.Tabla(
        QStringLiteral("LTARFMAQ"),
        L("Codigo, CodigoUnidad, Descripcion, DescripcionAmpliada, PrecioCosto, PrecioVenta"));
    for (int lista = 0; lista < plan.tarifas.size(); ++lista)
        for (const PartidaDemo &p : plan.tarifas.at(lista))
            l.Fila({Entero(lista + 1), Texto(p.codigo), Texto(p.descripcion), Texto(p.ampliada),
                    Numero(p.costo, 2), Numero(p.venta, 2)});
    LoteInsercion &c =
        pasos.Tabla(QStringLiteral("COEFICOB"), L("Numero, DesdeBase, HastaBase, Coeficiente"));
    c.Fila({Entero(1), Numero(0, 2), Numero(60000, 2), Numero(1, 6)});
    c.Fila({Entero(2), Numero(60000.01, 2), Numero(300000, 2), Numero(0.98, 6)});
    c.Fila({Entero(3), Numero(300000.01, 2), Numero(99999999, 2), Numero(0.965, 6)});
    LoteInsercion &p = pasos.Tabla(
        QStringLiteral("PARAOBRA"),
        L("IdRegistro, PorGastosIndirectos, PorGastosGenerales, PorSoloGastosGenerales, "
          "PorSoloBenefIndustrial, CoeficienteRevision, DtoRetencionVto, DiasVtoRetencion, "
          "DtoRetencionFactura, CfgDescripcionPresupuesto, CfgDescripcionFactura, "
          "MultiPartes, PartesSeparados, ModificarPartes, AdmPorPorcentajes, "
          "ContadorMultiMarcajes"));
    const QString ambas = Texto(QStringLiteral("Descripcion+DescripcionAmpliada"));
    p.Fila({Entero(1), Numero(5, 2), Numero(19, 2), Numero(13, 6), Numero(6, 6), Numero(1, 4), kNO,
            Entero(0), kNO, ambas, ambas, kSI, kSI, kSI, kSI, kSI});
}

} // namespace

QString EscribirMaestros(const PlanDemo &plan, DestinoSentencias &destino) {
    Pasos pasos(destino);
    monedasYPagos(pasos);
    terceros(pasos, plan);
    personal(pasos, plan);
    medios(pasos, plan);
    presupuestos(pasos, plan);
    return pasos.Fin();
}

QString EscribirObras(const PlanDemo &plan, DestinoSentencias &destino) {
    Pasos pasos(destino);
    LoteInsercion &o = pasos.Tabla(
        QStringLiteral("OBRA"),
        L("Codigo, Descripcion, DescripcionAmpliada, Fecha, Situacion, FechaFinalizacion, "
          "Direccion, CodigoPostal, "
          "Poblacion, Provincia, Telefono, PersonaContacto, CodigoEncargado, CodigoCliente, "
          "NombreCliente, "
          "RazonSocialCliente, DireccionCliente, PoblacionCliente, ProvinciaCliente, PaisCliente, "
          "CodigoPostalCliente, CIF, TelefonoCliente, FAXCliente, CodigoMoneda, NumeroTarifa, "
          "TipoFacturacion, "
          "GastosIndirectos, LlevaCoeficiente, LlevaCoeficienteRevision, CoeficienteRevision, "
          "LlevaGG, "
          "GastosGenerales, SoloGastosGenerales, SoloBeneficioIndustrial, PorBenefMObra, "
          "PorBenefMaterial, "
          "PorBenefMaquinaria, PorBenefSubContratacion, FechaAceptacion, ReferenciaAceptacion, "
          "FechaInicioPrev, "
          "FechaFinalPrev, PlazoEntrega"));
    LoteInsercion &c = pasos.Tabla(QStringLiteral("CAPITULO"),
                                   L("CodigoObra, CodigoCapitulo, Descripcion, Situacion"));
    LoteInsercion &p = pasos.Tabla(
        QStringLiteral("PARTIDA"),
        L("CodigoObra, CodigoCapitulo, Linea, CodigoPartida, Descripcion, "
          "DescripcionAmpliada, Unidad, CantidadPresupuesto, PrecioUCosto, PrecioUVenta, "
          "PorcentajeIVA, PorcentajeRgo"));
    LoteInsercion &f =
        pasos.Tabla(QStringLiteral("FACTROB"),
                    L("NumeroFactura, Fecha, CodigoCliente, CodigoObra, CodigoFPago, CodigoMoneda, "
                      "Cambio, Nombre, RazonSocial, Poblacion, Provincia, Pais, CodigoPostal, "
                      "Direccion, CIF, CoeficienteRevision, SoloGastosGenerales, "
                      "SoloBeneficioIndustrial, GastosGenerales, CodigoEntidad, CodigoSucursal, "
                      "DigitosControl, NumeroCuenta, CodigoIBAN, Estado"));
    for (const ObraDemo &x : plan.obras) {
        const PersonaDemo &cl = plan.clientes.at(x.cliente - 1);
        const QString nula = QStringLiteral("'1899-12-30 00:00:00'");
        const QString plazo =
            QStringLiteral("%1 meses")
                .arg((x.fin.year() - x.inicio.year()) * 12 + x.fin.month() - x.inicio.month());
        o.Fila({Entero(x.codigo),
                Texto(x.descripcion),
                Texto(QStringLiteral("%1. Cliente: %2.").arg(x.descripcion, cl.nombre)),
                Fecha(x.fecha),
                Texto(x.situacion),
                x.finalizacion.isValid() ? Fecha(x.finalizacion) : nula,
                Texto(x.direccion),
                Texto(x.codigoPostal),
                Texto(x.poblacion),
                Texto(x.provincia),
                Texto(x.telefono),
                Texto(x.contacto),
                Entero(x.encargado),
                Entero(cl.codigo),
                Texto(cl.nombre),
                Texto(cl.razonSocial),
                Texto(cl.direccion.left(40)),
                Texto(cl.poblacion),
                Texto(cl.provincia),
                Texto(QStringLiteral("España")),
                Texto(cl.codigoPostal),
                Texto(cl.cif),
                Texto(cl.telefono),
                Texto(cl.fax),
                Entero(1),
                Entero(x.tarifa),
                Texto(x.tipoFacturacion),
                Numero(x.gastosIndirectos, 2),
                kNO,
                Texto(x.llevaCoeficienteRevision),
                Numero(x.coeficienteRevision, 4),
                Texto(x.llevaGG),
                Numero(x.gastosGenerales, 2),
                Numero(x.soloGG, 2),
                Numero(x.soloBI, 2),
                Numero(15, 2),
                Numero(20, 2),
                Numero(10, 2),
                Numero(8, 2),
                x.aceptacion.isValid() ? Fecha(x.aceptacion) : nula,
                Texto(x.aceptacion.isValid() ? QStringLiteral("PRES-%1").arg(x.codigo) : QString()),
                Fecha(x.inicio),
                Fecha(x.fin),
                Texto(plazo)});
        for (const CapituloDemo &cap : x.capitulos) {
            c.Fila({Entero(x.codigo), Entero(cap.codigo), Texto(cap.descripcion),
                    Texto(cap.situacion)});
            for (const PartidaDemo &l : cap.partidas)
                p.Fila({Entero(x.codigo), Entero(cap.codigo), Entero(l.linea), Texto(l.codigo),
                        Texto(l.descripcion), Texto(l.ampliada), Texto(l.unidad),
                        Numero(l.cantidad, 2), Numero(l.costo, 2), Numero(l.venta, 2),
                        Numero(21, 2), Numero(0, 2)});
        }
        if (x.factura > 0)
            f.Fila({Entero(x.factura),
                    Fecha(x.activaDesde.addMonths(1).addDays(-x.activaDesde.addMonths(1).day())),
                    Entero(cl.codigo),
                    Entero(x.codigo),
                    Entero(cl.formaPago),
                    Entero(1),
                    Numero(1, 6),
                    Texto(cl.nombre),
                    Texto(cl.razonSocial),
                    Texto(cl.poblacion),
                    Texto(cl.provincia),
                    Texto(QStringLiteral("España")),
                    Texto(cl.codigoPostal),
                    Texto(cl.direccion),
                    Texto(cl.cif),
                    Numero(x.coeficienteRevision, 4),
                    Numero(x.soloGG, 2),
                    Numero(x.soloBI, 2),
                    Numero(x.gastosGenerales, 2),
                    Texto(cl.entidad),
                    Texto(cl.sucursal),
                    Texto(cl.digitosControl),
                    Texto(cl.cuenta),
                    Texto(QString()),
                    Texto(QStringLiteral("Pendiente"))});
    }
    return pasos.Fin();
}

} // namespace co::demo
