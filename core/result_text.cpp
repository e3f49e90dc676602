#include "core/result_text.h"

#include "core/sql_text.h"

#include <QDateTime>
#include <QSqlError>
#include <QSqlQuery>
#include <charconv>

namespace co {

bool EsResultadoError(const QString &resultado) {
    return resultado.startsWith(QLatin1String("Error."));
}

QString MotivoResultado(const QString &resultado) {
    const QStringView lead(kFalloSentencia);
    return resultado.startsWith(lead) ? resultado.mid(lead.size()) : resultado;
}

namespace {

// A date-time as its parts; cheaper to read and write than QDateTime, which the
// result text of large queries would otherwise build for every row.
struct DateParts {
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;

    bool midnight() const { return hour == 0 && minute == 0 && second == 0; }
    bool zeroDate() const { return year == 1899 && month == 12 && day == 30; }
    static DateParts of(const QDateTime &dt) {
        const QDate d = dt.date();
        const QTime t = dt.time();
        return {d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second()};
    }
};

bool readDigits(const QChar *s, int count, int *value) {
    int v = 0;
    for (int i = 0; i < count; ++i) {
        const char16_t c = s[i].unicode();
        if (c < u'0' || c > u'9')
            return false;
        v = v * 10 + (c - u'0');
    }
    *value = v;
    return true;
}

// "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss[.zzz]" or with "T": the forms in which
// dates are stored on SQLite.
bool parseStored(QStringView s, DateParts *p) {
    const qsizetype n = s.size();
    if (n < 10 || s[4] != u'-' || s[7] != u'-')
        return false;
    const QChar *c = s.data();
    if (!readDigits(c, 4, &p->year) || !readDigits(c + 5, 2, &p->month) || !readDigits(c + 8, 2, &p->day) ||
        !QDate::isValid(p->year, p->month, p->day))
        return false;
    p->hour = p->minute = p->second = 0;
    if (n == 10)
        return true;
    if (n < 19 || (s[10] != u' ' && s[10] != u'T') || s[13] != u':' || s[16] != u':')
        return false;
    if (n > 19 && s[19] != u'.')
        return false;
    return readDigits(c + 11, 2, &p->hour) && readDigits(c + 14, 2, &p->minute) &&
           readDigits(c + 17, 2, &p->second) && QTime::isValid(p->hour, p->minute, p->second);
}

void two(QChar *&out, int v) {
    *out++ = QChar(u'0' + v / 10 % 10);
    *out++ = QChar(u'0' + v % 10);
}

// "dd/mm/yyyy", with " hh:mm:ss" when the time is not midnight; the time alone
// on the zero date.
void appendDate(QString &text, const DateParts &d) {
    QChar buffer[20];
    QChar *p = buffer;
    const bool hasTime = !d.midnight();
    if (!(d.zeroDate() && hasTime)) {
        two(p, d.day);
        *p++ = u'/';
        two(p, d.month);
        *p++ = u'/';
        two(p, d.year / 100);
        two(p, d.year);
        if (hasTime)
            *p++ = u' ';
    }
    if (hasTime) {
        two(p, d.hour);
        *p++ = u':';
        two(p, d.minute);
        *p++ = u':';
        two(p, d.second);
    }
    text.append(buffer, static_cast<qsizetype>(p - buffer));
}

// 15 significant digits, decimal comma, exponent as "1E20".
void appendFloat(QString &text, double d) {
    char buffer[40];
    const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, d, std::chars_format::general, 15);
    if (ec != std::errc()) {
        text += QString::number(d, 'g', 15).replace(u'.', u',');
        return;
    }
    char out[48];
    char *o = out;
    for (const char *p = buffer; p < end; ++p) {
        if (*p == '.') {
            *o++ = ',';
        } else if (*p == 'e') {
            *o++ = 'E';
            ++p;
            if (*p == '-')
                *o++ = '-';
            if (*p == '-' || *p == '+')
                ++p;
            while (p + 1 < end && *p == '0')
                ++p;
            while (p < end)
                *o++ = *p++;
            break;
        } else {
            *o++ = *p;
        }
    }
    text.append(QLatin1StringView(out, static_cast<qsizetype>(o - out)));
}

void appendInteger(QString &text, qlonglong v) {
    char buffer[24];
    const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, v);
    text.append(QLatin1StringView(buffer, static_cast<qsizetype>(end - buffer)));
}

bool hasLineBreak(const QString &s) {
    return s.indexOf(u'\n') >= 0 || s.indexOf(u'\r') >= 0;
}

// A line break inside a value would end the row: it takes the memo delimiter.
void appendText(QString &out, const QString &s, const QString &memoDelimiter) {
    if (!hasLineBreak(s)) {
        out += s;
        return;
    }
    QString t = s;
    t.replace(QStringLiteral("\r\n"), memoDelimiter).replace(u'\n', memoDelimiter).replace(u'\r', memoDelimiter);
    out += t;
}

