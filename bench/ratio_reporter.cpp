#include "ratio_reporter.h"

#include <cstdio>

namespace co::bench {

void RatioReporter::ReportRuns(const std::vector<Run> &runs) {
    for (const Run &run : runs)
        if (run.run_type == Run::RT_Iteration || run.aggregate_name == "median")
            times_[run.run_name.function_name +
                   (run.run_name.args.empty() ? "" : "/" + run.run_name.args)] =
                run.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
}

bool RatioReporter::printRatio(const std::string &label, const std::string &measured,
                               const std::string &floor, double target) const {
    const auto m = times_.find(measured), f = times_.find(floor);
    if (m == times_.end() || f == times_.end() || f->second <= 0) {
        std::printf("%-48s missing (%s or %s)\n", label.c_str(), measured.c_str(), floor.c_str());
        return false;
    }
    const double ratio = m->second / f->second;
    std::printf("%-48s %8.3f x its floor (target %.1f x) %s\n", label.c_str(), ratio, target,
                ratio <= target ? "ok" : "OVER");
    return ratio <= target;
}

void RatioReporter::printFigures(const std::string &label, const std::string &measured,
                                 const std::string &floor) const {
    const auto m = times_.find(measured), f = times_.find(floor);
    if (m == times_.end() || f == times_.end() || f->second <= 0) {
        std::printf("%-48s missing (%s or %s)\n", label.c_str(), measured.c_str(), floor.c_str());
        return;
    }
    std::printf("%-48s %10.3f ms against %.3f ms: %.1f x its floor\n", label.c_str(), m->second, f->second,
                m->second / f->second);
}

} // namespace co::bench
