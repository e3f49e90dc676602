#include "core/session.h"

#include "core/connection_factory.h"
#include "core/connection_words.h"
#include "core/keystroke_log.h"
#include "core/sql_identifier.h"

#include <QDir>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>
#include <atomic>

namespace co {
namespace {

const QString kADO = QStringLiteral("ADOConnection");
const QString kADOAlt = QStringLiteral("ADOConnectionAlt");
const QString kADOGeneral = QStringLiteral("ADOConnectionGeneral");

std::atomic<int> nextInstance{0};

// A target whose data must exist already: only a company chosen by its code may
// be made on its first connection.
ConnectionTarget existing(bool general, const QString &alias) {
    ConnectionTarget t{general, alias};
    t.crear = false;
    return t;
}

QString secondOf(const QString &role) {
    if (role == kConexionEmpresa)
        return kADO;
    if (role == kConexionAlt)
        return kADOAlt;
    if (role == kConexionGeneral)
        return kADOGeneral;
    return role + QStringLiteral("#2");
}

} // namespace

TfGENEINIC::TfGENEINIC(const InstallationSettings &settings, MessagePort *port)
    : settings_(settings), messenger_(port), teclado_(std::make_unique<EstadoTeclado>()),
      instance_(nextInstance++) {
    if (!port)
        messenger_.setPort(&console_);
    QString ignored;
    backend_ = backendFromName(settings.TipoBaseDatos, &ignored).value_or(Backend::SQLite);
    TipoBaseDatos = settings.TipoBaseDatos.isEmpty() ? kTipoEmbebido : settings.TipoBaseDatos;
    AliasBaseDatosGeneral = settings.AliasBaseDatosGeneral;
    PathBaseDatosGeneral = settings.PathBaseDatosGeneral;
    AliasBaseDatos = settings.AliasBaseDatos;
    PathBaseDatos = settings.PathBaseDatosGeneral;
    PathArchivosTemporales = settings.PathArchivosTemporales;
}

TfGENEINIC::~TfGENEINIC() {
    if (transaccion_)
        endAll(false, nullptr);
    const QStringList roles = open_.keys();
    for (const QString &role : roles)
        closeRole(role);
}

QString TfGENEINIC::roleName(const QString &role) const {
    return QStringLiteral("co%1.%2").arg(instance_).arg(role);
}

QString TfGENEINIC::NombreAliasEmpresa(int codigo) const {
    if (backend_ == Backend::PostgreSQL)
        return codigo > 0 ? AliasBaseDatos + QString::number(codigo) : AliasBaseDatos;
    return codigo > 0 ? QDir(PathBaseDatosGeneral).filePath(QString::number(codigo))
                      : PathBaseDatosGeneral;
}

QString TfGENEINIC::AliasGeneralSQL() const {
    return NombreDatosSQL(AliasBaseDatosGeneral);
}

std::optional<QSqlDatabase> TfGENEINIC::openRole(const QString &role, const ConnectionTarget &target,
                                                 QString *motivo) {
    const QString key = target.general ? QStringLiteral("\x01general") : target.alias;
    const auto it = open_.constFind(role);
    if (it != open_.cend() && it->target == key && it->db.isOpen())
        return it->db;
    closeRole(role);
    const QString name = roleName(role);
    QString why;
    ConnectionTarget withWait = target;
    withWait.lockWaitMs = EsperaBloqueoMs;
    QSqlDatabase db = openConnection(name, backend_, settings_, withWait, &why);
    if (!db.isValid()) {
        if (motivo)
            *motivo = why;
        return std::nullopt;
    }
    open_.insert(role, {key, db});
    return db;
}

void TfGENEINIC::closeRole(const QString &role) {
    const auto it = open_.find(role);
    if (it == open_.end())
        return;
    it->db = QSqlDatabase();
    open_.erase(it);
    closeConnection(roleName(role));
}

bool TfGENEINIC::Conectar(QString *motivo) {
    QString why;
    if (!backendFromName(settings_.TipoBaseDatos, &why)) {
        if (motivo)
            *motivo = why;
        return false;
    }
    return openRole(kConexionGeneral, existing(true, {}), motivo) &&
           ConectarEmpresa(CodigoEmpresa, motivo);
}

bool TfGENEINIC::ConectarEmpresa(int codigo, QString *motivo) {
    const ConnectionTarget target{false, NombreAliasEmpresa(codigo)};
    for (const QString &role : {kConexionEmpresa, kADO})
        closeRole(role);
    if (!openRole(kConexionEmpresa, target, motivo))
        return false;
    CodigoEmpresa = codigo;
    companyAlias_ = target.alias;
    PathBaseDatos = backend_ == Backend::SQLite ? target.alias : PathBaseDatosGeneral;
    return true;
}

bool TfGENEINIC::ConectarEmpresaAlt(int codigo, const QString &alias, QString *motivo) {
    const QString target = codigo == -1 ? alias : NombreAliasEmpresa(codigo);
    if (altAlias_ == target && open_.contains(kConexionAlt))
        return true;
    for (const QString &role : {kConexionAlt, kADOAlt})
        closeRole(role);
    // A company chosen by its code may be new; an alias names data that exist.
    ConnectionTarget alt{false, target};
    alt.crear = codigo >= 0;
    if (!openRole(kConexionAlt, alt, motivo))
        return false;
    altAlias_ = target;
    return true;
}

std::optional<QSqlDatabase> TfGENEINIC::resolveAlias(const QString &alias, Canal canal,
                                                     QString *motivo) {
    auto role = [&](const QString &main) { return canal == Canal::Principal ? main : secondOf(main); };
    auto general = [&] { return openRole(role(kConexionGeneral), existing(true, {}), motivo); };
    if (alias == kConexionEmpresa && !companyAlias_.isEmpty())
        return openRole(role(kConexionEmpresa), existing(false, companyAlias_), motivo);
    const QString company = NombreAliasEmpresa(CodigoEmpresa);
    if (alias == kConexionGeneral)
        return general();
    if (alias == kConexionEmpresa || alias.compare(company, Qt::CaseInsensitive) == 0)
        return openRole(role(kConexionEmpresa), existing(false, company), motivo);
    if (alias == kConexionAlt || (!altAlias_.isEmpty() && alias == altAlias_)) {
        if (altAlias_.isEmpty()) {
            if (motivo)
                *motivo = QStringLiteral("La conexión DatabaseAlt no está abierta.");
            return std::nullopt;
        }
        return openRole(role(kConexionAlt), existing(false, altAlias_), motivo);
    }
    if (alias.compare(AliasBaseDatosGeneral, Qt::CaseInsensitive) == 0 ||
        alias == PathBaseDatosGeneral || (!PathArchivosTemporales.isEmpty() && alias == PathArchivosTemporales))
        return general();
    bool companyAlias = false;
    if (backend_ == Backend::PostgreSQL) {
        const QRegularExpression re(QStringLiteral("^%1\\d*$").arg(QRegularExpression::escape(AliasBaseDatos)),
                                    QRegularExpression::CaseInsensitiveOption);
        companyAlias = re.match(alias).hasMatch();
    } else {
        companyAlias = QFileInfo::exists(companyFile(alias));
    }
    if (!companyAlias) {
        if (motivo)
            *motivo = QStringLiteral("No existe la conexión \"%1\".").arg(alias);
        return std::nullopt;
    }
    return openRole(role(QStringLiteral("alias:") + alias), existing(false, alias), motivo);
}

std::optional<QSqlDatabase> TfGENEINIC::conexion(const QString &palabra, Canal canal, QString *motivo) {
    if (palabra.isEmpty() || palabra == kConexionEmpresa) {
        if (!AliasSustituto.isEmpty())
            return resolveAlias(AliasSustituto, canal, motivo);
        return resolveAlias(kConexionEmpresa, canal, motivo);
    }
    if (palabra.startsWith(u'?'))
        return resolveAlias(palabra.mid(1), canal, motivo);
    return resolveAlias(palabra, canal, motivo);
}

QStringList TfGENEINIC::transactionRoles(const QString &palabra) const {
    const QString main = palabra.isEmpty()          ? kConexionEmpresa
                         : palabra.startsWith(u'?') ? palabra.mid(1)
                                                    : palabra;
    QStringList roles;
    if (main == kConexionGeneral)
        roles << kConexionGeneral;
    else if (main == kConexionAlt)
        roles << kConexionAlt << kADOAlt;
    else
        roles << kConexionEmpresa << kADO;
    return roles;
}

bool TfGENEINIC::begin(const QString &role) {
    QSqlDatabase db = QSqlDatabase::database(roleName(role), false);
    if (!db.isOpen())
        return false;
    QSqlQuery q(db);
    // The main channel takes the write lock at once on SQLite, so that two writers
    // queue instead of failing half-way; the second channel waits for its first write.
    const bool immediate = backend_ == Backend::SQLite && !role.startsWith(QStringLiteral("ADO"));
    return q.exec(immediate ? QStringLiteral("BEGIN IMMEDIATE") : QStringLiteral("BEGIN"));
}

bool TfGENEINIC::IniciarTransaccion(const QString &palabra) {
    if (transaccion_)
        return true;
    QString motivo;
    if (!conexion(palabra, Canal::Principal, &motivo))
        return false;
    const QStringList roles = transactionRoles(palabra);
    for (const QString &role : roles) {
        if (!open_.contains(role))
            continue;
        if (!begin(role)) {
            endAll(false, nullptr);
            return false;
        }
        inTransaction_ << role;
    }
    transaccion_ = !inTransaction_.isEmpty();
    return transaccion_;
}

bool TfGENEINIC::endAll(bool commit, QString *motivo) {
    bool ok = true;
    for (const QString &role : std::as_const(inTransaction_)) {
        QSqlDatabase db = QSqlDatabase::database(roleName(role), false);
        QSqlQuery q(db);
        if (!q.exec(commit ? QStringLiteral("COMMIT") : QStringLiteral("ROLLBACK"))) {
            ok = false;
            if (motivo && motivo->isEmpty())
                *motivo = failureText(backend_, q.lastError());
        }
    }
    if (ok || !commit) {
        inTransaction_.clear();
        transaccion_ = false;
    }
    return ok;
}

bool TfGENEINIC::FinalizarTransaccion(const QString &) {
    if (!transaccion_)
        return true;
    return endAll(true, nullptr);
}

bool TfGENEINIC::CancelarTransaccion(const QString &) {
    if (!transaccion_)
        return true;
    const bool ok = endAll(false, nullptr);
    FalloTransaccion = false;
    return ok;
}

bool TfGENEINIC::IniciarTransaccionControlada(const QString &palabra) {
    if (transaccion_) {
        messenger_.MensajeA(
            QStringLiteral("¡ Hay otra transacción activa en curso !. Debe finalizarla previamente."));
    }
    FalloTransaccion = false;
    return IniciarTransaccion(palabra);
}

bool TfGENEINIC::FinalizarTransaccionControlada(const QString &palabra) {
    if (FalloTransaccion) {
        messenger_.MensajeA(QStringLiteral("¡ La transacción no ha sido completada !. Inténtelo de nuevo."));
        if (!CancelarTransaccion(palabra))
            messenger_.MensajeA(QStringLiteral("¡No se puede finalizar la transacción!"));
        return false;
    }
    QString motivo;
    if (endAll(true, &motivo))
        return true;
    messenger_.MensajeA(QStringLiteral("¡No se puede finalizar la transacción!. Mensaje Original: ") + motivo);
    if (!endAll(false, nullptr))
        messenger_.MensajeA(QStringLiteral("¡No se puede finalizar la transacción!"));
    return false;
}

TransaccionGuard::TransaccionGuard(TfGENEINIC &sesion, const QString &palabra)
    : sesion_(sesion), palabra_(palabra), ok_(sesion.IniciarTransaccion(palabra)) {}

TransaccionGuard::~TransaccionGuard() {
    if (ok_ && !done_)
        sesion_.CancelarTransaccion(palabra_);
}

bool TransaccionGuard::commit() {
    done_ = true;
    return ok_ && sesion_.FinalizarTransaccion(palabra_);
}

} // namespace co
