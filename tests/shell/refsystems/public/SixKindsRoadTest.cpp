#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;
using KvRefSystemTests::AllocationCount;

using TPoint = std::array<double, 3>;

/** Writes one system's description. */
using TFill = std::function<void(TStringTree*)>;

TFill Describe(TGeodeticText const& text) {
    return [text](TStringTree* tree) { FillGeodetic(tree, text); };
}

TFill Describe(TProjectedText const& text) {
    return [text](TStringTree* tree) { FillProjected(tree, text); };
}

TFill Describe(TGeocentricText const& text) {
    return [text](TStringTree* tree) { FillGeocentric(tree, text); };
}

TFill Describe(TTopocentricText const& text) {
    return [text](TStringTree* tree) { FillTopocentric(tree, text); };
}

TFill Describe(TLocalText const& text) {
    return [text](TStringTree* tree) { FillLocal(tree, text); };
}

std::unique_ptr<TShellReferenceSystem> Build(TFill const& fill) {
    TStringTree tree;
    fill(&tree);
    return Create(&tree);
}

/** What the numbers of a system are. */
enum TNumbers : int {
    nDegrees,
    nMetres,
    nKilometres,
    nGrid, ///< metres of a map projection
};

/** A system and the coordinates of one place in it, the same place in all. */
struct TPlace {
    char const* name;
    TFill fill;
    TPoint point;
    bool isPulkovo;
    TNumbers numbers;
};

TGeocentricText GeocentricOn(TGeodeticText const& base) {
    TGeocentricText text;
    text.base = base;
    return text;
}

TTopocentricText TopocentricOn(TGeodeticText const& base, std::array<char const*, 3> const& origin,
                               std::string const& azimuth, int swap) {
    TTopocentricText text;
    text.base = base;
    for (int axis = 0; axis < 3; ++axis) {
        text.origin[axis] = origin[axis];
    }
    text.azimuth = azimuth;
    text.swap = swap;
    return text;
}

TGeocentricText InKilometres(TGeocentricText text) {
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    return text;
}

/**
 * The place at 55.75 N, 37.62 E, 150 m of Pulkovo 1942. By cct: +proj=cart +ellps=krass; +proj=helmert
 * +x=23.57 +y=-140.95 +z=-79.8 +ry=0.35 +rz=0.79 +s=-0.22 +convention=position_vector; +proj=topocentric with
 * each origin; +proj=utm +zone=37; +proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass. An azimuth of 40 degrees
 * turns (E, N) = (7535.688337831, -5560.584164906) to E cos 40 - N sin 40 and N cos 40 + E sin 40.
 */
std::vector<TPlace> const& EarthBoundPlaces() {
    static std::vector<TPlace> const places = {
        {"Pulkovo geodetic", Describe(Pulkovo1942()), {55.75, 37.62, 150}, true, nDegrees},
        {"Pulkovo geocentric",
         Describe(GeocentricOn(Pulkovo1942())),
         {2849914.450986770, 2196314.798943806, 5249043.073416849},
         true,
         nMetres},
        {"Pulkovo topocentric",
         Describe(TopocentricOn(Pulkovo1942(), {"55.8", "37.5", "200"}, "40", 1)),
         {9346.946780092675, 584.1924939954948, -56.864707981},
         true,
         nMetres},
        {"Pulkovo Gauss-Kruger",
         Describe(On(Pulkovo1942(), TransverseMercator("39", "1", "7500000"))),
         {7413344.619905966, 6181699.088616310, 150},
         true,
         nGrid},
        {"WGS 84 geodetic",
         Describe(WithZeroShift()),
         {55.750042613104, 37.618125891889, 154.542208768},
         false,
         nDegrees},
        {"WGS 84 geocentric",
         Describe(GeocentricOn(WithZeroShift())),
         {2849937.888885759, 2196184.281004523, 5248957.282757131},
         false,
         nMetres},
        {"WGS 84 topocentric",
         Describe(TopocentricOn(WithZeroShift(), {"55.7", "37.6", "100"}, "", 0)),
         {1138.240416716, 5571.868457716, 52.007552006},
         false,
         nMetres},
        {"UTM 37",
         Describe(On(WithZeroShift(), UtmZone(37, 'N'))),
         {413263.189918236, 6179125.232601728, 154.542208768},
         false,
         nGrid},
        {"WGS 84 geocentric in kilometres",
         Describe(InKilometres(GeocentricOn(WithZeroShift()))),
         {2849.937888885759, 2196.184281004523, 5248.957282757131},
         false,
         nKilometres},
    };
    return places;
}

