#include "tools/vellari/CompareCommand.h"

#include "tools/vellari/OutputFile.h"
#include "tools/vellari/SystemKinds.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"

#include <stdexcept>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

std::string DatumsText(TShellReferenceSystem const& first, TShellReferenceSystem const& second) {
    switch (CompareDatums(&first, &second)) {
    case dcEqual:
        return "equal";
    case dcDifferent:
        return "different";
    case dcIncompatible:
        return "incompatible: one system isn't tied to the earth";
    default:
        return first.IsGlobal() ? "unknown: a datum shift is missing"
                                : "unknown: neither system is tied to the earth";
    }
}

/** Whether points keep their heights: by units and geoids, and by what lies between the two systems. */
std::string HeightsText(TShellReferenceSystem const& first, TShellReferenceSystem const& second) {
    if (first.GetHeightUnitCoefToBase() != second.GetHeightUnitCoefToBase()) {
        return "change: their units differ";
    }
    if (!first.PreservesHeights(second)) {
        return "change: the geoids differ";
    }
    try {
        // The shell answers by units and geoids alone when the geoids agree.
        return first.CoreRefSystem->PreservesHeights(*second.CoreRefSystem)
                   ? "kept"
                   : "change: not known to lie on the same datum and frame";
    } catch (std::logic_error const&) {
        return "change: a " + KindName(first.Type) + " and a " + KindName(second.Type) +
               " system have no heights in common";
    }
}

std::string YesOrNo(bool isTrue) {
    return isTrue ? "yes" : "no";
}

} // namespace

int RunCompare(std::string const& first, std::string const& second) {
    TLoadedSystem const a = LoadSystem(first, suTransform);
    TLoadedSystem const b = LoadSystem(second, suTransform);
    std::string text = "datums              " + DatumsText(*a.system, *b.system) + "\n";
    text += "heights             " + HeightsText(*a.system, *b.system) + "\n";
    text += "equal geometry      " + YesOrNo(*a.system ^= *b.system) + "\n";
    text += "equal systems       " + YesOrNo(*a.system == *b.system) + "\n";
    PrintText(text);
    return esDone;
}

} // namespace VellariTool
