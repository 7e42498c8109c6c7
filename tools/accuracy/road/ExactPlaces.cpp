#include "tools/accuracy/road/ExactPlaces.h"

#include <stdexcept>

namespace VellariAccuracy {

namespace {

/** The words of a line, apart by single blanks. */
std::vector<std::string> WordsOf(std::string_view line) {
    std::vector<std::string> words(1);
    for (char const sign : line) {
        if (sign == ' ') {
            words.emplace_back();
        } else {
            words.back() += sign;
        }
    }
    return words;
}

double NumberOf(std::string const& word) {
    double number = 0;
    if (!KvRefSystem::ParseWholeDouble(word, &number)) {
        throw std::runtime_error("\"" + word + "\" is no number");
    }
    return number;
}

TExactPlace PlaceOf(std::vector<std::string> const& words, KvRefSystem::TEllipsoidSemiAxes const& axes) {
    constexpr std::size_t Numbers = 9;
    if (words.size() != Numbers) {
        throw std::runtime_error(
            KvRefSystem::FormatText("%zu numbers instead of %zu", words.size(), Numbers));
    }
    if (!(axes.a > 0)) {
        throw std::runtime_error("a place before the first ellipsoid");
    }
    TExactPlace place{axes, {}, {}, {}};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        place.Place[axis] = NumberOf(words[axis]);
        place.Point[axis] = words[3 + axis];
        place.Back[axis] = words[6 + axis];
    }
    return place;
}

} // namespace

std::vector<TExactPlace> ParseExactPlaces(std::string_view text, std::string const& path) {
    std::vector<TExactPlace> places;
    KvRefSystem::TEllipsoidSemiAxes axes{0, 0};
    int number = 0;
    while (!text.empty()) {
        std::size_t const end = text.find('\n');
        std::string_view const line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        ++number;
        if (line.starts_with('#')) {
            continue;
        }
        try {
            std::vector<std::string> const words = WordsOf(line);
            if (words.front() != "ellipsoid") {
                places.push_back(PlaceOf(words, axes));
            } else if (words.size() < 3) {
                throw std::runtime_error("an ellipsoid without its axes");
            } else {
                axes = {NumberOf(words[1]), NumberOf(words[2])};
            }
        } catch (std::runtime_error const& failure) {
            throw std::runtime_error(
                KvRefSystem::FormatText("%s:%d: %s", path.c_str(), number, failure.what()));
        }
    }
    if (places.empty()) {
        throw std::runtime_error(path + ": no place in it; \"vellari_reference --write\" makes it anew");
    }
    return places;
}

} // namespace VellariAccuracy
