#include "core/session_values.h"

#include "core/text_utils.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextStream>

namespace co {

QHash<QString, QString> LeerMapaAyuda(const QString &archivo) {
    QHash<QString, QString> mapa;
    QFile file(archivo);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return mapa;
    static const QRegularExpression blancos(QStringLiteral("\\s+"));
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QString linea = in.readLine().trimmed();
        const int corte = linea.indexOf(blancos);
        if (corte <= 0)
            continue;
        QString nombre = linea.left(corte);
        QString valor = linea.mid(corte).trimmed();
        nombre.replace(u' ', u'_');
        valor.replace(blancos, QStringLiteral("_"));
        mapa.insert(nombre, valor);
    }
    return mapa;
}

int ContextoAyuda(const QHash<QString, QString> &mapa, const QString &caption) {
    QString clave = SinAmpersand(caption).trimmed();
    clave.replace(u' ', u'_');
    bool ok = false;
    const int contexto = mapa.value(clave).toInt(&ok);
    return ok ? contexto : 0;
}

QString CalcularFechaVersion(const QString &ejecutable, const QDate &hoy) {
    const QFileInfo info(ejecutable);
    const QDateTime modificado = info.exists() ? info.lastModified() : QDateTime();
    const QDate fecha = modificado.isValid() ? modificado.date().addDays(1) : hoy;
    return fecha.toString(QStringLiteral("dd/MM/yyyy"));
}

QString SentenciaVersionServidor(Backend backend) {
    return backend == Backend::PostgreSQL ? QStringLiteral("SELECT version()")
                                          : QStringLiteral("SELECT 'SQLite ' || sqlite_version()");
}

} // namespace co
