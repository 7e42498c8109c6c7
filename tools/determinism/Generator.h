#pragma once

#include <cstdint>

namespace VellariDeterminism {

/**
 * Numbers from whole-number arithmetic alone, so that the input of every build is the same. A double comes
 * from 53 bits by products and a sum, which every compiler rounds alike. Two numbers are never taken among the
 * arguments of one call, whose order a compiler may choose; between braces the order is that of the text.
 */
class TGenerator {
public:
    explicit TGenerator(std::uint64_t seed) : state(seed) {}

    /** @return 64 bits: a step of a counter whose bits are then mixed. */
    std::uint64_t Next() {
        state += 0x9E3779B97F4A7C15;
        std::uint64_t bits = state;
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
        return bits ^ (bits >> 31);
    }

    /** @return a number from `low` to `high`. */
    double Between(double low, double high) {
        constexpr double Unit = 1.0 / 9007199254740992; // 2^-53
        return low + (high - low) * (static_cast<double>(Next() >> 11) * Unit);
    }

    /** @return a whole number from `low` to `high`. */
    int Whole(int low, int high) {
        return low + static_cast<int>(Next() % static_cast<std::uint64_t>(high - low + 1));
    }

private:
    std::uint64_t state;
};

} // namespace VellariDeterminism