/** Local systems, of both kinds and both orders. */
std::vector<TFill> LocalSystems() {
    TLocalText left;
    left.swap = 1;
    TLocalText curvedLeft = Curved("6371000");
    curvedLeft.swap = 1;
    return {Describe(TLocalText()), Describe(left), Describe(Curved("6371000")), Describe(curvedLeft)};
}

// Earth-bound kinds

TEST(SixKindsRoad, EarthBoundKindsReachEachOther) {
    for (TPlace const& source : EarthBoundPlaces()) {
        auto const from = Build(source.fill);
        for (TPlace const& target : EarthBoundPlaces()) {
            auto const to = Build(target.fill);
            TPoint result = {};
            ASSERT_TRUE(TransformCoords(from.get(), source.point[0], source.point[1], source.point[2],
                                        to.get(), &result[0], &result[1], &result[2]))
                << source.name << " to " << target.name;
            // The linear reverse shift is off by the square of the rotations (0.86", 4e-6) times the earth's
            // radius; the projections' series stop after the eighth power, which leaves 0.6 mm here.
            bool const isReverse = !source.isPulkovo && target.isPulkovo;
            bool const hasGrid = source.numbers == nGrid || target.numbers == nGrid;
            double const metres = (isReverse ? 2e-4 : 2e-5) + (hasGrid ? 1e-3 : 0);
            double const height = target.numbers == nKilometres ? metres / 1000 : metres;
            double const plane = target.numbers == nDegrees ? metres / 6e4 : height;
            EXPECT_NEAR(result[0], target.point[0], plane) << source.name << " to " << target.name;
            EXPECT_NEAR(result[1], target.point[1], plane) << source.name << " to " << target.name;
            EXPECT_NEAR(result[2], target.point[2], height) << source.name << " to " << target.name;
        }
    }
}

TEST(SixKindsRoad, WithoutProjectionAndReverseShiftTheRoadIsExact) {
    auto const exact = [](TPlace const& place) {
        return std::string(place.name).find("geocentric") != std::string::npos ||
               std::string(place.name).find("topocentric") != std::string::npos;
    };
    for (TPlace const& source : EarthBoundPlaces()) {
        for (TPlace const& target : EarthBoundPlaces()) {
            if (!exact(source) || !exact(target) || (target.isPulkovo && !source.isPulkovo)) {
                continue;
            }
            TPoint result = {};
            ASSERT_TRUE(TransformCoords(Build(source.fill).get(), source.point[0], source.point[1],
                                        source.point[2], Build(target.fill).get(), &result[0], &result[1],
                                        &result[2]));
            for (int axis = 0; axis < 3; ++axis) {
                EXPECT_NEAR(result[axis], target.point[axis], 1e-8) << source.name << " to " << target.name;
            }
        }
    }
}

TEST(SixKindsRoad, PrimeMeridiansTurnGeocentricAxes) {
    TGeodeticText paris = WithZeroShift();
    paris.meridian = "2.33722917";
    auto const greenwich = Live(GeocentricOn(WithZeroShift()));
    auto const turned = Live(GeocentricOn(paris));
    TPoint result = {};

    ASSERT_TRUE(TransformCoords(greenwich.get(), 2928363.403579358, 2206680.102940028, 5201547.35361113,
                                turned.get(), &result[0], &result[1], &result[2]));

    // By mpmath, a rotation by the longitude.
    EXPECT_NEAR(result[0], 3015918.01279424, 1e-8);
    EXPECT_NEAR(result[1], 2085422.700614323, 1e-8);
    EXPECT_NEAR(result[2], 5201547.35361113, 1e-8);
}

TEST(SixKindsRoad, AnUndefinedDatumIsNotShifted) {
    TGeodeticText undefined = Pulkovo1942();
    undefined.shiftType = 0;
    auto const source = Live(GeocentricOn(undefined));
    auto const target = Live(GeocentricOn(WithZeroShift()));
    TPoint result = {};

    ASSERT_TRUE(
        TransformCoords(source.get(), 1e6, 2e6, 6e6, target.get(), &result[0], &result[1], &result[2]));

    EXPECT_EQ(result, (TPoint{1e6, 2e6, 6e6}));
    EXPECT_EQ(CompareDatums(source.get(), target.get()), dcUnknown);
}

