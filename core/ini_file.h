#pragma once
// A Windows-style INI file read and rewritten without disturbing it: section
// names with accents, key order, comments, blank lines, unknown or malformed
// lines, line-end style and text encoding all survive a write.
//
// Reading: "[Section]" lines open a section; "Key=Value" lines inside one give
// values, both sides trimmed; section and key names compare without case; the
// first section and the first key of a name win. Lines starting with ";" or "#"
// are comments; any other line is kept and ignored.
// A file that is not a regular one, or is beyond the size of any settings file,
// loads as unreadable (see settings_file.h).
// Encoding: UTF-8 when the bytes are valid UTF-8, else the Windows Western code
// page. A write keeps the encoding read, unless a new value cannot be written in
// it: the file then becomes UTF-8, so that nothing is lost.

#include <QString>
#include <QStringList>
#include <optional>

namespace co {

class IniFile {
public:
    enum class Status { Ok, Missing, Unreadable };

    // Loads `path`. A missing file loads empty (status Missing); a file that
    // exists but cannot be read loads empty with status Unreadable and `reason`.
    static IniFile load(const QString &path);

    Status status() const { return status_; }
    const QString &path() const { return path_; }
    const QString &reason() const { return reason_; }
    bool isUtf8() const { return utf8_; }

    std::optional<QString> value(const QString &section, const QString &key) const;
    QStringList sections() const;
    QStringList keys(const QString &section) const;
    // Lines that are neither section, key, comment nor blank, as they stand.
    QStringList malformedLines() const;

    // Sets one key: rewrites the value of the first such key in place, or adds the
    // key at the end of the section, or adds the section at the end of the file.
    // Returns false for an empty or bracketed section, an empty key, a key with "="
    // or a value with a line break.
    bool setValue(const QString &section, const QString &key, const QString &value);

    // The whole file as text, with its own line ends.
    QString text() const;

    // Writes the file atomically. Refuses (false, `reason`) when it was unreadable:
    // writing would lose what it holds.
    bool save(QString *reason = nullptr) const;

private:
    struct Range {
        int header = -1; // line of "[Section]"
        int end = 0;     // one past its last line
    };
    std::optional<Range> findSection(const QString &section) const;
    int findKey(const Range &range, const QString &key) const;

    QString path_;
    Status status_ = Status::Missing;
    QString reason_;
    QStringList lines_;
    QString eol_ = QStringLiteral("\n");
    bool finalEol_ = true;
    bool utf8_ = true;
    bool bom_ = false;
};

// `EscribirClaveINI`: writes one key into `archivo`, keeping the rest of the file.
// A missing file is created. On failure returns false and a Spanish `motivo`.
bool EscribirClaveINI(const QString &archivo, const QString &seccion, const QString &clave,
                      const QString &valor, QString *motivo = nullptr);

} // namespace co
