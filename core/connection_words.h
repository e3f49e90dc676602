#pragma once
// The words that name connections, defined once: the connection words a
// statement runs on (see session.h for what each reaches) and the libpq words
// of `ServidorBaseDatos` that the connection code reads.

#include <QLatin1String>
#include <QString>

namespace co {

// Connection words of the statement layer.
inline const QString kConexionEmpresa = QStringLiteral("Database");
inline const QString kConexionGeneral = QStringLiteral("DatabaseGeneral");
inline const QString kConexionAlt = QStringLiteral("DatabaseAlt");

// `TipoBaseDatos` values: the embedded back-end (empty means it too) and the server.
inline const QString kTipoEmbebido = QStringLiteral("Paradox");
inline const QString kTipoServidor = QStringLiteral("PostgreSQL");

// libpq keywords in `ServidorBaseDatos` ("host=... port=... dbname=...").
namespace palabra_servidor {
inline constexpr QLatin1StringView kHost("host");
inline constexpr QLatin1StringView kHostAddr("hostaddr");
inline constexpr QLatin1StringView kPort("port");
inline constexpr QLatin1StringView kDbName("dbname");
inline constexpr QLatin1StringView kUser("user");
inline constexpr QLatin1StringView kPassword("password");
inline constexpr QLatin1StringView kConnectTimeout("connect_timeout");
} // namespace palabra_servidor

} // namespace co
