#include "core/result_text.h"

#include "core/sql_text.h"

#include <QDateTime>
#include <QSqlError>
#include <QSqlQuery>

namespace co {
namespace {

const QDate kFechaCero(1899, 12, 30);

int digits(const QString &s, int from, int count, bool *ok) {
    int v = 0;
    for (int i = from; i < from + count; ++i) {
        const QChar c = s.at(i);
        if (!c.isDigit()) {
            *ok = false;
            return 0;
        }
        v = v * 10 + c.digitValue();
    }
    return v;
}

// "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss[.zzz]" or "yyyy-mm-ddThh:mm:ss": the forms
// dates are stored in on SQLite. An invalid QDateTime otherwise.
QDateTime parseStoredDate(const QString &s) {
    if (s.size() < 10 || s.at(4) != u'-' || s.at(7) != u'-')
        return {};
    bool ok = true;
    const QDate date(digits(s, 0, 4, &ok), digits(s, 5, 2, &ok), digits(s, 8, 2, &ok));
    if (!ok || !date.isValid())
        return {};
    if (s.size() == 10)
        return QDateTime(date, QTime(0, 0));
    if (s.size() < 19 || (s.at(10) != u' ' && s.at(10) != u'T') || s.at(13) != u':' || s.at(16) != u':')
        return {};
    const QTime time(digits(s, 11, 2, &ok), digits(s, 14, 2, &ok), digits(s, 17, 2, &ok));
    if (!ok || !time.isValid())
        return {};
    return QDateTime(date, time);
}

QString floatText(double d) {
    QString t = QString::number(d, 'g', 15);
    const int e = t.indexOf(u'e');
    if (e >= 0) {
        const QString mantissa = t.left(e);
        int exponent = t.mid(e + 1).toInt();
        t = mantissa + u'E' + (exponent < 0 ? QStringLiteral("-") : QString()) + QString::number(std::abs(exponent));
    }
    t.replace(u'.', u',');
    return t;
}

QString dateText(const QDateTime &dt) {
    const QTime time = dt.time();
    const bool hasTime = time != QTime(0, 0);
    if (dt.date() == kFechaCero && hasTime)
        return time.toString(QStringLiteral("hh:mm:ss"));
    QString out = dt.date().toString(QStringLiteral("dd/MM/yyyy"));
    if (hasTime)
        out += u' ' + time.toString(QStringLiteral("hh:mm:ss"));
    return out;
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
    if (kind == ColumnKind::DateTime || (kind == ColumnKind::Unknown && value.typeId() == QMetaType::QString)) {
        if (value.typeId() == QMetaType::QString) {
            const QDateTime dt = parseStoredDate(value.toString());
            if (dt.isValid())
                return dt;
        } else if (value.typeId() == QMetaType::QDate) {
            return QDateTime(value.toDate(), QTime(0, 0));
        } else if (value.typeId() == QMetaType::QTime) {
            return QDateTime(kFechaCero, value.toTime());
        }
    }
    if (kind == ColumnKind::Boolean && value.typeId() != QMetaType::Bool)
        return value.toString() == u"1" || value.toString().compare(u"true", Qt::CaseInsensitive) == 0 ||
               value.toString() == u"t";
    return value;
}

QString TextoValor(const QVariant &raw, ColumnKind kind) {
    if (raw.isNull() || !raw.isValid())
        return {};
    const QVariant value = ValorTipado(raw, kind);
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return dateText(value.toDateTime());
    case QMetaType::Double:
    case QMetaType::Float:
        return floatText(value.toDouble());
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::QByteArray:
        return QString::fromLatin1(value.toByteArray());
    default:
        return value.toString();
    }
}

bool LeerResultado(Backend, QSqlQuery &query, const QList<ResultColumn> &columns,
                   const ResultOptions &options, QString *result, QString *motivo) {
    static const QString crlf = QStringLiteral("\r\n");
    const int n = columns.size();
    QList<bool> rowguid(n);
    QList<bool> textual(n);
    for (int i = 0; i < n; ++i) {
        rowguid[i] = options.skipRowguid && columns[i].name.compare(u"rowguid", Qt::CaseInsensitive) == 0;
        textual[i] = columns[i].kind == ColumnKind::Text || columns[i].kind == ColumnKind::Memo ||
                     columns[i].kind == ColumnKind::Unknown;
    }
    const QString separator = options.formatoINI ? QStringLiteral("·") : QStringLiteral("|");
    QString out;
    bool any = false;
    while (query.next()) {
        any = true;
        for (int i = 0; i < n; ++i) {
            if (i > 0)
                out += separator;
            if (options.formatoINI)
                out += columns[i].name + u'=';
            if (rowguid[i])
                continue;
            QString text = TextoValor(query.value(i), columns[i].kind);
            // A line break inside a value would end the row: it takes the memo delimiter.
            if (textual[i] && (text.contains(u'\n') || text.contains(u'\r'))) {
                text.replace(crlf, options.memoDelimiter);
                text.replace(u'\n', options.memoDelimiter).replace(u'\r', options.memoDelimiter);
            }
            out += text;
        }
        out += crlf;
    }
    if (query.lastError().isValid() && query.lastError().type() != QSqlError::NoError) {
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
