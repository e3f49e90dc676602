#include "core/user_table.h"

#include "core/backend.h"
#include "core/sql_text.h"

namespace co {
namespace {

const QString kSilenciosa = QStringLiteral("Silenciosa");

void setReason(QString *motivo, const QString &text) {
    if (motivo)
        *motivo = text;
}

// The failure text of a query object that could not open: the query object
// keeps no reason, so the statement is run once more through the text path.
QString queryFailure(TModuloDatos &datos, const QString &sql) {
    const QString result = datos.EjecutarSQL(sql, kConexionUsuario, kSilenciosa);
    return EsResultadoError(result) ? result : QStringLiteral("Error.");
}

// `suffix` ends the statement: the back-end's row lock, or nothing.
std::optional<UserRecord> selectExact(TModuloDatos &datos, const QString &codigo, QString *motivo,
                                      bool *ok, const QString &suffix = {}) {
    Consulta q;
    q.DatabaseName = kConexionUsuario;
    q.SQL =
        QStringLiteral("SELECT * FROM USUARIO WHERE Codigo = ") + Entrecomillar(codigo) + suffix;
    *ok = datos.AbrirConsulta(q, QStringLiteral("Silencio"));
    if (!*ok) {
        setReason(motivo, queryFailure(datos, q.SQL));
        return std::nullopt;
    }
    if (q.RecordCount() == 0)
        return std::nullopt;
    auto text = [&](const char *field) { return q.Value(0, QLatin1String(field)).toString(); };
    return UserRecord{text("Codigo"),
                      text("Nombre"),
                      text("Categoria"),
                      text("ClaveAcceso"),
                      text("Empresas"),
                      text("ProgramasNoAccesibles"),
                      text("ProgramasSoloLectura"),
                      text("ProgramasActivos"),
                      text("Configuracion")};
}

// The stored spelling of a code that differs only in case; empty when none.
std::optional<QString> storedSpelling(TModuloDatos &datos, const QString &codigo, QString *motivo) {
    Consulta q;
    q.DatabaseName = kConexionUsuario;
    q.SQL = QStringLiteral("SELECT Codigo FROM USUARIO ORDER BY Codigo");
    if (!datos.AbrirConsulta(q, QStringLiteral("Silencio"))) {
        setReason(motivo, queryFailure(datos, q.SQL));
        return std::nullopt;
    }
    for (int r = 0; r < q.RecordCount(); ++r) {
        const QString stored = q.Value(r, 0).toString();
        if (stored.compare(codigo, Qt::CaseInsensitive) == 0)
            return stored;
    }
    return QString();
}

} // namespace

std::optional<UserRecord> findUser(TModuloDatos &datos, const QString &codigo, QString *motivo) {
    if (codigo.contains(QChar(0)))
        return std::nullopt;
    bool ok = true;
    std::optional<UserRecord> exact = selectExact(datos, codigo, motivo, &ok);
    if (exact || !ok)
        return exact;
    const std::optional<QString> stored = storedSpelling(datos, codigo, motivo);
    if (!stored || stored->isEmpty())
        return std::nullopt;
    return selectExact(datos, *stored, motivo, &ok);
}

std::optional<UserRecord> lockUser(TModuloDatos &datos, const QString &codigo, QString *motivo) {
    if (codigo.contains(QChar(0)))
        return std::nullopt;
    bool ok = true;
    return selectExact(datos, codigo, motivo, &ok,
                       traitsOf(datos.sesion().backend()).rowLockClause);
}

bool insertUser(TModuloDatos &datos, const UserRecord &r, QString *motivo) {
    const QString sql =
        QStringLiteral("INSERT INTO USUARIO (Codigo, Nombre, Categoria, ClaveAcceso, Empresas, "
                       "ProgramasNoAccesibles, ProgramasSoloLectura, ProgramasActivos, "
                       "Configuracion) VALUES (") +
        QStringList{Entrecomillar(r.Codigo),
                    Entrecomillar(r.Nombre),
                    Entrecomillar(r.Categoria),
                    Entrecomillar(r.ClaveAcceso),
                    Entrecomillar(r.Empresas),
                    Entrecomillar(r.ProgramasNoAccesibles),
                    Entrecomillar(r.ProgramasSoloLectura),
                    Entrecomillar(r.ProgramasActivos),
                    Entrecomillar(r.Configuracion)}
            .join(QStringLiteral(", ")) +
        u')';
    const QString result = datos.EjecutarSQL(sql, kConexionUsuario, kSilenciosa);
    if (EsResultadoError(result)) {
        setReason(motivo, result);
        return false;
    }
    return true;
}

bool updateUserField(TModuloDatos &datos, const QString &codigo, const QString &campo,
                     const QString &valor, QString *motivo) {
    const QString sql = QStringLiteral("UPDATE USUARIO SET ") + campo + QStringLiteral(" = ") +
                        Entrecomillar(valor) + QStringLiteral(" WHERE Codigo = ") +
                        Entrecomillar(codigo);
    const QString result = datos.EjecutarSQL(sql, kConexionUsuario, kSilenciosa);
    if (EsResultadoError(result)) {
        setReason(motivo, result);
        return false;
    }
    return true;
}

std::optional<bool> userTableEmpty(TModuloDatos &datos, QString *motivo) {
    const QString result = datos.EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM USUARIO"),
                                             kConexionUsuario, kSilenciosa);
    if (EsResultadoError(result)) {
        setReason(motivo, result);
        return std::nullopt;
    }
    return result.trimmed() == u"0";
}

} // namespace co
