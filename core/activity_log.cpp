#include "core/activity_log.h"

#include <QDir>
#include <QFile>
#include <QStringList>

namespace co {

namespace {
constexpr int kMaxLines = 100;

QStringList readLines(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString text = QString::fromUtf8(file.readAll());
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QStringList lines = text.split(u'\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}
} // namespace

QString ActivityLogPath(const ActivityLogContext &context) {
    return QDir(context.folder).filePath(context.user + QLatin1String(".log"));
}

bool RegistrarActividad(const ActivityLogContext &context, const QString &formName,
                        const QString &caption, const QString &action) {
    if (!context.enabled || formName.isEmpty())
        return true;
    const QString path = ActivityLogPath(context);
    QStringList lines = readLines(path);

    QString what = action;
    if (action.contains(QLatin1String("Start"))) {
        lines.clear();
        const qsizetype comma = action.indexOf(u',');
        if (comma >= 0)
            what = action.mid(comma + 1);
    }
    const QString station = context.networkFailure.isEmpty()
                                ? context.machineName + u'/' + context.address
                                : context.networkFailure;
    const QString sep = QStringLiteral(", ");
    const QString line = context.now.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")) + sep + what +
                         sep + formName + sep + caption + sep + station + sep;

    if (lines.size() > kMaxLines)
        lines.removeFirst();
    lines << line;

    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const QByteArray data = (lines.join(QLatin1String("\r\n")) + QLatin1String("\r\n")).toUtf8();
    return file.write(data) == data.size();
}

} // namespace co