TEST(SixKindsRoad, DatumsAreComparedAcrossKinds) {
    for (TPlace const& source : EarthBoundPlaces()) {
        for (TPlace const& target : EarthBoundPlaces()) {
            EXPECT_EQ(CompareDatums(Build(source.fill).get(), Build(target.fill).get()),
                      source.isPulkovo == target.isPulkovo ? dcEqual : dcDifferent)
                << source.name << " to " << target.name;
        }
    }
}

// Local kinds

TEST(SixKindsRoad, LocalAndEarthBoundKindsDoNotReachEachOther) {
    for (TFill const& local : LocalSystems()) {
        auto const plane = Build(local);
        for (TPlace const& place : EarthBoundPlaces()) {
            auto const earth = Build(place.fill);
            TPoint result = {7, 8, 9};

            EXPECT_FALSE(
                TransformCoords(plane.get(), 1, 2, 3, earth.get(), &result[0], &result[1], &result[2]))
                << place.name;
            EXPECT_FALSE(TransformCoords(earth.get(), place.point[0], place.point[1], place.point[2],
                                         plane.get(), &result[0], &result[1], &result[2]))
                << place.name;
            EXPECT_EQ(result, (TPoint{7, 8, 9}));
            EXPECT_EQ(ThrownText([&] {
                          double point[3] = {1, 2, 3};
                          plane->OperateShellCoords(*earth, point, false);
                      }),
                      ":(");
        }
    }
}

TEST(SixKindsRoad, LocalKindsReachEachOtherAndComeBack) {
    for (TFill const& source : LocalSystems()) {
        for (TFill const& target : LocalSystems()) {
            auto const from = Build(source);
            auto const to = Build(target);
            TPoint there = {};
            TPoint back = {};
            ASSERT_TRUE(
                TransformCoords(from.get(), 1000, 2000, 10, to.get(), &there[0], &there[1], &there[2]));
            ASSERT_TRUE(TransformCoords(to.get(), there[0], there[1], there[2], from.get(), &back[0],
                                        &back[1], &back[2]));

            EXPECT_EQ(there[0], 1000);
            EXPECT_EQ(there[1], 2000);
            EXPECT_NEAR(back[2], 10, 1e-14);
            // 5e6 / (2 * 6371000), by hand, for a change between curved and flat.
            bool const bends = (from->Type == rstLocalCurved) != (to->Type == rstLocalCurved);
            EXPECT_NEAR(std::abs(there[2] - 10), bends ? 0.39240307644 : 0, 1e-11);
        }
    }
}

// Heights

TEST(SixKindsRoad, EqualHeightUnitsPreserveHeightsAcrossKinds) {
    // Kept: without geoids only the units are looked at, whatever the kinds.
    std::vector<TFill> kinds = LocalSystems();
    for (TPlace const& place : EarthBoundPlaces()) {
        kinds.push_back(place.fill);
    }
    for (TFill const& source : kinds) {
        for (TFill const& target : kinds) {
            auto const from = Build(source);
            auto const to = Build(target);
            EXPECT_EQ(from->PreservesHeights(*to),
                      from->GetHeightUnitCoefToBase() == to->GetHeightUnitCoefToBase());
        }
    }
}

// Geoids

TEST(SixKindsRoad, AGeodeticGridIsNoGeoidOfACartesianKind) {
    TLevelGrid surface(30);
    auto const grid = Create(WithZeroShift());
    std::vector<TFill> const kinds = {Describe(GeocentricOn(WithZeroShift())),
                                      Describe(TopocentricOn(WithZeroShift(), {"55", "37", "0"}, "", 0)),
                                      Describe(TLocalText()), Describe(Curved("6371000"))};
    for (TFill const& kind : kinds) {
        auto const system = Build(kind);

        EXPECT_EQ(ThrownText([&] { system->SetGeoid("EGM96", &surface, grid.get()); }),
                  "void TShellReferenceSystem::SetGeoid(TBaseGrid*, const TShellReferenceSystem*)");
        EXPECT_FALSE(system->ContainsGeoid());
        EXPECT_EQ(system->GetGeoidID(), "");
        EXPECT_EQ(system->GetGeoidSetting(), "");
        EXPECT_TRUE(system->CheckGeoid());
    }
}

