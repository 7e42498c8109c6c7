#include "tools/vellari/SystemKinds.h"

#include <Vellari/Vellari.h>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

struct TKindName {
    int kind;
    char const* name;
};

constexpr TKindName kindNames[] = {
    {rstLocalCartesian, "local Cartesian"}, {rstLocalCurved, "local curved"},
    {rstGeocentric, "geocentric"},          {rstGeodetic, "geodetic"},
    {rstMapProjected, "map-projected"},     {rstTopocentricHorizontal, "topocentric"},
};

} // namespace

std::string KindName(int kind) {
    for (TKindName const& row : kindNames) {
        if (row.kind == kind) {
            return row.name;
        }
    }
    return "unknown";
}

int KindOfDescription(std::string_view text) {
    TStringTree tree;
    tree.ReadFromString(std::string(text).c_str(), nullptr, nullptr);
    int kind = 0;
    tree.GetInteger(1100, 0, &kind);
    return kind;
}

KvRefSystem::TShellUnit const* OneUnitOf(KvRefSystem::TShellReferenceSystem const& system) {
    if (auto const* const geocentric = dynamic_cast<TShellGeocentricReferenceSystem const*>(&system)) {
        return geocentric->LinearUnit;
    }
    if (auto const* const frame = dynamic_cast<TShellTopocentricHorizontalReferenceSystem const*>(&system)) {
        return frame->LinearUnit;
    }
    if (auto const* const plane = dynamic_cast<TShellLocalCartesianReferenceSystem const*>(&system)) {
        return plane->LinearUnit;
    }
    if (auto const* const curved = dynamic_cast<TShellLocalCurvedReferenceSystem const*>(&system)) {
        return curved->LinearUnit;
    }
    return nullptr;
}

} // namespace VellariTool
