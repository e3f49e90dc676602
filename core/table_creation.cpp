#include "core/table_creation.h"

#include "core/connection_factory.h"
#include "core/connection_words.h"
#include "core/definition_text.h"
#include "core/schema_transaction.h"
#include "core/structure_files.h"
#include "core/table_ddl.h"

#include <QHash>
#include <QSet>
#include <QUuid>
#include <algorithm>

namespace co {
namespace {

const QString kSinCrear = QStringLiteral("Silenciosa,No Crear Tabla");

// The lines of a result, upper-cased, for comparing names whatever their case.
QSet<QString> nombresEnMayusculas(const QString &resultado) {
    QSet<QString> out;
    for (const QString &n : resultado.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts))
        out.insert(n.trimmed().toUpper());
    return out;
}

QString palabraTipoUsuario(const QString &tipoCampo) {
    static const QHash<QString, QString> tipos{
        {QStringLiteral("Alfanumerico"), QStringLiteral("ftString")},
        {QStringLiteral("Numerico"), QStringLiteral("ftFloat")},
        {QStringLiteral("Entero"), QStringLiteral("ftInteger")},
        {QStringLiteral("Fecha"), QStringLiteral("ftDateTime")},
        {QStringLiteral("Texto"), QStringLiteral("ftMemo")},
    };
    return tipos.value(tipoCampo);
}

} // namespace

CreadorTablas::CreadorTablas(TModuloDatos &datos, const QString &carpetaDatos)
    : datos_(datos), sesion_(datos.sesion()), carpetaDatos_(carpetaDatos) {
    RegistrarNombresEstructura();
}

QString CreadorTablas::RutaEstructuras() const {
    return co::RutaEstructuras(sesion_.PathBaseDatosGeneral, carpetaDatos_);
}

bool CreadorTablas::Estructuras(QString *texto) {
    return LeerEstructurasDe(RutaEstructuras(), texto);
}

void CreadorTablas::RegistrarNombresEstructura() {
    QString texto;
    if (!Estructuras(&texto))
        return;
    QStringList nombres, fechas;
    for (const QString &linea : LineasDefinicion(texto)) {
        const LineaDefinicion l = LeerLineaDefinicion(linea);
        if (l.esCampo() && !l.nombre.isEmpty())
            nombres << l.nombre;
        if (l.esCampo() && (l.tipo == u"ftDate" || l.tipo == u"ftDateTime"))
            fechas << l.nombre;
    }
    datos_.RegistrarNombres(nombres);
    datos_.RegistrarColumnasFecha(fechas);
}

QString CreadorTablas::conexionDe(const QString &tabla, const QString &conexion,
                                  bool temporal) const {
    if (temporal)
        return sesion_.PathArchivosTemporales.isEmpty() ? kConexionGeneral
                                                        : sesion_.PathArchivosTemporales;
    if (EsTablaGeneral(tabla))
        return kConexionGeneral;
    if (conexion.isEmpty() || conexion == kConexionEmpresa || conexion == kConexionGeneral)
        return kConexionEmpresa;
    return conexion;
}

bool CreadorTablas::existe(const QString &tabla, const QString &conexion) {
    const QString r =
        datos_.EjecutarSQL(traitsOf(sesion_.backend()).tableExistsQuery.arg(Entrecomillar(tabla)),
                           conexion, kSinCrear);
    return r.trimmed().toInt() > 0;
}

QString CreadorTablas::claveRevision(const QString &tabla, const QString &conexion) const {
    QString base = conexion.isEmpty() ? kConexionEmpresa : conexion;
    // "Database" stands for whichever company is current.
    if (base == kConexionEmpresa)
        base += u'#' + (sesion_.AliasSustituto.isEmpty()
                            ? sesion_.NombreAliasEmpresa(sesion_.CodigoEmpresa)
                            : sesion_.AliasSustituto);
    return base + u'|' + tabla.section(u'.', -1).trimmed().toUpper();
}

bool CreadorTablas::CompletarIndices(const QString &tabla, const QString &conexion) {
    if (tabla.trimmed().isEmpty() || EsTablaTemporal(tabla))
        return true;
    const QString clave = claveRevision(tabla, conexion);
    if (revisadas_.contains(clave))
        return true;
    revisadas_.insert(clave);
    QString texto;
    if (!Estructuras(&texto))
        return true;
    const QString buscada = tabla.section(u'.', -1).trimmed();
    const QString campos = co::DefinicionTabla(buscada, texto, QStringLiteral("Campos"));
    if (campos.isEmpty())
        return true;
    const QString nombre = LeerLineaDefinicion(LineasDefinicion(campos).constFirst()).tabla;
    return completarIndices(nombre, conexionDe(nombre, conexion, false),
                            co::DefinicionTabla(buscada, texto, QStringLiteral("Indices")));
}

