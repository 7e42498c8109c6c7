#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

namespace VellariBench {

/**
 * Gathers all repetitions and prints one table at the end: a row for each task, and in it the contenders side
 * by side. Names of benchmarks are "task/contender"; the first contender that is registered for a task is
 * ours.
 */
class TTableReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(Context const& context) override;
    void ReportRuns(std::vector<Run> const& report) override;
    void Finalize() override;

    /** @return whether a benchmark reported an error. */
    bool Failed() const { return HasErrors; }

private:
    /** Nanoseconds an item (a point, a system), one number a repetition. */
    using TTimes = std::vector<double>;

    struct TContender {
        std::int64_t Order; ///< of registration
        std::string Name;
        TTimes Times;
    };

    struct TTask {
        std::int64_t Order; ///< of its first contender
        std::string Name;
        std::vector<TContender> Contenders;
    };

    TTimes& TimesOf(std::string const& task, std::string const& contender, std::int64_t order);
    void SortByRegistration(); ///< repetitions that take turns come in any order

    std::vector<TTask> Tasks; ///< in the order in which their first results came
    bool HasErrors = false;
};

} // namespace VellariBench
