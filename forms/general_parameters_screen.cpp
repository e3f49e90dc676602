#include "forms/general_parameters_screen.h"

#include "core/general_parameters.h"
#include "core/session.h"
#include "forms/dataset_errors.h"
#include "forms/pick_list_check.h"

#include <QHash>
#include <QSet>

namespace co::forms {

namespace {

// The tabs' captions, by page.
QString tituloPagina(const QString &pagina) {
    static const QHash<QString, QString> titulos = {
        {QStringLiteral("PagGeneral"), QStringLiteral("General")},
        {QStringLiteral("PagEmpresa"), QStringLiteral("Empresa")},
        {QStringLiteral("PagTiposIVA"), QStringLiteral("Tipos IVA")},
        {QStringLiteral("PagImpresoras"), QStringLiteral("Impresoras")},
        {QStringLiteral("PagVentas"), QStringLiteral("Ventas")},
        {QStringLiteral("PagCompras"), QStringLiteral("Compras")},
        {QStringLiteral("PagInternacional"), QStringLiteral("Internacional")},
        {QStringLiteral("PagIntrastat"), QStringLiteral("Intrastat")},
        {QStringLiteral("PagGruposAnalisis"), QStringLiteral("Grupos Análisis")},
        {QStringLiteral("PagPlantillas"), QStringLiteral("Plantillas")},
        {QStringLiteral("TabSheet1"), QStringLiteral("Correo Electrónico")},
        {QStringLiteral("PagCertificados"), QStringLiteral("Certificados")},
    };
    return titulos.value(pagina, pagina);
}

// The labels beside the fields; a field not named here shows its name in words.
QString etiqueta(const QString &campo) {
    static const QHash<QString, QString> etiquetas = [] {
        QHash<QString, QString> e;
        const char *pares[][2] = {
            {"CaracterSeparadorASCII", "Carácter Separador ASCII"},
            {"SolicitarCamposUsuario", "Solicitar Campos de Usuario"},
            {"CaracterSeparadorCRLF", "Carácter Separador CR/LF"},
            {"PlantillaNumericaStd", "Plantilla Numérica Estándar"},
            {"ValidarEntidadSucursal", "Validar Entidad/Sucursal"},
            {"RazonSocial", "Razón Social"},
            {"Direccion", "Dirección"},
            {"CodigoPostal", "Código Postal"},
            {"Poblacion", "Población"},
            {"Telefono", "Teléfono"},
            {"CodigoPlaza", "Código Plaza"},
            {"CodigoProvincia", "Código Provincia"},
            {"CIFRepresentante", "CIF Representante"},
            {"TituloRepresentante", "Título Representante"},
            {"PersonaContacto", "Persona de Contacto"},
            {"DirecCorreoElectronico", "Correo Electrónico"},
            {"MargenIzquierdoImpresora", "Margen Izquierdo"},
            {"TipoCombinacionTramas", "Combinación de Tramas"},
            {"SolicitarDialogoImpresora", "Solicitar Diálogo de Impresora"},
            {"FmtVisualizacionPrevia", "Visualización Previa"},
            {"TipoLetraListados", "Tipo de Letra de Listados"},
            {"FCompresionListados", "Compresión de Listados"},
            {"FCompresionTLetraListados", "Compresión de Letra de Listados"},
            {"PrevisualizacionSinRegla", "Previsualización sin Regla"},
            {"DtosCascadaVenta", "Descuentos en Cascada"},
            {"IVARgoFinanciacionVenta", "IVA y Recargo en Financiación"},
            {"TipoIVAPortesVenta", "Tipo IVA de Portes"},
            {"PrioridadDtosLineaVenta", "Prioridad Dtos. de Línea"},
            {"NumeroDtosLineaVenta", "Número Dtos. de Línea"},
            {"IncorporarDAmpliadaVenta", "Incorporar Descripción Ampliada"},
            {"TipoPortesVenta", "Tipo de Portes"},
            {"PortesPagadosDesdeVenta", "Portes Pagados desde"},
            {"IncluirPortesEnDtosVenta", "Incluir Portes en Descuentos"},
            {"TarifaEnMonedaOriginal", "Tarifa en Moneda Original"},
            {"TipoComision", "Tipo de Comisión"},
            {"CantidadUdAltVenta", "Cantidad en Ud. Alternativa"},
            {"UdAltVentaEnPedido", "Ud. Alternativa en Pedido"},
            {"DtosCascadaCompra", "Descuentos en Cascada"},
            {"IVARgoFinanciacionCompra", "IVA y Recargo en Financiación"},
            {"TipoIVAPortesCompra", "Tipo IVA de Portes"},
            {"PrioridadDtosLineaCompra", "Prioridad Dtos. de Línea"},
            {"NumeroDtosLineaCompra", "Número Dtos. de Línea"},
            {"IncorporarDAmpliadaCompra", "Incorporar Descripción Ampliada"},
            {"CantidadUdAltCompra", "Cantidad en Ud. Alternativa"},
            {"CodigoMonedaBase", "Moneda Base"},
            {"CodigoMonedaEuro", "Moneda Euro"},
            {"CodigoMonedaNacional", "Moneda Nacional"},
            {"DireccionTercero", "Dirección Tercero"},
            {"CodigoPostalTercero", "Código Postal Tercero"},
            {"PoblacionTercero", "Población Tercero"},
            {"CIFTercero", "CIF Tercero"},
            {"DireccionOfIntrastat", "Dirección Of. Intrastat"},
            {"CodigoPostalOfIntrastat", "Código Postal Of. Intrastat"},
            {"PoblacionOfIntrastat", "Población Of. Intrastat"},
            {"ProvinciaOfIntrastat", "Provincia Of. Intrastat"},
            {"NombreOfIntrastat", "Nombre Of. Intrastat"},
            {"CodigoOfIntrastat", "Código Of. Intrastat"},
            {"PerfilesCategoriasGA", "Perfiles de Categorías"},
            {"PlantillaNumericaExt", "Plantillas Numéricas"},
            {"CfgCorreoElectronico", "Configuración del Correo"},
            {"TextoEMailEnvioDocs", "Texto del Envío de Documentos"},
            {"TipoUbicacionCertificado", "Ubicación del Certificado"},
            {"HuellaDigitalCertificado", "Huella Digital del Certificado"},
            {"PosicionCertificadoFirma", "Posición de la Firma"},
        };
        for (const auto &[campo, texto] : pares)
            e.insert(QString::fromLatin1(campo), QString::fromUtf8(texto));
        for (int i = 1; i <= 5; ++i) {
            e.insert(QStringLiteral("Iva%1").arg(i), QStringLiteral("% IVA %1").arg(i));
            e.insert(QStringLiteral("Recargo%1").arg(i), QStringLiteral("% Recargo %1").arg(i));
        }
        return e;
    }();
    return etiquetas.value(campo, EtiquetaCampo(campo));
}

// The fields that hold several lines: key=value blocks and texts.
bool esMemo(const QString &campo) {
    static const QSet<QString> memos = {
        QStringLiteral("Idiomas"), QStringLiteral("PerfilesCategoriasGA"),
        QStringLiteral("PlantillaNumericaExt"), QStringLiteral("CfgCorreoElectronico"),
        QStringLiteral("TextoEMailEnvioDocs")};
    return memos.contains(campo);
}

DeclaracionFicha declaracion() {
    DeclaracionFicha d{QStringLiteral("fGENEPARA"),
                       QStringLiteral("Parámetros Generales"),
                       QStringLiteral("PARAGENE"),
                       {},
                       {},
                       true};
    for (const PaginaParametros &p : PaginasPARAGENE()) {
        d.paginas.append(PaginaFicha{p.pagina, tituloPagina(p.pagina)});
        for (const QString &campo : p.campos)
            d.controles.append(ControlFicha{campo, etiqueta(campo),
                                            OpcionesCampoPARAGENE(campo), p.pagina, esMemo(campo)});
    }
    return d;
}

} // namespace

TfGENEPARA::TfGENEPARA(TModuloDatos &datos) : MaestroFicha(datos, declaracion()) {
    // One row only: appending is refused once it exists; deleting always.
    AlEvento(Table1(), EventoDatos::BeforeInsert, [this](Component *) {
        if (!Table1().IsEmpty())
            Abort();
    });
    SetHandler(NombreManejador(Table1(), EventoDatos::BeforeDelete), [](Component *) { Abort(); });
    AlEvento(Table1(), EventoDatos::AfterPost, [this](Component *) {
        if (AlGrabar)
            AlGrabar();
    });
}

void TfGENEPARA::DespuesAbrir() {
    if (!Table1().IsEmpty())
        return;
    Table1().Append();
    for (const auto &[campo, valor] : ValoresInicialesPARAGENE())
        Table1().FieldByName(campo).SetValue(valor);
    Table1().Post();
}

void TfGENEPARA::AntesGrabar() {
    QVariantHash registro;
    for (int i = 0; i < Table1().FieldCount(); ++i) {
        const Field &f = Table1().FieldByIndex(i);
        registro.insert(f.FieldName(), f.Value());
    }
    const QString rechazo = ComprobarGrabacionPARAGENE(registro);
    if (!rechazo.isEmpty()) {
        Mensajes().MensajeA(rechazo);
        Abort();
    }
    // The rules may have filled the standard template in.
    Field &estandar = Table1().FieldByName(QStringLiteral("PlantillaNumericaStd"));
    const QVariant nueva = registro.value(QStringLiteral("PlantillaNumericaStd"));
    if (estandar.Value() != nueva)
        estandar.SetValue(nueva);
}

} // namespace co::forms
