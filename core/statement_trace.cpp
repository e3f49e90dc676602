#include "core/statement_trace.h"

#include <QFile>

namespace co {

QString LineaTrazaSQL(const QString &user, const QDateTime &when, const QString &sql) {
    QString flat = sql;
    flat.replace(QLatin1String("\r\n"), QLatin1String(" "))
        .replace(u'\r', u' ')
        .replace(u'\n', u' ');
    return user + u'|' + when.toString(QStringLiteral("yyyy/MM/dd")) + u'|' +
           when.toString(QStringLiteral("HH:mm:ss:zzz")) + u'|' + flat;
}

bool AnadirTrazaSQL(const QString &fileName, const QString &line) {
    if (fileName.isEmpty())
        return true;
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return false;
    const QByteArray data = (line + QLatin1String("\r\n")).toUtf8();
    return file.write(data) == data.size();
}

} // namespace co
