#include "core/sql_lexer.h"

#include <QRegularExpression>
#include <algorithm>

namespace co {
namespace {

bool isIdentChar(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'$';
}

class Lexer {
public:
    Lexer(const QString &sql, Backend backend)
        : s_(sql), n_(static_cast<int>(sql.size())), pg_(backend == Backend::PostgreSQL) {}

    QList<TrozoSQL> run() {
        int codeStart = 0;
        int i = 0;
        while (i < n_) {
            const auto [tipo, end] = pieceAt(i);
            if (end == i) {
                ++i;
                continue;
            }
            if (i > codeStart)
                out_.append({TipoTrozo::Codigo, s_.mid(codeStart, i - codeStart)});
            out_.append({tipo, s_.mid(i, end - i)});
            i = codeStart = end;
        }
        if (n_ > codeStart)
            out_.append({TipoTrozo::Codigo, s_.mid(codeStart)});
        return std::move(out_);
    }

private:
    QChar at(int i) const { return i < n_ ? s_.at(i) : QChar(); }

    // The piece that starts at `i`, or `i` itself when it is code.
    std::pair<TipoTrozo, int> pieceAt(int i) const {
        const QChar c = s_.at(i);
        const bool wordBefore = i > 0 && isIdentChar(s_.at(i - 1));
        if (c == u'\'')
            return {TipoTrozo::Literal, quoted(i, u'\'', false)};
        if (pg_ && (c == u'E' || c == u'e') && at(i + 1) == u'\'' && !wordBefore)
            return {TipoTrozo::Literal, quoted(i + 1, u'\'', true)};
        if (c == u'"')
            return {TipoTrozo::Nombre, quoted(i, u'"', false)};
        if (!pg_ && c == u'`')
            return {TipoTrozo::Nombre, quoted(i, u'`', false)};
        if (!pg_ && c == u'[')
            return {TipoTrozo::Nombre, closing(i + 1, u']')};
        if (c == u'-' && at(i + 1) == u'-')
            return {TipoTrozo::Comentario, closing(i + 2, u'\n')};
        if (c == u'/' && at(i + 1) == u'*')
            return {TipoTrozo::Comentario, blockComment(i)};
        if (pg_ && c == u'$' && !wordBefore)
            if (const int end = dollarQuoted(i); end > i)
                return {TipoTrozo::Literal, end};
        return {TipoTrozo::Codigo, i};
    }

    // From the opening quote at `i` to after its closing one; a doubled quote
    // stays inside, as does an escaped character when `backslash`.
    int quoted(int i, QChar quote, bool backslash) const {
        int j = i + 1;
        while (j < n_) {
            const QChar c = s_.at(j);
            if (backslash && c == u'\\') {
                j += 2;
                continue;
            }
            if (c == quote) {
                if (at(j + 1) == quote) {
                    j += 2;
                    continue;
                }
                return j + 1;
            }
            ++j;
        }
        return n_;
    }

    int closing(int from, QChar end) const {
        const int j = static_cast<int>(s_.indexOf(end, from));
        return j < 0 ? n_ : j + 1;
    }

    int blockComment(int i) const {
        int depth = 0;
        int j = i;
        while (j < n_) {
            if (s_.at(j) == u'/' && at(j + 1) == u'*') {
                if (depth > 0 && !pg_) {
                    j += 2;
                    continue;
                }
                ++depth;
                j += 2;
            } else if (s_.at(j) == u'*' && at(j + 1) == u'/') {
                j += 2;
                if (--depth == 0)
                    return j;
            } else {
                ++j;
            }
        }
        return n_;
    }

    // "$tag$ ... $tag$" with an empty tag or a name; `i` when `i` starts no such text.
    int dollarQuoted(int i) const {
        int j = i + 1;
        if (j < n_ && (s_.at(j).isLetter() || s_.at(j) == u'_'))
            while (j < n_ && (s_.at(j).isLetterOrNumber() || s_.at(j) == u'_'))
                ++j;
        if (at(j) != u'$')
            return i;
        const QString tag = s_.mid(i, j + 1 - i);
        const int close = static_cast<int>(s_.indexOf(tag, j + 1));
        return close < 0 ? n_ : close + static_cast<int>(tag.size());
    }

    const QString &s_;
    const int n_;
    const bool pg_;
    QList<TrozoSQL> out_;
};

} // namespace

QList<TrozoSQL> TrocearSentencia(const QString &sql, Backend backend) {
    return Lexer(sql, backend).run();
}

QString UnirTrozos(const QList<TrozoSQL> &trozos) {
    qsizetype size = 0;
    for (const TrozoSQL &t : trozos)
        size += t.texto.size();
    QString out;
    out.reserve(size);
    for (const TrozoSQL &t : trozos)
        out += t.texto;
    return out;
}

QStringList LiteralesDeSentencia(const QString &sql, Backend backend) {
    QStringList out;
    for (const TrozoSQL &t : TrocearSentencia(sql, backend))
        if (t.tipo == TipoTrozo::Literal)
            out << t.texto;
    return out;
}

bool HayVariasSentencias(const QString &sql, Backend backend) {
    if (!sql.contains(u';'))
        return false;
    // Code with every other piece blanked: only code can end a statement.
    QString code;
    code.reserve(sql.size());
    for (const TrozoSQL &t : TrocearSentencia(sql, backend)) {
        if (t.tipo == TipoTrozo::Codigo)
            code += t.texto;
        else
            code += t.tipo == TipoTrozo::Comentario ? QString(t.texto.size(), u' ')
                                                    : QString(t.texto.size(), u'x');
    }
    // A trigger's body holds its own statements, up to its last END.
    static const QRegularExpression trigger(
        QStringLiteral("^\\s*CREATE\\s+(TEMP\\w*\\s+)?TRIGGER\\b"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression end(QStringLiteral("\\bEND\\b"),
                                        QRegularExpression::CaseInsensitiveOption);
    qsizetype from = 0;
    if (trigger.match(code).hasMatch())
        from = std::max<qsizetype>(0, code.lastIndexOf(end));
    const qsizetype semicolon = code.indexOf(u';', from);
    if (semicolon < 0)
        return false;
    for (qsizetype i = semicolon + 1; i < code.size(); ++i)
        if (!code.at(i).isSpace() && code.at(i) != u';')
            return true;
    return false;
}

} // namespace co
