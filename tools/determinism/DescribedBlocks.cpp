#include "tools/determinism/Block.h"

#include "tools/determinism/Describe.h"

#include <algorithm>
#include <iterator>

namespace VellariDeterminism {

namespace {

using KvRefSystem::FormatText;
using KvRefSystem::mptGaussKruger6;
using KvRefSystem::mptMSKxx;
using KvRefSystem::mptSK63;
using KvRefSystem::mptUTM;

constexpr int PointsOfType = 300;
constexpr int PointsOfZones = 1500;
constexpr int PointsOfShift = 500;

constexpr int AllTypes[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,   10,   11,   12,   13,   14,   15,
                            16, 17, 21, 22, 23, 24, 25, 26, 101, 1001, 1002, 1003, 1004, 1201, 1313};

/** Texts under every key that a projection may have, so that any type is described. */
std::map<int, std::string> AllParameters() {
    return {{6101, "9.5"},  {6102, "30.25"}, {6103, "0.9996"}, {6104, "500000"}, {6105, "-1000.125"},
            {6106, "9"},    {6107, "30"},    {6108, "9"},      {6109, "30"},     {6110, "30"},
            {6111, "1"},    {6112, "0"},     {6113, "0"},      {6114, "20"},     {6115, "40"},
            {6116, "30"},   {6117, "9"},     {6118, "0"},      {6119, "0"},      {6120, "1"},
            {6121, "78.5"}, {6122, "1"},     {6201, "2"},      {6202, "North"},  {6203, "North"},
            {6204, "C"},    {6205, "50"},    {6206, "3"}};
}

/** The systems of a numbered zone, as the four grids with zones describe them. */
TProjected Zone(int type, int zone, TGenerator& numbers) {
    TProjected text;
    text.Type = type;
    text.Parameters = {{6201, FormatText("%d", zone)}};
    text.Parameters[6202] = numbers.Whole(0, 1) == 0 ? "N" : "S";
    text.Parameters[6204] = std::string(1, "ABCDEGHIJKLMNPQRSTUVWX"[numbers.Whole(0, 21)]);
    text.Parameters[6205] = FormatText("%d", numbers.Whole(1, 89));
    text.Parameters[6206] = numbers.Whole(0, 1) == 0 ? "3" : "6";
    if (type != mptUTM) {
        text.Base = Pulkovo();
    }
    return text;
}

void AddZones(TBlocks* blocks, TSystem const& world, int type, int lastZone) {
    blocks->push_back({FormatText("described zones of type %d", type), PointsOfZones,
                       [world, type, lastZone](TGenerator& numbers, TLine* line) {
                           TSystem const zone = Build(Zone(type, numbers.Whole(1, lastZone), numbers));
                           PrintThereAndBack(*world, *zone, WorldPlace(numbers), line);
                       }});
}

void AddTypes(TBlocks* blocks, TSystem const& world) {
    for (int const type : AllTypes) {
        TProjected text;
        text.Type = type;
        text.Parameters = AllParameters();
        text.Base = Pulkovo();
        text.LinearUnit = UsFoot;
        text.Flip = type % 2;
        text.FirstSign = type % 3 == 0 ? -1 : 1;
        text.SecondSign = type % 5 == 0 ? -1 : 1;
        TSystem const system = Build(text);
        blocks->push_back({FormatText("described projection of type %d", type), PointsOfType,
                           [world, system](TGenerator& numbers, TLine* line) {
                               PrintThereAndBack(*world, *system, EuropeanPlace(numbers), line);
                           }});
    }
}

/** A datum shift whose numbers are made up; every form has as many of them as it reads. */
TGeodetic Shifted(int form, TGenerator& numbers) {
    TGeodetic text;
    text.MajorAxis = FormatText("%.4f", numbers.Between(6.377e6, 6.379e6));
    text.InverseFlattening = FormatText("%.9f", numbers.Between(293, 301));
    text.ShiftForm = form;
    for (std::size_t part = 0; part < text.Shift.size(); ++part) {
        double const reach = part < 3 ? 800 : part < 6 ? 8 : 20;
        text.Shift[part] = FormatText("%.5f", numbers.Between(-reach, reach));
    }
    text.Meridian = FormatText("%.8f", numbers.Between(-180, 180));
    TUnitRow const units[] = {Degrees, Grad, Radian, WithHemisphere, DegreesMinutesSeconds};
    text.AngularUnit = units[numbers.Whole(0, 4)];
    text.MeridianUnit = units[numbers.Whole(0, 1)];
    text.HeightUnit = numbers.Whole(0, 1) == 0 ? Foot : Metre;
    return text;
}

void AddShifts(TBlocks* blocks, TSystem const& world) {
    for (int form = 0; form <= KvRefSystem::dstBursaWolfInvRot; ++form) {
        for (bool const exact : {false, true}) {
            if (exact && form < KvRefSystem::dstBursaWolf) {
                continue;
            }
            blocks->push_back({FormatText("described datum shift of form %d%s", form, exact ? ", exact" : ""),
                               PointsOfShift, [world, form, exact](TGenerator& numbers, TLine* line) {
                                   TSystem const system = Build(Shifted(form, numbers));
                                   if (exact && !system->SetNonLinearDatum(true)) {
                                       throw std::logic_error("no exact form");
                                   }
                                   PrintThereAndBack(*world, *system, WorldPlace(numbers), line);
                                   std::string text;
                                   line->AddWord(system->ExportToWKT(&text, false, false) ? "wkt" : "none");
                                   line->AddText(text);
                               }});
        }
    }
}

} // namespace

void AddDescribed(TBlocks* blocks) {
    TSystem const world = Build(TGeodetic());
    AddTypes(blocks, world);
    AddZones(blocks, world, mptGaussKruger6, 60);
    AddZones(blocks, world, mptUTM, 60);
    AddZones(blocks, world, mptMSKxx, 6);
    AddZones(blocks, world, mptSK63, 8);
    AddShifts(blocks, world);
}

} // namespace VellariDeterminism
