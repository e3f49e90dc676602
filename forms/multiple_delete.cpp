#include "forms/multiple_delete.h"

#include "core/connection_words.h"
#include "core/sql_text.h"
#include "forms/table.h"

namespace co::forms {

void EliminacionMultiple(Dataset &dataset, Messenger &m) {
    if (m.MensajeC(QStringLiteral(
            "¡Esta opción elimina todos los registros activos de la tabla!. Puede utilizar "
            "previamente la opción Filtrar Registros del Menú Ficha para limitar los registros")) !=
        u"SI")
        return;
    if (m.MensajeC(QStringLiteral(
            "¿Está Vd. realmente seguro de querer eliminar todos los registros activos de la "
            "tabla?")) != u"SI")
        return;
    try {
        dataset.First();
        while (!dataset.IsEmpty() && !dataset.Eof())
            dataset.Delete();
    } catch (const EAbort &) {
        m.MensajeA(QStringLiteral("¡Imposible eliminar el registro!"));
    } catch (const EDatabaseError &) {
        m.MensajeA(QStringLiteral("¡Imposible eliminar el registro!"));
    }
}

QString ClaveAdjuntos(TModuloDatos &datos, Table &table) {
    QString clave = datos.ValorClave(table);
    if (clave.endsWith(u';'))
        clave.chop(1);
    return clave.replace(u';', u'|');
}

bool EliminarDatosAsociados(TModuloDatos &datos, Table &table) {
    const QString nombre = Entrecomillar(table.TableName());
    const QString claveTexto = ClaveAdjuntos(datos, table);
    const QString clave = Entrecomillar(claveTexto);
    const struct {
        QString sql;
        QString fallo;
    } pasos[] = {
        {QStringLiteral("DELETE FROM RESPDOC   WHERE NombreTabla=") + nombre +
             QStringLiteral("    AND ((ClaveTabla = ") + clave +
             QStringLiteral(")       OR (ClaveTabla = ") + Entrecomillar(claveTexto + u'|') +
             QStringLiteral(")) "),
         QStringLiteral("¡El registro de Responsabilidad Documental asociado no ha sido "
                        "eliminado! Motivo: ")},
        {QStringLiteral("DELETE FROM DOCUTRON   WHERE NombreTabla=") + nombre +
             QStringLiteral("  AND ClaveTabla=") + clave,
         QStringLiteral("¡El registro de Documentación Electrónica asociado no ha sido "
                        "eliminado! Motivo: ")},
        {QStringLiteral("DELETE FROM BLOBTAB   WHERE NombreTabla=") + nombre +
             QStringLiteral("  AND ClaveTabla=") + clave,
         QStringLiteral("¡El registro de BLOB asociado no ha sido eliminado! Motivo: ")},
        {QStringLiteral("DELETE FROM GRANTAB   WHERE NombreTabla=") + nombre +
             QStringLiteral("  AND ClaveTabla=") + clave,
         QStringLiteral("¡El registro de G.A. de Tablas asociado no ha sido eliminado! Motivo: ")},
        {QStringLiteral("DELETE FROM CONTACTO   WHERE NombreTabla=") + nombre +
             QStringLiteral("  AND CodigoTabla=") + clave,
         QStringLiteral("¡El registro de Contactos asociado no ha sido eliminado! Motivo: ")},
        {QStringLiteral("DELETE FROM RELACION   WHERE (NombreTablaA=") + nombre +
             QStringLiteral("  AND ClaveTablaA=") + clave + QStringLiteral(") OR ") +
             QStringLiteral("      (NombreTablaB=") + nombre +
             QStringLiteral("       AND ClaveTablaB=") + clave + QStringLiteral(")"),
         QStringLiteral("¡El registro de Relación asociado no ha sido eliminado! Motivo: ")},
    };
    bool todo = true;
    for (const auto &paso : pasos) {
        const QString r =
            datos.EjecutarSQL(paso.sql, kConexionEmpresa, QStringLiteral("Silenciosa"));
        if (EsResultadoError(r)) {
            datos.sesion().mensajes().MensajeA(paso.fallo + r);
            todo = false;
        }
    }
    return todo;
}

} // namespace co::forms
