#include "core/main_menu.h"

#include "core/text_utils.h"

namespace co {
namespace {

const QString kMaestros = QStringLiteral("&Maestros");
const QString kPartes = QStringLiteral("&Partes");
const QString kFacturacion = QStringLiteral("&Facturación");
const QString kListados = QStringLiteral("&Listados");
const QString kUtilidades = QStringLiteral("&Utilidades");

EntradaMenu e(const char *componente, const char *caption, const char *formulario, const QString &grupo,
              bool derechos = true) {
    return {QString::fromUtf8(componente), QString::fromUtf8(caption), QString::fromUtf8(formulario), grupo, derechos};
}

} // namespace

const QList<EntradaMenu> &EntradasMenuPrincipal() {
    static const QList<EntradaMenu> entradas = {
        e("ControldeObras1", "Control de Obras", "fOBRAPARA", kUtilidades),
        e("MaestrodeObras1", "Maestro de Obras", "fOBRAOBRA", kMaestros),
        e("MaestrodeClientes1", "Maestro de Clientes", "fFACTCLIE", kMaestros),
        e("MaestrodeProveedores1", "Maestro de Proveedores", "fCCOMPROV", kMaestros),
        e("MaestrodeOperarios1", "Maestro de Operarios", "fPRESOPER", kMaestros),
        e("IntroduccindePartesdeTrabajo1", "Introducción de Partes de Trabajo", "fOBRAPTRA", kPartes),
        e("IntroduccindePartesdeMateriales1", "Introducción de Partes de Materiales", "fOBRAPMAT", kPartes),
        e("IntroduccindePartesdeMquina1", "Introducción de Partes de Máquina", "fOBRAPMAQ", kPartes),
        e("IntroduccindePartesdeSubContratacin1", "Introducción de Partes de Subcontratación", "fOBRAPSUB", kPartes),
        e("IntroduccindePartesConjuntos1", "Introducción de Partes Conjuntos", "fOBRAMULT", kPartes),
        e("MaestrodeMateriales1", "Maestro de Materiales", "fALMAARTI", kMaestros),
        e("MaestrodeMaquinas1", "Maestro de Maquinas", "fOBRAMAQU", kMaestros),
        e("MaestrodeSubContrataciones1", "Maestro de Subcontrataciones", "fOBRASUBC", kMaestros),
        e("MaestrodeFormasdePago1", "Maestro de Formas de Pago", "fFACTPAGO", kMaestros),
        e("MaestrodeUnidades1", "Maestro de Unidades", "fOBRAUNID", kMaestros),
        e("MaestrodeTarifas1", "Maestro de Tarifas", "fOBRATARI", kMaestros),
        e("MaestrodeTarifasdeOperarios1", "Maestro de Tarifas de Operarios", "fOBRATOPE", kMaestros),
        e("MaestrodeCategorias1", "Maestro de Categorias", "fNOMICATE", kMaestros),
        e("MaestrodeIncidencias1", "Maestro de Incidencias", "fOBRAINCI", kMaestros),
        e("MaestrodeEntidadesySucursales1", "Maestro de Entidades y Sucursales", "fEFECENTI", kMaestros),
        e("MaestrodeMonedas1", "Maestro de Monedas", "fFACTMONE", kMaestros),
        e("MaestrodeCoeficientes1", "Maestro de Coeficientes", "fOBRACOEF", kMaestros),
        e("MaestrodeGruposdeAnalisis1", "Maestro de Grupos de Analisis", "fGENEGANA", kMaestros),
        e("EspecificacionesGrupoAnalisisMaquinaCliente1", "Especificaciones Grupo Analisis Maquina-Cliente", "fOBRAESPE",
          kMaestros),
        e("IntroduccindeFacturas1", "Introducción de Facturas", "fOBRAFACT", kFacturacion),
        e("HistoricodeFacturas1", "Historico de Facturas", "fFACTHFAC", kFacturacion),
        e("ListadodeRecibos1", "Listado de Recibos", "fEFECLREC", kFacturacion),
        e("deClientes1", "de Clientes (Enlace Contable)", "fFACTTCLI", kFacturacion),
        e("deFacturasdeVenta1", "de Facturas de Venta (Enlace Contable)", "fFACTENCO", kFacturacion),
        e("deProveedores1", "de Proveedores (Enlace Contable)", "fCCOMTPRO", kFacturacion),
        e("ListadodelDiariodeVentas1", "Listado del Diario de Ventas", "fFACTLDVE", kFacturacion),
        e("PartesdeTrabajo1", "de Trabajo (Listado de Partes)", "fOBRALPTR", kListados),
        e("PartesdeMateriales1", "de Materiales (Listado de Partes)", "fOBRALPMT", kListados),
        e("PartesdeMaquina1", "de Máquina (Listado de Partes)", "fOBRALPMQ", kListados),
        e("PartesdeSubContratacion1", "de Subcontratación (Listado de Partes)", "fOBRALPSB", kListados),
        e("InformeResumendeObrasCapitulos1", "Informe Resumen de Obra-Capítulo", "fOBRALRES", kListados),
        e("AnalisisdeObrasCapitulo1", "Análisis de Obras", "fOBRALCOS", kListados),
        e("InformedeIncidencias1", "Informe de Incidencias", "fOBRALINC", kListados),
        e("ListadodeTarifas1", "Listado de Tarifas", "fOBRALTAR", kListados),
        e("ListadodeEtiquetasdeClientes1", "Listado de Etiquetas de Clientes", "fFACTECLI", kListados),
        e("ListadodeEtiquetasdeProveedores1", "Listado de Etiquetas de Proveedores", "fCCOMEPRO", kListados),
        e("IntercambiodeCodigosdeOperario1", "Intercambio de Codigos de Operario", "fPRESIOPE", kUtilidades),
        e("IntercambiodeCodigosdeMaquina1", "Intercambio de Codigos de Maquina", "fOBRAIMAQ", kUtilidades),
        e("Globales1", "&Globales", "fGENEPARA", kUtilidades, false),
        e("ConsultasSQL1", "Consultas &SQL", "fGENECSQL", kUtilidades, false),
    };
    return entradas;
}

QStringList GruposMenuPrincipal() {
    return {QStringLiteral("&Archivo"), kMaestros, kPartes, kFacturacion, kListados, kUtilidades, QStringLiteral("A&yuda")};
}

MenuPrincipal::MenuPrincipal(AnfitrionVentanas &anfitrion, Derechos derechos, Aviso aviso, Actividad actividad)
    : anfitrion_(anfitrion), derechos_(std::move(derechos)), aviso_(std::move(aviso)), actividad_(std::move(actividad)) {}

QString MenuPrincipal::TextoNoDisponible(const QString &programa) {
    return QStringLiteral("¡El programa '%1' no está disponible en esta versión!").arg(programa);
}

bool MenuPrincipal::Ejecutar(const QString &componente) {
    for (const EntradaMenu &entrada : EntradasMenuPrincipal()) {
        if (entrada.componente != componente)
            continue;
        const QString programa = SinAmpersand(entrada.caption);
        if (entrada.pruebaDerechos && derechos_ && !derechos_(programa))
            return false;
        if (!AbrirFormulario(entrada.formulario, QString(), entrada.formulario)) {
            if (aviso_)
                aviso_(TextoNoDisponible(programa));
            return false;
        }
        return true;
    }
    return false;
}

bool MenuPrincipal::AbrirFormulario(const QString &formulario, const QString &opciones, const QString &nombre) {
    const QList<AnfitrionVentanas::Ventana> abiertas = anfitrion_.ventanas();
    const AnfitrionVentanas::Ventana *encontrada = nullptr;
    for (auto it = abiertas.crbegin(); it != abiertas.crend(); ++it)
        if (it->nombre.section(u'_', 0, 0) == nombre) {
            encontrada = &*it;
            break;
        }
    auto log = [&](const QString &accion) {
        if (actividad_)
            actividad_(nombre, accion);
    };
    if (opciones.contains(QStringLiteral("Create"))) {
        // A window that keeps a pending record stays, and no second one opens.
        if (encontrada && !anfitrion_.cerrar(encontrada->nombre))
            return false;
    } else if (encontrada) {
        if (encontrada->minimizada) {
            anfitrion_.restaurar(encontrada->nombre);
            log(QStringLiteral("Restore"));
        } else {
            anfitrion_.mostrar(encontrada->nombre);
            log(QStringLiteral("Show"));
        }
        return true;
    }
    if (!anfitrion_.crear(formulario, nombre))
        return false;
    log(QStringLiteral("Create"));
    return true;
}

void MenuPrincipal::PrimeraActivacion(const QStringList &programasActivos) {
    for (const EntradaMenu &entrada : EntradasMenuPrincipal())
        if (programasActivos.contains(SinAmpersand(entrada.caption)))
            Ejecutar(entrada.componente);
}

QStringList MenuPrincipal::VentanasQueCierraCambioEmpresa(const QStringList &ventanas) {
    static const QStringList mueren = {QStringLiteral("fGENEUSQL"), QStringLiteral("fGENECINF"),
                                       QStringLiteral("fGENEMTEX"), QStringLiteral("fGENEUINF")};
    QStringList out;
    for (const QString &v : ventanas) {
        const QString base = v.section(u'_', 0, 0);
        if (!v.startsWith(QStringLiteral("fGE")) || mueren.contains(base))
            out << v;
    }
    return out;
}

} // namespace co
