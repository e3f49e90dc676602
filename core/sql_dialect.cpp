#include "core/sql_dialect.h"

#include "core/sql_lexer.h"

#include <QRegularExpression>

namespace co {
namespace {

bool isWordChar(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

// Start of the column name ("A" or "T.A") that ends at `end` of `text`, not
// before `floor`; -1 when there is none.
int nameStartBefore(const QString &text, int end, int floor) {
    int start = end;
    while (start > floor && (isWordChar(text.at(start - 1)) || text.at(start - 1) == u'.'))
        --start;
    if (start == end || !(text.at(start).isLetter() || text.at(start) == u'_'))
        return -1;
    if (start > floor && text.at(start - 1) == u'.')
        return -1;
    return start;
}

QString bareName(const QString &name) {
    return name.mid(name.lastIndexOf(u'.') + 1).toUpper();
}

// Every piece but code as a same-length placeholder, so that positions found in
// the masked text are positions in the statement.
QString masked(const QList<TrozoSQL> &pieces) {
    QString out;
    for (const TrozoSQL &p : pieces)
        out += p.tipo == TipoTrozo::Codigo ? p.texto : QString(p.texto.size(), u'_');
    return out;
}

// "SELECT [DISTINCT] TOP n" -> LIMIT n before the end of the same parenthesis level.
QString rewriteTop(QString sql, Backend backend) {
    static const QRegularExpression top(
        QStringLiteral("\\bSELECT(\\s+DISTINCT)?\\s+TOP\\s*\\(?\\s*(\\d+)\\s*\\)?\\s"),
        QRegularExpression::CaseInsensitiveOption);
    for (int guard = 0; guard < 64; ++guard) {
        const QString mask = masked(TrocearSentencia(sql, backend));
        const QRegularExpressionMatch m = top.match(mask);
        if (!m.hasMatch())
            break;
        const QString head = QStringLiteral("SELECT") + m.captured(1) + u' ';
        int depth = 0;
        int end = static_cast<int>(mask.size());
        for (int i = static_cast<int>(m.capturedEnd()); i < mask.size(); ++i) {
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
              QStringLiteral(" LIMIT ") + m.captured(2) + sql.mid(end);
    }
    return sql;
}

// Whether any rewrite could apply: most statements need none, and the
// check is far cheaper than the rewriting passes.
bool mayNeedRewrite(const QString &sql, Backend backend) {
    static const QStringList needles = {QStringLiteral("TOP"), QStringLiteral("NOLOCK"),
                                        QStringLiteral("dbo."), QStringLiteral("EXEC")};
    for (const QString &n : needles)
        if (sql.contains(n, Qt::CaseInsensitive))
            return true;
    if (sql.contains(QStringLiteral("Part")))
        return true;
    return backend == Backend::SQLite ? sql.contains(QStringLiteral(" 00:00:00"))
                                      : sql.contains(QStringLiteral("''"));
}

struct CodeRule {
    QString needle; // the rule runs only on pieces that hold it
    QRegularExpression re;
    QString with;
};

const QList<CodeRule> &codeRules() {
    static const QList<CodeRule> rules = {
        {QStringLiteral("NOLOCK"),
         QRegularExpression(QStringLiteral("\\s*\\bWITH\\s*\\(\\s*NOLOCK\\s*\\)"),
                            QRegularExpression::CaseInsensitiveOption),
         QString()},
        {QStringLiteral("dbo."),
         QRegularExpression(QStringLiteral("\\b(\\w+)\\.dbo\\."),
                            QRegularExpression::CaseInsensitiveOption),
         QStringLiteral("\\1.")},
        {QStringLiteral("dbo."),
         QRegularExpression(QStringLiteral("\\bdbo\\."), QRegularExpression::CaseInsensitiveOption),
         QString()},
        {QStringLiteral("PartMatOB"), QRegularExpression(QStringLiteral("\\bPartMatOB\\b")),
         QStringLiteral("PARMATOB")},
        {QStringLiteral("PartMaqOB"), QRegularExpression(QStringLiteral("\\bPartMaqOB\\b")),
         QStringLiteral("PARMAQOB")},
        {QStringLiteral("ParteOB"), QRegularExpression(QStringLiteral("\\bParteOB\\b")),
         QStringLiteral("PARTEOB")},
        {QStringLiteral("PartSubOB"), QRegularExpression(QStringLiteral("\\bPartSubOB\\b")),
         QStringLiteral("PARSUBOB")},
    };
    return rules;
}

// The column each value of "INSERT INTO T (a, b) VALUES (...), (...)" goes to,
// followed piece by piece.
class InsertColumns {
public:
    explicit InsertColumns(const QList<TrozoSQL> &pieces) {
        static const QRegularExpression insert(
            QStringLiteral("^\\s*INSERT\\s+INTO\\s+[\\w.]+\\s*\\(([^)]*)\\)\\s*VALUES\\s*"),
            QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch m = insert.match(masked(pieces));
        if (!m.hasMatch())
            return;
        for (const QString &c : m.captured(1).split(u','))
            columns_ << bareName(c.trimmed());
        valuesAt_ = static_cast<int>(m.capturedEnd());
    }

    // Code from `pos` in the statement moves the position among the values.
    void code(const QString &text, int pos) {
        if (columns_.isEmpty())
            return;
        for (int i = 0; i < text.size(); ++i) {
            if (pos + i < valuesAt_)
                continue;
            const QChar c = text.at(i);
            if (c == u'(') {
                if (++depth_ == 1)
                    index_ = 0;
            } else if (c == u')') {
                --depth_;
            } else if (c == u',' && depth_ == 1) {
                ++index_;
            }
        }
    }

    // The column of a value standing at this point; empty when none.
    QString current(int pos) const {
        if (columns_.isEmpty() || pos < valuesAt_ || depth_ != 1 || index_ >= columns_.size())
            return {};
        return columns_.at(index_);
    }

private:
    QStringList columns_;
    int valuesAt_ = 0;
    int depth_ = 0;
    int index_ = 0;
};

// The column a literal is compared with or assigned to, from the code around it.
QString comparedColumn(const QString &before, const QString &after) {
    static const QRegularExpression op(
        QStringLiteral("((?:[A-Za-z_]\\w*\\.)?[A-Za-z_]\\w*)\\s*(?:=|<>|!=|<=|>=|<|>)\\s*$"));
    static const QRegularExpression between(
        QStringLiteral("((?:[A-Za-z_]\\w*\\.)?[A-Za-z_]\\w*)\\s+(?:NOT\\s+)?BETWEEN\\s+(?:'[^']*'"
                       "\\s+AND\\s+)?$"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression opAfter(
        QStringLiteral("^\\s*(?:=|<>|!=|<=|>=|<|>)\\s*((?:[A-Za-z_]\\w*\\.)?[A-Za-z_]\\w*)"));
    const QString tail = before.right(120);
    for (const QRegularExpression *re : {&op, &between})
        if (const QRegularExpressionMatch m = re->match(tail); m.hasMatch())
            return bareName(m.captured(1));
    if (const QRegularExpressionMatch m = opAfter.match(after.left(120)); m.hasMatch())
        return bareName(m.captured(1));
    return {};
}

bool isMidnight(const QString &literal) {
    static const QRegularExpression midnight(
        QStringLiteral("^'\\d{4}-\\d{2}-\\d{2} 00:00:00(\\.0+)?'$"));
    return literal.size() >= 21 && midnight.match(literal).hasMatch();
}

// PostgreSQL: "<name> <op> ''" after WHERE compares the text of the column.
bool castBeforeEmpty(QString &out, int floor) {
    static const QStringList ops = {QStringLiteral(" = "),  QStringLiteral(" <> "),
                                    QStringLiteral(" >= "), QStringLiteral(" <= "),
                                    QStringLiteral(" > "),  QStringLiteral(" < ")};
    for (const QString &o : ops) {
        if (!out.endsWith(o))
            continue;
        const int end = static_cast<int>(out.size() - o.size());
        const int start = nameStartBefore(out, end, floor);
        if (start < 0)
            return false;
        out.insert(end, QStringLiteral(" AS TEXT)"));
        out.insert(start, QStringLiteral("CAST("));
        return true;
    }
    return false;
}

} // namespace

QString AdaptarSentencia(const QString &sql, Backend backend, const ColumnasFecha *fechas) {
    if (!mayNeedRewrite(sql, backend))
        return sql;
    static const QRegularExpression where(QStringLiteral("\\bWHERE\\b"),
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression exec(
        QStringLiteral("^\\s*EXEC(UTE)?\\s+([\\w.]+)\\s*(.*?);?\\s*$"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);

    QList<TrozoSQL> pieces = TrocearSentencia(sql, backend);
    for (TrozoSQL &p : pieces)
        if (p.tipo == TipoTrozo::Codigo)
            for (const CodeRule &r : codeRules())
                if (p.texto.contains(r.needle, Qt::CaseInsensitive))
                    p.texto.replace(r.re, r.with);

    const bool dates = backend == Backend::SQLite && fechas && !fechas->isEmpty();
    InsertColumns insert(pieces);
    QString out;
    out.reserve(sql.size() + 16);
    int floor = 0; // a name never reaches back past a literal, name or comment
    int pos = 0;   // position in the statement as written
    bool afterWhere = false;
    for (int k = 0; k < pieces.size(); ++k) {
        const TrozoSQL &p = pieces.at(k);
        if (p.tipo == TipoTrozo::Codigo) {
            if (!afterWhere && p.texto.contains(where))
                afterWhere = true;
            insert.code(p.texto, pos);
            out += p.texto;
        } else if (p.tipo == TipoTrozo::Literal && dates && isMidnight(p.texto)) {
            QString column = insert.current(pos);
            if (column.isEmpty()) {
                const QString after =
                    k + 1 < pieces.size() && pieces.at(k + 1).tipo == TipoTrozo::Codigo
                        ? pieces.at(k + 1).texto
                        : QString();
                column = comparedColumn(out, after);
            }
            out += fechas->contains(column) ? p.texto.left(11) + u'\'' : p.texto;
            floor = static_cast<int>(out.size());
        } else {
            if (backend == Backend::PostgreSQL && afterWhere && p.esLiteralVacio())
                castBeforeEmpty(out, floor);
            out += p.texto;
            floor = static_cast<int>(out.size());
        }
        pos += static_cast<int>(p.texto.size());
    }

    if (out.contains(QStringLiteral("TOP"), Qt::CaseInsensitive))
        out = rewriteTop(out, backend);
    if (backend == Backend::PostgreSQL &&
        out.contains(QStringLiteral("EXEC"), Qt::CaseInsensitive)) {
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

QStringList IdentificadoresDeSentencia(const QString &sql, Backend backend) {
    static const QRegularExpression word(QStringLiteral("[A-Za-z_\\x{00C0}-\\x{024F}][\\w]*"));
    QStringList out;
    for (const TrozoSQL &p : TrocearSentencia(sql, backend)) {
        if (p.tipo != TipoTrozo::Codigo)
            continue;
        auto it = word.globalMatch(p.texto);
        while (it.hasNext())
            out << it.next().captured(0);
    }
    return out;
}

} // namespace co
