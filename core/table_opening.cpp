#include "core/table_opening.h"

#include "core/connection_words.h"
#include "core/failure_handler.h"
#include "core/session_failures.h"
#include "core/sql_text.h"

#include <QDir>

namespace co {
namespace {

bool faltaTabla(const QString &fallo, bool soloTableDoesNotExist) {
    if (fallo.contains(QStringLiteral("Table does not exist")))
        return true;
    return !soloTableDoesNotExist && (fallo.contains(QStringLiteral("File or directory does not exist")) ||
                                      fallo.contains(QStringLiteral("Table unknown")));
}

} // namespace

QString AperturaTablas::conexionDe(TablaAbrible &tabla, QString *paraCrear) {
    TfGENEINIC &sesion = datos_.sesion();
    const QString nombre = tabla.TableName();
    const QString actual = tabla.DatabaseName();
    *paraCrear = actual;
    if (EsTablaTemporal(nombre))
        return actual;
    if (EsTablaGeneral(nombre))
        return *paraCrear = kConexionGeneral;
    if (actual.startsWith(u'?')) {
        if (sesion.backend() == Backend::PostgreSQL)
            return actual.mid(1);
        // The embedded back-end reaches another company through the alternate connection.
        sesion.ConectarEmpresaAlt(-1, actual.mid(1));
        return kConexionAlt;
    }
    return *paraCrear = kConexionEmpresa;
}

bool AperturaTablas::abrir(TablaAbrible &tabla, Origen origen) {
    if (tabla.Active())
        return true;
    TfGENEINIC &sesion = datos_.sesion();
    QString paraCrear;
    const QString conexion = conexionDe(tabla, &paraCrear);
    tabla.SetDatabaseName(conexion);
    // Indexes a crash or a hand left out are made again before the table is in use.
    creador_.CompletarIndices(tabla.TableName(), paraCrear);
    QString fallo;
    if (tabla.Open(&fallo))
        return true;
    if (faltaTabla(fallo, origen == Origen::AbrirTablasForm)) {
        QString motivo;
        creador_.CrearTabla(tabla.TableName(), paraCrear, {}, &motivo);
        QString reintento;
        if (tabla.Open(&reintento))
            return true;
        RegistrarIncidencia(QStringLiteral("Al crear la tabla entrando en ") + tabla.OwnerName() +
                                (origen == Origen::AperturaTablaOK ? QStringLiteral(" (AperturaTablaOK)")
                                                                   : QStringLiteral(" (AbrirTablasForm)")),
                            reintento + QStringLiteral("\r\nTabla: ") + tabla.TableName() + u'(' +
                                tabla.ComponentName() + u')' + QStringLiteral(" DataBase: ") + conexion);
        return false;
    }
    RegistrarIncidencia(QStringLiteral("Al entrar en ") + tabla.OwnerName() +
                            (origen == Origen::AperturaTablaOK ? QStringLiteral(" (AperturaTablaOK)")
                                                               : QStringLiteral(" (AbrirTablasForm)")),
                        fallo + QStringLiteral("\r\nTabla: ") + tabla.TableName() + u'(' + tabla.ComponentName() + u')' +
                            QStringLiteral(" DataBase: ") + conexion);
    sesion.mensajes().MensajeA(QStringLiteral("TRADUCIR: ") + fallo + QStringLiteral(" Tabla: ") + tabla.TableName() +
                               u'(' + tabla.ComponentName() + u')' + QStringLiteral(" DataBase: ") + conexion);
    AnotarReconstruccion(sesion, tabla.TableName(), fallo);
    return false;
}

bool AperturaTablas::AperturaTablaOK(TablaAbrible &tabla) { return abrir(tabla, Origen::AperturaTablaOK); }

bool AperturaTablas::AbrirTablasForm(FormularioTablas &form) {
    if (form.preparar)
        form.preparar();
    if (form.cursorEspera)
        form.cursorEspera(true);
    bool ok = true;
    for (TablaAbrible *tabla : std::as_const(form.tablas)) {
        if (tabla->TableName().isEmpty())
            continue;
        const bool paragene = tabla->TableName().toUpper().contains(QStringLiteral("PARAGENE"));
        if (paragene && (datos_.sesion().CodigoEmpresa == 0 || form.nombre == u"fGENEMENU"))
            continue;
        tabla->Close();
        if (!abrir(*tabla, Origen::AbrirTablasForm)) {
            ok = false;
            break;
        }
    }
    if (!ok && form.cerrar)
        form.cerrar();
    if (ok && form.traducir)
        form.traducir();
    if (form.cursorEspera)
        form.cursorEspera(false);
    return ok;
}

} // namespace co
