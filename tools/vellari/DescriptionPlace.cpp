#include "tools/vellari/DescriptionPlace.h"

#include "tools/vellari/ToolError.h"

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** Bytes of a header or text that a message shows. */
constexpr std::size_t longestShownText = 40;

/** @return "(1107,0)". */
std::string Pair(int tag, int idx) {
    return FormatText("(%d,%d)", tag, idx);
}

} // namespace

std::string TPlace::Name() const {
    return path.empty() ? "the description" : "subtree " + path;
}

TPlace TPlace::Below(TStringTree const* child) const {
    std::string way = path;
    way += path.empty() ? "" : "/";
    way += Pair(child->tag, child->idx);
    if (!child->header.empty()) {
        way += " ";
        way += Quoted(child->header, longestShownText);
    }
    return {child, way};
}

std::string TPlace::LacksField(int tag, int idx, std::string const& meaning) const {
    return ": " + Name() + " lacks field " + Pair(tag, idx) + ", " + meaning;
}

std::string TPlace::LacksTree(int tag, std::string const& meaning) const {
    return ": " + Name() + " lacks subtree " + Pair(tag, 0) + ", " + meaning;
}

std::string TPlace::HasWrongText(int tag, int idx, std::string const& meaning, std::string const& text,
                                 std::string const& wanted) const {
    return ": " + Name() + " has in field " + Pair(tag, idx) + ", " + meaning + ", the text " +
           Quoted(text, longestShownText) + " where " + wanted + " is needed";
}

bool IsPlainUnit(TStringTree const& unit) {
    int code = 0;
    unit.GetInteger(5301, 0, &code);
    return code != anDegreeMinuteSecond && code != anDegreeMinuteSecondHemisphere &&
           code != anSexagesimalDegree && code != anDegreeDecimalMinute;
}

} // namespace VellariTool
