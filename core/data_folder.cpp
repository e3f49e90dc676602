#include "core/data_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace co {

QString CarpetaDatosAplicacion() {
    const QString fromEnvironment = qEnvironmentVariable("CONTROL_OBRAS_DATOS");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    if (QCoreApplication::instance()) {
        const QString installed =
            QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(QStringLiteral("../share/control-obras/data"));
        if (QFileInfo::exists(installed + QStringLiteral("/DATABASE.TXT")))
            return QDir::cleanPath(installed);
    }
    return QStringLiteral(CO_DATA_DIR);
}

} // namespace co