TEST(SixKindsRoad, AGridWithoutANameIsTakenByEveryKind) {
    // Kept: with equal (empty) names the height units decide, and the kinds aren't compared.
    TLevelGrid surface(30);
    auto const grid = Create(WithZeroShift());
    auto const system = Live(TopocentricOn(WithZeroShift(), {"55", "37", "0"}, "", 0));
    ASSERT_TRUE(system->SetGeoid("", &surface, grid.get()));
    auto const target = Live(TopocentricOn(WithZeroShift(), {"55", "37", "0"}, "", 0));
    TPoint result = {};

    ASSERT_TRUE(TransformCoords(system.get(), 1, 2, 3, target.get(), &result[0], &result[1], &result[2]));

    EXPECT_NEAR(result[2], 33, 1e-8);
    EXPECT_FALSE(system->ContainsGeoid());
}

TEST(SixKindsRoad, AGridOfTheSameKindIsTaken) {
    TLevelGrid surface(30);
    auto const onSame = [&](TFill const& fill, double expected) {
        auto const grid = Build(fill);
        auto const system = Build(fill);
        auto const target = Build(fill);
        ASSERT_TRUE(system->SetGeoid("level", &surface, grid.get()));
        EXPECT_TRUE(system->ContainsGeoid());
        TPoint result = {};
        ASSERT_TRUE(TransformCoords(system.get(), 1, 2, 3, target.get(), &result[0], &result[1], &result[2]));
        EXPECT_NEAR(result[2], expected, 1e-8);
    };
    onSame(Describe(TopocentricOn(WithZeroShift(), {"55", "37", "0"}, "", 0)), 33);
    onSame(Describe(TLocalText()), 33);
    onSame(Describe(Curved("6371000")), 33);
    onSame(Describe(GeocentricOn(WithZeroShift())), 33);
}

TEST(SixKindsRoad, AGeoidOfTheGeodeticEndIsAppliedThere) {
    TLevelGrid surface(30);
    auto const grid = Create(WithZeroShift());
    auto const geodetic = Create(WithZeroShift());
    ASSERT_TRUE(geodetic->SetGeoid("level", &surface, grid.get()));
    auto const topocentric = Live(TopocentricOn(WithZeroShift(), {"55", "37", "0"}, "", 0));
    TPoint result = {};

    ASSERT_TRUE(
        TransformCoords(geodetic.get(), 55, 37, 100, topocentric.get(), &result[0], &result[1], &result[2]));
    EXPECT_NEAR(result[2], 130, 1e-8);
    ASSERT_TRUE(
        TransformCoords(topocentric.get(), 0, 0, 130, geodetic.get(), &result[0], &result[1], &result[2]));
    EXPECT_NEAR(result[2], 100, 1e-5);
}

// Every point

TEST(SixKindsRoad, NoPointAllocates) {
    std::vector<TPlace> places = EarthBoundPlaces();
    for (TPlace const& source : places) {
        auto const from = Build(source.fill);
        for (TPlace const& target : places) {
            auto const to = Build(target.fill);
            double point[3] = {};
            std::size_t const before = AllocationCount();
            for (int pass = 0; pass < 10; ++pass) {
                TransformCoords(from.get(), source.point[0], source.point[1], source.point[2], to.get(),
                                &point[0], &point[1], &point[2]);
            }
            EXPECT_EQ(AllocationCount(), before) << source.name << " to " << target.name;
        }
    }
    for (TFill const& source : LocalSystems()) {
        auto const from = Build(source);
        for (TFill const& target : LocalSystems()) {
            auto const to = Build(target);
            double point[3] = {};
            std::size_t const before = AllocationCount();
            TransformCoords(from.get(), 1, 2, 3, to.get(), &point[0], &point[1], &point[2]);
            EXPECT_EQ(AllocationCount(), before);
        }
    }
}

TEST(SixKindsRoad, NumbersThatAreNotFiniteEnd) {
    double const infinity = std::numeric_limits<double>::infinity();
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (TPlace const& source : EarthBoundPlaces()) {
        auto const from = Build(source.fill);
        for (TPlace const& target : EarthBoundPlaces()) {
            auto const to = Build(target.fill);
            for (double const bad : {infinity, -infinity, nan, 1e308, -1e308, 1e-308}) {
                for (int axis = 0; axis < 3; ++axis) {
                    TPoint point = source.point;
                    point[axis] = bad;
                    double result[3] = {7, 8, 9};
                    bool const done = TransformCoords(from.get(), point[0], point[1], point[2], to.get(),
                                                      &result[0], &result[1], &result[2]);
                    EXPECT_TRUE(done || (result[0] == 7 && result[1] == 8 && result[2] == 9));
                }
            }
        }
    }
}

