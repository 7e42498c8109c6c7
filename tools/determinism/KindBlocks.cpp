#include "tools/determinism/Block.h"

#include "tools/determinism/Describe.h"

#include <vector>

namespace VellariDeterminism {

namespace {

using KvRefSystem::FormatText;

constexpr int PointsOfKind = 1200;

TCartesian Topocentric(TGenerator& numbers) {
    TCartesian text;
    text.Kind = KvRefSystem::rstTopocentricHorizontal;
    text.Base = Pulkovo();
    text.LinearUnit = numbers.Whole(0, 1) == 0 ? Foot : Metre;
    text.Swap = numbers.Whole(0, 1);
    text.Origin = {FormatText("%.9f", numbers.Between(-89, 89)),
                   FormatText("%.9f", numbers.Between(-180, 180)),
                   FormatText("%.3f", numbers.Between(-100, 5000))};
    text.Azimuth = FormatText("%.7f", numbers.Between(0, 360));
    return text;
}

TCartesian Curved(TGenerator& numbers) {
    TCartesian text;
    text.Kind = KvRefSystem::rstLocalCurved;
    text.Swap = numbers.Whole(0, 1);
    text.Radius = FormatText("%.3f", numbers.Between(6.35e6, 6.4e6));
    text.Origin = {FormatText("%.3f", numbers.Between(-1e5, 1e5)),
                   FormatText("%.3f", numbers.Between(-1e5, 1e5)), "0"};
    return text;
}

void PrintAxes(KvRefSystem::TShellReferenceSystem const& system, TPoint const& point, TLine* line) {
    for (bool const shifted : {false, true}) {
        double axes[9] = {};
        line->AddWord(KvRefSystem::TransformAxes(&system, point[0], point[1], point[2], axes, shifted)
                          ? "axes"
                          : "none");
        for (double const number : axes) {
            line->Add(number);
        }
    }
}

void AddAxes(TBlocks* blocks, TSystem const& world, std::string const& name, TSystem const& system) {
    blocks->push_back(
        {"axes of " + name, PointsOfKind / 4, [world, system](TGenerator& numbers, TLine* line) {
             TPoint point = EuropeanPlace(numbers);
             Transform(*world, *system, &point);
             PrintAxes(*system, point, line);
         }});
}

/** The area of a small triangle, a square kilometre and more. */
void PrintArea(KvRefSystem::TShellReferenceSystem const& world,
               KvRefSystem::TShellReferenceSystem const& system, TGenerator& numbers, TLine* line) {
    TPoint const centre = EuropeanPlace(numbers);
    std::vector<vec_t_<double, 3>> corners;
    for (int corner = 0; corner < 3 + numbers.Whole(0, 4); ++corner) {
        TPoint place = centre;
        place[0] += numbers.Between(-0.2, 0.2);
        place[1] += numbers.Between(-0.2, 0.2);
        Transform(world, system, &place);
        corners.push_back({{place[0], place[1], place[2]}});
    }
    line->Add(system.CalculateArea(corners));
}

} // namespace

void AddKinds(TBlocks* blocks) {
    TSystem const world = Build(TGeodetic());
    TCartesian centred;
    centred.Base = Pulkovo();
    centred.Base.Meridian = "17.6666666666667";
    TSystem const geocentric = Build(centred);
    TProjected utm;
    utm.Type = KvRefSystem::mptUTM;
    utm.Parameters = {{6201, "34"}, {6202, "N"}};
    TSystem const projected = Build(utm);
    TSystem const geodetic = Build(Pulkovo());

    blocks->push_back({"geocentric", PointsOfKind, [world, geocentric](TGenerator& numbers, TLine* line) {
                           PrintThereAndBack(*world, *geocentric, WorldPlace(numbers), line);
                       }});
    blocks->push_back({"topocentric, an origin of its own for every point", PointsOfKind,
                       [world, geocentric](TGenerator& numbers, TLine* line) {
                           TSystem const horizon = Build(Topocentric(numbers));
                           PrintThereAndBack(*world, *horizon, WorldPlace(numbers), line);
                           TPoint point = WorldPlace(numbers);
                           Transform(*world, *geocentric, &point);
                           PrintThereAndBack(*geocentric, *horizon, point, line);
                       }});
    blocks->push_back({"local kinds", PointsOfKind, [](TGenerator& numbers, TLine* line) {
                           TCartesian flat;
                           flat.Kind = KvRefSystem::rstLocalCartesian;
                           flat.Swap = numbers.Whole(0, 1);
                           flat.LinearUnit = UsFoot;
                           TPoint const point = {numbers.Between(-1e5, 1e5), numbers.Between(-1e5, 1e5),
                                                 numbers.Between(-100, 3000)};
                           TSystem const curved = Build(Curved(numbers));
                           PrintThereAndBack(*Build(flat), *curved, point, line);
                           PrintThereAndBack(*curved, *Build(Curved(numbers)), point, line);
                       }});
    std::pair<char const*, TSystem> const named[] = {{"a geocentric system", geocentric},
                                                     {"a projected system", projected},
                                                     {"a geodetic system", geodetic}};
    for (auto const& [name, system] : named) {
        AddAxes(blocks, world, name, system);
        blocks->push_back({std::string("areas in ") + name, PointsOfKind / 2,
                           [world, area = system](TGenerator& numbers, TLine* line) {
                               PrintArea(*world, *area, numbers, line);
                           }});
    }
}

} // namespace VellariDeterminism
