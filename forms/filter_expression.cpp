#include "forms/filter_expression.h"

#include "core/date_utils.h"
#include "core/failure.h"
#include "core/number_text.h"
#include "forms/dataset_errors.h"
#include "forms/field.h"

#include <QRegularExpression>
#include <vector>

namespace co::forms {

namespace {

enum class Tok { Ident, Text, Number, LParen, RParen, Op, End };

struct Token {
    Tok kind;
    QString text;
};

[[noreturn]] void malformed(const QString &detail) {
    throw EDatabaseError(QStringLiteral("Filter expression incorrectly formed: ") + detail);
}

bool isWordChar(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

bool isKeyword(const QString &w) {
    const QString u = w.toUpper();
    return u == u"AND" || u == u"OR";
}

// A quote closes a text when what follows is ")", an operator, the end, or AND/OR.
bool closesText(const QString &s, qsizetype at) {
    qsizetype i = at + 1;
    while (i < s.size() && s[i].isSpace())
        ++i;
    if (i >= s.size() || s[i] == u')' || s[i] == u'<' || s[i] == u'>' || s[i] == u'=')
        return true;
    if (i == at + 1)
        return false;
    qsizetype j = i;
    while (j < s.size() && isWordChar(s[j]))
        ++j;
    return isKeyword(s.mid(i, j - i));
}

std::vector<Token> tokenize(const QString &s) {
    std::vector<Token> out;
    qsizetype i = 0;
    while (i < s.size()) {
        const QChar c = s[i];
        if (c.isSpace()) {
            ++i;
        } else if (c == u'(') {
            out.push_back({Tok::LParen, QStringLiteral("(")});
            ++i;
        } else if (c == u')') {
            out.push_back({Tok::RParen, QStringLiteral(")")});
            ++i;
        } else if (c == u'\'' || c == u'"') {
            qsizetype j = i + 1;
            while (j < s.size() && !(s[j] == c && closesText(s, j)))
                ++j;
            if (j >= s.size())
                malformed(QStringLiteral("falta la comilla de cierre"));
            out.push_back({Tok::Text, s.mid(i + 1, j - i - 1)});
            i = j + 1;
        } else if (c == u'[') {
            const qsizetype j = s.indexOf(u']', i);
            if (j < 0)
                malformed(QStringLiteral("falta el corchete de cierre"));
            out.push_back({Tok::Ident, s.mid(i + 1, j - i - 1).trimmed()});
            i = j + 1;
        } else if (c == u'<' || c == u'>' || c == u'=') {
            QString op(c);
            if (i + 1 < s.size() && ((c == u'<' && (s[i + 1] == u'>' || s[i + 1] == u'=')) ||
                                     (c == u'>' && s[i + 1] == u'=')))
                op += s[i + 1];
            out.push_back({Tok::Op, op});
            i += op.size();
        } else if (c.isDigit() ||
                   ((c == u'-' || c == u'.') && i + 1 < s.size() && s[i + 1].isDigit())) {
            qsizetype j = i + 1;
            while (j < s.size() && (s[j].isDigit() || s[j] == u'.' || s[j] == u','))
                ++j;
            out.push_back({Tok::Number, s.mid(i, j - i)});
            i = j;
        } else if (isWordChar(c)) {
            qsizetype j = i;
            while (j < s.size() && (isWordChar(s[j]) || s[j] == u'.'))
                ++j;
            out.push_back({Tok::Ident, s.mid(i, j - i)});
            i = j;
        } else {
            malformed(QStringLiteral("carácter inesperado '%1'").arg(c));
        }
    }
    out.push_back({Tok::End, {}});
    return out;
}

} // namespace

struct FilterExpression::Node {
    enum class Kind { And, Or, Not, Compare, IsNull } kind;
    std::unique_ptr<Node> left, right;
    // Compare / IsNull
    struct Operand {
        bool field = false;
        bool number = false;
        QString text; // field name or literal
    } a, b;
    QString op;
    bool negated = false;
};

namespace {

using Node = FilterExpression::Node;
using Operand = Node::Operand;

class Parser {
public:
    explicit Parser(std::vector<Token> tokens) : t_(std::move(tokens)) {}

    std::unique_ptr<Node> parse() {
        auto n = orExpr();
        if (peek().kind != Tok::End)
            malformed(QStringLiteral("sobra '%1'").arg(peek().text));
        return n;
    }

private:
    const Token &peek() const { return t_[pos_]; }
    Token take() { return t_[pos_++]; }
    bool word(const char *w) const {
        return peek().kind == Tok::Ident &&
               peek().text.compare(QLatin1String(w), Qt::CaseInsensitive) == 0;
    }