bool CreadorTablas::completarIndices(const QString &tabla, const QString &conexion,
                                     const QString &indices) {
    QList<IndiceTabla> definidos;
    for (const QString &linea : LineasDefinicion(indices)) {
        const LineaDefinicion l = LeerLineaDefinicion(linea);
        IndiceTabla i{l.nombre, {}, l.longitud};
        for (const QString &campo : l.tipo.split(u';', Qt::SkipEmptyParts))
            i.campos << campo.trimmed();
        // A line that could not make an index is told when the table is made.
        if (!i.primario() && EsIdentificadorValido(i.nombre) && !i.campos.isEmpty())
            definidos << i;
    }
    if (definidos.isEmpty())
        return true;
    const QString enBase =
        datos_.EjecutarSQL(traitsOf(sesion_.backend()).tableIndexesQuery.arg(Entrecomillar(tabla)),
                           conexion, kSinCrear);
    if (EsResultadoError(enBase))
        return true;
    const QSet<QString> existentes = nombresEnMayusculas(enBase);
    QList<IndiceTabla> faltan;
    for (const IndiceTabla &i : std::as_const(definidos))
        if (!existentes.contains(NombreIndiceSQL(tabla, i).toUpper()))
            faltan << i;
    if (faltan.isEmpty())
        return true;

    const QString columnas = datos_.EjecutarSQL(traitsOf(sesion_.backend()).columnsQuery.arg(tabla),
                                                conexion, kSinCrear);
    if (EsResultadoError(columnas) || columnas.isEmpty())
        return true;
    const QSet<QString> tiene = nombresEnMayusculas(columnas);
    auto aviso = [&](const QString &motivo) {
        sesion_.mensajes().MensajeA(
            QStringLiteral("No es posible crear el índice en SQL. Mensaje: ") + motivo);
        return false;
    };
    SchemaTransaction transaccion(sesion_, conexion);
    if (!transaccion.ok())
        return aviso(transaccion.motivo());
    for (const IndiceTabla &i : std::as_const(faltan)) {
        const bool completo =
            std::all_of(i.campos.cbegin(), i.campos.cend(),
                        [&](const QString &c) { return tiene.contains(c.toUpper()); });
        if (!completo)
            continue;
        const QString r = datos_.EjecutarSQL(SentenciaIndice(tabla, i), conexion, kSinCrear);
        if (EsResultadoError(r)) {
            transaccion.rollback();
            return aviso(MotivoResultado(r));
        }
    }
    if (!transaccion.commit())
        return aviso(transaccion.motivo());
    return true;
}

bool CreadorTablas::CamposUsuario(const QString &tabla, QString *lineas, QString *motivo) {
    const QString sql = QStringLiteral("SELECT OrdenCampo, NombreCampo, TipoCampo, LongitudCampo "
                                       "FROM CAMPOUSR WHERE NombreTabla = %1 ORDER BY OrdenCampo")
                            .arg(Entrecomillar(tabla));
    QString r = datos_.EjecutarSQL(sql, kConexionGeneral, kSinCrear);
    if (EsResultadoError(r) && EsTablaInexistente(r)) {
        QString why;
        CrearTabla(QStringLiteral("CAMPOUSR"), kConexionGeneral, {}, &why);
        r = datos_.EjecutarSQL(sql, kConexionGeneral, kSinCrear);
    }
    lineas->clear();
    motivo->clear();
    if (EsResultadoError(r)) {
        *motivo = MotivoResultado(r);
        return false;
    }
    QStringList problemas;
    for (const QString &fila : r.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts)) {
        const QStringList f = fila.split(u'|');
        if (f.size() < 4)
            continue;
        const QString palabra = palabraTipoUsuario(f[2]);
        if (palabra.isEmpty()) {
            problemas
                << QStringLiteral("El campo %1 tiene un tipo desconocido: \"%2\".").arg(f[1], f[2]);
            continue;
        }
        *lineas += tabla + QStringLiteral("/C/") + QString::number(f[0].toInt() + 1000) + u'/' +
                   f[1] + u'/' + palabra + u'/' + f[3] + QStringLiteral("/\r\n");
    }
    *motivo = problemas.join(u' ');
    return true;
}

