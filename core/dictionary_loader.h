#pragma once
// Loads a dictionary file into `IDIOMA` and `TXIDIOMA` of the general database.
//
// The file is UTF-8 text, one pair a line: the Spanish text, a tab, the
// translation. Blank lines and lines starting with "#" are skipped; "\X" marks
// a variable part. The whole file is checked before anything is written: a
// malformed line, a repeated text or a text longer than the key field refuses
// the file with a Spanish message naming the line, and nothing changes.
// Loading is idempotent: a text already in the language takes the file's
// translation, other texts of the language are kept. All writes are one
// transaction on "DatabaseGeneral".

#include <QString>

namespace co {

class TModuloDatos;

bool CargarDiccionario(TModuloDatos &datos, const QString &idioma, const QString &archivo,
                       QString *motivo);

} // namespace co
