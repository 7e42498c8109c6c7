#include "tools/accuracy/Domain.h"
#include "tools/accuracy/road/Geocentric.h"
#include "tools/accuracy/road/Systems.h"
#include "tools/accuracy/road/Tables.h"

#include <cmath>
#include <limits>

namespace VellariAccuracy {

namespace {

constexpr double Epsilon = std::numeric_limits<double>::epsilon();
constexpr double MajorAxis = 6378137; ///< metres
constexpr double Foot = 0.3048;       ///< metres

/** Two roads with a frame each: products and sums of three numbers, off by half of the last place. */
constexpr double Rounding = 16 * Epsilon;

/** Points of a cube about the origin, metres. */
std::vector<TTriple> Cube(double reach) {
    std::vector<TTriple> points;
    constexpr int Steps = 12; // the odd number of points takes the origin along
    for (int x = 0; x <= Steps; ++x) {
        for (int y = 0; y <= Steps; ++y) {
            for (int z = 0; z <= Steps; ++z) {
                points.push_back({reach * (2.0 * x / Steps - 1), reach * (2.0 * y / Steps - 1),
                                  reach * (2.0 * z / Steps - 1)});
            }
        }
    }
    return points;
}

/** Places on the whole earth: latitude, longitude, height. */
std::vector<TTriple> Earth() {
    std::vector<TTriple> places;
    for (TPair const& place : PlacesOf({-89, 89, 0, 180})) {
        for (double const height : {-1e3, 9e3}) {
            places.push_back({place.Y / Degree, place.X / Degree, height});
        }
    }
    return places;
}

TSystem Geodetic() {
    return FromCatalog("wgs-84");
}

TSystem OnEd50() {
    return FromCatalog("ed50");
}

TSystem Geocentric() {
    return FromCatalog("wgs-84-geocentric");
}

TSystem Horizon() {
    return FromCatalog("topocentric-moscow");
}

TSystem Plane() {
    return FromCatalog("local-metres");
}

TSystem LeftPlaneInFeet() {
    return Local({true, Foot});
}

TSystem Curved() {
    return Local({false, 1, 6371000, 1000, -2000});
}

TSystem LeftCurvedInFeet() {
    return Local({true, Foot, 6390000, 30000, 50000});
}

struct TLocalRow {
    char const* SourceText;
    TSystem (*CreateSource)();
    char const* TargetText;
    TSystem (*CreateTarget)();
    double Reach; ///< metres; 0: geodetic places on the whole earth
    double Size;  ///< metres: the greatest number on the way
    char const* Reason;
};

constexpr TLocalRow rows[] = {
    {"geodetic, ED50", &OnEd50, "geocentric, WGS 84", &Geocentric, 0, MajorAxis,
     "The stopped passes of the conversion from geocentric coordinates; the height takes them times the "
     "tangent of "
     "the latitude, 57 at 89°."},
    {"geodetic, ED50", &OnEd50, "topocentric, Moscow", &Horizon, 0, 2 * MajorAxis, ""},
    {"geocentric, WGS 84", &Geocentric, "topocentric, Moscow", &Horizon, 2e7, 6e7,
     "A rotation and the origin: rounding alone, of the distance from the centre."},
    {"topocentric, Moscow", &Horizon, "geocentric, WGS 84", &Geocentric, 1e5, 2 * MajorAxis, ""},
    {"topocentric, Moscow", &Horizon, "geodetic, WGS 84", &Geodetic, 1e5, 2 * MajorAxis,
     "The stopped passes, at the latitude of Moscow and around."},
    {"local plane", &Plane, "left-handed plane in feet", &LeftPlaneInFeet, 1e5, 4e5,
     "Units and the order of the axes: rounding alone."},
    {"local plane", &Plane, "curved about a centre", &Curved, 1e5, 4e5,
     "The height's correction is added and subtracted."},
    {"curved about a centre", &Curved, "left-handed curved in feet, another centre", &LeftCurvedInFeet, 1e5,
     4e5, "Two corrections, each by its own sphere."},
};

double Distance(TTriple const& first, TTriple const& second) {
    return std::hypot(first[0] - second[0], first[1] - second[1], first[2] - second[2]);
}

TNumbers MeasureRow(TLocalRow const& row) {
    TSystem const source = row.CreateSource();
    TSystem const target = row.CreateTarget();
    bool const geodetic = row.Reach == 0;
    double greatest = 0;
    for (TTriple const& from : geodetic ? Earth() : Cube(row.Reach)) {
        TTriple const back = Moved(target, Moved(source, from, target), source);
        TApart const apart = ApartBy(from, back, MajorAxis);
        Enlarge(&greatest, geodetic ? std::hypot(apart.Ground, apart.Height) : Distance(from, back));
    }
    return {greatest};
}

/** What the passes of one way from geocentric coordinates leave in space, metres; 0 without such a way. */
double PassesOf(TLocalRow const& row) {
    constexpr double Deepest = -1e5;
    constexpr double AroundMoscow = 60; // degrees
    constexpr double OnEarth = 89;
    if (row.Reach == 0) {
        return HeightBound(OnEarth, -1e3, 9e3) + MajorAxis * LatitudeBound(-1e3);
    }
    return row.CreateTarget == &Geodetic
               ? HeightBound(AroundMoscow, Deepest, -Deepest) + MajorAxis * LatitudeBound(Deepest)
               : 0;
}

} // namespace

TTable LocalTable() {
    TTable table;
    table.Heading = "## Geocentric, topocentric and local systems";
    table.Subject = "there and back:";
    table.Text = "From one system to the other and back, by `TransformCoords`, in space: on the whole earth "
                 "up to 89° of "
                 "latitude, or\nfrom the points of a cube about the source's origin that reaches as far as "
                 "stated. Measured by "
                 "`vellari_accuracy`\n(tools/accuracy/road/Locals.cpp).\n";
    table.KeyHeadings = {"Source", "Target", "Reach"};
    table.Columns = {{"there and back", "m", LeastCartesian, true}};
    for (TLocalRow const& row : rows) {
        std::string const reach = row.Reach == 0 ? "the earth, -1 km and 9 km"
                                                 : KvRefSystem::FormatText("±%.12g km", row.Reach / 1e3);
        table.Lines.push_back({{row.SourceText, row.TargetText, reach},
                               row.Reason,
                               soRounding,
                               {PassesOf(row) + Rounding * row.Size}});
    }
    table.Measure = [](std::size_t line) { return MeasureRow(rows[line]); };
    return table;
}

} // namespace VellariAccuracy
