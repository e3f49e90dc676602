#include "demo/table_digest.h"

#include "core/query.h"

#include <QCryptographicHash>
#include <QDateTime>

namespace co::demo {
namespace {

struct Columna {
    QString nombre, tipo;
};

struct Definicion {
    QList<Columna> columnas;
    QString clave;
};

Definicion definicion(const QString &estructuras, const QString &tabla) {
    Definicion d;
    const QString prefijo = tabla + u'/';
    for (const QString &linea : estructuras.split(u'\n')) {
        if (!linea.startsWith(prefijo, Qt::CaseInsensitive))
            continue;
        const QStringList partes = linea.trimmed().split(u'/');
        if (partes.size() > 4 && partes.at(1) == u"C")
            d.columnas << Columna{partes.at(3), partes.at(4)};
        else if (partes.size() > 4 && partes.at(1) == u"I" && partes.at(3) == u"<Primary>")
            d.clave = partes.at(4);
    }
    return d;
}

QString valor(const QVariant &v, const QString &tipo) {
    if (v.isNull())
        return QStringLiteral("\\N");
    if (tipo == u"ftFloat" || tipo == u"ftCurrency" || tipo == u"ftBCD")
        return QString::number(v.toDouble(), 'g', 17);
    if (tipo == u"ftInteger" || tipo == u"ftSmallint" || tipo == u"ftWord" || tipo == u"ftAutoInc")
        return QString::number(v.toLongLong());
    if (tipo == u"ftDateTime" || tipo == u"ftDate" || tipo == u"ftTime") {
        QDateTime f = v.typeId() == QMetaType::QDateTime ? v.toDateTime() : QDateTime();
        if (!f.isValid()) {
            const QString t = v.toString();
            f = t.size() == 10 ? QDateTime(QDate::fromString(t, Qt::ISODate), QTime(0, 0))
                               : QDateTime::fromString(t.left(19).replace(u'T', u' '),
                                                       QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        }
        return f.isValid() ? f.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")) : v.toString();
    }
    return v.toString();
}

} // namespace

QString HuellaTablas(TModuloDatos &datos, const QString &estructuras, const QStringList &tablas,
                     QString *motivo) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &tabla : tablas) {
        const Definicion d = definicion(estructuras, tabla);
        if (d.columnas.isEmpty() || d.clave.isEmpty()) {
            if (motivo)
                *motivo = QStringLiteral("¡No existe la definición de la tabla %1!").arg(tabla);
            return {};
        }
        QStringList nombres;
        for (const Columna &c : d.columnas)
            nombres << c.nombre;
        Consulta consulta;
        consulta.SQL = QStringLiteral("SELECT ") + nombres.join(QStringLiteral(", ")) +
                       QStringLiteral(" FROM ") + tabla + QStringLiteral(" ORDER BY ") +
                       QString(d.clave).replace(u';', QStringLiteral(", "));
        if (!datos.AbrirConsulta(consulta, QStringLiteral("Open,Silencio"))) {
            if (motivo)
                *motivo = QStringLiteral("¡No ha sido posible leer la tabla %1!").arg(tabla);
            return {};
        }
        hash.addData(tabla.toUtf8() + '\n');
        for (int f = 0; f < consulta.RecordCount(); ++f) {
            QStringList fila;
            for (int c = 0; c < d.columnas.size(); ++c)
                fila << valor(consulta.Value(f, c), d.columnas.at(c).tipo);
            hash.addData(fila.join(u'\t').toUtf8() + '\n');
        }
    }
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace co::demo
