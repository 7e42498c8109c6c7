#include "tests/fuzz/targets/Promises.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace Fuzz {

void Require(bool holds, char const* promise, std::string_view shown) {
    if (holds) {
        return;
    }
    std::fprintf(stderr, "\nbroken promise: %s\n", promise);
    if (!shown.empty()) {
        std::fwrite(shown.data(), 1, shown.size(), stderr);
        std::fputc('\n', stderr);
    }
    std::abort();
}

void RequireSameText(std::string const& first, std::string const& second, char const* promise) {
    if (first == second) {
        return;
    }
    auto const end = std::mismatch(first.begin(), first.end(), second.begin(), second.end()).first;
    auto const at = static_cast<std::size_t>(end - first.begin());
    std::size_t const line = at == 0 ? 0 : first.rfind('\n', at - 1) + 1;
    auto const lineOf = [line](std::string const& text) {
        return text.substr(line, text.find('\n', line) - line);
    };
    Require(false, promise, lineOf(first) + "\nis then\n" + lineOf(second));
}

bool IsSame(double first, double second) {
    return (std::isnan(first) && std::isnan(second)) ||
           std::bit_cast<std::uint64_t>(first) == std::bit_cast<std::uint64_t>(second);
}

} // namespace Fuzz
