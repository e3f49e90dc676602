#include "core/server_probe.h"

#include "core/connection_words.h"

#include <algorithm>
#include <chrono>
#include <libpq-fe.h>
#include <memory>
#include <poll.h>

namespace co {
namespace {

using Clock = std::chrono::steady_clock;

struct Finish {
    void operator()(PGconn *c) const { PQfinish(c); }
};

// libpq's own quoting of a value: single quotes, with "\" and "'" escaped.
QString quoted(const QString &value) {
    QString v = value;
    v.replace(u'\\', QLatin1String("\\\\"));
    v.replace(u'\'', QLatin1String("\\'"));
    return u'\'' + v + u'\'';
}

// Waits until the socket is ready for `events` or the deadline passes.
bool waitFor(PGconn *conn, short events, Clock::time_point deadline) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0)
        return false;
    pollfd fd{PQsocket(conn), events, 0};
    if (fd.fd < 0)
        return false;
    return ::poll(&fd, 1, static_cast<int>(left)) > 0;
}

QString libpqError(PGconn *conn) {
    return QString::fromLocal8Bit(PQerrorMessage(conn)).trimmed();
}

} // namespace

QStringList PalabrasServidor(const QString &servidorBaseDatos) {
    QStringList out;
    for (const QString &word : servidorBaseDatos.split(u' ', Qt::SkipEmptyParts))
        if (word.indexOf(u'=') > 0)
            out << word;
    return out;
}

int EsperaServidor(const QStringList &palabras) {
    for (const QString &word : palabras)
        if (word.section(u'=', 0, 0) == palabra_servidor::kConnectTimeout) {
            bool ok = false;
            const int seconds = word.section(u'=', 1).toInt(&ok);
            // libpq takes 0 (or nothing) for "wait for ever", and any lower value as 2.
            if (ok && seconds > 0)
                return std::max(seconds, 2);
        }
    return kEsperaServidorPorDefecto;
}

QString DescripcionServidor(const QStringList &palabras) {
    QStringList shown;
    for (const QString &word : palabras) {
        const QString key = word.section(u'=', 0, 0);
        using namespace palabra_servidor;
        if (key == kHost || key == kHostAddr || key == kPort || key == kDbName)
            shown << word;
    }
    return shown.join(u' ');
}

bool ProbarServidorPostgreSQL(const QStringList &palabras, int segundos, QString *motivo) {
    QStringList conninfo;
    for (const QString &word : palabras)
        conninfo << word.section(u'=', 0, 0) + u'=' + quoted(word.section(u'=', 1));
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(segundos);
    auto fail = [&](const QString &texto) {
        if (motivo)
            *motivo = texto;
        return false;
    };
    auto silent = [&] {
        return fail(QStringLiteral("El servidor de PostgreSQL indicado por ServidorBaseDatos (%1) "
                                   "no ha respondido en %2 segundos.")
                        .arg(DescripcionServidor(palabras))
                        .arg(segundos));
    };
    const std::unique_ptr<PGconn, Finish> conn(
        PQconnectStart(conninfo.join(u' ').toUtf8().constData()));
    if (!conn)
        return fail(QStringLiteral("No hay memoria para conectar con el servidor de PostgreSQL."));
    if (PQstatus(conn.get()) == CONNECTION_BAD)
        return fail(libpqError(conn.get()));
    for (;;) {
        const PostgresPollingStatusType state = PQconnectPoll(conn.get());
        if (state == PGRES_POLLING_OK)
            break;
        if (state == PGRES_POLLING_FAILED)
            return fail(libpqError(conn.get()));
        if (!waitFor(conn.get(), state == PGRES_POLLING_READING ? POLLIN : POLLOUT, deadline))
            return silent();
    }
    if (!PQsendQuery(conn.get(), "SELECT 1"))
        return fail(libpqError(conn.get()));
    for (;;) {
        const int flushed = PQflush(conn.get());
        if (flushed < 0)
            return fail(libpqError(conn.get()));
        if (flushed == 0)
            break;
        if (!waitFor(conn.get(), POLLOUT, deadline))
            return silent();
    }
    bool answered = false;
    for (;;) {
        while (PQisBusy(conn.get())) {
            if (!waitFor(conn.get(), POLLIN, deadline))
                return silent();
            if (!PQconsumeInput(conn.get()))
                return fail(libpqError(conn.get()));
        }
        PGresult *result = PQgetResult(conn.get());
        if (!result)
            break;
        answered = answered || PQresultStatus(result) == PGRES_TUPLES_OK;
        PQclear(result);
    }
    return answered ? true : fail(libpqError(conn.get()));
}

} // namespace co
