#include "tests/fuzz/targets/Targets.h"

#include <algorithm>
#include <iterator>

namespace Fuzz {

namespace {

constexpr TTarget targets[] = {
    {"tree", &RunTree, &TreeSeeds},
    {"description", &RunDescription, &DescriptionSeeds},
    {"xml", &RunXml, &XmlSeeds},
    {"units", &RunUnits, &UnitsSeeds},
    {"float_table", &RunFloatTable, &FloatTableSeeds},
    {"transform", &RunTransform, &TransformSeeds},
    {"points", &RunPoints, &PointsSeeds},
    {"zones", &RunZones, &ZonesSeeds},
#ifdef VELLARI_FUZZ_GRIDS
    {"grids", &RunGrids, &GridsSeeds},
#endif
};

} // namespace

std::span<TTarget const> Targets() {
    return targets;
}

TTarget const* FindTarget(std::string_view name) {
    auto const* const found = std::find_if(std::begin(targets), std::end(targets),
                                           [name](TTarget const& target) { return name == target.name; });
    return found == std::end(targets) ? nullptr : found;
}

} // namespace Fuzz
