#include "tools/vellari/GostCommand.h"

#include "tools/vellari/FailureReport.h"
#include "tools/vellari/GostNames.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/ToolError.h"

#include <cmath>
#include <cstdint>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

constexpr double degree = 3.141592653589793 / 180;

/** Room for the rounding of a pole's latitude, degrees. */
constexpr double latitudeTolerance = 1e-9;

constexpr int angleDecimals = 9;
constexpr int lengthDecimals = 3;

/** Both sides and the edition. */
struct TGostRoad {
    TGOST51794Version version;
    TGOST51794RefsystemParams source;
    TGOST51794RefsystemParams target;
};

std::array<TAxisText, 3> ColumnsOf(TGOST51794RefsystemType type, TPrecision const& precision) {
    int const angle = precision.all.value_or(angleDecimals);
    int const length = precision.all.value_or(lengthDecimals);
    int const height = precision.height.value_or(length);
    switch (type) {
    case grtGeocentric:
        return {TAxisText("x", "m", length), TAxisText("y", "m", length), TAxisText("z", "m", height)};
    case grtGeodetic:
        break;
    case grtProjected:
        return {TAxisText("northing", "m", length), TAxisText("easting", "m", length),
                TAxisText("height", "m", height)};
    }
    return {TAxisText("latitude", "deg", angle), TAxisText("longitude", "deg", angle),
            TAxisText("height", "m", height)};
}

/** The standard's transformation of one point; angles in degrees. */
class TGostMove : public TPointMove {
public:
    explicit TGostMove(TGostRoad const& chosen) : road(chosen) {}

    bool Transform(TPoint* point, std::string* reason) override;

    /** @return points that came out with another longitude than their own. */
    std::uint64_t ForeignLongitudes() const { return foreignLongitudes; }

private:
    bool NeedsHeight() const {
        return road.source.RefsystemType == grtGeocentric || road.target.RefsystemType == grtGeocentric;
    }

    std::string ReasonOfRefusal(double const* given) const;
    bool IsLongitudeForeign(double const* result) const;

    TGostRoad road;
    std::uint64_t foreignLongitudes = 0;
};

bool TGostMove::Transform(TPoint* point, std::string* reason) {
    double* const coords = point->coord;
    if (!point->hasHeight && NeedsHeight()) {
        *reason = std::string(road.source.RefsystemType == grtGeocentric ? "z" : "height") +
                  " is empty; geocentric points need all three coordinates";
        return false;
    }
    if (road.source.RefsystemType == grtGeodetic) {
        if (!(std::fabs(coords[0]) <= 90 + latitudeTolerance)) {
            *reason = FormatText("latitude %.9g is beyond a pole", coords[0]);
            return false;
        }
        coords[0] *= degree;
        coords[1] *= degree;
    }
    double const given[3] = {coords[0], coords[1], coords[2]};
    if (!GOST51794TransformCoords(road.version, road.source, given[0], given[1], given[2], road.target,
                                  &coords[0], &coords[1], &coords[2])) {
        *reason = ReasonOfRefusal(given);
        return false;
    }
    if (!std::isfinite(coords[0]) || !std::isfinite(coords[1]) || !std::isfinite(coords[2])) {
        *reason = FormatText("the transformation gave no finite numbers: %.9g, %.9g, %.9g", coords[0],
                             coords[1], coords[2]);
        return false;
    }
    foreignLongitudes += IsLongitudeForeign(coords) ? 1 : 0;
    if (road.target.RefsystemType == grtGeodetic) {
        coords[0] /= degree;
        coords[1] /= degree;
    }
    return true;
}

/** @return why the standard refuses a point. @param given as the library takes it. */
std::string TGostMove::ReasonOfRefusal(double const* given) const {
    if (road.source.RefsystemType == grtProjected) {
        double const zone = std::floor(given[1] * 1e-6);
        if (!(zone >= 1 && zone <= 60)) {
            return FormatText("easting %.3f has no zone number from 1 to 60 in front of its six digits",
                              given[1]);
        }
    }
    TGOST51794RefsystemParams const geodetic = {road.target.Datum, grtGeodetic};
    double result[3];
    if (road.target.RefsystemType == grtProjected &&
        GOST51794TransformCoords(road.version, road.source, given[0], given[1], given[2], geodetic,
                                 &result[0], &result[1], &result[2])) {
        return FormatText("longitude %.9g is outside of the zones 1 to 60, which reach from 0 to 360 degrees",
                          result[1] / degree);
    }
    return "the standard's formulas find no latitude for it";
}

/**
 * Whether a result comes from a geocentric point with Y below 0, whose longitude the formulas in use turn
 * into one from 270 to 450 degrees; all others come to 180 at most.
 */
