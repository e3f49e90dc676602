#pragma once
// Console reporter that also keeps each benchmark's time, so that a run can
// print the ratio of a measured case against its floor measured in that run.

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace co::bench {

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override;

    // Prints "label: measured / floor = r (target t)"; returns false when over target.
    bool printRatio(const std::string &label, const std::string &measured, const std::string &floor,
                    double target) const;

    // Prints the ratio and both times, with no target to meet.
    void printFigures(const std::string &label, const std::string &measured, const std::string &floor) const;

private:
    std::map<std::string, double> times_;
};

} // namespace co::bench
