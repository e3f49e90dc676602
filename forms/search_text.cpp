#include "forms/search_text.h"

#include "core/sql_text.h"

#include <QRegularExpression>
#include <QTime>

namespace co::forms {

namespace {

// A typed part in approximate mode: a date in the SQL date format; a time, for
// an hour field, as that format + " hh:nn:ss". Anything else stays as text.
QString parteTipada(const QString &campo, const QString &dato, const QString &formato) {
    const QString fecha = FechaParaSQL(dato, formato);
    if (fecha != dato)
        return fecha;
    if (!campo.contains(QStringLiteral("Hora"), Qt::CaseInsensitive))
        return dato;
    static const QRegularExpression hora(QStringLiteral("^(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?$"));
    const auto m = hora.match(dato.trimmed());
    if (!m.hasMatch())
        return dato;
    const QTime t(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    if (!t.isValid())
        return dato;
    return FechaParaSQL(QStringLiteral("30/12/1899"), formato) + u' ' +
           t.toString(QStringLiteral("hh:mm:ss"));
}

QString marcaModo(ModoBusqueda modo) {
    switch (modo) {
    case ModoBusqueda::Fonetica:
        return QStringLiteral("(F)");
    case ModoBusqueda::Parcial:
        return QStringLiteral("(P)");
    case ModoBusqueda::Aproximada:
        break;
    }
    return QStringLiteral("(A)");
}

// Each finished condition on a text field compares both sides in capitals.
QString sinMayusculas(const QString &condiciones, const QStringList &camposTexto) {
    if (camposTexto.isEmpty())
        return condiciones;
    static const QRegularExpression condicion(
        QStringLiteral("\\(([A-Za-z_][A-Za-z0-9_]*) (=|>=|LIKE) ('(?:[^']|'')*')\\)"));
    QString out;
    qsizetype desde = 0;
    for (auto it = condicion.globalMatch(condiciones); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        if (!camposTexto.contains(m.captured(1), Qt::CaseInsensitive))
            continue;
        out += condiciones.mid(desde, m.capturedStart() - desde);
        out += QStringLiteral("(UPPER(%1) %2 UPPER(%3))").arg(m.captured(1), m.captured(2), m.captured(3));
        desde = m.capturedEnd();
    }
    return out + condiciones.mid(desde);
}

} // namespace

QString CondicionesBusqueda(const PeticionBusqueda &p) {
    if (p.dato.isEmpty())
        return {};
    const QStringList campos = p.listaCampos.split(u';');
    const QStringList datos = QString(p.dato).replace(u',', u';').split(u';');
    const int n = static_cast<int>(std::min(campos.size(), datos.size()));
    QString texto;
    for (int i = 0; i < n; ++i) {
        const QString valor = p.modo == ModoBusqueda::Aproximada
                                  ? parteTipada(campos[i], datos[i], p.formatoFechaSQL)
                                  : datos[i];
        const QString op = i + 1 < n ? QStringLiteral(" = ") : QStringLiteral(" >= ");
        texto +=
            QStringLiteral(" (") + campos[i] + op + Entrecomillar(valor) + QStringLiteral(") AND ");
    }
    // Four characters go, as they always have: the blank before the last AND stays.
    texto.chop(4);
    if (p.modo == ModoBusqueda::Parcial) {
        texto.replace(QStringLiteral(" >= "), QStringLiteral(" LIKE "));
        texto.replace(QStringLiteral(" = "), QStringLiteral(" LIKE "));
        texto.replace(QStringLiteral("')"), QStringLiteral("%')"));
    } else if (p.modo == ModoBusqueda::Fonetica) {
        texto.replace(QStringLiteral(" >= '"), QStringLiteral(" LIKE '%"));
        texto.replace(QStringLiteral(" = '"), QStringLiteral(" LIKE '%"));
        texto.replace(QStringLiteral("')"), QStringLiteral("%')"));
    }
    return sinMayusculas(texto, p.camposTexto);
}

QString SentenciaBusqueda(const PeticionBusqueda &p) {
    const QString condiciones = CondicionesBusqueda(p);
    QString where;
    if (!condiciones.isEmpty() && !p.restriccion.isEmpty())
        where = QStringLiteral(" WHERE ") + condiciones + QStringLiteral(" AND (") + p.restriccion +
                u')';
    else if (!condiciones.isEmpty())
        where = QStringLiteral(" WHERE ") + condiciones;
    else if (!p.restriccion.isEmpty())
        where = QStringLiteral(" WHERE ") + p.restriccion;
    QStringList orden = p.ordenados ? p.listaCampos.split(u';') : QStringList();
    for (const QString &c : p.clave.split(u';', Qt::SkipEmptyParts))
        if (!orden.contains(c, Qt::CaseInsensitive))
            orden << c;
    return QStringLiteral("SELECT ") + p.columnas + QStringLiteral(" FROM ") + p.tabla +
           QStringLiteral(" WITH(NOLOCK) ") + where +
           (orden.isEmpty() ? QString() : QStringLiteral(" ORDER BY ") + orden.join(u','));
}

std::optional<int> LimiteBusqueda(const QString &texto, int porDefecto) {
    if (texto == u"Ilimitado")
        return std::nullopt;
    bool ok = false;
    const int n = texto.trimmed().toInt(&ok);
    if (!ok || n < 0)
        return porDefecto;
    return n == 0 ? 1 : n;
}

QString ConLimite(const QString &sql, int limite) {
    QString out = sql;
    const int i = out.indexOf(QStringLiteral("SELECT"), 0, Qt::CaseInsensitive);
    if (i >= 0)
        out.insert(i + 6, QStringLiteral(" TOP %1").arg(limite));
    return out;
}

QString NombreModo(ModoBusqueda modo) {
    switch (modo) {
    case ModoBusqueda::Parcial:
        return QStringLiteral("Parcial");
    case ModoBusqueda::Fonetica:
        return QStringLiteral("Fonética");
    case ModoBusqueda::Aproximada:
        break;
    }
    return QStringLiteral("Aproximada");
}

QString TextoEstadoBusqueda(ModoBusqueda modo, const QString &listaCampos) {
    return QStringLiteral("Búsqueda ") + NombreModo(modo) + QStringLiteral(" por ") + listaCampos;
}

QString TextoOpcionesTabla(const OpcionesTabla &o) {
    return o.listaCampos + marcaModo(o.modo) + (o.ordenados ? QStringLiteral("(O)") : QString()) +
           (o.memos ? QStringLiteral("(M)") : QString());
}

OpcionesTabla LeerOpcionesTabla(const QString &texto) {
    OpcionesTabla o;
    QString resto = texto;
    auto quitar = [&resto](const char *marca) {
        const QString m = QString::fromLatin1(marca);
        const bool habia = resto.contains(m);
        resto.remove(m);
        return habia;
    };
    const bool f = quitar("(F)"), pa = quitar("(P)");
    quitar("(A)");
    o.modo = f ? ModoBusqueda::Fonetica : pa ? ModoBusqueda::Parcial : ModoBusqueda::Aproximada;
    o.ordenados = quitar("(O)");
    o.memos = quitar("(M)");
    o.listaCampos = resto;
    return o;
}

std::optional<QString> EntradaOpciones(const QString &almacenado, const QString &tabla) {
    for (const QString &entrada : almacenado.split(u',', Qt::SkipEmptyParts)) {
        const int dos = entrada.indexOf(u':');
        if (dos > 0 && entrada.left(dos).trimmed().compare(tabla, Qt::CaseInsensitive) == 0)
            return entrada.mid(dos + 1);
    }
    return std::nullopt;
}

QString ConEntradaOpciones(const QString &almacenado, const QString &tabla, const QString &valor) {
    QStringList entradas;
    bool puesta = false;
    for (const QString &entrada : almacenado.split(u',', Qt::SkipEmptyParts)) {
        if (entrada.trimmed().isEmpty())
            continue;
        const int dos = entrada.indexOf(u':');
        if (dos > 0 && entrada.left(dos).trimmed().compare(tabla, Qt::CaseInsensitive) == 0) {
            if (!puesta)
                entradas << tabla + u':' + valor;
            puesta = true;
        } else {
            entradas << entrada;
        }
    }
    if (!puesta)
        entradas << tabla + u':' + valor;
    return entradas.join(u',').replace(u'=', u':');
}

QString PatronAproximado(const QString &valor) {
    static const QList<QPair<QString, QString>> pasos = {
        {QStringLiteral("á"), QStringLiteral("a")},
        {QStringLiteral("é"), QStringLiteral("e")},
        {QStringLiteral("í"), QStringLiteral("i")},
        {QStringLiteral("ó"), QStringLiteral("o")},
        {QStringLiteral("ú"), QStringLiteral("u")},
        {QStringLiteral("v"), QStringLiteral("b")},
        {QStringLiteral("k"), QStringLiteral("c")},
        {QStringLiteral("y"), QStringLiteral("i")},
        {QStringLiteral("tx"), QStringLiteral("ch")},
        {QStringLiteral("tz"), QStringLiteral("ch")},
        {QStringLiteral("a"), QStringLiteral("[aá]")},
        {QStringLiteral("e"), QStringLiteral("[eé]")},
        {QStringLiteral("i"), QStringLiteral("[iíy]")},
        {QStringLiteral("o"), QStringLiteral("[oó]")},
        {QStringLiteral("u"), QStringLiteral("[uú]")},
        {QStringLiteral("b"), QStringLiteral("[bv]")},
        {QStringLiteral("ch"), QStringLiteral("[ct][hxz]")},
        {QStringLiteral("[ct]"), QStringLiteral("[**]")},
        {QStringLiteral("c"), QStringLiteral("[ck]")},
        {QStringLiteral("[**]"), QStringLiteral("[ct]")}};
    QString p = valor.toLower();
    for (const auto &[de, a] : pasos)
        p.replace(de, a);
    return p;
}

QString PatronComoExpresion(const QString &patron) {
    QString re = QStringLiteral("^");
    for (int i = 0; i < patron.size(); ++i) {
        const QChar c = patron[i];
        if (c == u'%') {
            re += QStringLiteral(".*");
        } else if (c == u'_') {
            re += u'.';
        } else if (c == u'[' && patron.indexOf(u']', i + 1) > i + 1) {
            const int fin = patron.indexOf(u']', i + 1);
            QString clase;
            for (const QChar l : patron.mid(i + 1, fin - i - 1)) {
                for (const QChar v : {l.toLower(), l.toUpper()})
                    if (!clase.contains(v))
                        clase += v == u'\\' || v == u']' || v == u'^' || v == u'-'
                                     ? QString(u'\\') + v
                                     : QString(v);
            }
            re += u'[' + clase + u']';
            i = fin;
        } else if (c.isLetter()) {
            re += u'[' + QString(c.toLower()) + QString(c.toUpper()) + u']';
        } else {
            re += QRegularExpression::escape(QString(c));
        }
    }
    return re + u'$';
}

} // namespace co::forms
