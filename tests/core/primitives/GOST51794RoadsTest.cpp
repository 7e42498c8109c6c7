#include "core/primitives/GOST51794.h"

#include "tests/core/primitives/GOST51794Checks.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <set>
#include <utility>

namespace {

using namespace GOST51794Checks;

// --- The whole transformation ------------------------------------------------------------------------------

TEST(GOST51794, RoadsFollowTheEditions) {
    for (TRoadRow const& row : Roads) {
        TResult const point = Transform(row.Version, {row.From, grtGeodetic}, 55 * Degree, 37 * Degree, 200,
                                        {row.To, grtGeocentric});
        ExpectNear(point, row.X, row.Y, row.Z, 1e-8);
    }
}

TEST(GOST51794, PulkovoPlacesBecomeWgsPlaces) {
    auto const toWgs = [](TGOST51794Version version) {
        return Transform(version, {gdPulkovo42, grtGeodetic}, 55 * Degree, 37 * Degree, 200,
                         {gdWGS84, grtGeodetic});
    };
    // Of the printed steps in Python; PROJ's helmert agrees to the end of the passes.
    ExpectPlace(toWgs(gv2001), 55.0000091339909, 36.998159916578, 204.924948);
    ExpectPlace(toWgs(gv2008), 55.0000199210307, 36.998155819798, 205.160847);
    ExpectPlace(toWgs(gv2017), 55.0000228581566, 37, 309.812623);
}

TEST(GOST51794, PlaneCoordinatesGoFromDatumToDatum) {
    TGOST51794RefsystemParams const from = {gdPulkovo42, grtProjected};
    TGOST51794RefsystemParams const to = {gdPulkovo95, grtProjected};
    TResult const there = Transform(gv2008, from, 6099167.23945, 7372018.49116, 200, to);
    TResult const step =
        Transform(gv2008, from, 6099167.23945, 7372018.49116, 200, {gdPulkovo95, grtGeodetic});
    ExpectSame(there, OfType(gdPulkovo95, grtGeodetic, step.X, step.Y, step.Z, grtProjected));
    // The road's latitude and longitude with mpmath, then PROJ's tmerc.
    ExpectNear(there, 6099165.204157, 7372017.360906, 197.5295, 1e-3);
}

TEST(GOST51794, EqualDatumsDoNotLookAtTheVersion) {
    for (int const version : {2001, 2008, 2017, 0, -5}) {
        for (TDatumRow const& row : Datums) {
            ExpectExactly(
                Transform(Version(version), {row.Datum, grtGeodetic}, 7, 8, 9, {row.Datum, grtGeodetic}), 7,
                8, 9);
            ExpectSame(
                Transform(Version(version), {row.Datum, grtGeodetic}, 1, 1, 9, {row.Datum, grtGeocentric}),
                OfType(row.Datum, grtGeodetic, 1, 1, 9, grtGeocentric));
        }
    }
}

TEST(GOST51794, PlaneToPlaneOnOneDatumCopiesExactly) {
    for (TGOST51794Datum const datum : {gdPulkovo42, gdPulkovo95}) {
        ExpectExactly(Transform(gv2001, {datum, grtProjected}, 1, -99e6, 3, {datum, grtProjected}), 1, -99e6,
                      3);
    }
}

TEST(GOST51794, TheVersionOf2017ChangesOnlyTheEllipsoid) {
    ExpectExactly(Transform(gv2017, {gdPulkovo42, grtGeocentric}, 1e6, 2e6, 3e6, {gdWGS84, grtGeocentric}),
                  1e6, 2e6, 3e6);
    for (TDatumRow const& from : Datums) {
        for (TDatumRow const& to : Datums) {
            TResult const space = OfType(from.Datum, grtGeodetic, 0.9, 0.6, 100, grtGeocentric);
            TResult const result =
                Transform(gv2017, {from.Datum, grtGeodetic}, 0.9, 0.6, 100, {to.Datum, grtGeodetic});
            if (from.Datum != to.Datum) {
                ExpectSame(result, OfType(to.Datum, grtGeocentric, space.X, space.Y, space.Z, grtGeodetic));
            }
        }
    }
}

TEST(GOST51794, UnknownVersionsChangeOnlyTheEllipsoidToo) {
    for (int const version : UnknownVersions) {
        ExpectExactly(Transform(Version(version), {gdITRF2008, grtGeocentric}, 1e6, 2e6, 3e6,
                                {gdPZ90_11, grtGeocentric}),
                      1e6, 2e6, 3e6);
        ExpectSame(
            Transform(Version(version), {gdPulkovo42, grtGeodetic}, 0.9, 0.6, 1, {gdWGS84, grtGeodetic}),
            Transform(gv2017, {gdPulkovo42, grtGeodetic}, 0.9, 0.6, 1, {gdWGS84, grtGeodetic}));
    }
}

TEST(GOST51794, PairsWithoutARecordAreRefused) {
    std::set<std::array<int, 3>> known;
    for (TRoadRow const& row : Roads) {
        known.insert({row.Version, row.From, row.To});
    }
    EXPECT_EQ(known.size(), 32u);
    for (TGOST51794Version const version : {gv2001, gv2008}) {
        for (TDatumRow const& from : Datums) {
            for (TDatumRow const& to : Datums) {
                if (from.Datum != to.Datum) {
                    bool const found = known.contains({version, from.Datum, to.Datum});
                    TResult const result =
                        Transform(version, {from.Datum, grtGeodetic}, 1, 1, 1, {to.Datum, grtGeodetic});
                    EXPECT_EQ(result.Done, found) << version << ' ' << from.Datum << ' ' << to.Datum;
                }
            }
        }
    }
}

TEST(GOST51794, TheEditionOf2008KeepsItsDirectRecordsOfPZ90) {
    // Through PZ-90.02 the same point would lie 0.9 m away.
    TResult const direct =
        Transform(gv2008, {gdPZ90, grtGeocentric}, 3e6, 2e6, 5e6, {gdWGS84, grtGeocentric});
    ExpectNear(direct, (1 - 1.2e-7) * (3e6 - 9.696e-7 * 2e6) - 1.1,
               (1 - 1.2e-7) * (2e6 + 9.696e-7 * 3e6) - 0.3, (1 - 1.2e-7) * 5e6 - 0.9, 1e-8);
    TResult const own = Transform(gv2008, {gdPZ90, grtGeocentric}, 3e6, 2e6, 5e6, {gdPZ90_02, grtGeocentric});
    TResult const through =
        Transform(gv2008, {gdPZ90_02, grtGeocentric}, own.X, own.Y, own.Z, {gdWGS84, grtGeocentric});
    EXPECT_GT(std::hypot(direct.X - through.X, direct.Y - through.Y, direct.Z - through.Z), 0.5);
}

TEST(GOST51794, PlaneCoordinatesOfOtherDatumsAreRefusedOnBothSides) {
    for (TGOST51794Version const version : Versions) {
        ExpectUntouched(
            Transform(version, {gdWGS84, grtProjected}, 6e6, 7.4e6, 0, {gdPulkovo42, grtGeodetic}));
        ExpectUntouched(Transform(version, {gdPulkovo42, grtGeodetic}, 0.9, 0.6, 0, {gdWGS84, grtProjected}));
        ExpectUntouched(Transform(version, {gdWGS84, grtProjected}, 6e6, 7.4e6, 0, {gdWGS84, grtProjected}));
    }
}

TEST(GOST51794, FailuresOnTheWayToGeocentricAndBackAreReported) {
    ExpectUntouched(Transform(gv2008, {gdPulkovo42, grtProjected}, 6e6, 0, 0, {gdWGS84, grtGeodetic}));
    ExpectUntouched(Transform(gv2008, {gdWGS84, grtGeodetic}, 0.9, -1.0, 0, {gdPulkovo42, grtProjected}));
    ExpectUntouched(Transform(gv2017, {gdWGS84, grtGeocentric}, 43000, 0, 1, {gdPulkovo42, grtGeodetic}));
}

TEST(GOST51794, ReversedRoadsComeBackToTheSecondOrder) {
    // Rotations of 4e-6, squared, over 6.4e6 m.
    TEasternPlaces places(2008);
    for (int i = 0; i < 500; ++i) {
        double const B = places.Latitude(89);
        double const L = places.Longitude(1, 179);
        for (TRoadRow const& row : Roads) {
            TResult const start = OfType(row.From, grtGeodetic, B, L, 0, grtGeocentric);
            TResult const there = Transform(row.Version, {row.From, grtGeocentric}, start.X, start.Y, start.Z,
                                            {row.To, grtGeocentric});
            TResult const back = Transform(row.Version, {row.To, grtGeocentric}, there.X, there.Y, there.Z,
                                           {row.From, grtGeocentric});
            ASSERT_LT(std::hypot(back.X - start.X, back.Y - start.Y, back.Z - start.Z), 1e-3);
        }
    }
}

TEST(GOST51794, OutputsMayBeTheInputs) {
    TResult const expected =
        Transform(gv2008, {gdPulkovo42, grtProjected}, 6099167, 7372018, 200, {gdWGS84, grtGeodetic});
    double x = 6099167;
    double y = 7372018;
    double z = 200;
    EXPECT_TRUE(GOST51794TransformCoords(gv2008, {gdPulkovo42, grtProjected}, x, y, z, {gdWGS84, grtGeodetic},
                                         &x, &y, &z));
    ExpectSame({true, x, y, z}, expected);

    // Every output in the place of every input.
    std::array<std::array<int, 3>, 6> const orders = {
        {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}}};
    for (std::array<int, 3> const& order : orders) {
        auto const at = [&order](int index) {
            return static_cast<std::size_t>(order[static_cast<std::size_t>(index)]);
        };
        for (double const height : {4e6, 0.0}) {
            std::array<double, 3> point = {2e6, 3e6, height};
            EXPECT_TRUE(geoc2geod(WgsMajor, WgsEccentricitySquared, point[0], point[1], point[2],
                                  &point[at(0)], &point[at(1)], &point[at(2)]));
            ExpectSame({true, point[at(0)], point[at(1)], point[at(2)]}, Geodetic(2e6, 3e6, height));
        }
        for (TGOST51794RefsystemType const to : Types) {
            std::array<double, 3> point = {0.9, 0.6, 10};
            EXPECT_TRUE(TransformType(gdPulkovo42, grtGeodetic, point[0], point[1], point[2], to,
                                      &point[at(0)], &point[at(1)], &point[at(2)]));
            ExpectSame({true, point[at(0)], point[at(1)], point[at(2)]},
                       OfType(gdPulkovo42, grtGeodetic, 0.9, 0.6, 10, to));
        }
    }

