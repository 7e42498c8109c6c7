#include "frame/NumberText.h"
#include "tests/oracle/Places.h"

#include <Vellari/Vellari.h>

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicLine.hpp>
#include <GeographicLib/PolygonArea.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

constexpr double Major = 6378137;
constexpr double Minor = 6356752.314245179;
constexpr double Flattening = (Major - Minor) / Major;
constexpr double MeanRadius = 6371008.8;
constexpr double SquaredEccentricity = 0.0066943799901;

/**
 * Sides straight in the projection are not geodesics. The great circle at the distance d from the centre runs
 * at d - 3/8 d t2 / R2 beside it in the plane: a bow of the height 3/32 d s2 / R2 over a side of the length
 * s, and of the area d s3 / (16 R2). All bows bulge outwards. Against the polygon's area, the sum of d s / 2,
 * that is s2 / (8 R2) for the longest side; the twentieth is for the next terms up to 3000 km.
 */
double BowsOfSides(double longestSide) {
    double const side = longestSide / MeanRadius;
    return 1.05 * side * side / 8;
}

/**
 * On the ellipsoid the scale's ratio changes from the centre on, by e2 a radian: it bends small polygons'
 * sides.
 */
double BendOfTheEllipsoid(double longestSide) {
    return 0.2 * SquaredEccentricity * longestSide / MeanRadius;
}

/**
 * Rounding in square metres: both sum numbers of the whole earth; GeographicLib promises no more than 0.1.
 */
constexpr double RoundingOfAreas = 1e-3;

struct TPolygon {
    std::vector<TPlace> Corners;
    double LongestSide = 0;  ///< metres
    double GeodesicArea = 0; ///< square metres
};

/** Measures sides and area on geodesics. */
TPolygon Measure(std::vector<TPlace> corners) {
    GeographicLib::Geodesic const geodesic(Major, Flattening);
    GeographicLib::PolygonArea area(geodesic);
    TPolygon polygon;
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        TPlace const& here = corners[corner];
        TPlace const& next = corners[(corner + 1) % corners.size()];
        area.AddPoint(here.Latitude, here.Longitude);
        double side = 0;
        geodesic.Inverse(here.Latitude, here.Longitude, next.Latitude, next.Longitude, side);
        polygon.LongestSide = std::max(polygon.LongestSide, side);
    }
    double perimeter = 0;
    area.Compute(false, true, perimeter, polygon.GeodesicArea);
    polygon.GeodesicArea = std::fabs(polygon.GeodesicArea);
    polygon.Corners = std::move(corners);
    return polygon;
}

/** A polygon around a centre: corners at the azimuths and distances (degrees, metres) of the two lists. */
TPolygon Around(double latitude, double longitude, std::vector<double> const& azimuths,
                std::vector<double> const& distances) {
    GeographicLib::Geodesic const geodesic(Major, Flattening);
    std::vector<TPlace> corners;
    for (std::size_t corner = 0; corner < azimuths.size(); ++corner) {
        TPlace place{};
        geodesic.Direct(latitude, longitude, azimuths[corner], distances[corner], place.Latitude,
                        place.Longitude);
        corners.push_back(place);
    }
    return Measure(std::move(corners));
}

double OurArea(TEllipsoid const& ellipsoid, TPolygon const& polygon) {
    std::vector<vec_t_<double, 2>> vertices;
    for (TPlace const& corner : polygon.Corners) {
        vertices.push_back({{corner.Latitude * Degree, corner.Longitude * Degree}});
    }
    return ellipsoid.CalculateArea(vertices);
}

double Bound(TPolygon const& polygon) {
    return polygon.GeodesicArea *
               (BowsOfSides(polygon.LongestSide) + BendOfTheEllipsoid(polygon.LongestSide)) +
           RoundingOfAreas;
}

class PolygonAreaOfSize : public testing::TestWithParam<double> {};

TEST_P(PolygonAreaOfSize, DiffersFromGeodesicsByTheBowsOfItsSides) {
    TEllipsoid const wgs84(Major, Minor);
    std::mt19937_64 source(1987);
    auto const fraction = [&source] { return static_cast<double>(source() >> 11) * 0x1p-53; };
    double const size = GetParam();
    int measured = 0;
    for (int number = 0; number < 600; ++number) {
        int const count = 3 + number % 6;
        double const latitude = 140 * fraction() - 70;
        double const longitude = 360 * fraction() - 180;
        double const start = 360 * fraction();
        std::vector<double> azimuths;
        std::vector<double> distances;
        for (int corner = 0; corner < count; ++corner) {
            azimuths.push_back(start + (360.0 * corner + 180 * fraction() - 90) / count);
            distances.push_back(size * (0.6 + 0.4 * fraction()));
        }
        TPolygon const polygon = Around(latitude, longitude, azimuths, distances);
        ASSERT_NEAR(OurArea(wgs84, polygon), polygon.GeodesicArea, Bound(polygon))
            << latitude << " " << longitude << " " << count;
        ++measured;
    }
    EXPECT_EQ(measured, 600);
}

