#include "core/general_parameters.h"

namespace co {
namespace {

QString S(const char *text) {
    return QString::fromUtf8(text);
}

} // namespace

const QList<PaginaParametros> &PaginasPARAGENE() {
    static const QList<PaginaParametros> pages = {
        {S("PagGeneral"),
         {S("CaracterSeparadorASCII"), S("SolicitarCamposUsuario"), S("CaracterSeparadorCRLF"),
          S("PlantillaNumericaStd"), S("ListarRestricciones"), S("ValidarEntidadSucursal")}},
        {S("PagEmpresa"),
         {S("RazonSocial"), S("Direccion"), S("CodigoPostal"), S("Poblacion"), S("Provincia"),
          S("Telefono"), S("CIF"), S("CodigoPlaza"), S("CodigoProvincia"), S("NombreRepresentante"),
          S("CIFRepresentante"), S("TituloRepresentante"), S("PersonaContacto"), S("FAX"),
          S("DatosRegistroMercantil"), S("DirecCorreoElectronico")}},
        {S("PagTiposIVA"),
         {S("Iva1"), S("Iva2"), S("Iva3"), S("Iva4"), S("Iva5"), S("Recargo1"), S("Recargo2"),
          S("Recargo3"), S("Recargo4"), S("Recargo5")}},
        {S("PagImpresoras"),
         {S("MargenIzquierdoImpresora"), S("TipoCombinacionTramas"), S("SolicitarDialogoImpresora"),
          S("FmtVisualizacionPrevia"), S("TipoLetraListados"), S("FCompresionListados"),
          S("FCompresionTLetraListados"), S("PrevisualizacionSinRegla")}},
        {S("PagVentas"),
         {S("DtosCascadaVenta"), S("IVARgoFinanciacionVenta"), S("TipoIVAPortesVenta"),
          S("PrioridadDtosLineaVenta"), S("NumeroDtosLineaVenta"), S("IncorporarDAmpliadaVenta"),
          S("TipoPortesVenta"), S("PortesPagadosDesdeVenta"), S("IncluirPortesEnDtosVenta"),
          S("TarifaEnMonedaOriginal"), S("TipoComision"), S("CantidadUdAltVenta"),
          S("UdAltVentaEnPedido")}},
        {S("PagCompras"),
         {S("DtosCascadaCompra"), S("IVARgoFinanciacionCompra"), S("TipoIVAPortesCompra"),
          S("PrioridadDtosLineaCompra"), S("NumeroDtosLineaCompra"), S("IncorporarDAmpliadaCompra"),
          S("CantidadUdAltCompra")}},
        {S("PagInternacional"),
         {S("CodigoMonedaBase"), S("CodigoMonedaEuro"), S("CodigoMonedaNacional"), S("Idiomas")}},
        {S("PagIntrastat"),
         {S("DireccionTercero"), S("CodigoPostalTercero"), S("PoblacionTercero"),
          S("ProvinciaTercero"), S("NombreTercero"), S("CIFTercero"), S("DireccionOfIntrastat"),
          S("CodigoPostalOfIntrastat"), S("PoblacionOfIntrastat"), S("ProvinciaOfIntrastat"),
          S("NombreOfIntrastat"), S("CodigoOfIntrastat"), S("IntrastatActivado")}},
        {S("PagGruposAnalisis"), {S("PerfilesCategoriasGA")}},
        {S("PagPlantillas"), {S("PlantillaNumericaExt")}},
        {S("TabSheet1"), {S("CfgCorreoElectronico"), S("TextoEMailEnvioDocs")}},
        {S("PagCertificados"),
         {S("TipoUbicacionCertificado"), S("HuellaDigitalCertificado"),
          S("PosicionCertificadoFirma")}},
    };
    return pages;
}

const QList<QPair<QString, QVariant>> &ValoresInicialesPARAGENE() {
    static const QList<QPair<QString, QVariant>> defaults = {
        {S("IdRegistro"), 1},
        {S("CaracterSeparadorASCII"), S("@")},
        {S("PlantillaNumericaStd"), S(kPlantillaNumericaStdPorDefecto)},
        {S("MargenIzquierdoImpresora"), 0.0},
        {S("TipoCombinacionTramas"), S("Standard")},
        {S("SolicitarDialogoImpresora"), S("SI")},
        {S("FmtVisualizacionPrevia"), S("Normal")},
        {S("TipoLetraListados"), S("Por Defecto")},
        {S("FCompresionListados"), 1.0},
        {S("FCompresionTLetraListados"), 1.0},
        {S("DtosCascadaVenta"), S("SI")},
        {S("IVARgoFinanciacionVenta"), S("NO")},
        {S("TipoIVAPortesVenta"), 1},
        {S("NumeroDtosLineaVenta"), 1},
        {S("IncorporarDAmpliadaVenta"), S("SI")},
        {S("TipoPortesVenta"), S("Debidos")},
        {S("PortesPagadosDesdeVenta"), 0.0},
        {S("IncluirPortesEnDtosVenta"), S("NO")},
        {S("CantidadUdAltVenta"), S("NO")},
        {S("UdAltVentaEnPedido"), S("NO")},
        {S("DtosCascadaCompra"), S("SI")},
        {S("IVARgoFinanciacionCompra"), S("NO")},
        {S("TipoIVAPortesCompra"), 1},
        {S("NumeroDtosLineaCompra"), 1},
        {S("IncorporarDAmpliadaCompra"), S("SI")},
        {S("CantidadUdAltCompra"), S("NO")},
        {S("Idiomas"), S("Castellano\r\nFrances\r\nIngles\r\nItaliano\r\nPortugues\r\nAleman\r\n"
                         "Catalan\r\nEuskera\r\nGallego")},
        {S("IntrastatActivado"), S("NO")},
        {S("PerfilesCategoriasGA"),
         S("Articulo=Familia\r\nCliente=Zona,Sector,Segmento\r\nProveedor=Zona,Sector,Segmento\r\n"
           "Cuenta=Zona,Sector,Segmento\r\nProceso=Planificacion")},
        {S("TextoEMailEnvioDocs"),
         S("Adjunto le remitimos Nuestro Documento de $TipoDocumento$ N.$NumeroDocumento$\r\n\r\n"
           "$FirmaEmpresa$\r\n\r\n$InformacionVerificacionFirma$\r\n\r\n$PublicidadNARO$")},
    };
    return defaults;
}

QStringList OpcionesCampoPARAGENE(const QString &campo) {
    if (campo == u"TipoCombinacionTramas")
        return {S("Standard"), S("Basica"), S("Combinada"), S("Blanco y Negro")};
    if (campo == u"FmtVisualizacionPrevia")
        return {S("Normal"), S("Pagina Completa"), S("Ancho Ajustado")};
    if (campo == u"PlantillaNumericaStd")
        return {S(kPlantillaNumericaStdPorDefecto), S("#,###.####"), S("#.##"), S("0.##"),
                S("Ninguna")};
    return {};
}

QString ComprobarGrabacionPARAGENE(QVariantHash &registro) {
    const QVariant std = registro.value(QStringLiteral("PlantillaNumericaStd"));
    if (std.isNull() || std.toString().isEmpty())
        registro.insert(QStringLiteral("PlantillaNumericaStd"), S(kPlantillaNumericaStdPorDefecto));
    const QVariant euro = registro.value(QStringLiteral("CodigoMonedaEuro"));
    const QVariant nacional = registro.value(QStringLiteral("CodigoMonedaNacional"));
    // Two unset currencies are not the same currency; code 0 names none (a new
    // record's numeric fields start at 0 on some back-ends).
    auto fijada = [](const QVariant &codigo) {
        return !codigo.isNull() && !codigo.toString().isEmpty() && codigo.toLongLong() != 0;
    };
    if (fijada(euro) && fijada(nacional) && euro.toLongLong() == nacional.toLongLong())
        return S("¡La Moneda Nacional y la Moneda Euro no pueden ser la misma!");
    return {};
}

} // namespace co
