#include "tools/accuracy/road/Geocentric.h"

#include "tools/accuracy/Domain.h"
#include "tools/accuracy/TextFile.h"
#include "tools/accuracy/road/Decimal.h"
#include "tools/accuracy/road/Folders.h"
#include "tools/accuracy/road/Tables.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace VellariAccuracy {

namespace {

using namespace KvRefSystem;

constexpr double Epsilon = std::numeric_limits<double>::epsilon();
constexpr double Infinity = std::numeric_limits<double>::infinity();

/** The ellipsoid among those of the data that is the least like a sphere: Clarke 1880 IGN. */
constexpr double MajorAxis = 6378249.2;
constexpr double MinorAxis = 6356515;
constexpr double SquaredEccentricity = 1 - MinorAxis / MajorAxis * (MinorAxis / MajorAxis);

/** Sines, cosines and a handful of products, each off by half a unit of the last place. */
constexpr double RoundingOfPoints = 4 * Epsilon;

/** A part of the data. */
struct TBand {
    char const* HeightText;
    double Low; ///< metres
    double High;
    char const* LatitudeText;
    double Least; ///< degrees, on both sides of the equator
    double Greatest;
    char const* Reason;
};

constexpr TBand there[] = {
    {"6000 km to 1000 km deep", -6e6, -1e6, "90° S to 90° N", 0, 90,
     "Sines, cosines and a handful of products are each off by half of the last place, of the distance from "
     "the centre or of N, whichever is greater: some nanometres on the earth."},
    {"10 km deep to 0", -1e4, 0, "90° S to 90° N", 0, 90, ""},
    {"0 to 10 km", 0, 1e4, "90° S to 90° N", 0, 90, ""},
    {"100 km to 1000 km", 1e5, 1e6, "90° S to 90° N", 0, 90, ""},
    {"5000 km to 20,000 km", 5e6, 2e7, "90° S to 90° N", 0, 90, ""},
};

constexpr TBand back[] = {
    {"6000 km to 1000 km deep", -6e6, -1e6, "89° S to 89° N", 0, 89,
     "The passes stop when one of them changes the latitude by less than 1e-12 radians; the share e2 N / ((1 "
     "- "
     "e2) N + h) of the last change is left, which grows towards the centre."},
    {"10 km deep to 0", -1e4, 0, "89° S to 89° N", 0, 89,
     "The same, where that share is 1/148. The height is p / cos(latitude) - N, which takes the latitude's "
     "error "
     "times the tangent, 57 at 89°."},
    {"0 to 10 km", 0, 1e4, "89° S to 89° N", 0, 89, ""},
    {"100 km to 1000 km", 1e5, 1e6, "89° S to 89° N", 0, 89, ""},
    {"5000 km to 20,000 km", 5e6, 2e7, "89° S to 89° N", 0, 89, "The share falls as one rises."},
    {"10 km deep to 20,000 km", -1e4, 2e7, "89.9° to 89.99°, both sides", 89.9, 89.99,
     "The latitude stays as good as anywhere. The height takes its error 5700 times."},
    {"10 km deep to 20,000 km", -1e4, 2e7, "89.9999°, both sides", 89.9999, 89.9999,
     "11 m from the axis it takes it 570,000 times."},
    {"10 km deep to 20,000 km", -1e4, 2e7, "89.999999°", 89.999999, 89.999999,
     "11 cm from the axis it takes it 57 million times: the digits behind the metre are gone."},
    {"10 km deep to 20,000 km", -1e4, 2e7, "the doubles nearest to the poles", 90, 90,
     "4e-10 m from the axis the passes meet the same double again, and so the height too. The next double "
     "would "
     "turn it by more than the earth's radius: nothing guards the division by the cosine."},
};

bool Contains(TBand const& band, TExactPlace const& place) {
    constexpr double Slack = 1e-9; // degrees
    double const latitude = std::fabs(place.Place[0]) / Degree;
    double const height = place.Place[2];
    return latitude >= band.Least - Slack && latitude <= band.Greatest + Slack && height >= band.Low &&
           height <= band.High;
}

TLine LineOf(TBand const& band, std::vector<double> const& bounds) {
    return {{band.HeightText, band.LatitudeText}, band.Reason, soRounding, bounds};
}

using TPlaces = std::shared_ptr<std::vector<TExactPlace> const>;

TPlaces AllPlaces() {
    std::string const path = std::string(DataFolder) + "/geocentric-50.txt";
    return std::make_shared<std::vector<TExactPlace> const>(ParseExactPlaces(ReadTextFile(path), path));
}

TTable ThereTable(TPlaces const& places) {
    TTable table;
    table.Heading = "## Ellipsoidal to Cartesian coordinates";
    table.Subject = "ellipsoidal to Cartesian:";
    table.Text = "Measured by `vellari_accuracy` (tools/accuracy/road/Geocentric.cpp) against "
                 "tools/accuracy/data/geocentric-50.txt, which\n`vellari_reference` (tools/reference) "
                 "computes with 80 "
                 "digits: 1200 places on WGS 84, Krassowsky 1940, Clarke 1880 IGN and\na sphere, from the "
                 "equator to the "
                 "poles, right to the last digit that is written. The difference is taken digit by digit.\n";
    table.KeyHeadings = {"Height", "Latitude"};
    table.Columns = {{"in space", "m", LeastCartesian, true}};
    for (TBand const& band : there) {
        table.Lines.push_back(LineOf(band, {RoundingOfPoints * (MajorAxis + std::max(band.High, 0.0))}));
    }
    table.Measure = [places](std::size_t line) {
        double greatest = 0;
        for (TExactPlace const& place : *places) {
            if (Contains(there[line], place)) {
                Enlarge(&greatest, ErrorOfPoint(place));
            }
        }
        return TNumbers{greatest};
    };
    return table;
}

TTable BackTable(TPlaces const& places) {
    TTable table;
    table.Heading = "## Cartesian to ellipsoidal coordinates";
    table.Subject = "Cartesian to ellipsoidal:";
    table.Text =
        "From the doubles that are nearest to X, Y and Z of the same places, by the same programs; their "
        "exact latitude, longitude\nand height are in the data too. Within 43 km of the centre latitude "
        "and height of a point aren't unique, and on the axis\nitself (X = Y = 0) the passes have no "
        "tangent: neither belongs to the domain.\n";
    table.KeyHeadings = {"Height", "Latitude"};
    table.Columns = {{"latitude", "rad", LeastAngle, true},
                     {"longitude", "rad", LeastAngle, true},
                     {"on the ground", "m", LeastCartesian},
                     {"height", "m", LeastCartesian, true}};
    for (TBand const& band : back) {
        double const latitude = LatitudeBound(band.Low);
        double const height = HeightBound(band.Greatest, band.Low, band.High);
        table.Lines.push_back(LineOf(band, {latitude, RoundingOfPoints, height}));
    }
    table.Measure = [places](std::size_t line) {
        TNumbers greatest(4);
        for (TExactPlace const& place : *places) {
            if (Contains(back[line], place)) {
                TErrorsBack const errors = ErrorsOfPlace(place);
                Enlarge(&greatest[0], errors.Latitude);
                Enlarge(&greatest[1], errors.Longitude);
                Enlarge(&greatest[2], errors.Ground);
                Enlarge(&greatest[3], errors.Height);
            }
        }
        return greatest;
    };
    return table;
}

} // namespace

