#pragma once
// `TfGENEINIC`: the session object. It lives as long as the process and owns the
// session values, the connections and the message port.
//
// Connections by word:
//   "" / "Database"    the override alias when set, else the current company
//   "DatabaseGeneral"  the general data
//   "DatabaseAlt"      the alternate company connection
//   "?" + name         that alias as given, never remapped
//   any other text     a connection name as it stands
// Each has a second channel: another connection to the same data.

#include "core/backend.h"
#include "core/connection_factory.h"
#include "core/crash_points.h"
#include "core/installation.h"
#include "core/messages.h"
#include "core/session_failures.h"

#include <QHash>
#include <QSqlDatabase>
#include <QString>
#include <memory>
#include <optional>

namespace co {

struct EstadoTeclado;

enum class Canal { Principal, Secundario };

class TfGENEINIC {
public:
    explicit TfGENEINIC(const InstallationSettings &settings, MessagePort *port = nullptr);
    ~TfGENEINIC();
    TfGENEINIC(const TfGENEINIC &) = delete;
    TfGENEINIC &operator=(const TfGENEINIC &) = delete;

    // Opens `DatabaseGeneral` and `Database` on company `CodigoEmpresa`.
    bool Conectar(QString *motivo = nullptr);
    bool ConectarEmpresa(int codigo, QString *motivo = nullptr);
    // -1 as company takes `alias` as the name of the data to point at.
    bool ConectarEmpresaAlt(int codigo, const QString &alias = {}, QString *motivo = nullptr);
    QString NombreAliasEmpresa(int codigo) const;
    // The general data's alias as statements name them: "<alias>.dbo.<table>".
    QString AliasGeneralSQL() const;

    // The connection a word stands for on a channel; nullopt and `motivo` when the
    // word names nothing that can be opened.
    std::optional<QSqlDatabase> conexion(const QString &palabra, Canal canal, QString *motivo);

    Backend backend() const { return backend_; }
    const InstallationSettings &instalacion() const { return settings_; }
    // The server password the next connection is made with.
    void setClaveServidor(const QString &clave) { settings_.ClaveInicioSesion = clave; }
    Messenger &mensajes() { return messenger_; }
    // The handler of failures no code caught (session_failures.h).
    ManejadorFallos &fallos() { return fallos_; }
    // The keyboard state of the session's record screens (keystroke_log.h).
    EstadoTeclado &Teclado() { return *teclado_; }
    // The crash-test seam of this process (see crash_points.h).
    CrashPoints &crashPoints() { return crashPoints_; }

    // Transactions on a connection word (and its second channel).
    bool IniciarTransaccion(const QString &palabra = {});
    bool FinalizarTransaccion(const QString &palabra = {});
    bool CancelarTransaccion(const QString &palabra = {});
    bool IniciarTransaccionControlada(const QString &palabra = {});
    bool FinalizarTransaccionControlada(const QString &palabra = {});
    bool TransaccionActiva() const { return transaccion_; }

    // Session values.
    QString TipoBaseDatos;
    QString AliasBaseDatosGeneral;
    QString PathBaseDatosGeneral;
    QString AliasBaseDatos;
    QString PathBaseDatos;
    QString PathArchivosTemporales;
    QString CodigoUsuario;
    int CodigoEmpresa = 0;
    QString NombreEmpresa;
    QString FechaVersion;
    QString VersionServidor;
    QHash<QString, QString> MapaAyuda;
    QString FormatoFechaSQL = QStringLiteral("yyyy-mm-dd");
    QString FechaNula = QStringLiteral("1899-12-30 00:00:00");
    // While set, company statements go to this alias.
    QString AliasSustituto;
    // Set by the failure handler: the transaction in course must not be committed.
    bool FalloTransaccion = false;
    // Milliseconds a statement waits for data another user holds; taken when a
    // connection opens.
    int EsperaBloqueoMs = 15000;
    // The INI file in force.
    QString ArchivoINI;
    // File of the statement trace of the second channel; no trace while empty.
    QString ArchivoTrazaSQL;

private:
    QString roleName(const QString &role) const;
    std::optional<QSqlDatabase> openRole(const QString &role, const ConnectionTarget &target,
                                         QString *motivo);
    std::optional<QSqlDatabase> resolveAlias(const QString &alias, Canal canal, QString *motivo);
    QStringList transactionRoles(const QString &palabra) const;
    bool begin(const QString &role);
    bool endAll(bool commit, QString *motivo);

    InstallationSettings settings_;
    Backend backend_ = Backend::SQLite;
    Messenger messenger_;
    ManejadorFallos fallos_{*this};
    ConsoleMessages console_;
    CrashPoints crashPoints_;
    std::unique_ptr<EstadoTeclado> teclado_;
    int instance_;
    QString altAlias_;
    QString companyAlias_;
    struct OpenConnection {
        QString target; // alias it is open on
        QSqlDatabase db;
    };
    void closeRole(const QString &role);
    QHash<QString, OpenConnection> open_;
    QStringList inTransaction_;
    bool transaccion_ = false;
};

// Rolls back a transaction unless it was committed.
class TransaccionGuard {
public:
    TransaccionGuard(TfGENEINIC &sesion, const QString &palabra = {});
    ~TransaccionGuard();
    bool ok() const { return ok_; }
    bool commit();

private:
    TfGENEINIC &sesion_;
    QString palabra_;
    bool ok_ = false;
    bool done_ = false;
};

} // namespace co