QString CreadorTablas::DefinicionTabla(const QString &tabla, const QString &texto,
                                       const QString &partes) {
    const bool todas = partes.trimmed().isEmpty();
    QString out;
    if (todas || PideParte(partes, QStringLiteral("Campos")))
        out += co::DefinicionTabla(tabla, texto, QStringLiteral("Campos"));
    if (todas || PideParte(partes, QStringLiteral("CamposUsuario"))) {
        QString lineas, motivo;
        if (CamposUsuario(tabla, &lineas, &motivo))
            out += lineas;
    }
    if (todas || PideParte(partes, QStringLiteral("Indices")))
        out += co::DefinicionTabla(tabla, texto, QStringLiteral("Indices"));
    if (todas || PideParte(partes, QStringLiteral("SQL")))
        out += co::DefinicionTabla(tabla, texto, QStringLiteral("SQL"));
    return out;
}

QString CreadorTablas::CrearTabla(const QString &tabla, const QString &conexion) {
    QString motivo;
    if (CrearTabla(tabla, conexion, {}, &motivo) || motivo.isEmpty())
        return {};
    return motivo;
}

bool CreadorTablas::CrearTabla(const QString &tabla, const QString &conexion,
                               const QString &definicion, QString *motivo) {
    QString ignorado;
    QString &why = motivo ? *motivo : ignorado;
    why.clear();
    auto aviso = [&](const QString &texto, const QString &detalle) {
        sesion_.mensajes().MensajeA(texto + detalle);
        why = detalle.isEmpty() ? texto : detalle;
        return false;
    };

    QString texto;
    bool leido = true;
    if (definicion.isEmpty())
        leido = Estructuras(&texto);
    else if (definicion.contains(u';') && !definicion.contains(u'\n'))
        leido =
            LeerEstructuras(definicion.section(u';', 0, 0), definicion.section(u';', 1), &texto);
    else
        texto = definicion;
    if (!leido) {
        why = QStringLiteral("¡ Imposible abrir el fichero de estructuras de la Base de Datos !");
        sesion_.mensajes().MensajeE(why);
        return false;
    }

    const bool temporal = EsDefinicionTemporal(texto);
    const QString buscada = temporal ? QString() : tabla.section(u'.', -1).trimmed();
    const QString campos = co::DefinicionTabla(buscada, texto, QStringLiteral("Campos"));
    if (campos.isEmpty())
        return aviso(
            QStringLiteral("No se ha encontrado la definición de la tabla. Tabla: ") + tabla, {});
    const QString nombre = temporal
                               ? tabla.section(u'.', -1).trimmed()
                               : LeerLineaDefinicion(LineasDefinicion(campos).constFirst()).tabla;
    const QString destino = conexionDe(nombre, conexion, temporal);
    if (!temporal && existe(nombre, destino)) {
        datos_.RegistrarNombres(
            LeerEstructuraTabla(nombre, campos, {}, nullptr).value_or(EstructuraTabla{}).nombres());
        const QString clave = claveRevision(nombre, conexion);
        if (!revisadas_.contains(clave)) {
            revisadas_.insert(clave);
            completarIndices(nombre, destino,
                             co::DefinicionTabla(buscada, texto, QStringLiteral("Indices")));
        }
        return false;
    }

    QString usuario;
    if (!temporal && nombre.toUpper() != u"CAMPOUSR") {
        QString lineas, problema;
        QStringList problemas;
        if (!CamposUsuario(nombre, &lineas, &problema))
            problemas << problema;
        else if (!problema.isEmpty())
            problemas << problema;
        // A user field that does not fit the table is left out, not the table.
        for (const QString &linea : LineasDefinicion(lineas)) {
            QString rechazo;
            const QString candidata = linea + QStringLiteral("NO\r\n");
            if (LeerEstructuraTabla(nombre, campos + usuario + candidata, {}, &rechazo))
                usuario += candidata;
            else
                problemas << rechazo;
        }
        if (!problemas.isEmpty())
            sesion_.mensajes().MensajeA(
                QStringLiteral(
                    "Se ha producido un error al incorporar los Campos de Usuario en la tabla: ") +
                nombre + QStringLiteral(". ") + QStringLiteral("Motivo: ") + problemas.join(u' '));
    }

    const QString indices = co::DefinicionTabla(buscada, texto, QStringLiteral("Indices"));
    QString problema;
    const std::optional<EstructuraTabla> estructura =
        LeerEstructuraTabla(nombre, campos + usuario, indices, &problema);
    if (!estructura)
        return aviso(QStringLiteral("¡No es posible crear la tabla SQL (Paso 1)!. Motivo: "),
                     problema);
    const bool primeraEmpresa =
        !temporal && nombre.toUpper() == u"EMPRESA" && Propietario != u"fGENEACTU";
    // The company's database goes first: made again it is still the one, so a
    // crash before EMPRESA is kept leaves nothing that the next try trips over.
    if (primeraEmpresa && !CrearBaseDatos(sesion_.NombreAliasEmpresa(1))) {
        why = QStringLiteral("¡ Imposible crear el registro de la empresa 1 !");
        return false;
    }
    return crearEnBaseDatos(*estructura, destino, temporal, primeraEmpresa, &why);
}

