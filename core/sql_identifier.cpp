#include "core/sql_identifier.h"

namespace co {

QString IdentificadorSQL(const QString &nombre) {
    QString inner = nombre;
    inner.replace(u'"', QLatin1String("\"\""));
    return u'"' + inner + u'"';
}

QString NombreDatosSQL(const QString &nombre) {
    return IdentificadorSQL(nombre.toLower());
}

} // namespace co
