#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace norel::Benchmark {

/// Keeps the times of every repetition, and prints how the rows compare. A repetition runs all rows before
/// the next begins; the k-th time of one row is paired with the k-th of another.
class RatioTable : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// A line of the table: the median of the paired ratios, times `scale`, and their spread.
    void printRatio(const std::string& row, const std::string& base, double scale = 1) const;

    /// A line of the table: the median time.
    void printTime(const std::string& row) const;

private:
    std::map<std::string, std::vector<double>> seconds;
};

} // namespace norel::Benchmark