    double major = WgsMajor;
    double e2 = WgsEccentricitySquared;
    double H = 0;
    EXPECT_TRUE(geoc2geod(major, e2, 2e6, 3e6, 4e6, &major, &e2, &H));
    ExpectSame({true, major, e2, H}, Geodetic(2e6, 3e6, 4e6));

    double north = 0.9;
    double east = 0.6;
    TResult direct;
    geod2proj(0.9, 0.6, &direct.X, &direct.Y);
    EXPECT_TRUE(geod2proj(north, east, &east, &north));
    EXPECT_EQ(east, direct.X);
    EXPECT_EQ(north, direct.Y);

    north = 6099167;
    east = 7372018;
    proj2geod(6099167, 7372018, &direct.X, &direct.Y);
    EXPECT_TRUE(proj2geod(north, east, &east, &north));
    EXPECT_EQ(east, direct.X);
    EXPECT_EQ(north, direct.Y);
}

// --- Parameters --------------------------------------------------------------------------------------------

TEST(GOST51794, ParametersOfTwoRecordsAreCombinedToTheFirstOrder) {
    for (TParamsRow const& row : CombinedParams) {
        double a = 0;
        double b = 0;
        TDatumShiftParams params{};
        EXPECT_TRUE(GetGOST51794Params(row.Version, row.Datum, &a, &b, &params));
        std::array<double, 7> const numbers = NumbersOf(params);
        std::array<double, 7> const expected = NumbersOf(row.Params);
        for (std::size_t i = 0; i < 7; ++i) {
            EXPECT_NEAR(numbers[i], expected[i], i < 3 ? 1e-13 : 1e-21)
                << row.Version << ' ' << row.Datum << ' ' << i;
        }
    }
}

