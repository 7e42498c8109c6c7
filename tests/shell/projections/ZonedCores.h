#pragma once

#include "core/projections/MapProjection.h"
#include "frame/imported/StringTree.h"
#include "tests/shell/datum/DatumTestKit.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/** Core projections by way of a description's tree. */
namespace ZonedCores {

using KvRefSystem::TEllipsoidSemiAxes;
using KvRefSystem::TMapProjection;

inline constexpr double Pi = 3.141592653589793;
inline constexpr double Degree = Pi / 180;

inline constexpr TEllipsoidSemiAxes Krassowsky = {6378245, 6378245 * (1 - 1 / 298.3)};
inline constexpr TEllipsoidSemiAxes International = {6378388, 6378388 * (1 - 1 / 297.0)};
inline constexpr TEllipsoidSemiAxes Wgs84 = {6378137, 6378137 * (1 - 1 / 298.257223563)};

/** Tags with their texts. */
using TTexts = std::vector<std::pair<int, std::string>>;

/** @return the projection that a tree of these texts describes. Throws what its constructor throws. */
template <class TShell>
std::unique_ptr<TShell> Shell(int type, TTexts const& texts) {
    KvRefSystem::TStringTree tree;
    tree.InsertInteger("type", 6001, 0, type);
    for (auto const& [tag, text] : texts) {
        tree.InsertString("", tag, 0, text);
    }
    DatumTestKit::PutUnitSubtree(&tree, 6091, DatumTestKit::metre);
    DatumTestKit::PutUnitSubtree(&tree, 6090, DatumTestKit::degree);
    DatumTestKit::PutUnitSubtree(&tree, 6092, {0, 3, "1", "1", "unity"});
    return std::make_unique<TShell>(&tree);
}

/** @return its core projection on an ellipsoid; may be null. */
template <class TShell>
std::unique_ptr<TMapProjection> Core(int type, TTexts const& texts, TEllipsoidSemiAxes axes = Krassowsky) {
    return std::unique_ptr<TMapProjection>(Shell<TShell>(type, texts)->CreateCoreMapProjection(&axes));
}

} // namespace ZonedCores
