#include "demo/demo_company.h"

#include "core/connection_words.h"
#include "core/general_parameters_table.h"
#include "core/sql_text.h"
#include "demo/masters_writer.h"

#include <QVariantHash>

namespace co::demo {
namespace {

// Parameter rows that opening a screen makes by itself do not count as data.
bool tablaDeParametros(const QString &tabla) {
    return tabla == u"PARAGENE" || tabla == u"PARAOBRA" || tabla == u"MONEDA";
}

QVariantHash parametrosGenerales(const PlanDemo &plan) {
    return {
        {QStringLiteral("RazonSocial"), plan.nombreEmpresa},
        {QStringLiteral("Direccion"), plan.direccionEmpresa},
        {QStringLiteral("CodigoPostal"), plan.codigoPostalEmpresa},
        {QStringLiteral("Poblacion"), plan.poblacionEmpresa},
        {QStringLiteral("Provincia"), plan.provinciaEmpresa},
        {QStringLiteral("Telefono"), plan.telefonoEmpresa},
        {QStringLiteral("CIF"), plan.cifEmpresa},
        {QStringLiteral("DirecCorreoElectronico"), plan.correoEmpresa},
        {QStringLiteral("ValidarEntidadSucursal"), QStringLiteral("SI")},
        {QStringLiteral("Iva1"), 21.0},
        {QStringLiteral("Iva2"), 10.0},
        {QStringLiteral("Iva3"), 4.0},
        {QStringLiteral("Iva4"), 0.0},
        {QStringLiteral("Iva5"), 0.0},
        {QStringLiteral("Recargo1"), 5.2},
        {QStringLiteral("Recargo2"), 1.4},
        {QStringLiteral("Recargo3"), 0.5},
        {QStringLiteral("Recargo4"), 0.0},
        {QStringLiteral("Recargo5"), 0.0},
        {QStringLiteral("CodigoMonedaBase"), 1},
        {QStringLiteral("CodigoMonedaEuro"), 1},
    };
}

QString escribir(TModuloDatos &datos, const PlanDemo &plan, double escala, bool vaciar,
                 RecuentoPartes *recuento) {
    if (vaciar) {
        for (const QString &tabla : TablasDemo()) {
            const QString r = datos.EjecutarSQL(QStringLiteral("DELETE FROM ") + tabla, {},
                                                QStringLiteral("Silenciosa"));
            if (EsResultadoError(r))
                return r;
        }
    }
    if (!GrabarParametrosGenerales(datos, parametrosGenerales(plan)))
        return QStringLiteral("¡No ha sido posible grabar los parámetros generales de la empresa!");
    DestinoModuloDatos destino(datos);
    QString r = EscribirMaestros(plan, destino);
    if (r.isEmpty())
        r = EscribirObras(plan, destino);
    if (r.isEmpty())
        r = EscribirPartes(plan, escala, destino, recuento);
    return r;
}

} // namespace

const QStringList &TablasDemo() {
    static const QStringList tablas{
        QStringLiteral("PARAGENE"), QStringLiteral("MONEDA"),   QStringLiteral("FPAGO"),
        QStringLiteral("ENTIDAD"),  QStringLiteral("CLIENTE"),  QStringLiteral("PROVEEDR"),
        QStringLiteral("CATEGORI"), QStringLiteral("INCIDENC"), QStringLiteral("HORARIO"),
        QStringLiteral("CALENDAR"), QStringLiteral("OPERARIO"), QStringLiteral("TARFOPOB"),
        QStringLiteral("CALENOPE"), QStringLiteral("MAQUINOB"), QStringLiteral("SUBCONTR"),
        QStringLiteral("GRANALIS"), QStringLiteral("ARTICULO"), QStringLiteral("GRANTAB"),
        QStringLiteral("ALMACEN"),  QStringLiteral("TARIFA"),   QStringLiteral("UNIDADOB"),
        QStringLiteral("TARFMAQ"),  QStringLiteral("LTARFMAQ"), QStringLiteral("COEFICOB"),
        QStringLiteral("PARAOBRA"), QStringLiteral("OBRA"),     QStringLiteral("CAPITULO"),
        QStringLiteral("PARTIDA"),  QStringLiteral("FACTROB"),  QStringLiteral("PARTEOB"),
        QStringLiteral("PARMATOB"), QStringLiteral("MOVIMTO"),  QStringLiteral("PARMAQOB"),
        QStringLiteral("PARSUBOB"), QStringLiteral("MULTPOB"),  QStringLiteral("LMULTPOB"),
        QStringLiteral("LFACTROB"),
    };
    return tablas;
}

bool CrearEmpresaDemo(TModuloDatos &datos, const OpcionesDemo &opciones, RecuentoPartes *recuento,
                      QString *motivo) {
    auto refusar = [&](const QString &texto) {
        if (motivo)
            *motivo = texto;
        return false;
    };
    if (!(opciones.escala > 0) || opciones.escala > kEscalaMaxima)
        return refusar(
            QStringLiteral("¡La escala debe ser un número mayor que 0 y no mayor que %1!")
                .arg(kEscalaMaxima));
    TfGENEINIC &sesion = datos.sesion();
    const int empresa = sesion.CodigoEmpresa;
    // Counting makes the missing tables too, before the transaction: a
    // statement that fails inside one spoils it on PostgreSQL.
    QStringList conDatos;
    for (const QString &tabla : TablasDemo()) {
        const QString r = datos.EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM ") + tabla, {},
                                            QStringLiteral("Silenciosa"));
        if (EsResultadoError(r))
            return refusar(
                QStringLiteral("¡No ha sido posible leer la tabla %1!. Motivo: %2").arg(tabla, r));
        if (!tablaDeParametros(tabla) && r.trimmed() != u"0")
            conDatos << tabla;
    }
    if (!conDatos.isEmpty() && !opciones.forzar)
        return refusar(
            QStringLiteral("¡La empresa %1 ya tiene datos (%2)! No se ha modificado nada. "
                           "Use --forzar para vaciarla y crear de nuevo los datos de demostración.")
                .arg(empresa)
                .arg(conDatos.join(QStringLiteral(", "))));
    const PlanDemo plan = CrearPlan(opciones.semilla);
    {
        TransaccionGuard transaccion(sesion);
        if (!transaccion.ok())
            return refusar(QStringLiteral("¡No ha sido posible iniciar la transacción!"));
        RecuentoPartes propio;
        const QString r =
            escribir(datos, plan, opciones.escala, true, recuento ? recuento : &propio);
        if (!r.isEmpty())
            return refusar(
                QStringLiteral(
                    "¡No se han podido crear los datos de demostración! No se ha modificado "
                    "nada. Motivo: ") +
                r);
        if (!transaccion.commit())
            return refusar(
                QStringLiteral("¡ La transacción no ha sido completada !. Inténtelo de nuevo."));
    }
    const QString nombre = datos.EjecutarSQL(
        QStringLiteral("UPDATE EMPRESA SET Nombre = ") + Entrecomillar(plan.nombreEmpresa) +
            QStringLiteral(", Abreviatura = ") + Entrecomillar(plan.abreviaturaEmpresa) +
            QStringLiteral(" WHERE Codigo = ") + QString::number(empresa),
        kConexionGeneral, QStringLiteral("Silenciosa"));
    if (EsResultadoError(nombre))
        return refusar(QStringLiteral("¡No ha sido posible dar nombre a la empresa %1!. Motivo: %2")
                           .arg(empresa)
                           .arg(nombre));
    sesion.NombreEmpresa = plan.nombreEmpresa;
    return true;
}

} // namespace co::demo
