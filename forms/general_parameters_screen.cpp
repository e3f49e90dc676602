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
            d.controles.append(ControlFicha{campo, EtiquetaCampo(campo),
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
