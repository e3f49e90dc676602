#include "core/ini_file.h"

#include "core/settings_file.h"
#include "core/windows_codepage.h"

#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>

namespace co {
namespace {

enum class LineKind { Blank, Comment, Section, Key, Malformed };

LineKind kindOf(const QString &line) {
    const QString t = line.trimmed();
    if (t.isEmpty())
        return LineKind::Blank;
    if (t.startsWith(u';') || t.startsWith(u'#'))
        return LineKind::Comment;
    if (t.startsWith(u'[') && t.indexOf(u']') > 0)
        return LineKind::Section;
    if (t.indexOf(u'=') > 0)
        return LineKind::Key;
    return LineKind::Malformed;
}

QString sectionName(const QString &line) {
    const QString t = line.trimmed();
    return t.mid(1, t.indexOf(u']') - 1).trimmed();
}

QString keyName(const QString &line) {
    return line.left(line.indexOf(u'=')).trimmed();
}

bool sameName(const QString &a, const QString &b) {
    return a.compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}

bool hasLineBreak(const QString &s) {
    return s.contains(u'\n') || s.contains(u'\r');
}

} // namespace

IniFile IniFile::load(const QString &path) {
    IniFile ini;
    ini.path_ = path;
    ArchivoParametros archivo = LeerArchivoParametros(path);
    if (archivo.estado == ArchivoParametros::Estado::NoExiste)
        return ini;
    if (archivo.estado == ArchivoParametros::Estado::Ilegible) {
        ini.status_ = Status::Unreadable;
        ini.reason_ = archivo.motivo;
        return ini;
    }
    QByteArray bytes = std::move(archivo.contenido);
    ini.status_ = Status::Ok;
    ini.bom_ = bytes.startsWith("\xEF\xBB\xBF");
    if (ini.bom_)
        bytes.remove(0, 3);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (utf8.hasError()) {
        text = decodeWindows1252(bytes);
        ini.utf8_ = false;
    }
    ini.eol_ = text.contains(QLatin1String("\r\n")) ? QStringLiteral("\r\n") : QStringLiteral("\n");
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    ini.finalEol_ = text.isEmpty() || text.endsWith(u'\n');
    if (!text.isEmpty()) {
        ini.lines_ = text.split(u'\n');
        if (ini.finalEol_)
            ini.lines_.removeLast();
    }
    return ini;
}

std::optional<IniFile::Range> IniFile::findSection(const QString &section) const {
    for (int i = 0; i < lines_.size(); ++i) {
        if (kindOf(lines_[i]) != LineKind::Section || !sameName(sectionName(lines_[i]), section))
            continue;
        Range r{i, i + 1};
        while (r.end < lines_.size() && kindOf(lines_[r.end]) != LineKind::Section)
            ++r.end;
        return r;
    }
    return std::nullopt;
}

int IniFile::findKey(const Range &range, const QString &key) const {
    for (int i = range.header + 1; i < range.end; ++i) {
        if (kindOf(lines_[i]) == LineKind::Key && sameName(keyName(lines_[i]), key))
            return i;
    }
    return -1;
}

std::optional<QString> IniFile::value(const QString &section, const QString &key) const {
    const std::optional<Range> range = findSection(section);
    if (!range)
        return std::nullopt;
    const int line = findKey(*range, key);
    if (line < 0)
        return std::nullopt;
    return lines_[line].mid(lines_[line].indexOf(u'=') + 1).trimmed();
}

QStringList IniFile::sections() const {
    QStringList out;
    for (const QString &line : lines_) {
        if (kindOf(line) == LineKind::Section)
            out << sectionName(line);
    }
    return out;
}

QStringList IniFile::keys(const QString &section) const {
    QStringList out;
    if (const std::optional<Range> range = findSection(section)) {
        for (int i = range->header + 1; i < range->end; ++i) {
            if (kindOf(lines_[i]) == LineKind::Key)
                out << keyName(lines_[i]);
        }
    }
    return out;
}

QStringList IniFile::malformedLines() const {
    QStringList out;
    for (const QString &line : lines_) {
        if (kindOf(line) == LineKind::Malformed)
            out << line;
    }
    return out;
}

bool IniFile::setValue(const QString &section, const QString &key, const QString &value) {
    const QString s = section.trimmed(), k = key.trimmed();
    if (s.isEmpty() || s.contains(u'[') || s.contains(u']') || hasLineBreak(s) || k.isEmpty() ||
        k.contains(u'=') || hasLineBreak(k) || hasLineBreak(value) || k.startsWith(u';') ||
        k.startsWith(u'#') || k.startsWith(u'['))
        return false;
    const std::optional<Range> range = findSection(s);
    if (!range) {
        if (!lines_.isEmpty() && !lines_.last().trimmed().isEmpty())
            lines_ << QString();
        lines_ << u'[' + s + u']' << k + u'=' + value;
        return true;
    }
    const int line = findKey(*range, k);
    if (line >= 0) {
        // Keep the key as spelled in the file, with its spacing.
        const QString &old = lines_[line];
        qsizetype start = old.indexOf(u'=') + 1;
        while (start < old.size() && old.at(start).isSpace())
            ++start;
        lines_[line] = old.left(start) + value;
        return true;
    }
    int at = range->end;
    while (at > range->header + 1 && lines_[at - 1].trimmed().isEmpty())
        --at;
    lines_.insert(at, k + u'=' + value);
    return true;
}

QString IniFile::text() const {
    QString out = lines_.join(eol_);
    if (finalEol_ && !lines_.isEmpty())
        out += eol_;
    return out;
}

bool IniFile::save(QString *reason) const {
    auto fail = [&](const QString &why) {
        if (reason)
            *reason = why;
        return false;
    };
    if (status_ == Status::Unreadable)
        return fail(QStringLiteral("no se puede leer (%1)").arg(reason_));
    const QString content = text();
    QByteArray bytes;
    std::optional<QByteArray> single = utf8_ ? std::nullopt : encodeWindows1252(content);
    if (single) {
        bytes = *single;
    } else {
        bytes = QStringEncoder(QStringEncoder::Utf8).encode(content);
        if (bom_)
            bytes.prepend("\xEF\xBB\xBF");
    }
    QSaveFile file(path_);
    if (!file.open(QIODevice::WriteOnly))
        return fail(file.errorString());
    file.write(bytes);
    if (!file.commit())
        return fail(file.errorString());
    return true;
}

bool EscribirClaveINI(const QString &archivo, const QString &seccion, const QString &clave,
                      const QString &valor, QString *motivo) {
    const QString prefix =
        QStringLiteral("No ha sido posible escribir la clave %1 en el archivo %2: ")
            .arg(clave, archivo);
    IniFile ini = IniFile::load(archivo);
    if (ini.status() == IniFile::Status::Unreadable) {
        if (motivo)
            *motivo = prefix + QStringLiteral("no se puede leer (%1).").arg(ini.reason());
        return false;
    }
    if (!ini.setValue(seccion, clave, valor)) {
        if (motivo)
            *motivo =
                prefix + QStringLiteral(
                             "la sección, la clave o el valor no son válidos para un archivo INI.");
        return false;
    }
    QString why;
    if (!ini.save(&why)) {
        if (motivo)
            *motivo = prefix + why + u'.';
        return false;
    }
    return true;
}

} // namespace co