TEST(SixKindsRoad, OnePairOfSystemsServesManyThreads) {
    auto const from = Live(GeocentricOn(Pulkovo1942()));
    auto const to = Live(TopocentricOn(WithZeroShift(), {"55.7", "37.6", "100"}, "30", 1));
    TPoint expected = {};
    auto const run = [&](TPoint* result) {
        return TransformCoords(from.get(), 2849914, 2196314, 5249043, to.get(), &(*result)[0], &(*result)[1],
                               &(*result)[2]);
    };
    ASSERT_TRUE(run(&expected));
    std::vector<TPoint> results(4);
    std::vector<std::thread> threads;

    for (TPoint& result : results) {
        threads.emplace_back([&run, &result] {
            for (int pass = 0; pass < 2000; ++pass) {
                run(&result);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }

    for (TPoint const& result : results) {
        EXPECT_EQ(result, expected);
    }
}

// Proxies

TEST(SixKindsRoad, EveryKindMayBeAProxy) {
    for (TPlace const& place : EarthBoundPlaces()) {
        auto const system = Build(place.fill);
        ASSERT_TRUE(system->SetProxyRefSys(newobj_a(Build(EarthBoundPlaces()[5].fill).release())))
            << place.name;
        std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
        ASSERT_TRUE(copy->ContainsProxyRefSys());
        EXPECT_EQ(copy->GetProxyRefSysName(), "Test geocentric");
        double point[3] = {place.point[0], place.point[1], place.point[2]};
        copy->OperateShellCoords(*system, point, false);
        EXPECT_NEAR(point[2], place.point[2], 5e-4) << place.name; // out and back through the proxy
    }
}

// Factories

TEST(SixKindsRoad, ATextATreeAndADocumentDescribeTheSameSystem) {
    std::vector<TFill> kinds = LocalSystems();
    for (TPlace const& place : EarthBoundPlaces()) {
        if (std::string(place.name) != "UTM 37") { // zones have no XML form
            kinds.push_back(place.fill);
        }
    }
    for (TFill const& fill : kinds) {
        TStringTree tree;
        fill(&tree);
        auto const system = Create(&tree);
        ASSERT_NE(system, nullptr);
        std::unique_ptr<TShellReferenceSystem> const fromText(
            CreateShellReferenceSystem(TextOf(tree), nullptr));
        VellariHostKit::TXmlIniReader reader;
        reader.LoadString(XmlOf(*system));
        std::unique_ptr<TShellReferenceSystem> const fromXml(CreateShellReferenceSystem(&reader, nullptr));
        std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());

        for (auto const* const other : {&fromText, &fromXml, &copy}) {
            ASSERT_NE(*other, nullptr) << system->Name;
            EXPECT_EQ((*other)->Type, system->Type);
            EXPECT_EQ((*other)->Name, system->Name);
            EXPECT_TRUE(**other == *system) << system->Name;
            EXPECT_TRUE(** other ^= *system) << system->Name;
        }
        std::string text;
        ASSERT_TRUE(copy->WriteToString(text));
        EXPECT_EQ(std::string(text.c_str()), TextOf(*system->SavedTree));
    }
}

TEST(SixKindsRoad, EveryPrefixOfAGoodTextEndsWell) {
    std::vector<TFill> kinds = LocalSystems();
    kinds.push_back(EarthBoundPlaces()[1].fill);
    kinds.push_back(EarthBoundPlaces()[2].fill);
    for (TFill const& fill : kinds) {
        TStringTree tree;
        fill(&tree);
        std::string const text = TextOf(tree);
        std::size_t built = 0;
        for (std::size_t length = 0; length < text.size(); ++length) {
            std::unique_ptr<TShellReferenceSystem> const system(
                CreateShellReferenceSystem(text.substr(0, length), nullptr));
            built += system ? 1U : 0U;
        }
        EXPECT_LT(built, text.size() / 2);
    }
}

} // namespace
} // namespace KvRefSystem