bool TGostMove::IsLongitudeForeign(double const* result) const {
    bool const isFromGeocentric =
        road.source.RefsystemType == grtGeocentric || road.source.Datum != road.target.Datum;
    if (!isFromGeocentric || road.target.RefsystemType == grtGeocentric) {
        return false;
    }
    constexpr double firstForeignZone = 46;
    return road.target.RefsystemType == grtGeodetic ? result[1] > 270 * degree
                                                    : std::floor(result[1] * 1e-6) >= firstForeignZone;
}

/** @throws TToolError when no point at all can go that way. */
void CheckRoad(TGostRoad const& road) {
    for (TGOST51794RefsystemParams const& side : {road.source, road.target}) {
        if (side.RefsystemType == grtProjected && side.Datum != gdPulkovo42 && side.Datum != gdPulkovo95) {
            throw TToolError(GostDatumTitle(side.Datum) +
                             " has no projected coordinates in the standard; Pulkovo 1942 and Pulkovo 1995 "
                             "have");
        }
    }
    TGOST51794RefsystemParams const from = {road.source.Datum, grtGeocentric};
    TGOST51794RefsystemParams const to = {road.target.Datum, grtGeocentric};
    double ignored[3];
    // Geocentric coordinates are only shifted: nothing but a missing record can stop them.
    if (!GOST51794TransformCoords(road.version, from, 6400000, 0, 0, to, &ignored[0], &ignored[1],
                                  &ignored[2])) {
        throw TToolError(FormatText("the edition of %d has no way from ", static_cast<int>(road.version)) +
                         GostDatumTitle(from.Datum) + " to " + GostDatumTitle(to.Datum));
    }
}

/** Tells semi-axes and the seven numbers to WGS 84. */
int ShowParameters(TGOST51794Version version, TGOST51794Datum datum) {
    double major = 0;
    double minor = 0;
    TDatumShiftParams shift{};
    if (!GetGOST51794Params(version, datum, &major, &minor, &shift)) {
        throw TToolError(FormatText("the edition of %d has no way from ", static_cast<int>(version)) +
                         GostDatumTitle(datum) + " to WGS 84");
    }
    constexpr double secondsPerRadian = 3600 / degree;
    std::string text = "datum               " + GostDatumTitle(datum) + "\n";
    text += FormatText("edition             %d\n", static_cast<int>(version));
    text += FormatText("semi-major axis     %.3f m\n", major);
    text += FormatText("semi-minor axis     %.6f m\n", minor);
    text += "shift to WGS 84     seven parameters, coordinate frame rotation\n";
    for (auto const& [label, metres] :
         {std::pair{"X", shift.dX}, std::pair{"Y", shift.dY}, std::pair{"Z", shift.dZ}}) {
        text += FormatText("  shift %s           %.9g m\n", label, metres);
    }
    for (auto const& [label, radians] :
         {std::pair{"X", shift.wx}, std::pair{"Y", shift.wy}, std::pair{"Z", shift.wz}}) {
        // Zeros of the tables have either sign, which tells nothing.
        double const turn = radians + 0.0;
        text +=
            FormatText("  rotation %s        %.9g rad (%.6f sec)\n", label, turn, turn * secondsPerRadian);
    }
    text += FormatText("  scale difference  %.9g ppm\n", (shift.m + 0.0) * 1e6);
    PrintText(text);
    return esDone;
}

} // namespace

int RunGost(TGostOptions const& options) {
    TGOST51794Version const version = GostEdition(options.edition);
    if (options.from.empty() || (options.to.empty() && !options.parameters)) {
        throw TToolError(std::string(options.from.empty() ? "--from" : "--to") + " is required; datums are " +
                         GostDatumNames());
    }
    TGOST51794Datum const source = GostDatum("--from", options.from);
    if (options.parameters) {
        return ShowParameters(version, source);
    }
    TGOST51794RefsystemType const type = GostType("--type", options.type);
    TGostRoad const road = {
        version,
        {source, options.fromType.empty() ? type : GostType("--from-type", options.fromType)},
        {GostDatum("--to", options.to),
         options.toType.empty() ? type : GostType("--to-type", options.toType)}};
    CheckRoad(road);
    if (version == gv2017 && road.source.Datum != road.target.Datum) {
        PrintMessage("the edition of 2017 has parameters but no way from datum to datum here: only the "
                     "ellipsoid changes; `vellari gost --parameters` tells them");
    }
    TGostMove move(road);
    int const status = RunPoints(options, &move, ColumnsOf(road.source.RefsystemType, {}),
                                 ColumnsOf(road.target.RefsystemType, options.precision));
    if (move.ForeignLongitudes() > 0) {
        PrintMessage(FormatText("points at Y below 0: %llu; the formulas in use give them another longitude "
                                "than their own",
                                static_cast<unsigned long long>(move.ForeignLongitudes())));
    }
    return status;
}

} // namespace VellariTool
