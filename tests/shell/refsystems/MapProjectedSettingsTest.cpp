#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "frame/imported/BaseGrid.h"
#include "shell/datum/DatumShift.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TPoint = std::array<double, 3>;

struct TPlacement {
    int flip;
    int first;
    int second;
};

constexpr TPlacement Placements[] = {{0, 1, 1}, {0, -1, 1}, {0, 1, -1}, {0, -1, -1},
                                     {1, 1, 1}, {1, -1, 1}, {1, 1, -1}, {1, -1, -1}};

TProjectedText PlacedZone(TPlacement const& row) {
    return Placed(On(WithZeroShift(), UtmZone(31, 'N')), row.flip, row.first, row.second);
}

/** A record that moves the plane by metres. */
TShellRefSystemTransform2DAffineParams PlaneShift(double first, double second) {
    TShellRefSystemTransform2DAffineParams params(true);
    params.a13 = first;
    params.a23 = second;
    return params;
}

/** Where 45 N, 4 E, 100 m on WGS 84 lies in `system`. */
TPoint PointIn(TShellReferenceSystem const& system, TShellReferenceSystem const& geodetic) {
    TPoint point = {};
    EXPECT_TRUE(TransformCoords(&geodetic, 45, 4, 100, &system, &point[0], &point[1], &point[2]));
    return point;
}

TPoint PointIn(TShellReferenceSystem const& system) {
    return PointIn(system, *Create(WithZeroShift()));
}

/** A plane shift of (100, 20) m under the own chain of a description. */
void AddOwnShift(TStringTree* tree) {
    AddPlaneShift(tree, 100, 20);
}

/** The same under the pairwise chain "pair". */
void AddPairwiseShift(TStringTree* tree) {
    TStringTree holder;
    AddPlaneShift(&holder, 100, 20);
    TStringTree* const set = Child(Child(tree, 1109), 1110);
    holder.FindSubtree(1108, 0)->CopyTo(set);
    SetField(set, 7201, "pair");
}

/** WGS 84 with a pairwise chain "pair" that does nothing. */
std::unique_ptr<TShellReferenceSystem> Partner() {
    auto partner = Create(WithZeroShift());
    auto const nothing = HeightShift(0);
    EXPECT_TRUE(partner->AppendPairwiseTransform("pair", &nothing));
    return partner;
}

// Chains

TEST(MapProjectedSettings, TheOwnChainCorrectsTheUsersAxes) {
    for (TPlacement const& row : Placements) {
        TPoint const plain = PointIn(*Projected(PlacedZone(row)));
        TPoint const shifted = PointIn(*Projected(PlacedZone(row), AddOwnShift));
        EXPECT_NEAR(shifted[0] - plain[0], 100, 1e-6) << row.flip << row.first << row.second;
        EXPECT_NEAR(shifted[1] - plain[1], 20, 1e-6) << row.flip << row.first << row.second;
    }
}

TEST(MapProjectedSettings, AnAppendedRecordCorrectsTheUsersAxesToo) {
    auto const shift = PlaneShift(100, 20);
    for (TPlacement const& row : Placements) {
        auto const system = Projected(PlacedZone(row));
        TPoint const plain = PointIn(*system);

        ASSERT_TRUE(system->AppendTransform(&shift));

        TPoint const live = PointIn(*system);
        EXPECT_NEAR(live[0] - plain[0], 100, 1e-6) << row.flip << row.first << row.second;
        EXPECT_NEAR(live[1] - plain[1], 20, 1e-6) << row.flip << row.first << row.second;
        std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
        EXPECT_EQ(PointIn(*copy), live);
    }
}

TEST(MapProjectedSettings, AChainTurnsBackOnTheWayOut) {
    auto const system = Projected(Placed(On(WithZeroShift(), UtmZone(31, 'N')), 1, 1, -1), AddOwnShift);
    auto const geodetic = Create(WithZeroShift());
    TPoint const point = PointIn(*system);
    TPoint back = {};

    ASSERT_TRUE(TransformCoords(system.get(), point[0], point[1], point[2], geodetic.get(), &back[0],
                                &back[1], &back[2]));

    // The series of the projection come back to half a millimetre this near to the meridian.
    EXPECT_NEAR(back[0], 45, 5e-9);
    EXPECT_NEAR(back[1], 4, 5e-9);
    EXPECT_NEAR(back[2], 100, 1e-6);
}