// From a yard to a country, metres from the centre.
INSTANTIATE_TEST_SUITE_P(All, PolygonAreaOfSize, testing::Values(10.0, 100.0, 1e3, 1e4, 1e5, 3e5, 1e6),
                         [](auto const& size) { return FormatText("%.0fMetres", size.param); });

TEST(PolygonArea, SquaresLoseAnEighthOfTheSquaredSide) {
    TEllipsoid const wgs84(Major, Minor);
    for (double const latitude : {0.0, -33.0, 55.0}) {
        for (double const size : {2e5, 5e5, 1e6}) {
            TPolygon const square = Around(latitude, 37, {45, 135, 225, 315}, {size, size, size, size});
            double const side = square.LongestSide / MeanRadius;
            double const loss = 1 - OurArea(wgs84, square) / square.GeodesicArea;
            // A twelfth: sides of one square are not equal on the ellipsoid, and the next terms.
            EXPECT_NEAR(loss / (side * side / 8), 1.0, 1.0 / 12) << latitude << " " << size;
        }
    }
}

TEST(PolygonArea, ManyCornersOnOneGeodesicComeToTheGeodesicArea) {
    TEllipsoid const wgs84(Major, Minor);
    GeographicLib::Geodesic const geodesic(Major, Flattening);
    std::vector<TPlace> const corners = {{40, -3, 0}, {60, 10, 0}, {55, 38, 0}, {42, 30, 0}};
    std::vector<TPlace> dense;
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        TPlace const& here = corners[corner];
        TPlace const& next = corners[(corner + 1) % corners.size()];
        GeographicLib::GeodesicLine const line =
            geodesic.InverseLine(here.Latitude, here.Longitude, next.Latitude, next.Longitude);
        for (int part = 0; part < 100; ++part) {
            TPlace place{};
            line.Position(line.Distance() * part / 100, place.Latitude, place.Longitude);
            dense.push_back(place);
        }
    }
    TPolygon const sparse = Measure(corners);
    TPolygon const same = Measure(dense);
    // The projection itself keeps areas; only the straight sides change them.
    EXPECT_NEAR(OurArea(wgs84, same), same.GeodesicArea, Bound(same));
    EXPECT_NEAR(same.GeodesicArea, sparse.GeodesicArea, 100.0);
    EXPECT_GT(sparse.GeodesicArea - OurArea(wgs84, sparse), 100 * Bound(same));
}

TEST(PolygonArea, CrossesTheAntimeridian) {
    TEllipsoid const wgs84(Major, Minor);
    // The Fiji islands, Chukotka, and a field of a kilometre.
    std::vector<std::vector<TPlace>> const polygons = {
        {{-16, 177, 0}, {-16, -179, 0}, {-19.5, -178.5, 0}, {-19, 177, 0}},
        {{62, 175, 0}, {69, 172, 0}, {71, -179, 0}, {66, -170, 0}, {64, -173, 0}},
        {{10, 179.995, 0}, {10.01, 180, 0}, {10, -179.995, 0}, {9.99, -180, 0}},
    };
    for (std::vector<TPlace> const& corners : polygons) {
        TPolygon const polygon = Measure(corners);
        EXPECT_NEAR(OurArea(wgs84, polygon), polygon.GeodesicArea, Bound(polygon));
    }
}

TEST(PolygonArea, LongitudesBeyondHalfATurnCountAsTheSame) {
    TEllipsoid const wgs84(Major, Minor);
    TPolygon polygon = Measure({{-16, 177, 0}, {-16, 181, 0}, {-19.5, 181.5, 0}, {-19, 177, 0}});
    EXPECT_NEAR(OurArea(wgs84, polygon), polygon.GeodesicArea, Bound(polygon));
}

TEST(PolygonArea, OfASphereIsOneHalf) {
    // Kept: q at a sphere's pole is 1.0 where the projection means 2; hosts rely on the areas that follow.
    TEllipsoid const sphere(6371000.0);
    GeographicLib::Geodesic const geodesic(6371000.0, 0);
    GeographicLib::PolygonArea area(geodesic);
    TPolygon polygon;
    polygon.Corners = {{55, 37, 0}, {55.5, 37.5, 0}, {55.2, 38.5, 0}, {54.5, 37.8, 0}};
    for (TPlace const& corner : polygon.Corners) {
        area.AddPoint(corner.Latitude, corner.Longitude);
    }
    double perimeter = 0;
    double geodesicArea = 0;
    area.Compute(true, true, perimeter, geodesicArea);
    double const longestSide = perimeter / 2;
    // The plane is pressed to one half along the meridian there, and the bows with it.
    EXPECT_NEAR(OurArea(sphere, polygon), geodesicArea / 2,
                geodesicArea / 2 * BowsOfSides(longestSide) + RoundingOfAreas);
}

} // namespace

} // namespace OracleTests
