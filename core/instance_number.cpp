#include "core/instance_number.h"

#include <QDir>
#include <QLockFile>

namespace co {

NumeroInstancia::NumeroInstancia(const QString &carpetaInstalacion, int maximo)
    : base_(QDir(carpetaInstalacion).filePath(QStringLiteral("PRIVDIR"))) {
    if (!QDir().mkpath(base_))
        return;
    for (int n = 1; n <= maximo; ++n) {
        auto lock = std::make_unique<QLockFile>(QDir(base_).filePath(QStringLiteral("instancia%1.lock").arg(n)));
        lock->setStaleLockTime(0);
        if (lock->tryLock(0)) {
            numero_ = n;
            lock_ = std::move(lock);
            return;
        }
    }
}

NumeroInstancia::~NumeroInstancia() = default;

QString NumeroInstancia::carpetaPrivada() const {
    if (numero_ == 0)
        return {};
    const QString dir = QDir(base_).filePath(QString::number(numero_));
    QDir().mkpath(dir);
    return dir;
}

} // namespace co