TEST(MapProjectedSettings, APairwiseChainThatIsReadCorrectsTheCoresAxes) {
    auto const partner = Partner();
    for (TPlacement const& row : Placements) {
        TPoint const plain = PointIn(*Projected(PlacedZone(row)));

        TPoint const shifted = PointIn(*Projected(PlacedZone(row), AddPairwiseShift), *partner);

        // The core's easting moves by 100 and its northing by 20, wherever the user sees them.
        EXPECT_NEAR(shifted[0] - plain[0], row.first * (row.flip ? 20 : 100), 1e-6)
            << row.flip << row.first << row.second;
        EXPECT_NEAR(shifted[1] - plain[1], row.second * (row.flip ? 100 : 20), 1e-6)
            << row.flip << row.first << row.second;
    }
}

TEST(MapProjectedSettings, APairwiseChainThatIsAddedLaterCorrectsTheUsersAxes) {
    auto const partner = Partner();
    auto const shift = PlaneShift(100, 20);
    for (TPlacement const& row : Placements) {
        auto const system = Projected(PlacedZone(row));
        TPoint const plain = PointIn(*system);

        ASSERT_TRUE(system->AppendPairwiseTransform("pair", &shift));

        TPoint const shifted = PointIn(*system, *partner);
        EXPECT_NEAR(shifted[0] - plain[0], 100, 1e-6) << row.flip << row.first << row.second;
        EXPECT_NEAR(shifted[1] - plain[1], 20, 1e-6) << row.flip << row.first << row.second;
    }
}

TEST(MapProjectedSettings, ACopyOfAFlippedSystemAppliesAPairwiseChainOtherwise) {
    // Meant: what is read and what is added on the live system take the axes differently.
    auto const partner = Partner();
    auto const shift = PlaneShift(100, 20);
    auto const system = Projected(PlacedZone({1, 1, 1}));
    TPoint const plain = PointIn(*system);
    ASSERT_TRUE(system->AppendPairwiseTransform("pair", &shift));

    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());

    TPoint const live = PointIn(*system, *partner);
    TPoint const read = PointIn(*copy, *partner);
    EXPECT_NEAR(live[0] - plain[0], 100, 1e-6);
    EXPECT_NEAR(live[1] - plain[1], 20, 1e-6);
    EXPECT_NEAR(read[0] - plain[0], 20, 1e-6);
    EXPECT_NEAR(read[1] - plain[1], 100, 1e-6);
}

TEST(MapProjectedSettings, ThePlaneShiftsOfAChainAreMetresWhateverTheUnit) {
    TProjectedText text = PlacedZone({0, 1, 1});
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};

    TPoint const plain = PointIn(*Projected(text));
    TPoint const shifted = PointIn(*Projected(text, AddOwnShift));

    EXPECT_NEAR(shifted[0] - plain[0], 0.1, 1e-9);
    EXPECT_NEAR(shifted[1] - plain[1], 0.02, 1e-9);
}

TEST(MapProjectedSettings, InsertingTheChainFollowsTheLiveMembers) {
    auto const system = Projected(PlacedZone({0, 1, 1}));
    TPoint const plain = PointIn(*system);
    ASSERT_TRUE(system->Transform->AddNextTransform(PlaneShift(100, 20)));
    EXPECT_EQ(PointIn(*system), plain); // not yet in the core

    EXPECT_TRUE(system->InsertCoreTransforms());
    EXPECT_NEAR(PointIn(*system)[0] - plain[0], 100, 1e-6);
    system->FirstAxisSign = -1;
    EXPECT_TRUE(system->InsertCoreTransforms());
    EXPECT_NEAR(PointIn(*system)[0] + plain[0], 100, 1e-6);
}

TEST(MapProjectedSettings, WithoutAChainTheCoresIsCleared) {
    auto const system = Projected(PlacedZone({0, 1, 1}), AddOwnShift);
    DestroyTransformChain(system->Transform);
    system->Transform = nullptr;

    EXPECT_TRUE(system->InsertCoreTransforms());
    EXPECT_TRUE(system->CoreRefSystem->Transforms.TransformList.empty());
}

