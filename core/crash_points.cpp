#include "core/crash_points.h"

#include <QByteArray>
#include <QFile>
#include <csignal>

namespace co {
namespace {

qint64 crashAtFromEnvironment() {
    bool ok = false;
    const qint64 at = qgetenv("CO_CRASH_AT").trimmed().toLongLong(&ok);
    return ok && at > 0 ? at : 0;
}

} // namespace

CrashPoints::CrashPoints()
    : at_(crashAtFromEnvironment()), countFile_(qEnvironmentVariable("CO_CRASH_COUNT")) {}

CrashPoints::~CrashPoints() {
    if (countFile_.isEmpty())
        return;
    QFile file(countFile_);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(QByteArray::number(passed_));
}

void CrashPoints::pass() {
    ++passed_;
    // SIGKILL cannot be caught: no handler, no flush, no destructor runs.
    if (at_ > 0 && passed_ == at_)
        std::raise(SIGKILL);
}

} // namespace co
