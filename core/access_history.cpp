#include "core/access_history.h"

#include "core/sql_text.h"

namespace co {
namespace {

QString datosParaLista(QString datos) {
    datos.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    datos.replace(u'\r', u' ');
    datos.replace(u'\n', u' ');
    datos.replace(u'|', QChar(0x00B7));
    return datos;
}

} // namespace

QString ClaveHistorial(const QString &valorClave) {
    QString clave = valorClave;
    return clave.replace(u';', u'|');
}

QString SentenciaHistorialAccesos(const QString &tabla, const QString &clave) {
    return QStringLiteral("SELECT CodigoUsuario, Fecha, Accion, Datos FROM REGACCES   WHERE "
                          "NombreTabla = ") +
           Entrecomillar(tabla) + QStringLiteral("    AND ((ClaveTabla = ") + Entrecomillar(clave) +
           QStringLiteral(") ") + QStringLiteral("     OR (ClaveTabla = ") +
           Entrecomillar(clave.left(clave.size() - 1)) + QStringLiteral(")) ") +
           QStringLiteral("  ORDER BY Fecha DESC");
}

QString DefinicionHistorialAccesos(const QString &tabla, const QString &clave) {
    return QStringList{QStringLiteral("Titulo=Historial de Accesos al Registro: ") + tabla +
                           QStringLiteral(" - ") + clave,
                       QStringLiteral("Formato=0,0,430,0;"), QStringLiteral("NumeroCampos=4"),
                       QStringLiteral("Modo=Consulta,Sin Seleccion"),
                       QStringLiteral("DefinicionCampos=CodigoUsuario,ftString,20;"
                                      "Fecha,ftString,20;Accion,ftString,20;Datos,ftMemo,10")}
        .join(QStringLiteral("\r\n"));
}

std::optional<HistorialAccesos> HistorialAccesosRegistro(TModuloDatos &datos, const QString &tabla,
                                                         const QString &valorClave) {
    const QString clave = ClaveHistorial(valorClave);
    Consulta q;
    q.SQL = SentenciaHistorialAccesos(tabla, clave);
    if (!datos.AbrirConsulta(q))
        return std::nullopt;
    HistorialAccesos out;
    out.definicion = DefinicionHistorialAccesos(tabla, clave);
    for (int r = 0; r < q.RecordCount(); ++r) {
        out.lineas << QStringList{q.Text(r, QStringLiteral("CodigoUsuario")),
                                  q.Text(r, QStringLiteral("Fecha")),
                                  q.Text(r, QStringLiteral("Accion")),
                                  datosParaLista(q.Text(r, QStringLiteral("Datos")))}
                          .join(u'|');
    }
    return out;
}

} // namespace co