TEST(MapProjectedSettings, InsertingAnUnknownPairwiseNameTakesItFromTheCore) {
    auto const system = Projected(PlacedZone({0, 1, 1}), AddPairwiseShift);
    ASSERT_EQ(system->CoreRefSystem->PairwiseTransforms.size(), 1U);

    EXPECT_TRUE(system->InsertCorePairwiseTransforms("other"));
    EXPECT_EQ(system->CoreRefSystem->PairwiseTransforms.size(), 1U);
    EXPECT_TRUE(system->ClearPairwiseTransforms("pair"));
    EXPECT_TRUE(system->CoreRefSystem->PairwiseTransforms.empty());
}

TEST(MapProjectedSettings, WithoutACoreNothingIsInserted) {
    auto const system = Projected(PlacedZone({0, 1, 1}));
    system->Reset();

    EXPECT_FALSE(system->InsertCoreTransforms());
    EXPECT_FALSE(system->InsertCorePairwiseTransforms("pair"));
}

// Datum

TEST(MapProjectedSettings, TheDatumOfAnOrdinarySystemCannotBeMadeNonLinear) {
    auto const system = Projected(On(Pulkovo1942(), UtmZone(31, 'N')));
    std::string const before = TextOf(*system->SavedTree);

    EXPECT_FALSE(system->SetNonLinearDatum(true));
    EXPECT_FALSE(system->SetNonLinearDatum(false));

    EXPECT_EQ(TextOf(*system->SavedTree), before);
    EXPECT_FALSE(system->CoreRefSystem->NonlinearDatum());
}

TEST(MapProjectedSettings, ADatumAtTheRootIsMadeNonLinearInTheBasesDescription) {
    TProjectedText text = On(Pulkovo1942(), UtmZone(31, 'N'));
    text.datumAtRoot = true;
    auto const system = Projected(text);
    auto const nonLinear = [&](TStringTree const* owner) {
        int value = 0;
        return owner->FindSubtree(1107, 0)->FindSubtree(1102, 0)->GetInteger(5469, 0, &value) && value == 1;
    };

    EXPECT_TRUE(system->SetNonLinearDatum(true));

    EXPECT_TRUE(system->CoreRefSystem->NonlinearDatum());
    EXPECT_TRUE(nonLinear(system->SavedTree->FindSubtree(1121, 0)));
    EXPECT_FALSE(nonLinear(system->SavedTree));
    EXPECT_TRUE(system->SetNonLinearDatum(false));
    EXPECT_FALSE(system->CoreRefSystem->NonlinearDatum());
    EXPECT_FALSE(nonLinear(system->SavedTree->FindSubtree(1121, 0)));
}

TEST(MapProjectedSettings, ADatumAtTheRootAloneIsNotEnough) {
    TProjectedText text = On(TGeodeticText(), UtmZone(31, 'N'));
    auto const system = Projected(text, [](TStringTree* tree) {
        TStringTree geodetic;
        FillGeodetic(&geodetic, Pulkovo1942());
        geodetic.FindSubtree(1107, 0)->CopyTo(Child(tree, 1107));
    });

    // The live datum changes; the base's description holds none.
    EXPECT_FALSE(system->SetNonLinearDatum(true));
}

TEST(MapProjectedSettings, ShiftParametersAreThoseOfTheRoot) {
    double numbers[7] = {1, 1, 1, 1, 1, 1, 1};
    auto const get = [&](TProjectedSystem const& system) {
        return system.GetDatumShiftParams(&numbers[0], &numbers[1], &numbers[2], &numbers[3], &numbers[4],
                                          &numbers[5], &numbers[6]);
    };
    TProjectedText text = On(Pulkovo1942(), UtmZone(31, 'N'));

    EXPECT_FALSE(get(*Projected(text)));
    EXPECT_EQ(numbers[0], 1);
    text.datumAtRoot = true;
    EXPECT_TRUE(get(*Projected(text)));
    EXPECT_NEAR(numbers[0], 23.57, 1e-12);
    EXPECT_NEAR(numbers[6], -0.22, 1e-12);
}

TEST(MapProjectedSettings, DatumsAreComparedThroughTheBase) {
    auto const system = Projected(On(Pulkovo1942(), UtmZone(31, 'N')));

    EXPECT_EQ(CompareDatums(system.get(), Create(Pulkovo1942()).get()), dcEqual);
    EXPECT_EQ(CompareDatums(system.get(), Create(WithZeroShift()).get()), dcDifferent);
}

// Geoid and proxy