void appendValue(QString &out, const QVariant &raw, ColumnKind kind, const QString &memoDelimiter) {
    // Typed reads through constData: the generic QVariant conversions cost more
    // than the formatting itself on large results.
    switch (raw.typeId()) {
    case QMetaType::QString: {
        const QString &s = *static_cast<const QString *>(raw.constData());
        if (s.isNull())
            return;
        DateParts d;
        if ((kind == ColumnKind::DateTime || kind == ColumnKind::Unknown) && parseStored(s, &d)) {
            appendDate(out, d);
            return;
        }
        if (kind != ColumnKind::Boolean) {
            appendText(out, s, memoDelimiter);
            return;
        }
        break;
    }
    case QMetaType::LongLong:
        if (raw.isNull())
            return;
        if (kind != ColumnKind::Boolean) {
            appendInteger(out, *static_cast<const qlonglong *>(raw.constData()));
            return;
        }
        break;
    case QMetaType::Int:
        if (raw.isNull())
            return;
        if (kind != ColumnKind::Boolean) {
            appendInteger(out, *static_cast<const int *>(raw.constData()));
            return;
        }
        break;
    case QMetaType::Double:
        if (!raw.isNull())
            appendFloat(out, *static_cast<const double *>(raw.constData()));
        return;
    default:
        if (raw.isNull())
            return;
        break;
    }
    appendText(out, TextoValor(raw, kind), memoDelimiter);
}

} // namespace

ResultOptions ResultOptions::fromWords(const QString &opciones) {
    ResultOptions o;
    o.formatoINI = TieneOpcion(opciones, QStringLiteral("FormatoINI"));
    o.keepLastLineBreak = TieneOpcion(opciones, QStringLiteral("NoEliminarUltimoCRLF"));
    if (const auto d = ValorOpcion(opciones, QStringLiteral("DelimitadorCRLFMemo")); d && !d->isEmpty())
        o.memoDelimiter = *d;
    return o;
}

QVariant ValorTipado(const QVariant &value, ColumnKind kind) {
    if (value.isNull())
        return value;
    switch (value.typeId()) {
    case QMetaType::QString:
        if (kind == ColumnKind::DateTime || kind == ColumnKind::Unknown) {
            DateParts d;
            if (parseStored(value.toString(), &d))
                return QDateTime(QDate(d.year, d.month, d.day), QTime(d.hour, d.minute, d.second));
        }
        break;
    case QMetaType::QDate:
        return QDateTime(value.toDate(), QTime(0, 0));
    case QMetaType::QTime:
        return QDateTime(QDate(1899, 12, 30), value.toTime());
    default:
        break;
    }
    if (kind == ColumnKind::Boolean && value.typeId() != QMetaType::Bool) {
        const QString t = value.toString();
        return t == u"1" || t == u"t" || t.compare(u"true", Qt::CaseInsensitive) == 0;
    }
    return value;
}

QString TextoValor(const QVariant &raw, ColumnKind kind) {
    if (raw.isNull() || !raw.isValid())
        return {};
    const QVariant value = ValorTipado(raw, kind);
    QString out;
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        appendDate(out, DateParts::of(value.toDateTime()));
        return out;
    case QMetaType::Double:
    case QMetaType::Float:
        appendFloat(out, value.toDouble());
        return out;
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::QByteArray:
        return QString::fromLatin1(value.toByteArray());
    default:
        return value.toString();
    }
}

bool LeerResultado(Backend, QSqlQuery &query, const QList<ResultColumn> &columns, const ResultOptions &options,
                   QString *result, QString *motivo) {
    const int n = static_cast<int>(columns.size());
    QList<bool> rowguid(n);
    for (int i = 0; i < n; ++i)
        rowguid[i] = options.skipRowguid && columns[i].name.compare(u"rowguid", Qt::CaseInsensitive) == 0;
    const QChar separator = options.formatoINI ? QChar(0x00B7) : QChar(u'|');
    QString out;
    bool any = false;
    while (query.next()) {
        any = true;
        for (int i = 0; i < n; ++i) {
            if (i > 0)
                out += separator;
            if (options.formatoINI) {
                out += columns[i].name;
                out += u'=';
            }
            if (!rowguid[i])
                appendValue(out, query.value(i), columns[i].kind, options.memoDelimiter);
        }
        out += u'\r';
        out += u'\n';
    }
    if (query.lastError().type() != QSqlError::NoError) {
        if (motivo)
            *motivo = query.lastError().text();
        return false;
    }
    if (any && !options.keepLastLineBreak)
        out.chop(2);
    *result = out;
    return true;
}

} // namespace co
