#include "core/sql_text.h"

#include "core/number_text.h"
#include "core/sql_lexer.h"

#include <QDate>
#include <QDateTime>
#include <QRegularExpression>

namespace co {

namespace {

const QStringList kTablasGenerales = {
    QStringLiteral("EMPRESA"),  QStringLiteral("USUARIO"), QStringLiteral("CONFAPLI"),
    QStringLiteral("CAMPOUSR"), QStringLiteral("INCAPLIC"), QStringLiteral("NOMBTTEM"),
    QStringLiteral("IDIOMA"),   QStringLiteral("TXIDIOMA"), QStringLiteral("MENSAJE"),
    QStringLiteral("UDADCALC"), QStringLiteral("VPART"),
};

bool isIdentChar(QChar c) { return c.isLetterOrNumber() || c == u'_'; }

QString sinPrefijo(const QString &tabla) {
    const int dot = tabla.indexOf(u'.');
    return dot < 0 ? tabla : tabla.mid(dot + 1);
}

// Delphi-style date format ("yyyy-mm-dd", "mm/dd/yyyy") as a Qt format.
QString qtDateFormat(const QString &formato) {
    QString f = formato;
    f.replace(QStringLiteral("mm"), QStringLiteral("MM"));
    return f;
}

} // namespace

bool EsTablaGeneral(const QString &tabla) { return kTablasGenerales.contains(sinPrefijo(tabla)); }

QString NombreTablaSinEsquema(const QString &tabla) { return sinPrefijo(tabla); }

bool EsTablaTemporal(const QString &tabla) {
    return sinPrefijo(tabla).left(4).toUpper() == QStringLiteral("TEMP");
}

bool EsTablaInexistente(const QString &textoFallo) {
    const QString t = textoFallo.toUpper();
    return t.contains(QStringLiteral("TABLE DOES NOT EXIST")) ||
           t.contains(QStringLiteral("TABLE UNKNOWN"));
}

bool TieneOpcion(const QString &opciones, const QString &palabra) {
    return opciones.contains(palabra);
}

std::optional<QString> ValorOpcion(const QString &opciones, const QString &nombre) {
    const QString key = nombre + u'=';
    const int at = opciones.indexOf(key);
    if (at < 0)
        return std::nullopt;
    const int start = at + key.size();
    const int end = opciones.indexOf(u',', start);
    return opciones.mid(start, end < 0 ? -1 : end - start);
}

namespace {

bool isNameDelimiter(QChar c) {
    return c == u' ' || c == u'(' || c == u')' || c == u'\n' || c == u'\r' || c == u'\t';
}

// Whether `out` ends with " = " or " <> " after a name that lies after `floor`:
// `op` and `start` then tell which and where the name starts.
bool comparisonBefore(const QString &out, int floor, QString *op, int *start) {
    for (const QString &o : {QStringLiteral(" = "), QStringLiteral(" <> ")}) {
        if (!out.endsWith(o))
            continue;
        const int end = static_cast<int>(out.size() - o.size());
        int s = end;
        while (s > floor && !isNameDelimiter(out.at(s - 1)))
            --s;
        if (s == end)
            return false;
        *op = o;
        *start = s;
        return true;
    }
    return false;
}

} // namespace

QString NormalizarVacios(const QString &sql, Backend backend) {
    if (!sql.contains(QStringLiteral(" = ''")) && !sql.contains(QStringLiteral(" <> ''")))
        return sql;
    static const QRegularExpression where(QStringLiteral("\\bWHERE\\b"), QRegularExpression::CaseInsensitiveOption);
    QString out;
    out.reserve(sql.size() + 64);
    int floor = 0; // a name never reaches back past a literal, name or comment
    bool afterWhere = false;
    for (const TrozoSQL &p : TrocearSentencia(sql, backend)) {
        if (p.tipo == TipoTrozo::Codigo) {
            afterWhere = afterWhere || p.texto.contains(where);
            out += p.texto;
            continue;
        }
        QString op;
        int start = 0;
        if (afterWhere && p.esLiteralVacio() && comparisonBefore(out, floor, &op, &start)) {
            const QString name = out.mid(start, out.size() - op.size() - start);
            out.truncate(start);
            out += (op == u" = " ? QStringLiteral("(%1 = '' OR %1 IS NULL)") : QStringLiteral("(%1 <> '' AND %1 IS NOT NULL)"))
                       .arg(name);
            continue;
        }
        out += p.texto;
        floor = static_cast<int>(out.size());
    }
    return out;
}

QString ReescribirIgualNull(const QString &sql, bool forzar, Backend backend) {
    if (!sql.contains(QStringLiteral("NULL")) &&
        !(forzar && (sql.contains(QStringLiteral("''")) || sql.contains(QStringLiteral("\"\"")))))
        return sql;
    static const QRegularExpression equalNull(QStringLiteral("= ?NULL(?![\\w])"));
    QString out;
    out.reserve(sql.size() + 16);
    for (const TrozoSQL &p : TrocearSentencia(sql, backend)) {
        if (p.tipo == TipoTrozo::Codigo) {
            out += p.texto.contains(QStringLiteral("NULL")) ? QString(p.texto).replace(equalNull, QStringLiteral(" IS NULL "))
                                                            : p.texto;
            continue;
        }
        const bool empty = p.esLiteralVacio() || (p.tipo == TipoTrozo::Nombre && p.texto == u"\"\"");
        if (forzar && empty && out.endsWith(QStringLiteral(" = "))) {
            out.chop(3);
            out += QStringLiteral(" IS NULL ");
            continue;
        }
        out += p.texto;
    }
    return out;
}

QString Entrecomillar(const QString &texto) {
    QString t = texto;
    t.replace(u'\'', QStringLiteral("''"));
    return u'\'' + t + u'\'';
}

QString FormatoLiteralSQL(const QVariant &valor, const QString &formatoFecha,
                          const QString &fechaNula) {
    if (!valor.isValid() || valor.isNull())
        return QStringLiteral("''");
    switch (valor.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return Entrecomillar(QString::number(valor.toDouble(), 'f', 6));
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return Entrecomillar(valor.toString());
    case QMetaType::Bool:
        return valor.toBool() ? QStringLiteral("'1'") : QStringLiteral("'0'");
    case QMetaType::QDate:
    case QMetaType::QDateTime:
    case QMetaType::QTime: {
        QDateTime dt;
        if (valor.typeId() == QMetaType::QTime)
            dt = QDateTime(QDate(1899, 12, 30), valor.toTime());
        else
            dt = valor.toDateTime();
        if (!dt.isValid() || dt == QDateTime(QDate(1899, 12, 30), QTime(0, 0)))
            return Entrecomillar(fechaNula);
        return Entrecomillar(dt.date().toString(qtDateFormat(formatoFecha)) + u' ' +
                             dt.time().toString(QStringLiteral("hh:mm:ss")));
    }
    default:
        return Entrecomillar(valor.toString());
    }
}

QString FechaParaSQL(const QString &fecha, const QString &formatoFecha) {
    const QStringList parts = fecha.trimmed().split(u'/');
    if (parts.size() != 3)
        return fecha;
    bool okD, okM, okY;
    const int d = parts[0].toInt(&okD), m = parts[1].toInt(&okM);
    int y = parts[2].left(4).toInt(&okY);
    if (!okD || !okM || !okY)
        return fecha;
    if (y <= 99)
        y += y < 50 ? 2000 : 1900;
    const QDate date(y, m, d);
    if (!date.isValid())
        return fecha;
    QString out = date.toString(qtDateFormat(formatoFecha));
    const QString rest = parts[2].mid(4).trimmed(); // a time after the year stays
    if (!rest.isEmpty())
        out += u' ' + rest;
    return out;
}

namespace {

enum class TipoCondicion { Texto, Entero, Flotante, Fecha, CastEntero };

TipoCondicion tipoCondicion(const QString &tipo) {
    if (tipo == u"CAST_AS_INTEGER")
        return TipoCondicion::CastEntero;
    if (tipo == u"ftInteger" || tipo == u"ftSmallint" || tipo == u"ftSmallInt" ||
        tipo == u"ftWord" || tipo == u"ftAutoInc")
        return TipoCondicion::Entero;
    if (tipo == u"ftFloat" || tipo == u"ftCurrency" || tipo == u"ftBCD")
        return TipoCondicion::Flotante;
    if (tipo == u"ftDate" || tipo == u"ftDateTime" || tipo == u"ftTime")
        return TipoCondicion::Fecha;
    return TipoCondicion::Texto;
}

QString enteroOCero(const QString &v) {
    bool ok = false;
    const qlonglong n = v.trimmed().toLongLong(&ok);
    return ok ? QString::number(n) : QStringLiteral("0");
}

// A float as typed ("1,5" or "1.5") in SQL form; anything else is 0, so that no
// text can reach the statement unquoted.
QString flotanteOCero(const QString &v) {
    const std::optional<double> d = LeerDecimal(v);
    return d ? QString::number(*d, 'g', 17) : QStringLiteral("0");
}

} // namespace

QString CondicionCampo(const QString &campo, const QString &desde, const QString &hasta,
                       const QString &tipo, const QString &formatoFecha) {
    const TipoCondicion t = tipoCondicion(tipo);
    QString d = desde, h = hasta;
    bool nulos = false;
    switch (t) {
    case TipoCondicion::Entero:
    case TipoCondicion::CastEntero:
        d = enteroOCero(d);
        h = enteroOCero(h);
        nulos = d == u"0";
        break;
    case TipoCondicion::Flotante:
        d = flotanteOCero(d);
        h = flotanteOCero(h);
        nulos = d.toDouble() == 0.0;
        break;
    case TipoCondicion::Fecha:
        nulos = d.isEmpty();
        d = Entrecomillar(FechaParaSQL(d, formatoFecha));
        h = Entrecomillar(FechaParaSQL(h, formatoFecha));
        break;
    case TipoCondicion::Texto:
        nulos = d.isEmpty();
        d = Entrecomillar(d);
        h = Entrecomillar(h);
        break;
    }
    QString test;
    if (t == TipoCondicion::CastEntero) {
        const QString cast = QStringLiteral("CAST(%1 AS INTEGER)").arg(campo);
        test = d == h ? QStringLiteral("(%1 = %2)").arg(cast, d)
                      : QStringLiteral("(%1 >= %2 AND  %1 <= %3)").arg(cast, d, h);
    } else {
        test = d == h ? QStringLiteral("(%1 = %2)").arg(campo, d)
                      : QStringLiteral("(%1 >= %2 AND %1 <= %3)").arg(campo, d, h);
    }
    if (nulos)
        test = QStringLiteral("(%1 OR (%2 IS NULL))").arg(test, campo);
    return test;
}

QStringList TablasDeSentencia(const QString &sql) {
    static const QString marker = QStringLiteral("\x01TABLA\x01");
    QString text = sql;
    text.replace(QStringLiteral("\r"), QStringLiteral(" ")).replace(QStringLiteral("\n"), QStringLiteral(" "));
    for (const char *word : {"DELETE FROM ", "FROM ", "JOIN ", "UPDATE ", " INTO "})
        text.replace(QLatin1String(word), marker);
    const QStringList pieces = text.split(marker);
    QStringList names;
    for (int i = 1; i < pieces.size(); ++i) {
        const QString piece = pieces[i].trimmed();
        int end = 0;
        while (end < piece.size() && (isIdentChar(piece.at(end)) || piece.at(end) == u'.' ||
                                      piece.at(end) == u'#' || piece.at(end) == u'$'))
            ++end;
        const QString name = piece.left(end);
        if (!name.isEmpty() && !names.contains(name))
            names << name;
    }
    return names;
}

QString VerboSentencia(const QString &sql) {
    const QString t = sql.trimmed();
    int end = 0;
    while (end < t.size() && !t.at(end).isSpace())
        ++end;
    return t.left(end);
}

} // namespace co
