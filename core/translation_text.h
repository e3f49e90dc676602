#pragma once
// Text routines of the translation lookups, apart from any database: sentence
// marks, the words of a sentence, and the variable parts that a text carries
// over into the translation of a key holding "\X".

#include <QString>
#include <QStringList>
#include <optional>

namespace co {

enum class ModoPuntos { Directo, Inverso };

// `Directo`: every sentence mark (a "." followed by a blank, a line break or the
// end of the text) is surrounded by line breaks, so that the text splits into one
// sentence per line. `Inverso`: the line breaks around such a "." are removed.
// A "." inside a word ("12.5", "...") is no sentence mark and stays.
QString ProtegerPuntos(const QString &texto, ModoPuntos modo);

// The words of a sentence: blanks and line breaks separate them, a sentence mark
// is a word of its own, and empty words are dropped.
QStringList PalabrasFrase(const QString &texto);

// The mark of a variable part in a dictionary key and its translation.
inline const QString kMarcaVariable = QStringLiteral("\\X");

// The variable parts of a text against a key found for it, in text order.
// A text word equal to a key word pairs with it; the words left over are the
// variable parts, as is a number or a date that is not the whole text.
// nullopt when the key does not fit: a fixed word of the key is missing from
// the text, or the parts left over are not one per "\X" of the key.
std::optional<QStringList> PartesVariables(const QString &texto, const QString &clave);

// The translation with "\ X" read as "\X", each "\X" in order replaced by the next
// part (marks beyond the parts stay), sentence marks restored and line breaks
// turned into blanks.
QString SustituirPartesVariables(const QString &traduccion, const QStringList &partes);

} // namespace co