    std::unique_ptr<Node> binary(Node::Kind kind, std::unique_ptr<Node> l,
                                 std::unique_ptr<Node> r) {
        auto n = std::make_unique<Node>();
        n->kind = kind;
        n->left = std::move(l);
        n->right = std::move(r);
        return n;
    }

    std::unique_ptr<Node> orExpr() {
        auto n = andExpr();
        while (word("OR")) {
            take();
            n = binary(Node::Kind::Or, std::move(n), andExpr());
        }
        return n;
    }

    std::unique_ptr<Node> andExpr() {
        auto n = unary();
        while (word("AND")) {
            take();
            n = binary(Node::Kind::And, std::move(n), unary());
        }
        return n;
    }

    std::unique_ptr<Node> unary() {
        if (word("NOT")) {
            take();
            auto n = std::make_unique<Node>();
            n->kind = Node::Kind::Not;
            n->left = unary();
            return n;
        }
        if (peek().kind == Tok::LParen) {
            take();
            auto n = orExpr();
            if (peek().kind != Tok::RParen)
                malformed(QStringLiteral("falta el paréntesis de cierre"));
            take();
            return n;
        }
        return comparison();
    }

    Operand operand() {
        const Token tok = take();
        switch (tok.kind) {
        case Tok::Ident:
            if (isKeyword(tok.text) || tok.text.compare(u"NOT", Qt::CaseInsensitive) == 0)
                malformed(QStringLiteral("falta un valor antes de '%1'").arg(tok.text));
            return {true, false, tok.text};
        case Tok::Text:
            return {false, false, tok.text};
        case Tok::Number:
            return {false, true, tok.text};
        default:
            malformed(tok.kind == Tok::End
                          ? QStringLiteral("la condición está incompleta")
                          : QStringLiteral("se esperaba un valor en lugar de '%1'").arg(tok.text));
        }
    }

    std::unique_ptr<Node> comparison() {
        auto n = std::make_unique<Node>();
        n->a = operand();
        if (word("IS")) {
            take();
            n->kind = Node::Kind::IsNull;
            if (word("NOT")) {
                take();
                n->negated = true;
            }
            if (!word("NULL"))
                malformed(QStringLiteral("se esperaba NULL"));
            take();
            if (!n->a.field)
                malformed(QStringLiteral("IS NULL requiere un campo"));
            return n;
        }
        if (peek().kind != Tok::Op)
            malformed(
                peek().kind == Tok::End
                    ? QStringLiteral("falta el operador")
                    : QStringLiteral("se esperaba un operador en lugar de '%1'").arg(peek().text));
        n->kind = Node::Kind::Compare;
        n->op = take().text;
        n->b = operand();
        return n;
    }

