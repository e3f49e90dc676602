#include "core/sql_dialect.h"

#include <QRegularExpression>

namespace co {
namespace {

// A statement cut into code and literal pieces. The empty literal '' is kept in
// the code, as the comparisons with it are rewritten.
struct Piece {
    QString text;
    bool literal;
};

QList<Piece> split(const QString &sql) {
    QList<Piece> pieces;
    QString code;
    int i = 0;
    const int n = sql.size();
    while (i < n) {
        const QChar c = sql.at(i);
        if (c != u'\'') {
            code += c;
            ++i;
            continue;
        }
        if (i + 1 < n && sql.at(i + 1) == u'\'' && (i + 2 >= n || sql.at(i + 2) != u'\'')) {
            code += QStringLiteral("''");
            i += 2;
            continue;
        }
        int j = i + 1;
        while (j < n) {
            if (sql.at(j) == u'\'') {
                if (j + 1 < n && sql.at(j + 1) == u'\'') {
                    j += 2;
                    continue;
                }
                break;
            }
            ++j;
        }
        pieces.append({code, false});
        code.clear();
        pieces.append({sql.mid(i, j + 1 - i), true});
        i = j + 1;
    }
    pieces.append({code, false});
    return pieces;
}

QString join(const QList<Piece> &pieces) {
    QString out;
    for (const Piece &p : pieces)
        out += p.text;
    return out;
}

// Code pieces with every literal replaced by a same-length placeholder, so that
// positions found in the masked text are positions in the statement.
QString masked(const QString &sql) {
    QString out;
    out.reserve(sql.size());
    for (const Piece &p : split(sql))
        out += p.literal ? QString(p.text.size(), u'_') : p.text;
    return out;
}

void rewriteCode(QList<Piece> &pieces, const QRegularExpression &re, const QString &with) {
    for (Piece &p : pieces)
        if (!p.literal)
            p.text.replace(re, with);
}

// "SELECT [DISTINCT] TOP n" -> LIMIT n before the end of the same parenthesis level.
QString rewriteTop(QString sql) {
    static const QRegularExpression top(
        QStringLiteral("\\bSELECT(\\s+DISTINCT)?\\s+TOP\\s*\\(?\\s*(\\d+)\\s*\\)?\\s"),
        QRegularExpression::CaseInsensitiveOption);
    for (int guard = 0; guard < 64; ++guard) {
        const QString mask = masked(sql);
        const QRegularExpressionMatch m = top.match(mask);
        if (!m.hasMatch())
            break;
        const QString limit = m.captured(2);
        const QString head = QStringLiteral("SELECT") + m.captured(1) + u' ';
        int depth = 0;
        int end = mask.size();
        for (int i = m.capturedEnd(); i < mask.size(); ++i) {
            if (mask.at(i) == u'(')
                ++depth;
            else if (mask.at(i) == u')' && --depth < 0) {
                end = i;
                break;
            }
        }
        while (end > m.capturedEnd() && (mask.at(end - 1).isSpace() || mask.at(end - 1) == u';'))
            --end;
        sql = sql.left(m.capturedStart()) + head + sql.mid(m.capturedEnd(), end - m.capturedEnd()) +
              QStringLiteral(" LIMIT ") + limit + sql.mid(end);
    }
    return sql;
}

// Whether any rewrite could apply: most statements need none, and the
// check is far cheaper than the rewriting passes.
bool mayNeedRewrite(const QString &sql, Backend backend) {
    static const QStringList needles = {QStringLiteral("TOP"), QStringLiteral("NOLOCK"), QStringLiteral("dbo."),
                                        QStringLiteral("EXEC")};
    for (const QString &n : needles)
        if (sql.contains(n, Qt::CaseInsensitive))
            return true;
    if (sql.contains(QStringLiteral("Part")))
        return true;
    return backend == Backend::SQLite ? sql.contains(QStringLiteral(" 00:00:00"))
                                      : sql.contains(QStringLiteral("''"));
}

} // namespace

QString AdaptarSentencia(const QString &sql, Backend backend) {
    if (!mayNeedRewrite(sql, backend))
        return sql;
    static const QRegularExpression nolock(QStringLiteral("\\s*\\bWITH\\s*\\(\\s*NOLOCK\\s*\\)"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression aliasDbo(QStringLiteral("\\b(\\w+)\\.dbo\\."),
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression dbo(QStringLiteral("\\bdbo\\."),
                                        QRegularExpression::CaseInsensitiveOption);
    static const QList<std::pair<QRegularExpression, QString>> spellings = {
        {QRegularExpression(QStringLiteral("\\bPartMatOB\\b")), QStringLiteral("PARMATOB")},
        {QRegularExpression(QStringLiteral("\\bPartMaqOB\\b")), QStringLiteral("PARMAQOB")},
        {QRegularExpression(QStringLiteral("\\bParteOB\\b")), QStringLiteral("PARTEOB")},
        {QRegularExpression(QStringLiteral("\\bPartSubOB\\b")), QStringLiteral("PARSUBOB")},
    };
    static const QRegularExpression midnight(
        QStringLiteral("^'(\\d{4}-\\d{2}-\\d{2}) 00:00:00(\\.0+)?'$"));
    static const QRegularExpression exec(QStringLiteral("^\\s*EXEC(UTE)?\\s+([\\w.]+)\\s*(.*?);?\\s*$"),
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression emptyCompare(
        QStringLiteral("(?<![\\w.])([A-Za-z_][\\w]*(?:\\.[A-Za-z_][\\w]*)?)( = ''| <> ''| >= ''| <= ''| > ''| < '')(?!')"));

    QList<Piece> pieces = split(sql);
    rewriteCode(pieces, nolock, QString());
    rewriteCode(pieces, aliasDbo, QStringLiteral("\\1."));
    rewriteCode(pieces, dbo, QString());
    for (const auto &[re, table] : spellings)
        rewriteCode(pieces, re, table);

    if (backend == Backend::SQLite) {
        for (Piece &p : pieces)
            if (p.literal)
                p.text.replace(midnight, QStringLiteral("'\\1'"));
    } else {
        // Only comparisons after WHERE; an assignment "SET A = ''" stays.
        bool afterWhere = false;
        for (Piece &p : pieces) {
            if (p.literal)
                continue;
            int from = 0;
            if (!afterWhere) {
                const int w = p.text.indexOf(QStringLiteral("WHERE"), 0, Qt::CaseInsensitive);
                if (w < 0)
                    continue;
                afterWhere = true;
                from = w;
            }
            p.text = p.text.left(from) +
                     p.text.mid(from).replace(emptyCompare, QStringLiteral("CAST(\\1 AS TEXT)\\2"));
        }
    }

    QString out = rewriteTop(join(pieces));
    if (backend == Backend::PostgreSQL) {
        const QRegularExpressionMatch m = exec.match(out);
        if (m.hasMatch()) {
            QString args = m.captured(3).trimmed();
            if (args.startsWith(u'(') && args.endsWith(u')'))
                args = args.mid(1, args.size() - 2);
            out = QStringLiteral("SELECT * FROM %1(%2)").arg(m.captured(2), args);
        }
    }
    return out;
}

QStringList IdentificadoresDeSentencia(const QString &sql) {
    static const QRegularExpression word(QStringLiteral("[A-Za-z_\\x{00C0}-\\x{024F}][\\w]*"));
    QStringList out;
    for (const Piece &p : split(sql)) {
        if (p.literal)
            continue;
        auto it = word.globalMatch(p.text);
        while (it.hasNext())
            out << it.next().captured(0);
    }
    return out;
}

} // namespace co
