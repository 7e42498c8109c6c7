#include "tools/determinism/Compare.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace VellariDeterminism {

namespace {

using KvRefSystem::FormatText;

constexpr std::string_view BlockMark = "block ";

/** One block of an output. */
struct TSection {
    std::string_view Name;
    std::vector<std::string_view> Lines;
};

std::string ReadWhole(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(path + " can't be read");
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t const end = std::min(text.find(separator, begin), text.size());
        parts.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

std::vector<TSection> Sections(std::string_view text) {
    std::vector<TSection> sections = {{"(head)", {}}};
    for (std::string_view const line : Split(text, '\n')) {
        if (line.starts_with(BlockMark)) {
            sections.push_back({line.substr(BlockMark.size()), {}});
        } else {
            sections.back().Lines.push_back(line);
        }
    }
    return sections;
}

/** The place of a number among all doubles in rising order; neighbours differ by 1. */
std::optional<std::int64_t> Rank(std::string_view word) {
    std::uint64_t bits = 0;
    auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), bits, 16);
    if (word.size() != 16 || error != std::errc() || end != word.data() + word.size()) {
        return std::nullopt;
    }
    auto const magnitude = static_cast<std::int64_t>(bits & 0x7FFFFFFFFFFFFFFF);
    return bits >> 63 != 0 ? -magnitude : magnitude;
}

/** How far apart two words are, for people. */
std::string Distance(std::string_view first, std::string_view second) {
    auto const rank = Rank(first);
    auto const other = Rank(second);
    if (!rank || !other) {
        return std::string(first) + " and " + std::string(second);
    }
    bool const above = *rank > *other;
    auto const high = static_cast<std::uint64_t>(above ? *rank : *other);
    auto const low = static_cast<std::uint64_t>(above ? *other : *rank);
    return std::string(first) + " and " + std::string(second) +
           FormatText(", %llu ulp apart", static_cast<unsigned long long>(high - low));
}

std::string FirstDifference(std::string_view line, std::string_view other) {
    auto const words = Split(line, ' ');
    auto const others = Split(other, ' ');
    for (std::size_t word = 0; word < std::min(words.size(), others.size()); ++word) {
        if (words[word] != others[word]) {
            return FormatText("word %zu: ", word + 1) + Distance(words[word], others[word]);
        }
    }
    return "one line is longer than the other";
}

/** Tells the differences of two blocks, if there are any. */
void TellDifferences(TSection const& section, TSection const& other) {
    if (section.Name != other.Name || section.Lines.size() != other.Lines.size()) {
        std::cout << section.Name << ": the other output has " << other.Name << " there, or another size\n";
        return;
    }
    std::size_t differing = 0;
    std::string first;
    for (std::size_t line = 0; line < section.Lines.size(); ++line) {
        if (section.Lines[line] == other.Lines[line]) {
            continue;
        }
        if (++differing == 1) {
            first =
                FormatText("line %zu, ", line + 1) + FirstDifference(section.Lines[line], other.Lines[line]);
        }
    }
    if (differing > 0) {
        std::cout << section.Name << ": " << first
                  << FormatText("; %zu of %zu lines differ\n", differing, section.Lines.size());
    }
}

} // namespace

bool Compare(std::string const& first, std::string const& second) {
    std::string const text = ReadWhole(first);
    std::string const otherText = ReadWhole(second);
    if (text == otherText) {
        return true;
    }
    auto const sections = Sections(text);
    auto const others = Sections(otherText);
    for (std::size_t number = 0; number < std::min(sections.size(), others.size()); ++number) {
        TellDifferences(sections[number], others[number]);
    }
    if (sections.size() != others.size()) {
        std::cout << "one output has more blocks than the other\n";
    }
    return false;
}

} // namespace VellariDeterminism
