#include "RatioTable.h"

#include <algorithm>
#include <cstdio>

namespace norel::Benchmark {
namespace {

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

bool RatioTable::ReportContext(const Context& /*context*/) { return true; }

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs)
        if (run.run_type == Run::RT_Iteration)
            seconds[run.run_name.function_name + "/" + run.run_name.args].push_back(
                run.real_accumulated_time / static_cast<double>(run.iterations));
}

void RatioTable::printRatio(const std::string& row, const std::string& base, double scale) const {
    const auto above = seconds.find(row);
    const auto below = seconds.find(base);
    if (above == seconds.end() || below == seconds.end())
        return; // filtered out
    std::vector<double> ratios;
    for (std::size_t i = 0; i < std::min(above->second.size(), below->second.size()); ++i)
        ratios.push_back(scale * above->second[i] / below->second[i]);
    const auto [least, most] = std::minmax_element(ratios.begin(), ratios.end());
    std::printf("| %s / %s | %.2f | %.2f to %.2f |\n", row.c_str(), base.c_str(), median(ratios), *least,
                *most);
}

void RatioTable::printTime(const std::string& row) const {
    if (const auto found = seconds.find(row); found != seconds.end())
        std::printf("| %s | %.3f ms |\n", row.c_str(), 1000 * median(found->second));
}

} // namespace norel::Benchmark