TEST(MapProjectedSettings, AGeoidActsOnTheHeights) {
    auto const grid = Create(WithZeroShift());
    auto const geodetic = Create(WithZeroShift());
    auto const system = Projected(PlacedZone({1, 1, 1}));
    TLevelGrid surface(40);
    ASSERT_TRUE(system->SetGeoid("geoid", &surface, grid.get()));
    TPoint back = {};

    TPoint const point = PointIn(*system);
    EXPECT_NEAR(point[2], 60, 1e-6);
    ASSERT_TRUE(TransformCoords(system.get(), point[0], point[1], point[2], geodetic.get(), &back[0],
                                &back[1], &back[2]));
    EXPECT_NEAR(back[2], 100, 1e-6);
    EXPECT_EQ(system->GetGeoidSetting(), "geoid");
    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
    EXPECT_EQ(copy->GetGeoidID(), "geoid");
    EXPECT_NEAR(PointIn(*copy)[2], 60, 1e-6);
}

TEST(MapProjectedSettings, AGeoidsGridMayLieInAMapProjectedSystem) {
    /** The undulation is a thousandth of the northing over 4 900 000 m: easting first. */
    class TNorthingGrid : public TBaseGrid {
    public:
        bool GetZFastZ(double x, double y, double& z, unsigned int) override {
            z = x > 400000 && x < 700000 ? (y - 4900000) / 1000 : -1;
            return true;
        }
    };
    auto const geodetic = Create(WithZeroShift());
    TNorthingGrid surface;
    for (int const flip : {0, 1}) {
        auto const grid = Projected(PlacedZone({flip, 1, 1}));
        auto const system = Create(WithZeroShift());
        ASSERT_TRUE(system->SetGeoid("geoid", &surface, grid.get()));
        TPoint point = {};

        // 45 N, 3 E has the northing 4982950.4005 in zone 31.
        ASSERT_TRUE(
            TransformCoords(system.get(), 45, 3, 100, geodetic.get(), &point[0], &point[1], &point[2]));

        EXPECT_NEAR(point[2], 182.9504, 1e-4) << flip;
    }
}

TEST(MapProjectedSettings, AProxyIsPassed) {
    auto const system = Projected(PlacedZone({0, 1, 1}));
    TPoint const plain = PointIn(*system);
    auto const proxy = newobj_a(Create(WithZeroShift()).release());
    auto const ten = HeightShift(10);
    auto const one = HeightShift(1);
    ASSERT_TRUE(system->AppendPairwiseTransform("pair", &ten));
    ASSERT_TRUE(proxy->AppendPairwiseTransform("pair", &one));

    ASSERT_TRUE(system->SetProxyRefSys(proxy));

    // From the proxy to the system: the proxy's metre comes off, the system's ten go on.
    TPoint const detour = PointIn(*system);
    EXPECT_NEAR(detour[0], plain[0], 1e-6);
    EXPECT_NEAR(detour[2], plain[2] + 9, 1e-6);
    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
    EXPECT_EQ(copy->GetProxyRefSysName(), "WGS 84");
}

TEST(MapProjectedSettings, AMapProjectedSystemMayBeAProxy) {
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    std::unique_ptr<TShellReferenceSystem> proxy = Projected(PlacedZone({1, 1, -1}));
    ASSERT_TRUE(source->SetProxyRefSys(newobj_a(proxy.release())));
    double coords[3] = {45, 4, 100};

    source->OperateShellCoords(*target, coords, false);

    EXPECT_NEAR(coords[0], 45, 5e-9);
    EXPECT_NEAR(coords[1], 4, 5e-9);
    EXPECT_NEAR(coords[2], 100, 1e-6);
    EXPECT_EQ(source->GetProxyRefSysName(), "UTM 31N");
}

TEST(MapProjectedSettings, HeightsArePreservedByUnitAndGeoid) {
    auto const system = Projected(PlacedZone({0, 1, 1}));
    TProjectedText feet = PlacedZone({0, 1, 1});
    feet.base.heightUnit = Foot();

    EXPECT_TRUE(system->PreservesHeights(*Create(WithZeroShift())));
    EXPECT_TRUE(system->PreservesHeights(*Projected(PlacedZone({1, 1, 1}))));
    EXPECT_FALSE(system->PreservesHeights(*Projected(feet)));
}

} // namespace
} // namespace KvRefSystem
