#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace norel::Benchmark {

/// Keeps the times of every repetition, and compares rows. A repetition runs all rows before the next begins,
/// and the k-th time of one row is paired with the k-th of another.
class RatioTable : public benchmark::BenchmarkReporter {
public:
    /// Sorted; empty for rows that were not run.
    using Ratios = std::vector<double>;

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The paired ratios of two rows, times `scale`.
    Ratios ratios(const std::string& row, const std::string& base, double scale = 1) const;

    /// The median time of a row in seconds; 0 when it was not run.
    double time(const std::string& row) const;

private:
    std::map<std::string, std::vector<double>> seconds;
};

/// The median of sorted numbers, which must not be empty.
double median(const std::vector<double>& sorted);

/// A cell of a table: the median and the spread, or "-" for none.
std::string cell(const RatioTable::Ratios& ratios);

} // namespace norel::Benchmark
