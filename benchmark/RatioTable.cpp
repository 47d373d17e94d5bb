#include "RatioTable.h"

#include <algorithm>
#include <cstdio>

namespace norel::Benchmark {

bool RatioTable::ReportContext(const Context& /*context*/) { return true; }

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs)
        if (run.run_type == Run::RT_Iteration)
            seconds[run.run_name.function_name + "/" + run.run_name.args].push_back(
                run.real_accumulated_time / static_cast<double>(run.iterations));
}

RatioTable::Ratios RatioTable::ratios(const std::string& row, const std::string& base, double scale) const {
    Ratios ratios;
    const auto above = seconds.find(row);
    const auto below = seconds.find(base);
    if (above == seconds.end() || below == seconds.end())
        return ratios;
    for (std::size_t i = 0; i < std::min(above->second.size(), below->second.size()); ++i)
        ratios.push_back(scale * above->second[i] / below->second[i]);
    std::sort(ratios.begin(), ratios.end());
    return ratios;
}

double RatioTable::time(const std::string& row) const {
    const auto found = seconds.find(row);
    if (found == seconds.end())
        return 0;
    std::vector<double> times = found->second;
    std::sort(times.begin(), times.end());
    return median(times);
}

double median(const std::vector<double>& sorted) { return sorted[sorted.size() / 2]; }

std::string cell(const RatioTable::Ratios& ratios) {
    if (ratios.empty())
        return "-";
    char text[64];
    std::snprintf(text, sizeof text, "%.2f (%.2f to %.2f)", median(ratios), ratios.front(), ratios.back());
    return text;
}

} // namespace norel::Benchmark
