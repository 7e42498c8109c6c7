#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "core/transforms/PlaneGrid.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/transforms/TransformChain.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TPoint = std::array<double, 3>;

constexpr char const* ShortMessage =
    "TShellMapProjectedReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)";

std::string TextOf(TProjectedText const& text) {
    TStringTree tree;
    FillProjected(&tree, text);
    return TestSupport::TextOf(tree);
}

/**
 * Two tables over the square of 100 km from (450000, 4900000): the correction of the easting grows from 0 to
 * 10 with the easting, that of the northing from 0 to 20 with the northing; half of it counts.
 */
TShellRefSystemTransform2DGridParams Corrections(std::string const& system) {
    TShellRefSystemTransform2DGridParams params;
    params.dE = "2 2 100000 4900000 450000 0 10 0 10";
    params.dN = "2 2 100000 4900000 450000 0 0 20 20";
    params.coef = 0.5;
    params.refsys = system;
    return params;
}

/** Metres on the meridian 3 degrees east, without false easting: other numbers than those of the zone. */
TProjectedText Holder() {
    return On(WithZeroShift(), TransverseMercator("3", "1", "0"));
}

TPoint At45North3East(TShellReferenceSystem const& system) {
    auto const geodetic = Create(WithZeroShift());
    TPoint point = {};
    EXPECT_TRUE(TransformCoords(geodetic.get(), 45, 3, 100, &system, &point[0], &point[1], &point[2]));
    return point;
}

// 45 N, 3 E is (500000, 4982950.4005) in zone 31: half of the easting's way through the tables, and 0.829504
// of the northing's.
constexpr double ExpectedEast = 0.5 * 5;
constexpr double ExpectedNorth = 0.5 * 16.59008;
/** The lookup runs in single precision. */
constexpr double LookupTolerance = 1e-3;

TEST(GridRefSystem, TablesAreLookedUpInTheSystemOfTheirText) {
    auto const corrections = Corrections(TextOf(On(WithZeroShift(), UtmZone(31, 'N'))));
    auto const system = Projected(Holder());
    TPoint const plain = At45North3East(*system);

    ASSERT_TRUE(system->AppendTransform(&corrections));

    TPoint const corrected = At45North3East(*system);
    EXPECT_NEAR(corrected[0] - plain[0], ExpectedEast, LookupTolerance);
    EXPECT_NEAR(corrected[1] - plain[1], ExpectedNorth, LookupTolerance);
    EXPECT_NEAR(corrected[2], plain[2], 1e-8);
}

TEST(GridRefSystem, WithoutATextTheTablesAreLookedUpAtThePointItself) {
    auto const corrections = Corrections("");
    auto const system = Projected(Holder());
    TPoint const plain = At45North3East(*system);

    ASSERT_TRUE(system->AppendTransform(&corrections));

    // West of the tables, at the northing 4982950.4005 / 0.9996.
    TPoint const corrected = At45North3East(*system);
    EXPECT_NEAR(corrected[0] - plain[0], 0, LookupTolerance);
    EXPECT_NEAR(corrected[1] - plain[1], 0.5 * 16.98888, LookupTolerance);
}

TEST(GridRefSystem, TheSystemsAxesDoNotTurnTheLookup) {
    // The tables go by easting and northing in metres, however the user sees their system.
    TProjectedText turned = Placed(On(WithZeroShift(), UtmZone(31, 'N')), 1, -1, 1);
    turned.linearUnit = Foot();
    auto const corrections = Corrections(TextOf(turned));
    auto const system = Projected(Holder());
    TPoint const plain = At45North3East(*system);

    ASSERT_TRUE(system->AppendTransform(&corrections));

    EXPECT_NEAR(At45North3East(*system)[0] - plain[0], ExpectedEast, LookupTolerance);
    EXPECT_NEAR(At45North3East(*system)[1] - plain[1], ExpectedNorth, LookupTolerance);
}

TEST(GridRefSystem, TheCorrectionsActOnTheCoresAxes) {
    // A grid isn't turned by the order and the signs of its holder, as an affine record is.
    auto const corrections = Corrections(TextOf(On(WithZeroShift(), UtmZone(31, 'N'))));
    auto const system = Projected(Placed(Holder(), 1, 1, -1));
    TPoint const plain = At45North3East(*system);

    ASSERT_TRUE(system->AppendTransform(&corrections));

    EXPECT_NEAR(At45North3East(*system)[0] - plain[0], ExpectedNorth, LookupTolerance);
    EXPECT_NEAR(At45North3East(*system)[1] - plain[1], -ExpectedEast, LookupTolerance);
}