bool CreadorTablas::crearEnBaseDatos(const EstructuraTabla &tabla, const QString &conexion,
                                     bool temporal, bool primeraEmpresa, QString *motivo) {
    const SentenciasTabla s = SentenciasCreacion(tabla, sesion_.backend(), sesion_.FechaNula);
    datos_.RegistrarNombres(tabla.nombres() << tabla.nombre);
    for (const CampoTabla &c : tabla.campos)
        if (c.tipo == TipoCampo::ftDate || c.tipo == TipoCampo::ftDateTime)
            datos_.RegistrarColumnasFecha({c.nombre});
    auto pasoUno = [&](const QString &texto) {
        *motivo = texto;
        sesion_.mensajes().MensajeA(
            QStringLiteral("¡No es posible crear la tabla SQL (Paso 1)!. Motivo: ") + texto);
        return false;
    };
    SchemaTransaction transaccion(sesion_, conexion);
    if (!transaccion.ok())
        return pasoUno(transaccion.motivo());
    if (temporal)
        datos_.EjecutarSQL(QStringLiteral("DROP TABLE IF EXISTS ") + tabla.nombre, conexion,
                           kSinCrear);
    const QString r = datos_.EjecutarSQL(s.crear, conexion, kSinCrear);
    if (EsResultadoError(r)) {
        transaccion.rollback();
        // Another process may have made it meanwhile: then it is there to use.
        if (!temporal && existe(tabla.nombre, conexion)) {
            motivo->clear();
            return false;
        }
        pasoUno(MotivoResultado(r));
        sesion_.mensajes().MensajePlano(s.crear);
        return false;
    }
    for (const QString &indice : s.indices) {
        const QString ri = datos_.EjecutarSQL(indice, conexion, kSinCrear);
        if (EsResultadoError(ri)) {
            transaccion.rollback();
            *motivo = MotivoResultado(ri);
            sesion_.mensajes().MensajeA(
                QStringLiteral("No es posible crear el índice en SQL. Mensaje: ") + *motivo);
            return false;
        }
    }
    if (primeraEmpresa && !PrimeraEmpresa()) {
        transaccion.rollback();
        *motivo = QStringLiteral("¡ Imposible crear el registro de la empresa 1 !");
        return false;
    }
    if (!transaccion.commit())
        return pasoUno(transaccion.motivo());
    revisadas_.insert(claveRevision(tabla.nombre, conexion));
    return true;
}

bool CreadorTablas::PrimeraEmpresa() {
    const QString nombre = sesion_.instalacion().NombrePrimeraEmpresa;
    const QString r = datos_.EjecutarSQL(
        QStringLiteral("INSERT INTO EMPRESA (Codigo, Nombre, Abreviatura) VALUES ('1', %1, %2)")
            .arg(Entrecomillar(nombre.left(40)), Entrecomillar(nombre.left(20))),
        kConexionGeneral, kSinCrear);
    if (EsResultadoError(r)) {
        sesion_.mensajes().MensajeE(
            QStringLiteral("¡ Imposible crear el registro de la empresa 1 !"));
        return false;
    }
    return true;
}

bool CreadorTablas::CrearBaseDatos(const QString &nombre) {
    const QString conexion =
        QStringLiteral("co.crearbd.") + QUuid::createUuid().toString(QUuid::Id128);
    QString motivo;
    // A schema name goes into statements as it stands.
    if (sesion_.backend() == Backend::PostgreSQL && !EsIdentificadorValido(nombre)) {
        sesion_.mensajes().MensajeE(QStringLiteral("¡Imposible crear la base de datos ") + nombre +
                                    QStringLiteral("!. Motivo:") +
                                    QStringLiteral(" el nombre no es válido."));
        return false;
    }
    const bool ok =
        openConnection(conexion, sesion_.backend(), sesion_.instalacion(), {false, nombre}, &motivo)
            .isValid();
    closeConnection(conexion);
    if (!ok)
        sesion_.mensajes().MensajeE(QStringLiteral("¡Imposible crear la base de datos ") + nombre +
                                    QStringLiteral("!. Motivo:") + motivo);
    return ok;
}

} // namespace co
