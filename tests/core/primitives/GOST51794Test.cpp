#include "core/primitives/GOST51794.h"

#include "tests/core/primitives/GOST51794Checks.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <type_traits>

namespace {

using namespace GOST51794Checks;

// Hosts are compiled against this layout.
static_assert(sizeof(TDatumShiftParams) == 56);
static_assert(offsetof(TDatumShiftParams, dX) == 0);
static_assert(offsetof(TDatumShiftParams, wx) == 24);
static_assert(offsetof(TDatumShiftParams, m) == 48);
static_assert(sizeof(TGOST51794RefsystemParams) == 8);
static_assert(offsetof(TGOST51794RefsystemParams, RefsystemType) == 4);
static_assert(std::is_trivial_v<TDatumShiftParams> && std::is_trivial_v<TGOST51794RefsystemParams>);
static_assert(std::is_same_v<std::underlying_type_t<TGOST51794Version>, int>);
static_assert(std::is_same_v<std::underlying_type_t<TGOST51794Datum>, int>);
static_assert(std::is_same_v<std::underlying_type_t<TGOST51794RefsystemType>, int>);
static_assert(gv2001 == 2001 && gv2008 == 2008 && gv2017 == 2017);
static_assert(grtGeocentric == 3 && grtGeodetic == 4 && grtProjected == 5);

// --- Tables ------------------------------------------------------------------------------------------------

TEST(GOST51794, RecordsAreThePrintedOnesWithTheSignsOfZeros) {
    EXPECT_EQ(std::size(Records), 34u);
    for (TRecordRow const& row : Records) {
        std::array<double, 7> const numbers = NumbersOf(*row.Record);
        for (std::size_t i = 0; i < 7; ++i) {
            EXPECT_EQ(numbers[i], row.Printed[i]) << row.Name << ' ' << i;
            EXPECT_EQ(std::signbit(numbers[i]), std::signbit(row.Printed[i])) << row.Name << ' ' << i;
        }
    }
}

TEST(GOST51794, RotationsOf2017AreThePublishedArcSeconds) {
    double const second = Degree / 3600;
    for (TPublishedRotation const& row : RotationsOf2017) {
        EXPECT_NEAR(row.Record->wx, row.X * second, 1e-15 * std::fabs(row.X));
        EXPECT_NEAR(row.Record->wy, row.Y * second, 1e-15 * std::fabs(row.Y));
        EXPECT_NEAR(row.Record->wz, row.Z * second, 1e-15 * std::fabs(row.Z));
    }
}

TEST(GOST51794, DatumsHaveThePrintedSemiAxes) {
    for (TDatumRow const& row : Datums) {
        double a = 0;
        double b = 0;
        TDatumShiftParams params{};
        GetGOST51794Params(gv2017, row.Datum, &a, &b, &params);
        EXPECT_EQ(a, row.Major);
        EXPECT_EQ(b, row.Minor);
    }
}

TEST(GOST51794, DatumsHaveThePrintedEccentricity) {
    for (TDatumRow const& row : Datums) {
        ExpectSame(
            OfType(row.Datum, grtGeodetic, 0.9, 0.6, 200, grtGeocentric),
            OfEllipsoid(row.Major, row.EccentricitySquared, grtGeodetic, 0.9, 0.6, 200, grtGeocentric));
        // At the pole (1 - e2) a / sqrt(1 - e2) is b.
        EXPECT_NEAR(OfType(row.Datum, grtGeodetic, HalfPi, 0, 0, grtGeocentric).Z, row.Minor, 2e-9);
    }
}

TEST(GOST51794, UnqualifiedNamesWorkInsideTheLibrarysNamespace) {
    KvRefSystem::TGOST51794RefsystemParams const side = {KvRefSystem::gdWGS84, KvRefSystem::grtGeodetic};
    double x = 0;
    double y = 0;
    double z = 0;
    EXPECT_TRUE(
        KvRefSystem::GOST51794TransformCoords(KvRefSystem::gv2008, side, 0.5, 0.25, 3, side, &x, &y, &z));
    KvRefSystem::TDatumShiftParams params{};
    EXPECT_TRUE(KvRefSystem::GetGOST51794Params(KvRefSystem::gv2008, KvRefSystem::gdWGS84, &x, &y, &params));
}

// --- Plane coordinates -------------------------------------------------------------------------------------

TEST(GOST51794, PlaneCoordinatesEqualThePrintedSeries) {
    // The series with 40 digits, mpmath.
    struct TRow {
        double Latitude, Longitude, Northing, Easting;
    };
    for (TRow const& row :
         {TRow{55, 37, 6099167.2394549325, 7372018.49116272899}, TRow{0, 0.5, 0, 1221607.61427864212},
          TRow{0, 3, 0, 1500000}, TRow{10, 2.9, 1105876.2708752949, 1489035.87283439692},
          TRow{40, 5.9, 4433638.0673695516, 1747664.90188826122}, TRow{80, 39, 8885293.2514582286, 7500000},
          TRow{-55, 38, -6097794.6693838388, 7436005.91677881249},
          TRow{-70, 179.9, -7771749.0471991419, 30610706.5741910813},
          TRow{55, 354, 6101455.3113078784, 60308044.3986182904},
          TRow{60, 33.1, 6654193.3093502419, 6505580.09121097999}}) {
        TResult const plane = Plane(row.Latitude, row.Longitude);
        EXPECT_TRUE(plane.Done);
        EXPECT_NEAR(plane.X, row.Northing, 1e-8);
        EXPECT_NEAR(plane.Y, row.Easting, 4e-8);
    }
}

TEST(GOST51794, PlaneCoordinatesAgreeWithTransverseMercator) {
    // PROJ: tmerc on the Krasovsky ellipsoid; 0.1 mm, which the series end at.
    struct TRow {
        double Latitude, Longitude, Northing, Easting;
    };
    for (TRow const& row :
         {TRow{55, 37, 6099167.239479, 7372018.491154}, TRow{0, 0, 0, 1165882.14088},
          TRow{10, 2.9, 1105876.27090, 1489035.87283}, TRow{40, 5.9, 4433638.06734, 1747664.90188},
          TRow{80, 39, 8885293.25149, 7500000}, TRow{-55, 36, -6101455.31133, 7308044.39861},
          TRow{-70, 179.9, -7771749.04721, 30610706.57422}, TRow{55, 354, 6101455.311333, 60308044.398605}}) {
        TResult const plane = Plane(row.Latitude, row.Longitude);
        EXPECT_TRUE(plane.Done);
        EXPECT_NEAR(plane.X, row.Northing, 1e-4);
        EXPECT_NEAR(plane.Y, row.Easting, 1e-4);
    }
}

TEST(GOST51794, GeodeticCoordinatesEqualThePrintedSeries) {
    // The series with 40 digits, mpmath; the last two lie well outside of their zone.
    struct TRow {
        double Northing, Easting, Latitude, Longitude;
    };
    for (TRow const& row :
         {TRow{6099167.2394549325, 7372018.49116272899, 54.99999999800739, 37.00000000223387},
          TRow{0, 1500000, 0, 3.00000000016139},
          TRow{-6100000, 60300000, -54.983784276835143, 353.87549661188903},
          TRow{3000000, 31200000, 27.078613151485038, 179.97625159973004},
          TRow{6100000, 7999999, 54.77425911815943, 46.77755262817956},
          TRow{6100000, 7000001, 54.77425911815943, 31.22244737601659}}) {
        TResult const place = FromPlane(row.Northing, row.Easting);
        EXPECT_TRUE(place.Done);
        EXPECT_NEAR(place.X, row.Latitude, 2e-13 * 90);
        EXPECT_NEAR(place.Y, row.Longitude, 2e-13 * 360);
    }
}

TEST(GOST51794, PlaneCoordinatesComeBack) {
    // The two series aren't each other's inverse: 5e-9 degrees are half a millimetre.
    TEasternPlaces places(51794);
    for (int i = 0; i < 20000; ++i) {
        double const latitude = places.Latitude(85);
        double const longitude = places.Longitude(0, 360);
        double x = 0;
        double y = 0;
        double B = 0;
        double L = 0;
        ASSERT_TRUE(geod2proj(latitude, longitude, &x, &y));
        ASSERT_TRUE(proj2geod(x, y, &B, &L));
        ASSERT_NEAR(B / Degree, latitude / Degree, 5e-9);
        ASSERT_NEAR(L / Degree, longitude / Degree, 5e-8);
    }
}

TEST(GOST51794, TheRadianOfThePlaneHasTenDigits) {
    // With 180 / pi the easting would be 1.8e-5 m less, the meridian 39 degrees to the last digit.
    EXPECT_NEAR(Plane(0, 0).Y, 1165882.14086109854, 1e-8);
    EXPECT_NEAR(FromPlane(6100000, 7500000).Y, 39.000000002098071, 3e-14);
}

TEST(GOST51794, ZonesBeginAtTheirWesternMeridian) {
    // The zone takes 180 / pi in full, so that 36 degrees aren't left in zone 6.
    EXPECT_NEAR(Plane(55, 36).Y, 7308044.39861829038, 1e-7);
    EXPECT_NEAR(Plane(55, 35.9999999999).Y, 6691955.60137531311, 1e-5);
    for (int zone = 1; zone <= 60; ++zone) {
        EXPECT_EQ(std::floor(Plane(50, 6 * zone - 5.999).Y * 1e-6), zone);
        EXPECT_EQ(std::floor(Plane(50, 6 * zone - 0.001).Y * 1e-6), zone);
    }
}

TEST(GOST51794, LongitudesPast180DegreesHaveZones31To60) {
    EXPECT_NEAR(Plane(55, 180).Y, 31308044.39861829038, 1e-7);
    EXPECT_NEAR(Plane(60, 199.5).Y, 34416303.3880727556, 1e-7);
    EXPECT_NEAR(Plane(60, 199.5).X, 6655137.9790338174, 1e-8);
}

TEST(GOST51794, LongitudesOutsideTheZonesAreRefusedAndNotNormalised) {
    for (double const longitude :
         {-1.0, -1e-9, -6.0, -180.0, -300.0, 360.0, 361.0, 405.0, 720.0, 1e10, 1e300}) {
        ExpectUntouched(Plane(55, longitude));
        ExpectUntouched(OfType(gdPulkovo42, grtGeodetic, 0.9, longitude * Degree, 10, grtProjected));
    }
    EXPECT_TRUE(Plane(55, 0).Done);
    EXPECT_TRUE(Plane(55, 359.9999999).Done);
}

TEST(GOST51794, ZoneNumbersOutside1To60AreRefused) {
    for (double const easting :
         {999999.0, 0.0, -1.0, -7500000.0, 500000.0, 61000000.0, 1e12, 1e300, -1e300}) {
        TResult result;
        result.Done = proj2geod(6100000, easting, &result.X, &result.Y);
        ExpectUntouched(result);
        ExpectUntouched(OfType(gdPulkovo95, grtProjected, 6100000, easting, 10, grtGeodetic));
        ExpectUntouched(OfType(gdPulkovo95, grtProjected, 6100000, easting, 10, grtGeocentric));
    }
    EXPECT_TRUE(FromPlane(0, 1000000).Done);
    EXPECT_TRUE(FromPlane(0, 60999999.9).Done);
}

// --- Geocentric and geodetic -------------------------------------------------------------------------------

TEST(GOST51794, GeodeticBecomesGeocentric) {
    // By hand at the ends; (55 N, 37 E) with 40 digits, mpmath.
    ExpectNear(OfType(gdWGS84, grtGeodetic, 55 * Degree, 37 * Degree, 200, grtGeocentric), 2928363.403579358,
               2206680.102940028, 5201547.353611130, 3e-9);
    ExpectNear(OfType(gdWGS84, grtGeodetic, 0, 0, 10, grtGeocentric), 6378147, 0, 0, 0);
    ExpectNear(OfType(gdWGS84, grtGeodetic, 0, HalfPi, -10, grtGeocentric), 0, 6378127, 0, 1e-9);
    ExpectNear(OfType(gdWGS84, grtGeodetic, -HalfPi, 1, 5, grtGeocentric), 0, 0, -6356757.314245179, 2e-9);
}

TEST(GOST51794, GeocentricBecomesGeodetic) {
    // GeographicLib's CartConvert gives 35.43137427146 and 557215.846995; the passes stop at 2.8e-8 degrees.
    TResult const place = Geodetic(4e6, 4e6, 4e6);
    ExpectPlace(place, 35.4313742700479, 45, 557215.846995269);
    EXPECT_NEAR(place.X / Degree, 35.43137427146042, 2.8e-8);
    ExpectPlace(Geodetic(4e6, 4e6, -4e6), -35.4313742700479, 45, 557215.846995269);
}

TEST(GOST51794, LatitudesStopAtATenThousandthOfAnArcSecond) {
    TEasternPlaces places(4848);
    for (int i = 0; i < 5000; ++i) {
        double const latitude = places.Latitude(90);
        double const longitude = places.Longitude(0.001, 179.999);
        double const height = places.Height();
        for (TDatumRow const& row : Datums) {
            TResult const there = OfType(row.Datum, grtGeodetic, latitude, longitude, height, grtGeocentric);
            TResult const back = OfType(row.Datum, grtGeocentric, there.X, there.Y, there.Z, grtGeodetic);
            ASSERT_TRUE(back.Done);
            ASSERT_NEAR(back.X, latitude, 4.9e-10);
            // asin loses digits towards 90 degrees.
            ASSERT_NEAR(back.Y, longitude, 5e-8);
            ASSERT_NEAR(back.Z, height, 1e-6);
        }
    }
}

TEST(GOST51794, LongitudesOfPositiveYAreTrue) {
    EXPECT_NEAR(Geodetic(1e6, 3e6, 4e6).Y, std::atan2(3, 1), 1e-15);
    EXPECT_NEAR(Geodetic(-1e6, 3e6, 4e6).Y, std::atan2(3, -1), 1e-15);
    EXPECT_EQ(Geodetic(4e6, 0, 4e6).Y, 0);
    EXPECT_EQ(Geodetic(-4e6, 0, 4e6).Y, 3.141592653589793);
    EXPECT_EQ(Geodetic(0, 4e6, 4e6).Y, HalfPi);
}

TEST(GOST51794, LongitudesOfNegativeYAreNotTheirOwn) {
    EXPECT_NEAR(Geodetic(4e6, -4e6, 4e6).Y / Degree, 405, 1e-12);
    EXPECT_NEAR(Geodetic(-4e6, -4e6, 4e6).Y / Degree, 315, 1e-12);
    EXPECT_EQ(Geodetic(0, -4e6, 4e6).Y, -HalfPi);
    // The same on the equator, where nothing is iterated.
    EXPECT_NEAR(Geodetic(4e6, -4e6, 0).Y / Degree, 405, 1e-12);
    EXPECT_NEAR(Geodetic(-4e6, -4e6, 0).Y / Degree, 315, 1e-12);
    EXPECT_EQ(Geodetic(0, -4e6, 0).Y, -HalfPi);
}

TEST(GOST51794, PlaneCoordinatesRefuseTheLongitudesOfNegativeY) {
    ExpectUntouched(OfType(gdPulkovo42, grtGeocentric, 4e6, -4e6, 4e6, grtProjected));
    ExpectUntouched(OfType(gdPulkovo42, grtGeocentric, 0, -4e6, 4e6, grtProjected));
    // 315 degrees is a longitude of a zone, if not the point's own.
    TResult const third = OfType(gdPulkovo42, grtGeocentric, -4e6, -4e6, 4e6, grtProjected);
    EXPECT_TRUE(third.Done);
    EXPECT_EQ(std::floor(third.Y * 1e-6), 53);
}

TEST(GOST51794, PointsOnTheAxisAreIteratedToThePole) {
    ExpectPlace(Geodetic(0, 0, 6356752), 90, 0, -0.314245179);
    EXPECT_EQ(Geodetic(0, 0, 6356752).X, HalfPi);
    EXPECT_EQ(Geodetic(0, 0, -6356752).X, -HalfPi);
    ExpectPlace(Geodetic(-0.0, 0, -7e6), -90, 0, 7e6 - 6356752.314245179);
}

TEST(GOST51794, PointsOfTheEquatorialPlaneAreNotIterated) {
    // Here the passes would not converge.
    ExpectExactly(Geodetic(43000, 0, 0), 0, 0, 43000 - WgsMajor);
    ExpectExactly(Geodetic(3e6, 4e6, 0), 0, std::asin(0.8), 5e6 - WgsMajor);
    ExpectExactly(Geodetic(-7e6, 0, -0.0), 0, 3.141592653589793, 7e6 - WgsMajor);
}

TEST(GOST51794, TheCentreHasLatitude0AndHeightMinusA) {
    ExpectExactly(Geodetic(0, 0, 0), 0, 0, -WgsMajor);
    ExpectExactly(OfType(gdGSK2011, grtGeocentric, 0, 0, 0, grtGeodetic), 0, 0, -6378136.5);
}

TEST(GOST51794, PassesEndAfterTheHundredth) {
    // Counted with the printed steps in Python: 100 passes and 101.
    ExpectPlace(Geodetic(28302, 0, 28302), 67.3483921580717, 0, -6322909.9429247);
    ExpectUntouched(Geodetic(28267, 0, 28267));
    ExpectUntouched(Geodetic(43000, 0, 1));
    ExpectUntouched(Geodetic(20000, 0, 20000));
}

TEST(GOST51794, RadicandsThatAreNotPositiveAreRefused) {
    ExpectUntouched(OfEllipsoid(WgsMajor, 1.0, grtGeodetic, HalfPi, 0, 0, grtGeocentric));
    ExpectUntouched(OfEllipsoid(WgsMajor, 2.0, grtGeodetic, 1, 0, 0, grtGeocentric));
    ExpectUntouched(OfEllipsoid(WgsMajor, NaN, grtGeodetic, 1, 0, 0, grtGeocentric));
    ExpectUntouched(OfEllipsoid(WgsMajor, 1e-3, grtGeodetic, NaN, 0, 0, grtGeocentric));
    ExpectUntouched(Geodetic(1e6, 0, 6e6, WgsMajor, 2.0));
    ExpectUntouched(Geodetic(0, 0, 6e6, WgsMajor, 1.0));
    ExpectUntouched(Geodetic(0, 0, 6e6, WgsMajor, 2.0));
    ExpectUntouched(Geodetic(10000, 0, 10000)); // an arc sine of more than 1 on the way
}

TEST(GOST51794, NumbersThatAreNotFiniteNeverThrow) {
    for (double const bad : {NaN, Infinity, -Infinity, 1e308, -1e308, 5e-324}) {
        for (TGOST51794RefsystemType const from : Types) {
            for (TGOST51794RefsystemType const to : Types) {
                EXPECT_NO_THROW(OfType(gdPulkovo42, from, bad, 1e6, 1e6, to));
                EXPECT_NO_THROW(OfType(gdPulkovo42, from, 1e6, bad, 1e6, to));
                EXPECT_NO_THROW(OfType(gdPulkovo42, from, 1e6, 1e6, bad, to));
                EXPECT_NO_THROW(OfType(gdPulkovo42, from, bad, bad, bad, to));
            }
        }
    }
    for (double const bad : {NaN, Infinity, -Infinity}) {
        double x = 0;
        double y = 0;
        EXPECT_FALSE(geod2proj(0.9, bad, &x, &y));
        EXPECT_FALSE(proj2geod(6e6, bad, &x, &y));
    }
    ExpectUntouched(Geodetic(NaN, 1e6, 1e6));
    ExpectUntouched(Geodetic(1e6, 1e6, NaN));
    // No pass looks at the latitude, and a NaN has no place.
    EXPECT_TRUE(std::isnan(Geodetic(1e6, NaN, 0).Y));
    EXPECT_TRUE(std::isnan(Geodetic(1e6, NaN, 0).Z));
    EXPECT_TRUE(std::isnan(Plane(NaN, 37).X));
}

// --- Types within a datum ----------------------------------------------------------------------------------

TEST(GOST51794, TypesChainThroughGeodeticCoordinates) {
    double const B = 55 * Degree;
    double const L = 37 * Degree;
    TResult const plane = OfType(gdPulkovo42, grtGeodetic, B, L, 123.25, grtProjected);
    ExpectExactly(plane, Plane(55, 37).X, Plane(55, 37).Y, 123.25);

    TResult const place = OfType(gdPulkovo42, grtProjected, plane.X, plane.Y, 123.25, grtGeodetic);
    EXPECT_EQ(place.Z, 123.25);
    ExpectPlace(place, 54.99999999800739, 37.00000000223387, 123.25);

    ExpectSame(OfType(gdPulkovo42, grtProjected, plane.X, plane.Y, 123.25, grtGeocentric),
               OfType(gdPulkovo42, grtGeodetic, place.X, place.Y, 123.25, grtGeocentric));

    TResult const space = OfType(gdPulkovo42, grtGeodetic, B, L, 123.25, grtGeocentric);
    TResult const ground = OfType(gdPulkovo42, grtGeocentric, space.X, space.Y, space.Z, grtGeodetic);
    ExpectSame(OfType(gdPulkovo42, grtGeocentric, space.X, space.Y, space.Z, grtProjected),
               OfType(gdPulkovo42, grtGeodetic, ground.X, ground.Y, ground.Z, grtProjected));
}

TEST(GOST51794, PlaneCoordinatesStayKrasovskysOnAnyEllipsoid) {
    ExpectSame(OfEllipsoid(1, 0, grtGeodetic, 0.9, 0.6, 7, grtProjected),
               OfType(gdPulkovo42, grtGeodetic, 0.9, 0.6, 7, grtProjected));
}

TEST(GOST51794, EqualTypesCopyExactlyWithNoTestOfZones) {
    ExpectExactly(OfType(gdPulkovo42, grtProjected, 1, -5, 3, grtProjected), 1, -5, 3);
    ExpectExactly(OfType(gdWGS84, grtGeodetic, 100, -200, 1e300, grtGeodetic), 100, -200, 1e300);
    ExpectExactly(OfType(gdITRF2008, grtGeocentric, 0.1, 0.2, 0.3, grtGeocentric), 0.1, 0.2, 0.3);
    ExpectExactly(OfEllipsoid(NaN, NaN, grtProjected, 1, 2, 3, grtProjected), 1, 2, 3);
    for (int const type : UnknownTypes) {
        ExpectExactly(OfType(gdPZ90, Type(type), 1, 2, 3, Type(type)), 1, 2, 3);
    }
}

TEST(GOST51794, UnknownTypesAreRefused) {
    for (int const type : UnknownTypes) {
        for (TGOST51794RefsystemType const known : Types) {
            ExpectUntouched(OfType(gdPulkovo42, Type(type), 6e6, 7.4e6, 3, known));
            ExpectUntouched(OfType(gdPulkovo42, known, 6e6, 7.4e6, 3, Type(type)));
        }
        ExpectUntouched(Transform(gv2008, {gdWGS84, grtGeodetic}, 1, 1, 0, {gdPZ90, Type(type)}));
        ExpectUntouched(Transform(gv2008, {gdWGS84, Type(type)}, 1, 1, 0, {gdPZ90, grtGeodetic}));
    }
}

TEST(GOST51794, PlaneCoordinatesAreOfThePulkovoDatumsOnly) {
    for (TDatumRow const& row : Datums) {
        bool const pulkovo = row.Datum == gdPulkovo42 || row.Datum == gdPulkovo95;
        for (TGOST51794RefsystemType const type : Types) {
            // Numbers that are good for every one of the three.
            double const x = type == grtGeodetic ? 1 : 6e6;
            double const y = type == grtGeodetic ? 1 : 7.4e6;
            EXPECT_EQ(OfType(row.Datum, type, x, y, 3, grtProjected).Done, pulkovo);
            TGOST51794RefsystemParams const plane = {row.Datum, grtProjected};
            TGOST51794RefsystemParams const other = {row.Datum, type};
            EXPECT_EQ(Transform(gv2001, other, x, y, 3, plane).Done, pulkovo);
            EXPECT_EQ(OfType(row.Datum, grtProjected, 6e6, 7.4e6, 3, type).Done, pulkovo);
            EXPECT_EQ(Transform(gv2001, plane, 6e6, 7.4e6, 3, other).Done, pulkovo);
        }
    }
}

TEST(GOST51794, UnknownDatumsAreRefused) {
    for (int const datum : UnknownDatums) {
        ExpectUntouched(OfType(Datum(datum), grtGeodetic, 1, 1, 1, grtGeocentric));
        ExpectUntouched(OfType(Datum(datum), grtGeodetic, 1, 1, 1, grtGeodetic));
        for (TGOST51794Version const version : Versions) {
            TGOST51794RefsystemParams const unknown = {Datum(datum), grtGeodetic};
            TGOST51794RefsystemParams const known = {gdWGS84, grtGeodetic};
            ExpectUntouched(Transform(version, unknown, 1, 1, 1, unknown));
            ExpectUntouched(Transform(version, unknown, 1, 1, 1, known));
            ExpectUntouched(Transform(version, known, 1, 1, 1, unknown));
            double a = -1;
            double b = -2;
            TDatumShiftParams params = {1, 2, 3, 4, 5, 6, 7};
            EXPECT_FALSE(GetGOST51794Params(version, Datum(datum), &a, &b, &params));
            EXPECT_EQ(a, -1);
            EXPECT_EQ(b, -2);
            EXPECT_EQ(params.m, 7);
        }
    }
}

} // namespace
