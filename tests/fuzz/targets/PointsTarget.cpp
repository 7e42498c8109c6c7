#include "frame/NumberText.h"
#include "tests/fuzz/targets/InputBytes.h"
#include "tests/fuzz/targets/NumberNotation.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/Targets.h"
#include "tests/support/Descriptions.h"
#include "tools/vellari/AxisText.h"
#include "tools/vellari/PointStream.h"

#include <Vellari/Vellari.h>

#include <cmath>
#include <iterator>
#include <memory>

namespace Fuzz {

namespace {

using namespace VellariTool;
using KvRefSystem::FormatText;

/** A system whose points are read; its angles have a notation. */
struct TPointSystem {
    int code; ///< of the angular unit; 0 where the plane is in plain numbers
    std::unique_ptr<KvRefSystem::TShellReferenceSystem> system;
};

TPointSystem InNotation(int code) {
    TestSupport::TGeodeticText text;
    text.angularUnit.code = code;
    return {code, TestSupport::Create(text)};
}

std::vector<TPointSystem> const& Systems() {
    static std::vector<TPointSystem> const systems = [] {
        std::vector<TPointSystem> made;
        for (int const code : {0, 7, 8, 10, 11}) {
            made.push_back(InNotation(code));
        }
        made.push_back({0, TestSupport::Create(TestSupport::UtmZone(37, 'N'))});
        return made;
    }();
    return systems;
}

/** A point that was read is printed, and what is printed is read as the same point. */
void PrintAndRead(TPointSystem const& pointSystem, int precision, TSeparator separator, TPoint const& point) {
    auto const axes = AxisTexts(*pointSystem.system, {precision, std::nullopt});
    // Degrees, minutes and seconds among blanks aren't to be told from columns.
    if (separator == sepBlanks && axes[0].HasBlanks()) {
        separator = sepComma;
    }
    int const planeDecimals =
        std::min(precision, pointSystem.code >= 10 ? TAxisText::MostPackedDecimals : 60);
    std::string line;
    TPointWriter(axes).AppendPoint(&line, separator, true, point, "");
    Require(!line.empty() && line.back() == '\n', "a point is a line");
    line.pop_back();

    std::optional<double> tolerance[3];
    for (int axis = 0; axis < 3; ++axis) {
        tolerance[axis] = axis < 2 ? ReadBackTolerance(pointSystem.code, point.coord[axis], planeDecimals)
                                   : ReadBackTolerance(0, point.coord[axis], precision);
        if (!tolerance[axis]) {
            return;
        }
    }
    TPointReader reader(axes);
    TPointFields fields;
    TPoint again;
    std::string reason;
    Require(reader.Read(line, &fields, &again, &reason) == lkPoint, "a printed point is read",
            line + ": " + reason);
    Require(again.hasHeight == point.hasHeight, "a height stays, or stays away", line);
    for (int axis = 0; axis < (point.hasHeight ? 3 : 2); ++axis) {
        if (!IsReadBack(axis < 2 ? pointSystem.code : 0, point.coord[axis], again.coord[axis],
                        *tolerance[axis])) {
            Require(false, "a printed point is read as it was",
                    line + FormatText(": axis %d was %.17g", axis, point.coord[axis]));
        }
    }
}

} // namespace

/** Input: system, decimals; what is left are lines. */
void RunPoints(std::string_view input) {
    constexpr int MostDecimals = 60;
    TInputBytes bytes(input);
    TPointSystem const& pointSystem = Systems()[bytes.Below(Systems().size())];
    int const precision = static_cast<int>(bytes.Below(MostDecimals + 1));
    auto const axes = AxisTexts(*pointSystem.system, {precision, std::nullopt});
    TPointReader reader(axes);
    TPointWriter const writer(axes);
    std::string_view text = bytes.Rest();
    while (!text.empty()) {
        std::string_view const line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        TPointFields fields;
        TPoint point;
        std::string reason;
        std::string written;
        switch (reader.Read(line, &fields, &point, &reason)) {
        case lkBlank:
            break;
        case lkHeader:
            writer.AppendHeader(&written, reader.Separator(), reader.HasHeightColumn(), fields.rest);
            break;
        case lkPoint:
            Require(std::isfinite(point.coord[0]) && std::isfinite(point.coord[1]) &&
                        std::isfinite(point.coord[2]),
                    "coordinates that are read are finite", line);
            PrintAndRead(pointSystem, precision, reader.Separator(), point);
            break;
        case lkMistake:
            Require(!reason.empty() && reason.find('\n') == std::string::npos,
                    "a mistake has a reason of a line", reason);
            TPointWriter::AppendMark(&written, reader.Separator(), reader.HasHeightColumn(), fields.rest);
            break;
        }
    }
}

std::vector<std::string> PointsSeeds() {
    std::vector<std::string> seeds;
    char const* const texts[] = {
        "latitude,longitude,height,name\n55.75,37.62,150,a\n-33.9;18.4\n",
        "55 45 07.2\t37 36 56.4\t1\n- 0 30 00,-12 00 01,\n",
        "55 45 07.2 N;37 36 56.4 E;*;rest\n\"55 45 07 S\",\"1 2 3 W\"\n",
        "55.450720 37.365640 150\n55.455 37.361 *\n\n",
        " 1e3 2e-3 3 x\n nan inf 1\n0x10 1 1\n",
    };
    for (std::size_t system = 0; system < Systems().size(); ++system) {
        for (char const* const text : texts) {
            std::string const head = {static_cast<char>(system), static_cast<char>(3)};
            seeds.push_back(head + text);
        }
    }
    return seeds;
}

} // namespace Fuzz
