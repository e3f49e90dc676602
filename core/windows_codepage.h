#pragma once
// The Windows Western code page (1252), in which the suite's Windows programs
// wrote their INI files and scrambled passwords. Qt offers Latin-1 only, which
// differs in the bytes 0x80-0x9F (euro sign, curly quotes, "Š", "Œ", ...).

#include <QByteArray>
#include <QChar>
#include <QString>
#include <optional>

namespace co {

// The character of one byte; the five bytes the code page leaves unused map to
// the control characters of the same number, as Windows does.
QChar fromWindows1252(unsigned char byte);

// The byte of one character, or nullopt when the code page has none.
std::optional<unsigned char> toWindows1252(QChar c);

QString decodeWindows1252(const QByteArray &bytes);

// nullopt when some character has no byte.
std::optional<QByteArray> encodeWindows1252(const QString &text);

} // namespace co
