#pragma once
// The start-up handshake with a PostgreSQL server, under a deadline of our own:
// libpq bounds the connection with `connect_timeout`, but a server that takes the
// connection and then stops answering would hold the first statements (and the
// driver's own set-up statements) for ever. The probe connects and runs one
// statement, and gives up when the deadline passes.

#include <QString>
#include <QStringList>

namespace co {

// Seconds a connection may take when `ServidorBaseDatos` sets no `connect_timeout`.
inline constexpr int kEsperaServidorPorDefecto = 10;

// The seconds `connect_timeout` gives in the libpq words, else the default.
int EsperaServidor(const QStringList &palabras);

// The libpq words of `ServidorBaseDatos` ("host=... port=..."), words without
// "=" left out.
QStringList PalabrasServidor(const QString &servidorBaseDatos);

// The server named without its password, for messages.
QString DescripcionServidor(const QStringList &palabras);

// Connects with `palabras` and runs "SELECT 1" within `segundos`. False and a
// Spanish `motivo` when the server refuses, fails or does not answer in time.
bool ProbarServidorPostgreSQL(const QStringList &palabras, int segundos, QString *motivo);

} // namespace co