TEST(GOST51794, ParametersOfOneRecordAreTheRecord) {
    for (TSingleRow const& row : SingleParams) {
        double a = 0;
        double b = 0;
        TDatumShiftParams params{};
        EXPECT_TRUE(GetGOST51794Params(row.Version, row.Datum, &a, &b, &params));
        std::array<double, 7> const numbers = NumbersOf(params);
        std::array<double, 7> const expected = NumbersOf(*row.Record);
        for (std::size_t i = 0; i < 7; ++i) {
            EXPECT_EQ(numbers[i], expected[i]);
            EXPECT_EQ(std::signbit(numbers[i]), std::signbit(expected[i]));
        }
    }
}

TEST(GOST51794, ParametersOfWgs84AreZeroInEveryEdition) {
    for (TGOST51794Version const version : Versions) {
        double a = 0;
        double b = 0;
        TDatumShiftParams params = {1, 2, 3, 4, 5, 6, 7};
        EXPECT_TRUE(GetGOST51794Params(version, gdWGS84, &a, &b, &params));
        for (double const number : NumbersOf(params)) {
            EXPECT_EQ(number, 0);
        }
    }
}

TEST(GOST51794, SemiAxesAreSetEvenWithoutParameters) {
    std::set<std::pair<int, int>> known;
    for (TParamsRow const& row : CombinedParams) {
        known.insert({row.Version, row.Datum});
    }
    for (TSingleRow const& row : SingleParams) {
        known.insert({row.Version, row.Datum});
    }
    for (TGOST51794Version const version : Versions) {
        known.insert({version, gdWGS84});
    }
    auto const expect = [&known](TGOST51794Version version, TDatumRow const& row) {
        double a = 0;
        double b = 0;
        TDatumShiftParams params = {1, 2, 3, 4, 5, 6, 7};
        bool const done = GetGOST51794Params(version, row.Datum, &a, &b, &params);
        EXPECT_EQ(done, known.contains({version, row.Datum})) << version << ' ' << row.Datum;
        EXPECT_EQ(a, row.Major);
        EXPECT_EQ(b, row.Minor);
        if (!done) {
            EXPECT_EQ(NumbersOf(params), (std::array<double, 7>{1, 2, 3, 4, 5, 6, 7}));
        }
    };
    for (TDatumRow const& row : Datums) {
        for (TGOST51794Version const version : Versions) {
            expect(version, row);
        }
        for (int const version : UnknownVersions) {
            expect(Version(version), row);
        }
    }
}

