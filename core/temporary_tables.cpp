#include "core/temporary_tables.h"

#include "core/connection_words.h"
#include "core/definition_text.h"
#include "core/sql_text.h"
#include "core/table_creation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSysInfo>
#include <atomic>

namespace co {
namespace {

std::atomic<int> numeroPrograma{kProgramaControlObras};

bool falla(QString *motivo, const QString &texto) {
    if (motivo)
        *motivo = texto;
    return false;
}

QString propietarioDe(const QString &propietario) {
    return propietario.trimmed().isEmpty() ? QStringLiteral("Unknown") : propietario.trimmed();
}

// The owner part of a short name is part of an unquoted table name: anything
// but letters, digits and "_" becomes "_". The counter keeps names apart.
QString propietarioEnNombre(const QString &propietario) {
    QString out = propietarioDe(propietario);
    for (QChar &c : out)
        if (!(c.isLetterOrNumber() && c.unicode() < 128) && c != u'_')
            c = u'_';
    return out;
}

QString doceHexadecimales(const QByteArray &hex) {
    return QString::fromLatin1(hex.left(12)).toUpper();
}

QString adaptadorFisico() {
    const QDir red(QStringLiteral("/sys/class/net"));
    const QStringList nombres = red.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &n : nombres) {
        // Virtual adapters come and go; only those backed by a device are stable.
        if (!QFileInfo::exists(red.filePath(n + QStringLiteral("/device"))))
            continue;
        QFile f(red.filePath(n + QStringLiteral("/address")));
        if (!f.open(QIODevice::ReadOnly))
            continue;
        const QByteArray hex = f.readAll().trimmed().replace(':', QByteArray());
        if (hex.size() == 12 && hex != QByteArray(12, '0'))
            return doceHexadecimales(hex);
    }
    return {};
}

} // namespace

int NumeroPrograma() {
    return numeroPrograma.load();
}

void FijarNumeroPrograma(int numero) {
    numeroPrograma.store(numero);
}

QString IdentificadorMaquina() {
    static const QString id = [] {
        static const QRegularExpression hex(QStringLiteral("^[0-9A-Fa-f]{12,}$"));
        const QByteArray unico = QSysInfo::machineUniqueId();
        if (hex.match(QString::fromLatin1(unico)).hasMatch() &&
            unico.left(12) != QByteArray(12, '0'))
            return doceHexadecimales(unico);
        const QString adaptador = adaptadorFisico();
        return adaptador.isEmpty() ? QStringLiteral("000000000000") : adaptador;
    }();
    return id;
}

QString NombreLargoTemporal(const QString &propietario, int numero, const QString &codigoUsuario) {
    return QStringLiteral("TEMP_") + IdentificadorMaquina() + u'_' + propietarioDe(propietario) +
           u'_' + QString::number(numero) + u'_' + QString::number(NumeroPrograma()) + u'_' +
           codigoUsuario;
}

bool NombreCortoTemporal(TModuloDatos &datos, const QString &nombreLargo,
                         const QString &propietario, QString *nombre, QString *motivo) {
    if (nombreLargo.size() > kLongitudNombreLargo)
        return falla(motivo, QStringLiteral("El nombre de la tabla temporal \"%1\" supera los %2 "
                                            "caracteres.")
                                 .arg(nombreLargo)
                                 .arg(kLongitudNombreLargo));
    // Several rows may hold one long name when two runs of one user raced for
    // it; the lowest counter is the name all of them agree on.
    const QString buscar = QStringLiteral("SELECT NombreTablaTemporal FROM NOMBTTEM   WHERE "
                                          "NombreTablaTemporalOrg = ") +
                           Entrecomillar(nombreLargo) + QStringLiteral(" ORDER BY Contador");
    for (;;) {
        const QString hallado =
            datos.EjecutarSQL(buscar, kConexionGeneral, QStringLiteral("Silenciosa"));
        if (EsResultadoError(hallado))
            return falla(motivo, MotivoResultado(hallado));
        if (!hallado.isEmpty()) {
            if (nombre)
                *nombre = hallado.section(QStringLiteral("\r\n"), 0, 0).left(kLongitudNombreCorto);
            return true;
        }
        const QString maximo =
            datos.EjecutarSQL(QStringLiteral("SELECT MAX(Contador) FROM NOMBTTEM"),
                              kConexionGeneral, QStringLiteral("Silenciosa"));
        if (EsResultadoError(maximo))
            return falla(motivo, MotivoResultado(maximo));
        const qlonglong contador = maximo.trimmed().toLongLong() + 1;
        const QString corto = (QStringLiteral("TEMP%1_").arg(contador, 6, 10, QLatin1Char('0')) +
                               propietarioEnNombre(propietario))
                                  .left(kLongitudNombreCorto);
        const QString alta = datos.EjecutarSQL(
            QStringLiteral("INSERT INTO NOMBTTEM VALUES (") + QString::number(contador) +
                QStringLiteral(", ") + Entrecomillar(nombreLargo) + QStringLiteral(", ") +
                Entrecomillar(corto) + u')',
            kConexionGeneral, QStringLiteral("Silenciosa"));
        // A number taken meanwhile by someone else, or a writer holding the
        // table longer than the wait: read again.
        if (EsResultadoError(alta) && !alta.contains(QStringLiteral("Key violation")) &&
            !alta.contains(QStringLiteral("Record locked by another user")))
            return falla(motivo, MotivoResultado(alta));
    }
}

bool NombreTablaTemporal(TModuloDatos &datos, const QString &propietario, int numero,
                         QString *nombre, QString *motivo) {
    return NombreCortoTemporal(
        datos, NombreLargoTemporal(propietario, numero, datos.sesion().CodigoUsuario), propietario,
        nombre, motivo);
}

bool CrearTablaTemporal(TModuloDatos &datos, CreadorTablas &creador, const QString &propietario,
                        const QString &definicion, QString *nombre, QString *motivo) {
    const int numero = NumeroTablaTemporal(definicion);
    if (numero < 0)
        return falla(motivo, QStringLiteral("La definición no es de una tabla temporal: debe "
                                            "empezar por la línea \"Tabla Temporal\"."));
    QString tabla;
    if (!NombreTablaTemporal(datos, propietario, numero, &tabla, motivo))
        return false;
    if (nombre)
        *nombre = tabla;
    if (!creador.CrearTabla(tabla, kConexionGeneral, definicion, motivo))
        return false;
    // SQLite: the company connection keeps the old shape of the table until it
    // reads it, and a positional INSERT from there is checked against that shape.
    datos.EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM ") + datos.sesion().AliasGeneralSQL() +
                          QStringLiteral(".dbo.") + tabla,
                      kConexionEmpresa, QStringLiteral("Silenciosa,No Crear Tabla"));
    return true;
}

} // namespace co
