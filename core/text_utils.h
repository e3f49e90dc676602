#pragma once
// Small text routines shared by the whole program.

#include <QString>

namespace co {

// Field `indice` of a delimited text, counted from 0. The delimiter may have
// several characters. A missing field, a negative index or an empty delimiter
// past field 0 gives an empty string.
QString ExtraerToken(int indice, const QString &texto, const QString &delimitador);

// Occurrences of one character.
int ContarCaracter(QChar caracter, const QString &texto);

// Every occurrence of `buscar` replaced, case-sensitive. An empty `buscar`
// leaves the text as it is.
QString ReemplazarTodo(const QString &buscar, const QString &reemplazo, const QString &texto);

// The text without one trailing line break ("\r\n", or a lone "\n" or "\r").
QString QuitarUltimoCRLF(const QString &texto);

// The text between single quotes. Inner quotes are not doubled: this is for
// display and file names, never for statements.
QString EntreComillas(const QString &texto);

// The table of a statement: line breaks become blanks and the word after the
// first " FROM " is taken, up to a blank, comma, semicolon or parenthesis.
// Empty when there is no " FROM ".
QString TablaDeConsulta(const QString &sql);

// A menu caption as a program name: every "&" removed.
QString SinAmpersand(const QString &caption);

} // namespace co