TEST(GOST51794, ParametersLeadWhereTheRoadLeads) {
    // What a linear combination leaves of rotations and scales of 4e-6 over the earth's radius.
    TEasternPlaces places(2001);
    for (int i = 0; i < 1000; ++i) {
        double const B = places.Latitude(89);
        double const L = places.Longitude(1, 179);
        for (TRoadRow const& row : Roads) {
            if (row.To != gdWGS84) {
                continue;
            }
            TResult const p = OfType(row.From, grtGeodetic, B, L, 0, grtGeocentric);
            TResult const road =
                Transform(row.Version, {row.From, grtGeocentric}, p.X, p.Y, p.Z, {gdWGS84, grtGeocentric});
            double a = 0;
            double b = 0;
            TDatumShiftParams params{};
            ASSERT_TRUE(GetGOST51794Params(row.Version, row.From, &a, &b, &params));
            double const s = 1 + params.m;
            ASSERT_NEAR(s * (p.X + params.wz * p.Y - params.wy * p.Z) + params.dX, road.X, 1e-4);
            ASSERT_NEAR(s * (p.Y - params.wz * p.X + params.wx * p.Z) + params.dY, road.Y, 1e-4);
            ASSERT_NEAR(s * (p.Z + params.wy * p.X - params.wx * p.Y) + params.dZ, road.Z, 1e-4);
        }
    }
}

} // namespace