TEST(GridRefSystem, TheDatumOfTheTablesSystemCounts) {
    auto const onPulkovo = Corrections(TextOf(On(Pulkovo1942(), UtmZone(31, 'N'))));
    auto const system = Projected(Holder());
    TPoint const plain = At45North3East(*system);

    ASSERT_TRUE(system->AppendTransform(&onPulkovo));

    // cct: WGS 84 to geocentric, the inverse of the seven parameters, geodetic on the Krassowsky ellipsoid and
    // utm of zone 31 give (500125.0377, 4983114.1828).
    EXPECT_NEAR(At45North3East(*system)[0] - plain[0], 0.5 * 5.012504, LookupTolerance);
    EXPECT_NEAR(At45North3East(*system)[1] - plain[1], 0.5 * 16.622837, LookupTolerance);
}

TEST(GridRefSystem, TheRecordSurvivesTheDescription) {
    auto const corrections = Corrections(TextOf(On(WithZeroShift(), UtmZone(31, 'N'))));
    auto const system = Projected(Holder());
    ASSERT_TRUE(system->AppendTransform(&corrections));

    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());

    EXPECT_EQ(At45North3East(*copy), At45North3East(*system));
}

TEST(GridRefSystem, AGeodeticHolderLooksUpInThePlaneToo) {
    auto const corrections = Corrections(TextOf(On(WithZeroShift(), UtmZone(31, 'N'))));
    auto const system = Create(WithZeroShift());
    auto tiny = corrections;
    tiny.coef = 0.5e-6; // corrections of radians
    ASSERT_TRUE(system->AppendTransform(&tiny));

    TPoint const corrected = At45North3East(*system);

    double const degrees = 57.29577951308232e-6;
    EXPECT_NEAR(corrected[0] - 45, ExpectedNorth * degrees, 1e-7);
    EXPECT_NEAR(corrected[1] - 3, ExpectedEast * degrees, 1e-7);
}

TEST(GridRefSystem, TheCoreTransformHoldsACopyOfTheCoreSystem) {
    TShellRefSystemTransform chain;
    ASSERT_TRUE(chain.AddNextTransform(Corrections(TextOf(On(Pulkovo1942(), UtmZone(31, 'N'))))));

    std::unique_ptr<TRefSystemTransformsSet> const set(chain.CreateCoreTransform(true, -1, 1));
    chain.ClearTransforms();

    ASSERT_EQ(set->TransformList.size(), 1U);
    auto const* const grid = dynamic_cast<TPlaneGridRefSystemTransform const*>(set->TransformList[0]);
    ASSERT_NE(grid, nullptr);
    auto const* const core = dynamic_cast<TMapProjectedReferenceSystem const*>(grid->GridRefSystem);
    ASSERT_NE(core, nullptr);
    EXPECT_EQ(core->GeodeticSystem->Ellipsoid->SemiMajorAxis, 6378245.0);
    EXPECT_TRUE(core->ContainsDatum());
}

TEST(GridRefSystem, TheKindOfTheTextIsNotLookedAt) {
    TStringTree tree;
    FillProjected(&tree, UtmZone(31, 'N'));
    SetField(&tree, 1100, "4");

    auto const core = CreateGridCoreRefSystem(TestSupport::TextOf(tree));

    EXPECT_NE(dynamic_cast<TMapProjectedReferenceSystem const*>(core.get()), nullptr);
}

TEST(GridRefSystem, ATextOfAnotherKindIsRefusedAsAMapProjectedOne) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    auto const system = Projected(Holder());
    auto const corrections = Corrections(TestSupport::TextOf(tree));
    TPoint const plain = At45North3East(*system);

    EXPECT_EQ(ThrownText([&] { system->AppendTransform(&corrections); }), ShortMessage);
    EXPECT_EQ(At45North3East(*system), plain);
}

TEST(GridRefSystem, ATextThatIsNoDescriptionLetsTheReadersExceptionPass) {
    TShellRefSystemTransform chain;
    ASSERT_TRUE(chain.AddNextTransform(Corrections("(0,0)root\n")));

    EXPECT_EQ(ThrownText([&] { delete chain.CreateCoreTransform(false, 1, 1); }),
              "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
    chain.ClearTransforms();
    ASSERT_TRUE(chain.AddNextTransform(Corrections("no tree at all")));
    EXPECT_ANY_THROW(delete chain.CreateCoreTransform(false, 1, 1));
    chain.ClearTransforms();
}

} // namespace
} // namespace KvRefSystem
