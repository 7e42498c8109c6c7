#include "tests/support/CartesianSystems.h"

#include <sstream>
#include <stdexcept>

namespace TestSupport {

namespace {

/** What the writer puts before an element of the outermost level. */
char const* const LevelOne = "\n    ";

/** Where an outermost element begins and ends: at the line breaks before it and behind it. */
struct TPlace {
    std::size_t begin;
    std::size_t end;
};

/** @throws std::logic_error without it. */
TPlace PlaceOf(std::string const& document, std::string const& key) {
    std::size_t const empty = document.find(LevelOne + ("<" + key + "/>"));
    std::size_t const begin =
        empty != std::string::npos ? empty : document.find(LevelOne + ("<" + key + ">"));
    if (begin == std::string::npos) {
        throw std::logic_error("no " + key + " in " + document);
    }
    std::size_t const last = empty != std::string::npos ? begin + 1 : document.find("</" + key + ">", begin);
    return {begin, document.find('\n', last)};
}

} // namespace

std::vector<std::string> KeysOf(std::string const& document) {
    std::vector<std::string> keys;
    std::istringstream lines(document);
    for (std::string line; std::getline(lines, line);) {
        if (line.compare(0, 5, "    <") == 0 && line[5] != '/') {
            keys.push_back(line.substr(5, line.find_first_of("/>", 5) - 5));
        }
    }
    return keys;
}

std::string ValueOf(std::string const& document, std::string const& key) {
    std::string const opening = LevelOne + ("<" + key + ">");
    std::size_t const begin = document.find(opening);
    if (begin == std::string::npos) {
        return "(none)";
    }
    std::size_t const text = begin + opening.size();
    return document.substr(text, document.find("</" + key + ">", text) - text);
}

std::string WithoutKey(std::string const& document, std::string const& key) {
    TPlace const place = PlaceOf(document, key);
    return document.substr(0, place.begin) + document.substr(place.end);
}

std::string WithValue(std::string const& document, std::string const& key, std::string const& value) {
    TPlace const place = PlaceOf(document, key);
    return document.substr(0, place.begin) + LevelOne + "<" + key + ">" + value + "</" + key + ">" +
           document.substr(place.end);
}

void AddChainWithoutCoreForm(TStringTree* chain, std::string const& name) {
    KvRefSystem::TShellRefSystemTransform2DGridParams grid;
    grid.dE = "no table";
    grid.dN = "no table";
    grid.coef = 1;
    KvRefSystem::TShellRefSystemTransform records;
    records.AddNextTransform(grid);
    records.WriteToTree(chain, name);
    records.ClearTransforms();
}

KvRefSystem::TShellCoords Texts(std::string const& first, std::string const& second,
                                std::string const& third) {
    KvRefSystem::TShellCoords texts;
    texts.Coord[0] = first;
    texts.Coord[1] = second;
    texts.Coord[2] = third;
    return texts;
}

} // namespace TestSupport
