#include "core/definition_text.h"

#include <QRegularExpression>
#include <QSet>

namespace co {
namespace {

const QString kCRLF = QStringLiteral("\r\n");
const QString kTablaTemporal = QStringLiteral("Tabla Temporal");
const QString kNuevas = QStringLiteral("[Definiciones Nuevas o Sustitutivas]");
const QString kComplementarias = QStringLiteral("[Definiciones Complementarias]");

QString claseDeParte(const QString &parte) {
    if (parte == u"Campos")
        return QStringLiteral("C");
    if (parte == u"Indices")
        return QStringLiteral("I");
    return QStringLiteral("SQL");
}

// Lines of `tabla` and `clase` among `lineas`, in order, up to the first line
// of another table after one of its own.
QString lineasDe(const QString &tabla, const QString &clase, const QStringList &lineas) {
    const QString buscada = tabla.toUpper();
    QString out;
    bool vista = false;
    for (const QString &linea : lineas) {
        const LineaDefinicion l = LeerLineaDefinicion(linea);
        if (l.tabla.toUpper() != buscada) {
            if (vista)
                break;
            continue;
        }
        vista = true;
        if (l.clase == clase)
            out += linea + kCRLF;
    }
    return out;
}

} // namespace

LineaDefinicion LeerLineaDefinicion(const QString &linea) {
    LineaDefinicion l;
    QString cuerpo = linea;
    const int barra = linea.indexOf(u'|');
    if (barra >= 0) {
        cuerpo = linea.left(barra);
        l.fecha = linea.mid(barra + 1).trimmed();
    }
    const QStringList p = cuerpo.split(u'/');
    auto at = [&](int i) { return i < p.size() ? p.at(i).trimmed() : QString(); };
    l.tabla = at(0);
    l.clase = at(1);
    l.orden = at(2);
    l.nombre = at(3);
    l.tipo = at(4);
    l.longitud = at(5);
    l.marca = at(6);
    return l;
}

QStringList LineasDefinicion(const QString &texto) {
    QStringList lineas = texto.split(u'\n');
    for (QString &l : lineas)
        if (l.endsWith(u'\r'))
            l.chop(1);
    if (!lineas.isEmpty() && lineas.last().isEmpty())
        lineas.removeLast();
    return lineas;
}

int NumeroTablaTemporal(const QString &texto) {
    const QString primera = texto.section(u'\n', 0, 0).trimmed();
    if (!primera.startsWith(kTablaTemporal))
        return -1;
    const QString resto = primera.mid(kTablaTemporal.size());
    if (!resto.isEmpty() && !resto.startsWith(u' '))
        return -1;
    bool ok = false;
    const int n = resto.trimmed().toInt(&ok);
    return ok ? n : 0;
}

bool EsDefinicionTemporal(const QString &texto) {
    return NumeroTablaTemporal(texto) >= 0;
}

bool PideParte(const QString &partes, const QString &parte) {
    static const QRegularExpression separador(QStringLiteral("[^A-Za-z]+"));
    return partes.split(separador, Qt::SkipEmptyParts).contains(parte);
}

QString DefinicionTabla(const QString &tabla, const QString &texto, const QString &partes) {
    const QStringList lineas = LineasDefinicion(texto);
    QString out;
    for (const QString &parte :
         {QStringLiteral("Campos"), QStringLiteral("Indices"), QStringLiteral("SQL")})
        if (partes.trimmed().isEmpty() || PideParte(partes, parte))
            out += lineasDe(tabla, claseDeParte(parte), lineas);
    return out;
}

QString MezclarEstructuras(const QString &texto, const QString &adiciones) {
    QStringList nuevas, complementarias;
    bool enNuevas = true;
    for (const QString &linea : LineasDefinicion(adiciones)) {
        const QString t = linea.trimmed();
        if (t == kNuevas || t == kComplementarias) {
            enNuevas = t == kNuevas;
            continue;
        }
        if (t.isEmpty())
            continue;
        (enNuevas ? nuevas : complementarias) << linea;
    }

    QString out = texto;
    if (!nuevas.isEmpty())
        out = nuevas.join(kCRLF) + kCRLF + kCRLF + out;

    QStringList tablas;
    for (const QString &linea : std::as_const(complementarias)) {
        const QString tabla = LeerLineaDefinicion(linea).tabla.toUpper();
        if (!tabla.isEmpty() && !tablas.contains(tabla))
            tablas << tabla;
    }
    for (const QString &tabla : std::as_const(tablas)) {
        // A complementary table's lines may be scattered in the file: take them all.
        QStringList propias;
        for (const QString &linea : std::as_const(complementarias))
            if (LeerLineaDefinicion(linea).tabla.toUpper() == tabla)
                propias << linea;
        QString bloque;
        for (const QString &parte :
             {QStringLiteral("Campos"), QStringLiteral("Indices"), QStringLiteral("SQL")})
            bloque += DefinicionTabla(tabla, out, parte) +
                      DefinicionTabla(tabla, propias.join(kCRLF), parte);
        out = bloque + kCRLF + out;
    }

    const QString doble = kCRLF + kCRLF + kCRLF;
    while (out.contains(doble))
        out.replace(doble, kCRLF + kCRLF);
    return out;
}

QStringList ListaTablas(const QString &texto, const QString &opciones) {
    const bool conFecha = opciones.contains(QStringLiteral("IncluirFecha"));
    QSet<QString> vistas;
    QStringList out;
    for (const QString &linea : LineasDefinicion(texto)) {
        const LineaDefinicion l = LeerLineaDefinicion(linea);
        if (l.tabla.isEmpty() || l.fecha.isEmpty())
            continue;
        const QString entrada = conFecha ? l.tabla + u'|' + l.fecha : l.tabla;
        if (!vistas.contains(entrada)) {
            vistas.insert(entrada);
            out << entrada;
        }
    }
    out.sort();
    return out;
}

} // namespace co
