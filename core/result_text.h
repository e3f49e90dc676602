#pragma once
// The result text of a statement: rows joined by CR LF, fields by "|", or with
// `FormatoINI` fields as Name=value joined by "·". Values are written as the
// system shows them (decimal comma, "dd/mm/yyyy").

#include "core/backend.h"

#include <QString>
#include <QStringList>
#include <QVariant>

class QSqlQuery;

namespace co {

struct ResultColumn {
    QString name;
    ColumnKind kind = ColumnKind::Unknown;
};

struct ResultOptions {
    bool formatoINI = false;
    bool keepLastLineBreak = false;
    bool skipRowguid = true;
    QString memoDelimiter = QStringLiteral(" ");

    // Reads the option words of a statement.
    static ResultOptions fromWords(const QString &opciones);
};

// The lead of the result text of a statement that could not run.
inline constexpr char16_t kFalloSentencia[] =
    u"Error. No es posible ejecutar la sentencia SQL. Motivo: ";

// True when a result text is a failure: it starts with "Error.". Every caller
// of the statement layer asks this one question, never its own.
bool EsResultadoError(const QString &resultado);

// The failure text of a result without the lead of a statement that could not
// run; any other text as it stands.
QString MotivoResultado(const QString &resultado);

// A value as text, the way the system shows it.
QString TextoValor(const QVariant &value, ColumnKind kind);

// A value read from the back-end in the type its column holds: a date-time
// column of SQLite (stored as text) comes back as QDateTime.
QVariant ValorTipado(const QVariant &value, ColumnKind kind);

// Reads the remaining rows of an executed query into the result text.
// Returns false when a row cannot be read; `motivo` then holds the failure text.
bool LeerResultado(Backend backend, QSqlQuery &query, const QList<ResultColumn> &columns,
                   const ResultOptions &options, QString *result, QString *motivo);

} // namespace co