double ErrorOfPoint(TExactPlace const& place) {
    TCoords point{place.Place[1], place.Place[0], place.Place[2], false};
    TEllipsoid(place.Axes.a, place.Axes.b).EllipsoidalToCartesian(&point);
    return std::hypot(DistanceFrom(point.X, place.Point[0]), DistanceFrom(point.Y, place.Point[1]),
                      DistanceFrom(point.Z, place.Point[2]));
}

TErrorsBack ErrorsOfPlace(TExactPlace const& place) {
    TCoords point{0, 0, 0, false};
    for (auto const& [number, text] :
         {std::pair{&point.X, &place.Point[0]}, {&point.Y, &place.Point[1]}, {&point.Z, &place.Point[2]}}) {
        ParseWholeDouble(*text, number);
    }
    TEllipsoid(place.Axes.a, place.Axes.b).CartesianToEllipsoidal(&point);
    TErrorsBack errors{DistanceFrom(point.Y, place.Back[0]), DistanceFrom(point.X, place.Back[1]), 0,
                       DistanceFrom(point.Z, place.Back[2])};
    errors.Ground = place.Axes.a * std::hypot(errors.Latitude, errors.Longitude * std::cos(place.Place[0]));
    return errors;
}

double LatitudeBound(double height) {
    constexpr double StoppingChange = 1e-12;
    double const vertical = MajorAxis * MajorAxis / MinorAxis; // N at the pole, where it is the greatest
    double const share =
        SquaredEccentricity * vertical / ((1 - SquaredEccentricity) * vertical + std::min(height, 0.0));
    return StoppingChange * share / (1 - share) + RoundingOfPoints;
}

double HeightBound(double latitude, double leastHeight, double greatestHeight) {
    constexpr double AtThePole = 90;
    if (latitude >= AtThePole) {
        return Infinity;
    }
    double const radius = MajorAxis * MajorAxis / MinorAxis + std::max(greatestHeight, 0.0);
    return radius * (RoundingOfPoints + LatitudeBound(leastHeight) * std::tan(latitude * Degree));
}

std::vector<TTable> GeocentricTables() {
    TPlaces const places = AllPlaces();
    return {ThereTable(places), BackTable(places)};
}

} // namespace VellariAccuracy
