#pragma once
// Cuts a statement into the pieces its back-end sees: code, quoted text,
// quoted names and comments. Every rewrite of the statement layer works on the
// code pieces alone, so text written in a statement reaches the back-end as
// written, whatever quotes, "=", "$$" or "--" it holds.
//
// Both back-ends: '...' with doubled quotes, "..." names, -- comments to the
// end of the line, /* */ comments. PostgreSQL also: E'...' with backslash
// escapes, $tag$...$tag$ text, nested /* */ comments. SQLite also: [...] and
// `...` names. An unterminated piece runs to the end of the statement.
// Joining the pieces gives the statement back exactly.

#include "core/backend.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace co {

enum class TipoTrozo { Codigo, Literal, Nombre, Comentario };

struct TrozoSQL {
    TipoTrozo tipo;
    QString texto;

    bool esLiteralVacio() const { return tipo == TipoTrozo::Literal && texto == u"''"; }
};

QList<TrozoSQL> TrocearSentencia(const QString &sql, Backend backend);

QString UnirTrozos(const QList<TrozoSQL> &trozos);

// The quoted texts of a statement, in order, as written.
QStringList LiteralesDeSentencia(const QString &sql, Backend backend);

// True when code after a ";" holds a second statement; a ";" at the end, with
// blanks or comments after it, is one statement.
bool HayVariasSentencias(const QString &sql, Backend backend);

} // namespace co
