#include "tests/memory/Sweep.h"

#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iostream>
#include <map>
#include <new>
#include <stdexcept>

namespace MemorySweep {

namespace {

using KvRefSystemTests::FailedAllocations;
using KvRefSystemTests::FailEveryForm;
using KvRefSystemTests::LiveAllocations;
using KvRefSystemTests::TFailing;

/** What a family went through. */
struct TFigures {
    int operations = 0;
    long failures = 0;
};

std::map<std::string, TFigures>& Figures() {
    static std::map<std::string, TFigures> figures;
    return figures;
}

/** The number with a comma between groups of three. */
std::string Grouped(long number) {
    std::string digits = std::to_string(number);
    for (auto place = static_cast<std::ptrdiff_t>(digits.size()) - 3; place > 0; place -= 3) {
        digits.insert(static_cast<std::size_t>(place), ",");
    }
    return digits;
}

/** Tells at the end of the process what all the families went through. */
class TSummary : public testing::Environment {
public:
    void TearDown() override {
        TFigures total;
        std::string line;
        for (auto const& [family, figures] : Figures()) {
            line += family + " " + Grouped(figures.operations) + " operations, " + Grouped(figures.failures) +
                    " failures; ";
            total.operations += figures.operations;
            total.failures += figures.failures;
        }
        if (total.operations > 0) {
            std::cout << "allocation sweep: " << line << "total " << Grouped(total.operations)
                      << " operations, " << Grouped(total.failures) << " failures survived\n";
        }
    }
};

testing::Environment* const summary = testing::AddGlobalTestEnvironment(new TSummary);

char const* NameOf(TEnd end) {
    switch (end) {
    case Done:
        return "done";
    case Null:
        return "null";
    case False:
        return "false";
    case BadAlloc:
        return "std::bad_alloc";
    case RuntimeError:
        return "std::runtime_error";
    case LogicError:
        return "std::logic_error";
    default:
        return "another exception";
    }
}

TEnd Try(TRun const& run) {
    try {
        return run.act();
    } catch (std::bad_alloc const&) {
        return BadAlloc;
    } catch (std::runtime_error const&) {
        return RuntimeError;
    } catch (std::logic_error const&) {
        return LogicError;
    } catch (...) {
        return AnotherError;
    }
}

/** What a whole run gives, and what is there before. */
struct TExpected {
    std::string before;
    std::string done;
    std::string lapsed;
};

std::string StateAfter(std::function<TRun()> const& begin) {
    TRun const run = begin();
    TEnd const end = Try(run);
    EXPECT_EQ(end, Done) << NameOf(end) << " although no memory is missing";
    return run.state();
}

/** The part of two texts where they differ first. */
std::string Difference(std::string const& one, std::string const& other) {
    std::size_t place = 0;
    while (place < one.size() && place < other.size() && one[place] == other[place]) {
        ++place;
    }
    std::size_t const from = place < 60 ? 0 : place - 60;
    return "...[" + one.substr(from, 160) + "]\n...[" + other.substr(from, 160) + "]";
}

/** @return what isn't as the operation states it, or an empty text. */
std::string Complaint(TOperation const& operation, TExpected const& expected, TFailing failing, TEnd end,
                      std::string const& after) {
    if (end == Done) {
        return after == expected.done
                   ? ""
                   : "it claims success and leaves another result\n" + Difference(expected.done, after);
    }
    unsigned stated = operation.onFailure;
    if (failing == TFailing::Onwards && (stated & (RuntimeError | LogicError)) != 0) {
        stated |= BadAlloc; // there is no memory for the exception's text either
    }
    if ((stated & end) == 0) {
        return std::string("it ends with ") + NameOf(end);
    }
    if (operation.anyState || after == expected.before || (operation.lapse && after == expected.lapsed)) {
        return "";
    }
    return std::string("it ends with ") + NameOf(end) + " and leaves a changed state\n" +
           Difference(expected.before, after);
}

#if defined(__SANITIZE_ADDRESS__) || defined(VELLARI_SLOW_LIBRARY)
constexpr bool IsSlow = true;
#elif defined(__has_feature)
constexpr bool IsSlow = __has_feature(address_sanitizer);
#else
constexpr bool IsSlow = false;
#endif

/** The next allocation to fail: every one; where the library is slow, a sample, for time's sake. */
int Next(int which) {
    constexpr int firstOnes = 24;
    constexpr int stride = 17;
    return IsSlow && which >= firstOnes ? which + stride : which + 1;
}

/** @return how many failures were survived. */
long SweepOne(TOperation const& operation, TExpected const& expected, TFailing failing) {
    long survived = 0;
    int complaints = 0;
    for (int which = 1;; which = Next(which)) {
        std::ptrdiff_t const live = LiveAllocations();
        int failed = 0;
        std::string complaint;
        {
            TRun const run = operation.begin();
            FailEveryForm(which, failing);
            TEnd const end = Try(run);
            FailEveryForm(0, failing);
            failed = FailedAllocations();
            complaint = Complaint(operation, expected, failing, end, run.state());
        }
        std::ptrdiff_t const left = LiveAllocations() - live - (complaint.capacity() > 15 ? 1 : 0);
        if (left != 0) {
            complaint += "; it leaves " + std::to_string(left) + " blocks behind";
        }
        if (!complaint.empty()) {
            ADD_FAILURE() << operation.name << ", allocation " << which
                          << (failing == TFailing::Onwards ? " and all behind it: " : ": ") << complaint;
            ++complaints;
        }
        if (failed == 0 || complaints > 2) {
            return survived;
        }
        survived += failed;
    }
}

} // namespace

void Sweep(std::string const& family, TOperation const& operation) {
    StateAfter(operation.begin); // what is made once for the whole process is made here
    TExpected const expected = {operation.begin().state(), StateAfter(operation.begin),
                                operation.lapse ? StateAfter(operation.lapse) : std::string()};
    TFigures& figures = Figures()[family];
    ++figures.operations;
    figures.failures += SweepOne(operation, expected, TFailing::Once);
    figures.failures += SweepOne(operation, expected, TFailing::Onwards);
}

} // namespace MemorySweep
