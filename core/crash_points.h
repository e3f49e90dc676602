#pragma once
// A seam for crash tests, read from the environment of the process:
//  - CO_CRASH_AT=N (N >= 1): the N-th point passed on one CrashPoints object
//    ends the process at once with SIGKILL, as a kill -9 or a power cut would:
//    every step before that point has run to its end, nothing after it has
//    started. Without it, or with a value that is not a positive whole number,
//    a point is only counted.
//  - CO_CRASH_COUNT=FILE: when the object goes (at the normal end of the
//    process) the number of points passed is written to FILE, so that a test
//    knows the range of points of an undisturbed run.
//
// The session owns one. The statement layer passes a point before each
// statement it sends; a schema transaction passes one before it begins and one
// before it commits.

#include <QString>
#include <QtGlobal>

namespace co {

class CrashPoints {
public:
    // Reads CO_CRASH_AT and CO_CRASH_COUNT.
    CrashPoints();
    // Dies at the `at`-th point (0: never); writes no count.
    explicit CrashPoints(qint64 at) : at_(at > 0 ? at : 0) {}
    ~CrashPoints();
    CrashPoints(const CrashPoints &) = delete;
    CrashPoints &operator=(const CrashPoints &) = delete;

    void pass();
    qint64 passed() const { return passed_; }

private:
    qint64 at_ = 0;
    qint64 passed_ = 0;
    QString countFile_;
};

} // namespace co