    std::vector<Token> t_;
    std::size_t pos_ = 0;
};

QString mirror(const QString &op) {
    if (op == u"<")
        return QStringLiteral(">");
    if (op == u">")
        return QStringLiteral("<");
    if (op == u"<=")
        return QStringLiteral(">=");
    if (op == u">=")
        return QStringLiteral("<=");
    return op;
}

bool holds(int cmp, const QString &op) {
    if (op == u"=")
        return cmp == 0;
    if (op == u"<>")
        return cmp != 0;
    if (op == u"<")
        return cmp < 0;
    if (op == u">")
        return cmp > 0;
    if (op == u"<=")
        return cmp <= 0;
    return cmp >= 0;
}

FilterOperand resolve(const Operand &o, const FilterLookup &lookup) {
    if (!o.field)
        return {o.number ? TipoCampo::ftFloat : TipoCampo::ftString, o.text, false};
    std::optional<FilterOperand> f = lookup(o.text);
    if (!f)
        throw EDatabaseError(QStringLiteral("Field '%1' not found").arg(o.text));
    return *f;
}

// A value (field value or literal text) in the type of the left field.
QVariant asType(const FilterOperand &target, const QVariant &v, bool literal) {
    if (v.isNull() || !literal)
        return v;
    const ColumnKind kind = ClaseDeTipo(target.type);
    const QString text = v.toString();
    switch (kind) {
    case ColumnKind::Integer:
    case ColumnKind::Float: {
        const std::optional<double> d = LeerDecimal(text);
        if (!d)
            throw EDatabaseError(
                QStringLiteral("'%1' is not a valid floating point value").arg(text));
        return *d;
    }
    case ColumnKind::DateTime:
        if (target.hour) {
            static const QRegularExpression re(
                QStringLiteral("^\\s*(\\d{1,2})(?::(\\d{1,2}))?(?::(\\d{1,2}))?\\s*$"));
            const auto m = re.match(text);
            const QTime t(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
            if (!m.hasMatch() || !t.isValid())
                throw EDatabaseError(QStringLiteral("'%1' is not a valid time").arg(text));
            return QDateTime(QDate(1899, 12, 30), t);
        }
        try {
            return TextoAFecha(text);
        } catch (const Failure &f) {
            throw EDatabaseError(f.text());
        }
    case ColumnKind::Boolean: {
        const QString u = text.trimmed().toUpper();
        if (u == u"TRUE" || u == u"SI" || u == u"1")
            return true;
        if (u == u"FALSE" || u == u"NO" || u == u"0")
            return false;
        throw EDatabaseError(QStringLiteral("'%1' is not a valid value").arg(text));
    }
    default:
        return text;
    }
}

int compareValues(ColumnKind kind, const QVariant &l, const QVariant &r) {
    switch (kind) {
    case ColumnKind::Integer:
    case ColumnKind::Float: {
        const double a = l.toDouble(), b = r.toDouble();
        return a < b ? -1 : a > b ? 1 : 0;
    }
    case ColumnKind::DateTime: {
        const QDateTime a = l.toDateTime(), b = r.toDateTime();
        return a < b ? -1 : a > b ? 1 : 0;
    }
    case ColumnKind::Boolean:
        return int(l.toBool()) - int(r.toBool());
    default:
        return QString::compare(l.toString(), r.toString());
    }
}

bool compare(const Node &n, const FilterLookup &lookup) {
    Operand a = n.a, b = n.b;
    QString op = n.op;
    if (!a.field && b.field) {
        std::swap(a, b);
        op = mirror(op);
    }
    const FilterOperand left = resolve(a, lookup);
    const FilterOperand right = resolve(b, lookup);
    const ColumnKind kind = a.field ? ClaseDeTipo(left.type) : ColumnKind::Text;
    const bool textual =
        kind == ColumnKind::Text || kind == ColumnKind::Memo || kind == ColumnKind::Unknown;
    if (textual) {
        const QString lv = left.value.toString();
        const QString rv = right.value.toString();
        if (!b.field && (op == u"=" || op == u"<>") && rv.endsWith(u'*')) {
            const bool starts = lv.startsWith(rv.chopped(1));
            return op == u"=" ? starts : !starts;
        }
        return holds(QString::compare(lv, rv), op);
    }
    const QVariant rv = asType(left, right.value, !b.field);
    if (left.value.isNull() || rv.isNull())
        return op == u"<>" && !(left.value.isNull() && rv.isNull());
    return holds(compareValues(kind, left.value, rv), op);
}

bool eval(const Node &n, const FilterLookup &lookup) {
    switch (n.kind) {
    case Node::Kind::And:
        return eval(*n.left, lookup) && eval(*n.right, lookup);
    case Node::Kind::Or:
        return eval(*n.left, lookup) || eval(*n.right, lookup);
    case Node::Kind::Not:
        return !eval(*n.left, lookup);
    case Node::Kind::IsNull: {
        const FilterOperand f = resolve(n.a, lookup);
        const bool null = f.value.isNull() ||
                          (ClaseDeTipo(f.type) == ColumnKind::Text && f.value.toString().isEmpty());
        return n.negated ? !null : null;
    }
    case Node::Kind::Compare:
        return compare(n, lookup);
    }
    return false;
}

// Every comparison once, with both branches of AND and OR, so that all names
// and literal conversions are checked.
void check(const Node &n, const FilterLookup &lookup) {
    if (n.left)
        check(*n.left, lookup);
    if (n.right)
        check(*n.right, lookup);
    if (n.kind == Node::Kind::Compare || n.kind == Node::Kind::IsNull)
        eval(n, lookup);
}

void names(const Node &n, QStringList &out) {
    if (n.left)
        names(*n.left, out);
    if (n.right)
        names(*n.right, out);
    for (const Operand *o : {&n.a, &n.b})
        if (o->field && !out.contains(o->text, Qt::CaseInsensitive))
            out << o->text;
}

} // namespace

FilterExpression::FilterExpression() = default;
FilterExpression::~FilterExpression() = default;
FilterExpression::FilterExpression(FilterExpression &&) noexcept = default;
FilterExpression &FilterExpression::operator=(FilterExpression &&) noexcept = default;

FilterExpression FilterExpression::Parse(const QString &text) {
    FilterExpression e;
    if (!text.trimmed().isEmpty())
        e.root_ = Parser(tokenize(text)).parse();
    return e;
}

bool FilterExpression::IsEmpty() const {
    return !root_;
}

QStringList FilterExpression::FieldNames() const {
    QStringList out;
    if (root_)
        names(*root_, out);
    return out;
}

void FilterExpression::Validate(const FilterLookup &lookup) const {
    if (root_)
        check(*root_, lookup);
}

bool FilterExpression::Evaluate(const FilterLookup &lookup) const {
    return !root_ || eval(*root_, lookup);
}

} // namespace co::forms
