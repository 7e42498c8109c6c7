#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <exception>
#include <functional>
#include <latch>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

/** Eight threads that start together, and what they answer. */
namespace Threads {

inline constexpr int CrewSize = 8;

/**
 * Runs `work` with the numbers 0 to 7 on eight threads that start together, and waits for all of them.
 * @throws std::runtime_error with the text of what a thread threw.
 */
inline void RunTogether(std::function<void(int)> const& work) {
    std::latch start(CrewSize);
    std::array<std::string, CrewSize> failures;
    std::vector<std::thread> threads;
    for (int number = 0; number < CrewSize; ++number) {
        threads.emplace_back([&start, &failures, &work, number] {
            start.arrive_and_wait();
            try {
                work(number);
            } catch (std::exception const& failure) {
                failures[static_cast<std::size_t>(number)] = std::string("thrown: ") + failure.what();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (std::string const& failure : failures) {
        if (!failure.empty()) {
            throw std::runtime_error(failure);
        }
    }
}

/** What a question was answered. */
template <class Answer>
struct TOutcome {
    Answer alone;   ///< by one thread, after the others
    int deviations; ///< how many answers of the eight threads were others
};

/**
 * Lets eight threads put a question at once, `passes` times each, and then one alone. The lone thread comes
 * last, so that whatever is made at the first question is made by threads that meet.
 * @param ask gets the thread's number; its answer mustn't depend on it and is compared by ==.
 */
template <class Ask>
auto AskTogether(int passes, Ask const& ask) {
    using Answer = std::invoke_result_t<Ask const&, int>;
    std::array<std::optional<Answer>, CrewSize> first;
    std::array<int, CrewSize> changes = {};
    RunTogether([&](int number) {
        auto const index = static_cast<std::size_t>(number);
        first[index] = ask(number);
        for (int pass = 1; pass < passes; ++pass) {
            changes[index] += ask(number) == *first[index] ? 0 : 1;
        }
    });
    TOutcome<Answer> outcome = {ask(0), 0};
    for (std::size_t index = 0; index < first.size(); ++index) {
        outcome.deviations += changes[index] + (*first[index] == outcome.alone ? 0 : 1);
    }
    return outcome;
}

using TPoint = std::array<double, 3>;

/** A point behind an operation; equal bit for bit. */
struct TMoved {
    bool done = false;
    TPoint point = {};

    bool operator==(TMoved const& other) const {
        using TBits = std::array<std::uint64_t, 3>;
        return done == other.done && std::bit_cast<TBits>(point) == std::bit_cast<TBits>(other.point);
    }
};

using TMovedPoints = std::vector<TMoved>;

} // namespace Threads
