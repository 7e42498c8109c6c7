#include "bench/Table.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <cstddef>
#include <iostream>

namespace VellariBench {

namespace {

using KvRefSystem::FormatText;

void Print(std::string const& text) {
    std::cout << text << std::flush;
}

double Least(std::vector<double> const& times) {
    return *std::min_element(times.begin(), times.end());
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::size_t const middle = times.size() / 2;
    return times.size() % 2 == 1 ? times[middle] : (times[middle - 1] + times[middle]) / 2;
}

} // namespace

bool TTableReporter::ReportContext(Context const& context) {
    Print(FormatText("%d processors of %.0f MHz; load", context.cpu_info.num_cpus,
                     context.cpu_info.cycles_per_second / 1e6));
    for (double const load : context.cpu_info.load_avg) {
        Print(FormatText(" %.1f", load));
    }
    Print("\nmeasuring...\n");
    return true;
}

void TTableReporter::ReportRuns(std::vector<Run> const& report) {
    for (Run const& run : report) {
        std::string const& name = run.run_name.function_name;
        if (run.error_occurred) {
            Print(name + ": " + run.error_message + "\n");
            HasErrors = true;
            continue;
        }
        std::size_t const slash = name.find('/');
        if (run.run_type != Run::RT_Iteration || slash == std::string::npos) {
            continue;
        }
        auto const items = run.counters.find("items");
        double const count = items == run.counters.end() ? 1 : items->second.value;
        TimesOf(name.substr(0, slash), name.substr(slash + 1), run.family_index)
            .push_back(run.cpu_accumulated_time * 1e9 / static_cast<double>(run.iterations) / count);
    }
}

void TTableReporter::Finalize() {
    SortByRegistration();
    Print("\nNanoseconds of the processor: least and median of the repetitions. Ratio: theirs over ours, of "
          "the least\n"
          "and of the medians; above 1 Vellari is the faster one.\n");
    for (TTask const& task : Tasks) {
        Print("\n" + task.Name + "\n");
        TTimes const& ours = task.Contenders.front().Times;
        for (TContender const& contender : task.Contenders) {
            double const least = Least(contender.Times);
            double const median = Median(contender.Times);
            Print(FormatText("  %-34s %11.1f %11.1f", contender.Name.c_str(), least, median));
            if (&contender != &task.Contenders.front()) {
                Print(FormatText("   ratio %6.2f %6.2f", least / Least(ours), median / Median(ours)));
            }
            Print("\n");
        }
    }
}

void TTableReporter::SortByRegistration() {
    auto const earlier = [](auto const& first, auto const& second) { return first.Order < second.Order; };
    for (TTask& task : Tasks) {
        std::sort(task.Contenders.begin(), task.Contenders.end(), earlier);
    }
    std::sort(Tasks.begin(), Tasks.end(), earlier);
}

TTableReporter::TTimes& TTableReporter::TimesOf(std::string const& task, std::string const& contender,
                                                std::int64_t order) {
    auto place =
        std::find_if(Tasks.begin(), Tasks.end(), [&](TTask const& each) { return each.Name == task; });
    if (place == Tasks.end()) {
        place = Tasks.insert(place, TTask{order, task, {}});
    }
    place->Order = std::min(place->Order, order);
    auto& contenders = place->Contenders;
    auto found = std::find_if(contenders.begin(), contenders.end(),
                              [&](TContender const& each) { return each.Name == contender; });
    if (found == contenders.end()) {
        found = contenders.insert(found, TContender{order, contender, {}});
    }
    return found->Times;
}

} // namespace VellariBench
