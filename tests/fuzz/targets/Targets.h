#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/** What takes bytes from outside, as functions that a fuzzer and the tests run alike. */
namespace Fuzz {

/** One of them. */
struct TTarget {
    char const* name;
    /** Takes any bytes; ends the process with a reason where a promise is broken. */
    void (*run)(std::string_view input);
    /** @return inputs to begin with: the catalogue and what shows a notation, a key or a size. */
    std::vector<std::string> (*seeds)();
};

/** @return all targets. */
std::span<TTarget const> Targets();

/** @return the target of that name, or null. */
TTarget const* FindTarget(std::string_view name);

void RunTree(std::string_view input);
std::vector<std::string> TreeSeeds();

void RunDescription(std::string_view input);
std::vector<std::string> DescriptionSeeds();

void RunXml(std::string_view input);
std::vector<std::string> XmlSeeds();

void RunUnits(std::string_view input);
std::vector<std::string> UnitsSeeds();

void RunFloatTable(std::string_view input);
std::vector<std::string> FloatTableSeeds();

void RunTransform(std::string_view input);
std::vector<std::string> TransformSeeds();

void RunPoints(std::string_view input);
std::vector<std::string> PointsSeeds();

void RunZones(std::string_view input);
std::vector<std::string> ZonesSeeds();

#ifdef VELLARI_FUZZ_GRIDS
void RunGrids(std::string_view input);
std::vector<std::string> GridsSeeds();
#endif

} // namespace Fuzz
