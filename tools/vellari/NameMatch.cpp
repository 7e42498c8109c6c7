#include "tools/vellari/NameMatch.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace VellariTool {

namespace {

/** Compares with `*` and `?`, going back to the last `*` only, so that no pattern takes long. */
bool MatchesWhole(std::string_view text, std::string_view pattern) {
    std::size_t position = 0;
    std::size_t expected = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starPosition = 0;
    while (position < text.size()) {
        if (expected < pattern.size() && pattern[expected] == '*') {
            star = expected++;
            starPosition = position;
        } else if (expected < pattern.size() &&
                   (pattern[expected] == '?' || pattern[expected] == text[position])) {
            ++expected;
            ++position;
        } else if (star != std::string_view::npos) {
            expected = star + 1;
            position = ++starPosition;
        } else {
            return false;
        }
    }
    while (expected < pattern.size() && pattern[expected] == '*') {
        ++expected;
    }
    return expected == pattern.size();
}

} // namespace

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return lower;
}

std::size_t EditDistance(std::string_view first, std::string_view second) {
    std::vector<std::size_t> row(second.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < first.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < second.size(); ++j) {
            std::size_t const above = row[j + 1];
            std::size_t const replaced = diagonal + (first[i] == second[j] ? 0 : 1);
            row[j + 1] = std::min({above + 1, row[j] + 1, replaced});
            diagonal = above;
        }
    }
    return row.back();
}

bool MatchesPattern(std::string_view text, std::string_view pattern) {
    std::string const lowerText = LowerCase(text);
    std::string const lowerPattern = LowerCase(pattern);
    if (lowerPattern.find_first_of("*?") != std::string::npos) {
        return MatchesWhole(lowerText, lowerPattern);
    }
    return lowerText.find(lowerPattern) != std::string::npos;
}

} // namespace VellariTool
